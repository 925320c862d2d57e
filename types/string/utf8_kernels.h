#ifndef UTF8_KERNELS_H
#define UTF8_KERNELS_H

/// The loops that take long texts between UTF-8 and 16-bit units. Each exists in three variants, for any x86-64, for
/// AVX2 and for AVX-512; the loader picks one for the machine at hand. All give the same results; nothing outside the
/// text is read, and nothing behind what is reported as written is touched.

#include <cstddef>

namespace ky {

/// How far a kernel came.
struct Utf8Progress {
    std::size_t read;
    std::size_t written;
};

/// Decodes characters of one to three bytes, zero bytes like any other. Stops before the first bytes that are none
/// (longer forms, errors, a character that is cut off by `length`) and when `room` units are written.
using Utf8ToUnitsKernel = Utf8Progress(const char* text, std::size_t length, unsigned short* out, std::size_t room);

/// Measures a text up to its first zero byte: `written` is the number of bytes that do not continue a character, in a
/// text without mistakes its characters. Behind a zero byte nothing need be there, whatever `length` says; vectors
/// that reach behind it stay on its page.
using Utf8LengthKernel = Utf8Progress(const char* text, std::size_t length);

/// Encodes units, at any address, up to the first zero unit. Stops before the character that does not fit in `room`.
using UnitsToUtf8Kernel = Utf8Progress(const char* units, std::size_t count, char* out, std::size_t room);

/// Encodes bytes of an 8-bit code set, none of them zero; `table` as in `BytesToUnits`. Stops before the character that
/// does not fit in `room`.
using BytesToUtf8Kernel = Utf8Progress(const unsigned short* table, const char* bytes, std::size_t count, char* out,
                                       std::size_t room);

/// Measures what `UnitsToUtf8` would write: `written` is the number of bytes.
using Utf8SizeKernel = Utf8Progress(const char* units, std::size_t count);

/// The number of ASCII characters before the first zero byte or other character of a text.
using AsciiRunKernel = std::size_t(const char* text, std::size_t length);
/// Copies them, too.
using CopyAsciiKernel = std::size_t(const char* text, std::size_t length, char* out);

Utf8ToUnitsKernel Utf8ToUnits;
Utf8LengthKernel Utf8Length;
UnitsToUtf8Kernel UnitsToUtf8;
BytesToUtf8Kernel BytesToUtf8;
Utf8SizeKernel Utf8Size;
AsciiRunKernel AsciiRun;
CopyAsciiKernel CopyAscii;

/// One variant of all of them.
struct Utf8Kernels {
    const char* name;
    Utf8ToUnitsKernel* utf8ToUnits;
    Utf8LengthKernel* utf8Length;
    UnitsToUtf8Kernel* unitsToUtf8;
    BytesToUtf8Kernel* bytesToUtf8;
    Utf8SizeKernel* utf8Size;
    AsciiRunKernel* asciiRun;
    CopyAsciiKernel* copyAscii;
};

/// The variants, from the one for any machine to the widest; how many of them this machine can run.
inline constexpr int kUtf8KernelVariants = 3;
extern const Utf8Kernels kUtf8Kernels[kUtf8KernelVariants];
int RunnableUtf8Kernels();

Utf8ToUnitsKernel Utf8ToUnitsAny, Utf8ToUnitsAvx2, Utf8ToUnitsAvx512;
Utf8LengthKernel Utf8LengthAny, Utf8LengthAvx2, Utf8LengthAvx512;
UnitsToUtf8Kernel UnitsToUtf8Any, UnitsToUtf8Avx2, UnitsToUtf8Avx512;
BytesToUtf8Kernel BytesToUtf8Any, BytesToUtf8Avx2, BytesToUtf8Avx512;
Utf8SizeKernel Utf8SizeAny, Utf8SizeAvx2, Utf8SizeAvx512;
AsciiRunKernel AsciiRunAny, AsciiRunAvx2, AsciiRunAvx512;
CopyAsciiKernel CopyAsciiAny, CopyAsciiAvx2, CopyAsciiAvx512;

}  // namespace ky

#endif
