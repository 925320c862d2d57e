#ifndef SLOW_DATE_TEXT_H
#define SLOW_DATE_TEXT_H

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "date_text.h"
#include "kydatime.h"
#include "support/c_locale.h"

/// The printer and the scanner of dates, one directive after the other, by the C library's numbers in the "C" locale.

/// What `snprintf` makes of a format that is no literal, so that its flags are not judged.
inline std::string Formatted(const char* format, ...) {
    const CLocale plain;
    char text[400];
    va_list arguments;
    va_start(arguments, format);
    (void)std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    return text;
}

inline std::string SlowSeconds(int second, int nanoseconds) {
    const double value = second == 0 && nanoseconds == 0 ? 0.0 : second + nanoseconds / 1e9;
    if (nanoseconds == 0) return Formatted("%0*.*lf", 2, 0, value);
    if (nanoseconds % 1000 != 0) return Formatted("%0*.*lf", 12, 9, value);
    if (nanoseconds % 1000000 != 0) return Formatted("%0*.*lf", 9, 6, value);
    return Formatted("%0*.*lf", 6, 3, value);
}

inline const char* SlowExpansion(char letter) {
    switch (letter) {
        case 'D':
            return "%Y-%m-%d";
        case 'T':
            return "%H:%M:%S";
        case 'O':
            return "%Y-%m-%dT%H:%M:%S";
        case 'X':
            return "%Y-%m-%dT%H:%M:%f";
        case 'V':
            return "%J.%H:%M:%f";
        default:
            return nullptr;
    }
}

class SlowDatePrinter {
public:
    SlowDatePrinter(const ky::DateTimeParts& someParts, bool readsWildcards, bool clockHours, int aWeekday)
        : p(someParts), wildcards(readsWildcards), clock(clockHours), weekday(aWeekday) {}

    std::string Print(const std::string& format) {
        twelveHours = false;
        for (std::size_t i = 0; i < format.size(); ++i) {
            if (format[i] != '%') continue;
            ++i;
            if (i < format.size() && format[i] == '?') {
                ++i;
                if (i < format.size() && format[i] == '(') ++i;
            }
            if (i < format.size() && (format[i] == 'p' || format[i] == 'P')) twelveHours = true;
        }
        Walk(format);
        return out;
    }

private:
    const ky::DateTimeParts& p;
    bool wildcards;
    bool clock;
    int weekday;
    bool twelveHours = false;
    bool printed = false;
    bool star = false;
    std::vector<std::size_t> marks;
    std::string out;

    void Walk(const std::string& format) {
        for (std::size_t i = 0; i < format.size(); ++i) {
            if (format[i] == ')' && !marks.empty()) {
                if (!printed) out.erase(marks.back());
                marks.pop_back();
                continue;
            }
            if (format[i] != '%') {
                out += format[i];
                continue;
            }
            ++i;
            bool optional = false;
            bool group = false;
            if (i < format.size() && format[i] == '?') {
                optional = true;
                ++i;
                if (i < format.size() && format[i] == '(') {
                    group = true;
                    ++i;
                }
            }
            if (i >= format.size()) return;
            if (group) marks.push_back(out.size());
            const char letter = format[i];
            if (SlowExpansion(letter) != nullptr) {
                Walk(SlowExpansion(letter));
            } else {
                Directive(letter, optional);
            }
        }
    }

