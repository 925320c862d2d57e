// The order of the letters of each class at their first level beside the default order of the peer.

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "peers/peer_collator.h"
#include "support/languages.h"

namespace {

constexpr unsigned short kLettersOnly = 0x10 | 0x20 | 0x40;

/// Neighbours here that the peer has the other way round.
const std::set<std::pair<unsigned, unsigned>> kReversed = {
    // Forms with rare marks stand behind all other forms of their letter, ligatures that begin with it included.
    {0xA73D, 0x01DE},
    {0x0133, 0x1E2C},
    {0xA74F, 0x01EC},
    // Hangul letters of old texts stand behind those of today.
    {0x11C2, 0x1113},
    // Marks and signs that Unicode counts among the letters follow them; the peer has them among the symbols.
    {0xFF9D, 0xFF9E},
    {0x088E, 0xFC5E},
    {0x081A, 0x0824},
    {0x07F5, 0x07FA},
    {0x1CF6, 0x0640},
};

/// Neighbours that are one letter here and two there, by class: rare letters of scripts with more letters than a class
/// holds, or that share a variant of a Latin letter; old Hangul letters.
const std::map<unsigned, unsigned> kShared = {{32, 391}, {38, 17}, {41, 272}, {92, 1}, {103, 8}, {104, 6}};

/// Neighbours that are two letters here and one there: forms with rare marks, and what stands before them.
const std::map<unsigned, unsigned> kSplit = {{32, 2}};

int Here(char16_t a, char16_t b) {
    return peer::Sign(CompareUnicode(KyLanguageNeutral, std::u16string(1, a), std::u16string(1, b), kLettersOnly));
}

std::map<unsigned, std::u16string> LettersByClass() {
    std::map<unsigned, std::u16string> classes;
    const KyCodeSet* unicode = KyLanguageContext::QueryCodeSet(KyCodeSetUnicode);
    for (unsigned code = 1; code < 0x10000; ++code) {
        const KyCharProps* record = unicode->GetProperty(static_cast<unsigned short>(code));
        if (record == nullptr || record->order < 0x4000) continue;
        classes[record->orderClass].push_back(static_cast<char16_t>(code));
    }
    for (auto& [orderClass, letters] : classes) {
        std::stable_sort(letters.begin(), letters.end(), [](char16_t a, char16_t b) { return Here(a, b) < 0; });
    }
    return classes;
}

TEST(LetterOrderPeer, NeighboursOfEachClass) {
    const peer::Collator collator("root");
    std::map<unsigned, unsigned> shared, split;
    std::set<std::pair<unsigned, unsigned>> reversed;
    unsigned letterCount = 0;
    for (const auto& [orderClass, letters] : LettersByClass()) {
        letterCount += static_cast<unsigned>(letters.size());
        if (orderClass == KyClassHan) continue;
        for (std::size_t i = 1; i < letters.size(); ++i) {
            const char16_t a = letters[i - 1];
            const char16_t b = letters[i];
            const int here = Here(a, b);
            const int there = collator.Compare(std::u16string(1, a), std::u16string(1, b));
            if (here == there) continue;
            if (here == 0) {
                ++shared[orderClass];
            } else if (there == 0) {
                ++split[orderClass];
            } else {
                reversed.emplace(a, b);
            }
        }
    }
    EXPECT_GT(letterCount, 45000u);
    EXPECT_EQ(shared, kShared);
    EXPECT_EQ(split, kSplit);
    EXPECT_EQ(reversed, kReversed);
}

/// Scripts of several classes go on in the next one, and the further scripts stand as the peer has them. Marks of
/// repetition and tone, which the peer ranks apart, do not count, nor does the class of the letters of no script.
TEST(LetterOrderPeer, ClassesFollowEachOther) {
    constexpr unsigned kFirstFurtherClass = 45;
    constexpr unsigned kLastFurtherClass = 118;
    const peer::Collator collator("root");
    const auto classes = LettersByClass();
    char16_t last = 0;
    for (unsigned orderClass = kFirstFurtherClass; orderClass <= kLastFurtherClass; ++orderClass) {
        std::u16string letters = classes.at(orderClass);
        std::erase_if(letters, [](char16_t unit) { return u_charType(unit) == U_MODIFIER_LETTER; });
        ASSERT_FALSE(letters.empty()) << orderClass;
        const std::u16string first(1, letters.front());
        if (last != 0) {
            EXPECT_LT(Here(last, first.front()), 0) << orderClass;
            EXPECT_LT(collator.Compare(std::u16string(1, last), first), 0) << orderClass;
        }
        last = letters.back();
    }
}

/// The peer has them by radicals and strokes.
TEST(LetterOrderPeer, HanCharactersStandInTheOrderOfTheirCodes) {
    const std::u16string han = LettersByClass()[KyClassHan];
    const auto unified = [](char16_t unit) { return u_hasBinaryProperty(unit, UCHAR_UNIFIED_IDEOGRAPH) != 0; };
    const auto rank = [](char16_t unit) {
        const bool isExtension = unit >= 0x3400 && unit < 0x4E00;
        return std::make_pair(isExtension, unit);
    };
    std::u16string characters;
    std::copy_if(han.begin(), han.end(), std::back_inserter(characters), unified);
    ASSERT_GT(characters.size(), 27000u);
    for (std::size_t i = 1; i < characters.size(); ++i) {
        EXPECT_LT(rank(characters[i - 1]), rank(characters[i]));
        EXPECT_LT(Here(characters[i - 1], characters[i]), 0);
    }
}

}  // namespace
