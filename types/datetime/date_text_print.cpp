#include <bit>
#include <cstdint>
#include <cstring>

#include "date_text.h"
#include "date_text_digits.h"
#include "date_text_directives.h"
#include "date_text_names.h"
#include "date_text_pieces.h"
#include "date_text_print_items.h"
#include "kydatime.h"
#include "kystring.h"
#include "number_text.h"
#include "text_constants.h"

namespace ky {

namespace {

constexpr bool IsBelow(int part, unsigned limit) { return static_cast<unsigned>(part) < limit; }

char* Put(char* at, char c) {
    *at = c;
    return at + 1;
}

/// Three letters of a name and a space, as they stand in memory; 0 for a shorter name.
std::uint32_t ShortNameAndSpace(const char* name) {
    static_assert(kShortName == 3 && std::endian::native == std::endian::little);
    if (name[0] == 0 || name[1] == 0 || name[2] == 0) return 0;
    std::uint32_t letters;  // there is a fourth, the terminator at least
    std::memcpy(&letters, name, sizeof letters);
    return (letters & 0xFFFFFF) | std::uint32_t{' '} << 24;
}

char* Put(char* at, std::uint32_t nameAndSpace) {
    std::memcpy(at, &nameAndSpace, sizeof nameAndSpace);
    return at + sizeof nameAndSpace;
}

/// `KyDate`'s weekday; by the same congruence without its general case where that gives the calendar's.
int KyDateWeekday(const DateTimeParts& parts) {
    if (parts.year >= 1 && parts.year < 4600 && IsBelow(parts.month - 1, 12) && IsBelow(parts.day, 100)) {
        constexpr unsigned char kDaysBeforeMonth[] = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};  // from March on, modulo 7
        const auto year = static_cast<unsigned>(parts.year - (parts.month < 3 ? 1 : 0));
        const unsigned century = year / 100;
        const auto day = static_cast<unsigned>(parts.day) + kDaysBeforeMonth[parts.month - 1];
        return static_cast<int>((year + year / 4 - century + century / 4 + day + 6) % 7);
    }
    return KyDate(static_cast<short>(parts.year), static_cast<signed char>(parts.month),
                  static_cast<signed char>(parts.day))
        .GetDayOfTheDate();
}

/// A value in a recognised format: its length first, by which it is seen whether the value has the usual digits and
/// names, then its characters.
class PiecesText {
public:
    PiecesText(const DateTimeParts& someParts, FormatPieces pieces) : parts(someParts), format(pieces) {}

    /// False when a part is not one that the format shows with its usual number of digits.
    bool Measure(const DatePrintRules& rules) {
        return MeasureDate(rules) && (format.Time() == TimePiece::none || MeasureTime());
    }

    std::size_t Length() const { return length; }

    /// Writes exactly `Length` characters.
    void Write(char* at, const DatePrintRules& rules) const {
        at = PutDate(at);
        if (format.Between() != 0) at = Put(at, format.Between());
        if (format.Time() != TimePiece::none) PutTime(at, rules);
    }

private:
    const DateTimeParts& parts;
    FormatPieces format;
    unsigned length = 0;
    std::uint32_t weekday = 0;
    std::uint32_t month = 0;

    bool MeasureDate(const DatePrintRules& rules) {
        length = format.Between() != 0 ? 1 : 0;
        switch (format.Date()) {
            case DatePiece::numeric:
                length += sizeof "2024-05-07" - 1;
                return IsBelow(parts.year, 10000) && IsBelow(parts.month, 100) && IsBelow(parts.day, 100);
            case DatePiece::named:
                length += sizeof "Tue 07.May 2024" - 1;
                return IsBelow(parts.year, 10000) && FindNames(rules);
            case DatePiece::yearless:
                length += sizeof "Tue May 07" - 1;
                return FindNames(rules);
            case DatePiece::days:
                return MeasureDays();
            case DatePiece::none:
                break;
        }
        return true;
    }

