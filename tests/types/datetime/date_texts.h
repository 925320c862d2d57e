#ifndef DATE_TEXTS_H
#define DATE_TEXTS_H

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>

#include "date_text.h"
#include "kystring.h"

namespace ky {

inline bool operator==(const DateTimeParts& a, const DateTimeParts& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day && a.hour == b.hour && a.minute == b.minute &&
           a.second == b.second && a.nanoseconds == b.nanoseconds;
}

inline void PrintTo(const DateTimeParts& p, std::ostream* out) {
    *out << p.year << '-' << p.month << '-' << p.day << ' ' << p.hour << ':' << p.minute << ':' << p.second << " ns "
         << p.nanoseconds;
}

}  // namespace ky

inline std::string Printed(const ky::DateTimeParts& parts, const char* format,
                           const ky::DatePrintRules& rules = ky::kKyDatePrint) {
    KyString out("before");
    ky::PrintDateTime(out, parts, format, rules);
    return out.StrGet();
}

/// What a text gives for a value that is anything before.
struct Scan {
    ky::DateTimeParts parts{77, 77, 77, 77, 77, 77, 77};
    ky::DateScan result;

    Scan(KyString& text, const char* format) : result(ky::ScanDateTime(parts, text, format)) {}
    Scan(const char* text, const char* format) : result() {
        KyString in(text);
        result = ky::ScanDateTime(parts, in, format);
    }
};

struct PrintGolden {
    ky::DateTimeParts parts;
    const char* format;
    const char* text;
};

inline void CheckPrints(std::initializer_list<PrintGolden> goldens) {
    for (const auto& [parts, format, text] : goldens) EXPECT_EQ(Printed(parts, format), text) << format;
}

struct ScanGolden {
    const char* text;
    const char* format;
    ky::DateTimeParts parts;
    ky::DateScan result = ky::DateScan::whole;
};

inline void CheckScans(std::initializer_list<ScanGolden> goldens) {
    for (const auto& [text, format, parts, result] : goldens) {
        const Scan scan(text, format);
        EXPECT_EQ(scan.parts, parts) << text << " by " << format;
        EXPECT_EQ(scan.result, result) << text << " by " << format;
    }
}

#endif
