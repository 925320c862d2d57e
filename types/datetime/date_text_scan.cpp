#include <cstdint>
#include <cstring>

#include "ascii.h"
#include "date_text.h"
#include "date_text_directives.h"
#include "date_text_names.h"
#include "date_text_pieces.h"
#include "date_text_scan_items.h"
#include "date_text_scan_values.h"
#include "eight_bit_text.h"
#include "kydatime.h"
#include "kystring.h"
#include "text_constants.h"

namespace ky {

namespace {

int DigitAt(const char* at) { return *at - '0'; }

/// Exactly two digits, which no other follows.
bool TakeTwo(const char*& at, int& value) {
    if (!IsDigit(at[0]) || !IsDigit(at[1]) || IsDigit(at[2])) return false;
    value = DigitAt(at) * 10 + DigitAt(at + 1);
    at += 2;
    return true;
}

bool TakeFour(const char*& at, int& value) {
    if (!IsDigit(at[0]) || !IsDigit(at[1])) return false;
    const int century = DigitAt(at) * 10 + DigitAt(at + 1);
    at += 2;
    if (!TakeTwo(at, value)) return false;
    value += century * 100;
    return true;
}

bool Take(const char*& at, char c) {
    if (*at != c) return false;
    ++at;
    return true;
}

/// Eight characters, of which digits have the value 0 to 9 where the pattern has a "0", and no other where it has one.
class EightCharacters {
public:
    explicit constexpr EightCharacters(const char (&pattern)[9]) {
        for (unsigned i = 0; i < 8; ++i) {
            const bool isDigit = pattern[i] == '0';
            characters |= std::uint64_t{static_cast<unsigned char>(pattern[i])} << (8 * i);
            // Sets the top bit of what is 10 and more, or is not 0.
            excess |= std::uint64_t{isDigit ? 0x76U : 0x7FU} << (8 * i);
        }
    }

