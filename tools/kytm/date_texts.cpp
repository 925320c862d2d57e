#include "date_texts.h"

#include <algorithm>
#include <optional>
#include <string>

#include "kytypes.h"

namespace kytm {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// A run of digits, or "*".
struct Run {
    std::string_view digits;
    bool isWildcard;
    bool isNegative;  ///< behind "-", which may be a separator as well
    bool isFraction;  ///< behind "." and a digit, which may be a separator as well

    std::string_view Significant() const {
        return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
    }
    bool IsZero() const { return !isWildcard && Significant().empty(); }
    bool IsMinusOne() const { return isWildcard || (isNegative && Significant() == "1"); }
};

class Runs {
public:
    explicit Runs(std::string_view wholeText) : text(wholeText) {}

    std::optional<Run> Next() {
        while (at < text.size() && !IsDigit(text[at]) && text[at] != '*') ++at;
        if (at == text.size()) return std::nullopt;
        const std::size_t start = at++;
        if (text[start] == '*') return Run{{}, true, false, false};
        while (at < text.size() && IsDigit(text[at])) ++at;
        return Run{text.substr(start, at - start), false, start > 0 && text[start - 1] == '-',
                   start > 1 && text[start - 1] == '.' && IsDigit(text[start - 2])};
    }

private:
    std::string_view text;
    std::size_t at = 0;
};

/// The digits behind a decimal point as billionths; nothing for a finer fraction.
std::optional<long long> Billionths(std::string_view digits) {
    const std::size_t last = digits.find_last_not_of('0');
    digits = last == std::string_view::npos ? std::string_view() : digits.substr(0, last + 1);
    if (digits.size() > 9) return std::nullopt;
    std::string nine(digits);
    nine.append(9 - digits.size(), '0');
    return std::stoll(nine);
}

bool SameFraction(std::string_view given, std::string_view printed) {
    const std::optional<long long> a = Billionths(given);
    const std::optional<long long> b = Billionths(printed);
    return a && b && *a - *b <= 1 && *b - *a <= 1;
}

bool SameRun(const Run& given, const Run& printed) {
    if (printed.isWildcard) return given.IsMinusOne();
    if (given.isWildcard) return false;
    if (given.Significant() == printed.Significant()) return true;
    return given.isFraction && printed.isFraction && SameFraction(given.digits, printed.digits);
}

}  // namespace

bool IsDateType(char id) {
    switch (id) {
        case KyDATE_T:
        case KyTIME_T:
        case KyDATIME_T:
        case D_DATE_T:
        case D_TIME_T:
        case D_TIMESTAMP_T:
        case D_INTERVAL_T:
        case KyDATIME_N_T:
        case KyTIMESPAN_T:
            return true;
        default:
            return false;
    }
}

bool SameNumbers(std::string_view given, std::string_view printed) {
    Runs givenRuns(given);
    Runs printedRuns(printed);
    std::optional<Run> a = givenRuns.Next();
    std::optional<Run> b = printedRuns.Next();
    while (a || b) {
        if (a && b && SameRun(*a, *b)) {
            b = printedRuns.Next();
        } else if (!a || !(a->IsZero() || (a->isFraction && SameFraction(a->digits, "")))) {
            return false;
        }
        a = givenRuns.Next();
    }
    return true;
}

}  // namespace kytm
