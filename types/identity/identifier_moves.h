#ifndef IDENTIFIER_MOVES_H
#define IDENTIFIER_MOVES_H

/// The loops that store and load long arrays of object ids and references. Each exists for any x86-64, for AVX2 and for
/// AVX-512 with its byte permutations; the loader picks one for the machine at hand.

#include <array>
#include <cstddef>

namespace ky {

enum class IdentifierMove : unsigned char { storeObjIds, loadObjIds, storeRefs, loadRefs };
inline constexpr int kIdentifierMoves = 4;

/// Bytes of one element.
struct IdentifierMoveSizes {
    std::size_t from;
    std::size_t to;
    std::size_t stored;  ///< of either: the stored form, with which the memory form begins
};

constexpr IdentifierMoveSizes SizesOf(IdentifierMove move) {
    constexpr IdentifierMoveSizes sizes[kIdentifierMoves] = {{12, 10, 10}, {10, 12, 10}, {16, 14, 14}, {14, 16, 14}};
    return sizes[static_cast<std::size_t>(move)];
}

/// Moves `count` elements; `reversed`: the stored bytes of each field stand in reversed order. The areas must not
/// overlap. What stands behind the fields of an object id is neither read nor written; the version of a reference is
/// not stored and is loaded as 0.
using MoveIdentifiersKernel = void(IdentifierMove move, bool reversed, void* dst, const void* src, std::size_t count);

MoveIdentifiersKernel MoveIdentifiers;
MoveIdentifiersKernel MoveIdentifiersAny, MoveIdentifiersAvx2, MoveIdentifiersAvx512;

/// One variant of it.
struct IdentifierMoveKernels {
    const char* name;
    MoveIdentifiersKernel* move;
};

/// The variants, from the one for any machine to the widest; how many of them this machine can run.
inline constexpr int kIdentifierMoveVariants = 3;
extern const IdentifierMoveKernels kIdentifierMoveKernels[kIdentifierMoveVariants];
int RunnableIdentifierMoves();

/// The byte permutation of a move in registers of `width` bytes, each of which takes a whole number of elements.
template <std::size_t width>
struct alignas(width) IdentifierMovePlan {
    std::array<unsigned char, width> index{};  ///< of each byte that is written: where it is read; 0x80: a zero
    IdentifierMoveSizes sizes;
    std::size_t elements;

    constexpr IdentifierMovePlan(IdentifierMove move, bool reversed)
        : sizes(SizesOf(move)), elements(width / (sizes.from > sizes.to ? sizes.from : sizes.to)) {
        index.fill(0x80);
        for (std::size_t at = 0; at < elements * sizes.to; ++at) {
            const std::size_t byte = at % sizes.to;
            if (byte >= sizes.stored) continue;
            // Two fields of 4 bytes stand in front of those of 2.
            const std::size_t mirrored = byte < 8 ? byte ^ 3 : byte ^ 1;
            index[at] = static_cast<unsigned char>(at / sizes.to * sizes.from + (reversed ? mirrored : byte));
        }
    }
};

/// All of them.
template <std::size_t width>
class IdentifierMovePlans {
public:
    constexpr const IdentifierMovePlan<width>& Of(IdentifierMove move, bool reversed) const {
        return plans[static_cast<std::size_t>(move)][reversed ? 1 : 0];
    }

private:
    using Pair = std::array<IdentifierMovePlan<width>, 2>;
    static constexpr Pair PairOf(IdentifierMove move) {
        return {IdentifierMovePlan<width>(move, false), IdentifierMovePlan<width>(move, true)};
    }

    std::array<Pair, kIdentifierMoves> plans = {PairOf(IdentifierMove::storeObjIds), PairOf(IdentifierMove::loadObjIds),
                                                PairOf(IdentifierMove::storeRefs), PairOf(IdentifierMove::loadRefs)};
};

}  // namespace ky

#endif
