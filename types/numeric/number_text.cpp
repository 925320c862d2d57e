#include "number_text.h"

#include "kystring.h"
#include "number_format_print.h"
#include "number_text_plain.h"
#include "number_text_special.h"
#include "raw_bytes.h"

// The slots stand outside the namespace of everything that they are made of.
using namespace ky;  // NOLINT(google-build-using-namespace)

namespace {

/// As the plain conversion letter of a row's own format shows a value.
template <class Integer>
unsigned PlainText(PlainFormat plain, Integer value, char* out) {
    if (plain.isSigned) return SignedText(value, out);
    const Conversion conversion{.half = plain.half};
    const IntegerOperand operand = OperandOf(value, conversion);
    const unsigned unused = 64 - operand.bits;
    return UnsignedText(static_cast<unsigned long long>(operand.value) << unused >> unused, out);
}

template <class Integer>
KyString& PrintIntegerTo(KyString& out, const void* address, const char* format) {
    const auto value = LoadAs<Integer>(address);
    const PlainFormat plain = PlainFormatOf(format);
    if (plain.recognised) {
        char text[1 + kIntegerTextSize] = {kPlainMark};
        const unsigned length = PlainText(plain, value, text + 1);
        return plain.marked ? AssignText(out, text, 1 + length) : AssignText(out, text + 1, length);
    }

    TextBuffer text;
    NumberFormat parts;
    if (ParseNumberFormat(format, NumberClass::Integer, parts)) {
        text.AppendLiteral(parts.literals[0]);
        if (parts.count != 0) {
            const Conversion& conversion = parts.conversions[0];
            PrintInteger(text, conversion, OperandOf(value, conversion));
            text.AppendLiteral(parts.literals[1]);
        }
    }
    return out = text.Text();
}

constexpr bool IsPrintable(unsigned char c) { return c >= 0x20 && c <= 0x7E; }

void AppendCode(TextBuffer& text, unsigned char c) {
    constexpr char digits[] = "0123456789abcdef";
    const char code[] = {'0', 'x', digits[c >> 4], digits[c & 15]};
    text.Append({code, sizeof code});
}

void AppendCharacter(TextBuffer& text, const NumberFormat& parts, unsigned char c) {
    text.AppendLiteral(parts.literals[0]);
    if (parts.count == 0) return;
    PrintInteger(text, parts.conversions[0], OperandOf(int{c}, parts.conversions[0]));
    text.AppendLiteral(parts.literals[1]);
}

KyString& PrintDoubleTo(KyString& out, double value, const char* format) {
    if (IsOwnDoubleFormat(format)) {
        char text[kDoubleTextSize];
        const unsigned length = DoubleText(value, text);
        return AssignText(out, text, length);
    }

    TextBuffer text;
    NumberFormat parts;
    if (IsMantissaFormat(format)) {
        PrintMantissa(text, format, value);
    } else if (ParseNumberFormat(format, NumberClass::Floating, parts)) {
        text.AppendLiteral(parts.literals[0]);
        if (parts.count != 0) {
            PrintFloating(text, parts.conversions[0], value);
            text.AppendLiteral(parts.literals[1]);
        }
    }
    return out = text.Text();
}

}  // namespace

KyString& CharPrintToKyString(KyString& out, void* value, const char* format, unsigned count) {
    const auto* characters = static_cast<const unsigned char*>(value);
    const bool own = IsOwnCharFormat(format);
    NumberFormat parts;
    TextBuffer text;
    if (own || ParseNumberFormat(format, NumberClass::Integer, parts)) {
        for (unsigned i = 0; i < count && text.Length() < TextBuffer::kLimit; ++i) {
            if (!IsPrintable(characters[i])) {
                AppendCode(text, characters[i]);
            } else if (own) {
                text.Append(static_cast<char>(characters[i]));
            } else {
                AppendCharacter(text, parts, characters[i]);
            }
        }
    }
    return out = text.Text();
}

KyString& ShortPrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return PrintIntegerTo<short>(out, value, format);
}

KyString& LongPrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return PrintIntegerTo<int>(out, value, format);
}

KyString& IntPrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return PrintIntegerTo<int>(out, value, format);
}

KyString& O_8BPrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return PrintIntegerTo<long long>(out, value, format);
}

KyString& FloatPrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return PrintDoubleTo(out, LoadAs<float>(value), format);
}

KyString& DoublePrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return PrintDoubleTo(out, LoadAs<double>(value), format);
}
