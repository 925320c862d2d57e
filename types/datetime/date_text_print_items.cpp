#include "date_text_print_items.h"

#include <array>
#include <optional>
#include <vector>

#include "date_text_digits.h"
#include "date_text_directives.h"
#include "date_text_names.h"
#include "date_text_output.h"
#include "kydatime.h"
#include "kystring.h"

namespace ky {

namespace {

/// Whether a format tells before noon from after noon.
bool HasDayHalf(const char* format) {
    while (*format != 0) {
        FormatItem item;
        if (*format++ == '%' && TakeItem(format, item) && item.Meaning().kind == DirectiveKind::dayHalf) return true;
    }
    return false;
}

/// Where the groups begin that are open, in the output. Deeper ones than usual take a block.
class OpenGroups {
public:
    bool Any() const { return depth != 0; }
    void Open(std::size_t start) {
        if (depth < starts.size()) {
            starts[depth] = start;
        } else {
            deeper.push_back(start);
        }
        ++depth;
    }
    std::size_t Close() {
        --depth;
        if (depth < starts.size()) return starts[depth];
        const std::size_t start = deeper.back();
        deeper.pop_back();
        return start;
    }

private:
    std::array<std::size_t, 4> starts;
    std::vector<std::size_t> deeper;
    std::size_t depth = 0;
};

/// Prints directive by directive, whatever the parts and the format are.
class DatePrinter {
public:
    DatePrinter(const DateTimeParts& someParts, const char* wholeFormat, const DatePrintRules& someRules)
        : parts(someParts), rules(someRules), outerFormat(wholeFormat) {
        Print(wholeFormat);
    }

    void MoveTo(KyString& out) {
        const char* const text = output.Text();
        AssignText(out, text, output.Length());
    }

private:
    const DateTimeParts& parts;
    const DatePrintRules& rules;
    const char* outerFormat;
    std::optional<bool> hasDayHalf;  ///< asked for by "%I" alone
    bool hasPrinted = false;         ///< a directive has
    bool afterWildcard = false;      ///< the last part that was printed was a "*"
    OpenGroups groups;
    DateTextOutput output;

    void Print(const char* format) {
        while (*format != 0) {
            if (*format == '%') {
                FormatItem item;
                ++format;
                if (!TakeItem(format, item)) return;
                if (item.opensGroup) groups.Open(output.Length());
                PrintItem(item);
            } else if (*format == ')' && groups.Any()) {
                ++format;
                CloseGroup();
            } else {
                output.Append(*format++);
            }
        }
    }

    void CloseGroup() {
        const std::size_t start = groups.Close();
        if (!hasPrinted) output.CutTo(start);
    }

    void PrintItem(const FormatItem& item) {
        const Directive& directive = item.Meaning();
        if (directive.kind == DirectiveKind::number) {
            PrintNumberPart(parts.*directive.part, directive.digits, item.isOptional);
            return;
        }
        if (directive.kind == DirectiveKind::expansion) {
            Print(directive.expansion);
            return;
        }
        if (item.isOptional && !hasPrinted && IsZero(directive)) return;
        hasPrinted = true;
        if (directive.kind == DirectiveKind::character) {
            output.Append(item.letter);
            if (afterWildcard) output.Append('*');
        } else if (directive.kind == DirectiveKind::dayHalf) {
            PrintDayHalf(item.letter);
        } else {
            afterWildcard = IsWildcard(directive);
            if (afterWildcard) {
                output.Append('*');
            } else {
                PrintPart(item.letter, directive);
            }
        }
    }

    void PrintNumberPart(int value, unsigned digits, bool isOptional) {
        if (isOptional && !hasPrinted && value == 0) return;
        hasPrinted = true;
        afterWildcard = rules.wildcards && value == kDateWildcard;
        if (afterWildcard) {
            output.Append('*');
        } else {
            PrintNumber(value, digits);
        }
    }

    bool IsZero(const Directive& directive) const {
        switch (directive.kind) {
            case DirectiveKind::character:
            case DirectiveKind::expansion:
                return false;
            case DirectiveKind::seconds:
                return parts.second == 0 && parts.nanoseconds == 0;
            case DirectiveKind::totalDays:
                return TotalDays(parts) == 0;
            default:
                return parts.*directive.part == 0;
        }
    }

    bool IsWildcard(const Directive& directive) const {
        if (!rules.wildcards) return false;
        switch (directive.kind) {
            case DirectiveKind::seconds:
                return parts.second == kDateWildcard || parts.nanoseconds == kDateWildcard;
            case DirectiveKind::totalDays:
                return parts.year == kDateWildcard && parts.month == kDateWildcard && parts.day == kDateWildcard;
            default:
                return parts.*directive.part == kDateWildcard;
        }
    }

    void PrintPart(char letter, const Directive& directive) {
        switch (directive.kind) {
            case DirectiveKind::shortYear:
                PrintNumber(parts.year % 100, directive.digits);
                break;
            case DirectiveKind::clockHour:
                PrintNumber(ClockHour(parts.hour, ShowsDayHalf(), rules), directive.digits);
                break;
            case DirectiveKind::monthName:
                if (parts.month >= 1 && parts.month <= 12) {
                    PrintName(ky_months[parts.month - 1], letter == 'b');
                } else {
                    PrintNumber(parts.month, directive.digits);
                }
                break;
            case DirectiveKind::weekdayName:
                PrintName(ky_weekdays[rules.weekday(parts)], letter == 'a');
                break;
            case DirectiveKind::seconds:
                output.SetEnd(PutSeconds(output.Room(kDateNumberSize), parts.second, parts.nanoseconds));
                break;
            case DirectiveKind::totalDays:
                PrintNumber(TotalDays(parts), 1);
                break;
            default:
                break;
        }
    }

    void PrintNumber(long long number, unsigned digits) {
        char* const at = output.Room(kDateNumberSize);
        if (number >= 0 && number < 100 && digits == 2) {
            output.SetEnd(PutTwo(at, static_cast<int>(number)));
        } else if (number >= 0 && number < 10000 && digits == 4) {
            output.SetEnd(PutFour(at, static_cast<int>(number)));
        } else {
            output.SetEnd(PutNumber(at, number, digits));
        }
    }

    void PrintName(const char* name, bool isShort) {
        if (isShort) {
            output.Append({name, ShortNameEnd(name)});
        } else {
            output.Append(std::string_view(name));
        }
    }

    void PrintDayHalf(char letter) {
        if (afterWildcard || (rules.wildcards && parts.hour == kDateWildcard)) {
            output.Append('*');
        } else if (letter == 'p') {
            output.Append(std::string_view(parts.hour < kNoon ? "am" : "pm"));
        } else {
            output.Append(std::string_view(parts.hour < kNoon ? "AM" : "PM"));
        }
    }

    bool ShowsDayHalf() {
        if (!hasDayHalf) hasDayHalf = HasDayHalf(outerFormat);
        return *hasDayHalf;
    }
};

}  // namespace

void PrintItems(KyString& out, const DateTimeParts& parts, const char* format, const DatePrintRules& rules) {
    DatePrinter(parts, format, rules).MoveTo(out);
}

}  // namespace ky
