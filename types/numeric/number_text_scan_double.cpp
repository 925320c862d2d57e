#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <system_error>

#include "number_format.h"
#include "number_text.h"
#include "number_text_digits.h"
#include "number_text_powers.h"

namespace ky {

namespace {

constexpr std::uint64_t kNanBits = 0xFFF8000000000000;
constexpr int kMantissaBits = 52;
constexpr int kExponentBias = 1023;

/// Whether `text` is `word` (given in lower case) in any mix of cases.
bool IsWord(const char* text, const char* word) {
    for (; *word != 0; ++text, ++word) {
        const char lower = *text >= 'A' && *text <= 'Z' ? static_cast<char>(*text - 'A' + 'a') : *text;
        if (lower != *word) return false;
    }
    return *text == 0;
}

double WordValue(const char* text) {
    if (IsWord(text, "infinity")) return std::numeric_limits<double>::infinity();
    if (IsWord(text, "-infinity")) return -std::numeric_limits<double>::infinity();
    if (IsWord(text, "nan")) return std::bit_cast<double>(kNanBits);
    return 0;
}

/// A decimal number without its sign, taken apart: digits * 10^exponent, plus less than one unit of the last
/// digit where digits were dropped. Its text is [start, end).
struct Decimal {
    const char* start;
    const char* end;
    std::uint64_t digits = 0;
    long long exponent = 0;
    bool any = false;  ///< there was a digit
    bool dropped = false;
};

/// Reads digits into a `Decimal`.
class DigitReader {
public:
    DigitReader(Decimal& target, const char* readable) : number(target), limit(readable) {}

    /// Reads the digits at `at`; `step` is what each of them adds to the exponent.
    void Read(const char*& at, int step) {
        while (count + 8 <= kMost && limit - at >= 8 && Block(at)) number.exponent += 8 * step;
        for (; IsDigit(*at); ++at) Add(static_cast<unsigned>(*at - '0'), step);
    }

private:
    static constexpr int kMost = 19;  // digits that 64 bits hold whatever they are

    Decimal& number;
    const char* limit;
    int count = 0;  ///< digits held, without leading zeros

    void Add(unsigned digit, int step) {
        number.any = true;
        if (count == kMost) {
            number.dropped = number.dropped || digit != 0;
            number.exponent += 1 + step;
            return;
        }
        number.digits = number.digits * 10 + digit;
        if (number.digits != 0) ++count;
        number.exponent += step;
    }

    /// Eight digits at once; false, and nothing read, where there are fewer.
    bool Block(const char*& at) {
        std::uint64_t bytes;
        std::memcpy(&bytes, at, sizeof bytes);
        if (!AreEightDigits(bytes)) return false;
        const std::uint32_t value = EightDigitsValue(bytes);
        number.any = true;
        number.digits = number.digits * 100'000'000 + value;
        if (number.digits != 0) count += 8;
        at += 8;
        return true;
    }
};

/// Reads an exponent, if one stands at `at`; it is limited to what no text can shift back into range.
void TakeExponent(const char*& at, Decimal& number) {
    constexpr long long kFar = 1'000'000'000'000;
    if (*at != 'e' && *at != 'E') return;
    const char* digit = at + 1;
    const bool negative = *digit == '-';
    if (*digit == '-' || *digit == '+') ++digit;
    if (!IsDigit(*digit)) return;
    long long amount = 0;
    for (; IsDigit(*digit); ++digit) {
        if (amount < kFar) amount = amount * 10 + (*digit - '0');
    }
    number.exponent += negative ? -amount : amount;
    at = digit;
}

Decimal TakeDecimal(const char* text, const char* limit) {
    Decimal number{text, text};
    DigitReader reader(number, limit);
    const char* at = text;
    reader.Read(at, 0);
    if (*at == '.') {
        ++at;
        reader.Read(at, -1);
    }
    TakeExponent(at, number);
    number.end = at;
    return number;
}

/// The double nearest to digits * 10^exponent; nothing where the product's bits do not decide or the result
/// is not a normal number.
std::optional<double> Nearest(std::uint64_t digits, int exponent) {
    const int zeros = std::countl_zero(digits);
    const Product product = MultiplyByPower(digits << zeros, exponent);
    const int top = 127 - std::countl_zero(static_cast<std::uint64_t>(product.bits >> 64));
    const int binary = top + 64 - zeros + PowerExponent(exponent) - 127;
    if (binary <= -kExponentBias || binary > kExponentBias) return std::nullopt;

    const int shift = top - kMantissaBits;
    const Rounding rounding = RoundingOf(product, shift, IsExactPower(exponent));
    if (rounding == Rounding::Unknown) return std::nullopt;
    // The mantissa's leading bit adds 1 to the exponent field, and so does a carry out of the mantissa.
    const auto mantissa = static_cast<std::uint64_t>(product.bits >> shift) + (rounding == Rounding::Up ? 1 : 0);
    const auto field = static_cast<std::uint64_t>(binary + kExponentBias - 1) << kMantissaBits;
    return std::bit_cast<double>(field + mantissa);
}

/// By an exact routine, whatever the number is.
double ExactValue(const Decimal& number) {
    double value = 0;
    if (std::from_chars(number.start, number.end, value).ec == std::errc::result_out_of_range) {
        return number.exponent > 0 ? std::numeric_limits<double>::infinity() : 0;
    }
    return value;
}

double ValueOf(const Decimal& number) {
    constexpr std::uint64_t kExactIntegers = std::uint64_t{1} << (kMantissaBits + 1);
    constexpr double kExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                       1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr int kLargest = static_cast<int>(std::size(kExactPowers)) - 1;

    if (number.digits == 0) return 0;
    if (number.exponent < kFirstPower || number.exponent > kLastPower) return ExactValue(number);
    const int exponent = static_cast<int>(number.exponent);
    // Both operands are exact, and one operation rounds once.
    if (!number.dropped && number.digits <= kExactIntegers && exponent >= -kLargest && exponent <= kLargest) {
        const auto digits = static_cast<double>(number.digits);
        return exponent < 0 ? digits / kExactPowers[-exponent] : digits * kExactPowers[exponent];
    }
    const std::optional<double> value = Nearest(number.digits, exponent);
    if (!value || (number.dropped && Nearest(number.digits + 1, exponent) != value)) return ExactValue(number);
    return *value;
}

}  // namespace

double ScanDoubleText(const char* text, const char* limit) {
    while (IsSpace(*text)) ++text;
    const bool negative = *text == '-';
    const Decimal number = TakeDecimal(text + (*text == '-' || *text == '+' ? 1 : 0), limit);
    if (!number.any) return WordValue(text);
    const double value = ValueOf(number);
    return negative ? -value : value;
}

double ScanDoubleText(const char* text) { return ScanDoubleText(text, text); }

}  // namespace ky
