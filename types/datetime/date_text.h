#ifndef DATE_TEXT_H
#define DATE_TEXT_H

/// The printer and the scanner of dates and times: one of each for all types, which widen their values to parts.

#include <cstddef>

class KyString;

namespace ky {

/// A value taken apart; what a type does not have is 0. Plain ints, so that nothing is cut on the way.
struct DateTimeParts {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int nanoseconds = 0;
};

/// What types differ in when they print.
struct DatePrintRules {
    /// 0 Monday to 6 Sunday, of the parts' date.
    int (*weekday)(const DateTimeParts&);
    /// Whether a part of -1 prints as "*".
    bool wildcards;
};

/// Weekday by `KyDate`, with wildcards.
extern const DatePrintRules kKyDatePrint;

/// Replaces `out` by the parts in `format`, not null, of any length and content. Null values are the caller's to see.
void PrintDateTime(KyString& out, const DateTimeParts& parts, const char* format, const DatePrintRules& rules);

/// Replaces `out` by the process's null print string.
void PrintNullDate(KyString& out);

enum class DateScan {
    whole,  ///< the format has come to its end
    cut,    ///< the text ended before the format's last directive; what was read stands in the parts
    null,   ///< the text begins with the null print string; the parts are as they were
};

/// Reads `text`, which may be of any code set and is not changed, by `format`, not null. But for `DateScan::null` the
/// parts that are not read become 0, and a "*" is read as -1.
DateScan ScanDateTime(DateTimeParts& parts, KyString& text, const char* format);

// The formats of the member functions, which directives expand to.
inline constexpr char kDateFormat[] = "%Y-%m-%d";
inline constexpr char kTimeFormat[] = "%H:%M:%S";
inline constexpr char kDateTimeFormat[] = "%Y-%m-%dT%H:%M:%S";
inline constexpr char kDateTimeNFormat[] = "%Y-%m-%dT%H:%M:%f";
inline constexpr char kTimeSpanFormat[] = "%J.%H:%M:%f";

}  // namespace ky

#endif
