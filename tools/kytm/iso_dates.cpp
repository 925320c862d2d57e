#include "iso_dates.h"

#include <charconv>

#include "kytypes.h"

namespace kytm {

namespace {

/// One letter a part, as in the formats; "f" is the second with its fraction, other characters stand for themselves.
struct Form {
    char type;
    const char* shape;
    const char* scanFormat;
    const char* printFormat;
    const char* fault;
};

constexpr char kNoDate[] = "it is no date like 2024-05-31";
constexpr char kNoTime[] = "it is no time like 23:59:59";
constexpr char kNoDateTime[] = "it is no date and time like 2024-05-31T23:59:59";
constexpr char kNoSpan[] = "it is no time span like 12.03:59:59, days of 24 hours first";
constexpr char kNoSuchDay[] = "there is no such day";
constexpr char kOutOfRange[] = "a part of it is too large or too small";

constexpr Form kForms[] = {
    {KyDATE_T, "Y-m-d", "%Y-%m-%d", "%D", kNoDate},
    {D_DATE_T, "Y-m-d", "%Y-%m-%d", "%D", kNoDate},
    {KyTIME_T, "H:M:S", "%H:%M:%S", "%T", kNoTime},
    {D_TIME_T, "H:M:f", "%H:%M:%S.%N", "%H:%M:%f", kNoTime},
    {KyDATIME_T, "Y-m-dTH:M:S", "%Y-%m-%dT%H:%M:%S", "%O", kNoDateTime},
    {KyDATIME_N_T, "Y-m-dTH:M:f", "%Y-%m-%dT%H:%M:%S.%N", "%X", kNoDateTime},
    {D_TIMESTAMP_T, "Y-m-dTH:M:f", "%Y-%m-%dT%H:%M:%S.%N", "%X", kNoDateTime},
    {KyTIMESPAN_T, "J.H:M:f", "%J.%H:%M:%S.%N", "%V", kNoSpan},
    {D_INTERVAL_T, "J.H:M:f", "%J.%H:%M:%S.%N", "%V", kNoSpan},
};

/// The number of a wildcard; no year can have it.
constexpr long kAny = -1;

struct Limits {
    long least;
    long greatest;
};

constexpr Limits LimitsOf(char part) {
    constexpr long mostYears = 32767;
    constexpr long mostDays = mostYears * 360;
    switch (part) {
        case 'Y':
            return {-mostYears, mostYears};
        case 'J':
            return {-mostDays, mostDays};
        case 'm':
            return {0, 12};
        case 'd':
            return {0, 31};
        case 'H':
            return {0, 23};
        case 'M':
            return {0, 59};
        default:
            return {0, 60};  // a leap second
    }
}

/// Before the reform of 1582 every fourth year is a leap year.
constexpr bool IsLeapYear(long year) {
    constexpr long reform = 1582;
    return year % 4 == 0 && (year <= reform || year % 100 != 0 || year % 400 == 0);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Takes a text apart along a shape.
class Parts {
public:
    explicit Parts(std::string_view aText) : text(aText) {}

    enum class Outcome { fine, otherForm, outOfRange };

    Outcome Take(char part, std::string& canonical) {
        if (text.starts_with('*')) {
            text.remove_prefix(1);
            canonical += part == 'f' ? "*.*" : "*";
            return Outcome::fine;
        }
        std::size_t digits = (part == 'Y' || part == 'J') && text.starts_with('-') ? 1 : 0;
        while (digits < text.size() && IsDigit(text[digits])) ++digits;
        long number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + digits, number);
        if (error == std::errc::result_out_of_range) return Outcome::outOfRange;
        if (error != std::errc() || end != text.data() + digits) return Outcome::otherForm;
        const Limits limits = LimitsOf(part);
        if (number < limits.least || number > limits.greatest) return Outcome::outOfRange;
        if (part == 'Y' && number == kAny) return Outcome::outOfRange;
        Note(part, number);
        if (number == 0 && text.starts_with('-')) canonical += '-';
        canonical += std::to_string(number);
        text.remove_prefix(digits);
        return part == 'f' ? TakeFraction(canonical) : Outcome::fine;
    }

    bool TakeSign(char sign) {
        const bool fits = text.starts_with(sign) || (sign == 'T' && text.starts_with(' '));
        if (fits) text.remove_prefix(1);
        return fits;
    }

    bool AtEnd() const { return text.empty(); }

    /// With a wildcard any day of the longest month will do.
    bool DayExists() const {
        constexpr int february = 2;
        constexpr long days[] = {31, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        if (month == kAny || day == kAny) return true;
        if (month == 0 || day == 0) return month == 0 && day == 0 && year == 0;  // the cleared date
        if (month == february && year != kAny && !IsLeapYear(year)) return day < days[february];
        return day <= days[month];
    }

private:
    std::string_view text;
    long year = kAny;
    long month = kAny;
    long day = kAny;

    void Note(char part, long number) {
        if (part == 'Y') year = number;
        if (part == 'm') month = number;
        if (part == 'd') day = number;
    }

    /// As nanoseconds: a fraction that is scanned as a real number may lose its last digit.
    Outcome TakeFraction(std::string& canonical) {
        constexpr std::size_t nineDigits = 9;
        std::size_t digits = 0;
        if (text.starts_with('.')) {
            text.remove_prefix(1);
            while (digits < text.size() && IsDigit(text[digits])) ++digits;
            if (digits == 0 || digits > nineDigits) return Outcome::otherForm;
        }
        canonical.append(".").append(text.substr(0, digits)).append(nineDigits - digits, '0');
        text.remove_prefix(digits);
        return Outcome::fine;
    }
};

}  // namespace

std::optional<IsoDates> IsoDates::Of(char type) {
    for (const Form& form : kForms)
        if (form.type == type) return IsoDates(form.shape, form.scanFormat, form.printFormat, form.fault);
    return std::nullopt;
}

const char* IsoDates::Read(std::string_view text) {
    canonical.clear();
    Parts parts(text);
    for (const char* part = shape; *part != '\0'; ++part) {
        if (std::string_view("YmdHMSJf").find(*part) == std::string_view::npos) {
            if (!parts.TakeSign(*part)) return fault;
            canonical += *part;
            continue;
        }
        switch (parts.Take(*part, canonical)) {
            case Parts::Outcome::fine:
                break;
            case Parts::Outcome::outOfRange:
                return kOutOfRange;
            default:
                return fault;
        }
    }
    if (!parts.AtEnd()) return fault;
    return parts.DayExists() ? nullptr : kNoSuchDay;
}

}  // namespace kytm
