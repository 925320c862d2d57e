#ifndef NULL_ORDER_H
#define NULL_ORDER_H

/// Compare and Hash of nullable numbers, in the manner of `null_store.h`. Null orders before every number.

#include <bit>
#include <cstdint>
#include <type_traits>

#include "array_order.h"
#include "null_hash_words.h"
#include "null_store.h"
#include "number_order.h"

namespace ky {

/// The number as the plain types know it.
template <class Value>
using PlainNumber =
    std::conditional_t<std::is_same_v<Value, KyInt64> || std::is_same_v<Value, long long>, std::int64_t,
                       std::conditional_t<std::is_same_v<Value, unsigned long long>, std::uint64_t, Value>>;

/// An element of any form: the number's bits in memory order, and whether it is null.
// KEPT: in memory form every flag but 0 is null; the other forms are loaded, where only a byte of 1 is.
template <class Type, class Value, class Helper>
auto ReadNullable(const void* from, unsigned char form) {
    using Element = NullElement<LayoutOf<Type, Value, Helper>()>;
    if (form == KyFormMemory) return Element::Read(Advance(from, 0));
    if (IsPlainForm(form)) return Element::Decode(Advance(from, 0), NullOrderOf(form));
    Type element;
    LoadNullableInForm<Type, Value, Helper>(reinterpret_cast<unsigned char*>(&element), Advance(from, 0), form);
    return typename Element::Decoded{std::bit_cast<typename Element::Bits>(element.Get()), element.IsNullValue() != 0};
}

/// -1, 0 or 1 for two elements as they were read. Floating-point numbers in the order of their classes: NaN, minus
/// infinity, the finite numbers, infinity.
template <class Value, class Element>
int OrderNullables(Element a, Element b) {
    switch (KyNullValueCompare(a, b)) {
        case KyBothNull:
            return 0;
        case KyFirstNull:
            return -1;
        case KySecondNull:
            return 1;
        default:
            return Order(RankOf<PlainNumber<Value>>(a.bits), RankOf<PlainNumber<Value>>(b.bits));
    }
}

template <class Type, class Helper>
std::size_t NullableStride(unsigned char form) {
    return form == KyFormMemory ? sizeof(Type) : KyNullTypeSizeGet<Helper>(nullptr, 0, form, 1);
}

/// The hash of one element as it was read: null's own, or that of the plain type.
// KEPT: unsigned numbers are hashed as signed ones, so that 255 in one byte hashes as -1, unlike in an `o_u1b`.
template <class Helper, class Element>
std::uint32_t HashNullable(Element element) {
    using Signed = PlainNumber<typename Helper::Element>;
    return element.null ? kNullHash : kHashFactor * HashWord<Signed>(element.bits);
}

/// Of elements in form 1 or 2, by way of memory form.
template <class Type, class Value, class Helper>
std::uint32_t HashStoredNullables(const unsigned char* data, std::size_t count, unsigned char form) {
    constexpr NullLayout layout = LayoutOf<Type, Value, Helper>();
    constexpr std::size_t kSome = 256;
    alignas(64) unsigned char memory[kSome * sizeof(Type)];
    std::uint32_t hash = 0;
    while (count != 0) {
        const std::size_t some = std::min(count, kSome);
        UnpackNullables(layout, NullOrderOf(form), memory, data, some);
        hash ^= HashNullables(layout, std::is_same_v<Value, double>, memory, some);
        data += some * SizesOf(layout).Stored();
        count -= some;
    }
    return hash;
}

}  // namespace ky

template <class Type, class Value, class Helper>
int KyNullTypeCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short,
                      unsigned count, int& err) {
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    const std::size_t stride = ky::NullableStride<Type, Helper>(form);
    const auto compare = [form](const void* x, const void* y) {
        return ky::OrderNullables<Value>(ky::ReadNullable<Type, Value, Helper>(x, form),
                                         ky::ReadNullable<Type, Value, Helper>(y, form));
    };
    constexpr bool hasPadding = sizeof(Type) > Type::FlagOffset() + 1;
    if (form != KyFormMemory || !hasPadding) return ky::CompareArrays(stride, len1, a, len2, b, count, err, compare);
    const auto skipEqual = [](const void* x, const void* y, std::size_t elements) {
        return ky::FirstOtherNullable(ky::LayoutOf<Type, Value, Helper>(), x, y, elements);
    };
    return ky::CompareArrays(stride, len1, a, len2, b, count, err, compare, skipEqual);
}

/// The same, by the name that it has for the floating-point numbers.
template <class Type, class Value, class Helper>
inline constexpr KyCompareFunc* KyNullFloatDoubleCompare = &KyNullTypeCompare<Type, Value, Helper>;

/// Frozen, persistent. The elements' hashes, each complete in itself, combined by exclusive or.
template <class Type, class Value, class Helper>
unsigned KyNullTypeHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    const std::size_t stride = ky::NullableStride<Type, Helper>(form);
    const std::size_t visited = ky::ElementsInside(len, stride, count);
    err = ky::BufferEndError(visited, visited, count);
    if (visited > 1 && form == KyFormMemory) {
        return ky::HashNullables(ky::LayoutOf<Type, Value, Helper>(), std::is_same_v<Value, double>, data, visited);
    }
    if (visited > 1 && ky::IsPlainForm(form)) {
        return ky::HashStoredNullables<Type, Value, Helper>(ky::Advance(data, 0), visited, form);
    }
    std::uint32_t hash = 0;
    for (std::size_t i = 0; i < visited; ++i) {
        hash ^= ky::HashNullable<Helper>(ky::ReadNullable<Type, Value, Helper>(ky::Advance(data, i * stride), form));
    }
    return hash;
}

#endif
