#include "odmg_slots.h"

#include "date_arrays.h"
#include "date_bounds.h"
#include "odmg_fields.h"
#include "odmg_kernels.h"

namespace {

using ky::Advance;
using ky::Order;

/// Of stored dates. Wildcards count in the second one alone.
int OrderStoredDates(const void* a, const void* b, bool reversed, bool exact) {
    constexpr unsigned short anyYear = 0xFFFF;
    const auto yearA = ky::ReadField<unsigned short>(a, reversed);
    const auto yearB = ky::ReadField<unsigned short>(b, reversed);
    if (yearA != yearB && (exact || yearB != anyYear)) return Order(yearA, yearB);

    const auto field = [](const void* date, std::size_t at) { return ky::LoadAs<signed char>(Advance(date, at)); };
    const auto isAny = [exact](signed char byte) { return !exact && byte == ky::kWildcardField; };
    const int byMonth = isAny(field(b, 2)) ? 0 : Order(field(a, 2), field(b, 2));
    if (byMonth != 0) return byMonth;
    return isAny(field(b, 3)) ? 0 : Order(field(a, 3), field(b, 3));
}

int TimeDifference(const void* a, const void* b) { return ky::ReadOdmgTime(a) != ky::ReadOdmgTime(b); }

int OrderStoredTimes(const void* a, const void* b) { return Order(TimeDifference(a, b), 0); }

/// `xorWords` combines the words of so many elements.
template <class XorWords>
unsigned HashOf(std::size_t stride, unsigned len, unsigned count, int& err, XorWords xorWords) {
    err = 0;
    if (count == 0) return 0;
    const std::size_t visited = ky::ElementsThatFit(len, stride, count);
    err = ky::BufferEndError(visited, visited, count);
    return ky::kHashFactor * xorWords(visited);
}

template <class HashWordAt>
std::uint32_t XorOf(const void* data, std::size_t stride, std::size_t count, HashWordAt wordAt) {
    std::uint32_t words = 0;
    for (std::size_t i = 0; i < count; ++i) words ^= wordAt(Advance(data, i * stride));
    return words;
}

struct DateMeasure {
    static constexpr unsigned short kRelations = 0x800F;
    static constexpr std::size_t kStored = ky::kOdmgDateBytes;
    static bool HasWildcard(const unsigned char* date, bool reversed) {
        constexpr unsigned char any = 255;
        return ky::ReadYear(date, reversed) == ky::kWildcardField || date[2] == any || date[3] == any;
    }
    static double Measure(const unsigned char* date, bool reversed) {
        return ky::ReadOdmgDate(date, reversed).getAbsDate();
    }
};

struct TimeMeasure {
    static constexpr unsigned short kRelations = 0x8007;
    static constexpr std::size_t kStored = ky::kOdmgTimeBytes;
    static bool HasWildcard(const unsigned char*, bool) { return false; }
    static double Measure(const unsigned char* time, bool) { return ky::LocalSecondOfDay(ky::ReadOdmgTime(time)); }
};

struct TimestampMeasure {
    static constexpr unsigned short kRelations = 0x8007;
    static constexpr std::size_t kStored = ky::kOdmgTimestampBytes;
    static constexpr auto* HasWildcard = &DateMeasure::HasWildcard;
    static double Measure(const unsigned char* stamp, bool reversed) {
        constexpr double secondsPerDay = 86400;
        return DateMeasure::Measure(stamp, reversed) * secondsPerDay +
               TimeMeasure::Measure(stamp + ky::kOdmgDateBytes, reversed);
    }
};

}  // namespace

int d_DateCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op, unsigned count,
                  int& err) {
    if (ky::IsMemoryForm(flag)) {
        return ky::CompareDateArrays(
            ky::kOdmgDateBytes, len1, a, len2, b, count, err,
            [](const void* x, const void* y) { return ky::ReadOdmgDate(x, false) != ky::ReadOdmgDate(y, false); });
    }
    const bool reversed = ky::IsReversedForm(flag);
    const bool exact = (op & KyCmpExact) != 0;
    return ky::CompareDateArrays(ky::kOdmgDateBytes, len1, a, len2, b, count, err,
                                 [=](const void* x, const void* y) { return OrderStoredDates(x, y, reversed, exact); });
}

int d_TimeCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short, unsigned count,
                  int& err) {
    const auto compare = ky::IsMemoryForm(flag) ? TimeDifference : OrderStoredTimes;
    return ky::CompareDateArrays(ky::kOdmgTimeBytes, len1, a, len2, b, count, err, compare);
}

int d_TimestampCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op,
                       unsigned count, int& err) {
    constexpr std::size_t stride = ky::kOdmgTimestampBytes;
    if (ky::IsMemoryForm(flag)) {
        return ky::CompareDateArrays(stride, len1, a, len2, b, count, err, [](const void* x, const void* y) {
            return ky::ReadOdmgTimestamp(x, false) != ky::ReadOdmgTimestamp(y, false);
        });
    }
    const bool reversed = ky::IsReversedForm(flag);
    const bool exact = (op & KyCmpExact) != 0;
    return ky::CompareDateArrays(stride, len1, a, len2, b, count, err, [=](const void* x, const void* y) {
        const int byDate = OrderStoredDates(x, y, reversed, exact);
        if (byDate != 0) return byDate;
        return OrderStoredTimes(Advance(x, ky::kOdmgDateBytes), Advance(y, ky::kOdmgDateBytes));
    });
}

unsigned d_DateHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    const bool reversed = ky::IsReversedForm(flag);
    return HashOf(ky::kOdmgDateBytes, len, count, err,
                  [=](std::size_t visited) { return ky::XorDayNumbers(data, visited, reversed); });
}

unsigned d_TimeHash(unsigned char, unsigned len, void* data, unsigned count, int& err) {
    return HashOf(ky::kOdmgTimeBytes, len, count, err, [data](std::size_t visited) {
        return XorOf(data, ky::kOdmgTimeBytes, visited,
                     [](const void* time) { return ky::HashWordOf(ky::ReadOdmgTime(time)); });
    });
}

unsigned d_TimestampHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    const bool reversed = ky::IsReversedForm(flag);
    return HashOf(ky::kOdmgTimestampBytes, len, count, err, [=](std::size_t visited) {
        return XorOf(data, ky::kOdmgTimestampBytes, visited,
                     [=](const void* stamp) { return ky::HashWordOf(ky::ReadOdmgTimestamp(stamp, reversed)); });
    });
}

float d_DateEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                         KyIdxBounds* out) {
    return ky::MeasuredEvalAndBound<DateMeasure>(bounds, op, value, flag, count, out);
}

float d_TimeEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                         KyIdxBounds* out) {
    return ky::MeasuredEvalAndBound<TimeMeasure>(bounds, op, value, flag, count, out);
}

float d_TimestampEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                              KyIdxBounds* out) {
    return ky::MeasuredEvalAndBound<TimestampMeasure>(bounds, op, value, flag, count, out);
}
