#include <bit>
#include <charconv>
#include <cstring>

#include "number_text.h"
#include "number_text_digits.h"
#include "number_text_powers.h"

namespace ky {

namespace {

constexpr int kDigits = 17;
constexpr std::uint64_t kTenToThe16 = 10'000'000'000'000'000;
constexpr std::uint64_t kTenToThe17 = 10 * kTenToThe16;

constexpr int kMantissaBits = 52;
constexpr int kExponentBias = 1023;
constexpr std::uint64_t kMantissaMask = (std::uint64_t{1} << kMantissaBits) - 1;

/// A positive number as mantissa * 2^(exponent - 63), the top bit of the mantissa set.
struct Binary {
    std::uint64_t mantissa;
    int exponent;
};

Binary BinaryOf(std::uint64_t bits) {
    const std::uint64_t fraction = bits & kMantissaMask;
    const int exponent = static_cast<int>(bits >> kMantissaBits);
    if (exponent != 0) return {std::uint64_t{1} << 63 | fraction << 11, exponent - kExponentBias};
    const int shift = std::countl_zero(fraction);
    return {fraction << shift, 63 - shift - (kExponentBias - 1) - kMantissaBits};
}

/// floor(log10) of a number, or one less: log2 is taken as a straight line between two powers of two, never above
/// the curve, and 1292913986 / 2^32 is log10(2), rounded such that the result never is too large either.
int EstimateLog10(const Binary& number) {
    const std::int64_t log2 =
        std::int64_t{number.exponent} * (1 << 20) + static_cast<std::int64_t>(number.mantissa >> 43 & ((1 << 20) - 1));
    return static_cast<int>(log2 * (1292913986 + (log2 < 0)) >> 52);
}

/// digits * 10^(exponent - 16), 10^16 <= digits < 10^17.
struct Decimal {
    std::uint64_t digits;
    int exponent;
};

/// Rounds a number to 17 digits, halves to even; false where the product's bits do not decide.
bool ToDecimal(const Binary& number, Decimal& decimal) {
    decimal.exponent = EstimateLog10(number);
    for (;; ++decimal.exponent) {
        const int power = kDigits - 1 - decimal.exponent;
        const Product product = MultiplyByPower(number.mantissa, power);
        // The binary points of mantissa and power are 63 and 127 bits from the right; of the product's 192 bits the
        // lower 128 are below `high`.
        const int shift = 63 + 127 - 128 - number.exponent - PowerExponent(power);
        if (product.high >> shift >= kTenToThe17) continue;
        if (!Round(product, shift, IsExactPower(power), decimal.digits)) return false;
        if (decimal.digits == kTenToThe17) {
            decimal.digits = kTenToThe16;
            ++decimal.exponent;
        }
        return true;
    }
}

/// The 17 digits, readable a full block beyond the last.
struct DigitText {
    char text[48];
    unsigned significant;  ///< without the trailing zeros

    explicit DigitText(std::uint64_t digits) {
        const std::uint64_t rest = digits % kTenToThe16;
        const std::uint64_t upper = EightDigits(static_cast<std::uint32_t>(rest / 100'000'000));
        const std::uint64_t lower = EightDigits(static_cast<std::uint32_t>(rest % 100'000'000));
        text[0] = static_cast<char>('0' + digits / kTenToThe16);
        StoreEight(upper | kEightZeros, text + 1);
        StoreEight(lower | kEightZeros, text + 9);
        std::memset(text + kDigits, 0, sizeof text - kDigits);
        const unsigned zeroBytes =
            static_cast<unsigned>(lower != 0 ? std::countl_zero(lower) : 64 + std::countl_zero(upper | 0xF)) / 8;
        significant = kDigits - zeroBytes - (upper == 0 && lower == 0 ? 1 : 0);
    }
};

/// As "%.17g" does: plain notation for exponents from -4 to 16, else a point behind the first digit and an exponent.
unsigned Write(const Decimal& decimal, char* out) {
    const DigitText digits(decimal.digits);
    const int exponent = decimal.exponent;
    char* const start = out;
    if (exponent >= 0 && exponent < kDigits) {
        const auto whole = static_cast<unsigned>(exponent) + 1;
        std::memcpy(out, digits.text, kDigits);
        if (digits.significant <= whole) return whole;
        out[whole] = '.';
        std::memcpy(out + whole + 1, digits.text + whole, kDigits);
        return digits.significant + 1;
    }
    if (exponent < 0 && exponent >= -4) {
        std::memcpy(out, "0.000", 5);
        out += 1 - exponent;
        std::memcpy(out, digits.text, kDigits);
        return static_cast<unsigned>(1 - exponent) + digits.significant;
    }
    out[0] = digits.text[0];
    out[1] = '.';
    std::memcpy(out + 2, digits.text + 1, kDigits - 1);
    out += digits.significant == 1 ? 1 : digits.significant + 1;
    *out++ = 'e';
    *out++ = exponent < 0 ? '-' : '+';
    const auto size = static_cast<unsigned>(exponent < 0 ? -exponent : exponent);
    *out = static_cast<char>('0' + size / 100);
    out += size >= 100 ? 1 : 0;
    *out++ = static_cast<char>('0' + size / 10 % 10);
    *out++ = static_cast<char>('0' + size % 10);
    return static_cast<unsigned>(out - start);
}

unsigned Word(const char* word, char* out) {
    const std::size_t length = std::strlen(word);
    std::memcpy(out, word, length + 1);
    return static_cast<unsigned>(length);
}

}  // namespace

unsigned DoubleText(double value, char* out) {
    constexpr std::uint64_t kInfinity = 0x7FF0000000000000;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const std::uint64_t magnitude = bits & ~(std::uint64_t{1} << 63);
    const unsigned sign = bits == magnitude ? 0 : 1;
    if (magnitude > kInfinity) return Word("NaN", out);
    if (magnitude == 0) return Word(sign != 0 ? "-0" : "+0", out);
    *out = '-';
    if (magnitude == kInfinity) return sign + Word("Infinity", out + sign);

    Decimal decimal;
    if (ToDecimal(BinaryOf(magnitude), decimal)) {
        const unsigned length = sign + Write(decimal, out + sign);
        out[length] = 0;
        return length;
    }
    char* end = std::to_chars(out, out + kDoubleTextSize - 1, value, std::chars_format::general, kDigits).ptr;
    *end = 0;
    return static_cast<unsigned>(end - out);
}

}  // namespace ky
