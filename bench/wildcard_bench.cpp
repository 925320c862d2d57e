// Patterns, against the C library's matcher of file names, in the "C" locale, where it takes texts as bytes too.

#include <benchmark/benchmark.h>
#include <fnmatch.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "goals.h"
#include "kystring.h"

namespace {

/// Texts of one length that end and differ as words do.
std::vector<std::string> TextsOf(std::size_t length) {
    std::vector<std::string> texts;
    for (unsigned i = 0; i < 16; ++i) {
        std::string text;
        while (text.size() < length) text += "lorem ipsum dolor sit amet, consectetur adipiscing elit; ";
        text.resize(length);
        text[length - 1] = static_cast<char>('a' + i);
        texts.push_back(text);
    }
    return texts;
}

std::vector<std::string> Words() {
    return {"Autobahn",    "Rathaus",  "Haustier", "essen",  "Autor",     "Krankenhaus", "Wasser",    "Fenster",
            "Besprechung", "Baumhaus", "Automat",  "Schiff", "Automobil", "Messer",      "Vorsehung", "Gewaechshaus"};
}

template <class Match>
void Run(benchmark::State& state, std::vector<std::string> texts, std::string pattern, Match match) {
    std::size_t i = 0;
    for (auto _ : state) {
        const int result = match(pattern.data(), texts[i++ % 16].data());
        benchmark::DoNotOptimize(result);
    }
}

void Pair(const std::string& name, bench::Goal goal, const std::vector<std::string>& texts,
          const std::string& pattern) {
    bench::RegisterPair(
        "strwild/" + name, goal, [=](benchmark::State& state) { Run(state, texts, pattern, strwild); },
        [=](benchmark::State& state) {
            Run(state, texts, pattern, [](const char* p, const char* text) { return fnmatch(p, text, 0); });
        });
}

void CasePair(const std::string& name, const std::vector<std::string>& texts, const std::string& pattern) {
    bench::RegisterPair(
        "caseistrwild/" + name, bench::AtMostMore(20),
        [=](benchmark::State& state) {
            Run(state, texts, pattern, [](char* p, char* text) { return caseistrwild(p, text, 0x40, 0x40); });
        },
        [=](benchmark::State& state) {
            Run(state, texts, pattern, [](const char* p, const char* text) { return fnmatch(p, text, FNM_CASEFOLD); });
        });
}

/// The peer folds the case of ASCII and knows no language.
void OrderPair(const std::string& name, bench::Goal goal, const std::vector<std::string>& texts,
               const std::string& pattern) {
    bench::RegisterPair(
        "kystrcmp/wildcards/" + name, goal,
        [=](benchmark::State& state) {
            Run(state, texts, pattern,
                [](const char* p, const char* text) { return KyStrCmp(1, 2, text, 1, 2, p, 0x20, -1, 1, nullptr); });
        },
        [=](benchmark::State& state) {
            Run(state, texts, pattern, [](const char* p, const char* text) { return fnmatch(p, text, FNM_CASEFOLD); });
        });
}

std::string Worst(char repeated, std::size_t length) { return std::string(length - 1, repeated).append("c"); }

/// The peer compares bytes.
void FindPair(const std::string& name, bench::Goal goal, const std::string& text, const std::string& pattern) {
    const KyString searched(text.c_str());
    const KyString wanted(pattern.c_str());
    bench::RegisterPair(
        "string/find/" + name, goal,
        [=](benchmark::State& state) {
            for (auto _ : state) benchmark::DoNotOptimize(searched.Find(wanted, 0, 0x100));
        },
        [=](benchmark::State& state) {
            for (auto _ : state) benchmark::DoNotOptimize(text.find(pattern));
        });
}

const bench::AtStart here([] {
    const bench::Goal twice = bench::AtLeast(2);
    const std::vector<std::string> hundred = TextsOf(100);
    Pair("100/prefix", twice, hundred, "lorem ips*");
    Pair("100/suffix", twice, hundred, "*lorem ipsum dolor sit amp");
    Pair("100/contains", twice, hundred, "*consec*");
    Pair("100/absent", twice, hundred, "*consequence*");
    Pair("100/several", twice, hundred, "*ipsum*a?et*elit*");
    Pair("100/equal", twice, hundred, hundred[0]);
    const std::vector<std::string> alike(16, Worst('a', 100));
    Pair("100/worst", twice, alike, "*a*a*a*a*b");
    Pair("100/worst-open", twice, alike, "*a*a*a*a*b*");
    Pair("100/near", twice, alike, "*aaaabaaaa*");
    const std::vector<std::string> longest(16, Worst('a', 60000));
    Pair("60k/absent", twice, TextsOf(60000), "*consequence*");
    Pair("60k/worst", twice, longest, "*a*a*a*a*b");
    Pair("60k/worst-open", twice, longest, "*a*a*a*a*b*");
    Pair("60k/near", twice, longest, "*aaaabaaaa*");
    const std::vector<std::string> words = Words();
    for (const char* pattern : {"Auto*", "*haus", "*e?s*", "*s*e*n*"}) {
        Pair(std::string("word/") + pattern, bench::AtMostMore(3), words, pattern);
        CasePair(std::string("word/") + pattern, words, pattern);
        OrderPair(std::string("word/") + pattern, bench::AtMostMore(25), words, pattern);
    }
    CasePair("100/contains", hundred, "*CONSEC*");
    CasePair("100/worst", alike, "*a*a*a*a*b");
    OrderPair("100/contains", bench::AtMostMore(25), hundred, "*CONSEC*");
    OrderPair("100/worst", bench::AtLeast(1), alike, "*a*a*a*a*b");
    OrderPair("60k/worst", twice, longest, "*a*a*a*a*b");
    FindPair("100", bench::AtMostMore(120), hundred[0], "adipiscing");
    FindPair("60k", bench::AtLeast(0.2), TextsOf(60000)[0], "adipiscong");
    FindPair("60k/near", bench::AtLeast(0.5), Worst('a', 60000), std::string(100, 'a').append("b").append(100, 'a'));
});

}  // namespace
