#include <algorithm>

#include "kyodmg.h"

namespace {

/// Of values of one type, by their order.
template <class Value>
int PeriodsOverlap(const Value& s1, const Value& e1, const Value& s2, const Value& e2) {
    const Value& start = s1 <= e1 ? s1 : e1;
    const Value& end = s1 <= e1 ? e1 : s1;
    const auto inside = [&](const Value& moment) { return start <= moment && moment <= end; };
    const bool covered = (s2 <= start && e2 >= end) || (e2 <= start && s2 >= end);
    return inside(s2) || inside(e2) || covered ? 1 : 0;
}

/// On the stamps' first day the clock runs from the first stamp's time on, on the last one up to the last stamp's; on
/// a whole day between them it shows every time.
int TimesComeRound(const d_Timestamp& s1, const d_Timestamp& e1, const d_Time& s2, const d_Time& e2) {
    const d_Timestamp& first = s1 <= e1 ? s1 : e1;
    const d_Timestamp& last = s1 <= e1 ? e1 : s1;
    const int days = last.date() != first.date();
    if (days >= 2) return 1;
    if (days == 0) return PeriodsOverlap(first.time(), last.time(), s2, e2);
    const d_Time& low = s2 <= e2 ? s2 : e2;
    const d_Time& high = s2 <= e2 ? e2 : s2;
    return high >= first.time() || low <= last.time() ? 1 : 0;
}

}  // namespace

int overlaps(const d_Date& s1, const d_Date& e1, const d_Date& s2, const d_Date& e2) {
    return PeriodsOverlap(s1, e1, s2, e2);
}

int overlaps(const d_Time& s1, const d_Time& e1, const d_Time& s2, const d_Time& e2) {
    return PeriodsOverlap(s1, e1, s2, e2);
}

int overlaps(const d_Timestamp& s1, const d_Timestamp& e1, const d_Timestamp& s2, const d_Timestamp& e2) {
    return PeriodsOverlap(s1, e1, s2, e2);
}

int overlaps(const d_Timestamp& s1, const d_Timestamp& e1, const d_Date& s2, const d_Date& e2) {
    return PeriodsOverlap(s1.date(), e1.date(), s2, e2);
}

int overlaps(const d_Date& s1, const d_Date& e1, const d_Timestamp& s2, const d_Timestamp& e2) {
    return PeriodsOverlap(s1, e1, s2.date(), e2.date());
}

int overlaps(const d_Timestamp& s1, const d_Timestamp& e1, const d_Time& s2, const d_Time& e2) {
    return TimesComeRound(s1, e1, s2, e2);
}

int overlaps(const d_Time& s1, const d_Time& e1, const d_Timestamp& s2, const d_Timestamp& e2) {
    return TimesComeRound(s2, e2, s1, e1);
}
