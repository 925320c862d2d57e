/// Printer and scanner against slow ones, over generated values, formats and texts.

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "date_texts.h"
#include "lent_text.h"
#include "oracle/slow_date_text.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"

namespace {

using Parts = ky::DateTimeParts;
using Random = std::mt19937;

template <std::size_t count>
const char* OneOf(Random& random, const char* const (&choices)[count]) {
    return choices[random() % count];
}

const char* const kWholeFormats[] = {
    "%Y-%m-%d",
    "%H:%M:%S",
    "%Y-%m-%dT%H:%M:%S",
    "%Y-%m-%dT%H:%M:%f",
    "%J.%H:%M:%f",
    "%D",
    "%T",
    "%O",
    "%X",
    "%V",
    "%J",
    "%a %e.%b %Y",
    "%I:%M:%S %p",
    "%a %e.%b %Y %I:%M:%S %p",
    "%a %b %e",
    "%a %b %e %I:%M:%S %p",
    "%Y-%m-%d %H:%M:%S",
    "%Y-%m-%d.%H:%M:%f",
    "%a %b %eT%H:%M:%f",
    "%e days, %I hours, %M minutes, %S seconds",
};

const char* const kItems[] = {
    "%%",  "%a",  "%A",   "%b",   "%B",   "%d",   "%D",   "%e",   "%f",  "%H",  "%I",       "%J",   "%m",  "%M",
    "%N",  "%O",  "%p",   "%P",   "%S",   "%T",   "%V",   "%X",   "%y",  "%Y",  "%q",       "%(",   "%)",  "%?",
    "%*",  "%?Y", "%?m",  "%?d",  "%?H",  "%?M",  "%?S",  "%?N",  "%?f", "%?J", "%?p",      "%?b",  "%?a", "%?y",
    "%?I", "%?D", "%?(Y", "%?(J", "%?(d", "%?(H", "%?(S", "%?(X", ")",   ")",   ")",        " ",    "-",   ".",
    ":",   "T",   "x",    "(",    "5",    "0",    "*",    "%?(",  "\t",  "p",   "\xC3\xA4", "days", "?",   "%?%",
};

std::string AnyFormat(Random& random) {
    if (random() % 3 == 0) return OneOf(random, kWholeFormats);
    std::string format;
    for (auto i = random() % 9; i != 0; --i) format += OneOf(random, kItems);
    if (random() % 30 == 0) format += '%';
    return format;
}

int AnyPart(Random& random, int usual) {
    switch (random() % 12) {
        case 0:
            return -1;
        case 1:
            return static_cast<int>(random() % 256) - 128;
        case 2:
        case 3:
            return 0;
        default:
            return static_cast<int>(random() % static_cast<unsigned>(usual));
    }
}

int AnyNanoseconds(Random& random) {
    switch (random() % 8) {
        case 0:
            return -1;
        case 1:
            return static_cast<int>(random());
        case 2:
        case 3:
            return 0;
        case 4:
            return static_cast<int>(random() % 1000) * 1'000'000;
        case 5:
            return static_cast<int>(random() % 1'000'000) * 1000;
        default:
            return static_cast<int>(random() % 1'000'000'000);
    }
}

Parts AnyParts(Random& random) {
    Parts parts{AnyPart(random, 3000), AnyPart(random, 13), AnyPart(random, 32),   AnyPart(random, 24),
                AnyPart(random, 60),   AnyPart(random, 60), AnyNanoseconds(random)};
    if (random() % 8 == 0) parts.year = static_cast<short>(random());
    return parts;
}

int KyDateWeekday(const Parts& parts) {
    return KyDate(static_cast<short>(parts.year), static_cast<signed char>(parts.month),
                  static_cast<signed char>(parts.day))
        .GetDayOfTheDate();
}

TEST(DateTextTwins, PrintAlike) {
    Random random(1);
    for (int round = 0; round < 400000 / kFewerCases; ++round) {
        const std::string format = AnyFormat(random);
        const Parts parts = AnyParts(random);
        const bool wildcards = random() % 4 != 0;
        const bool clockHours = random() % 8 != 0;
        const std::string slow = SlowDatePrinter(parts, wildcards, clockHours, KyDateWeekday(parts)).Print(format);
        const ky::DatePrintRules rules = {ky::kKyDatePrint.weekday, wildcards, clockHours};
        ASSERT_EQ(Printed(parts, format.c_str(), rules), slow)
            << format << ' ' << testing::PrintToString(parts) << (wildcards ? " *" : "") << (clockHours ? " 12" : "");
    }
}

/// Parts of any size, without weekdays, which have narrower ones.
TEST(DateTextTwins, PrintPartsOfAnySizeAlike) {
    Random random(2);
    const char* const items[] = {"%Y", "%y", "%m", "%b", "%B", "%d", "%e", "%H", "%I", "%M",  "%S",  "%N",
                                 "%f", "%J", "%p", "%X", "%V", "%O", ":",  " ",  "%%", "%?J", "%?f", "%?(H"};
    const auto anySize = [&random] { return static_cast<int>(random()) >> (random() % 32); };
    for (int round = 0; round < 200000 / kFewerCases; ++round) {
        std::string format;
        for (auto i = random() % 6; i != 0; --i) format += OneOf(random, items);
        const Parts parts{anySize(), anySize(), anySize(), anySize(), anySize(), anySize(), anySize()};
        const bool wildcards = random() % 2 != 0;
        const ky::DatePrintRules rules = {ky::kKyDatePrint.weekday, wildcards};
        ASSERT_EQ(Printed(parts, format.c_str(), rules), SlowDatePrinter(parts, wildcards, true, 0).Print(format))
            << format << ' ' << testing::PrintToString(parts);
    }
}

/// What scanning gives by the slow twin, null texts aside.
void ExpectAlike(const std::string& text, const std::string& format, const Scan& scan) {
    SlowDateScanner slow(text);
    const bool isWhole = slow.Scan(format);
    ASSERT_EQ(scan.parts, slow.parts) << '"' << text << "\" by \"" << format << '"';
    ASSERT_EQ(scan.result, isWhole ? ky::DateScan::whole : ky::DateScan::cut)
        << '"' << text << "\" by \"" << format << '"';
}
void ExpectAlike(const std::string& text, const std::string& format) {
    ExpectAlike(text, format, Scan(text.c_str(), format.c_str()));
}

/// A text with a few of its bytes exchanged, lost or added.
std::string Changed(Random& random, std::string text) {
    const char* const pieces[] = {"0", "1", "9", "-", "+", "*", ".", ":", " ", "\t", "T", "a", "p", "M", "(", "\xE4"};
    for (auto i = random() % 3; i != 0; --i) {
        const std::size_t at = random() % (text.size() + 1);
        const std::size_t lost = random() % 2;
        text.replace(at, std::min(lost, text.size() - at), random() % 3 == 0 ? "" : OneOf(random, pieces));
    }
    return text;
}

std::string AnyText(Random& random) {
    const char* const pieces[] = {"2024",
                                  "05",
                                  "7",
                                  "-",
                                  "+",
                                  "*",
                                  ".",
                                  ":",
                                  " ",
                                  "T",
                                  "May",
                                  "Januar",
                                  "Tue",
                                  "Wednesday",
                                  "am",
                                  "PM",
                                  "x",
                                  "0.5",
                                  "1e2",
                                  "%",
                                  "\n",
                                  "123456789012345678901234",
                                  "\x80\xFF",
                                  "Sept",
                                  ")",
                                  "(",
                                  "999999999999",
                                  "-0",
                                  "00000000000000000001.5"};
    std::string text;
    for (auto i = random() % 8; i != 0; --i) text += OneOf(random, pieces);
    return text;
}

TEST(DateTextTwins, ScanPrintedTextsAlike) {
    Random random(3);
    for (int round = 0; round < 400000 / kFewerCases; ++round) {
        const std::string format = AnyFormat(random);
        const std::string text = Printed(AnyParts(random), format.c_str());
        ExpectAlike(Changed(random, text), format);
        if (HasFatalFailure()) return;
    }
}

TEST(DateTextTwins, ScanAnyTextsAlike) {
    Random random(4);
    for (int round = 0; round < 300000 / kFewerCases; ++round) {
        ExpectAlike(AnyText(random), AnyFormat(random));
        if (HasFatalFailure()) return;
    }
}

TEST(DateTextTwins, ScanTextsOfAnyBytesAlike) {
    Random random(5);
    for (int round = 0; round < 100000 / kFewerCases; ++round) {
        std::string text;
        for (auto i = random() % 16; i != 0; --i) text += static_cast<char>(random() % 255 + 1);
        if (text.starts_with("{NULL}")) continue;
        ExpectAlike(text, AnyFormat(random));
        if (HasFatalFailure()) return;
    }
}

TEST(DateTextTwins, ScanTextsCutAtEveryByteAlikeAndNothingBehindThem) {
    Random random(6);
    GuardedBuffer area(256);
    for (int round = 0; round < 200; ++round) {
        for (const char* format : kWholeFormats) {
            const std::string text = Printed(AnyParts(random), format);
            for (std::size_t length = 0; length <= text.size(); ++length) {
                const std::string cut = text.substr(0, length);
                auto* const atTheEnd = reinterpret_cast<char*>(area.data() + area.size() - length - 1);
                std::memcpy(atTheEnd, cut.c_str(), length + 1);
                ky::LentText lent(static_cast<const char*>(atTheEnd));
                ExpectAlike(cut, format, Scan(*lent, format));
                if (HasFatalFailure()) return;
            }
        }
    }
}

TEST(DateTextTwins, ScanAnyByteAsAHalfOfTheDayAlike) {
    for (const char* hour : {"00", "01", "11", "12", "13", "23", "24", "99"}) {
        for (int byte = 1; byte < 256; ++byte) {
            for (const char* between : {" ", "", "\t \n"}) {
                const std::string time = std::string(hour) + ":04:09" + between + static_cast<char>(byte) + "m";
                ExpectAlike(time, "%I:%M:%S %p");
                ExpectAlike(time, "%H:%M:%S");
                ExpectAlike("2024-05-07T" + time, "%Y-%m-%dT%I:%M:%S %p");
                if (HasFatalFailure()) return;
            }
        }
    }
}

/// A value that is the calendar's comes back from what it was printed as, if the format shows all of it.
TEST(DateText, PrintedTextsAreReadBack) {
    struct {
        const char* format;
        bool date, time, fraction;
    } const formats[] = {
        {"%Y-%m-%d", true, false, false},
        {"%D", true, false, false},
        {"%a %e.%b %Y", true, false, false},
        {"%A, %B %d. %Y", true, false, false},
        {"%H:%M:%S", false, true, false},
        {"%I:%M:%S %p", false, true, false},
        {"%P %I %M %S", false, true, false},
        {"%O", true, true, false},
        {"%a %e.%b %Y %I:%M:%S %p", true, true, false},
        {"%O.%N", true, true, true},
        {"%?(Y-)%?(m-)%d %H:%M:%S %N", true, true, true},
    };
    Random random(7);
    for (int round = 0; round < 100000 / kFewerCases; ++round) {
        for (const auto& f : formats) {
            Parts parts{};
            if (f.date) {
                const KyDate date(2451545 + static_cast<int>(random() % 2'000'000) - 500'000);
                parts.year = date.year;
                parts.month = date.month;
                parts.day = date.day;
                if (parts.year < 1) continue;
            }
            if (f.time) {
                parts.hour = static_cast<int>(random() % 24);
                parts.minute = static_cast<int>(random() % 60);
                parts.second = static_cast<int>(random() % 60);
            }
            if (f.fraction) parts.nanoseconds = static_cast<int>(random() % 1'000'000'000);
            const std::string text = Printed(parts, f.format);
            const Scan scan(text.c_str(), f.format);
            ASSERT_EQ(scan.result, ky::DateScan::whole) << text;
            ASSERT_EQ(scan.parts, parts) << text;
        }
    }
}

/// Whole microseconds come back from a fraction, or one nanosecond less.
TEST(DateText, FractionsComeBackWithinANanosecond) {
    Random random(8);
    for (int round = 0; round < 100000 / kFewerCases; ++round) {
        const Parts parts{.second = static_cast<int>(random() % 60),
                          .nanoseconds = static_cast<int>(random() % 1'000'000'000)};
        const Scan scan(Printed(parts, "%f").c_str(), "%f");
        const auto total = [](const Parts& p) { return p.second * 1'000'000'000LL + p.nanoseconds; };
        const long long less = total(parts) - total(scan.parts);
        ASSERT_TRUE(less == 0 || less == 1) << less << ' ' << Printed(parts, "%f");
    }
}

TEST(DateText, WildcardsComeBack) {
    for (unsigned wild = 0; wild < 64; ++wild) {
        const auto part = [wild](unsigned bit, int value) { return (wild >> bit & 1) != 0 ? -1 : value; };
        const Parts parts{part(0, 2024), part(1, 5), part(2, 7), part(3, 15), part(4, 4), part(5, 9), 0};
        EXPECT_EQ(Scan(Printed(parts, "%O").c_str(), "%O").parts, parts);
    }
}

}  // namespace
