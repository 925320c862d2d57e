#ifndef NULL_HASH_WORDS_H
#define NULL_HASH_WORDS_H

/// The hash of nullable numbers in memory form: one text, compiled by the including files for their instructions.

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "array_rules.h"
#include "null_layout.h"
#include "raw_bytes.h"

namespace ky {

namespace detail {

/// What the number of an element adds to a hash, before it is multiplied: small ones are widened with their sign.
template <NullLayout layout, bool bothHalves>
constexpr std::uint32_t NumberWord(typename NullElement<layout>::Bits bits) {
    using Bits = typename NullElement<layout>::Bits;
    if constexpr (bothHalves) {
        return static_cast<std::uint32_t>(bits ^ (bits >> (4 * sizeof(Bits))));
    } else {
        return static_cast<std::uint32_t>(static_cast<std::make_signed_t<Bits>>(bits));
    }
}

template <NullLayout layout, bool bothHalves>
[[gnu::always_inline]] inline std::uint32_t HashElements(const unsigned char* data, std::size_t count) {
    using Element = NullElement<layout>;
    constexpr NullSizes sizes = Element::kSizes;
    std::uint32_t hash = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned char* const at = data + i * sizes.memory;
        typename Element::Bits bits;
        std::uint32_t flag;
        if constexpr (sizes.memory <= 8) {
            // One read, which lets the loop be made of vectors.
            const auto all = LoadAs<typename UnsignedOfSize<sizes.memory>::Type>(at);
            bits = static_cast<typename Element::Bits>(all);
            flag = static_cast<unsigned char>(all >> (8 * sizes.number));
        } else {
            bits = LoadAs<typename Element::Bits>(at);
            flag = at[sizes.number];
        }
        const std::uint32_t ifNull = flag != 0 ? ~0u : 0u;
        hash ^= (kNullHash & ifNull) | (kHashFactor * NumberWord<layout, bothHalves>(bits) & ~ifNull);
    }
    return hash;
}

[[gnu::always_inline]] inline std::uint32_t HashNullablesText(NullLayout layout, bool bothHalves, const void* area,
                                                              std::size_t count) {
    const unsigned char* data = Advance(area, 0);
    switch (layout) {
        case NullLayout::bytes2:
            return HashElements<NullLayout::bytes2, false>(data, count);
        case NullLayout::bytes4:
            return HashElements<NullLayout::bytes4, false>(data, count);
        case NullLayout::bytes8:
            return HashElements<NullLayout::bytes8, false>(data, count);
        case NullLayout::bytes12:
            return HashElements<NullLayout::bytes12, false>(data, count);
        case NullLayout::bytes16:
            break;
    }
    return bothHalves ? HashElements<NullLayout::bytes16, true>(data, count)
                      : HashElements<NullLayout::bytes16, false>(data, count);
}

}  // namespace detail
}  // namespace ky

#endif
