#ifndef SLOW_CALENDAR_H
#define SLOW_CALENDAR_H

/// The Gregorian calendar, walked a day at a time from a date given.
class SlowCalendar {
public:
    SlowCalendar(int firstYear, int firstMonth, int firstDay) : year(firstYear), month(firstMonth), day(firstDay) {}

    int Year() const { return year; }
    int Month() const { return month; }
    int Day() const { return day; }

    void Next() {
        if (++day <= DaysInMonth()) return;
        day = 1;
        if (++month <= 12) return;
        month = 1;
        ++year;
    }

    void Previous() {
        if (--day >= 1) return;
        if (--month < 1) {
            month = 12;
            --year;
        }
        day = DaysInMonth();
    }

private:
    bool IsLeap() const { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

    int DaysInMonth() const {
        switch (month) {
            case 2:
                return IsLeap() ? 29 : 28;
            case 4:
            case 6:
            case 9:
            case 11:
                return 30;
            default:
                return 31;
        }
    }

    int year;
    int month;
    int day;
};

#endif
