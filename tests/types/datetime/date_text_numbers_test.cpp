/// The numbers in dates against the C library's.

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>

#include "date_text_digits.h"
#include "date_text_scan_values.h"
#include "oracle/slow_date_text.h"
#include "support/c_locale.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"

namespace {

using Random = std::mt19937_64;

std::string Seconds(int second, int nanoseconds) {
    char text[ky::kDateNumberSize];
    return {text, ky::PutSeconds(text, second, nanoseconds)};
}

std::string Number(long long number, unsigned digits) {
    char text[ky::kDateNumberSize];
    return {text, ky::PutNumber(text, number, digits)};
}

TEST(DateNumbers, SecondsOfAFieldPrintAsDoubles) {
    constexpr int kFractions[] = {0,          1,          -1,          999,        1000,       1001,      999999,
                                  1000000,    1000001,    -1000,       123456789,  250000000,  250000,    999999999,
                                  -999999999, 1000000000, -1000000000, INT_MAX,    INT_MIN,    500000000, 5,
                                  50,         1999999999, 2000000000,  2001000000, -2000000000};
    for (int second = SCHAR_MIN; second <= SCHAR_MAX; ++second) {
        for (const int nanoseconds : kFractions) {
            ASSERT_EQ(Seconds(second, nanoseconds), SlowSeconds(second, nanoseconds)) << second << ' ' << nanoseconds;
        }
    }
    Random random(1);
    for (int round = 0; round < 1000000 / kFewerCases; ++round) {
        const auto second = static_cast<signed char>(random());
        int nanoseconds = static_cast<int>(random());
        if (round % 4 == 1) nanoseconds -= nanoseconds % 1000;
        if (round % 4 == 2) nanoseconds -= nanoseconds % 1000000;
        if (round % 4 == 3) nanoseconds %= 1000000000;
        ASSERT_EQ(Seconds(second, nanoseconds), SlowSeconds(second, nanoseconds)) << int{second} << ' ' << nanoseconds;
    }
}

TEST(DateNumbers, SecondsOfAnySizePrintAsDoubles) {
    Random random(2);
    for (int round = 0; round < 500000 / kFewerCases; ++round) {
        int second = static_cast<int>(random()) >> random() % 32;
        if (round % 8 == 0) second = (1 << 22) - 2 + static_cast<int>(random() % 5);
        if (round % 8 == 1) second = -(1 << 22) - 2 + static_cast<int>(random() % 5);
        int nanoseconds = static_cast<int>(random()) >> random() % 32;
        if (round % 3 == 1) nanoseconds -= nanoseconds % 1000;
        if (round % 3 == 2) nanoseconds -= nanoseconds % 1000000;
        ASSERT_EQ(Seconds(second, nanoseconds), SlowSeconds(second, nanoseconds)) << second << ' ' << nanoseconds;
    }
    for (const int second : {INT_MIN, INT_MAX, INT_MIN + 1, -4194304, 4194304, 4194303, -4194303}) {
        for (const int nanoseconds : {0, 1, -1, INT_MIN, INT_MAX, 999999999, 1000, 1000000}) {
            EXPECT_EQ(Seconds(second, nanoseconds), SlowSeconds(second, nanoseconds)) << second << ' ' << nanoseconds;
        }
    }
}

TEST(DateNumbers, NumbersPrintAsTheLibraryPrintsThem) {
    Random random(3);
    for (int round = 0; round < 300000 / kFewerCases; ++round) {
        const int number = static_cast<int>(random()) >> random() % 32;
        ASSERT_EQ(Number(number, 1), Formatted("%d", number));
        ASSERT_EQ(Number(number, 2), Formatted("%02.2d", number));
        ASSERT_EQ(Number(number, 3), Formatted("%03.3d", number));
        ASSERT_EQ(Number(number, 4), Formatted("%04.4d", number));
    }
    EXPECT_EQ(Number(LLONG_MIN, 2), "-9223372036854775808");
    EXPECT_EQ(Number(LLONG_MAX, 2), "9223372036854775807");
    for (int number = -200; number <= 200; ++number) {
        EXPECT_EQ(Number(number, 2), Formatted("%02.2d", number));
    }
}

struct Seen {
    int second = 77;
    int nanoseconds = 78;
    std::size_t length = 0;
    friend bool operator==(const Seen&, const Seen&) = default;
};

Seen Fast(const std::string& text) {
    static GuardedBuffer buffer(64);
    const std::size_t size = text.size() + 1;  // the terminator is the last byte that can be read
    char* const start = reinterpret_cast<char*>(buffer.data()) + buffer.size() - size;
    std::memcpy(start, text.c_str(), size);
    const char* at = start;
    Seen seen;
    ky::TakeSeconds(at, start + size, seen.second, seen.nanoseconds);
    seen.length = static_cast<std::size_t>(at - start);
    return seen;
}

/// By the formula that defines the fields, over the C library's double.
Seen Slow(const std::string& text) {
    Seen seen;
    const std::size_t sign = text[0] == '-' || text[0] == '+' ? 1 : 0;
    const std::size_t digit = text[sign] == '.' ? sign + 1 : sign;
    if (text[digit] >= '0' && text[digit] <= '9') {
        const CLocale plain;
        const double number = std::strtod(text.c_str(), nullptr);
        seen.second = static_cast<int>(std::clamp<double>(number, INT_MIN, INT_MAX));
        const double scaled = number * 1e9;
        const long long whole = scaled >= 0x1p63    ? LLONG_MAX
                                : scaled <= -0x1p63 ? LLONG_MIN
                                                    : static_cast<long long>(scaled);
        seen.nanoseconds = static_cast<int>(whole % 1000000000);
    }
    seen.length = std::min(text.find_first_not_of("0123456789.-+"), text.size());
    return seen;
}

void PrintTo(const Seen& seen, std::ostream* out) {
    *out << seen.second << " s " << seen.nanoseconds << " ns, " << seen.length << " characters";
}

TEST(DateNumbers, FractionsAreReadByTheFormula) {
    Random random(4);
    for (int round = 0; round < 1000000 / kFewerCases; ++round) {
        const auto digits = [&random](unsigned most) {
            std::string text;
            for (auto i = random() % (most + 1); i != 0; --i) text += static_cast<char>('0' + random() % 10);
            return text;
        };
        const bool isLong = random() % 8 == 0;
        std::string text(random() % 4 == 0 ? "-" : random() % 8 == 0 ? "+" : "");
        text += digits(isLong ? 25 : 2);
        if (random() % 8 != 0) text.append(1, '.').append(digits(isLong ? 25 : 12));
        if (random() % 16 == 0) text.append("e").append(std::to_string(static_cast<int>(random() % 40) - 20));
        ASSERT_EQ(Fast(text), Slow(text)) << text;
    }
}

/// The shortest forms, and all of nine digits that a step apart meets.
TEST(DateNumbers, NineDigitsAreReadByTheFormula) {
    for (unsigned nanoseconds = 0; nanoseconds < 1'000'000'000; nanoseconds += 9973U * kFewerCases) {
        for (const unsigned second : {0U, 7U, 59U}) {
            const std::string text = Formatted("%02u.%09u", second, nanoseconds);
            ASSERT_EQ(Fast(text), Slow(text)) << text;
        }
    }
}

TEST(DateNumbers, FifteenDigitsAreExact) {
    Random random(5);
    for (int round = 0; round < 300000 / kFewerCases; ++round) {
        std::string text = std::to_string(random() % 1'000'000'000'000'000ULL);
        text.insert(random() % (text.size() + 1), 1, '.');
        ASSERT_EQ(Fast(text), Slow(text)) << text;
    }
}

}  // namespace
