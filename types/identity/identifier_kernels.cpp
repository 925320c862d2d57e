#include "identifier_kernels.h"

#include <array>

#include "kernel_choice.h"

// Names the one text that three functions are compiled from, each for its own instructions.
#define KY_KERNEL [[gnu::always_inline]] inline

namespace ky {
namespace {

/// Elements that are looked at together. Whatever their size, these are whole vectors.
constexpr std::size_t kBlock = 32;

constexpr std::size_t BlockBytes(IdentifierLayout layout) { return kBlock * SizesOf(layout).element; }

template <IdentifierLayout layout>
struct alignas(64) IdentityMask : std::array<std::uint64_t, BlockBytes(layout) / 8> {};

/// Words whose bytes are all ones where an identity stands.
template <IdentifierLayout layout>
constexpr IdentityMask<layout> MaskOf() {
    IdentityMask<layout> mask{};
    for (std::size_t at = 0; at < BlockBytes(layout); ++at) {
        const std::size_t place = at % SizesOf(layout).element;
        const bool counts = place >= kIdentityStart && place < SizesOf(layout).identityLimit;
        if (counts) mask[at / 8] |= std::uint64_t{0xFF} << (at % 8 * 8);
    }
    return mask;
}

template <IdentifierLayout layout>
constexpr IdentityMask<layout> kIdentityMask = MaskOf<layout>();

/// The size is fixed, so that the loop becomes a few vector instructions.
template <IdentifierLayout layout>
KY_KERNEL bool BlockDiffers(const unsigned char* a, const unsigned char* b) {
    std::uint64_t difference = 0;
    for (std::size_t i = 0; i < BlockBytes(layout) / 8; ++i) {
        difference |= (LoadAs<std::uint64_t>(a + 8 * i) ^ LoadAs<std::uint64_t>(b + 8 * i)) & kIdentityMask<layout>[i];
    }
    return difference != 0;
}

template <IdentifierLayout layout>
KY_KERNEL std::size_t FirstOtherIn(const unsigned char* a, const unsigned char* b, std::size_t count) {
    constexpr std::size_t element = SizesOf(layout).element;
    std::size_t at = 0;
    if (count >= kBlock) {
        bool differs = false;
        for (; count - at >= kBlock && !differs; at += kBlock) {
            differs = BlockDiffers<layout>(a + at * element, b + at * element);
        }
        if (differs) {
            at -= kBlock;
        } else {
            // The last block reaches back into what is known to be equal.
            const std::size_t last = (count - kBlock) * element;
            if (at == count || !BlockDiffers<layout>(a + last, b + last)) return count;
        }
    }
    while (at < count && ReadIdentity<layout>(a + at * element) == ReadIdentity<layout>(b + at * element)) ++at;
    return at;
}

KY_KERNEL std::size_t FirstOtherText(IdentifierLayout layout, const void* areaA, const void* areaB, std::size_t count) {
    const unsigned char* const a = Advance(areaA, 0);
    const unsigned char* const b = Advance(areaB, 0);
    switch (layout) {
        case IdentifierLayout::storedObjId:
            return FirstOtherIn<IdentifierLayout::storedObjId>(a, b, count);
        case IdentifierLayout::objId:
            return FirstOtherIn<IdentifierLayout::objId>(a, b, count);
        case IdentifierLayout::storedRef:
            return FirstOtherIn<IdentifierLayout::storedRef>(a, b, count);
        case IdentifierLayout::ref:
            break;
    }
    return FirstOtherIn<IdentifierLayout::ref>(a, b, count);
}

typedef std::uint64_t Vector16 __attribute__((vector_size(16)));
typedef std::uint64_t Vector32 __attribute__((vector_size(32)));
typedef std::uint64_t Vector64 __attribute__((vector_size(64)));

/// The blocks are combined as they stand, and only their sum is looked at element by element.
template <class Vector, IdentifierLayout layout>
KY_KERNEL std::uint64_t XorIn(const unsigned char* data, std::size_t count) {
    constexpr std::size_t element = SizesOf(layout).element;
    std::uint64_t identity = 0;
    std::size_t at = 0;
    if (count >= 2 * kBlock) {
        Vector sums[BlockBytes(layout) / sizeof(Vector)] = {};
        for (; count - at >= kBlock; at += kBlock) {
            const unsigned char* from = data + at * element;
            for (Vector& sum : sums) {
                Vector vector;
                std::memcpy(&vector, from, sizeof vector);
                sum ^= vector;
                from += sizeof vector;
            }
        }
        for (std::size_t i = 0; i < kBlock; ++i) {
            identity ^= ReadIdentity<layout>(reinterpret_cast<const unsigned char*>(sums) + i * element);
        }
    }
    for (; at < count; ++at) identity ^= ReadIdentity<layout>(data + at * element);
    return identity;
}

template <class Vector>
KY_KERNEL std::uint64_t XorText(IdentifierLayout layout, const void* area, std::size_t count) {
    const unsigned char* const data = Advance(area, 0);
    switch (layout) {
        case IdentifierLayout::storedObjId:
            return XorIn<Vector, IdentifierLayout::storedObjId>(data, count);
        case IdentifierLayout::objId:
            return XorIn<Vector, IdentifierLayout::objId>(data, count);
        case IdentifierLayout::storedRef:
            return XorIn<Vector, IdentifierLayout::storedRef>(data, count);
        case IdentifierLayout::ref:
            break;
    }
    return XorIn<Vector, IdentifierLayout::ref>(data, count);
}

// --- for any x86-64 ---

std::size_t FirstOtherAny(IdentifierLayout layout, const void* a, const void* b, std::size_t count) {
    return FirstOtherText(layout, a, b, count);
}
std::uint64_t XorAny(IdentifierLayout layout, const void* data, std::size_t count) {
    return XorText<Vector16>(layout, data, count);
}

// --- with AVX2 ---

#define KY_AVX2 [[gnu::target("avx2")]]

KY_AVX2 std::size_t FirstOtherAvx2(IdentifierLayout layout, const void* a, const void* b, std::size_t count) {
    return FirstOtherText(layout, a, b, count);
}
KY_AVX2 std::uint64_t XorAvx2(IdentifierLayout layout, const void* data, std::size_t count) {
    return XorText<Vector32>(layout, data, count);
}

// --- with AVX-512 ---

#define KY_AVX512 [[gnu::target("avx2,avx512f,avx512bw,avx512dq,avx512vl")]]

KY_AVX512 std::size_t FirstOtherAvx512(IdentifierLayout layout, const void* a, const void* b, std::size_t count) {
    return FirstOtherText(layout, a, b, count);
}
KY_AVX512 std::uint64_t XorAvx512(IdentifierLayout layout, const void* data, std::size_t count) {
    return XorText<Vector64>(layout, data, count);
}

}  // namespace

constinit const IdentifierKernels kIdentifierKernels[kIdentifierKernelVariants] = {
    {"any", FirstOtherAny, XorAny},
    {"avx2", FirstOtherAvx2, XorAvx2},
    {"avx512", FirstOtherAvx512, XorAvx512},
};

KY_RESOLVER int RunnableIdentifierKernels() { return RunnableVariants(); }

extern "C" {
KY_RESOLVER FirstOtherIdentityKernel* KyResolveFirstOtherIdentity() {
    return WidestOf(RunnableIdentifierKernels(), &FirstOtherAny, &FirstOtherAvx2, &FirstOtherAvx512);
}
KY_RESOLVER XorIdentitiesKernel* KyResolveXorIdentities() {
    return WidestOf(RunnableIdentifierKernels(), &XorAny, &XorAvx2, &XorAvx512);
}
}

__attribute__((ifunc("KyResolveFirstOtherIdentity"))) FirstOtherIdentityKernel FirstOtherIdentity;
__attribute__((ifunc("KyResolveXorIdentities"))) XorIdentitiesKernel XorIdentities;

}  // namespace ky
