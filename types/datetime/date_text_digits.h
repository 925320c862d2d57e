#ifndef DATE_TEXT_DIGITS_H
#define DATE_TEXT_DIGITS_H

/// Numbers as dates show them. Each function writes at `at` and returns where its text ends.

#include <array>
#include <cstring>

#include "number_text_digits.h"

namespace ky {

inline constexpr auto kTwoDigits = [] {
    std::array<char, 200> digits{};
    for (std::size_t i = 0; i < 100; ++i) {
        digits[2 * i] = static_cast<char>('0' + i / 10);
        digits[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return digits;
}();

/// From 0 to 99.
inline char* PutTwo(char* at, int number) {
    std::memcpy(at, &kTwoDigits[static_cast<std::size_t>(number) * 2], 2);
    return at + 2;
}

/// From 0 to 9999.
inline char* PutFour(char* at, int number) { return PutTwo(PutTwo(at, number / 100), number % 100); }

/// Room that one number takes at the most, with what is written behind it on the way.
inline constexpr unsigned kDateNumberSize = 48;

/// At least `digits` digits behind the sign: "%0*.*d".
char* PutNumber(char* at, long long number, unsigned digits);

/// Digits of a fraction that show these nanoseconds: 0, 3, 6 or 9.
constexpr unsigned FractionDigits(int nanoseconds) {
    if (nanoseconds == 0) return 0;
    if (nanoseconds % 1'000 != 0) return 9;
    return nanoseconds % 1'000'000 != 0 ? 6 : 3;
}

/// The first `digits`, 3, 6 or 9, of the nine digits of nanoseconds below 10^9.
inline char* PutFraction(char* at, unsigned nanoseconds, unsigned digits) {
    const std::uint64_t first = EightDigits(nanoseconds / 10) | kEightZeros;
    if (digits == 3) {
        std::memcpy(at, &first, 3);
    } else if (digits == 6) {
        std::memcpy(at, &first, 6);
    } else {
        StoreEight(first, at);
        at[8] = static_cast<char>('0' + nanoseconds % 10);
    }
    return at + digits;
}

/// As "%0*.*f" prints the double second + nanoseconds / 1e9 with the width 2 or 3 more than there are digits.
char* PutSeconds(char* at, int second, int nanoseconds);

}  // namespace ky

#endif
