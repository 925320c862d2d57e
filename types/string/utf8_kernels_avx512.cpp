#include <immintrin.h>

#include <bit>

#include "byte_table_avx512.h"
#include "common_text.h"
#include "utf8_kernels.h"
#include "utf8_steps.h"

namespace ky {
namespace {

#define KY_KERNEL_TARGET \
    __attribute__((target("avx2,avx512f,avx512bw,avx512dq,avx512vl,avx512vbmi,avx512vbmi2,bmi,bmi2,popcnt,lzcnt")))

using Vector = __m512i;
using Bytes = std::uint64_t;  ///< a set of a vector's 64 bytes
using Units = std::uint32_t;  ///< a set of a vector's 32 units

// The forms with a mask have no indeterminate operand, which the headers of the plain ones are warned about.
constexpr Bytes kEveryByte = ~Bytes{0};
constexpr Units kEveryUnit = ~Units{0};

/// 0 to 64 bytes.
constexpr Bytes FirstBytes(std::size_t n) { return n == 0 ? 0 : kEveryByte >> (64 - n); }
constexpr Units FirstUnits(std::size_t n) { return n >= 32 ? kEveryUnit : (Units{1} << n) - 1; }

KY_KERNEL_TARGET inline Vector Byte(int value) { return _mm512_set1_epi8(static_cast<char>(value)); }
KY_KERNEL_TARGET inline Vector Unit(int value) { return _mm512_set1_epi16(static_cast<short>(value)); }

KY_KERNEL_TARGET inline Vector Word(int value) { return _mm512_set1_epi32(value); }

KY_KERNEL_TARGET inline __m256i LowHalf(Vector vector) {
    __m256i half;
    std::memcpy(&half, &vector, sizeof half);
    return half;
}
KY_KERNEL_TARGET inline __m256i HighHalf(Vector vector) { return _mm512_maskz_extracti64x4_epi64(0xF, vector, 1); }

KY_KERNEL_TARGET inline Vector WidenLow(Vector bytes) { return _mm512_maskz_cvtepu8_epi16(kEveryUnit, LowHalf(bytes)); }
KY_KERNEL_TARGET inline Vector WidenHigh(Vector bytes) {
    return _mm512_maskz_cvtepu8_epi16(kEveryUnit, HighHalf(bytes));
}

/// Stores the first n, at most 64, of two vectors of units.
KY_KERNEL_TARGET inline void StoreUnits(unsigned short* to, Vector low, Vector high, std::size_t n) {
    if (n == 64) {
        _mm512_storeu_si512(to, low);
        _mm512_storeu_si512(to + 32, high);
    } else {
        _mm512_mask_storeu_epi16(to, FirstUnits(n), low);
        if (n > 32) _mm512_mask_storeu_epi16(to + 32, FirstUnits(n - 32), high);
    }
}

/// Up to 64 bytes of text, and which of them form characters.
struct TextBlock {
    Vector bytes;
    Bytes starts;      ///< first bytes of the characters that the kernel decodes
    std::size_t size;  ///< bytes of these characters
    bool hasLong;      ///< characters of three bytes among them
    bool stops;        ///< what follows is no character of one to three bytes
};

KY_KERNEL_TARGET inline TextBlock Examine(Vector bytes, std::size_t n) {
    const Bytes given = FirstBytes(n);
    const Bytes leads = _mm512_mask_cmpge_epu8_mask(given, bytes, Byte(0xC0));
    const Bytes further = _mm512_movepi8_mask(bytes) & ~leads;
    const Bytes longLeads = _mm512_mask_cmpge_epu8_mask(given, bytes, Byte(0xE0));
    // 0xC0 and 0xC1, and an 0xE0 before a byte below 0xA0, begin forms that are longer than needed.
    const Bytes noLeads =
        _mm512_mask_cmpge_epu8_mask(given, bytes, Byte(0xF0)) | _mm512_mask_cmplt_epu8_mask(leads, bytes, Byte(0xC2));
    const Bytes tooLong = _mm512_cmpeq_epi8_mask(bytes, Byte(0xE0)) << 1 & _mm512_cmplt_epu8_mask(bytes, Byte(0xA0));
    const Bytes wanted = leads << 1 | longLeads << 2;
    const Bytes wrong = (noLeads | tooLong | (wanted ^ further)) & given;
    // Characters end before the first wrong byte and before the block's end.
    std::size_t size = n;
    if (wrong != 0) size = static_cast<std::size_t>(std::countr_zero(wrong));
    const auto isAt = [&size](Bytes set, std::size_t back) { return size >= back && (set >> (size - back) & 1) != 0; };
    if (isAt(leads, 1)) {
        size -= 1;
    } else if (isAt(longLeads, 2)) {
        size -= 2;
    }
    const Bytes kept = FirstBytes(size);
    return {bytes, ~further & kept, size, (longLeads & kept) != 0, wrong != 0};
}

/// The bytes of a text from `at` on, up to 64 of them, behind which zeros follow.
KY_KERNEL_TARGET inline Vector LoadBytes(const char* from, std::size_t n) {
    return n >= 64 ? _mm512_loadu_si512(from) : _mm512_maskz_loadu_epi8(FirstBytes(n), from);
}

/// The units of 32 characters of one or two bytes, from their first and second bytes in units.
KY_KERNEL_TARGET inline Vector UnitsOfTwo(Vector first, Vector second) {
    const Vector upper = _mm512_maskz_slli_epi16(kEveryUnit, _mm512_and_si512(first, Unit(0x1F)), 6);
    const Vector both = _mm512_or_si512(upper, _mm512_and_si512(second, Unit(0x3F)));
    return _mm512_mask_mov_epi16(both, _mm512_cmplt_epu16_mask(first, Unit(0x80)), first);
}
/// The same with characters of three bytes.
KY_KERNEL_TARGET inline Vector UnitsOfThree(Vector first, Vector second, Vector third) {
    const Vector upper = _mm512_maskz_slli_epi16(kEveryUnit, first, 12);
    const Vector middle = _mm512_maskz_slli_epi16(kEveryUnit, _mm512_and_si512(second, Unit(0x3F)), 6);
    const Vector all = _mm512_or_si512(_mm512_or_si512(upper, middle), _mm512_and_si512(third, Unit(0x3F)));
    return _mm512_mask_mov_epi16(UnitsOfTwo(first, second), _mm512_cmpge_epu16_mask(first, Unit(0xE0)), all);
}

/// The second or third bytes of the characters that begin at `starts`, in the characters' order.
KY_KERNEL_TARGET inline Vector Further(Vector bytes, Bytes starts, int distance) {
    alignas(64) static constexpr struct Following {
        unsigned char index[3][64]{};
        constexpr Following() {
            for (unsigned far = 0; far < 3; ++far) {
                for (unsigned at = 0; at < 64; ++at) index[far][at] = static_cast<unsigned char>((at + far) % 64);
            }
        }
    } kFollowing;
    const Vector index = _mm512_load_si512(kFollowing.index[distance]);
    return _mm512_maskz_compress_epi8(starts, _mm512_maskz_permutexvar_epi8(kEveryByte, index, bytes));
}

}  // namespace

KY_KERNEL_TARGET Utf8Progress Utf8ToUnitsAvx512(const char* text, std::size_t length, unsigned short* out,
                                                std::size_t room) {
    Utf8Progress done{0, 0};
    while (done.read < length && done.written < room) {
        const std::size_t n = std::min<std::size_t>(length - done.read, 64);
        const std::size_t left = room - done.written;
        const Vector bytes = LoadBytes(text + done.read, n);
        unsigned short* to = out + done.written;
        if (_mm512_movepi8_mask(bytes) == 0) {
            const std::size_t count = std::min(n, left);
            StoreUnits(to, WidenLow(bytes), WidenHigh(bytes), count);
            done.read += count;
            done.written += count;
            continue;
        }
        const TextBlock block = Examine(bytes, n);
        if (block.size == 0) break;
        auto count = static_cast<std::size_t>(std::popcount(block.starts));
        std::size_t size = block.size;
        if (count > left) {
            // The first character that does not fit begins at the start number `left`.
            size = static_cast<std::size_t>(std::countr_zero(_pdep_u64(Bytes{1} << left, block.starts)));
            count = left;
        }
        const Vector first = _mm512_maskz_compress_epi8(block.starts, bytes);
        const Vector second = Further(bytes, block.starts, 1);
        if (block.hasLong) {
            const Vector third = Further(bytes, block.starts, 2);
            StoreUnits(to, UnitsOfThree(WidenLow(first), WidenLow(second), WidenLow(third)),
                       UnitsOfThree(WidenHigh(first), WidenHigh(second), WidenHigh(third)), count);
        } else {
            StoreUnits(to, UnitsOfTwo(WidenLow(first), WidenLow(second)),
                       UnitsOfTwo(WidenHigh(first), WidenHigh(second)), count);
        }
        done.read += size;
        done.written += count;
        if (block.stops) break;
    }
    return done;
}

__attribute__((KY_UNINSTRUMENTED)) KY_KERNEL_TARGET Utf8Progress Utf8LengthAvx512(const char* text,
                                                                                  std::size_t length) {
    const Vector lastFurther = Byte(-0x41);
    Utf8Progress done{0, 0};
    Bytes zeros = 0;
    while (zeros == 0 && done.read < length) {
        const char* const from = text + done.read;
        const std::size_t near = std::min(length - done.read, std::size_t{RoomInPage(from)});
        if (near >= 64) {
            const Vector bytes = _mm512_loadu_si512(from);
            if (_mm512_testn_epi8_mask(bytes, bytes) == 0) {
                done.read += 64;
                done.written += static_cast<std::size_t>(std::popcount(_mm512_cmpgt_epi8_mask(bytes, lastFurther)));
                continue;
            }
        }
        const Bytes given = FirstBytes(std::min<std::size_t>(near, 64));
        const Vector bytes = _mm512_maskz_loadu_epi8(given, from);
        zeros = _mm512_mask_testn_epi8_mask(given, bytes, bytes);
        const Bytes before = zeros == 0 ? given : FirstBytes(static_cast<std::size_t>(std::countr_zero(zeros)));
        done.read += static_cast<std::size_t>(std::popcount(before));
        done.written +=
            static_cast<std::size_t>(std::popcount(_mm512_mask_cmpgt_epi8_mask(before, bytes, lastFurther)));
    }
    return done;
}

namespace {

/// Stores the bytes that are not zero, of which there are n.
KY_KERNEL_TARGET inline void StorePresent(char* to, Vector bytes, std::size_t n) {
    const Vector present = _mm512_maskz_compress_epi8(_mm512_test_epi8_mask(bytes, bytes), bytes);
    _mm512_mask_storeu_epi8(to, FirstBytes(n), present);
}

/// Units below 0x800 as two bytes each, the second of ASCII characters being zero.
KY_KERNEL_TARGET inline Vector PairsOfUnits(Vector units) {
    const Vector lead = _mm512_or_si512(_mm512_maskz_srli_epi16(kEveryUnit, units, 6), Unit(0xC0));
    const Vector last = _mm512_maskz_slli_epi16(kEveryUnit, _mm512_and_si512(units, Unit(0x3F)), 8);
    const Vector both = _mm512_or_si512(_mm512_or_si512(lead, last), Unit(0x8000));
    return _mm512_mask_mov_epi16(both, _mm512_cmplt_epu16_mask(units, Unit(0x80)), units);
}

/// The same in 32 bits, for all 16-bit units.
KY_KERNEL_TARGET inline Vector TriplesOfUnits(__m256i units) {
    constexpr __mmask16 kEvery = 0xFFFF;
    const Vector all = _mm512_maskz_cvtepu16_epi32(kEvery, units);
    const Vector last = _mm512_and_si512(all, Word(0x3F));
    const Vector upper = _mm512_maskz_srli_epi32(kEvery, all, 6);
    const Vector two = _mm512_or_si512(_mm512_or_si512(upper, Word(0x80C0)), _mm512_maskz_slli_epi32(kEvery, last, 8));
    const Vector middle = _mm512_maskz_slli_epi32(kEvery, _mm512_and_si512(upper, Word(0x3F)), 8);
    const Vector lead = _mm512_or_si512(_mm512_maskz_srli_epi32(kEvery, all, 12), Word(0x8080E0));
    const Vector three = _mm512_or_si512(_mm512_or_si512(lead, middle), _mm512_maskz_slli_epi32(kEvery, last, 16));
    const Vector longer = _mm512_mask_mov_epi32(two, _mm512_cmpge_epu32_mask(all, Word(0x800)), three);
    return _mm512_mask_mov_epi32(longer, _mm512_cmplt_epu32_mask(all, Word(0x80)), all);
}

KY_KERNEL_TARGET inline std::size_t CountOf(Units units) { return static_cast<std::size_t>(std::popcount(units)); }

/// Encodes the first n, at most 32, of a vector's units, none of which is zero; the others are. False, and nothing
/// written, when they do not fit.
KY_KERNEL_TARGET inline bool EncodeUnits(Vector units, std::size_t n, char* out, std::size_t room, Utf8Progress& done) {
    const Units wide = _mm512_cmpge_epu16_mask(units, Unit(0x80));
    const Units widest = _mm512_cmpge_epu16_mask(units, Unit(0x800));
    const std::size_t size = n + CountOf(wide) + CountOf(widest);
    if (size > room - done.written) return false;
    char* to = out + done.written;
    if (wide == 0) {
        _mm512_mask_cvtepi16_storeu_epi8(to, FirstUnits(n), units);
    } else if (widest == 0) {
        StorePresent(to, PairsOfUnits(units), size);
    } else {
        const Units low = 0xFFFF;
        const std::size_t lowSize = std::min<std::size_t>(n, 16) + CountOf(wide & low) + CountOf(widest & low);
        StorePresent(to, TriplesOfUnits(LowHalf(units)), lowSize);
        StorePresent(to + lowSize, TriplesOfUnits(HighHalf(units)), size - lowSize);
    }
    done.read += n;
    done.written += size;
    return true;
}

}  // namespace

KY_KERNEL_TARGET Utf8Progress UnitsToUtf8Avx512(const char* text, std::size_t count, char* out, std::size_t room) {
    Utf8Progress done{0, 0};
    for (; count - done.read >= 64 && room - done.written >= 64; done.read += 64, done.written += 64) {
        const Vector low = _mm512_loadu_si512(text + 2 * done.read);
        const Vector high = _mm512_loadu_si512(text + 2 * done.read + 64);
        // One less than an ASCII character is below 0x7F; what comes before zero is above everything.
        const Vector one = Unit(1);
        const Vector larger =
            _mm512_maskz_max_epu16(kEveryUnit, _mm512_sub_epi16(low, one), _mm512_sub_epi16(high, one));
        if (_mm512_cmpge_epu16_mask(larger, Unit(0x7F)) != 0) break;
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + done.written),
                            _mm512_maskz_cvtepi16_epi8(kEveryUnit, low));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + done.written + 32),
                            _mm512_maskz_cvtepi16_epi8(kEveryUnit, high));
    }
    for (bool ends = false; !ends && done.read < count;) {
        std::size_t n = std::min<std::size_t>(count - done.read, 32);
        const char* from = text + 2 * done.read;
        Vector units = n == 32 ? _mm512_loadu_si512(from) : _mm512_maskz_loadu_epi16(FirstUnits(n), from);
        const Units zeros = _mm512_testn_epi16_mask(units, units) & FirstUnits(n);
        if (zeros != 0) {
            n = static_cast<std::size_t>(std::countr_zero(zeros));
            units = _mm512_maskz_mov_epi16(FirstUnits(n), units);
            ends = true;
        }
        if (!EncodeUnits(units, n, out, room, done)) {
            EncodeSome(text, count, out, room, SIZE_MAX, done);
            break;
        }
    }
    return done;
}

