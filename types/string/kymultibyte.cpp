#include "kymultibyte.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

#include "code_mapping.h"
#include "kystring.h"
#include "kystring_build.h"

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

constexpr int kMaxCharBytes = 3;
/// Decoded characters gather in blocks of this size, so that the growing string is rebuilt once for each.
constexpr unsigned kBlock = 256;
/// Longest multibyte text that becomes a string.
constexpr int kMaxTextBytes = 32767;
/// A multibyte text up to this size is written before a block of its size is made.
constexpr int kWorkBytes = 2048;

constexpr unsigned char kLastAsciiCodeSetOfLength = 5;
constexpr unsigned char kLastAsciiCodeSet = 26;

/// The characters of a string in Unicode.
class UnicodeText {
public:
    explicit UnicodeText(const KyString& s) : text(s.StrGet()) {
        if (s.CodeSetGet() == KyCodeSetUnicode) return;
        mapped.CopyMapped(s, KyCodeSetUnicode, -1);
        text = mapped.StrGet();
    }
    UnicodeText(const UnicodeText&) = delete;
    UnicodeText& operator=(const UnicodeText&) = delete;

    /// The next character, 0 at the end, which is asked for once.
    unsigned short Next() {
        const unsigned short unit = ky::ReadUnit(text, 1);
        text += sizeof unit;
        return unit;
    }

private:
    KyString mapped;
    const char* text;
};

bool IsAscii(const char* text, std::size_t length) {
    return std::all_of(text, text + length, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// A text of ASCII characters into a buffer, with the results of `KyString2KyMBS`.
int PutAscii(const char* text, std::size_t length, char* out, std::size_t outSize) {
    const std::size_t copied = std::min(length, outSize);
    ky::CopyText(out, text, copied);
    if (length >= outSize) return -static_cast<int>(length);
    std::fill(out + length, out + outSize, '\0');
    return static_cast<int>(length);
}

/// The multibyte form of the whole text, as long as a string can be.
std::string EncodeAll(const KyString& s) {
    std::string encoded;
    UnicodeText text(s);
    while (const unsigned short c = text.Next()) {
        char bytes[kMaxCharBytes];
        encoded.append(bytes, static_cast<std::size_t>(KyWChar2MultiByte(bytes, c)));
    }
    if (encoded.size() >= KyString::MaxBytes) {
        ky::CheckStringOverflow();
        encoded.resize(KyString::MaxBytes - 1);
    }
    return encoded;
}

/// `length` bytes of text in a new block with a terminator.
char* NewText(const char* text, std::size_t length, int& size) {
    char* block = new char[length + 1];
    ky::CopyText(block, text, length);
    block[length] = 0;
    size = static_cast<int>(length + 1);
    return block;
}

/// Gathers characters and appends them to a Unicode string.
class CharacterBlock {
public:
    explicit CharacterBlock(KyString& target) : out(target) {}

    void Add(unsigned short c) {
        units[count++] = c;
        if (count == kBlock) Flush();
    }
    void Flush() {
        if (count == 0) return;
        out.BuildString(reinterpret_cast<const char*>(units), KyCodeSetUnicode, out.Len(), 0,
                        static_cast<unsigned short>(count), 1, ky::kAppend, 1);
        count = 0;
    }

private:
    KyString& out;
    unsigned short units[kBlock];
    unsigned count = 0;
};

}  // namespace

// --- characters ---

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

// --- texts ---

int KyMultiByteStr2WCharStr(unsigned short* out, int outMax, const char* in, int inLen) {
    if (in == nullptr) return 0;
    int count = 0;
    for (int used = 0; used < inLen; ++count) {
        unsigned short c;
        const int length = ky_mbtowc(&c, in + used, static_cast<std::size_t>(inLen - used));
        if (length < 0) return length;
        if (count < outMax) out[count] = c;
        used += length;
    }
    return count;
}

int KyMBSLength(const KyString& s, unsigned short maxChars) {
    if (maxChars == 0) return 0;
    if (s.CodeSetGet() <= kLastAsciiCodeSetOfLength) {
        const std::size_t length = std::strlen(s.StrGet());
        // KEPT: maxChars is not looked at.
        if (IsAscii(s.StrGet(), length)) return static_cast<int>(length);
    }
    UnicodeText text(s);
    int bytes = 0;
    for (unsigned taken = 0; taken < maxChars; ++taken) {
        const unsigned short c = text.Next();
        if (c == 0) break;
        bytes += ky_len4wc(c);
    }
    return bytes;
}

int KyString2KyMBS(const KyString& s, char* out, int outSize) {
    const int room = out == nullptr ? 0 : std::max(outSize, 0);
    if (s.CodeSetGet() <= kLastAsciiCodeSet) {
        const std::size_t length = std::strlen(s.StrGet());
        if (IsAscii(s.StrGet(), length)) return PutAscii(s.StrGet(), length, out, static_cast<std::size_t>(room));
    }
    UnicodeText text(s);
    int used = 0;
    while (const unsigned short c = text.Next()) {
        if (ky_len4wc(c) > room - used) return -used;
        used += ky_wctomb(out + used, c);
    }
    if (used < room) out[used] = 0;
    return used;
}

int KyMBS2KyString(const char* in, KyString& out, int inLen) {
    const KyString old(std::move(out));  // `in` may lie in it
    out = KyString(KyCodeSetUnicode, old.LanguageGet());
    if (in == nullptr) return 0;

    CharacterBlock decoded(out);
    int used = 0;
    while (used >= 0 && used < inLen) {
        unsigned short c;
        const int length = ky_mbtowc(&c, in + used, static_cast<std::size_t>(inLen - used));
        if (length < 0) {
            used = -1;
        } else if (c == 0) {
            break;
        } else {
            decoded.Add(c);
            used += length;
            if (used > kMaxTextBytes) used = -2;
        }
    }
    decoded.Flush();
    return used;
}

int KyMultiByteString2KyString(const char* in, KyString& out, int inLen) { return KyMBS2KyString(in, out, inLen); }

// KEPT: the bytes that are read of a 16-bit string are as many as its characters.
int KyMultiByteString2KyString(const KyString& in, KyString& out) { return KyMBS2KyString(in.StrGet(), out, in.Len()); }

int KyString2MultiByteString(const KyString& s, char*& out, int& outSize) {
    const bool isOwn = out == nullptr || outSize <= 0;
    char work[kWorkBytes];
    if (isOwn) {
        out = nullptr;
        outSize = 0;
    }
    const int written = KyString2KyMBS(s, isOwn ? work : out, isOwn ? kWorkBytes : outSize);
    if (written > 0) {
        if (isOwn) out = NewText(work, static_cast<std::size_t>(written), outSize);
        return written;
    }

    const std::string encoded = EncodeAll(s);
    const int total = static_cast<int>(encoded.size());
    if (isOwn) {
        out = NewText(encoded.data(), encoded.size(), outSize);
        return total;
    }
    if (total >= outSize) {
        outSize = total;
        return -1;
    }
    ky::CopyText(out, encoded.c_str(), encoded.size() + 1);
    return total;
}

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
