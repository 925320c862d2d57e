#ifndef COUNTED_MEMORY_H
#define COUNTED_MEMORY_H

#include <cstddef>
#include <ostream>

/// Operator new and delete are replaced in the program, so that blocks can be counted and refused.

extern std::size_t blocksTaken;
extern std::size_t bytesTaken;
/// Blocks that are in use.
extern std::ptrdiff_t blocksHeld;
/// Blocks until there is no more memory; negative: there is enough.
extern int blocksLeft;

/// Blocks and bytes that an action takes.
struct Taken {
    std::size_t blocks, bytes;
    friend bool operator==(const Taken&, const Taken&) = default;
};

inline void PrintTo(const Taken& taken, std::ostream* out) {
    *out << taken.blocks << " blocks, " << taken.bytes << " bytes";
}

template <class Action>
Taken TakenBy(Action action) {
    const Taken before{blocksTaken, bytesTaken};
    action();
    return {blocksTaken - before.blocks, bytesTaken - before.bytes};
}

#endif
