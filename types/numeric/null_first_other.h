#ifndef NULL_FIRST_OTHER_H
#define NULL_FIRST_OTHER_H

/// The comparison of nullable numbers in memory form, padding left out: one text, compiled by the including files
/// for their instructions.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "null_layout.h"
#include "raw_bytes.h"

namespace ky::detail {

/// Bytes compared at once; a multiple of the size of every element, and so is the smaller block.
inline constexpr std::size_t kMaskBlock = 384;
inline constexpr std::size_t kSmallMaskBlock = 96;

struct alignas(64) MaskWords : std::array<std::uint64_t, kMaskBlock / 8> {};

/// Words whose bytes are all ones where a number or a flag stands, and zeros in the padding.
constexpr MaskWords MaskWordsOf(NullLayout layout) {
    MaskWords words{};
    for (std::size_t at = 0; at < kMaskBlock; ++at) {
        const bool counts = at % SizesOf(layout).memory <= SizesOf(layout).number;
        if (counts) words[at / 8] |= std::uint64_t{0xFF} << (at % 8 * 8);
    }
    return words;
}

inline constexpr std::array<MaskWords, kNullLayouts> kMaskWords = {
    MaskWordsOf(NullLayout::bytes2), MaskWordsOf(NullLayout::bytes4), MaskWordsOf(NullLayout::bytes8),
    MaskWordsOf(NullLayout::bytes12), MaskWordsOf(NullLayout::bytes16)};

/// The size is fixed, so that the loop becomes a few vector instructions.
template <std::size_t size>
[[gnu::always_inline]] inline bool MaskedBlockDiffers(const MaskWords& mask, const unsigned char* a,
                                                      const unsigned char* b) {
    std::uint64_t difference = 0;
    for (std::size_t i = 0; i < size / 8; ++i) {
        difference |= (LoadAs<std::uint64_t>(a + 8 * i) ^ LoadAs<std::uint64_t>(b + 8 * i)) & mask[i];
    }
    return difference != 0;
}

/// Index of the first of `count` elements of `element` bytes that differ in a byte of the mask; `count` when none does.
[[gnu::always_inline]] inline std::size_t FirstOtherElementText(const MaskWords& mask, std::size_t element,
                                                                const void* areaA, const void* areaB,
                                                                std::size_t count) {
    const std::size_t size = count * element;
    const unsigned char* a = Advance(areaA, 0);
    const unsigned char* b = Advance(areaB, 0);
    std::size_t block = 0;
    while (size - block >= kMaskBlock && !MaskedBlockDiffers<kMaskBlock>(mask, a + block, b + block)) {
        block += kMaskBlock;
    }
    while (size - block >= kSmallMaskBlock && !MaskedBlockDiffers<kSmallMaskBlock>(mask, a + block, b + block)) {
        block += kSmallMaskBlock;
    }
    for (std::size_t at = block; at < size; at += 8) {
        std::uint64_t words[2] = {};
        const std::size_t bytes = size - at < 8 ? size - at : 8;
        std::memcpy(&words[0], a + at, bytes);
        std::memcpy(&words[1], b + at, bytes);
        const std::uint64_t difference = (words[0] ^ words[1]) & mask[(at - block) / 8];
        if (difference != 0) return (at + static_cast<std::size_t>(std::countr_zero(difference)) / 8) / element;
    }
    return count;
}

[[gnu::always_inline]] inline std::size_t FirstOtherNullableText(NullLayout layout, const void* areaA,
                                                                 const void* areaB, std::size_t count) {
    return FirstOtherElementText(kMaskWords[static_cast<std::size_t>(layout)], SizesOf(layout).memory, areaA, areaB,
                                 count);
}

}  // namespace ky::detail

#endif
