/// Comparison with patterns, which tells where a scan of an index begins.

#include <gtest/gtest.h>

#include <vector>

#include "compared_records.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "oracle/slow_string_order.h"
#include "string_texts.h"

namespace {

using slow::Outcome;

TEST(StringPattern, TextsAreComparedUpToTheFirstWildcard) {
    const struct {
        const char *text, *pattern;
        unsigned short op;
        Outcome expected;
    } cases[] = {
        {"abc", "a*d", kWild, {0, 2101}},     {"abc", "a*", kWild, {0, 2101}},     {"abc", "b*", kWild, {-1, 2101}},
        {"abc", "a?c", kWild, {0, 2101}},     {"abc", "*", kWild, {0, 2101}},      {"abc", "?", kWild, {0, 2101}},
        {"ab", "abc*", kWild, {-1, 2101}},    {"abd", "abc*", kWild, {1, 2101}},   {"abc", "abc", kWild, {0, 0}},
        {"abc", "abd", kWild, {-1, 0}},       {"abcd", "abc", kWild, {1, 0}},      {"ABC", "ab*", 0x20, {0, 2101}},
        {"ABC", "ab*", kWild, {-1, 2101}},    {"ABC", "abc", 0x20, {0, 0}},        {"a*c", "a\\*c", kWild, {0, 0}},
        {"a*cd", "a\\*c*", kWild, {0, 2101}}, {"a*d", "a\\*c*", kWild, {1, 2101}}, {"a\\b", "a\\\\*", kWild, {0, 2101}},
        {"a\\", "a\\", kWild, {0, 0}},        {"abc", "a*d", 0x10, {1, 0}},        {"a*d", "a*d", kExact, {0, 0}},
        {"abc", "a*", 0x80, {0, 2101}},
    };
    for (const auto& c : cases) {
        const KyString text = Labelled(c.text, 1, 0);
        const KyString pattern = Labelled(c.pattern, 1, 0);
        EXPECT_EQ(Compared(KyStringTab, 8, 0, &text, 0, &pattern, c.op), c.expected) << c.text << " " << c.pattern;
        KyString wideText(text);
        KyString widePattern(pattern);
        wideText.MapToCodeSet(KyCodeSetUnicode);
        widePattern.MapToCodeSet(KyCodeSetUnicode);
        for (const KyString* a : {&text, static_cast<const KyString*>(&wideText)}) {
            for (const KyString* b : {&pattern, static_cast<const KyString*>(&widePattern)}) {
                for (const unsigned char flag : std::initializer_list<unsigned char>{1, 2, 0x81, 0x82}) {
                    EXPECT_EQ(ComparedParts(RecordOf(*a, flag & 15), 0, RecordOf(*b, flag & 15), 0, c.op, flag),
                              c.expected)
                        << c.text << " " << c.pattern << " " << int{flag};
                }
            }
        }
    }
}

TEST(StringPattern, ExpansionsAndContractionsCountAsTheirOrders) {
    const KyString street = Labelled(Narrow("Stra\xDF"
                                            "e"),
                                     1, 0);
    const KyString asLetters = Labelled("Strass*", 1, 0);
    EXPECT_EQ(Compared(KyStringTab, 8, 0, &street, 0, &asLetters, 0x40), (Outcome{0, 2101}));
    const KyString czech = Labelled("chata", 1, 10);
    const KyString pattern = Labelled("ch*", 1, 10);
    EXPECT_EQ(Compared(KyStringTab, 8, 0, &czech, 0, &pattern, kWild), (Outcome{0, 2101}));
    const KyString other = Labelled("c*", 1, 10);
    EXPECT_EQ(Compared(KyStringTab, 8, 0, &czech, 0, &other, kWild), (Outcome{1, 2101})) << "ch is a letter of its own";
}

TEST(StringPattern, OfBytes) {
    const KyString text = Labelled("a\\bc", 0, 0);
    const KyString pattern = Labelled("a\\*", 0, 0);
    EXPECT_EQ(Compared(KyStringTab, 8, 0, &text, 0, &pattern, kWild), (Outcome{0, 2101})) << "no escapes";
    const KyString below = Labelled("Z", 0, 0);
    EXPECT_EQ(Compared(KyStringTab, 8, 0, &below, 0, &text, kWild), (Outcome{-1, 0}));
}

TEST(StringPattern, EndsTheWalk) {
    const KyString a[] = {"abc", "z"};
    const KyString b[] = {"a*", "a"};
    EXPECT_EQ(Compared(KyStringTab, 8, 0, a, 0, b, kWild, 2), (Outcome{0, 2101}));
    EXPECT_EQ(Compared(KyStringTab, 8, 0, a, 0, b, kExact, 2), (Outcome{1, 0}));
}

}  // namespace
