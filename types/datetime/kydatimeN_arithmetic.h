#ifndef KYDATIMEN_ARITHMETIC_H
#define KYDATIMEN_ARITHMETIC_H

/// The inline parts of `kydatimeN.h`, which includes it.

#include "kydatimeN.h"

constexpr int KyDateTime_::Compare(const KyDateTime_& other, unsigned short flags) const {
    const int byDateTime = DateTime().Compare(other.DateTime(), flags);
    if (byDateTime != 0) return byDateTime;
    if ((flags & 0x10) == 0 && (nanoseconds == -1 || other.nanoseconds == -1)) return 0;
    return static_cast<int>(nanoseconds > other.nanoseconds) - static_cast<int>(nanoseconds < other.nanoseconds);
}

constexpr bool operator==(const KyDateTimeN& a, const KyDateTimeN& b) { return a.Compare(b, 0xFFFF) == 0; }
constexpr bool operator!=(const KyDateTimeN& a, const KyDateTimeN& b) { return a.Compare(b, 0xFFFF) != 0; }
constexpr bool operator<(const KyDateTimeN& a, const KyDateTimeN& b) { return a.Compare(b, 0xFFFF) < 0; }
constexpr bool operator<=(const KyDateTimeN& a, const KyDateTimeN& b) { return a.Compare(b, 0xFFFF) <= 0; }
constexpr bool operator>(const KyDateTimeN& a, const KyDateTimeN& b) { return a.Compare(b, 0xFFFF) > 0; }
constexpr bool operator>=(const KyDateTimeN& a, const KyDateTimeN& b) { return a.Compare(b, 0xFFFF) >= 0; }

constexpr bool operator==(const KyTimeSpan& a, const KyTimeSpan& b) { return a.Compare(b, 0xFFFF) == 0; }
constexpr bool operator!=(const KyTimeSpan& a, const KyTimeSpan& b) { return a.Compare(b, 0xFFFF) != 0; }
constexpr bool operator<(const KyTimeSpan& a, const KyTimeSpan& b) { return a.Compare(b, 0xFFFF) < 0; }
constexpr bool operator<=(const KyTimeSpan& a, const KyTimeSpan& b) { return a.Compare(b, 0xFFFF) <= 0; }
constexpr bool operator>(const KyTimeSpan& a, const KyTimeSpan& b) { return a.Compare(b, 0xFFFF) > 0; }
constexpr bool operator>=(const KyTimeSpan& a, const KyTimeSpan& b) { return a.Compare(b, 0xFFFF) >= 0; }

constexpr int KyDateTimeN::IsDefaultValue() const { return *this == DefaultValue(); }
constexpr int KyDateTimeN::IsZeroValue() const { return *this == ZeroValue(); }
constexpr int KyDateTimeN::SetDefaultValue() {
    *this = DefaultValue();
    return 0;
}

constexpr KyTimeSpan::KyTimeSpan(int years, int months, int days, int hours, int minutes, int seconds,
                                 int someNanoseconds)
    : KyDateTime_(static_cast<short>(years), static_cast<signed char>(months), static_cast<signed char>(days),
                  static_cast<signed char>(hours), static_cast<signed char>(minutes), static_cast<signed char>(seconds),
                  someNanoseconds) {}

constexpr int KyTimeSpan::IsDefaultValue() const { return *this == DefaultValue(); }
constexpr int KyTimeSpan::IsZeroValue() const { return *this == ZeroValue(); }
constexpr int KyTimeSpan::SetDefaultValue() {
    *this = DefaultValue();
    return 0;
}

#endif
