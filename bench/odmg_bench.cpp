// Columns of ODMG dates and time stamps: store, load and compare against memcpy and memcmp; hash, for which the day
// number of every date is computed, against the same by the textbook's formula.

#include <benchmark/benchmark.h>

#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "goals.h"
#include "kyodmg.h"
#include "kytypmgr.h"

namespace {

struct Column {
    std::vector<unsigned char> values;
    std::vector<unsigned char> equalValues;
    std::vector<unsigned char> spare;
};

/// Made on first use, for all benchmarks of this length.
template <class Value>
Column& ColumnOf(unsigned count) {
    static std::map<unsigned, Column> columns;
    Column& column = columns[count];
    if (!column.values.empty()) return column;
    std::mt19937 random(1);
    std::vector<Value> values;
    const d_Timestamp start(d_Date(1900, 1, 1), d_Time(0, 0, 0, 0, 0));
    for (unsigned i = 0; i < count; ++i) {
        values.emplace_back(start + d_Interval(static_cast<int>(random() % 60000), static_cast<int>(random() % 24)));
    }
    const auto* bytes = reinterpret_cast<const unsigned char*>(values.data());
    column.values.assign(bytes, bytes + count * sizeof(Value));
    column.equalValues = column.values;
    column.spare.resize(column.values.size());
    return column;
}

/// `operation(column)` over and over.
template <class Value, class Operation>
bench::Body Over(unsigned count, Operation operation) {
    return [=](benchmark::State& state) {
        Column& column = ColumnOf<Value>(count);
        for (auto _ : state) {
            benchmark::DoNotOptimize(operation(column));
            benchmark::ClobberMemory();
        }
    };
}

void* CopyColumn(Column& column) {
    std::size_t size = column.values.size();
    benchmark::DoNotOptimize(size);
    return std::memcpy(column.spare.data(), column.values.data(), size);
}

int CompareBytes(Column& column) {
    std::size_t size = column.values.size();
    benchmark::DoNotOptimize(size);
    return std::memcmp(column.values.data(), column.equalValues.data(), size);
}

/// After the astronomers' books, in floating-point numbers.
int TextbookDayNumber(const unsigned char* date) {
    short year;
    std::memcpy(&year, date, sizeof year);
    int month = date[2];
    if (month < 3) {
        month += 12;
        --year;
    }
    const int julian = static_cast<int>(365.25 * year) + static_cast<int>(30.6001 * (month + 1)) + date[3] + 1720994;
    if (julian < 2299170) return julian;
    const int century = year / 100;
    return julian + 2 - century + century / 4;
}

template <class Value>
int XorDayNumbers(Column& column) {
    int words = 0;
    for (std::size_t at = 0; at < column.values.size(); at += sizeof(Value)) {
        words ^= TextbookDayNumber(&column.values[at]);
    }
    return words;
}

template <class Value>
void Register(const std::string& name, char id, double hashShare) {
    const struct {
        const char* name;
        unsigned count;
    } shapes[] = {{"1k", 1000}, {"32k", 32000}, {"1M", 1000000}};
    const struct {
        const char* name;
        unsigned char flag;
        double storeShare;
    } forms[] = {{"native", KyFormNative, 0.8}, {"reversed", KyFormReversed, 0.4}};
    for (const auto& shape : shapes) {
        const unsigned count = shape.count;
        const auto copy = Over<Value>(count, CopyColumn);
        for (const auto& form : forms) {
            const unsigned char flag = form.flag;
            const std::string end = name + '/' + form.name + '/' + shape.name;
            bench::RegisterPair("odmg/store/" + end, bench::AtLeast(form.storeShare),
                                Over<Value>(count,
                                            [=](Column& column) {
                                                return KyTypeMgr(5).Store(id, column.spare.data(), column.values.data(),
                                                                          flag, count);
                                            }),
                                copy);
            bench::RegisterPair("odmg/load/" + end, bench::AtLeast(form.storeShare),
                                Over<Value>(count,
                                            [=](Column& column) {
                                                return KyTypeMgr(5).Load(id, column.spare.data(), column.values.data(),
                                                                         flag, count);
                                            }),
                                copy);
            bench::RegisterPair("odmg/hash/" + end, bench::AtLeast(hashShare),
                                Over<Value>(count,
                                            [=](Column& column) {
                                                int err;
                                                return KyTypeMgr(5).Hash(id, 0, column.values.data(), count, flag, err);
                                            }),
                                Over<Value>(count, XorDayNumbers<Value>));
            bench::RegisterPair("odmg/compare/" + end, bench::AtLeast(0.3),
                                Over<Value>(count,
                                            [=](Column& column) {
                                                int err;
                                                return KyTypeMgr(5).Cmp(id, 0, column.values.data(), 0,
                                                                        column.equalValues.data(), KyCmpExact, count,
                                                                        flag, err);
                                            }),
                                Over<Value>(count, CompareBytes));
        }
    }
}

const bench::AtStart here([] {
    Register<d_Date>("d_Date", D_DATE_T, 3.0);
    Register<d_Timestamp>("d_Timestamp", D_TIMESTAMP_T, 0.6);
});

}  // namespace
