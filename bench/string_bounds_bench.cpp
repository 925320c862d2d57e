// Index bounds over the words of a language, and over numbers that stand for them: the time of a call, and how far the
// share that it returns is from the one that is counted, on average over 10,000 ranges. The peer is a planner that has
// seen the words: 64 buckets of as many values each, searched with the row's own comparison.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "goals.h"
#include "kybase.h"
#include "kyistring.h"
#include "kystring.h"
#include "kytypes.h"
#include "kytypevl.h"
#include "peers/word_lists.h"

namespace {

constexpr std::size_t kRanges = 10'000;
/// Those whose calls are timed: as many as stay in a cache.
constexpr std::size_t kTimedRanges = 1024;
constexpr unsigned short kEqual = KyCmpEqual;

/// The words of a list, those of Latin letters alone.
const std::vector<std::u16string>& Words() {
    static const std::vector<std::u16string> words = [] {
        const auto german = std::find_if(peer::kWordLists.begin(), peer::kWordLists.end(),
                                         [](const peer::WordList& list) { return std::string(list.tag) == "de"; });
        std::vector<std::u16string> read = peer::ReadWords(*german);
        std::erase_if(read, [](const std::u16string& word) {
            return std::any_of(word.begin(), word.end(), [](char16_t c) { return c > 0xFF; });
        });
        return read;
    }();
    return words;
}

std::string Latin1(const std::u16string& word) { return std::string(word.begin(), word.end()); }

using Bytes = std::vector<unsigned char>;

template <class Value>
Bytes Stored(const KyTypeTab& row, const Value& value, unsigned char form) {
    Bytes bytes(row.SizeGet(&value, KyFormMemory, form, 1));
    row.Store(bytes.data(), &value, form, 1);
    return bytes;
}

/// One comparison in one range.
struct Query {
    const Bytes* lower;
    const Bytes* upper;
    Bytes constant;
    unsigned short op;
    bool isPattern;
    double counted;  ///< share
};

/// The values of an index in its order, and comparisons with them.
class Column {
public:
    using Make = Bytes (*)(const std::u16string& text, std::size_t number);

    /// `hasPatterns`: constants may be made of texts with wildcards.
    Column(const KyTypeTab& ofRow, unsigned char ofForm, Make make, bool hasPatterns) : row(ofRow), form(ofForm) {
        const auto& words = Words();
        for (std::size_t i = 0; i < words.size(); ++i) values.push_back(make(words[i], i));
        std::sort(values.begin(), values.end(),
                  [this](const Bytes& a, const Bytes& b) { return Compare(a, b, KyCmpExact) < 0; });
        std::mt19937 random(20);
        const auto any = [&] { return random() % values.size(); };
        while (queries.size() < kRanges) {
            std::size_t first = any();
            std::size_t last = any();
            if (first > last) std::swap(first, last);
            static constexpr unsigned short relations[] = {kEqual,
                                                           KyCmpLess,
                                                           KyCmpGreater,
                                                           KyCmpLess | KyCmpEqual,
                                                           KyCmpGreater | KyCmpEqual,
                                                           KyCmpLess | KyCmpGreater};
            Query query{&values[first], &values[last], {}, 0, hasPatterns && random() % 4 == 0, 0};
            if (query.isPattern) {
                const std::u16string& word = words[any()];
                query.constant = make(word.substr(0, 1 + random() % 3) + u'*', 0);
                query.op = kEqual;
            } else {
                const bool inside = random() % 5 != 0;
                query.constant = values[inside ? first + random() % (last - first + 1) : any()];
                query.op = static_cast<unsigned short>(relations[random() % std::size(relations)] | KyCmpExact);
            }
            query.counted = Count(query);
            queries.push_back(std::move(query));
        }
        for (std::size_t i = 0; i < kBuckets; ++i) buckets[i] = &values[values.size() * i / kBuckets];
    }

    float Estimate(std::size_t i, KyIdxBounds* out) {
        Query& query = queries[i];
        KyIdxBounds bounds{const_cast<unsigned char*>(query.lower->data()),
                           const_cast<unsigned char*>(query.upper->data()), Length(*query.lower), Length(*query.upper)};
        unsigned short op = query.op;
        return row.EvalAndBound(&bounds, op, query.constant.data(), form, 1, out);
    }

