#include "first_orders.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "kychar.h"
#include "kyi18n.h"

// What the number of orders of a key rests on: the tables of all languages.

namespace {

/// Or a key could not hold as many orders as count.
TEST(Orders, TakeThreeCharactersAtMost) {
    const KyCodeSet& unicode = *KyLanguageContext::QueryCodeSet(KyCodeSetUnicode);
    unsigned contractions = 0;
    for (unsigned language = 0; language < KyLanguageNull; ++language) {
        const KyLanguage* rules = KyLanguageContext::QueryLanguage(static_cast<unsigned char>(language));
        if (rules == nullptr) continue;
        for (unsigned code = 1; code < 0x10000; ++code) {
            const KyCharProps* record = unicode.GetProperty(static_cast<unsigned short>(code));
            if (record == nullptr || record->rules == nullptr) continue;
            record = &rules->Select(*record);
            if (record->rules == nullptr) continue;
            for (const KyContraction& entry : record->rules->contractions) {
                ++contractions;
                const KyCharRules* further = entry.record->rules;
                const unsigned orders = further != nullptr ? 1U + further->orderExpansion.count : 1U;
                EXPECT_LE(entry.rest.count + 1U, std::min(3 * orders, 4U)) << language << " " << code;
                EXPECT_TRUE(further == nullptr || further->contractions.begin() == further->contractions.end());
            }
        }
    }
    EXPECT_GT(contractions, 50U);
}

/// By which short texts are told.
TEST(Orders, AreFewOfACharacter) {
    constexpr std::size_t ofNarrow = 3;
    constexpr std::size_t ofWide = 18;
    std::size_t narrow = 0;
    std::size_t wide = 0;
    for (unsigned language = 0; language < KyLanguageNull; ++language) {
        if (KyLanguageContext::QueryLanguage(static_cast<unsigned char>(language)) == nullptr) continue;
        for (unsigned codeSet = 0; codeSet <= KyCodeSetUnicode; ++codeSet) {
            if (KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(codeSet)) == nullptr) continue;
            const bool isNarrow = codeSet < KyCodeSetFirst16Bit;
            for (unsigned code = 1; code < (isNarrow ? 0x100U : 0x10000U); ++code) {
                const unsigned short wideText[] = {static_cast<unsigned short>(code), 0};
                const char narrowText[] = {static_cast<char>(code), 0};
                KyStringIterator it(isNarrow ? narrowText : reinterpret_cast<const char*>(wideText),
                                    static_cast<unsigned char>(codeSet), static_cast<unsigned char>(language),
                                    KyFormNative);
                std::size_t orders = 0;
                while (it.GetNextOrder(0) != 0) ++orders;
                std::size_t& most = isNarrow ? narrow : wide;
                most = std::max(most, orders);
            }
        }
    }
    EXPECT_LE(narrow, ofNarrow);
    EXPECT_EQ(wide, ofWide);
}

}  // namespace
