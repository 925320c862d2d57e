#ifndef STRING_BOUNDS_CONSTANT_H
#define STRING_BOUNDS_CONSTANT_H

/// The constant of a comparison with strings: whether it is a pattern, and what is recorded of it.

#include <cstddef>

#include "kytypevl.h"
#include "string_bounds_text.h"

namespace ky {

/// What a pattern begins with, up to its first wildcard or escape.
struct LiteralBeginning {
    std::size_t bytes = ~std::size_t{0};
    unsigned orders = ~0u;
};

class StringConstant {
public:
    /// `count` strings, at least 1, of which `value` has all bytes. `modifiers`: of the operator.
    StringConstant(const void* value, unsigned char persistentFlag, unsigned count, LayoutRule rule,
                   unsigned short modifiers);

    /// The string that is estimated.
    const BoundText& First() const { return first; }
    bool IsPattern() const { return hasPattern && patternAt == 0; }
    /// Of the first string, if it is a pattern; without an end else.
    const LiteralBeginning& Beginning() const { return beginning; }

    /// Bytes of what is recorded as a limit; 0: nothing is.
    std::size_t RecordedBytes() const { return recordedBytes; }
    /// `SetBoundaries` with what is to be recorded.
    void Record(KyIdxBounds* out, unsigned short op) const;

private:
    const unsigned char* array;
    unsigned char flag;
    unsigned elements;
    StringWalk walk;
    BoundText first;
    LiteralBeginning beginning;

    bool hasPattern = false;
    unsigned patternAt = 0;          ///< number of the first string that is a pattern
    std::size_t bytesBefore = 0;     ///< from `array` to that string
    std::size_t beginningBytes = 0;  ///< of its text
    std::size_t recordedBytes = 0;

    unsigned char Form() const { return FormOf(flag); }
    std::size_t RecordAt(std::size_t offset) const { return kLengthField + ReadLength(array + offset, Form()); }
    void FindPattern(unsigned short modifiers);
    std::size_t BytesWithPattern() const;
    void WriteWithPattern(unsigned char* to) const;
};

}  // namespace ky

#endif