    /// The same by the buckets, linear within one.
    float LookUp(std::size_t i, KyIdxBounds* out) {
        const Query& query = queries[i];
        const double first = Place(*query.lower, KyCmpExact, false);
        const double last = Place(*query.upper, KyCmpExact, true);
        const double low = std::clamp(Place(query.constant, query.op, false), first, last);
        const double high = std::clamp(Place(query.constant, query.op, true), first, last);
        double kept = 0;
        if ((query.op & KyCmpLess) != 0) kept += low - first;
        if ((query.op & KyCmpGreater) != 0) kept += last - high;
        if ((query.op & KyCmpEqual) != 0) kept += high - low;
        for (void** limit : {(query.op & KyCmpLess) == 0 ? &out->lower : nullptr,
                             (query.op & KyCmpGreater) == 0 ? &out->upper : nullptr}) {
            if (limit == nullptr) continue;
            *limit = mmKymalloc(query.constant.size());
            std::copy(query.constant.begin(), query.constant.end(), static_cast<unsigned char*>(*limit));
        }
        return last > first ? static_cast<float>(kept / (last - first)) : 1.0F;
    }

    std::vector<Query> queries;

private:
    static constexpr std::size_t kBuckets = 64;

    const KyTypeTab& row;
    unsigned char form;
    std::vector<Bytes> values;
    const Bytes* buckets[kBuckets];

    static unsigned char Length(const Bytes& bytes) { return static_cast<unsigned char>(bytes.size()); }

    int Compare(const Bytes& a, const Bytes& b, unsigned short op) const {
        int err = 0;
        return row.Compare(form, static_cast<unsigned>(a.size()), const_cast<unsigned char*>(a.data()),
                           static_cast<unsigned>(b.size()), const_cast<unsigned char*>(b.data()), op, 1, err);
    }

    /// The first value that is not below a constant, or with `behind` the first above it.
    double PlaceAmongAll(const Bytes& constant, unsigned short op, bool behind) const {
        const auto place = std::partition_point(values.begin(), values.end(), [&](const Bytes& value) {
            const int order = Compare(value, constant, op);
            return behind ? order <= 0 : order < 0;
        });
        return static_cast<double>(place - values.begin());
    }

    double Count(const Query& query) const {
        const double first = PlaceAmongAll(*query.lower, KyCmpExact, false);
        const double last = PlaceAmongAll(*query.upper, KyCmpExact, true);
        const double low = std::clamp(PlaceAmongAll(query.constant, query.op, false), first, last);
        const double high = std::clamp(PlaceAmongAll(query.constant, query.op, true), first, last);
        double kept = 0;
        if ((query.op & KyCmpLess) != 0) kept += low - first;
        if ((query.op & KyCmpGreater) != 0) kept += last - high;
        if ((query.op & KyCmpEqual) != 0) kept += high - low;
        return kept / (last - first);
    }

    /// In buckets: the middle of the one in which a constant lies.
    double Place(const Bytes& constant, unsigned short op, bool behind) const {
        const auto place = std::partition_point(std::begin(buckets), std::end(buckets), [&](const Bytes* value) {
            const int order = Compare(*value, constant, op);
            return behind ? order <= 0 : order < 0;
        });
        const auto before = static_cast<double>(place - std::begin(buckets));
        return before == 0 ? 0 : before - 0.5;
    }
};

/// Made when its first benchmark runs.
Column& ColumnOf(const std::string& name, const KyTypeTab& row, unsigned char form, Column::Make make,
                 bool hasPatterns) {
    static std::map<std::string, Column> columns;
    const auto found = columns.find(name);
    if (found != columns.end()) return found->second;
    return columns.try_emplace(name, row, form, make, hasPatterns).first->second;
}

void Free(KyIdxBounds& out) {
    mmKyfree(out.lower);
    mmKyfree(out.upper);
    out = KyIdxBounds();
}

void Measure(benchmark::State& state, Column& column, float (Column::*estimate)(std::size_t, KyIdxBounds*)) {
    KyIdxBounds out;
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize((column.*estimate)(at, &out));
        Free(out);
        at = (at + 1) % kTimedRanges;
    }
    double sum[2] = {};
    std::size_t count[2] = {};
    for (std::size_t i = 0; i < kRanges; ++i) {
        const Query& query = column.queries[i];
        sum[query.isPattern] += std::abs((column.*estimate)(i, &out) - query.counted);
        ++count[query.isPattern];
        Free(out);
    }
    state.counters["mean error"] = (sum[0] + sum[1]) / static_cast<double>(kRanges);
    if (count[1] == 0) return;
    state.counters["mean error, literals"] = sum[0] / static_cast<double>(count[0]);
    state.counters["mean error, patterns"] = sum[1] / static_cast<double>(count[1]);
}

