#ifndef PATTERN_BYTES_H
#define PATTERN_BYTES_H

/// Patterns of bytes, 16 at a time. Vectors may reach behind a terminator, never onto a page on which nothing of the
/// text stands; a sanitizer cannot know that this is harmless and is kept out of these functions.

#include <emmintrin.h>

#include <bit>

#include "common_text.h"

namespace ky {

/// A bit for each of 16 bytes that ends a segment of a pattern: a run, a backslash, the end.
inline unsigned SegmentEndsIn(__m128i bytes) {
    const __m128i runs = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('*'));
    const __m128i escapes = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\\'));
    const __m128i ends = _mm_cmpeq_epi8(bytes, _mm_setzero_si128());
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(_mm_or_si128(runs, escapes), ends)));
}
inline bool EndsSegment(char c) { return c == 0 || c == '*' || c == '\\'; }

/// Where segments of a pattern end. Remembers the last bytes it has seen.
class SegmentEnds {
public:
    /// The first byte from `at` on that ends a segment.
    const char* NextFrom(const char* at) {
        const std::uintptr_t seen = reinterpret_cast<std::uintptr_t>(at) - block;
        if (seen < 16 && bits >> seen != 0) return at + std::countr_zero(bits >> seen);
        return Scan(at);
    }

private:
    __attribute__((KY_UNINSTRUMENTED)) const char* Scan(const char* at) {
        for (;;) {
            if (RoomInPage(at) < 16) [[unlikely]] {
                for (unsigned i = 0; i < 16; ++i, ++at) {
                    if (EndsSegment(*at)) return at;
                }
                continue;
            }
            block = reinterpret_cast<std::uintptr_t>(at);
            bits = SegmentEndsIn(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at)));
            if (bits != 0) return at + std::countr_zero(bits);
            at += 16;
        }
    }

    std::uintptr_t block = 0;  ///< where the last bytes began
    unsigned bits = 0;
};

/// Length of the equal beginnings of a pattern and a text in which no byte is a wildcard or a backslash.
__attribute__((KY_UNINSTRUMENTED)) inline std::size_t EqualLiterals(const char* pattern, const char* text) {
    std::size_t at = 0;
    for (;;) {
        const char* const p = pattern + at;
        const char* const t = text + at;
        if (EitherCrossesPage(p, t, 16)) [[unlikely]] {
            for (std::size_t i = 0; i < 16; ++i, ++at) {
                if (p[i] != t[i] || p[i] == '?' || EndsSegment(p[i])) return at;
            }
            continue;
        }
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const __m128i equal = _mm_cmpeq_epi8(bytes, _mm_loadu_si128(reinterpret_cast<const __m128i*>(t)));
        const __m128i literal = _mm_andnot_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('?')), equal);
        const unsigned stops = (static_cast<unsigned>(_mm_movemask_epi8(literal)) ^ 0xFFFF) | SegmentEndsIn(bytes);
        if (stops != 0) return at + static_cast<std::size_t>(std::countr_zero(stops));
        at += 16;
    }
}

}  // namespace ky

#endif
