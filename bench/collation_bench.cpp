// Strings compared by language, against ICU (texts in UTF-16) and the C library (the same bytes under a German locale).
// The texts are words of one length, sorted, so that neighbours share their beginnings as they do in a dictionary, or
// in an index that is searched.

#include <benchmark/benchmark.h>
#include <locale.h>
#include <unicode/ucol.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "goals.h"
#include "kystring.h"
#include "kytypes.h"

namespace {

constexpr unsigned char kLatin1 = 1;
constexpr unsigned char kUnicode = 253;
constexpr unsigned short kExact = KyCmpStringExact;
constexpr unsigned short kCaseless = KyCmpExact | KyCmpIgnoreCase;
constexpr std::size_t kWords = 1024;

int CompareNarrow(const char* a, const char* b, unsigned short op) {
    return KyStrCmp(kLatin1, 0, a, kLatin1, 0, b, op, -1, 1, nullptr);
}

int CompareWide(const char16_t* a, const char16_t* b, unsigned short op) {
    return KyStrCmp(kUnicode, 0, reinterpret_cast<const char*>(a), kUnicode, 0, reinterpret_cast<const char*>(b), op,
                    -1, 1, nullptr);
}

/// Words of `length` letters, some of them accented, in ascending order.
std::vector<std::string> Words(std::size_t length, std::size_t count = kWords) {
    static const char* const syllables[] = {"be",   "der", "ge",    "ung",   "kon",       "ti", "on", "ver", "en",
                                            "schr", "ei",  "m\xFC", "r\xE4", "l\xF6",     "at", "iv", "be",  "pro",
                                            "zess", "a",   "e",     "i",     "\xE9t\xE9", "n",  "s",  "t"};
    std::mt19937 random(12);
    std::vector<std::string> words;
    std::string word;
    while (words.size() < count) {
        // Most words share the first half with one before them.
        word.resize(random() % 4 == 0 ? 0 : length / 2);
        while (word.size() < length) word += syllables[random() % std::size(syllables)];
        word.resize(length);
        words.push_back(word);
    }
    std::sort(words.begin(), words.end(),
              [](const auto& a, const auto& b) { return CompareNarrow(a.c_str(), b.c_str(), kExact) < 0; });
    return words;
}

enum class Pairs {
    neighbours,  ///< each word and the next
    equal,       ///< each word and a copy
    otherCase    ///< each word and the same in capitals
};

std::string Capitals(std::string text) {
    for (char& c : text) {
        const auto code = static_cast<unsigned char>(c);
        if ((code >= 'a' && code <= 'z') || (code >= 0xE0 && code != 0xF7 && code != 0xFF))
            c = static_cast<char>(c - 32);
    }
    return text;
}

/// Texts one behind the other in one block, at any address, each with a terminator.
template <class Char>
class Pool {
public:
    explicit Pool(const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            starts.push_back(chars.size());
            for (const char c : text) chars.push_back(static_cast<Char>(static_cast<unsigned char>(c)));
            chars.push_back(0);
        }
    }
    const Char* operator[](std::size_t i) const { return &chars[starts[i]]; }

private:
    std::vector<Char> chars;
    std::vector<std::size_t> starts;
};

template <class Char>
struct Texts {
    Texts(std::size_t length, Pairs pairs) : Texts(Words(length), pairs) {}
    Texts(std::vector<std::string> words, Pairs pairs) : first(words), second(Partners(words, pairs)) {}

    static std::vector<std::string> Partners(std::vector<std::string> words, Pairs pairs) {
        if (pairs == Pairs::neighbours) std::rotate(words.begin(), words.begin() + 1, words.end());
        if (pairs == Pairs::otherCase) std::transform(words.begin(), words.end(), words.begin(), Capitals);
        return words;
    }

    Pool<Char> first;
    Pool<Char> second;
};

/// Time of one comparison; `compare(a, b)` over all pairs in turn.
template <class Char, class Compare>
void Run(benchmark::State& state, std::size_t length, Pairs pairs, const Compare& compare) {
    const Texts<Char> texts(length, pairs);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(compare(texts.first[i], texts.second[i]));
        i = (i + 1) % kWords;
    }
}

struct CloseCollator {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};

void RunIcu(benchmark::State& state, std::size_t length, Pairs pairs, unsigned short op) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCollator, CloseCollator> collator(ucol_open("", &status));
    if (U_FAILURE(status) != 0) return state.SkipWithError("no collator");
    if (op == kCaseless) ucol_setStrength(collator.get(), UCOL_SECONDARY);
    Run<char16_t>(state, length, pairs,
                  [&](const char16_t* a, const char16_t* b) { return ucol_strcoll(collator.get(), a, -1, b, -1); });
}

void RunStrcoll(benchmark::State& state, std::size_t length, Pairs pairs) {
    const locale_t locale = newlocale(LC_ALL_MASK, "de_DE.ISO-8859-1", nullptr);
    if (locale == nullptr) return state.SkipWithError("no locale de_DE.ISO-8859-1");
    Run<char>(state, length, pairs, [&](const char* a, const char* b) { return strcoll_l(a, b, locale); });
    freelocale(locale);
}

