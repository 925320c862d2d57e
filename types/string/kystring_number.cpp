/// Numbers read from texts.

#include <limits>

#include "ascii.h"
#include "code_mapping.h"
#include "kystring.h"
#include "number_text.h"
#include "options.h"

namespace {

/// The integer at the front of the text, as `strtoll` reads it in the "C" locale: white space and a sign are
/// skipped, base 0 takes the base from the text ("0x", "0"), a value out of range becomes the nearest.
long long ReadInteger(const char* text, unsigned base) {
    while (ky::IsSpace(*text)) ++text;
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+') ++text;
    if (base == 0) {
        base = *text == '0' ? 8 : 10;
        if (*text == '0' && (text[1] | 0x20) == 'x' && ky::DigitValue(text[2]) < 16) {
            base = 16;
            text += 2;
        }
    }
    const unsigned long long limit =
        static_cast<unsigned long long>(std::numeric_limits<long long>::max()) + (negative ? 1 : 0);
    unsigned long long value = 0;
    for (unsigned digit; (digit = ky::DigitValue(*text)) < base; ++text) {
        if (value > (limit - digit) / base) {
            value = limit;
            break;
        }
        value = value * base + digit;
    }
    return static_cast<long long>(negative ? 0 - value : value);
}

unsigned OptionalBase() { return ky::NumbersAreBase10() ? 10 : 0; }

const unsigned short* Units(const KyString& s) { return reinterpret_cast<const unsigned short*>(s.StrGet()); }

bool IsWide(const KyString& s) { return s.NullLen() == 2; }

int ReadInt(const KyString& s, unsigned base) {
    return IsWide(s) ? KyWStrToL(Units(s)) : static_cast<int>(ReadInteger(s.StrGet(), base));
}

long long ReadLongLong(const KyString& s, unsigned base) {
    return IsWide(s) ? KyWStrToLL(Units(s)) : ReadInteger(s.StrGet(), base);
}

}  // namespace

bool KyString::BeginsLikeNumber() const {
    const KyChar first(StrGet(), ky::TextCodeSet(codeSet), language, 1);
    return first.CodeGet() == '-' || first.IsDigit();
}

int KyString::Atol(int& out) const {
    out = 0;
    if (!BeginsLikeNumber()) return -1;
    out = ReadInt(*this, 10);
    return 0;
}

int KyString::Atoll(long long& out) const {
    out = 0;
    if (!BeginsLikeNumber()) return -1;
    out = ReadLongLong(*this, 10);
    return 0;
}

int KyString::Strtol(int& out) const {
    out = 0;
    if (!BeginsLikeNumber()) return -1;
    out = ReadInt(*this, 0);
    return 0;
}

int KyString::Strtoll(long long& out) const {
    out = 0;
    if (!BeginsLikeNumber()) return -1;
    out = ReadLongLong(*this, 0);
    return 0;
}

KyString::operator int() const {
    if (buffer == nullptr) return 0;
    return IsWide(*this) ? KyWStrToI(Units(*this)) : ReadInt(*this, OptionalBase());
}

KyString::operator short() const { return static_cast<short>(operator int()); }
KyString::operator long long() const { return buffer == nullptr ? 0 : ReadLongLong(*this, OptionalBase()); }

KyString::operator double() const {
    if (buffer == nullptr) return 0.0;
    if (!IsWide(*this)) return ky::ScanDoubleText(buffer);
    KyString narrow(GetDefault8CodeSet(), language);
    narrow += *this;
    return ky::ScanDoubleText(narrow.StrGet());
}
