#include "kydiskform.h"

#include "kydiskform_table.h"

namespace {

unsigned char Convert(const unsigned char (&table)[128], unsigned char c) { return c < 0x80 ? c : table[c - 0x80]; }

/// Up to the zero byte; returns the bytes written, the zero byte included.
unsigned ConvertText(const unsigned char (&table)[128], unsigned char* dst, const unsigned char* src) {
    unsigned length = 0;
    do {
        dst[length] = Convert(table, src[length]);
    } while (dst[length++] != 0);
    return length;
}

}  // namespace

unsigned char _KyConvertToDiskFormat(unsigned char c) { return Convert(ky::kToDiskForm, c); }
unsigned char _KyConvertFromDiskFormat(unsigned char c) { return Convert(ky::kFromDiskForm, c); }

unsigned _KyEncodeString(unsigned char* dst, const unsigned char* src, unsigned short n) {
    if (n == 0) return ConvertText(ky::kToDiskForm, dst, src);
    for (unsigned i = 0; i < n; ++i) dst[i] = Convert(ky::kToDiskForm, src[i]);
    return n;
}

unsigned _KyDecodeString(unsigned char* dst, const unsigned char* src) {
    return ConvertText(ky::kFromDiskForm, dst, src);
}
