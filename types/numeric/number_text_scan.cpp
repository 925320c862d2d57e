#include "eight_bit_text.h"
#include "kystring.h"
#include "number_format_scan.h"
#include "number_text.h"
#include "number_text_plain.h"
#include "number_text_special.h"
#include "raw_bytes.h"

using ky::LoadAs;
using ky::ReadAsEightBit;
using ky::StoreAs;

namespace ky {

namespace {

template <class Integer>
void ScanIntegerText(const char* text, const char* format, Integer& value) {
    unsigned long long bits = 0;
    const PlainFormat plain = PlainFormatOf(format);
    if (plain.recognised) {
        if (plain.marked && *text++ != kPlainMark) return;
        if (ScanDecimal(text, plain.isSigned, bits)) value = static_cast<Integer>(bits);
        return;
    }
    NumberFormat parts;
    if (!ParseNumberFormat(format, NumberClass::Integer, parts) || parts.count == 0) return;
    if (!MatchLiteral(text, parts.literals[0])) return;
    if (ScanInteger(text, parts.conversions[0], bits)) value = static_cast<Integer>(bits);
}

template <class Floating>
void ScanFloatingText(ScanSource source, const char* format, Floating& value) {
    if (IsOwnDoubleFormat(format)) {
        value = static_cast<Floating>(ScanDoubleText(source));
        return;
    }
    const char* text = source.text;
    if (IsMantissaFormat(format)) {
        double wide = 0;
        if (ScanMantissa(text, format, wide)) value = static_cast<Floating>(wide);
        return;
    }
    NumberFormat parts;
    if (!ParseNumberFormat(format, NumberClass::Floating, parts) || parts.count == 0) return;
    if (MatchLiteral(text, parts.literals[0])) ScanFloating(text, parts.conversions[0], value);
}

/// The form of an unprintable character: "0x", then what "%x" reads.
bool ScanCode(const char* text, unsigned long long& code) {
    if (text[0] != '0' || text[1] != 'x') return false;
    text += 2;
    return ScanInteger(text, {.letter = 'x'}, code);
}

}  // namespace

void ScanText(ScanSource source, const char* format, signed char& value) {
    const char* text = source.text;
    unsigned long long code = 0;
    if (ScanCode(text, code)) {
        value = static_cast<signed char>(code);
    } else if (!IsOwnCharFormat(format)) {
        ScanIntegerText(text, format, value);
    } else if (*text != 0) {
        value = static_cast<signed char>(*text);
    }
}

void ScanText(ScanSource source, const char* format, short& value) { ScanIntegerText(source.text, format, value); }
void ScanText(ScanSource source, const char* format, int& value) { ScanIntegerText(source.text, format, value); }
void ScanText(ScanSource source, const char* format, long long& value) { ScanIntegerText(source.text, format, value); }

void ScanText(ScanSource source, const char* format, double& value) { ScanFloatingText(source, format, value); }
void ScanText(ScanSource source, const char* format, float& value) { ScanFloatingText(source, format, value); }

}  // namespace ky

namespace {

/// What all scan slots do; `Value` is the element's memory form.
template <class Value>
void* ScanElement(void* address, const KyString& text, const char* format) {
    if (address == nullptr) return nullptr;
    return ReadAsEightBit(text, [address, format](const KyString& narrow) {
        auto value = LoadAs<Value>(address);
        ky::ScanText({narrow.StrGet(), narrow.BufferSizeGet()}, format, value);
        StoreAs(address, value);
        return address;
    });
}

}  // namespace

void* CharScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return ScanElement<signed char>(value, text, format);
}

void* ShortScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return ScanElement<short>(value, text, format);
}

void* LongScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return ScanElement<int>(value, text, format);
}

void* IntScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return ScanElement<int>(value, text, format);
}

void* O_8BScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return ScanElement<long long>(value, text, format);
}

void* FloatScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return ScanElement<float>(value, text, format);
}

void* DoubleScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return ScanElement<double>(value, text, format);
}
