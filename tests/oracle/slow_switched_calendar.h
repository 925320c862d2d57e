#ifndef SLOW_SWITCHED_CALENDAR_H
#define SLOW_SWITCHED_CALENDAR_H

/// The Julian calendar up to 1582-10-04 and the Gregorian one from the day after it, 1582-10-15, walked a day at a time
/// from a date given.
class SlowSwitchedCalendar {
public:
    SlowSwitchedCalendar(int firstYear, int firstMonth, int firstDay)
        : year(firstYear), month(firstMonth), day(firstDay) {}

    int Year() const { return year; }
    int Month() const { return month; }
    int Day() const { return day; }

    void Next() {
        if (year == 1582 && month == 10 && day == 4) {
            day = 15;
            return;
        }
        if (++day <= DaysInMonth()) return;
        day = 1;
        if (++month <= 12) return;
        month = 1;
        ++year;
    }

    int DaysInMonth() const {
        constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        return month == 2 && IsLeap() ? 29 : days[month - 1];
    }

private:
    bool IsLeap() const {
        if (year < 1582) return year % 4 == 0;
        return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
    }

    int year;
    int month;
    int day;
};

#endif
