#ifndef KYNULL_H
#define KYNULL_H

/// The thirteen number types that can be null, and the comparison of values that can be null.

#include <cstddef>
#include <type_traits>

#include "kyexport.h"
#include "kyint64.h"

/// What is known of the order of two values before they are looked at. Null orders before every value.
enum KyNullCompareResult {
    KyBothNull = 0,     ///< equal
    KyFirstNull = 1,    ///< the first is null, the second is not
    KySecondNull = 2,   ///< the second is null, the first is not
    KyNeitherNull = 3,  ///< the values decide
};

/// For any type with `IsNullValue()`, non-zero for null.
template <class T>
constexpr KyNullCompareResult KyNullValueCompare(const T& a, const T& b) {
    if (a.IsNullValue()) return b.IsNullValue() ? KyBothNull : KyFirstNull;
    return b.IsNullValue() ? KySecondNull : KyNeitherNull;
}

/// A number that can be null: what the thirteen types below are made of.
///
/// Memory form: the number, one byte that is not 0 for null, padding of any content up to the number's alignment.
/// A null holds the number 0. Trivially copyable; reading is safe in any thread.
template <class Number>
class KyNullNumber {
public:
    using NumberType = Number;

    constexpr KyNullNumber() = default;  ///< null
    // Implicit, so that numbers are assigned and compared as they are. NOLINTBEGIN(google-explicit-constructor)
    constexpr KyNullNumber(Number value) : number(value), isNull(0) {}
    /// Where the number is a class of its own: from whatever it is made of.
    template <class Plain,
              class = std::enable_if_t<std::is_class<Number>::value && std::is_arithmetic<Plain>::value, Plain>>
    constexpr KyNullNumber(Plain value) : KyNullNumber(Number(value)) {}
    // NOLINTEND(google-explicit-constructor)

    /// The number; 0 for null.
    constexpr Number Get() const { return number; }

    /// The flag byte: 0, or for null any other number.
    constexpr int IsNullValue() const { return isNull; }
    /// Returns 0.
    constexpr int SetNullValue() {
        *this = KyNullNumber();
        return 0;
    }

    // Null equals null and is below every number; numbers compare as they do without null, so a NaN compares false.
    // The rows' Compare gives NaNs their place in the order.
    friend constexpr bool operator==(const KyNullNumber& a, const KyNullNumber& b) {
        const KyNullCompareResult nulls = KyNullValueCompare(a, b);
        return nulls == KyNeitherNull ? a.number == b.number : nulls == KyBothNull;
    }
    friend constexpr bool operator<(const KyNullNumber& a, const KyNullNumber& b) {
        const KyNullCompareResult nulls = KyNullValueCompare(a, b);
        return nulls == KyNeitherNull ? a.number < b.number : nulls == KyFirstNull;
    }
    friend constexpr bool operator!=(const KyNullNumber& a, const KyNullNumber& b) { return !(a == b); }
    friend constexpr bool operator>(const KyNullNumber& a, const KyNullNumber& b) { return b < a; }
    friend constexpr bool operator<=(const KyNullNumber& a, const KyNullNumber& b) { return a < b || a == b; }
    friend constexpr bool operator>=(const KyNullNumber& a, const KyNullNumber& b) { return b <= a; }

    /// Bytes before the flag byte.
    static constexpr std::size_t FlagOffset() { return offsetof(KyNullNumber, isNull); }

private:
    Number number{};
    unsigned char isNull = 1;
};

class KY_EXPORT KyNull_char : public KyNullNumber<signed char> {
public:
    using KyNullNumber::KyNullNumber;
};

class KY_EXPORT KyNull_uchar : public KyNullNumber<unsigned char> {
public:
    using KyNullNumber::KyNullNumber;
};

class KY_EXPORT KyNull_short : public KyNullNumber<short> {
public:
    using KyNullNumber::KyNullNumber;
};

class KY_EXPORT KyNull_ushort : public KyNullNumber<unsigned short> {
public:
    using KyNullNumber::KyNullNumber;
};

class KY_EXPORT KyNull_int : public KyNullNumber<int> {
public:
    using KyNullNumber::KyNullNumber;
};

class KY_EXPORT KyNull_unsigned : public KyNullNumber<unsigned int> {
public:
    using KyNullNumber::KyNullNumber;
};

/// 32 bits, like all that the schema calls long.
class KY_EXPORT KyNull_long : public KyNullNumber<int> {
public:
    using KyNullNumber::KyNullNumber;
};

/// 32 bits.
class KY_EXPORT KyNull_ulong : public KyNullNumber<unsigned int> {
public:
    using KyNullNumber::KyNullNumber;
};

class KY_EXPORT KyNull_float : public KyNullNumber<float> {
public:
    using KyNullNumber::KyNullNumber;
};

class KY_EXPORT KyNull_double : public KyNullNumber<double> {
public:
    using KyNullNumber::KyNullNumber;
};

class KY_EXPORT KyNull_KyInt64 : public KyNullNumber<KyInt64> {
public:
    using KyNullNumber::KyNullNumber;
};

class KY_EXPORT KyNull_8b : public KyNullNumber<long long> {
public:
    using KyNullNumber::KyNullNumber;
};

class KY_EXPORT KyNull_u8b : public KyNullNumber<unsigned long long> {
public:
    using KyNullNumber::KyNullNumber;
};

static_assert(sizeof(KyNull_char) == 2 && KyNull_char::FlagOffset() == 1, "memory form");
static_assert(sizeof(KyNull_uchar) == 2 && KyNull_uchar::FlagOffset() == 1, "memory form");
static_assert(sizeof(KyNull_short) == 4 && KyNull_short::FlagOffset() == 2, "memory form");
static_assert(sizeof(KyNull_ushort) == 4 && KyNull_ushort::FlagOffset() == 2, "memory form");
static_assert(sizeof(KyNull_int) == 8 && KyNull_int::FlagOffset() == 4, "memory form");
static_assert(sizeof(KyNull_unsigned) == 8 && KyNull_unsigned::FlagOffset() == 4, "memory form");
static_assert(sizeof(KyNull_long) == 8 && KyNull_long::FlagOffset() == 4, "memory form");
static_assert(sizeof(KyNull_ulong) == 8 && KyNull_ulong::FlagOffset() == 4, "memory form");
static_assert(sizeof(KyNull_float) == 8 && KyNull_float::FlagOffset() == 4, "memory form");
static_assert(sizeof(KyNull_double) == 16 && KyNull_double::FlagOffset() == 8, "memory form");
static_assert(sizeof(KyNull_KyInt64) == 12 && KyNull_KyInt64::FlagOffset() == 8, "memory form");
static_assert(sizeof(KyNull_8b) == 16 && KyNull_8b::FlagOffset() == 8, "memory form");
static_assert(sizeof(KyNull_u8b) == 16 && KyNull_u8b::FlagOffset() == 8, "memory form");

#endif
