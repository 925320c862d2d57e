#ifndef IDENTIFIER_FACTS_H
#define IDENTIFIER_FACTS_H

/// What one type of identifiers knows of itself: where its fields stand and what its texts are.
///
/// The stored form of each type is the front of its memory form, each field in the byte order of the form.

#include <bit>
#include <cstdint>

#include "array_order.h"
#include "array_rules.h"
#include "identifier_kernels.h"
#include "identifier_moves.h"
#include "identifier_slots.h"
#include "identifier_text.h"
#include "kybase.h"
#include "kyobjid.h"
#include "kytypfmt.h"
#include "raw_bytes.h"

namespace ky {

/// Two fields of a half of `Bits` each, with the bytes of each in reversed order.
template <class Bits>
constexpr Bits SwapHalves(Bits bits) {
    return std::rotl(ByteSwap(bits), 4 * sizeof(Bits));
}

/// Fields of `Bits`, or two of a half of it.
template <bool reversed, class Bits>
inline void MoveField(void* dst, const void* src) {
    const auto bits = LoadAs<Bits>(src);
    StoreAs(dst, reversed ? ByteSwap(bits) : bits);
}
template <bool reversed, class Bits>
inline void MoveFieldPair(void* dst, const void* src) {
    const auto bits = LoadAs<Bits>(src);
    StoreAs(dst, reversed ? SwapHalves(bits) : bits);
}

/// Difference of the highest bytes in which two numbers differ; 0 when they are equal.
constexpr int HighestByteDifference(std::uint64_t a, std::uint64_t b) {
    if (a == b) return 0;
    const int shift = (63 - std::countl_zero(a ^ b)) & ~7;
    return static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF);
}

/// H, then L, of an identity as the kernels read it.
constexpr int OrderIdentities(std::uint64_t a, std::uint64_t b) {
    const auto highA = static_cast<int>(a >> 32 & 0xFFFF);
    const auto highB = static_cast<int>(b >> 32 & 0xFFFF);
    if (highA != highB) return highA - highB;
    return Order(static_cast<std::uint32_t>(a), static_cast<std::uint32_t>(b));
}

struct ObjIdFacts {
    using Element = KyObjId;
    static constexpr IdentifierLayout kMemoryLayout = IdentifierLayout::objId;
    static constexpr IdentifierLayout kStoredLayout = IdentifierLayout::storedObjId;
    static constexpr IdentifierMove kStore = IdentifierMove::storeObjIds;
    static constexpr IdentifierMove kLoad = IdentifierMove::loadObjIds;
    static constexpr std::size_t kStoredBytes = 10;

    static constexpr auto* Store = &KyObjId::Store;
    static constexpr auto* Load = &KyObjId::Load;
    static constexpr auto* SizeGet = &KyObjId::SizeGet;
    static constexpr auto* Assignment = &KyObjIdAssignment;
    static constexpr auto* Create = &KyObjId::Create;
    static constexpr auto* Delete = &KyObjId::Delete;

    template <bool reversed>
    static void StoreElement(void* dst, const void* src) {
        MoveFieldPair<reversed, std::uint64_t>(dst, src);
        MoveField<reversed, std::uint16_t>(Advance(dst, 8), Advance(src, 8));
    }
    template <bool reversed>
    static void LoadElement(void* dst, const void* src) {
        StoreElement<reversed>(dst, src);
    }
    static constexpr int OrderInMemory(std::uint64_t a, std::uint64_t b) { return OrderIdentities(a, b); }

    static constexpr IdentifierGrammar kGrammar = {LettersOf("BLH"), true, KyObjIdFmt};
    static constexpr IdentifierFields kNull = {};
    static constexpr bool IsNull(const IdentifierFields& fields) { return fields.L == 0 && fields.H == 0; }
    static IdentifierFields Read(const void* from) {
        const auto bl = LoadAs<std::uint64_t>(from);
        return {.B = static_cast<std::uint32_t>(bl),
                .L = static_cast<std::uint32_t>(bl >> 32),
                .H = LoadAs<std::uint16_t>(Advance(from, 8))};
    }
    static Element Make(const IdentifierFields& fields) {
        return {fields.B, fields.L, static_cast<std::uint16_t>(fields.H)};
    }
    /// Not the bytes behind H.
    static void Write(void* to, const IdentifierFields& fields) {
        StoreAs(to, fields.B);
        StoreAs(Advance(to, 4), fields.L);
        StoreAs(Advance(to, 8), static_cast<std::uint16_t>(fields.H));
    }
};

