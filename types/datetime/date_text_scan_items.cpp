#include "date_text_scan_items.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "ascii.h"
#include "date_text_directives.h"
#include "date_text_names.h"
#include "date_text_scan_values.h"
#include "kydatime.h"

namespace ky {

namespace {

void SkipSpace(const char*& at) {
    while (IsSpace(*at)) ++at;
}

/// Reads directive by directive, whatever the text and the format are.
class DateScanner {
public:
    /// All bytes before `readable` can be read. The parts are 0.
    DateScanner(const char* text, const char* readable, DateTimeParts& someParts)
        : at(text), limit(readable), parts(someParts) {}

    DateScan Scan(const char* format) {
        const bool isWhole = Walk(format);
        parts.hour = HourOfHalf(parts.hour, isAm, isPm);
        return isWhole ? DateScan::whole : DateScan::cut;
    }

private:
    const char* at;
    const char* limit;
    DateTimeParts& parts;
    std::size_t openGroups = 0;
    bool isAm = false;
    bool isPm = false;

    /// False when the text has ended before a directive.
    bool Walk(const char* format) {
        for (;;) {
            SkipSpace(format);
            SkipSpace(at);
            if (*format == 0) return true;
            const char c = *format++;
            if (c == '%') {
                FormatItem item;
                if (!TakeItem(format, item)) return true;
                if (item.opensGroup) ++openGroups;
                if (*at == 0 || !TakeValue(item.Meaning())) return false;
            } else if (c == ')' && openGroups != 0) {
                --openGroups;
            } else if (*at == c || !IsDigit(*at)) {
                SkipOne();
            }
        }
    }

    void SkipOne() {
        if (*at != 0) ++at;
    }

    bool TakeValue(const Directive& directive) {
        if (directive.kind == DirectiveKind::expansion) return Walk(directive.expansion);
        if (*at == '*') {
            ++at;
            SetWildcard(directive);
        } else {
            TakePart(directive);
        }
        return true;
    }

    void SetWildcard(const Directive& directive) {
        switch (directive.kind) {
            case DirectiveKind::seconds:
                parts.second = parts.nanoseconds = kDateWildcard;
                break;
            case DirectiveKind::totalDays:
                parts.year = parts.month = parts.day = kDateWildcard;
                break;
            case DirectiveKind::number:
            case DirectiveKind::shortYear:
            case DirectiveKind::clockHour:
            case DirectiveKind::monthName:
                parts.*directive.part = kDateWildcard;
                break;
            default:
                break;
        }
    }

    void TakePart(const Directive& directive) {
        switch (directive.kind) {
            case DirectiveKind::number:
            case DirectiveKind::clockHour:
                TakeInteger(at, parts.*directive.part);
                break;
            case DirectiveKind::shortYear:
                TakeShortYear();
                break;
            case DirectiveKind::monthName:
                TakeMonth();
                break;
            case DirectiveKind::weekdayName:
                TakeName(at, ky_weekdays, 7);
                break;
            case DirectiveKind::seconds:
                TakeSeconds(at, limit, parts.second, parts.nanoseconds);
                break;
            case DirectiveKind::totalDays:
                TakeTotalDays();
                break;
            case DirectiveKind::dayHalf:
                TakeDayHalf();
                break;
            default:
                SkipOne();
                break;
        }
    }

    void TakeShortYear() {
        constexpr int kLastOfThisCentury = 30;
        int year;
        if (!TakeInteger(at, year)) return;
        const int century = year > kLastOfThisCentury ? 1900 : 2000;
        parts.year = std::min(year, std::numeric_limits<int>::max() - century) + century;
    }

    void TakeMonth() {
        const int index = TakeName(at, ky_months, 12);
        if (index >= 0) {
            parts.month = index + 1;
        } else {
            TakeMonthNumber(at, parts.month);
        }
    }

    void TakeTotalDays() {
        int days;
        if (TakeInteger(at, days)) SetTotalDays(parts, days);
    }

    void TakeDayHalf() {
        isPm = isPm || *at == 'p' || *at == 'P';
        isAm = isAm || *at == 'a' || *at == 'A';
        SkipOne();
        SkipOne();
    }
};

}  // namespace

DateScan ScanItems(DateTimeParts& parts, const char* text, const char* limit, const char* format) {
    parts = {};
    return DateScanner(text, limit, parts).Scan(format);
}

}  // namespace ky
