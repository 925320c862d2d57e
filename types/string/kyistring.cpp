#include "kyistring.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "compare_rules.h"
#include "dictionary_keys.h"
#include "kystring_build.h"
#include "kytypes.h"
#include "kywildcard.h"
#include "lent_text.h"
#include "small_buffer.h"

namespace ky {

LentText::LentText(char** owner, char* text)
    : string(UnlabelledCodeSet(), KyString::GetDefaultLanguage()), home(owner) {
    if (text == nullptr) return;
    string.buffer = text;
    string.bufferSize = static_cast<unsigned short>(std::strlen(text) + 1);
}

}  // namespace ky

namespace {

using ky::LentText;

/// A block of the exact size with the first `length` bytes of a text; null for none.
char* NewText(const char* s, std::size_t length) {
    if (length == 0) return nullptr;
    char* block = new char[length + 1];
    ky::CopyText(block, s, length);
    block[length] = 0;
    return block;
}

/// A string's text, to be read.
template <class Self>
LentText View(const KyDictionaryString<Self>& s) {
    return LentText(static_cast<const char*>(s.StrGet()));
}

/// What differs from one class to the other.
template <class Self>
struct Facts;

template <>
struct Facts<KyIString> {
    using Order = ky::CaseApart;
    static constexpr auto Compare = kyistrcmp;
    static constexpr auto Match = istrwild;
};

template <>
struct Facts<KyCaseIString> {
    using Order = ky::CaseAlike;
    static constexpr auto Compare = kycaseistrcmp;
    static constexpr auto Match = caseistrwild;
};

}  // namespace

template <class Self>
char KyDictionaryString<Self>::emptyText[1] = {};

// --- construction and assignment ---

template <class Self>
KyDictionaryString<Self>::KyDictionaryString(unsigned char, unsigned char) {}

template <class Self>
KyDictionaryString<Self>::KyDictionaryString(const char* s) : KyDictionaryString(s, NotFound) {}

template <class Self>
KyDictionaryString<Self>::KyDictionaryString(const char* s, unsigned short n) {
    if (s == nullptr) return;
    const std::size_t length = n == NotFound ? std::strlen(s) : strnlen(s, n);
    if (length < MaxBytes) {
        text = NewText(s, length);
    } else {
        KyDictionaryString cut(KyString(s, n));
        std::swap(text, cut.text);
    }
}

template <class Self>
KyDictionaryString<Self>::KyDictionaryString(const unsigned short* s) : KyDictionaryString(KyString(s)) {}
template <class Self>
KyDictionaryString<Self>::KyDictionaryString(const unsigned short* s, unsigned short n)
    : KyDictionaryString(KyString(s, n)) {}

template <class Self>
KyDictionaryString<Self>::KyDictionaryString(const KyString& s) : KyDictionaryString(KyString(s)) {}

template <class Self>
KyDictionaryString<Self>::KyDictionaryString(KyString&& s) {
    if (!ky::MappedSource::HasToMap(s.CodeSetGet(), CodeSetGet())) {
        text = LentText::Take(s);
    } else {
        *LentText(text) += s;
    }
}

template <class Self>
KyDictionaryString<Self>::KyDictionaryString(char c) : text(NewText(&c, c != 0)) {}
template <class Self>
KyDictionaryString<Self>::KyDictionaryString(unsigned char c) : KyDictionaryString(static_cast<char>(c)) {}
template <class Self>
KyDictionaryString<Self>::KyDictionaryString(unsigned short c) : KyDictionaryString(KyString(c)) {}
template <class Self>
KyDictionaryString<Self>::KyDictionaryString(short number) : KyDictionaryString(KyString(number)) {}
template <class Self>
KyDictionaryString<Self>::KyDictionaryString(int number) : KyDictionaryString(KyString(number)) {}
template <class Self>
KyDictionaryString<Self>::KyDictionaryString(unsigned int number) : KyDictionaryString(KyString(number)) {}
template <class Self>
KyDictionaryString<Self>::KyDictionaryString(long long number) : KyDictionaryString(KyString(number)) {}
template <class Self>
KyDictionaryString<Self>::KyDictionaryString(unsigned long long number) : KyDictionaryString(KyString(number)) {}
template <class Self>
KyDictionaryString<Self>::KyDictionaryString(double number) : KyDictionaryString(KyString(number)) {}

template <class Self>
KyDictionaryString<Self>::KyDictionaryString(const KyDictionaryString& other)
    : text(other.text != nullptr ? NewText(other.text, std::strlen(other.text)) : nullptr) {}

template <class Self>
KyDictionaryString<Self>& KyDictionaryString<Self>::operator=(const KyDictionaryString& other) {
    *this = KyDictionaryString(other);
    return *this;
}

template <class Self>
KyDictionaryString<Self>& KyDictionaryString<Self>::operator=(KyDictionaryString&& other) noexcept {
    mode = 0;
    if (this == &other) return *this;
    delete[] text;
    text = std::exchange(other.text, nullptr);
    return *this;
}

