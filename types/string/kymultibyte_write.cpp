#include <algorithm>
#include <cstring>
#include <string>

#include "code_mapping.h"
#include "kymultibyte.h"
#include "kystring.h"
#include "kystring_build.h"
#include "utf8_kernels.h"

namespace {

/// A multibyte text up to this size is written before a block of its size is made.
constexpr int kWorkBytes = 2048;

constexpr unsigned char kLastAsciiCodeSetOfLength = 5;
constexpr unsigned char kLastAsciiCodeSet = 26;

/// The characters of a string in Unicode, piece by piece; what does not fit into a Unicode string is cut.
class UnicodeText {
public:
    explicit UnicodeText(const KyString& s) : codeSet(s.CodeSetGet()), text(s.StrGet()) {
        if (ky::CharWidth(codeSet) == 2) {
            // Mapped into Unicode unit by unit.
            left = s.BufferSizeGet() / 2;
        } else {
            left = ky::LimitedLength(std::strlen(text), 2);
        }
    }
    UnicodeText(const UnicodeText&) = delete;
    UnicodeText& operator=(const UnicodeText&) = delete;

    /// Makes the next piece of `Count` units at `Units`, which may end at a zero unit; false at the end.
    bool Next() {
        if (left == 0) return false;
        if (ky::CharWidth(codeSet) == 2) {
            count = left;
            units = text;
        } else {
            count = std::min(left, std::size(mapped) / 2);
            ky::MapText(codeSet, KyCodeSetUnicode, text, count, mapped);
            units = mapped;
        }
        text += count * ky::CharWidth(codeSet);
        left -= count;
        return true;
    }
    const char* Units() const { return units; }
    std::size_t Count() const { return count; }

private:
    unsigned char codeSet;
    const char* text;
    std::size_t left;  ///< characters that may follow
    const char* units = nullptr;
    std::size_t count = 0;
    char mapped[512];
};

/// `length` bytes of text in a new block with a terminator.
char* NewText(const char* text, std::size_t length, int& size) {
    char* block = new char[length + 1];
    ky::CopyText(block, text, length);
    block[length] = 0;
    size = static_cast<int>(length + 1);
    return block;
}

/// Bytes of the multibyte form of the first `maxChars` characters.
std::size_t EncodedSize(UnicodeText& text, std::size_t maxChars) {
    std::size_t size = 0;
    while (maxChars != 0 && text.Next()) {
        const auto [read, written] = ky::Utf8Size(text.Units(), std::min(text.Count(), maxChars));
        size += written;
        maxChars -= read;
        if (read < text.Count()) break;
    }
    return size;
}

/// Encodes the characters that fit; true when that are all.
bool Encode(const KyString& s, char* out, std::size_t room, std::size_t& used) {
    const unsigned char codeSet = s.CodeSetGet();
    if (ky::CharWidth(codeSet) == 1) {
        const std::size_t length = ky::LimitedLength(std::strlen(s.StrGet()), 2);
        const auto [read, written] =
            ky::BytesToUtf8(ky::CodeSetOf(codeSet).UnicodeCodes(), s.StrGet(), length, out, room);
        used = written;
        return read == length;
    }
    const std::size_t count = s.BufferSizeGet() / 2;
    const auto [read, written] = ky::UnitsToUtf8(s.StrGet(), count, out, room);
    used = written;
    return read == count || ky::AtEnd(s.StrGet() + 2 * read, 2);
}

/// The multibyte form of the whole text, as long as a string can be.
std::string EncodeAll(const KyString& s) {
    std::string encoded;
    UnicodeText text(s);
    while (text.Next()) {
        const std::size_t before = encoded.size();
        const auto [read, size] = ky::Utf8Size(text.Units(), text.Count());
        encoded.resize(before + size);
        ky::UnitsToUtf8(text.Units(), read, encoded.data() + before, size);
    }
    if (encoded.size() >= KyString::MaxBytes) {
        ky::CheckStringOverflow();
        encoded.resize(KyString::MaxBytes - 1);
    }
    return encoded;
}

}  // namespace

int KyMBSLength(const KyString& s, unsigned short maxChars) {
    if (maxChars == 0) return 0;
    if (s.CodeSetGet() <= kLastAsciiCodeSetOfLength) {
        const std::size_t length = ky::AsciiRun(s.StrGet(), s.BufferSizeGet());
        // KEPT: maxChars is not looked at.
        if (s.StrGet()[length] == 0) return static_cast<int>(length);
    }
    UnicodeText text(s);
    return static_cast<int>(EncodedSize(text, maxChars));
}

int KyString2KyMBS(const KyString& s, char* out, int outSize) {
    const auto room = static_cast<std::size_t>(out == nullptr ? 0 : std::max(outSize, 0));
    if (s.CodeSetGet() <= kLastAsciiCodeSet) {
        const char* text = s.StrGet();
        const std::size_t size = s.BufferSizeGet();
        std::size_t length = ky::CopyAscii(text, std::min(size, room), out);
        if (length < room && text[length] == 0) {
            out[length] = 0;
            if (room - length > 1) std::memset(out + length, 0, room - length);
            return static_cast<int>(length);
        }
        if (length == room) {
            length += ky::AsciiRun(text + length, size - std::min(size, length));
            if (text[length] == 0) return -static_cast<int>(length);
        }
    }
    std::size_t used;
    if (!Encode(s, out, room, used)) return -static_cast<int>(used);
    if (used < room) out[used] = 0;
    return static_cast<int>(used);
}

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
