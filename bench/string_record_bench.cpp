// Stored strings against what a user would do by hand with the same bytes: comparison against the comparer itself on
// terminated texts, Store against a copy of the finished record, Load against a fresh block with the text in it.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "allocation_count.h"
#include "goals.h"
#include "kystring.h"
#include "kytypes.h"

namespace {

constexpr unsigned char kLatin1 = 1;
constexpr unsigned char kUnicode = 253;
constexpr std::size_t kWords = 1024;
constexpr const char* kText = "twelve bytes";

const KyTypeTab& Row() { return *KyNewtypetab[KySTRING_T]; }

KyString InCodeSet(const std::string& latin1, unsigned char codeSet) {
    KyString s(kLatin1, 0);
    s.MakeString(latin1.data(), kLatin1, static_cast<short>(latin1.size()), 1);
    s.MapToCodeSet(codeSet);
    return s;
}

/// Words in ascending order, of which neighbours share their beginnings.
std::vector<KyString> Words(unsigned char codeSet) {
    static const char* const syllables[] = {"be", "der", "ge",  "ung",  "kon",   "ti",    "on", "ver", "en",
                                            "at", "iv",  "pro", "zess", "r\xE4", "l\xF6", "n",  "s",   "t"};
    std::mt19937 random(12);
    std::vector<std::string> words;
    while (words.size() < kWords) {
        std::string word = random() % 4 == 0 || words.empty() ? "" : words.back().substr(0, 6);
        while (word.size() < 8 + random() % 6) word += syllables[random() % std::size(syllables)];
        words.push_back(word);
    }
    std::vector<KyString> strings;
    for (const std::string& word : words) strings.push_back(InCodeSet(word, codeSet));
    std::sort(strings.begin(), strings.end());
    return strings;
}

/// The records of strings one behind the other, at any address.
class Records {
public:
    Records(const std::vector<KyString>& strings, unsigned char form) {
        for (const KyString& s : strings) {
            const std::size_t at = bytes.size();
            starts.push_back(at);
            bytes.resize(at + Row().SizeGet(&s, KyFormMemory, form, 1));
            Row().Store(&bytes[at], &s, form, 1);
        }
        starts.push_back(bytes.size());
    }
    void* operator[](std::size_t i) { return &bytes[starts[i]]; }
    unsigned Size(std::size_t i) const { return static_cast<unsigned>(starts[i + 1] - starts[i]); }

private:
    std::vector<unsigned char> bytes;
    std::vector<std::size_t> starts;
};

enum class Pairs { neighbours, equal };

std::vector<KyString> Partners(std::vector<KyString> words, Pairs pairs) {
    if (pairs == Pairs::neighbours) std::rotate(words.begin(), words.begin() + 1, words.end());
    return words;
}

struct Case {
    const char* name;
    unsigned char codeSet;
    unsigned char form;
    Pairs pairs;
    unsigned short op;
};

constexpr Case cases[] = {
    {"latin1/neighbours", kLatin1, KyFormReversed, Pairs::neighbours, KyCmpStringExact},
    {"latin1/equal", kLatin1, KyFormNative, Pairs::equal, KyCmpStringExact},
    {"latin1/caseless", kLatin1, KyFormNative, Pairs::neighbours, KyCmpExact | KyCmpIgnoreCase},
    {"latin1/wildcards_allowed", kLatin1, KyFormNative, Pairs::neighbours, 0},
    {"unicode/neighbours", kUnicode, KyFormReversed, Pairs::neighbours, KyCmpStringExact},
    {"unicode/equal", kUnicode, KyFormNative, Pairs::equal, KyCmpStringExact},
    {"unicode/wildcards_allowed", kUnicode, KyFormNative, Pairs::neighbours, 0},
};

void Compare(benchmark::State& state, const Case& c) {
    const std::vector<KyString> words = Words(c.codeSet);
    Records first(words, c.form);
    Records second(Partners(words, c.pairs), c.form);
    const auto compare = Row().Compare;
    const std::size_t before = bench::AllocationCount();
    std::size_t i = 0;
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(compare(c.form, first.Size(i), first[i], second.Size(i), second[i], c.op, 1, err));
        i = (i + 1) % kWords;
    }
    const auto taken = static_cast<double>(bench::AllocationCount() - before);
    if (taken > 0.01 * static_cast<double>(state.iterations()) + 64) state.SkipWithError("takes blocks");
}

