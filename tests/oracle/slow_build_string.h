#ifndef SLOW_BUILD_STRING_H
#define SLOW_BUILD_STRING_H

#include <cstddef>
#include <optional>
#include <string>

/// An obvious version of `KyString::BuildString` for sources that need no mapping: a new block of zeros, into
/// which single characters are written where they still fit. `Unit` is char or char16_t.
template <class Unit>
struct SlowBuild {
    using Block = std::basic_string<Unit>;  ///< a whole allocation, terminator included

    /// The block after the operation; nothing: the string is left without one.
    static std::optional<Block> Apply(const std::optional<Block>& old, const Block& source, std::size_t pos,
                                      std::size_t srcStart, std::size_t srcCount, std::size_t repeat, int mode) {
        if ((mode == 1 || mode == 2) && (source.empty() || source[0] == 0)) return old;
        const std::size_t oldSize = old ? old->size() : 0;
        long long size = 0;
        if (mode == 3) size = static_cast<long long>(pos + srcCount * repeat + 1);
        if (mode == 2) size = static_cast<long long>((oldSize == 0 ? 1 : oldSize) + srcCount * repeat);
        if (mode == 1) size = static_cast<long long>(oldSize + srcCount * repeat) - static_cast<long long>(srcCount);
        if (size <= 0) return std::nullopt;
        const long long limit = 65532 / static_cast<long long>(sizeof(Unit));
        if (size > limit) size = limit;

        Block block;
        const auto put = [&](Unit unit) {
            if (static_cast<long long>(block.size()) < size - 1) block += unit;
        };
        const auto oldUnit = [&](std::size_t i) { return i + 1 < oldSize ? (*old)[i] : Unit{}; };
        for (std::size_t i = 0; i < pos; ++i) put(oldUnit(i));
        for (std::size_t r = 0; r < repeat; ++r) {
            for (std::size_t i = 0; i < srcCount; ++i)
                put(srcStart + i < source.size() ? source[srcStart + i] : Unit{});
        }
        if (mode != 3) {
            for (std::size_t i = mode == 1 ? pos + srcCount : pos; i + 1 < oldSize; ++i) put(oldUnit(i));
        }
        block.resize(static_cast<std::size_t>(size));
        return block;
    }
};

#endif
