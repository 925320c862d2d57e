// KyStrCmp without case and accents beside the peer's collators at their first level, over real words.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "peers/peer_collator.h"
#include "peers/peer_languages.h"
#include "peers/word_lists.h"
#include "support/fewer_cases.h"
#include "support/languages.h"

namespace {

using peer::Collator;
using peer::Sign;
using peer::Tally;
using Words = std::vector<std::u16string>;

constexpr unsigned short kLettersOnly = 0x10 | 0x20 | 0x40;
constexpr std::size_t kFewestWords = 5000;
constexpr unsigned kRandomPairs = 200000 / kFewerCases;
constexpr double kAgreement = 99.9;

/// Positions of the words in the peer's order.
std::vector<std::size_t> SortedByPeer(const Words& words, const Collator& collator) {
    std::vector<std::string> keys;
    keys.reserve(words.size());
    for (const std::u16string& word : words) keys.push_back(collator.Key(word));
    std::vector<std::size_t> order(words.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    return order;
}

struct Pair {
    std::size_t a, b;
};

std::vector<Pair> RandomPairs(std::size_t words) {
    std::mt19937_64 random(20240507);
    std::vector<Pair> pairs;
    for (unsigned i = 0; i < kRandomPairs; ++i) {
        const std::size_t a = random() % words;
        pairs.push_back({a, random() % words});
    }
    return pairs;
}

std::vector<Pair> Neighbours(const std::vector<std::size_t>& order) {
    std::vector<Pair> pairs;
    for (std::size_t i = 1; i < order.size(); ++i) pairs.push_back({order[i - 1], order[i]});
    return pairs;
}

/// `compare(a, b)`: the comparison here of the words at two positions. The first few that the orders disagree about are
/// printed.
template <class Compare>
Tally Count(const Words& words, const std::vector<Pair>& pairs, const Collator& collator, Compare compare) {
    constexpr unsigned long kExamples = 8;
    Tally tally;
    for (const Pair& pair : pairs) {
        const int here = Sign(compare(pair.a, pair.b));
        const int there = collator.Compare(words[pair.a], words[pair.b]);
        tally.Add(here, there);
        if (here == there || tally.Disagreements() > kExamples) continue;
        std::printf("  %s | %s: here %d, there %d\n", peer::Utf8(words[pair.a]).c_str(),
                    peer::Utf8(words[pair.b]).c_str(), here, there);
    }
    return tally;
}

class CollationPeer : public testing::TestWithParam<peer::WordList> {
protected:
    void SetUp() override {
        peerLanguage = peer::LanguageOf(GetParam().tag);
        ASSERT_NE(peerLanguage, nullptr);
        language = LanguageOf(GetParam().tag);
        ASSERT_NE(language, nullptr);
        words = peer::ReadWords(GetParam());
        ASSERT_GE(words.size(), kFewestWords);
        const std::size_t step = std::min<std::size_t>(kFewerCases, words.size() / kFewestWords);
        Words some;
        for (std::size_t i = 0; i < words.size(); i += step) some.push_back(words[i]);
        words = some;
    }

    /// Compares words by their positions, which `compare` takes, at random and beside each other. `order`: those that
    /// the form has, in the peer's order.
    template <class Compare>
    void ExpectAgreement(const Collator& collator, const std::vector<std::size_t>& order, const char* form,
                         Compare compare) {
        const auto expect = [&](const char* choice, const std::vector<Pair>& pairs) {
            const Tally tally = Count(words, pairs, collator, compare);
            std::printf("%-12s %-12s %-10s %7lu pairs %9.4f %%: equal here %lu, equal there %lu, reversed %lu\n",
                        GetParam().tag, form, choice, tally.pairs, tally.Agreement(), tally.equalHere, tally.equalThere,
                        tally.reversed);
            EXPECT_GE(tally.Agreement(), kAgreement) << choice;
        };
        std::vector<Pair> random = RandomPairs(order.size());
        for (Pair& pair : random) pair = {order[pair.a], order[pair.b]};
        expect("random", random);
        expect("neighbours", Neighbours(order));
    }

    const peer::Language* peerLanguage = nullptr;
    const KyLanguage* language = nullptr;
    Words words;
};

TEST_P(CollationPeer, AgreesIn16And8Bits) {
    const Collator collator(peerLanguage->locale);
    std::vector<std::size_t> order = SortedByPeer(words, collator);
    ExpectAgreement(collator, order, "16 bits", [&](std::size_t a, std::size_t b) {
        return CompareUnicode(language->Code(), words[a], words[b], kLettersOnly);
    });

    if (peerLanguage->codeSet == nullptr) return;
    const KyCodeSet* codeSet = CodeSetOf(peerLanguage->codeSet);
    ASSERT_NE(codeSet, nullptr) << peerLanguage->codeSet;
    std::vector<std::string> texts;
    for (const std::u16string& word : words) texts.push_back(ToCodeSet(*codeSet, word));
    std::erase_if(order, [&](std::size_t word) { return texts[word].empty(); });
    ASSERT_GE(order.size(), words.size() / 100 * 99) << "the language is not written in this code set";
    ExpectAgreement(collator, order, codeSet->Name(), [&](std::size_t a, std::size_t b) {
        return CompareBytes(*codeSet, language->Code(), texts[a], texts[b], kLettersOnly);
    });
}

INSTANTIATE_TEST_SUITE_P(Languages, CollationPeer, testing::ValuesIn(peer::kWordLists),
                         [](const auto& instance) { return TestName(instance.param.tag); });

/// What the test above would say of an order that is not the language's.
TEST(CollationPeerItself, NoticesAWrongOrder) {
    const auto czech = std::find_if(peer::kWordLists.begin(), peer::kWordLists.end(),
                                    [](const peer::WordList& list) { return std::string(list.tag) == "cs"; });
    ASSERT_NE(czech, peer::kWordLists.end());
    const Words words = peer::ReadWords(*czech);
    const Collator collator("cs");
    Tally tally;
    for (const Pair& pair : RandomPairs(words.size())) {
        tally.Add(Sign(CompareUnicode(KyLanguageNeutral, words[pair.a], words[pair.b], kLettersOnly)),
                  collator.Compare(words[pair.a], words[pair.b]));
    }
    EXPECT_LT(tally.Agreement(), kAgreement);
}

}  // namespace