/// Numbers, whose time is measured elsewhere, have no goal and no patterns.
void Register(const std::string& name, const KyTypeTab& row, unsigned char form, Column::Make make, bool hasPatterns) {
    const auto run = [=, &row](float (Column::*estimate)(std::size_t, KyIdxBounds*)) {
        return [=, &row](benchmark::State& state) {
            try {
                Measure(state, ColumnOf(name, row, form, make, hasPatterns), estimate);
            } catch (const std::exception& missing) {
                state.SkipWithError(missing.what());
            }
        };
    };
    const std::string full = "bounds/words/" + name;
    benchmark::RegisterBenchmark(full.c_str(), run(&Column::Estimate));
    benchmark::RegisterBenchmark(("peer/" + full).c_str(), run(&Column::LookUp));
    if (hasPatterns) bench::SetGoal(full, bench::AtMost(400));
}

template <unsigned char codeSet, unsigned char form>
Bytes NarrowRecord(const std::u16string& text, std::size_t) {
    const std::string bytes = Latin1(text);
    KyString s(bytes.c_str());
    s.SetCodeSet(codeSet);
    return Stored(KyStringTab, s, form);
}

template <unsigned char form>
Bytes WideRecord(const std::u16string& text, std::size_t) {
    const KyString s(reinterpret_cast<const unsigned short*>(text.c_str()), static_cast<unsigned short>(text.size()));
    return Stored(KyStringTab, s, form);
}

Bytes OldRecord(const std::u16string& text, std::size_t) {
    return Stored(KyOldStringTab, KyString(Latin1(text).c_str()), KyFormNative);
}

template <class Self>
Bytes DictionaryRecord(const std::u16string& text, std::size_t) {
    const KyTypeTab& row = std::is_same_v<Self, KyIString> ? KyIStringTab : KyCaseIStringTab;
    return Stored(row, Self(Latin1(text).c_str()), KyFormNative);
}

/// Numbers as many as there are words: all alike likely, or with many small ones.
Bytes EvenNumber(const std::u16string&, std::size_t number) {
    return Stored(KyIntTab, static_cast<int>(std::mt19937(static_cast<unsigned>(number))() / 2), KyFormNative);
}
Bytes SkewedNumber(const std::u16string&, std::size_t number) {
    std::mt19937 random(static_cast<unsigned>(number));
    return Stored(KyDoubleTab, std::lognormal_distribution<double>(0, 1)(random), KyFormNative);
}

const bench::AtStart here([] {
    Register("KyString/Latin-1", KyStringTab, KyFormNative, NarrowRecord<1, KyFormNative>, true);
    Register("KyString/Unicode", KyStringTab, KyFormNative, WideRecord<KyFormNative>, true);
    Register("KyString/Unicode-reversed", KyStringTab, KyFormReversed, WideRecord<KyFormReversed>, true);
    Register("KyString/old", KyOldStringTab, KyFormNative, OldRecord, true);
    Register("KyIString/texts", KyIStringTab, KyFormNative, DictionaryRecord<KyIString>, true);
    Register("KyCaseIString/texts", KyCaseIStringTab, KyFormNative, DictionaryRecord<KyCaseIString>, true);
    Register("int/even", KyIntTab, KyFormNative, EvenNumber, false);
    Register("double/skewed", KyDoubleTab, KyFormNative, SkewedNumber, false);
});

}  // namespace
