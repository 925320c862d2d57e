#include "kywstring.h"

#include <cstdlib>
#include <cstring>

#include "kybase.h"

namespace {

/// Longest number text that is read, in characters.
constexpr unsigned kMaxNumberText = 31;

/// White space that a number may follow. No-break spaces are none.
constexpr bool IsWideSpace(unsigned short c) {
    return (c >= 0x09 && c <= 0x0D) || c == 0x20 || c == 0x1680 || (c >= 0x2000 && c <= 0x200A && c != 0x2007) ||
           c == 0x2028 || c == 0x2029 || c == 0x205F || c == 0x3000;
}

/// The number at the front of a 16-bit text in 8-bit characters. What follows the first character that no
/// number contains is of no interest, so the copy ends there.
class NumberText {
public:
    explicit NumberText(const unsigned short* s) {
        while (IsWideSpace(*s)) ++s;
        // Zeros behind a sign are not the leading ones.
        if (*s == '0') {
            while (s[1] == '0') ++s;
        }
        while (*s != 0 && *s < 0x80 && length < kMaxNumberText) Add(*s++);
        text[length] = 0;
    }

    const char* Get() const { return text; }

private:
    void Add(unsigned short c) { text[length++] = static_cast<char>(c); }

    char text[kMaxNumberText + 1];
    unsigned length = 0;
};

}  // namespace

unsigned KyWStrLen(const unsigned short* s) {
    const unsigned short* end = s;
    while (*end != 0) ++end;
    return static_cast<unsigned>(end - s);
}

unsigned short* KyWStrCpy(unsigned short* dst, const unsigned short* src) {
    while ((*dst++ = *src++) != 0) {
    }
    return dst;
}

unsigned short* KyWStrNCpy(unsigned short* dst, const unsigned short* src, unsigned n) {
    // KEPT: the count is looked at after each copy, so n+1 units are copied; callers size their buffers for it.
    unsigned copied = 0;
    while ((*dst++ = *src++) != 0 && copied < n) ++copied;
    return dst;
}

int KyWStrCmp(const unsigned short* a, const unsigned short* b) {
    if (b == nullptr) return a != nullptr ? 1 : 0;
    if (a == nullptr) return -1;
    while (*a == *b && *a != 0) ++a, ++b;
    return *a - *b;
}

int KyWStrNCmp(const unsigned short* a, const unsigned short* b, unsigned n) {
    if (b == nullptr) return a != nullptr ? 1 : 0;
    if (a == nullptr) return -1;
    while (*a == *b && *a != 0 && --n != 0) ++a, ++b;
    return *a - *b;
}

unsigned short* KyWStrInc(unsigned short* p) { return p + 1; }

unsigned short* KyWMemSet(unsigned short* p, unsigned short c, unsigned n) {
    for (unsigned i = 0; i < n; ++i) p[i] = c;
    return p;
}

int KyWStrToI(const unsigned short* s) { return KyWStrToL(s); }
int KyWStrToL(const unsigned short* s) { return static_cast<int>(std::strtol(NumberText(s).Get(), nullptr, 0)); }
long long KyWStrToLL(const unsigned short* s) { return std::strtoll(NumberText(s).Get(), nullptr, 0); }

void KyMemCpy(char* dst, const char* src, short charSize, unsigned char flag, unsigned int byteCount) {
    if (byteCount == 0) return;
    if (flag == 2 && charSize == 2) {
        ShortStore(dst, src, flag, byteCount / 2);
    } else {
        std::memcpy(dst, src, byteCount);
    }
}
