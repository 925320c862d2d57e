#include <algorithm>

#include "code_mapping.h"
#include "kystring.h"
#include "kystring_build.h"

namespace {

std::size_t CountOf(const char* text) { return text == nullptr ? 0 : std::strlen(text); }

}  // namespace

/// The first `headBytes` of the old content, then `repeat` times text[0, count); nothing else of the old content.
KyString& KyString::SetTail(std::size_t headBytes, const char* text, unsigned char textCodeSet, std::size_t count,
                            std::size_t repeat) {
    const unsigned width = ky::CharWidth(codeSet);
    const std::size_t once = std::min<std::size_t>(count, 65535) * width;
    const ky::MappedSource source(text, textCodeSet, codeSet, 0, once / width, 1);
    ky::BlockWriter block(headBytes + once * repeat + width, width);
    block.Put(buffer, headBytes, headBytes);
    if (repeat == 1) {
        block.Put(source.Data(), source.Bytes(), once);
    } else {
        block.Put(source.Data(), source.Bytes(), once, repeat, source.Flag());
    }
    TakeOver(block);
    return *this;
}

KyString& KyString::Append(const char* text, unsigned char textCodeSet, std::size_t count) {
    return SetTail(ContentBytes(), text, textCodeSet, count);
}

KyString& KyString::Fill(unsigned short n, unsigned short c) {
    return SetTail(0, reinterpret_cast<const char*>(&c), GetDefault16CodeSet(), c != 0, n);
}

KyString& KyString::Fill(unsigned short n, char c) { return SetTail(0, &c, GetDefault8CodeSet(), c != 0, n); }

KyString& KyString::Expand(unsigned short n, unsigned short c) {
    const unsigned length = Len();
    if (c == 0 || length >= n) return *this;
    return SetTail(ContentBytes(), reinterpret_cast<const char*>(&c), GetDefault16CodeSet(), 1, n - length);
}

KyString& KyString::Expand(unsigned short n, char c) {
    const unsigned length = Len();
    if (c == 0 || length >= n) return *this;
    return SetTail(ContentBytes(), &c, GetDefault8CodeSet(), 1, n - length);
}

KyString& KyString::operator+=(const KyString& s) { return Append(s.StrGet(), s.codeSet, s.Len()); }
KyString& KyString::operator<<(const KyString& s) { return *this += s; }
KyString& KyString::operator<<(char c) { return Append(&c, GetDefault8CodeSet(), c != 0); }
KyString& KyString::operator<<(const char* text) { return Append(text, GetDefault8CodeSet(), CountOf(text)); }

KyString& KyString::operator<<(const unsigned short* text) {
    const auto* bytes = reinterpret_cast<const char*>(text);
    return Append(bytes, GetDefault16CodeSet(), text == nullptr ? 0 : ky::TextLength(bytes, 2));
}

KyString operator+(const KyString& a, const KyString& b) {
    const unsigned width = ky::CharWidth(a.codeSet);
    const std::size_t head = a.ContentBytes();
    const std::size_t added = std::size_t{b.Len()} * width;
    const ky::MappedSource source(b.StrGet(), b.codeSet, a.codeSet, 0, added / width, 1);
    ky::BlockWriter block(head + added + width, width);
    block.Put(a.buffer, head, head);
    block.Put(source.Data(), source.Bytes(), added, source.Flag());
    KyString sum(a.codeSet, a.language);
    sum.TakeOver(block);
    return sum;
}
