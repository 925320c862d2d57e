#ifndef CODE_MAPPING_H
#define CODE_MAPPING_H

/// Mapping of whole texts between code sets, and the limit on a text's size. For the string class only.

#include <cstddef>

#include "code_sets.h"

namespace ky {

/// Largest allocation of a text in bytes, terminator included.
inline constexpr unsigned kMaxStringBytes = 65532;

/// Raises the assertion "String overflow" when the configuration asks for it. Asked at every overflow.
void CheckStringOverflow();

/// The characters of a text of `length` characters that fit into a string of `width` bytes a character; raises the
/// assertion when that are not all.
std::size_t LimitedLength(std::size_t length, unsigned width);

/// Maps the characters of `src` up to its terminator, at most `limit`, into `dst`, which gets no terminator. Returns
/// their number.
std::size_t MapText(unsigned char from, unsigned char to, const char* src, std::size_t limit, char* dst);

/// Maps the zero-terminated `src` from one code set into another, into a new block from array new.
/// Returns the block's bytes, terminator included.
unsigned short AllocMapped(unsigned char from, unsigned char to, const char* src, char*& out);

/// Maps up to n characters into `buf`, which is used again when its `bufSize` bytes are enough and replaced
/// (array new, array delete) when not; `bufSize` is then the new size. Returns the characters copied.
/// Everything behind the terminator is zero.
unsigned short AllocMappedN(unsigned char from, unsigned char to, const char* src, unsigned short n, char*& buf,
                            unsigned short& bufSize);

}  // namespace ky

#endif
