#ifndef NULL_ORDER_H
#define NULL_ORDER_H

/// Compare and Hash of nullable numbers, in the manner of `null_store.h`. Null orders before every number.

#include <bit>
#include <cstdint>
#include <type_traits>

#include "array_order.h"
#include "null_store.h"
#include "number_order.h"

namespace ky {

/// The number as the plain types know it.
template <class Value>
using PlainNumber = std::conditional_t<std::is_same_v<Value, KyInt64>, long long, Value>;

/// One element of any form.
// KEPT: in memory form every flag but 0 is null; the other forms are loaded, where only a byte of 1 is.
template <class Type, class Value, class Helper>
Type LoadNullable(const void* from, unsigned char form) {
    if (form == KyFormMemory) return LoadAs<Type>(from);
    if (IsPlainForm(form)) {
        const auto decoded = NullElement<LayoutOf<Type, Value, Helper>()>::Decode(Advance(from, 0), NullOrderOf(form));
        return decoded.null ? Type() : Type(std::bit_cast<Value>(decoded.bits));
    }
    Type element;
    KyNullTypeLoad<Type, Value, Helper>(&element, from, form, 1);
    return element;
}

template <class Type, class Value>
int OrderNullables(const Type& a, const Type& b) {
    switch (KyNullValueCompare(a, b)) {
        case KyBothNull:
            return 0;
        case KyFirstNull:
            return -1;
        case KySecondNull:
            return 1;
        default:
            break;
    }
    using Bits = BitsOf<Value>;
    using Plain = PlainNumber<Value>;
    return Order(RankOf<Plain>(std::bit_cast<Bits>(a.Get())), RankOf<Plain>(std::bit_cast<Bits>(b.Get())));
}

template <class Type, class Helper>
std::size_t NullableStride(unsigned char form) {
    return form == KyFormMemory ? sizeof(Type) : KyNullTypeSizeGet<Helper>(nullptr, 0, form, 1);
}

/// What a null adds to a hash.
inline constexpr std::uint32_t kNullHash = 0xFEFE7575u;

/// What any element adds to a hash: its plain type's hash.
// KEPT: unsigned numbers are hashed as signed ones, so that 255 in one byte hashes as -1, unlike in an `o_u1b`.
template <class Type, class Helper>
std::uint32_t HashNullable(const Type& element) {
    using Signed = PlainNumber<typename Helper::Element>;
    if (element.IsNullValue() != 0) return kNullHash;
    return kHashFactor * HashWord<Signed>(std::bit_cast<BitsOf<Signed>>(element.Get()));
}

}  // namespace ky

template <class Type, class Value, class Helper>
int KyNullTypeCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short,
                      unsigned count, int& err) {
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    const std::size_t stride = ky::NullableStride<Type, Helper>(form);
    const auto compare = [form](const void* x, const void* y) {
        return ky::OrderNullables<Type, Value>(ky::LoadNullable<Type, Value, Helper>(x, form),
                                               ky::LoadNullable<Type, Value, Helper>(y, form));
    };
    constexpr bool hasPadding = sizeof(Type) > Type::FlagOffset() + 1;
    if (form != KyFormMemory || !hasPadding) return ky::CompareArrays(stride, len1, a, len2, b, count, err, compare);
    const auto skipEqual = [](const void* x, const void* y, std::size_t elements) {
        return ky::FirstOtherNullable(ky::LayoutOf<Type, Value, Helper>(), x, y, elements);
    };
    return ky::CompareArrays(stride, len1, a, len2, b, count, err, compare, skipEqual);
}

/// With the order of the floating-point numbers: NaN, minus infinity, the finite numbers, infinity.
template <class Type, class Value, class Helper>
inline constexpr KyCompareFunc* KyNullFloatDoubleCompare = &KyNullTypeCompare<Type, Value, Helper>;

/// Frozen, persistent. The elements' hashes, each complete in itself, combined by exclusive or.
template <class Type, class Value, class Helper>
unsigned KyNullTypeHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    const std::size_t stride = ky::NullableStride<Type, Helper>(form);
    const std::size_t visited = ky::ElementsInside(len, stride, count);
    err = ky::BufferEndError(visited, visited, count);
    std::uint32_t hash = 0;
    for (std::size_t i = 0; i < visited; ++i) {
        hash ^=
            ky::HashNullable<Type, Helper>(ky::LoadNullable<Type, Value, Helper>(ky::Advance(data, i * stride), form));
    }
    return hash;
}

#endif
