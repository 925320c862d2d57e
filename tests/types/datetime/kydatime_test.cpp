#include "kydatime.h"

#include <gtest/gtest.h>

namespace {

TEST(KyDate, DayNumbersAreJulian) {
    struct {
        KyDate date;
        int number;
    } const cases[] = {
        {KyDate(2000, 1, 1), 2451545},
        {KyDate(-4713, 11, 24), 0},
        {KyDate(2024, 2, 29), 2460370},
        {KyDate(2024, 3, 1), 2460371},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.date.dayabs(), c.number);
        EXPECT_EQ(KyDate(c.number), c.date) << c.number;
    }
}

}  // namespace
