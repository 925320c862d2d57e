#include <immintrin.h>

#include "byte_select.h"
#include "utf8_kernels.h"
#include "utf8_steps.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET __attribute__((target("avx2")))

constexpr unsigned char kNothing = 0x80;  ///< index of a byte that becomes zero

/// How eight pairs of bytes lose the second byte of each ASCII character, for each set of pairs that are one.
struct EncodeShuffles {
    alignas(16) unsigned char index[256][16]{};
    unsigned char bytes[256]{};

    constexpr EncodeShuffles() {
        for (unsigned ascii = 0; ascii < 256; ++ascii) {
            unsigned n = 0;
            for (unsigned at = 0; at < 8; ++at) {
                index[ascii][n++] = static_cast<unsigned char>(2 * at);
                if ((ascii >> at & 1) == 0) index[ascii][n++] = static_cast<unsigned char>(2 * at + 1);
            }
            bytes[ascii] = static_cast<unsigned char>(n);
            for (; n < 16; ++n) index[ascii][n] = kNothing;
        }
    }
};
constinit const EncodeShuffles kEncode;

KY_KERNEL_TARGET inline __m128i Load16(const char* from) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}
KY_KERNEL_TARGET inline __m128i LoadIndex(const unsigned char* from) {
    return _mm_load_si128(reinterpret_cast<const __m128i*>(from));
}
template <class To>
KY_KERNEL_TARGET inline void Store16(To* to, __m128i bytes) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes);
}
template <class To>
KY_KERNEL_TARGET inline void Store8(To* to, __m128i bytes) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to), bytes);
}

/// The first n of 16 bytes, 8 at least: the second eight are those that end there.
KY_KERNEL_TARGET inline void StoreFirst(char* to, __m128i bytes, std::size_t n) {
    static constexpr unsigned char kPlaces[16] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    std::uint64_t places;
    std::memcpy(&places, kPlaces + (n - 8), sizeof places);
    Store8(to, bytes);
    Store8(to + (n - 8), _mm_shuffle_epi8(bytes, _mm_cvtsi64_si128(static_cast<long long>(places))));
}

KY_KERNEL_TARGET inline unsigned MaskOf(__m128i bytes) { return static_cast<unsigned>(_mm_movemask_epi8(bytes)); }

/// Encodes eight units when all are below 0x800 and none is zero.
KY_KERNEL_TARGET inline bool EncodeEight(__m128i units, char* out, Utf8Progress& done) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i isShort = _mm_cmpeq_epi16(_mm_and_si128(units, _mm_set1_epi16(-0x800)), zero);
    if (MaskOf(_mm_andnot_si128(_mm_cmpeq_epi16(units, zero), isShort)) != 0xFFFF) return false;
    const __m128i isAscii = _mm_cmpeq_epi16(_mm_and_si128(units, _mm_set1_epi16(-0x80)), zero);
    const __m128i first = _mm_or_si128(_mm_srli_epi16(units, 6), _mm_set1_epi16(0xC0));
    const __m128i second = _mm_or_si128(_mm_slli_epi16(_mm_and_si128(units, _mm_set1_epi16(0x3F)), 8),
                                        _mm_set1_epi16(static_cast<short>(0x8000)));
    const __m128i pairs = SelectBytes(isAscii, units, _mm_or_si128(first, second));
    const unsigned ascii = MaskOf(_mm_packs_epi16(isAscii, zero));
    const std::size_t bytes = kEncode.bytes[ascii];
    StoreFirst(out, _mm_shuffle_epi8(pairs, LoadIndex(kEncode.index[ascii])), bytes);
    done.read += 8;
    done.written += bytes;
    return true;
}

}  // namespace

KY_KERNEL_TARGET Utf8Progress Utf8ToUnitsAvx2(const char* text, std::size_t length, unsigned short* out,
                                              std::size_t room) {
    Utf8Progress done{0, 0};
    while (length - done.read >= 16 && room - done.written >= 16) {
        const __m128i bytes = Load16(text + done.read);
        const unsigned high = MaskOf(bytes);
        unsigned short* to = out + done.written;
        if (high == 0) {
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), _mm256_cvtepu8_epi16(bytes));
            done.read += 16;
            done.written += 16;
        } else if ((high & 0xFF) == 0) {
            Store16(to, _mm_cvtepu8_epi16(bytes));
            done.read += 8;
            done.written += 8;
        } else if (!DecodeSome(text, length, out, room, done)) {
            return done;
        }
    }
    DecodeRest(text, length, out, room, done);
    return done;
}

KY_KERNEL_TARGET Utf8Progress Utf8LengthAvx2(const char* text, std::size_t length) {
    return LengthOfText(text, length);
}

KY_KERNEL_TARGET Utf8Progress UnitsToUtf8Avx2(const char* units, std::size_t count, char* out, std::size_t room) {
    Utf8Progress done{0, 0};
    const __m128i zero = _mm_setzero_si128();
    while (count - done.read >= 16 && room - done.written >= 32) {
        const __m128i low = Load16(units + 2 * done.read);
        const __m128i high = Load16(units + 2 * done.read + 16);
        const __m128i bytes = _mm_packus_epi16(low, high);
        const bool isNarrow = _mm_testz_si128(_mm_or_si128(low, high), _mm_set1_epi16(-0x80)) != 0;
        if (isNarrow && MaskOf(_mm_cmpeq_epi8(bytes, zero)) == 0) {
            Store16(out + done.written, bytes);
            done.read += 16;
            done.written += 16;
            continue;
        }
        const bool fits = EncodeEight(low, out + done.written, done) && EncodeEight(high, out + done.written, done);
        if (!fits && !EncodeSome(units, count, out, room, 8, done)) return done;
    }
    EncodeSome(units, count, out, room, SIZE_MAX, done);
    return done;
}

KY_KERNEL_TARGET Utf8Progress BytesToUtf8Avx2(const unsigned short* table, const char* bytes, std::size_t count,
                                              char* out, std::size_t room) {
    return BytesToUtf8Text(UnitsToUtf8Avx2, table, bytes, count, out, room);
}
KY_KERNEL_TARGET Utf8Progress Utf8SizeAvx2(const char* units, std::size_t count) { return Utf8SizeText(units, count); }
KY_KERNEL_TARGET std::size_t AsciiRunAvx2(const char* text, std::size_t length) {
    return AsciiText(text, length, nullptr);
}
KY_KERNEL_TARGET std::size_t CopyAsciiAvx2(const char* text, std::size_t length, char* out) {
    return AsciiText(text, length, out);
}

}  // namespace ky
