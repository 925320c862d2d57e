#ifndef KYINT64_H
#define KYINT64_H

/// `KyInt64`: a signed 64-bit integer of two 32-bit halves.

#include <cstring>

#include "kyexport.h"

class KyString;

/// A signed 64-bit integer that needs 4-byte alignment only. All arithmetic wraps modulo 2^64 and never traps.
///
/// Memory form: the low half, then the high half, each in machine byte order. Any thread may work on its own
/// objects; reading is safe in any thread.
class KY_EXPORT KyInt64 {
public:
    constexpr KyInt64() = default;  ///< 0
    constexpr KyInt64(unsigned int lowHalf, int highHalf) : low(lowHalf), high(highHalf) {}

    // Implicit, all of them: with them an assignment takes the same arguments. NOLINTBEGIN(google-explicit-constructor)
    constexpr KyInt64(int value) : KyInt64(static_cast<long long>(value)) {}
    constexpr KyInt64(unsigned int value) : KyInt64(static_cast<unsigned long long>(value)) {}
    constexpr KyInt64(long value) : KyInt64(static_cast<long long>(value)) {}
    constexpr KyInt64(unsigned long value) : KyInt64(static_cast<unsigned long long>(value)) {}
    constexpr KyInt64(long long value) : KyInt64(static_cast<unsigned long long>(value)) {}
    constexpr KyInt64(unsigned long long value);
    /// Truncated toward zero, exactly. A magnitude above 9223372036854774784.0 gives the largest positive value or
    /// its negation; NaN gives 0.
    constexpr KyInt64(double value);
    // NOLINTEND(google-explicit-constructor)

    constexpr unsigned long long GetU8b() const;
    constexpr long long Get8b() const { return static_cast<long long>(GetU8b()); }

    friend constexpr bool operator==(const KyInt64& a, const KyInt64& b) { return a.Get8b() == b.Get8b(); }
    friend constexpr bool operator!=(const KyInt64& a, const KyInt64& b) { return a.Get8b() != b.Get8b(); }
    friend constexpr bool operator<(const KyInt64& a, const KyInt64& b) { return a.Get8b() < b.Get8b(); }
    friend constexpr bool operator>(const KyInt64& a, const KyInt64& b) { return a.Get8b() > b.Get8b(); }
    friend constexpr bool operator<=(const KyInt64& a, const KyInt64& b) { return a.Get8b() <= b.Get8b(); }
    friend constexpr bool operator>=(const KyInt64& a, const KyInt64& b) { return a.Get8b() >= b.Get8b(); }

    friend constexpr KyInt64 operator+(const KyInt64& a, const KyInt64& b) { return a.GetU8b() + b.GetU8b(); }
    friend constexpr KyInt64 operator-(const KyInt64& a, const KyInt64& b) { return a.GetU8b() - b.GetU8b(); }
    friend constexpr KyInt64 operator*(const KyInt64& a, const KyInt64& b) { return a.GetU8b() * b.GetU8b(); }
    friend constexpr KyInt64 operator/(const KyInt64& a, const KyInt64& b) { return a.Division(b, 0); }
    friend constexpr KyInt64 operator%(const KyInt64& a, const KyInt64& b) { return a.Division(b, 1); }
    friend constexpr KyInt64 operator&(const KyInt64& a, const KyInt64& b) { return a.GetU8b() & b.GetU8b(); }
    friend constexpr KyInt64 operator|(const KyInt64& a, const KyInt64& b) { return a.GetU8b() | b.GetU8b(); }
    /// By `n` bits: 0 or less does nothing, 64 or more shifts everything out.
    friend constexpr KyInt64 operator<<(const KyInt64& a, int n);
    /// The same to the right; the sign comes in from the left.
    friend constexpr KyInt64 operator>>(const KyInt64& a, int n);

    constexpr KyInt64 operator-() const { return 0 - GetU8b(); }
    constexpr KyInt64 operator~() const { return ~GetU8b(); }

