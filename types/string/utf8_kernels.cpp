#include "utf8_kernels.h"

#include <emmintrin.h>

#include "kernel_choice.h"
#include "utf8_steps.h"

namespace ky {

Utf8Progress Utf8ToUnitsAny(const char* text, std::size_t length, unsigned short* out, std::size_t room) {
    Utf8Progress done{0, 0};
    const __m128i zero = _mm_setzero_si128();
    while (length - done.read >= 16 && room - done.written >= 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + done.read));
        auto* to = reinterpret_cast<__m128i*>(out + done.written);
        const int high = _mm_movemask_epi8(bytes);
        if ((high & 0xFF) != 0) {
            if (!DecodeSome(text, length, out, room, done)) return done;
            continue;
        }
        const std::size_t ascii = high == 0 ? 16 : 8;
        _mm_storeu_si128(to, _mm_unpacklo_epi8(bytes, zero));
        if (high == 0) _mm_storeu_si128(to + 1, _mm_unpackhi_epi8(bytes, zero));
        done.read += ascii;
        done.written += ascii;
    }
    DecodeRest(text, length, out, room, done);
    return done;
}

Utf8Progress Utf8LengthAny(const char* text, std::size_t length) { return LengthOfText(text, length); }

Utf8Progress UnitsToUtf8Any(const char* units, std::size_t count, char* out, std::size_t room) {
    Utf8Progress done{0, 0};
    const __m128i zero = _mm_setzero_si128();
    while (count - done.read >= 16 && room - done.written >= 16) {
        const auto* from = reinterpret_cast<const __m128i*>(units + 2 * done.read);
        const __m128i low = _mm_loadu_si128(from);
        const __m128i high = _mm_loadu_si128(from + 1);
        const __m128i bytes = _mm_packus_epi16(low, high);
        // A unit is no ASCII character when one of its upper nine bits is set, and none at all when it is zero.
        const __m128i isNarrow = _mm_cmpeq_epi16(_mm_srli_epi16(_mm_or_si128(low, high), 7), zero);
        if (_mm_movemask_epi8(_mm_andnot_si128(_mm_cmpeq_epi8(bytes, zero), isNarrow)) == 0xFFFF) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(out + done.written), bytes);
            done.read += 16;
            done.written += 16;
        } else if (!EncodeSome(units, count, out, room, 16, done)) {
            return done;
        }
    }
    EncodeSome(units, count, out, room, SIZE_MAX, done);
    return done;
}

Utf8Progress BytesToUtf8Any(const unsigned short* table, const char* bytes, std::size_t count, char* out,
                            std::size_t room) {
    return BytesToUtf8Text(UnitsToUtf8Any, table, bytes, count, out, room);
}
Utf8Progress Utf8SizeAny(const char* units, std::size_t count) { return Utf8SizeText(units, count); }
std::size_t AsciiRunAny(const char* text, std::size_t length) { return AsciiText(text, length, nullptr); }
std::size_t CopyAsciiAny(const char* text, std::size_t length, char* out) { return AsciiText(text, length, out); }

constinit const Utf8Kernels kUtf8Kernels[kUtf8KernelVariants] = {
    {"any", Utf8ToUnitsAny, Utf8LengthAny, UnitsToUtf8Any, BytesToUtf8Any, Utf8SizeAny, AsciiRunAny, CopyAsciiAny},
    {"avx2", Utf8ToUnitsAvx2, Utf8LengthAvx2, UnitsToUtf8Avx2, BytesToUtf8Avx2, Utf8SizeAvx2, AsciiRunAvx2,
     CopyAsciiAvx2},
    {"avx512", Utf8ToUnitsAvx512, Utf8LengthAvx512, UnitsToUtf8Avx512, BytesToUtf8Avx512, Utf8SizeAvx512,
     AsciiRunAvx512, CopyAsciiAvx512},
};

KY_RESOLVER int RunnableUtf8Kernels() {
    const int variants = RunnableVariants();
    const bool rearranges = __builtin_cpu_supports("avx512vbmi") && __builtin_cpu_supports("avx512vbmi2") &&
                            __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2") &&
                            __builtin_cpu_supports("popcnt");
    return variants == 3 && !rearranges ? 2 : variants;
}

namespace {
template <class Kernel>
KY_RESOLVER inline Kernel* Choose(Kernel* any, Kernel* avx2, Kernel* avx512) {
    return WidestOf(RunnableUtf8Kernels(), any, avx2, avx512);
}
}  // namespace

extern "C" {
KY_RESOLVER Utf8ToUnitsKernel* KyResolveUtf8ToUnits() {
    return Choose(&Utf8ToUnitsAny, &Utf8ToUnitsAvx2, &Utf8ToUnitsAvx512);
}
KY_RESOLVER Utf8LengthKernel* KyResolveUtf8Length() {
    return Choose(&Utf8LengthAny, &Utf8LengthAvx2, &Utf8LengthAvx512);
}
KY_RESOLVER UnitsToUtf8Kernel* KyResolveUnitsToUtf8() {
    return Choose(&UnitsToUtf8Any, &UnitsToUtf8Avx2, &UnitsToUtf8Avx512);
}
KY_RESOLVER BytesToUtf8Kernel* KyResolveBytesToUtf8() {
    return Choose(&BytesToUtf8Any, &BytesToUtf8Avx2, &BytesToUtf8Avx512);
}
KY_RESOLVER Utf8SizeKernel* KyResolveUtf8Size() { return Choose(&Utf8SizeAny, &Utf8SizeAvx2, &Utf8SizeAvx512); }
KY_RESOLVER AsciiRunKernel* KyResolveAsciiRun() { return Choose(&AsciiRunAny, &AsciiRunAvx2, &AsciiRunAvx512); }
KY_RESOLVER CopyAsciiKernel* KyResolveCopyAscii() { return Choose(&CopyAsciiAny, &CopyAsciiAvx2, &CopyAsciiAvx512); }
}

__attribute__((ifunc("KyResolveUtf8ToUnits"))) Utf8ToUnitsKernel Utf8ToUnits;
__attribute__((ifunc("KyResolveUtf8Length"))) Utf8LengthKernel Utf8Length;
__attribute__((ifunc("KyResolveUnitsToUtf8"))) UnitsToUtf8Kernel UnitsToUtf8;
__attribute__((ifunc("KyResolveBytesToUtf8"))) BytesToUtf8Kernel BytesToUtf8;
__attribute__((ifunc("KyResolveUtf8Size"))) Utf8SizeKernel Utf8Size;
__attribute__((ifunc("KyResolveAsciiRun"))) AsciiRunKernel AsciiRun;
__attribute__((ifunc("KyResolveCopyAscii"))) CopyAsciiKernel CopyAscii;

}  // namespace ky
