#ifndef NUMBER_FORMAT_PRINT_H
#define NUMBER_FORMAT_PRINT_H

/// Carries out the conversions of a print format, byte for byte as the C library's formatted print does in
/// its "C" locale, in bounded memory whatever widths and precisions a format names.

#include <cstddef>
#include <memory>
#include <string_view>

#include "number_format.h"

namespace ky {

/// A text that grows up to a limit just above what a string can hold; what comes behind is dropped, so that a
/// string made of it cuts it as it cuts every other text that is too long.
class TextBuffer {
public:
    static constexpr std::size_t kLimit = 65535;

    void Append(char c) { Append({&c, 1}); }
    void Append(std::string_view text);
    void Fill(char c, std::size_t n);
    /// The literal text of a format: "%%" is one "%".
    void AppendLiteral(std::string_view literal);
    /// Zero-terminated; valid until the next change.
    const char* Text();
    std::size_t Length() const { return length; }

private:
    char local[256];
    std::unique_ptr<char[]> heap;
    char* data = local;
    std::size_t length = 0;
    std::size_t capacity = sizeof local - 1;

    /// Makes room for n more characters; returns how many of them fit under the limit.
    std::size_t Reserve(std::size_t n);
};

/// An integer as a conversion sees it: `value` for the signed letters, its low `bits` bits for the others.
struct IntegerOperand {
    long long value;
    unsigned bits;
};

/// The operand that a value is to a conversion: 16-bit values are widened with their sign to 32 bits unless
/// the conversion names "h".
// KEPT: "%d" and "%x" of the unsigned 65535 print -1 and ffffffff, because both signednesses share one print function.
template <class Integer>
IntegerOperand OperandOf(Integer value, const Conversion& conversion) {
    if constexpr (sizeof(Integer) == sizeof(short)) {
        return {static_cast<short>(value), conversion.half ? 16U : 32U};
    } else {
        return {static_cast<long long>(value), sizeof(Integer) == 8 ? 64U : 32U};
    }
}

void PrintInteger(TextBuffer& out, const Conversion& conversion, IntegerOperand operand);
void PrintFloating(TextBuffer& out, const Conversion& conversion, double value);

}  // namespace ky

#endif