/// The same texts in the same byte order, with terminators, one behind the other like the records.
class Texts {
public:
    Texts(const std::vector<KyString>& strings, const Case& c) {
        for (const KyString& s : strings) {
            starts.push_back(chars.size());
            chars.resize(chars.size() + s.BufferSizeGet());
            KyMemCpy(&chars[starts.back()], s.StrGet(), static_cast<short>(s.NullLen()), c.form, s.BufferSizeGet());
        }
    }
    const char* operator[](std::size_t i) const { return &chars[starts[i]]; }

private:
    std::vector<char> chars;
    std::vector<std::size_t> starts;
};

void CompareTexts(benchmark::State& state, const Case& c) {
    const std::vector<KyString> words = Words(c.codeSet);
    const Texts first(words, c);
    const Texts second(Partners(words, c.pairs), c);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(KyStrCmp(c.codeSet, 0, first[i], c.codeSet, 0, second[i], c.op, -1, c.form, nullptr));
        i = (i + 1) % kWords;
    }
}

// --- Store and Load ---

void Store(benchmark::State& state, unsigned char codeSet, unsigned char form) {
    const KyString s = InCodeSet(kText, codeSet);
    unsigned char record[64];
    const auto store = Row().Store;
    for (auto _ : state) {
        benchmark::DoNotOptimize(store(record, &s, form, 1));
        benchmark::ClobberMemory();
    }
}

void CopyRecord(benchmark::State& state, unsigned char codeSet) {
    const KyString s = InCodeSet(kText, codeSet);
    unsigned char source[64];
    unsigned char record[64];
    std::size_t size = Row().Store(source, &s, KyFormNative, 1);
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        std::memcpy(record, source, size);
        benchmark::ClobberMemory();
    }
}

void Load(benchmark::State& state, unsigned char codeSet, unsigned char form) {
    const KyString s = InCodeSet(kText, codeSet);
    unsigned char record[64];
    Row().Store(record, &s, form, 1);
    KyString loaded;
    const auto load = Row().Load;
    for (auto _ : state) {
        benchmark::DoNotOptimize(load(&loaded, record, form, 1));
        benchmark::ClobberMemory();
    }
}

/// A string's content is one fresh block of the exact size.
void CopyIntoBlock(benchmark::State& state, unsigned char codeSet) {
    const KyString s = InCodeSet(kText, codeSet);
    unsigned char record[64];
    std::size_t size = Row().Store(record, &s, KyFormNative, 1);
    char* block = nullptr;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        delete[] block;
        block = new char[size];
        std::memcpy(block, record, size);
        benchmark::DoNotOptimize(block);
        benchmark::ClobberMemory();
    }
    delete[] block;
}

// --- Hash ---

std::string LongText() {
    std::string text;
    for (const char* word = kText; text.size() < 200; ++word) {
        if (*word == 0) word = kText;
        text += *word;
    }
    return text;
}

void Hash(benchmark::State& state) {
    const KyString s = InCodeSet(LongText(), kLatin1);
    std::vector<KyString> strings = {s};
    Records records(strings, KyFormNative);
    const auto hash = Row().Hash;
    for (auto _ : state) {
        int err;
        benchmark::DoNotOptimize(hash(KyFormNative, records.Size(0), records[0], 1, err));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * 200);
}

/// The same formula over the bytes.
void HashBytes(benchmark::State& state) {
    std::string text = LongText();
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.data());
        unsigned h = 0;
        for (const char c : text) h = 9 * h + static_cast<unsigned char>(c);
        benchmark::DoNotOptimize(h);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * 200);
}

const bench::AtStart here([] {
    for (const Case& c : cases) {
        bench::RegisterPair(
            std::string("record/compare/") + c.name, bench::AtLeast(1 / 1.3),
            [&c](benchmark::State& state) { Compare(state, c); },
            [&c](benchmark::State& state) { CompareTexts(state, c); });
    }
    const struct {
        const char* name;
        unsigned char codeSet;
        unsigned char form;
    } forms[] = {{"latin1/native", kLatin1, KyFormNative},
                 {"latin1/reversed", kLatin1, KyFormReversed},
                 {"unicode/native", kUnicode, KyFormNative},
                 {"unicode/reversed", kUnicode, KyFormReversed}};
    for (const auto& f : forms) {
        bench::RegisterPair(
            std::string("record/store/12/") + f.name, bench::AtLeast(0.5),
            [=](benchmark::State& state) { Store(state, f.codeSet, f.form); },
            [=](benchmark::State& state) { CopyRecord(state, f.codeSet); });
        bench::RegisterPair(
            std::string("record/load/12/") + f.name, bench::AtLeast(0.5),
            [=](benchmark::State& state) { Load(state, f.codeSet, f.form); },
            [=](benchmark::State& state) { CopyIntoBlock(state, f.codeSet); });
    }
    bench::RegisterPair("record/hash/200", bench::AtLeast(0.5), Hash, HashBytes);
});

}  // namespace
