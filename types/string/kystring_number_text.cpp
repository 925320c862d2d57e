#include "kystring.h"
#include "kystring_build.h"
#include "number_text.h"

namespace {

/// The text of a number, made in place.
struct IntegerText {
    char text[ky::kIntegerTextSize];
    unsigned length;

    explicit IntegerText(long long number) : length(ky::SignedText(number, text)) {}
    explicit IntegerText(unsigned long long number) : length(ky::UnsignedText(number, text)) {}
};

struct DoubleText {
    char text[ky::kDoubleTextSize];
    unsigned length;

    explicit DoubleText(double number) : length(ky::DoubleText(number, text)) {}
};

}  // namespace

KyString::KyString(short number) : KyString(static_cast<long long>(number)) {}
KyString::KyString(int number) : KyString(static_cast<long long>(number)) {}

// KEPT: 4294967295 is "-1"; texts stored by engines hold it.
KyString::KyString(unsigned int number) : KyString(static_cast<int>(number)) {}

KyString::KyString(long long number) : KyString(GetDefault8CodeSet(), GetDefaultLanguage()) {
    const IntegerText made(number);
    Append(made.text, codeSet, made.length);
}

KyString::KyString(unsigned long long number) : KyString(GetDefault8CodeSet(), GetDefaultLanguage()) {
    const IntegerText made(number);
    Append(made.text, codeSet, made.length);
}

KyString::KyString(double number) : KyString(GetDefault8CodeSet(), GetDefaultLanguage()) {
    const DoubleText made(number);
    Append(made.text, codeSet, made.length);
}

KyString& KyString::operator<<(short number) { return *this << static_cast<long long>(number); }
KyString& KyString::operator<<(int number) { return *this << static_cast<long long>(number); }
KyString& KyString::operator<<(unsigned int number) { return *this << static_cast<int>(number); }

KyString& KyString::operator<<(long long number) {
    const IntegerText made(number);
    return Append(made.text, GetDefault8CodeSet(), made.length);
}

KyString& KyString::operator<<(unsigned long long number) {
    const IntegerText made(number);
    return Append(made.text, GetDefault8CodeSet(), made.length);
}

// KEPT: a character in a 16-bit string, a decimal number in an 8-bit one.
KyString& KyString::operator<<(unsigned short c) {
    if (ky::CharWidth(codeSet) == 1) return *this << static_cast<long long>(c);
    return Append(reinterpret_cast<const char*>(&c), GetDefault16CodeSet(), c != 0);
}

KyString& KyString::operator<<(float number) { return *this << static_cast<double>(number); }

KyString& KyString::operator<<(double number) {
    const DoubleText made(number);
    return Append(made.text, GetDefault8CodeSet(), made.length);
}
