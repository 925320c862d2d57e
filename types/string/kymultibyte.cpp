#include "kymultibyte.h"

#include <cstdint>

namespace {

/// The form that characters of up to `valueMask` are written in. A row's place in the table is its number of bytes.
struct Form {
    unsigned char leadMask;
    unsigned char lead;  ///< what the first byte is under the mask
    unsigned char shift;
    std::uint32_t valueMask;
    std::uint32_t smallest;  ///< smaller values have a shorter form
};

constexpr Form kForms[] = {
    {0x80, 0x00, 0, 0x7F, 0},
    {0xE0, 0xC0, 6, 0x7FF, 0x80},
    {0xF0, 0xE0, 12, 0xFFFF, 0x800},
    {0xF8, 0xF0, 18, 0x1FFFFF, 0x10000},
    {0xFC, 0xF8, 24, 0x3FFFFFF, 0x200000},
    {0xFE, 0xFC, 30, 0x7FFFFFFF, 0x4000000},
};

}  // namespace

int ky_mbtowc(unsigned short* out, const char* s, std::size_t n) {
    if (s == nullptr) return 0;
    if (n == 0) return -1;
    const auto lead = static_cast<unsigned char>(*s);
    std::uint32_t value = lead;
    std::size_t length = 1;
    for (const Form& form : kForms) {
        if ((lead & form.leadMask) == form.lead) {
            value &= form.valueMask;
            if (value < form.smallest) return -1;
            if (out != nullptr) *out = static_cast<unsigned short>(value);
            return static_cast<int>(length);
        }
        if (length == n) return -1;
        const unsigned bits = static_cast<unsigned char>(s[length++]) ^ 0x80u;
        if (bits >= 0x40) return -1;
        value = value << 6 | bits;
    }
    return -1;
}

int ky_wctomb(char* out, unsigned short wc) {
    if (out == nullptr) return 0;
    const int length = ky_len4wc(wc);
    const Form& form = kForms[length - 1];
    unsigned shift = form.shift;
    *out = static_cast<char>(form.lead | wc >> shift);
    while (shift != 0) {
        shift -= 6;
        *++out = static_cast<char>(0x80 | (wc >> shift & 0x3F));
    }
    return length;
}

int ky_len4wc(unsigned short wc) {
    int length = 1;
    while (kForms[length - 1].valueMask < wc) ++length;
    return length;
}

int KyMultiByte2WChar(unsigned short* out, const char* s, std::size_t n) { return ky_mbtowc(out, s, n); }
int KyWChar2MultiByte(char* out, wchar_t wc) { return ky_wctomb(out, static_cast<unsigned short>(wc)); }

// --- multibyte strings of other code sets ---

char* KyMBStrCpy(unsigned char, char*, const char*) { return nullptr; }
int KyMBStrLen(unsigned char, const char*) { return 0; }
int KyMBStrCmp(unsigned char, const char*, const char*) { return 0; }
char* KyMBStrNCpy(unsigned char, char*, const char*, std::size_t) { return nullptr; }
int KyMBStrNCmp(unsigned char, const char*, const char*, std::size_t) { return 0; }
int KyMBStrToI(unsigned char, const char*) { return 0; }
long KyMBStrToL(unsigned char, const char*) { return 0; }
long long KyMBStrToLL(unsigned char, const char*) { return 0; }
char* KyMBStrInc(unsigned char, const char*) { return nullptr; }
char* KyMBStrDec(unsigned char, const char*, const char*) { return nullptr; }
char* KyMBStrIdx(unsigned char, const char*, int) { return nullptr; }
char* KyMBStrNext(unsigned char, const char*) { return nullptr; }
char* KyMBStrPrev(unsigned char, const char*, const char*) { return nullptr; }
