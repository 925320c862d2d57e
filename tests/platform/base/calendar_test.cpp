#include "calendar.h"

#include <gtest/gtest.h>

#include "oracle/slow_calendar.h"

namespace {

void ExpectSame(const SlowCalendar& slow, int days) {
    const ky::CivilDate date = ky::CivilFromDays(days);
    ASSERT_EQ(date.year, slow.Year()) << days;
    ASSERT_EQ(date.month, slow.Month()) << days;
    ASSERT_EQ(date.day, slow.Day()) << days;
}

TEST(Calendar, ForwardToTheLastYearOfSixteenBits) {
    SlowCalendar slow(1970, 1, 1);
    for (int days = 0; slow.Year() <= 32768; ++days, slow.Next()) ExpectSame(slow, days);
}

TEST(Calendar, BackwardToTheFirstYearOfSixteenBits) {
    SlowCalendar slow(1970, 1, 1);
    for (int days = 0; slow.Year() >= -32769; --days, slow.Previous()) ExpectSame(slow, days);
}

}  // namespace
