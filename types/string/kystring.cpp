#include "kystring.h"

#include <cstddef>
#include <cstring>
#include <new>

#include "code_map_kernels.h"
#include "code_mapping.h"
#include "kyi18n.h"
#include "kystring_build.h"
#include "lasting_string.h"

using ky::CharWidth;

static_assert(KyString::MaxBytes == ky::kMaxStringBytes);

alignas(2) char KyString::emptyText[2] = {};

// --- construction ---

KyString::KyString() : KyString(GetDefaultCodeSet(), GetDefaultLanguage()) {}

KyString::KyString(unsigned char codeSetOfText, unsigned char languageOfText)
    : buffer(nullptr), bufferSize(0), codeSet(codeSetOfText), language(languageOfText) {}

KyString::KyString(unsigned char codeSetOfText, unsigned char languageOfText, const char* text, std::size_t bytes)
    : KyString(codeSetOfText, languageOfText) {
    const unsigned width = CharWidth(codeSet);
    ky::BlockWriter block(bytes + width, width);
    block.Put(text, bytes, bytes);
    TakeOver(block);
}

KyString::KyString(const char* text) : KyString(text, NotFound) {}

KyString::KyString(const char* text, unsigned short n)
    : buffer(nullptr),
      bufferSize(0),
      codeSet(KyLanguageContext::GetDefault8CodeSet()),
      language(KyLanguageContext::GetDefaultLanguage()) {
    if (text == nullptr || n == 0) return;
    const std::size_t bytes = n == NotFound ? std::strlen(text) : n;
    if (bytes >= MaxBytes || CharWidth(codeSet) != 1) {
        MakeString(text, codeSet, static_cast<short>(n), 1);
        return;
    }
    // Most strings begin here, of a text as short as a number's: one block, one copy.
    bufferSize = static_cast<unsigned short>(bytes + 1);
    buffer = new char[bufferSize];
    ky::CopyText(buffer, text, bytes);
    buffer[bytes] = 0;
}

KyString::KyString(const unsigned short* text) : KyString(text, NotFound) {}

KyString::KyString(const unsigned short* text, unsigned short n)
    : KyString(GetDefault16CodeSet(), GetDefaultLanguage()) {
    MakeString(reinterpret_cast<const char*>(text), codeSet, static_cast<short>(n), 1);
}

KyString::KyString(char c) : KyString(&c, static_cast<unsigned short>(c != 0)) {}
KyString::KyString(unsigned char c) : KyString(static_cast<char>(c)) {}
KyString::KyString(unsigned short c) : KyString(&c, static_cast<unsigned short>(c != 0)) {}

KyString::KyString(const KyString& other) : KyString(other.codeSet, other.language) {
    if (other.buffer != nullptr) MakeString(other.buffer, other.codeSet, -1, 255);
}

// --- assignment ---

KyString& KyString::operator=(const KyString& other) {
    if (this != &other) *this = KyString(other);
    return *this;
}

KyString& KyString::operator=(KyString&& other) noexcept {
    Destruct(other);
    return *this;
}

KyString& KyString::operator=(const char* text) { return *this = KyString(text); }

void KyString::Destroy() {
    static_assert(offsetof(KyString, buffer) == 0 && offsetof(KyString, bufferSize) == 8 &&
                  offsetof(KyString, codeSet) == 10 && offsetof(KyString, language) == 11);
    delete[] buffer;
    buffer = nullptr;
    bufferSize = 0;
    codeSet = 0;
    language = 0;
}

void KyString::Destruct(KyString& from) {
    if (this == &from) return;
    delete[] buffer;
    buffer = from.buffer;
    bufferSize = from.bufferSize;
    codeSet = from.codeSet;
    language = from.language;
    from.buffer = nullptr;
    from.bufferSize = 0;
}

void KyString::d_deactivate() { Destroy(); }

// --- state ---

namespace {

/// Made at load at the latest, so that later changes of the defaults do not reach the empty string's label.
[[maybe_unused]] const KyString& emptyAtLoad = KyString::EmptyString();

}  // namespace

KyString& KyString::EmptyString() {
    static ky::LastingString empty;
    return empty.Get();
}

std::size_t KyString::ContentBytes() const {
    if (buffer == nullptr) return 0;
    return CharWidth(codeSet) == 1 ? std::strlen(buffer) : 2 * ky::UnitsBeforeZero(buffer, bufferSize / 2u);
}

unsigned short KyString::Len() const { return static_cast<unsigned short>(ContentBytes() / CharWidth(codeSet)); }

unsigned short KyString::NullLen() const { return static_cast<unsigned short>(CharWidth(codeSet)); }

int KyString::IsEmpty() const { return buffer == nullptr || ky::AtEnd(buffer, CharWidth(codeSet)); }
int KyString::operator!() const { return IsEmpty(); }

int KyString::IsNullValue() const { return ky::IsNullLabel(codeSet, language); }

int KyString::SetNullValue() {
    Destroy();
    language = KyLanguageNull;
    return 0;
}

KyChar KyString::operator[](int i) {
    const int length = Len();
    if (i < 0 || i > length) return KyChar('\0', KyCodeSetDefault, KyLanguageDefault);
    if (buffer == nullptr) {
        return CharWidth(codeSet) == 1 ? KyChar('\0', codeSet, language)
                                       : KyChar(static_cast<unsigned short>(0), codeSet, language);
    }
    return KyChar(*this, i * static_cast<int>(CharWidth(codeSet)));
}

// --- arrays of strings ---

KyString* KyStringCreate(unsigned count) { return new (std::nothrow) KyString[count]; }

int KyStringDelete(void* values, unsigned) {
    delete[] static_cast<KyString*>(values);
    return 0;
}