namespace {

/// The first n bytes, at most 32, as units; the others are zero. A mask that changed nothing would make each vector
/// wait for what was done with the one before it.
KY_KERNEL_TARGET inline Vector LoadWidened(const char* from, std::size_t n) {
    __m256i bytes;
    if (n == 32) {
        std::memcpy(&bytes, from, sizeof bytes);
    } else {
        bytes = _mm256_maskz_loadu_epi8(FirstUnits(n), from);
    }
    return _mm512_maskz_cvtepu8_epi16(kEveryUnit, bytes);
}

}  // namespace

KY_KERNEL_TARGET Utf8Progress BytesToUtf8Avx512(const unsigned short* table, const char* bytes, std::size_t count,
                                                char* out, std::size_t room) {
    Utf8Progress done{0, 0};
    const UpperTable upper(table);
    while (done.read < count) {
        const std::size_t n = std::min<std::size_t>(count - done.read, 32);
        const Vector units = upper.Of(LoadWidened(bytes + done.read, n));
        if (EncodeUnits(units, n, out, room, done)) continue;
        const Utf8Progress rest = BytesToUtf8Any(table, bytes + done.read, n, out + done.written, room - done.written);
        return {done.read + rest.read, done.written + rest.written};
    }
    return done;
}

KY_KERNEL_TARGET Utf8Progress Utf8SizeAvx512(const char* units, std::size_t count) {
    return Utf8SizeText(units, count);
}
namespace {

/// As `AsciiText`.
KY_KERNEL_TARGET inline std::size_t AsciiBlocks(const char* text, std::size_t length, char* out) {
    const Vector zero = _mm512_setzero_si512();
    std::size_t at = 0;
    for (; length - at >= 64; at += 64) {
        const Vector bytes = _mm512_loadu_si512(text + at);
        // As signed numbers only ASCII characters are above zero.
        if (_mm512_cmpgt_epi8_mask(bytes, zero) != kEveryByte) break;
        if (out != nullptr) _mm512_storeu_si512(out + at, bytes);
    }
    if (at == length) return at;
    const Vector bytes = LoadBytes(text + at, length - at);
    const Bytes others = ~_mm512_cmpgt_epi8_mask(bytes, zero);
    const std::size_t n = std::min<std::size_t>(length - at, static_cast<std::size_t>(std::countr_zero(others)));
    if (out != nullptr) _mm512_mask_storeu_epi8(out + at, FirstBytes(n), bytes);
    return at + n;
}

}  // namespace

KY_KERNEL_TARGET std::size_t AsciiRunAvx512(const char* text, std::size_t length) {
    return AsciiBlocks(text, length, nullptr);
}
KY_KERNEL_TARGET std::size_t CopyAsciiAvx512(const char* text, std::size_t length, char* out) {
    return AsciiBlocks(text, length, out);
}

}  // namespace ky
