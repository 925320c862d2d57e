#ifndef NULL_STORE_H
#define NULL_STORE_H

/// Store, Load, sizes and Translate of nullable numbers. The templates take the nullable type, the number type inside
/// it, and the helper of the plain type that is stored like the number.

#include <bit>
#include <type_traits>

#include "array_rules.h"
#include "int64_slots.h"
#include "kynull.h"
#include "kytypes.h"
#include "null_kernels.h"
#include "null_layout.h"

/// Persistent bytes: the same in every form.
template <class Helper>
unsigned KyNullTypeSizeGet(const void*, unsigned char, unsigned char, unsigned count) {
    return Helper::SizeGet(nullptr, 0, 0, count) + count;
}

template <class Helper>
unsigned KyNullTypeNullSizeGet(unsigned count) {
    return KyNullTypeSizeGet<Helper>(nullptr, 0, 0, count);
}

/// The file is not read: all values take the same room.
template <class Helper>
unsigned KyNullTypeSizeGetFromMemFile(MemFile*, unsigned char, unsigned count) {
    return KyNullTypeSizeGet<Helper>(nullptr, 0, 0, count);
}

namespace ky {

/// How elements of a nullable type lie in memory, and that the kernels see it so.
template <class Type, class Value, class Helper>
constexpr NullLayout LayoutOf() {
    constexpr NullLayout layout = NullLayoutOf(sizeof(Type));
    static_assert(std::is_same_v<typename Type::NumberType, Value> && std::is_trivially_copyable_v<Type>);
    static_assert(sizeof(Value) == SizesOf(layout).number && Type::FlagOffset() == SizesOf(layout).number);
    static_assert(sizeof(typename Helper::Element) == sizeof(Value));
    static_assert((SizesOf(layout).reversedUnit != sizeof(Value)) == std::is_same_v<Helper, Int64LSHelper>);
    return layout;
}

/// Into memory form, with cleared padding: what a value leaves in memory does not depend on what was there.
template <class Type>
void StoreNullable(void* dst, const Type& element) {
    using Bytes = NullElement<NullLayoutOf(sizeof(Type))>;
    Bytes::Write(Advance(dst, 0), std::bit_cast<typename Bytes::Bits>(element.Get()), element.IsNullValue() != 0);
}

/// One value in a form that only the base library knows; returns the bytes written.
template <class Type, class Value, class Helper>
unsigned StoreNullableInForm(unsigned char* dst, const unsigned char* src, unsigned char form) {
    const auto element = LoadAs<Type>(src);
    const Value value = element.Get();
    const auto null = static_cast<unsigned char>(element.IsNullValue() != 0);
    const bool numberFirst = (form & KyFormMemory) != 0;
    const unsigned width = Helper::Store(dst + (numberFirst ? 0 : 1), &value, form, 1);
    dst[numberFirst ? width : 0] = null;
    return width + 1;
}

/// The way back; returns the bytes read.
template <class Type, class Value, class Helper>
unsigned LoadNullableInForm(unsigned char* dst, const unsigned char* src, unsigned char form) {
    const bool numberFirst = (form & KyFormMemory) != 0;
    Value value{};
    const unsigned width = Helper::Load(&value, src + (numberFirst ? 0 : 1), form, 1);
    const bool null = src[numberFirst ? width : 0] == 1;
    StoreNullable(dst, null ? Type() : Type(value));
    return width + 1;
}

}  // namespace ky

/// The number is stored for a null, too: 0, as far as nothing else was put there.
template <class Type, class Value, class Helper>
unsigned KyNullTypeStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    constexpr ky::NullLayout layout = ky::LayoutOf<Type, Value, Helper>();
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    unsigned char* const to = ky::Advance(dst, 0);
    const unsigned char* const from = ky::Advance(src, 0);
    if (ky::IsPlainForm(form)) {
        if (count == 1) {
            ky::NullElement<layout>::Pack(to, from, ky::NullOrderOf(form));
        } else {
            ky::PackNullables(layout, ky::NullOrderOf(form), dst, src, count);
        }
        return static_cast<unsigned>(ky::SizesOf(layout).Stored()) * count;
    }
    unsigned written = 0;
    for (std::size_t i = 0; i < count; ++i) {
        written += ky::StoreNullableInForm<Type, Value, Helper>(to + written, from + i * sizeof(Type), form);
    }
    return written;
}

template <class Type, class Value, class Helper>
unsigned KyNullTypeLoad(void* dst, const void* src, unsigned char flag, unsigned count) {
    constexpr ky::NullLayout layout = ky::LayoutOf<Type, Value, Helper>();
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    unsigned char* const to = ky::Advance(dst, 0);
    const unsigned char* const from = ky::Advance(src, 0);
    if (ky::IsPlainForm(form)) {
        if (count == 1) {
            ky::NullElement<layout>::Unpack(to, from, ky::NullOrderOf(form));
        } else {
            ky::UnpackNullables(layout, ky::NullOrderOf(form), dst, src, count);
        }
        return static_cast<unsigned>(ky::SizesOf(layout).Stored()) * count;
    }
    unsigned read = 0;
    for (std::size_t i = 0; i < count; ++i) {
        read += ky::LoadNullableInForm<Type, Value, Helper>(to + i * sizeof(Type), from + read, form);
    }
    return read;
}

namespace ky {

/// What Translate has to know of a nullable type.
template <class Type, class Value, class Helper>
struct NullFacts {
    using Element = Type;
    static constexpr auto* Store = &KyNullTypeStore<Type, Value, Helper>;
    static constexpr auto* Load = &KyNullTypeLoad<Type, Value, Helper>;
    static constexpr auto* SizeGet = &KyNullTypeSizeGet<Helper>;
};

}  // namespace ky

/// From memory form to memory form elements are copied with their padding; with the memory flag on one side only, the
/// other form is the packed or the stored one that its flag names.
template <class Type, class Value, class Helper>
inline constexpr KyTranslateFunc* KyNullTypeTranslate = &ky::TranslateArray<ky::NullFacts<Type, Value, Helper>>;

#endif
