#ifndef NULL_PLANS_H
#define NULL_PLANS_H

/// Byte permutations between the forms of nullable numbers, for registers of `width` bytes. A register takes a whole
/// number of elements; the bytes behind them mean nothing.

#include <array>
#include <cstddef>

#include "null_layout.h"

namespace ky {

template <std::size_t width>
struct alignas(width) NullPlan {
    using Bytes = std::array<unsigned char, width>;

    Bytes packIndex{};    ///< of each stored byte: where it stands in memory form
    Bytes flagLimit{};    ///< its minimum with a memory form makes every flag 0 or 1 and changes nothing else
    Bytes numberIndex{};  ///< of each byte of a number in memory form: where it is stored; of other bytes `kNone`
    Bytes nullIndex{};    ///< of each byte of memory form: where its element's null byte is stored
    Bytes null{};         ///< elements that are null, in memory form
    std::size_t elements = 0;
    std::size_t memory = 0;  ///< bytes of one element in memory form
    std::size_t stored = 0;  ///< bytes of one element outside of it

    static constexpr unsigned char kNone = 0x80;

    constexpr NullPlan(NullLayout layout, NullOrder order) {
        const NullSizes sizes = SizesOf(layout);
        elements = width / sizes.memory;
        memory = sizes.memory;
        stored = sizes.Stored();
        flagLimit.fill(0xFF);
        numberIndex.fill(kNone);
        const bool numberFirst = order == NullOrder::numberFirst;
        const std::size_t unit = order == NullOrder::nullFirstReversed ? sizes.reversedUnit : 1;
        for (std::size_t i = 0; i < elements; ++i) {
            const std::size_t inMemory = i * memory;
            const std::size_t inStore = i * stored;
            const std::size_t nullInStore = inStore + (numberFirst ? sizes.number : 0);
            for (std::size_t at = 0; at < sizes.number; ++at) {
                const std::size_t reversed = at / unit * unit + (unit - 1 - at % unit);
                const std::size_t numberInStore = inStore + (numberFirst ? 0 : 1) + reversed;
                packIndex[numberInStore] = static_cast<unsigned char>(inMemory + at);
                numberIndex[inMemory + at] = static_cast<unsigned char>(numberInStore);
            }
            packIndex[nullInStore] = static_cast<unsigned char>(inMemory + sizes.number);
            flagLimit[inMemory + sizes.number] = 1;
            null[inMemory + sizes.number] = 1;
            for (std::size_t at = 0; at < memory; ++at) {
                nullIndex[inMemory + at] = static_cast<unsigned char>(nullInStore);
            }
        }
    }
};

template <std::size_t width>
struct NullPlans {
    using Plan = NullPlan<width>;
    using Orders = std::array<Plan, kNullOrders>;

    std::array<Orders, kNullLayouts> plans = {OrdersOf(NullLayout::bytes2), OrdersOf(NullLayout::bytes4),
                                              OrdersOf(NullLayout::bytes8), OrdersOf(NullLayout::bytes12),
                                              OrdersOf(NullLayout::bytes16)};

    constexpr const Plan& Of(NullLayout layout, NullOrder order) const {
        return plans[static_cast<std::size_t>(layout)][static_cast<std::size_t>(order)];
    }

private:
    static constexpr Orders OrdersOf(NullLayout layout) {
        return {Plan(layout, NullOrder::nullFirst), Plan(layout, NullOrder::nullFirstReversed),
                Plan(layout, NullOrder::numberFirst)};
    }
};

}  // namespace ky

#endif
