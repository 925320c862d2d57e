#include "kychar.h"

#include <algorithm>
#include <cstddef>

#include "code_sets.h"
#include "kystrcmp.h"
#include "kytypes.h"
#include "order_key.h"

namespace {

unsigned char Resolve8CodeSet(unsigned char codeSet) {
    return codeSet == KyCodeSetDefault ? KyLanguageContext::GetDefault8CodeSet() : codeSet;
}

unsigned char ResolveLanguage(unsigned char language) {
    return language == KyLanguageDefault ? KyLanguageContext::GetDefaultLanguage() : language;
}

unsigned short NarrowTo(unsigned char codeSet, unsigned short code) {
    return ky::CharWidth(codeSet) == 1 ? static_cast<unsigned char>(code) : code;
}

/// Case of the bytes of code set 0, the same under every locale.
unsigned short AsciiLower(unsigned short c) { return c >= 'A' && c <= 'Z' ? static_cast<unsigned short>(c + 32) : c; }
unsigned short AsciiUpper(unsigned short c) { return c >= 'a' && c <= 'z' ? static_cast<unsigned short>(c - 32) : c; }

}  // namespace

KyChar::KyChar(const char* p, unsigned char charCodeSet, unsigned char charLanguage, unsigned char charFormat)
    : ref(p),
      value(0),
      codeSet(Resolve8CodeSet(charCodeSet)),
      language(ResolveLanguage(charLanguage)),
      format(charFormat == 255 ? 1 : charFormat) {}

KyChar::KyChar(char c, unsigned char charCodeSet, unsigned char charLanguage)
    : ref(nullptr),
      value(static_cast<unsigned char>(c)),
      codeSet(Resolve8CodeSet(charCodeSet)),
      language(ResolveLanguage(charLanguage)),
      format(1) {}

KyChar::KyChar(unsigned short c, unsigned char charCodeSet, unsigned char charLanguage)
    : ref(nullptr),
      value(NarrowTo(ky::TextCodeSet(charCodeSet), c)),
      codeSet(ky::TextCodeSet(charCodeSet)),
      language(ResolveLanguage(charLanguage)),
      format(1) {}

KyChar::KyChar(const KyChar& other) = default;

// Assignment to itself writes the character where it stands.
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment,cert-oop54-cpp)
KyChar& KyChar::operator=(const KyChar& other) {
    if (ref != nullptr) {
        const unsigned short code = other.MapTo(codeSet).CodeGet();
        ky::WriteCode(const_cast<char*>(ref), ky::CharWidth(codeSet), code, format);
    } else {
        value = other.CodeGet();
        codeSet = other.codeSet;
        language = other.language;
        format = other.format;
    }
    return *this;
}

KyChar& KyChar::operator=(char c) { return *this = KyChar(c); }
KyChar& KyChar::operator=(unsigned short c) { return *this = KyChar(c); }

unsigned short KyChar::CodeGet() const {
    static_assert(sizeof(KyChar) == 16 && offsetof(KyChar, ref) == 0 && offsetof(KyChar, value) == 8 &&
                  offsetof(KyChar, codeSet) == 10 && offsetof(KyChar, language) == 11 &&
                  offsetof(KyChar, format) == 12);
    return ref != nullptr ? ky::ReadCode(ref, ky::CharWidth(codeSet), format) : value;
}

unsigned short KyChar::GetOrder() const {
    const unsigned short code = CodeGet();
    if (codeSet == KyCodeSetOrders || code == 0) return code;
    const KyCodeSet& set = ky::CodeSetOf(codeSet);
    if (!set.HasPropertyTable() && set.Code() != KyCodeSetUnicode) return MapTo(KyCodeSetUnicode).GetOrder();
    const KyCharProps* record = set.GetProperty(code);
    return record != nullptr ? record->order : code;
}

// KEPT: the end of a text, order 0, counts as a space; who trims looks at what stands before it.
bool KyChar::IsSpace() const { return GetOrder() < ky::kFirstSymbol; }

bool KyChar::IsSymbol() const {
    const unsigned short order = GetOrder();
    return order >= ky::kFirstSymbol && order < ky::kFirstDigit;
}