// NOLINTBEGIN(misc-unconventional-assign-operator): it is the derived class that is assigned
template <class Self>
Self& KyDictionaryString<Self>::operator=(const char* s) {
    return static_cast<Self&>(*this = KyDictionaryString(s));
}

template <class Self>
Self& KyDictionaryString<Self>::operator=(const KyString& s) {
    return static_cast<Self&>(*this = KyDictionaryString(s));
}
// NOLINTEND(misc-unconventional-assign-operator)

// --- state ---

template <class Self>
Self& KyDictionaryString<Self>::EmptyString() {
    alignas(Self) static unsigned char storage[sizeof(Self)];
    static Self& empty = *new (storage) Self;  // never destroyed
    return empty;
}

template <class Self>
unsigned short KyDictionaryString<Self>::Len() const {
    return static_cast<unsigned short>(text != nullptr ? std::strlen(text) : 0);
}

template <class Self>
int KyDictionaryString<Self>::SetNullValue() {
    Destroy();
    return 0;
}

template <class Self>
unsigned char KyDictionaryString<Self>::CodeSetGet() const {
    return ky::UnlabelledCodeSet();
}

template <class Self>
unsigned char KyDictionaryString<Self>::LanguageGet() const {
    return KyString::GetDefaultLanguage();
}

template <class Self>
unsigned short KyDictionaryString<Self>::BufferSizeGet() const {
    return static_cast<unsigned short>(text != nullptr ? std::strlen(text) + 1 : 0);
}

template <class Self>
int KyDictionaryString<Self>::SetCodeSetCode(unsigned char codeSet) {
    return codeSet == CodeSetGet() ? 0 : KyErrRefused;
}

template <class Self>
int KyDictionaryString<Self>::MapToCodeSet(unsigned char codeSet) {
    return SetCodeSetCode(codeSet);
}

template <class Self>
int KyDictionaryString<Self>::CopyMapped(const Self& src, unsigned char codeSet, short n) {
    if (&src == this || codeSet != CodeSetGet()) return KyErrRefused;
    *this = KyDictionaryString(src.StrGet(), static_cast<unsigned short>(n));
    return Len();
}

template <class Self>
void KyDictionaryString<Self>::Destroy() {
    *this = KyDictionaryString();
}

template <class Self>
void KyDictionaryString<Self>::Destruct(Self& from) {
    *this = static_cast<KyDictionaryString&&>(from);
}

template <class Self>
void KyDictionaryString<Self>::d_deactivate() {
    Destroy();
}

// --- what a `KyString` does ---

#include "kyistring_lent.inl"

// --- blanks and zeros ---

template <class Self>
Self& KyDictionaryString<Self>::Exchange(char from, char to) {
    if (text != nullptr) std::replace(text, text + std::strlen(text), from, to);
    return static_cast<Self&>(*this);
}
template <class Self>
Self& KyDictionaryString<Self>::SpaceToZero() {
    return Exchange(' ', '0');
}
template <class Self>
Self& KyDictionaryString<Self>::ZeroToSpace() {
    return Exchange('0', ' ');
}

// --- by the dictionary order ---

template <class Self>
unsigned short KyDictionaryString<Self>::SubStringPos(const Self& pattern, unsigned short op) const {
    const std::size_t length = Len();
    const std::size_t wanted = pattern.Len();
    if (wanted == 0) return NotFound;
    const auto firstPlace = [&](const auto& isAt) {
        for (std::size_t at = 0; at + wanted <= length; ++at) {
            if (isAt(text + at)) return static_cast<unsigned short>(at);
        }
        return NotFound;
    };
    if (!ky::AllowsWildcards(op)) {
        const auto& keysOf = ky::ByteKeysOf<typename Facts<Self>::Order>(pattern.mode);
        const std::size_t keys = std::min<std::size_t>(ky::KeyCount(keysOf, pattern.text, wanted), 65535);
        return firstPlace([&](const char* place) {
            return Facts<Self>::Compare(place, pattern.text, static_cast<unsigned short>(keys), mode, pattern.mode) ==
                   0;
        });
    }
    ky::SmallBuffer<char, 256> anyEnd;
    std::memcpy(anyEnd.Reserve(wanted + 2), pattern.text, wanted);
    std::memcpy(anyEnd.Reserve(wanted + 2) + wanted, "*", 2);
    return firstPlace(
        [&](char* place) { return Facts<Self>::Match(anyEnd.Reserve(0), place, pattern.mode, mode) != 0; });
}

template <class Self>
int KyDictionaryString<Self>::Compare(const Self& other, short maxLen, unsigned short) const {
    if (maxLen == 0) return 0;
    const auto keys = static_cast<unsigned short>(maxLen == -1 ? 0 : maxLen);
    return Facts<Self>::Compare(Operand(), other.Operand(), keys, mode, other.mode);
}

template <class Self>
int KyDictionaryString<Self>::Order(const Self& other) const {
    return Facts<Self>::Compare(Operand(), other.Operand(), 0, mode, other.mode);
}

template class KyDictionaryString<KyIString>;
template class KyDictionaryString<KyCaseIString>;
