#ifndef IDENTIFIER_ARRAYS_H
#define IDENTIFIER_ARRAYS_H

/// Store, Load, sizes, Compare, Hash and EvalAndBound of object ids and references, which differ in their facts.

#include "identifier_facts.h"
#include "key_share.h"
#include "kytypes.h"
#include "kytypevl.h"

namespace ky {

template <class Facts>
unsigned StoredSize(std::size_t count) {
    return static_cast<unsigned>(count * Facts::kStoredBytes);
}

template <class Facts>
unsigned IdentifierSize(unsigned char toFlag, unsigned count) {
    if ((toFlag & KyFormMask) != KyFormMemory) return StoredSize<Facts>(count);
    return static_cast<unsigned>(count * sizeof(typename Facts::Element));
}

template <class Facts>
unsigned StoreIdentifiers(void* dst, const void* src, unsigned char flag, unsigned count) {
    const bool reversed = (flag & KyFormMask) == KyFormReversed;
    if (count != 1) {
        MoveIdentifiers(Facts::kStore, reversed, dst, src, count);
    } else if (reversed) {
        Facts::template StoreElement<true>(dst, src);
    } else {
        Facts::template StoreElement<false>(dst, src);
    }
    return StoredSize<Facts>(count);
}

template <class Facts>
unsigned LoadIdentifiers(void* dst, const void* src, unsigned char flag, unsigned count) {
    const bool reversed = (flag & KyFormMask) == KyFormReversed;
    if (count != 1) {
        MoveIdentifiers(Facts::kLoad, reversed, dst, src, count);
    } else if (reversed) {
        Facts::template LoadElement<true>(dst, src);
    } else {
        Facts::template LoadElement<false>(dst, src);
    }
    return StoredSize<Facts>(count);
}

/// `compare` takes two identities.
template <IdentifierLayout layout, class CompareIdentities>
int CompareInLayout(unsigned len1, const void* a, unsigned len2, const void* b, unsigned count, int& err,
                    CompareIdentities compare) {
    return CompareArrays(
        SizesOf(layout).element, len1, a, len2, b, count, err,
        [compare](const void* x, const void* y) { return compare(ReadIdentity<layout>(x), ReadIdentity<layout>(y)); },
        [](const void* x, const void* y, std::size_t elements) { return FirstOtherIdentity(layout, x, y, elements); });
}

// KEPT: stored identities are compared as form 1 has them also in form 2, and references with D first. Indexes on disk
// are in that order, which is not the one of memory form.
template <class Facts>
int CompareIdentifiers(unsigned char flag, unsigned len1, const void* a, unsigned len2, const void* b, unsigned count,
                       int& err) {
    if ((flag & KyFormMask) == KyFormMemory) {
        return CompareInLayout<Facts::kMemoryLayout>(len1, a, len2, b, count, err, &Facts::OrderInMemory);
    }
    return CompareInLayout<Facts::kStoredLayout>(len1, a, len2, b, count, err, &HighestByteDifference);
}

template <IdentifierLayout layout>
unsigned HashInLayout(unsigned len, const void* data, unsigned count, int& err) {
    err = 0;
    std::uint64_t identity = 0;
    if (count == 1) {
        identity = ReadIdentity<layout>(data);
    } else {
        const std::size_t visited = ElementsInside(len, SizesOf(layout).element, count);
        err = BufferEndError(visited, visited, count);
        if (visited != 0) identity = XorIdentities(layout, data, visited);
    }
    return kHashFactor * static_cast<std::uint32_t>(identity ^ (identity >> 32 & 0xFFFF) ^ identity >> 48);
}

// KEPT: stored identities are hashed as form 1 has them also in form 2, whose hashes are others; indexes on disk depend
// on it.
template <class Facts>
unsigned HashIdentifiers(unsigned char flag, unsigned len, const void* data, unsigned count, int& err) {
    if ((flag & KyFormMask) == KyFormMemory) return HashInLayout<Facts::kMemoryLayout>(len, data, count, err);
    return HashInLayout<Facts::kStoredLayout>(len, data, count, err);
}

/// The object number of an identifier in any form, exact.
inline double ObjectNumber(const void* from, unsigned char form) {
    auto low = LoadAs<std::uint32_t>(Advance(from, 4));
    auto high = LoadAs<std::uint16_t>(Advance(from, 8));
    if (form == KyFormReversed) {
        low = ByteSwap(low);
        high = ByteSwap(high);
    }
    return static_cast<double>(std::uint64_t{high} << 32 | low);
}

/// 1 for limits that crossed: those of references may be of different databases, and tell nothing then.
inline float KeptShareOfObjects(unsigned short op, double value, double lower, double upper) {
    if (upper < lower) return 1;
    return ShareOf(CalcRange(op, value, value, lower, upper, kKeyUnit), upper - lower + kKeyUnit);
}

template <class Facts>
float IdentifierEvalAndBound(KyIdxBounds* bounds, unsigned short op, void* value, unsigned char flag, unsigned count,
                             KyIdxBounds* out) {
    constexpr double greatest = 0xFFFFFFFFFFFF;
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    float share = 0;
    if (bounds != nullptr) {
        const double lower = bounds->lower != nullptr ? ObjectNumber(bounds->lower, form) : 0;
        const double upper = bounds->upper != nullptr ? ObjectNumber(bounds->upper, form) : greatest;
        share = KeptShareOfObjects(op, ObjectNumber(value, form), lower, upper);
    }
    RecordLimits(out, value, op, [count] { return StoredSize<Facts>(count); });
    return share;
}

}  // namespace ky

#endif
