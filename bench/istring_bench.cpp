// Comparison in dictionary order, against `strcasecmp_l` in a locale of the same 8-bit texts. The words are sorted, so
// that neighbours share their beginnings as they do in a dictionary, or in an index that is searched.

#include <benchmark/benchmark.h>
#include <locale.h>
#include <strings.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "goals.h"
#include "kyistring.h"
#include "kytypes.h"

namespace {

constexpr std::size_t kWords = 1024;

std::vector<std::string> Words(std::size_t length) {
    static const char* const syllables[] = {"be",   "der", "ge",  "ung",  "kon", "ti", "on", "ver", "en",
                                            "schr", "ei",  "pro", "zess", "a",   "e",  "i",  "n",   "st"};
    std::mt19937 random(14);
    std::vector<std::string> words;
    std::string word;
    while (words.size() < kWords) {
        word.resize(random() % 4 == 0 ? 0 : length / 2);
        while (word.size() < length) word += syllables[random() % std::size(syllables)];
        word.resize(length);
        words.push_back(word);
    }
    std::sort(words.begin(), words.end());
    return words;
}

enum class Pairs {
    neighbours,  ///< each word and the next
    equal,       ///< each word and a copy
    otherCase,   ///< each word and the same in capitals
};

/// Texts one behind the other at any address.
class Pool {
public:
    explicit Pool(const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            starts.push_back(chars.size());
            chars.insert(chars.end(), text.c_str(), text.c_str() + text.size() + 1);
        }
    }
    const char* operator[](std::size_t i) const { return &chars[starts[i]]; }

private:
    std::vector<char> chars;
    std::vector<std::size_t> starts;
};

std::vector<std::string> Partners(std::vector<std::string> words, Pairs pairs) {
    if (pairs == Pairs::neighbours) std::rotate(words.begin(), words.begin() + 1, words.end());
    if (pairs == Pairs::otherCase) {
        for (std::string& word : words) {
            for (char& c : word) c = static_cast<char>(c & ~0x20);
        }
    }
    return words;
}

template <class Compare>
void Run(benchmark::State& state, std::size_t length, Pairs pairs, const Compare& compare) {
    const std::vector<std::string> words = Words(length);
    const Pool first(words);
    const Pool second(Partners(words, pairs));
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(compare(first[i], second[i]));
        i = (i + 1) % kWords;
    }
}

void RunStrcasecmp(benchmark::State& state, std::size_t length, Pairs pairs) {
    const locale_t locale = newlocale(LC_ALL_MASK, "de_DE.ISO-8859-1", nullptr);
    if (locale == nullptr) return state.SkipWithError("no locale de_DE.ISO-8859-1");
    Run(state, length, pairs, [&](const char* a, const char* b) { return strcasecmp_l(a, b, locale); });
    freelocale(locale);
}

void RegisterCompare(const std::string& shape, std::size_t length, Pairs pairs) {
    const auto peer = [=](benchmark::State& state) { RunStrcasecmp(state, length, pairs); };
    const auto alike = [=](benchmark::State& state) {
        Run(state, length, pairs, [](const char* a, const char* b) { return kycaseistrcmp(a, b, 0, 0, 0); });
    };
    const auto apart = [=](benchmark::State& state) {
        Run(state, length, pairs, [](const char* a, const char* b) { return kyistrcmp(a, b, 0, 0, 0); });
    };
    const std::string tail = shape + "/" + std::to_string(length);
    bench::RegisterPair("dictionary/alike/" + tail, bench::AtLeast(2), alike, peer);
    // Where case counts, words in other letters differ at once.
    if (pairs != Pairs::otherCase) bench::RegisterPair("dictionary/apart/" + tail, bench::AtLeast(2), apart, peer);
}

// --- the row ---

/// What is stored, against the comparer on the same texts.
void RunStored(benchmark::State& state, std::size_t length) {
    const std::vector<std::string> words = Words(length);
    const KyTypeTab& row = *KyNewtypetab[KyCASEISTRING_T];
    std::vector<unsigned char> bytes;
    std::vector<std::size_t> starts;
    for (const std::string& word : words) {
        const KyCaseIString value(word.c_str());
        starts.push_back(bytes.size());
        bytes.resize(bytes.size() + row.SizeGet(&value, KyFormMemory, KyFormNative, 1));
        row.Store(&bytes[starts.back()], &value, KyFormNative, 1);
    }
    std::size_t i = 0;
    int err = 0;
    for (auto _ : state) {
        const std::size_t next = (i + 1) % kWords;
        benchmark::DoNotOptimize(
            row.Compare(KyFormNative, 0, &bytes[starts[i]], 0, &bytes[starts[next]], KyCmpExact, 1, err));
        i = next;
    }
}

void RunComparer(benchmark::State& state, std::size_t length) {
    Run(state, length, Pairs::neighbours, [](const char* a, const char* b) { return kycaseistrcmp(a, b, 0, 0, 0); });
}

const bench::AtStart here([] {
    for (const std::size_t length : {8, 12, 30, 200, 10000}) {
        RegisterCompare("equal", length, Pairs::equal);
        RegisterCompare("neighbours", length, Pairs::neighbours);
        RegisterCompare("otherCase", length, Pairs::otherCase);
    }
    bench::RegisterPair(
        "dictionary/stored/12", bench::AtMostMore(8), [](benchmark::State& state) { RunStored(state, 12); },
        [](benchmark::State& state) { RunComparer(state, 12); });
});

}  // namespace