    bool FindNames(const DatePrintRules& rules) {
        if (!IsBelow(parts.month - 1, 12) || !IsBelow(parts.day, 100)) return false;
        // A call less for most types.
        const int day = rules.weekday == &KyDateWeekday ? KyDateWeekday(parts) : rules.weekday(parts);
        weekday = ShortNameAndSpace(ky_weekdays[day]);
        month = ShortNameAndSpace(ky_months[parts.month - 1]);
        return weekday != 0 && month != 0;
    }

    bool MeasureDays() {
        if (parts.year < 0 || parts.month < 0 || parts.day < 0) return false;
        long long rest = TotalDays(parts);
        do {
            ++length;
            rest /= 10;
        } while (rest != 0);
        return true;
    }

    bool MeasureTime() {
        if (!IsBelow(parts.hour, 100) || !IsBelow(parts.minute, 100) || !IsBelow(parts.second, 100)) return false;
        length += sizeof "15:04:09" - 1;
        if (format.Time() == TimePiece::clock) length += sizeof " pm" - 1;
        if (format.Time() != TimePiece::fraction || parts.nanoseconds == 0) return true;
        length += 1 + FractionDigits(parts.nanoseconds);
        return IsBelow(parts.nanoseconds, 1'000'000'000);
    }

    char* PutDate(char* at) const {
        switch (format.Date()) {
            case DatePiece::numeric:
                at = Put(PutFour(at, parts.year), '-');
                at = Put(PutTwo(at, parts.month), '-');
                return PutTwo(at, parts.day);
            case DatePiece::named:
                at = Put(PutTwo(Put(at, weekday), parts.day), '.');
                return PutFour(Put(at, month), parts.year);
            case DatePiece::yearless:
                return PutTwo(Put(Put(at, weekday), month), parts.day);
            case DatePiece::days: {
                char text[kIntegerTextSize];
                const unsigned digits = UnsignedText(static_cast<unsigned long long>(TotalDays(parts)), text);
                std::memcpy(at, text, digits);
                return at + digits;
            }
            case DatePiece::none:
                break;
        }
        return at;
    }

    void PutTime(char* at, const DatePrintRules& rules) const {
        const bool isClock = format.Time() == TimePiece::clock;
        at = Put(PutTwo(at, isClock ? ClockHour(parts.hour, true, rules) : parts.hour), ':');
        at = Put(PutTwo(at, parts.minute), ':');
        at = PutTwo(at, parts.second);
        if (isClock) {
            Put(Put(Put(at, ' '), parts.hour < kNoon ? 'a' : 'p'), 'm');
        } else if (format.Time() == TimePiece::fraction && parts.nanoseconds != 0) {
            PutFraction(Put(at, '.'), static_cast<unsigned>(parts.nanoseconds), FractionDigits(parts.nanoseconds));
        }
    }
};

/// False, and nothing is changed, when the parts are to be printed directive by directive. Straight code where the
/// pieces are a constant.
[[gnu::always_inline]] inline bool PrintPieces(KyString& out, FormatPieces pieces, const DateTimeParts& parts,
                                               const DatePrintRules& rules) {
    PiecesText text(parts, pieces);
    if (!text.Measure(rules)) return false;
    char* const at = RenewText(out, text.Length());
    if (at == nullptr) return false;
    text.Write(at, rules);
    return true;
}

bool PrintRecognised(KyString& out, FormatPieces pieces, const DateTimeParts& parts, const DatePrintRules& rules) {
    if (pieces == kNumericDateFormat) return PrintPieces(out, kNumericDateFormat, parts, rules);
    if (pieces == kNamedDateFormat) return PrintPieces(out, kNamedDateFormat, parts, rules);
    if (pieces == kPlainTimeFormat) return PrintPieces(out, kPlainTimeFormat, parts, rules);
    return PrintPieces(out, pieces, parts, rules);
}

}  // namespace

constinit const DatePrintRules kKyDatePrint = {&KyDateWeekday, true};

void PrintDateTime(KyString& out, const DateTimeParts& parts, const char* format, const DatePrintRules& rules) {
    const FormatPieces pieces = PiecesOf(format);
    if (pieces.Recognised() && PrintRecognised(out, pieces, parts, rules)) return;
    PrintItems(out, parts, format, rules);
}

void PrintNullDate(KyString& out) { out = NullPrintString(); }

}  // namespace ky