    constexpr KyInt64& operator+=(const KyInt64& b) { return *this = *this + b; }
    constexpr KyInt64& operator-=(const KyInt64& b) { return *this = *this - b; }
    constexpr KyInt64& operator*=(const KyInt64& b) { return *this = *this * b; }
    constexpr KyInt64& operator/=(const KyInt64& b) { return *this = *this / b; }
    constexpr KyInt64& operator%=(const KyInt64& b) { return *this = *this % b; }
    constexpr KyInt64& operator<<=(int n) { return *this = *this << n; }
    constexpr KyInt64& operator>>=(int n) { return *this = *this >> n; }
    constexpr KyInt64& operator++() { return *this += 1; }
    constexpr KyInt64& operator--() { return *this -= 1; }

    /// The magnitude; the most negative value is its own.
    constexpr KyInt64 Abs() const { return *this > 0 ? *this : -*this; }

    /// The quotient, truncated toward zero, or (`wantRemainder` non-zero) the remainder, which has the dividend's
    /// sign. A zero divisor raises the assertion "KyInt64 divide by zero" and gives 0; the most negative value
    /// divided by -1 wraps to itself.
    /// KEPT: a most negative divisor gives quotient 0 and the dividend as remainder, also when the dividend is the
    /// most negative value itself; keys computed with it are stored.
    constexpr KyInt64 Division(const KyInt64& divisor, int wantRemainder) const;

    /// Replaces `out` by `format` with each "%" followed by S, d, i (decimal), o ("0" and octal digits), x or X
    /// ("0x" or "0X" and hexadecimal digits) replaced by the value; o, x and X show negative values as 64 bits in
    /// two's complement. Any other "%" stands for itself. A null format leaves `out` empty. Returns `out`.
    KyString& PrintToKyString(KyString& out, const char* format) const;

    /// Reads `text` along `format`. A conversion as above takes an optional "-", for x and X an optional "0x" or
    /// "0X", and the digits that follow, wrapping modulo 2^64; without a digit the value is 0. Any other character
    /// takes one equal character of the text; reading stops where they differ. Without a conversion, or with a null
    /// format, the value stays as it is.
    void ScanFromKyString(const KyString& text, const char* format);

private:
    unsigned int low = 0;
    int high = 0;

    static constexpr long long kLeast = -0x7FFFFFFFFFFFFFFF - 1;
    static void DivideByZero();
};

// The halves of an object lie in memory as those of a native number do: one load or store serves both.
static_assert(sizeof(KyInt64) == 8 && alignof(KyInt64) == 4,
              "the size word of the row and the nullable type's 12 bytes");
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__);

// Read and written as bytes: what goes through the halves is compiled to 32-bit moves, which keeps loops from
// being vectorised. The halves serve constant expressions.
constexpr KyInt64::KyInt64(unsigned long long value)
    : low(static_cast<unsigned int>(value)), high(static_cast<int>(static_cast<unsigned int>(value >> 32))) {
    if (!__builtin_is_constant_evaluated()) std::memcpy(static_cast<void*>(this), &value, sizeof value);
}

constexpr unsigned long long KyInt64::GetU8b() const {
    if (__builtin_is_constant_evaluated()) {
        return static_cast<unsigned long long>(static_cast<unsigned int>(high)) << 32 | low;
    }
    unsigned long long value = 0;
    std::memcpy(&value, this, sizeof value);
    return value;
}

constexpr KyInt64::KyInt64(double value) {
    constexpr double limit = 9223372036854774784.0;  // the largest double below 2^63
    constexpr long long largest = 0x7FFFFFFFFFFFFFFF;
    if (value > limit) {
        *this = largest;
    } else if (value < -limit) {
        *this = -largest;
    } else if (value == value) {
        *this = static_cast<long long>(value);
    }
}

constexpr KyInt64 operator<<(const KyInt64& a, int n) {
    if (n <= 0) return a;
    return n < 64 ? a.GetU8b() << n : 0;
}

constexpr KyInt64 operator>>(const KyInt64& a, int n) {
    if (n <= 0) return a;
    return a.Get8b() >> (n < 64 ? n : 63);
}

constexpr KyInt64 KyInt64::Division(const KyInt64& divisor, int wantRemainder) const {
    const long long a = Get8b();
    const long long b = divisor.Get8b();
    if (b == 0) {
        DivideByZero();
        return 0;
    }
    if (b == -1) return wantRemainder ? 0 : -*this;
    if (b == kLeast) return wantRemainder ? *this : 0;
    return wantRemainder ? a % b : a / b;
}

#endif
