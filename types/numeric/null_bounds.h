#ifndef NULL_BOUNDS_H
#define NULL_BOUNDS_H

/// EvalAndBound of nullable numbers.

#include <bit>

#include "key_share.h"
#include "kytypes.h"
#include "kytypevl.h"
#include "null_store.h"

namespace ky {

/// One value, as `KyNullTypeLoad` reads it; null where there is none. Inline, so that the number and its flag stay in
/// registers of their own.
template <class Type, class Value, class Helper>
[[gnu::always_inline]] inline Type LoadLimit(const void* from, unsigned char flag) {
    Type element;
    if (from == nullptr) return element;
    const auto form = static_cast<unsigned char>(flag & KyFormMask);
    if (!IsPlainForm(form)) {
        KyNullTypeLoad<Type, Value, Helper>(&element, from, form, 1);
        return element;
    }
    const auto decoded = NullElement<LayoutOf<Type, Value, Helper>()>::Decode(Advance(from, 0), NullOrderOf(form));
    return decoded.null ? element : Type(std::bit_cast<Value>(decoded.bits));
}

}  // namespace ky

/// The slot of nullable type `N` over numbers of type `T`, which the helper `H` stores; the last three arguments only
/// name the types. A missing limit counts as null.
// KEPT: other than with plain numbers no share is too small to be told from nothing, and ranges of 64-bit numbers
// that measure 0 are not looked at again.
template <class N, class T, class H>
float KyNullTypeEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char format, unsigned count,
                             KyIdxBounds* outBounds, N*, T* number, H*) {
    float share = 0;
    if (bounds != nullptr) {
        const N lower = ky::LoadLimit<N, T, H>(bounds->lower, format);
        const N upper = ky::LoadLimit<N, T, H>(bounds->upper, format);
        const double kept = CalcRange(op, ky::LoadLimit<N, T, H>(value, format), lower, upper, ky::kKeyUnit, number);
        share = ky::ShareOf(kept, ky::OnKeyAxis<T>(upper.Get()) - ky::OnKeyAxis<T>(lower.Get()) + ky::kKeyUnit);
    }
    ky::RecordLimits(outBounds, value, op, [=] { return KyNullTypeSizeGet<H>(nullptr, format, format, count); });
    return share;
}

namespace ky {

template <class Type, class Value, class Helper>
float NullEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                       KyIdxBounds* out) {
    return KyNullTypeEvalAndBound(bounds, op, value, flag, count, out, static_cast<Type*>(nullptr),
                                  static_cast<Value*>(nullptr), static_cast<Helper*>(nullptr));
}

}  // namespace ky

#endif
