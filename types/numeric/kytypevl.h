#ifndef KYTYPEVL_H
#define KYTYPEVL_H

/// Ranges of index keys: what the rows' EvalAndBound slots, reached through `KyTypeMgr::EvalAndBound`, read and narrow,
/// and the arithmetic that they share.
///
/// A call of EvalAndBound for "member op constant" does two things. It returns the share, from 0 to 1, of the keys
/// between the limits of `bounds` that the comparison keeps, or 0 when `bounds` is null; and it copies the constant
/// into `out`, unless that is null, wherever the comparison sets a limit and none is set yet.
///
///   keys from 1 to 100, member >= 91:   returns 0.1; `out` gets the lower limit 91
///   then, the same `out`, member = 95:  returns 0.01; `out` keeps 91 and gets the upper limit 95
///
/// Numbers leave the operator word as it is. Strings of all kinds clear its modifiers (AND 0x800F), and patterns among
/// their constants set limits of their own:
///   KyString         a lower limit at most: the text before the first wildcard or escape. It can be used as it is.
///   KyIString,       both limits are copies of the constant, pattern and all, and bit 0x0008 of the word says so: an
///   KyCaseIString    index is then descended with the text before the first wildcard or escape only.
/// A wildcard at the beginning sets none.

#include <cstddef>
#include <type_traits>

#include "kyexport.h"
#include "kyint64.h"

/// A range of keys. The limits are values in the persistent form that the format flag of a call names, any alignment.
///
/// The caller owns the record and what it holds: limits that a call has put there are blocks of their own, to be
/// freed with `mmKyfree`. A limit is read as one whole value, a missing one is 0, for nullable types null; a string
/// that goes on behind its length is read up to there, a missing one is open.
struct KyIdxBounds {
    void* lower = nullptr;       ///< null: no lower limit
    void* upper = nullptr;       ///< null: no upper limit
    unsigned char lowerLen = 0;  ///< bytes at `lower`, modulo 256
    unsigned char upperLen = 0;  ///< bytes at `upper`, modulo 256
};

static_assert(sizeof(KyIdxBounds) == 24 && offsetof(KyIdxBounds, upper) == 8 && offsetof(KyIdxBounds, lowerLen) == 16 &&
                  offsetof(KyIdxBounds, upperLen) == 17,
              "shared with the engine");

/// What an engine knows while it evaluates a comparison. Accepted by `KyTypeMgr::EvalAndBound`, read by no type.
struct KyEvalData {};

/// The size of what the relation bits of `op` keep of the keys from `lower` to `upper`: above `valueHigh` (0x0004),
/// below `valueLow` (0x0002), from `valueLow` to `valueHigh` (0x0001), added up. `unit` is the width of one key, a
/// positive number; a constant that is a single value is given twice. Other bits of `op` do not matter.
///
/// Never negative and never NaN: where a difference is NaN, because an operand is or because infinities meet, the
/// largest double stands for it. The sum of such terms is infinity.
KY_EXPORT double CalcRange(unsigned short op, double valueLow, double valueHigh, double lower, double upper,
                           double unit);

/// Records limits: a copy of the `length` bytes at `value` as lower limit unless `op` has 0x0002, as upper limit
/// unless `op` has 0x0004. A limit that is set stays, and so does everything when `outBounds` is null.
///
/// The bits are taken as they are: an `op` without any relation records both limits. Each copy is a block from
/// `mmKymalloc`; where the memory handler returns without one, the limit stays missing, which is a wider range.
KY_EXPORT void SetBoundaries(KyIdxBounds* outBounds, void* value, unsigned short op, unsigned length);

namespace ky {

/// A number on the axis along which ranges are measured.
template <class Number>
double OnKeyAxis(const Number& number) {
    if constexpr (std::is_same<Number, KyInt64>::value) {
        return static_cast<double>(number.Get8b());
    } else {
        return static_cast<double>(number);
    }
}

}  // namespace ky

/// The same for a number type `N` that can be null, over numbers of type `T`; the last argument only names `T`.
///
/// A null limit leaves the size of a side unknown: half a key stands for it. Nothing lies above or below a missing
/// (null) upper limit, nothing below a null value, and equality needs all three.
template <class N, class T>
double CalcRange(unsigned short op, N value, N lower, N upper, double unit, T*) {
    constexpr unsigned less = 0x0002;
    constexpr unsigned greater = 0x0004;
    constexpr double unknown = 0.5;
    if (upper.IsNullValue()) return 0;
    const bool nullValue = value.IsNullValue() != 0;
    if (nullValue || lower.IsNullValue()) {
        const bool above = (op & greater) != 0;
        const bool below = (op & less) != 0 && !nullValue;
        return (above ? unknown : 0) + (below ? unknown : 0);
    }
    const double number = ky::OnKeyAxis<T>(value.Get());
    return CalcRange(op, number, number, ky::OnKeyAxis<T>(lower.Get()), ky::OnKeyAxis<T>(upper.Get()), unit);
}

#endif
