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
    while (static_cast<unsigned char>(*at) <= ' ' && IsSpace(*at)) ++at;
}

/// Reads directive by directive, whatever the text and the format are. The place in the text is handed on and given
/// back, so that it stays in a register.
class DateScanner {
public:
    /// All bytes before `readable` can be read. The parts are 0.
    DateScanner(const char* readable, DateTimeParts& someParts) : limit(readable), parts(someParts) {}

    DateScan Scan(const char* text, const char* format) {
        const bool isWhole = Walk(format, text) != nullptr;
        parts.hour = HourOfHalf(parts.hour, isAm, isPm);
        return isWhole ? DateScan::whole : DateScan::cut;
    }

private:
    const char* limit;
    DateTimeParts& parts;
    std::size_t openGroups = 0;
    bool isAm = false;
    bool isPm = false;

    /// Null when the text has ended before a directive.
    const char* Walk(const char* format, const char* at) {
        for (;;) {
            SkipSpace(format);
            SkipSpace(at);
            if (*format == 0) return at;
            const char c = *format++;
            if (c == '%') {
                FormatItem item;
                if (!TakeItem(format, item)) return at;
                if (item.opensGroup) ++openGroups;
                const Directive& directive = item.Meaning();
                // By far the most.
                if (directive.kind == DirectiveKind::number && IsDigit(*at)) {
                    at = TakeDigits(at, parts.*directive.part);
                    continue;
                }
                if (*at == 0) return nullptr;
                at = TakeValue(directive, at);
                if (at == nullptr) return nullptr;
            } else if (c == ')' && openGroups != 0) {
                --openGroups;
            } else if (*at == c || !IsDigit(*at)) {
                at = BehindOne(at);
            }
        }
    }

    static const char* BehindOne(const char* at) { return *at != 0 ? at + 1 : at; }

    const char* TakeValue(const Directive& directive, const char* at) {
        if (directive.kind == DirectiveKind::expansion) return Walk(directive.expansion, at);
        if (*at != '*') return TakePart(directive, at);
        SetWildcard(directive);
        return at + 1;
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

    const char* TakePart(const Directive& directive, const char* at) {
        switch (directive.kind) {
            case DirectiveKind::number:
            case DirectiveKind::clockHour:
                TakeInteger(at, parts.*directive.part);
                break;
            case DirectiveKind::shortYear:
                TakeShortYear(at);
                break;
            case DirectiveKind::monthName:
                TakeMonth(at);
                break;
            case DirectiveKind::weekdayName:
                TakeName(at, ky_weekdays, 7);
                break;
            case DirectiveKind::seconds:
                TakeSeconds(at, limit, parts.second, parts.nanoseconds);
                break;
            case DirectiveKind::totalDays:
                TakeTotalDays(at);
                break;
            case DirectiveKind::dayHalf:
                isPm = isPm || *at == 'p' || *at == 'P';
                isAm = isAm || *at == 'a' || *at == 'A';
                return BehindOne(BehindOne(at));
            default:
                return BehindOne(at);
        }
        return at;
    }

    void TakeShortYear(const char*& at) {
        constexpr int kLastOfThisCentury = 30;
        int year;
        if (!TakeInteger(at, year)) return;
        const int century = year > kLastOfThisCentury ? 1900 : 2000;
        parts.year = std::min(year, std::numeric_limits<int>::max() - century) + century;
    }

    void TakeMonth(const char*& at) {
        const int index = TakeName(at, ky_months, 12);
        if (index >= 0) {
            parts.month = index + 1;
        } else {
            TakeMonthNumber(at, parts.month);
        }
    }

    void TakeTotalDays(const char*& at) {
        int days;
        if (TakeInteger(at, days)) SetTotalDays(parts, days);
    }
};

}  // namespace

DateScan ScanItems(DateTimeParts& parts, const char* text, const char* limit, const char* format) {
    parts = {};
    return DateScanner(limit, parts).Scan(text, format);
}

}  // namespace ky
