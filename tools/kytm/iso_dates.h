#ifndef KYTM_ISO_DATES_H
#define KYTM_ISO_DATES_H

/// Texts of dates, times and spans as stores take and show them: year, month and day parted by "-", hour, minute and
/// second by ":", the day of a span by "."; a part that is "*" is a wildcard.
///
///   KyDate, d_Date             2024-05-31
///   KyTime                     23:59:59
///   KyDateTime                 2024-05-31T23:59:59, or with a blank instead of the T
///   KyDateTimeN, d_Timestamp   2024-05-31T23:59:59.5, up to nine digits
///   KyTimeSpan, d_Interval     12.03:59:59.5: days of 24 hours
///   d_Time                     23:59:59.5

#include <optional>
#include <string>
#include <string_view>

namespace kytm {

/// How texts of one of these types are written.
class IsoDates {
public:
    /// Nothing for other types.
    static std::optional<IsoDates> Of(char type);

    /// Null when the text is a date, time or span, and `Canonical` now has it for a scan by `ScanFormat`; else why not.
    /// The type's own scan takes any text at all. Texts of the same parts have the same canonical one.
    const char* Read(std::string_view text);
    const std::string& Canonical() const { return canonical; }

    const char* ScanFormat() const { return scanFormat; }
    const char* PrintFormat() const { return printFormat; }

private:
    const char* shape;
    const char* scanFormat;
    const char* printFormat;
    const char* fault;
    std::string canonical;

    IsoDates(const char* aShape, const char* aScanFormat, const char* aPrintFormat, const char* aFault)
        : shape(aShape), scanFormat(aScanFormat), printFormat(aPrintFormat), fault(aFault) {}
};

}  // namespace kytm

#endif
