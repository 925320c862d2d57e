/// Comparison of marked texts of orders.

#include <gtest/gtest.h>

#include <vector>

#include "compared_records.h"
#include "generated_strings.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "oracle/slow_string_order.h"

namespace {

using slow::Outcome;

KyString OrderText(std::initializer_list<unsigned short> orders, unsigned char language) {
    return StringGenerator::FromCodes(KyCodeSetOrders, language, orders);
}

TEST(StringMark, TellsWhichOperandIsMarked) {
    constexpr unsigned short a = 0x600C;
    constexpr unsigned short b = 0x6010;
    const KyString plain = OrderText({a, b}, 1);
    const KyString marked = OrderText({a, b}, 0x81);
    const KyString longer = OrderText({a, b, b}, 0x80);
    const KyString markOnly = OrderText({a}, 0x81);
    const struct {
        const KyString &first, &second;
        unsigned short op;
        Outcome expected;
    } cases[] = {
        {plain, plain, kExact, {0, 0}},       {marked, plain, kExact, {0, 2114}},  {plain, marked, kExact, {0, 2115}},
        {marked, marked, kExact, {0, 2114}},  {longer, plain, kExact, {1, 2114}},  {plain, longer, kExact, {-1, 2115}},
        {plain, longer, kWild, {-1, 2115}},   {plain, markOnly, kWild, {0, 2115}}, {plain, markOnly, kExact, {1, 2115}},
        {longer, markOnly, kWild, {0, 2114}}, {longer, plain, kWild, {1, 2114}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Compared(KyStringTab, 8, 0, &c.first, 0, &c.second, c.op), c.expected);
        for (const unsigned char form : std::initializer_list<unsigned char>{1, 2}) {
            EXPECT_EQ(ComparedParts(RecordOf(c.first, form), 0, RecordOf(c.second, form), 0, c.op, form), c.expected);
        }
    }
    const KyString pair[] = {marked, plain};
    const KyString others[] = {marked, marked};
    EXPECT_EQ(Compared(KyStringTab, 8, 0, pair, 0, others, kExact, 2), (Outcome{0, 2114})) << "ends the walk";
}

TEST(StringMark, WhereTheBufferEndsBeforeTheCountThatIsTold) {
    constexpr unsigned short a = 0x600C;
    constexpr unsigned short b = 0x6010;
    const KyString plain = OrderText({a}, 1);
    const KyString marked = OrderText({a}, 0x81);
    const KyString behind = OrderText({b}, 0x81);
    const struct {
        const KyString &first, &second;
        int sign;
        int err;  ///< of the pair by itself
    } cases[] = {
        {marked, plain, 0, 2114}, {plain, marked, 0, 2115}, {behind, plain, 1, 2114}, {plain, behind, -1, 2115}};
    for (const auto& c : cases) {
        EXPECT_EQ(Compared(KyStringTab, 8, 16, &c.first, 16, &c.second, kExact, 1), (Outcome{c.sign, c.err}));
        EXPECT_EQ(Compared(KyStringTab, 8, 16, &c.first, 16, &c.second, kExact, 2), (Outcome{c.sign, 2101}));
        for (const unsigned char flag : std::initializer_list<unsigned char>{1, 2, 0x81}) {
            const auto first = RecordOf(c.first, flag & 15);
            const auto second = RecordOf(c.second, flag & 15);
            // The buffer of the other has room for more.
            const auto pair = [](std::vector<unsigned char> record) {
                record.insert(record.end(), record.begin(), record.end());
                return record;
            };
            EXPECT_EQ(ComparedParts(first, 8, second, 8, kExact, flag, 1), (Outcome{c.sign, c.err}));
            EXPECT_EQ(ComparedParts(first, 8, pair(second), 0, kExact, flag, 2), (Outcome{c.sign, 2101}));
            EXPECT_EQ(ComparedParts(pair(first), 0, second, 8, kExact, flag, 2), (Outcome{c.sign, 2101}));
            EXPECT_EQ(ComparedParts(pair(first), 0, pair(second), 0, kExact, flag, 2), (Outcome{c.sign, c.err}));
        }
    }
}

TEST(StringMark, NullsCarryNone) {
    const KyString null254 = OrderText({}, 254);
    const KyString null0 = OrderText({}, 0);
    const KyString text = OrderText({0x600C}, 1);
    EXPECT_EQ(Compared(KyStringTab, 8, 0, &null254, 0, &null0, kExact), (Outcome{0, 0}));
    EXPECT_EQ(Compared(KyStringTab, 8, 0, &null254, 0, &text, kExact), (Outcome{-1, 0}));
    int err;
    EXPECT_EQ(KyStringTab.Hash(8, 0, const_cast<KyString*>(&null254), 1, err), 0xFEFE7575U * 1103515245U);
    const KyString marked = OrderText({0x600C}, 0x80);
    EXPECT_EQ(KyStringTab.Hash(8, 0, const_cast<KyString*>(&marked), 1, err),
              KyStringTab.Hash(8, 0, const_cast<KyString*>(&text), 1, err));
}

}  // namespace
