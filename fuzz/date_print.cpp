// Any parts, printed with any format, against the slow printer.

#include "input.h"
#include "kystring.h"
#include "oracle/slow_date_text.h"

namespace {

int Part(Input& input) {
    const unsigned kind = input.Byte();
    if (kind < 32) return -1;
    if (kind < 160) return static_cast<signed char>(input.Byte());
    unsigned bits = 0;
    for (unsigned i = 0; i < 4; ++i) bits = bits << 8 | input.Byte();
    return static_cast<int>(bits) >> (kind % 32);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned rules = input.Byte();
    const ky::DateTimeParts parts{Part(input), Part(input), Part(input), Part(input),
                                  Part(input), Part(input), Part(input)};
    const std::string format = input.Text();
    const bool wildcards = (rules & 1) == 0;
    const bool clockHours = (rules & 2) == 0;
    const int weekday = ky::kKyDatePrint.weekday(parts);

    KyString out("before");
    ky::PrintDateTime(out, parts, format.c_str(), {ky::kKyDatePrint.weekday, wildcards, clockHours});
    if (SlowDatePrinter(parts, wildcards, clockHours, weekday).Print(format) != out.StrGet()) __builtin_trap();
    return 0;
}
