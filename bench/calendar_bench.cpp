// Day numbers of dates and dates of day numbers, against the branch-free algorithms that Neri and Schneider published,
// written for all years that a date can hold.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "goals.h"
#include "kydatime.h"

namespace {

constexpr std::size_t kCount = 1024;

struct PeerDate {
    std::int16_t year;
    std::int8_t month;
    std::int8_t day;
};

// From 33200 years before the year 0 on, so that nothing is negative; day 0 is -4713-11-24.
constexpr std::uint32_t kPeerCycles = 83;
constexpr std::uint32_t kPeerYears = 400 * kPeerCycles;
constexpr std::uint32_t kPeerDays = 146097 * kPeerCycles - 1721120;  // to 0000-03-01

PeerDate PeerFromNumber(std::int32_t number) {
    const std::uint32_t n = static_cast<std::uint32_t>(number) + kPeerDays;
    const std::uint32_t n1 = 4 * n + 3;
    const std::uint32_t century = n1 / 146097;
    const std::uint32_t dayOfCentury = n1 % 146097 / 4;
    const std::uint32_t n2 = 4 * dayOfCentury + 3;
    const std::uint64_t p2 = std::uint64_t{2939745} * n2;
    const auto yearOfCentury = static_cast<std::uint32_t>(p2 >> 32);
    const std::uint32_t dayOfYear = static_cast<std::uint32_t>(p2) / 2939745 / 4;
    const std::uint32_t n3 = 2141 * dayOfYear + 197913;
    const std::uint32_t month = n3 >> 16;
    const std::uint32_t day = (n3 & 0xFFFF) / 2141;
    const std::uint32_t afterDecember = dayOfYear >= 306 ? 1 : 0;
    return {static_cast<std::int16_t>(100 * century + yearOfCentury + afterDecember - kPeerYears),
            static_cast<std::int8_t>(afterDecember != 0 ? month - 12 : month), static_cast<std::int8_t>(day + 1)};
}

std::int32_t PeerToNumber(PeerDate date) {
    const std::uint32_t beforeMarch = date.month <= 2 ? 1 : 0;
    const std::uint32_t year = static_cast<std::uint32_t>(date.year) + kPeerYears - beforeMarch;
    const auto given = static_cast<std::uint32_t>(date.month);
    const std::uint32_t month = beforeMarch != 0 ? given + 12 : given;
    const std::uint32_t century = year / 100;
    const std::uint32_t daysOfYears = 1461 * year / 4 - century + century / 4;
    const std::uint32_t daysOfMonths = (979 * month - 2919) / 32;
    return static_cast<std::int32_t>(daysOfYears + daysOfMonths + static_cast<std::uint32_t>(date.day) - 1 - kPeerDays);
}

/// Days of the years 1583 to 2400, in no order.
std::vector<std::int32_t> Numbers() {
    std::vector<std::int32_t> numbers;
    std::uint64_t seed = 1;
    while (numbers.size() < kCount) {
        seed = seed * 6364136223846793005u + 1442695040888963407u;
        numbers.push_back(2299239 + static_cast<std::int32_t>((seed >> 33) % 298'000));
    }
    return numbers;
}

template <class Date>
Date FromNumber(std::int32_t number);
template <>
KyDate FromNumber(std::int32_t number) {
    return {number};
}
template <>
PeerDate FromNumber(std::int32_t number) {
    return PeerFromNumber(number);
}

std::int32_t ToNumber(KyDate date) { return date.dayabs(); }
std::int32_t ToNumber(PeerDate date) { return PeerToNumber(date); }

template <class Date>
std::vector<Date> Dates() {
    std::vector<Date> dates;
    for (const std::int32_t number : Numbers()) dates.push_back(FromNumber<Date>(number));
    return dates;
}

template <class Date>
void NumbersToDates(benchmark::State& state) {
    const std::vector<std::int32_t> numbers = Numbers();
    std::vector<Date> dates = Dates<Date>();
    for (auto _ : state) {
        for (std::size_t i = 0; i < kCount; ++i) dates[i] = FromNumber<Date>(numbers[i]);
        benchmark::DoNotOptimize(dates.data());
        benchmark::ClobberMemory();
    }
}

template <class Date>
void DatesToNumbers(benchmark::State& state) {
    const std::vector<Date> dates = Dates<Date>();
    std::vector<std::int32_t> numbers = Numbers();
    for (std::size_t i = 0; i < kCount; ++i) {
        if (ToNumber(dates[i]) != numbers[i]) return state.SkipWithError("wrong day number");
    }
    for (auto _ : state) {
        for (std::size_t i = 0; i < kCount; ++i) numbers[i] = ToNumber(dates[i]);
        benchmark::DoNotOptimize(numbers.data());
        benchmark::ClobberMemory();
    }
}

/// From date to date through the numbers: each step waits for the one before.
template <class Date>
void DayByDay(benchmark::State& state) {
    for (auto _ : state) {
        auto date = FromNumber<Date>(2415021);
        for (std::size_t i = 0; i < kCount; ++i) date = FromNumber<Date>(ToNumber(date) + 30);
        benchmark::DoNotOptimize(date);
    }
}

const bench::AtStart here([] {
    bench::RegisterPair("calendar/dayabs/1k", bench::AtLeast(0.8), DatesToNumbers<KyDate>, DatesToNumbers<PeerDate>);
    bench::RegisterPair("calendar/dateabs/1k", bench::AtLeast(0.8), NumbersToDates<KyDate>, NumbersToDates<PeerDate>);
    bench::RegisterPair("calendar/there_and_back/1k", bench::AtLeast(0.8), DayByDay<KyDate>, DayByDay<PeerDate>);
});

}  // namespace