// --- code set 0: bytes ---

struct Bytes {
    explicit Bytes(std::size_t size) : a(size, 'a'), b(a) { b.back() = 'b'; }
    std::string a, b;
};

void RunRaw(benchmark::State& state, std::size_t size) {
    const Bytes texts(size);
    const char* a = texts.a.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(KyStrCmp(0, 0, a, 0, 0, texts.b.c_str(), kExact, -1, 1, nullptr));
    }
}

void RunMemcmp(benchmark::State& state, std::size_t size) {
    const Bytes texts(size);
    const char* a = texts.a.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(std::memcmp(a, texts.b.c_str(), size));
    }
}

// --- the hash of the row ---

/// Words of 4 to 15 letters, too many for the processor to learn where each of them ends.
constexpr std::size_t kVariedWords = 16 * kWords;
std::vector<std::string> VariedWords() {
    std::vector<std::string> words = Words(15, kVariedWords);
    std::mt19937 random(13);
    for (std::string& word : words) word.resize(4 + random() % 12);
    return words;
}

void RunHash(benchmark::State& state, unsigned char codeSet) {
    std::vector<KyString> strings;
    if (codeSet == kLatin1) {
        for (const std::string& word : VariedWords()) strings.emplace_back(word.c_str());
    } else {
        const Pool<unsigned short> wide(VariedWords());
        for (std::size_t n = 0; n < kVariedWords; ++n) strings.emplace_back(wide[n]);
    }
    int err = 0;
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(KyNewtypetab[11]->Hash(8, 0, &strings[i], 1, err));
        i = (i + 1) % kVariedWords;
    }
}

/// The sum that the hash is, over a table of 256 numbers.
void RunHashLoop(benchmark::State& state) {
    const Pool<char> texts(VariedWords());
    unsigned numbers[256];
    for (unsigned i = 0; i < 256; ++i) numbers[i] = i << 24 | i << 8;
    std::size_t i = 0;
    for (auto _ : state) {
        const unsigned* table = numbers;
        benchmark::DoNotOptimize(table);
        unsigned hash = 0;
        for (const char* p = texts[i]; *p != 0; ++p) hash = 9 * hash + table[static_cast<unsigned char>(*p)];
        benchmark::DoNotOptimize(hash);
        i = (i + 1) % kVariedWords;
    }
}

/// "/part" for each.
std::string Path(std::initializer_list<std::string> parts) {
    std::string path;
    for (const std::string& part : parts) {
        path += '/';
        path += part;
    }
    return path;
}

/// One length of words in one shape, each way of comparing beside its peers.
void RegisterCompare(std::size_t length, const char* shape, Pairs pairs, unsigned short op) {
    const std::string tail = Path({std::to_string(length), shape});
    const auto narrow = [=](benchmark::State& state) {
        Run<char>(state, length, pairs, [op](const char* a, const char* b) { return CompareNarrow(a, b, op); });
    };
    const auto wide = [=](benchmark::State& state) {
        Run<char16_t>(state, length, pairs,
                      [op](const char16_t* a, const char16_t* b) { return CompareWide(a, b, op); });
    };
    const auto icu = [=](benchmark::State& state) { RunIcu(state, length, pairs, op); };
    const auto strcoll = [=](benchmark::State& state) { RunStrcoll(state, length, pairs); };
    // Missed for short equal texts: ICU looks at them hardly longer than a call of ours takes.
    bench::RegisterPair("collate/latin1-icu" + tail, bench::AtLeast(3), narrow, icu);
    bench::RegisterPair("collate/latin1-strcoll" + tail, bench::AtLeast(3), narrow, strcoll);
    bench::RegisterPair("collate/unicode-icu" + tail, bench::AtLeast(2), wide, icu);
}

const bench::AtStart here([] {
    for (const std::size_t length : {std::size_t{12}, std::size_t{200}}) {
        RegisterCompare(length, "exact/neighbours", Pairs::neighbours, kExact);
        RegisterCompare(length, "exact/equal", Pairs::equal, kExact);
        RegisterCompare(length, "caseless/neighbours", Pairs::neighbours, kCaseless);
        RegisterCompare(length, "caseless/othercase", Pairs::otherCase, kCaseless);
    }
    for (const std::size_t kilobytes : {std::size_t{4}, std::size_t{16}, std::size_t{60}}) {
        const std::size_t size = kilobytes * 1024;
        bench::RegisterPair(
            "collate/bytes/k" + std::to_string(kilobytes), bench::AtLeast(0.8),
            [=](benchmark::State& state) { RunRaw(state, size); },
            [=](benchmark::State& state) { RunMemcmp(state, size); });
    }
    bench::RegisterPair(
        "collate/hash/latin1", bench::AtMostMore(3), [](benchmark::State& state) { RunHash(state, kLatin1); },
        RunHashLoop);
    bench::RegisterPair(
        "collate/hash/unicode", bench::AtMostMore(3), [](benchmark::State& state) { RunHash(state, kUnicode); },
        RunHashLoop);
});

}  // namespace
