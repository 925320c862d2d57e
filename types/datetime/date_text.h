#ifndef DATE_TEXT_H
#define DATE_TEXT_H

/// The printer and the scanner of dates and times: one of each for all types, which widen their values to parts.
///
/// A format is literal text and directives, "%" and a letter:
///
///   Y m d H M S   year, month, day, hour, minute, second: 4 or 2 digits at least, a sign in front when negative
///   e N y         day; nanoseconds without leading zeros; the year's last two digits
///   I p P         the hour of a twelve-hour clock; "am" or "pm"; in capitals
///   a A b B       weekday and month by name, small letters for three letters of it; months without name as 3 digits
///   f             seconds with a fraction of no, 3, 6 or 9 digits
///   J             days of a span, 360 a year and 30 a month
///   D T O X V     the five formats below, in their order
///   others        themselves, "%%" among them
///
/// "%?Y" prints nothing while everything printed so far and the part are 0, "%?(Y literal)" drops the literal, too.
/// Both are read like "%Y".
///
/// Scanning skips white space in text and format before each item. A literal takes one character of the text, whatever
/// it is, but no digit other than itself. A number takes its sign and all its digits; where there is none the part
/// stays. Names agree in three letters, case included; a weekday means nothing. A short year means 1931 to 2030.
// KEPT: "%f" is read as a double, of which the nanoseconds are cut, not rounded: "0.000000015" gives 14. A value that
// has to keep its nanoseconds is printed and scanned by "%S" and "%N".
// KEPT: "January" by "%B %Y" leaves the "y" to the year, which stays 0: the table's name is "Januar".

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
    /// Whether "%I" prints the hours of a clock, 1 to 12, instead of the part as it stands.
    bool clockHours = true;
};

/// Weekday by `KyDate`, with wildcards.
extern const DatePrintRules kKyDatePrint;

/// Replaces `out` by the parts in `format`, not null, of any length and content; cut where a string is full. Null
/// values are the caller's to see.
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
