// Comparison in dictionary order, against `strcasecmp_l` in a locale of the same 8-bit texts. The words are sorted, so
// that neighbours share their beginnings as they do in a dictionary, or in an index that is searched.

#include <benchmark/benchmark.h>
#include <locale.h>
#include <strings.h>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "goals.h"
#include "kyistring.h"
#include "kytypes.h"

namespace {

/// Texts together that fit into the cache next to the processor's.
constexpr std::size_t kMostBytes = 300'000;
/// Length of texts that are words of different lengths.
constexpr std::size_t kWord = 0;

std::size_t Count(std::size_t length) { return kMostBytes / std::max<std::size_t>(length, 16); }

std::vector<std::string> Words(std::size_t length) {
    static const char* const syllables[] = {"be",   "der", "ge",  "ung",  "kon", "ti", "on", "ver", "en",
                                            "schr", "ei",  "pro", "zess", "a",   "e",  "i",  "n",   "st"};
    std::mt19937 random(14);
    std::vector<std::string> words;
    std::string word;
    while (words.size() < Count(length)) {
        const std::size_t wanted = length != kWord ? length : 3 + random() % 7 + random() % 7;
        word.resize(random() % 4 == 0 ? 0 : std::min(wanted, word.size()) / 2);
        while (word.size() < wanted) word += syllables[random() % std::size(syllables)];
        word.resize(wanted);
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

/// Pairs of texts are met in no order that could be learnt.
std::vector<std::size_t> Places(std::size_t count) {
    std::vector<std::size_t> places(count);
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::shuffle(places.begin(), places.end(), std::mt19937(15));
    return places;
}

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
    const std::vector<std::size_t> places = Places(words.size());
    const Pool first(words);
    const Pool second(Partners(words, pairs));
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(compare(first[places[i]], second[places[i]]));
        if (++i == places.size()) i = 0;
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
    const std::string tail = shape + "/" + (length == kWord ? "words" : std::to_string(length));
    bench::RegisterPair("dictionary/alike/" + tail, bench::AtLeast(2), alike, peer);
    // Where case counts, words in other letters differ at once.
    if (pairs != Pairs::otherCase) bench::RegisterPair("dictionary/apart/" + tail, bench::AtLeast(2), apart, peer);
}

// --- the row ---

/// What is stored, against the comparer on the same texts.
void RunStored(benchmark::State& state) {
    const std::vector<std::string> words = Words(kWord);
    const std::vector<std::size_t> places = Places(words.size());
    const KyTypeTab& row = *KyNewtypetab[KyCASEISTRING_T];
    std::vector<unsigned char> bytes;
    std::vector<std::size_t> starts;
    for (const std::string& word : words) {
        const KyCaseIString value(word.c_str());
        starts.push_back(bytes.size());
        bytes.resize(bytes.size() + row.SizeGet(&value, KyFormMemory, KyFormNative, 1));
        row.Store(&bytes[starts.back()], &value, KyFormNative, 1);
    }
    starts.push_back(starts.front());
    std::size_t i = 0;
    int err = 0;
    for (auto _ : state) {
        const std::size_t place = places[i];
        benchmark::DoNotOptimize(
            row.Compare(KyFormNative, 0, &bytes[starts[place]], 0, &bytes[starts[place + 1]], KyCmpExact, 1, err));
        if (++i == places.size()) i = 0;
    }
}

void RunComparer(benchmark::State& state) {
    Run(state, kWord, Pairs::neighbours, [](const char* a, const char* b) { return kycaseistrcmp(a, b, 0, 0, 0); });
}

const bench::AtStart here([] {
    for (const std::size_t length : {kWord, std::size_t{8}, std::size_t{30}, std::size_t{200}, std::size_t{10000}}) {
        RegisterCompare("equal", length, Pairs::equal);
        RegisterCompare("neighbours", length, Pairs::neighbours);
        RegisterCompare("otherCase", length, Pairs::otherCase);
    }
    bench::RegisterPair("dictionary/stored/words", bench::AtMostMore(8), RunStored, RunComparer);
});

}  // namespace
