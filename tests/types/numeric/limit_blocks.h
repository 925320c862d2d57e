#ifndef LIMIT_BLOCKS_H
#define LIMIT_BLOCKS_H

#include <cstddef>
#include <string>
#include <vector>

#include "kytypevl.h"
#include "support/hex.h"

/// The test program has an allocation of limits of its own in the place of the base library's, as an engine may: it
/// keeps account of every block.
namespace limit_blocks {

/// The sizes asked for since the last call, in order.
std::vector<std::size_t> TakeSizes();
/// Blocks that nobody has freed.
std::size_t Live();

/// What happens when this many blocks more have been given out, until `Refuse(kNever)`: null, as after a memory
/// handler that returns, or std::bad_alloc, as after one that throws.
inline constexpr std::size_t kNever = static_cast<std::size_t>(-1);
void Refuse(std::size_t blocksLeft, bool throwing = false);

}  // namespace limit_blocks

/// A record that frees what was recorded in it.
class OwnedBounds {
public:
    OwnedBounds() = default;
    OwnedBounds(const OwnedBounds&) = delete;
    OwnedBounds& operator=(const OwnedBounds&) = delete;
    ~OwnedBounds() { Clear(); }

    KyIdxBounds record;

    void Clear();
};

/// The bytes of a limit; "none" where it is missing.
inline std::string LimitHex(const void* limit, std::size_t size) {
    return limit != nullptr ? Hex(limit, size) : "none";
}

#endif
