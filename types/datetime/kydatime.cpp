#include "kydatime.h"

#include "kybase.h"
#include "kystring.h"

namespace {

KyDate DateOf(const bdate& date) { return {date.year, date.month, date.day}; }
KyTime TimeOf(const btime& time) { return {time.hour, time.minute, time.second}; }

}  // namespace

KyDate::KyDate() : KyDate(Today()) {}

KyDate KyDate::Today() {
    bdate today{};
    bksgetdate(&today);
    return DateOf(today);
}

KyString KyDate::PrintDayOfTheDate() const {
    const int weekday = GetDayOfTheDate();
    return {weekday >= 0 && weekday <= 6 ? ky_weekdays[weekday] : "no day"};
}

KyString KyDate::PrintDayOfTheDate() { return {DayOfTheDate()}; }

KyTime::KyTime() : KyTime(Now()) {}

KyTime KyTime::Now() {
    btime now{};
    bksgettime(&now);
    return TimeOf(now);
}

KyTime KyTime::NowUTC() {
    btime now{};
    bdate today{};
    bksgetsystemtime(&now, &today);
    return TimeOf(now);
}

int KyTime::ToUTCTime() {
    const int offset = bksgettimezone();
    if (offset == bksUnknownTimeZone) return offset;
    *this += -(offset * 60);
    return 0;
}

int KyTime::ToLocalTime() {
    const int offset = bksgettimezone();
    if (offset == bksUnknownTimeZone) return offset;
    *this += offset * 60;
    return 0;
}

KyDateTime::KyDateTime() : KyDateTime(Now()) {}
KyDateTime::KyDateTime(const KyDate& date) : KyDateTime(date, KyTime()) {}
KyDateTime::KyDateTime(const KyTime& time) : KyDateTime(KyDate(), time) {}

KyDateTime KyDateTime::Now() {
    const KyTime time = KyTime::Now();
    return {KyDate::Today(), time};
}

KyDateTime KyDateTime::NowUTC() {
    btime now{};
    bdate today{};
    bksgetsystemtime(&now, &today);
    return {DateOf(today), TimeOf(now)};
}

int KyDateTime::ToUTCTime() {
    const int offset = bksgettimezone();
    if (offset == bksUnknownTimeZone) return offset;
    AddMinutes(hour * 60 + minute - offset);
    return 0;
}

int KyDateTime::ToLocalTime() {
    const int offset = bksgettimezone();
    if (offset == bksUnknownTimeZone) return offset;
    AddMinutes(hour * 60 + minute + offset);
    return 0;
}