    void Directive(char letter, bool optional) {
        const long long total = p.year * 360LL + p.month * 30LL + p.day;
        const bool suppress = optional && !printed;
        switch (letter) {
            case 'a':
                return Component(suppress && p.day == 0, p.day == -1, std::string(ky_weekdays[weekday]).substr(0, 3));
            case 'A':
                return Component(suppress && p.day == 0, p.day == -1, ky_weekdays[weekday]);
            case 'b':
                return Component(suppress && p.month == 0, p.month == -1, Month().substr(0, IsMonth() ? 3 : 99));
            case 'B':
                return Component(suppress && p.month == 0, p.month == -1, Month());
            case 'e':
                return Component(suppress && p.day == 0, p.day == -1, Formatted("%2.2d", p.day));
            case 'd':
                return Component(suppress && p.day == 0, p.day == -1, Formatted("%02.2d", p.day));
            case 'f':
                return Component(suppress && p.second == 0 && p.nanoseconds == 0, p.second == -1 || p.nanoseconds == -1,
                                 SlowSeconds(p.second, p.nanoseconds));
            case 'H':
                return Component(suppress && p.hour == 0, p.hour == -1, Formatted("%02.2d", p.hour));
            case 'I':
                return Component(suppress && p.hour == 0, p.hour == -1, Formatted("%02.2d", ClockHour()));
            case 'J':
                return Component(suppress && total == 0, p.year == -1 && p.month == -1 && p.day == -1,
                                 Formatted("%lld", total));
            case 'm':
                return Component(suppress && p.month == 0, p.month == -1, Formatted("%02.2d", p.month));
            case 'M':
                return Component(suppress && p.minute == 0, p.minute == -1, Formatted("%02.2d", p.minute));
            case 'N':
                return Component(suppress && p.nanoseconds == 0, p.nanoseconds == -1, Formatted("%d", p.nanoseconds));
            case 'S':
                return Component(suppress && p.second == 0, p.second == -1, Formatted("%02.2d", p.second));
            case 'Y':
                return Component(suppress && p.year == 0, p.year == -1, Formatted("%04.4d", p.year));
            case 'y':
                return Component(suppress && p.year == 0, p.year == -1, Formatted("%02.2d", p.year % 100));
            case 'p':
            case 'P': {
                if (suppress && p.hour == 0) return;
                printed = true;
                const bool pm = p.hour >= 12;
                if (star || (wildcards && p.hour == -1)) {
                    out += '*';
                } else if (letter == 'p') {
                    out += pm ? "pm" : "am";
                } else {
                    out += pm ? "PM" : "AM";
                }
                return;
            }
            default:
                printed = true;
                out += letter;
                if (star) out += '*';
        }
    }

    void Component(bool suppressed, bool isWildcard, const std::string& text) {
        if (suppressed) return;
        printed = true;
        star = wildcards && isWildcard;
        out += star ? "*" : text;
    }

    bool IsMonth() const { return p.month >= 1 && p.month <= 12; }
    std::string Month() const { return IsMonth() ? ky_months[p.month - 1] : Formatted("%03.3d", p.month); }

    int ClockHour() const {
        if (!clock) return p.hour;
        if (twelveHours && p.hour == 0) return 12;
        return p.hour > 12 ? p.hour - 12 : p.hour;
    }
};

/// What the text of a date that is no null text gives.
class SlowDateScanner {
public:
    ky::DateTimeParts parts;

    explicit SlowDateScanner(std::string text) : in(std::move(text)) {}

    /// Whether the format came to its end.
    bool Scan(const std::string& format) {
        const bool whole = Walk(format);
        if (pm && parts.hour < 12) parts.hour += 12;
        if (am && parts.hour == 12) parts.hour = 0;
        return whole;
    }

private:
    std::string in;
    std::size_t pos = 0;
    std::size_t groups = 0;
    bool am = false;
    bool pm = false;

    static bool Space(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }
    static bool Digit(char c) { return c >= '0' && c <= '9'; }
    bool Ended() const { return pos >= in.size(); }
    char Here() const { return Ended() ? '\0' : in[pos]; }
    void Skip(std::size_t n) { pos = std::min(pos + n, in.size()); }

    bool Walk(const std::string& format) {
        std::size_t i = 0;
        for (;;) {
            while (i < format.size() && Space(format[i])) ++i;
            while (Space(Here())) ++pos;
            if (i >= format.size()) return true;
            if (format[i] == '%') {
                ++i;
                if (i < format.size() && format[i] == '?') {
                    ++i;
                    if (i < format.size() && format[i] == '(') {
                        ++i;
                        if (i < format.size()) ++groups;
                    }
                }
                if (i >= format.size()) return true;
                if (Ended()) return false;
                const char letter = format[i++];
                if (SlowExpansion(letter) != nullptr) {
                    if (!Walk(SlowExpansion(letter))) return false;
                } else {
                    Directive(letter);
                }
            } else if (format[i] == ')' && groups > 0) {
                --groups;
                ++i;
            } else {
                if (!Digit(Here()) || Here() == format[i]) Skip(1);
                ++i;
            }
        }
    }