bool KyChar::IsDigit() const {
    const unsigned short order = GetOrder();
    return order >= ky::kFirstDigit && order < ky::kFirstLetter;
}

bool KyChar::IsAlpha() const { return ky::IsLetterOrder(GetOrder()); }

bool KyChar::IsHan() const { return GetOrder() >= ky::kFirstHan; }

KyChar KyChar::MapTo(unsigned char toCodeSet) const {
    if (toCodeSet == KyCodeSetNative || toCodeSet == codeSet) return *this;
    const unsigned short code = ky::CodeSetOf(toCodeSet).MapFrom(ky::CodeSetOf(codeSet), CodeGet());
    return KyChar(code, toCodeSet, language);
}

namespace {

/// The character of this set whose Unicode code is `unicode`; the character itself for 0 and where the set has none.
unsigned short CaseMapped(const KyCodeSet& set, unsigned short code, unsigned short unicode) {
    const unsigned short mapped = unicode != 0 ? set.FromUnicode(unicode) : 0;
    return mapped != 0 ? mapped : code;
}

/// The list of what follows an upper-case form holds characters of this set: those of a record of its own always do,
/// and Unicode's do where they have the same codes.
bool HasAll(const KyCodeSet& set, const KyWCharList& list) {
    return set.HasPropertyTable() || std::all_of(list.items, list.items + list.count, [&](unsigned short unicode) {
               return set.FromUnicode(unicode) == unicode;
           });
}

}  // namespace

KyChar KyChar::ToLower(KyStringIterator*) const {
    const unsigned short code = CodeGet();
    if (codeSet == KyCodeSetNative) return KyChar(AsciiLower(code), KyCodeSetNative, language);
    const KyCodeSet& set = ky::CodeSetOf(codeSet);
    const KyCharProps* record = KyCodeSet::GetUnicodeProps(&set, code, language);
    if (record == nullptr) return *this;
    return KyChar(CaseMapped(set, code, record->lower), codeSet, language);
}

KyChar KyChar::ToUpper(KyStringIterator* it) const {
    const unsigned short code = CodeGet();
    if (codeSet == KyCodeSetNative) return KyChar(AsciiUpper(code), KyCodeSetNative, language);
    const KyCodeSet& set = ky::CodeSetOf(codeSet);
    const KyCharProps* record = KyCodeSet::GetUnicodeProps(&set, code, language);
    if (record == nullptr) return *this;
    if (record->rules != nullptr && record->rules->upperExpansion.count != 0) {
        const KyWCharList& further = record->rules->upperExpansion;
        if (!HasAll(set, further) || (record->upper != 0 && set.FromUnicode(record->upper) == 0)) return *this;
        if (it != nullptr) it->SetOverflow(&further, 255);
    }
    return KyChar(CaseMapped(set, code, record->upper), codeSet, language);
}

int KyChar::Compare(const KyChar& other, unsigned short op) const {
    if (op == KyCmpDefault) op = KyLanguageContext::GetDefaultCmpOp();
    char a[4] = {};
    char b[4] = {};
    ky::WriteCode(a, ky::CharWidth(codeSet), CodeGet(), 1);
    ky::WriteCode(b, ky::CharWidth(other.codeSet), other.CodeGet(), 1);
    return KyStrCmp(codeSet, language, a, other.codeSet, other.language, b, op, 1, 1, nullptr);
}

bool KyChar::operator==(const KyChar& other) const { return Compare(other, KyCmpDefault) == 0; }
bool KyChar::operator!=(const KyChar& other) const { return Compare(other, KyCmpDefault) != 0; }
bool KyChar::operator<(const KyChar& other) const { return Compare(other, KyCmpDefault) < 0; }
bool KyChar::operator<=(const KyChar& other) const { return Compare(other, KyCmpDefault) <= 0; }
bool KyChar::operator>(const KyChar& other) const { return Compare(other, KyCmpDefault) > 0; }
bool KyChar::operator>=(const KyChar& other) const { return Compare(other, KyCmpDefault) >= 0; }

KyChar KyCharToLower::operator()(const KyChar& c, KyStringIterator* it) { return c.ToLower(it); }
KyChar KyCharToUpper::operator()(const KyChar& c, KyStringIterator* it) { return c.ToUpper(it); }
