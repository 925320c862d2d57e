#include "kydiskform.h"

#include "disk_bytes.h"

namespace {

/// Up to the zero byte; returns the bytes written, the zero byte included.
unsigned ConvertText(const unsigned char (&table)[128], unsigned char* dst, const unsigned char* src) {
    unsigned length = 0;
    do {
        dst[length] = ky::ConvertByte(table, src[length]);
    } while (dst[length++] != 0);
    return length;
}

}  // namespace

unsigned char _KyConvertToDiskFormat(unsigned char c) { return ky::ConvertByte(ky::kToDiskForm, c); }
unsigned char _KyConvertFromDiskFormat(unsigned char c) { return ky::ConvertByte(ky::kFromDiskForm, c); }

unsigned _KyEncodeString(unsigned char* dst, const unsigned char* src, unsigned short n) {
    if (n == 0) return ConvertText(ky::kToDiskForm, dst, src);
    ky::ConvertBytes(ky::kToDiskForm, dst, src, n);
    return n;
}

unsigned _KyDecodeString(unsigned char* dst, const unsigned char* src) {
    return ConvertText(ky::kFromDiskForm, dst, src);
}
