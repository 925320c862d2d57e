#ifndef IDENTIFIER_KERNELS_H
#define IDENTIFIER_KERNELS_H

/// The loops over long arrays of object ids and references. Each exists in three variants of the same text, compiled
/// for any x86-64, for AVX2 and for AVX-512; the loader picks one for the machine at hand.

#include <cstddef>
#include <cstdint>

#include "raw_bytes.h"

namespace ky {

/// Elements with the identity in bytes 4 to 9 (L, H) or 4 to 11 (L, H, D).
enum class IdentifierLayout : unsigned char { storedObjId, objId, storedRef, ref };
inline constexpr int kIdentifierLayouts = 4;

struct IdentifierSizes {
    std::size_t element;
    std::size_t identityLimit;  ///< one past its last byte
};

inline constexpr std::size_t kIdentityStart = 4;

constexpr IdentifierSizes SizesOf(IdentifierLayout layout) {
    constexpr IdentifierSizes sizes[kIdentifierLayouts] = {{10, 10}, {12, 10}, {14, 12}, {16, 12}};
    return sizes[static_cast<std::size_t>(layout)];
}

/// The identity of an element as one number in the machine's order: L in the low 32 bits, H above, D on top, which is 0
/// for object ids.
template <IdentifierLayout layout>
[[gnu::always_inline]] inline std::uint64_t ReadIdentity(const void* element) {
    const unsigned char* const from = Advance(element, kIdentityStart);
    if constexpr (SizesOf(layout).identityLimit == 12) {
        return LoadAs<std::uint64_t>(from);
    } else {
        return LoadAs<std::uint32_t>(from) | std::uint64_t{LoadAs<std::uint16_t>(from + 4)} << 32;
    }
}

/// Index of the first of `count` elements whose identities differ; `count` when none do.
using FirstOtherIdentityKernel = std::size_t(IdentifierLayout layout, const void* a, const void* b, std::size_t count);

/// The identities of `count` elements, combined by exclusive or.
using XorIdentitiesKernel = std::uint64_t(IdentifierLayout layout, const void* data, std::size_t count);

FirstOtherIdentityKernel FirstOtherIdentity;
XorIdentitiesKernel XorIdentities;

/// One variant of both.
struct IdentifierKernels {
    const char* name;
    FirstOtherIdentityKernel* firstOther;
    XorIdentitiesKernel* xorAll;
};

/// The variants, from the one for any machine to the widest; how many of them this machine can run.
inline constexpr int kIdentifierKernelVariants = 3;
extern const IdentifierKernels kIdentifierKernels[kIdentifierKernelVariants];
int RunnableIdentifierKernels();

}  // namespace ky

#endif
