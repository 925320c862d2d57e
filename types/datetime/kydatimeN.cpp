#include "kydatimeN.h"

#include "kybase.h"

namespace {

using PreciseClock = void (*)(bdate& date, btime& time, int& nanoseconds);

KyDateTimeN Read(PreciseClock clock) {
    bdate date{};
    btime time{};
    int nanoseconds = 0;
    clock(date, time, nanoseconds);
    return {date.year, date.month, date.day, time.hour, time.minute, time.second, nanoseconds};
}

}  // namespace

KyDateTimeN KyDateTimeN::Now() { return Read(&bksGetHiresTime); }
KyDateTimeN KyDateTimeN::NowUTC() { return Read(&bksGetHiresTimeUTC); }

int KyDateTimeN::ToUTCTime() {
    const int offset = bksgettimezone();
    if (offset == bksUnknownTimeZone) return offset;
    AddMinutes(-offset);
    return 0;
}

int KyDateTimeN::ToLocalTime() {
    const int offset = bksgettimezone();
    if (offset == bksUnknownTimeZone) return offset;
    AddMinutes(offset);
    return 0;
}
