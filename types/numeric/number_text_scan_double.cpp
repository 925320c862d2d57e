#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
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

/// A zero-terminated text that is read eight bytes at a time where its block allows it.
class Blocks {
public:
    /// All bytes of [text, limit) are readable; the terminator is the limit to how far it is read otherwise.
    Blocks(const char* text, const char* readable) : start(text), limit(readable) {}

    /// Reads digits from `at` on behind those of `number`, which wraps when there are too many.
    void Gather(const char*& at, std::uint64_t& number) const {
        constexpr std::uint64_t kPowers[] = {1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000};
        std::uint64_t digits = At(at) ^ kEightZeros;
        unsigned count;
        for (; (count = LeadingDigits(digits)) == 8; digits = At(at) ^ kEightZeros) {
            number = number * 100'000'000 + EightDigitsValue(digits);
            at += 8;
        }
        number = number * kPowers[count] + EightDigitsValue(FirstBytes(digits, count));
        at += count;
    }

private:
    const char* start;
    const char* limit;

    /// The first `count` bytes (0 to 7), behind zeros in the place of the others.
    static std::uint64_t FirstBytes(std::uint64_t bytes, unsigned count) {
        return count == 0 ? 0 : bytes << (64 - 8 * count);
    }

    /// Eight bytes from `at` on; those behind what may be read are 0.
    std::uint64_t At(const char* at) const {
        std::uint64_t bytes = 0;
        if (limit - at >= 8) {
            std::memcpy(&bytes, at, sizeof bytes);
        } else if (limit - start >= 8 && at < limit) {
            std::memcpy(&bytes, limit - 8, sizeof bytes);
            bytes >>= 8 * (8 - (limit - at));
        } else {
            for (unsigned i = 0; i < 8 && IsDigit(at[i]); ++i) {
                bytes |= std::uint64_t{static_cast<unsigned char>(at[i])} << (8 * i);
            }
        }
        return bytes;
    }
};

constexpr std::ptrdiff_t kMostDigits = 19;  // fit into 64 bits whatever they are

/// Gathers the digits of a number anew of which there are more than `kMostDigits`.
void TakeFirstDigits(Decimal& number, const char* limit) {
    std::ptrdiff_t count = 0;
    int step = 0;
    number.digits = 0;
    number.exponent = 0;
    for (const char* at = number.start; at != limit; ++at) {
        if (*at == '.') {
            step = -1;
        } else if (count == kMostDigits) {
            number.dropped = number.dropped || *at != '0';
            number.exponent += step + 1;
        } else {
            number.digits = number.digits * 10 + static_cast<std::uint64_t>(*at - '0');
            if (number.digits != 0) ++count;
            number.exponent += step;
        }
    }
}

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
    const Blocks blocks(text, limit);
    const char* at = text;
    for (; IsDigit(*at); ++at) number.digits = number.digits * 10 + static_cast<unsigned>(*at - '0');
    std::ptrdiff_t count = at - text;
    if (*at == '.') {
        const char* const point = at++;
        blocks.Gather(at, number.digits);
        number.exponent = point + 1 - at;
        count = at - text - 1;
    }
    if (count > kMostDigits) TakeFirstDigits(number, at);
    number.any = count != 0;
    TakeExponent(at, number);
    number.end = at;
    return number;
}

/// The double nearest to digits * 10^exponent; false where the product's bits do not decide or the result is not a
/// normal number.
bool Nearest(std::uint64_t digits, int exponent, double& value) {
    const int zeros = std::countl_zero(digits);
    const Product product = MultiplyByPower(digits << zeros, exponent);
    const int top = static_cast<int>(product.high >> 63) + 62;  // the highest bit that is set
    // The binary points of digits and power are `zeros` and 127 bits from the right, the product's lower 128 bits
    // are below `high`.
    const int binary = top + 128 - zeros - 127 + PowerExponent(exponent);
    if (binary <= -kExponentBias || binary > kExponentBias) return false;

    const int shift = top - kMantissaBits;
    std::uint64_t mantissa;
    if (!Round(product, shift, IsExactPower(exponent), mantissa)) return false;
    // The mantissa's leading bit adds 1 to the exponent field, and so does a carry out of the mantissa.
    const auto field = static_cast<std::uint64_t>(binary + kExponentBias - 1) << kMantissaBits;
    value = std::bit_cast<double>(field + mantissa);
    return true;
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
    if (number.digits == 0) return 0;
    if (number.exponent == 0 && !number.dropped) return static_cast<double>(number.digits);
    if (number.exponent < kFirstPower || number.exponent > kLastPower) return ExactValue(number);
    const int exponent = static_cast<int>(number.exponent);
    double value;
    if (!Nearest(number.digits, exponent, value)) return ExactValue(number);
    if (number.dropped) {
        double next;
        if (!Nearest(number.digits + 1, exponent, next) || next != value) return ExactValue(number);
    }
    return value;
}

}  // namespace

double ScanDoubleText(ScanSource source) {
    const char* text = source.text;
    while (IsSpace(*text)) ++text;
    const bool negative = *text == '-';
    const Decimal number = TakeDecimal(text + (*text == '-' || *text == '+' ? 1 : 0), source.limit);
    if (!number.any) return WordValue(text);
    const double value = ValueOf(number);
    return negative ? -value : value;
}

}  // namespace ky
