// Any text, scanned with any format or one that rows have, against the slow scanner.

#include <iterator>

#include "input.h"
#include "kystring.h"
#include "oracle/slow_date_text.h"

namespace {

const char* const kFormats[] = {"%Y-%m-%d", "%H:%M:%S", "%a %e.%b %Y", "%I:%M:%S %p",
                                "%X",       "%V",       "%O",          "%a %b %e %I:%M:%S %p"};

bool Equal(const ky::DateTimeParts& a, const ky::DateTimeParts& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day && a.hour == b.hour && a.minute == b.minute &&
           a.second == b.second && a.nanoseconds == b.nanoseconds;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned choice = input.Byte() % 16;
    const std::string format = choice < std::size(kFormats) ? kFormats[choice] : input.Text();
    const std::string text = input.Text();
    KyString in(text.c_str());
    ky::DateTimeParts parts{77, 77, 77, 77, 77, 77, 77};
    const ky::DateScan result = ky::ScanDateTime(parts, in, format.c_str());
    if (text.starts_with("{NULL}")) {
        if (result != ky::DateScan::null || parts.year != 77) __builtin_trap();
        return 0;
    }
    SlowDateScanner slow(text);
    const bool isWhole = slow.Scan(format);
    if (result != (isWhole ? ky::DateScan::whole : ky::DateScan::cut) || !Equal(parts, slow.parts)) __builtin_trap();

    // What was read prints.
    KyString out;
    ky::PrintDateTime(out, parts, format.c_str(), ky::kKyDatePrint);
    return 0;
}