    /// Whether a text begins so. Then byte i of `pairs` is the value of the digits i and i + 1.
    bool Match(const char* text, std::uint64_t& pairs) const {
        std::uint64_t digits;
        std::memcpy(&digits, text, sizeof digits);
        digits ^= characters;
        if ((((digits + excess) | digits) & 0x8080808080808080) != 0) return false;
        pairs = digits * 10 + (digits >> 8);
        return true;
    }

private:
    std::uint64_t characters = 0;
    std::uint64_t excess = 0;
};

int PairAt(std::uint64_t pairs, unsigned i) { return static_cast<int>(pairs >> (8 * i) & 0xFF); }

bool TakeNumericDate(const char*& at, const char* limit, DateTimeParts& parts) {
    constexpr EightCharacters kPattern("0000-00-");
    std::uint64_t pairs;
    if (limit - at < 8 || !kPattern.Match(at, pairs)) return false;
    at += 8;
    parts.year = PairAt(pairs, 0) * 100 + PairAt(pairs, 2);
    parts.month = PairAt(pairs, 5);
    return TakeTwo(at, parts.day);
}

/// A date that is all of its text.
bool TakeWholeNumericDate(const char* at, const char* limit, DateTimeParts& parts) {
    constexpr EightCharacters kHead("0000-00-");
    constexpr EightCharacters kTail("0-00-00\0");
    constexpr unsigned kTailAt = 3;
    std::uint64_t head;
    std::uint64_t tail;
    if (limit - at < 11 || !kHead.Match(at, head) || !kTail.Match(at + kTailAt, tail)) return false;
    parts.year = PairAt(head, 0) * 100 + PairAt(head, 2);
    parts.month = PairAt(head, 5);
    parts.day = PairAt(tail, 8 - kTailAt);
    return true;
}

bool TakeSpace(const char*& at) {
    while (IsSpace(*at)) ++at;
    return true;
}

/// False where the mark of a wildcard stands. `index` is -1 where no name does.
bool TakeAnyName(const char*& at, const char* const* names, int count, int& index) {
    TakeSpace(at);
    if (*at == '*') return false;
    index = TakeName(at, names, count);
    return true;
}

bool TakeWeekday(const char*& at) {
    int unused;
    return TakeAnyName(at, ky_weekdays, 7, unused);
}

/// By its name.
bool TakeMonth(const char*& at, int& month) {
    int index;
    if (!TakeAnyName(at, ky_months, 12, index) || index < 0) return false;
    month = index + 1;
    return true;
}

bool TakeDays(const char*& at, DateTimeParts& parts) {
    int days;
    if (!IsDigit(*at) || !TakeInteger(at, days)) return false;
    SetTotalDays(parts, days);
    return true;
}

bool TakeDate(const char*& at, const char* limit, DatePiece piece, DateTimeParts& parts) {
    switch (piece) {
        case DatePiece::numeric:
            return TakeNumericDate(at, limit, parts);
        case DatePiece::named:
            return TakeWeekday(at) && TakeSpace(at) && TakeTwo(at, parts.day) && Take(at, '.') &&
                   TakeMonth(at, parts.month) && TakeSpace(at) && TakeFour(at, parts.year);
        case DatePiece::yearless:
            return TakeWeekday(at) && TakeSpace(at) && TakeMonth(at, parts.month) && TakeSpace(at) &&
                   TakeTwo(at, parts.day);
        case DatePiece::days:
            return TakeDays(at, parts);
        case DatePiece::none:
            break;
    }
    return true;
}

bool TakeDayHalf(const char* at, int& hour) {
    // Which half it is cannot be foreseen: one branch on both of the letters.
    constexpr unsigned kPm = 'p' - 'a';
    const unsigned letter = static_cast<unsigned>(*at | ('a' ^ 'A')) - 'a';
    if (letter > kPm || ((1U | 1U << kPm) >> letter & 1) == 0) return false;
    hour = HourOfHalf(hour, letter != kPm, letter == kPm);
    return true;
}

constexpr EightCharacters kTimePattern("00:00:00");

/// Hours, minutes and whole seconds, which no digit follows.
[[gnu::always_inline]] inline bool TakeWholeSeconds(const char*& at, const char* limit, DateTimeParts& parts) {
    std::uint64_t pairs;
    if (limit - at < 8 || !kTimePattern.Match(at, pairs) || IsDigit(at[8])) return false;
    at += 8;
    parts.hour = PairAt(pairs, 0);
    parts.minute = PairAt(pairs, 3);
    parts.second = PairAt(pairs, 6);
    return true;
}

bool TakeFraction(const char* at, const char* limit, DateTimeParts& parts) {
    std::uint64_t pairs;
    if (limit - at < 8 || !kTimePattern.Match(at, pairs)) return false;
    at += 6;
    parts.hour = PairAt(pairs, 0);
    parts.minute = PairAt(pairs, 3);
    TakeSeconds(at, limit, parts.second, parts.nanoseconds);
    return true;
}

bool TakeTime(const char* at, const char* limit, TimePiece piece, DateTimeParts& parts) {
    switch (piece) {
        case TimePiece::seconds:
            return TakeWholeSeconds(at, limit, parts);
        case TimePiece::fraction:
            return TakeFraction(at, limit, parts);
        case TimePiece::clock:
            return TakeWholeSeconds(at, limit, parts) && TakeSpace(at) && TakeDayHalf(at, parts.hour);
        case TimePiece::none:
            break;
    }
    return true;
}

bool TakeBetween(const char*& at, char between) {
    if (between == 0) return true;
    return IsSpace(between) ? TakeSpace(at) : Take(at, between);
}

bool TakePieces(const char* at, const char* limit, FormatPieces format, DateTimeParts& parts) {
    return TakeDate(at, limit, format.Date(), parts) && TakeBetween(at, format.Between()) &&
           TakeTime(at, limit, format.Time(), parts);
}

/// Reads a text in a recognised format into parts that are 0. False, with anything in the parts, when the text is not
/// what printing such a format usually gives.
bool TakeRecognised(const char* at, const char* limit, FormatPieces format, DateTimeParts& parts) {
    if (format == kNumericDateFormat && TakeWholeNumericDate(at, limit, parts)) return true;
    if (format == kPlainTimeFormat) return TakeWholeSeconds(at, limit, parts);
    return TakePieces(at, limit, format, parts);
}

/// Whether an 8-bit text begins with the null print string. An empty one is for empty texts alone.
bool IsNullText(const KyString& text) {
    const KyString& null = NullPrintString();
    if (null.CodeSetGet() == text.CodeSetGet() && *null.StrGet() != *text.StrGet()) return false;
    return null.IsEmpty() != 0 ? text.IsEmpty() != 0 : BeginsWithNullPrintString(text);
}

DateScan ScanEightBit(DateTimeParts& parts, const KyString& text, const char* format) {
    if (IsNullText(text)) return DateScan::null;
    const char* const start = text.StrGet();
    const char* const limit = start + text.BufferSizeGet();
    const FormatPieces pieces = PiecesOf(format);
    parts = {};
    if (pieces.Recognised() && TakeRecognised(start, limit, pieces, parts)) return DateScan::whole;
    return ScanItems(parts, start, limit, format);
}

}  // namespace

DateScan ScanDateTime(DateTimeParts& parts, KyString& text, const char* format) {
    return ReadAsEightBit(text,
                          [&parts, format](const KyString& narrow) { return ScanEightBit(parts, narrow, format); });
}

}  // namespace ky