    void Directive(char letter) {
        const bool star = Here() == '*';
        if (star) Skip(1);
        int value = 0;
        switch (letter) {
            case 'a':
            case 'A':
                if (!star) Name(ky_weekdays, 7);
                break;
            case 'b':
            case 'B':
                if (star) {
                    parts.month = -1;
                } else if (const int index = Name(ky_months, 12); index >= 0) {
                    parts.month = index + 1;
                } else {
                    const std::string three = in.substr(pos, 3);
                    if (Number(three, value)) parts.month = value;
                    Skip(3);
                }
                break;
            case 'e':
            case 'd':
                Integer(star, parts.day);
                break;
            case 'f':
                if (star) {
                    parts.second = parts.nanoseconds = -1;
                } else {
                    Fraction();
                }
                break;
            case 'H':
            case 'I':
                Integer(star, parts.hour);
                break;
            case 'J':
                if (star) {
                    parts.year = parts.month = parts.day = -1;
                } else if (IntegerHere(value)) {
                    parts.year = value / 360;
                    parts.month = value % 360 / 30;
                    parts.day = value % 30;
                }
                break;
            case 'm':
                Integer(star, parts.month);
                break;
            case 'M':
                Integer(star, parts.minute);
                break;
            case 'N':
                Integer(star, parts.nanoseconds);
                break;
            case 'p':
            case 'P':
                if (star) break;
                if (Here() == 'p' || Here() == 'P') pm = true;
                if (Here() == 'a' || Here() == 'A') am = true;
                Skip(2);
                break;
            case 'S':
                Integer(star, parts.second);
                break;
            case 'Y':
                Integer(star, parts.year);
                break;
            case 'y':
                if (star) {
                    parts.year = -1;
                } else if (IntegerHere(value)) {
                    parts.year = Clamp(static_cast<long long>(value) + (value > 30 ? 1900 : 2000));
                }
                break;
            default:
                if (!star) Skip(1);
        }
    }

    static int Clamp(long long number) {
        return static_cast<int>(std::clamp(number, static_cast<long long>(INT_MIN), static_cast<long long>(INT_MAX)));
    }

    /// A sign and digits at the start of a text.
    static bool Number(const std::string& text, int& value) {
        const std::size_t sign = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
        if (sign >= text.size() || !Digit(text[sign])) return false;
        value = Clamp(std::strtoll(text.c_str(), nullptr, 10));
        return true;
    }

    bool IntegerHere(int& value) {
        const bool read = Number(in.substr(pos), value);
        if (Here() == '+' || Here() == '-') ++pos;
        while (Digit(Here())) ++pos;
        return read;
    }

    void Integer(bool star, int& part) {
        if (star) {
            part = -1;
        } else {
            IntegerHere(part);
        }
    }

    int Name(const char* const* names, int count) {
        for (int i = 0; i < count; ++i) {
            const std::string name = names[i];
            if (name.empty() || in.compare(pos, std::min<std::size_t>(3, name.size()), name, 0, 3) != 0) continue;
            for (std::size_t k = 0; k < name.size() && Here() == name[k]; ++k) ++pos;
            return i;
        }
        return -1;
    }

    void Fraction() {
        std::string number;  // no hexadecimal digits, no words
        for (std::size_t k = pos; k < in.size() && std::strchr("0123456789+-.eE", in[k]) != nullptr; ++k) {
            number += in[k];
        }
        const CLocale plain;
        char* end = nullptr;
        const double value = std::strtod(number.c_str(), &end);
        if (end != number.c_str()) {
            parts.second = value <= INT_MIN ? INT_MIN : value >= INT_MAX ? INT_MAX : static_cast<int>(value);
            const double scaled = value * 1e9;
            const long long whole = scaled <= -9223372036854775808.0  ? LLONG_MIN
                                    : scaled >= 9223372036854775808.0 ? LLONG_MAX
                                                                      : static_cast<long long>(scaled);
            parts.nanoseconds = static_cast<int>(whole % 1000000000);
        }
        while (!Ended() && (Digit(Here()) || Here() == '.' || Here() == '-' || Here() == '+')) ++pos;
    }
};

#endif