struct ClassIdFacts {
    using Element = KyClassId;
    static constexpr std::size_t kStoredBytes = 4;

    static constexpr auto* Store = &KyClassId::Store;
    static constexpr auto* Load = &KyClassId::Load;
    static constexpr auto* SizeGet = &KyClassId::SizeGet;
    static constexpr auto* Create = &KyClassId::Create;
    static constexpr auto* Delete = &KyClassId::Delete;

    static constexpr IdentifierGrammar kGrammar = {LettersOf("CV"), false, KyClassIdFmt};
    static constexpr IdentifierFields kNull = {.C = 0xFFFF, .V = 0xFFFF};
    static constexpr bool IsNull(const IdentifierFields& fields) { return fields.C == 0xFFFF && fields.V == 0xFFFF; }
    static IdentifierFields Read(const void* from) {
        const auto element = LoadAs<KyClassId>(from);
        return {.C = element.C, .V = element.V};
    }
    static Element Make(const IdentifierFields& fields) {
        return {static_cast<std::uint16_t>(fields.C), static_cast<std::uint16_t>(fields.V)};
    }
    static void Write(void* to, const IdentifierFields& fields) { StoreAs(to, Make(fields)); }
};

/// One value; every form but the reversed one is as memory has it.
inline KyClassId DecodeClassId(const void* from, bool reversed) {
    const auto bits = LoadAs<std::uint32_t>(from);
    return std::bit_cast<KyClassId>(reversed ? SwapHalves(bits) : bits);
}

struct RefFacts {
    using Element = KyRef;
    static constexpr IdentifierLayout kMemoryLayout = IdentifierLayout::ref;
    static constexpr IdentifierLayout kStoredLayout = IdentifierLayout::storedRef;
    static constexpr IdentifierMove kStore = IdentifierMove::storeRefs;
    static constexpr IdentifierMove kLoad = IdentifierMove::loadRefs;
    static constexpr std::size_t kStoredBytes = 14;

    static constexpr auto* Store = &KyRef::Store;
    static constexpr auto* Load = &KyRef::Load;
    static constexpr auto* SizeGet = &KyRef::SizeGet;
    static constexpr auto* Create = &KyRef::Create;
    static constexpr auto* Delete = &KyRef::Delete;

    template <bool reversed>
    static void StoreElement(void* dst, const void* src) {
        MoveFieldPair<reversed, std::uint64_t>(dst, src);
        MoveFieldPair<reversed, std::uint32_t>(Advance(dst, 8), Advance(src, 8));
        MoveField<reversed, std::uint16_t>(Advance(dst, 12), Advance(src, 12));
    }
    // KEPT: the version is not stored and comes back as 0; references compare and hash without it.
    template <bool reversed>
    static void LoadElement(void* dst, const void* src) {
        StoreElement<reversed>(dst, src);
        StoreAs<std::uint16_t>(Advance(dst, 14), 0);
    }
    static constexpr int OrderInMemory(std::uint64_t a, std::uint64_t b) {
        const int order = OrderIdentities(a, b);
        return order != 0 ? order : Order(a >> 48, b >> 48);
    }

    static constexpr IdentifierGrammar kGrammar = {LettersOf("BLHDCV"), false, KyRefFmt};
    static constexpr IdentifierFields kNull = {};
    static constexpr bool IsNull(const IdentifierFields& fields) { return fields.L == 0 && fields.H == 0; }
    static IdentifierFields Read(const void* from) {
        const auto element = LoadAs<KyRef>(from);
        return {.B = element.B, .L = element.L, .H = element.H, .D = element.D, .C = element.C, .V = element.V};
    }
    static Element Make(const IdentifierFields& fields) {
        return {ObjIdFacts::Make(fields), static_cast<std::uint16_t>(fields.D), ClassIdFacts::Make(fields)};
    }
    static void Write(void* to, const IdentifierFields& fields) { StoreAs(to, Make(fields)); }
};

}  // namespace ky

#endif
