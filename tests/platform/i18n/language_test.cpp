#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "kyi18n.h"

namespace {

std::vector<const KyLanguage*> AllLanguages() {
    std::vector<const KyLanguage*> all;
    for (unsigned number = 0; number < KyLanguageNull; ++number) {
        const KyLanguage* language = KyLanguageContext::QueryLanguage(static_cast<unsigned char>(number));
        if (language == nullptr) continue;
        EXPECT_EQ(language->Code(), number);
        all.push_back(language);
    }
    return all;
}

const KyLanguage* WithTag(const std::string& tag) {
    for (const KyLanguage* language : AllLanguages()) {
        if (language->Tag() == tag) return language;
    }
    return nullptr;
}

const KyCharProps& RecordOf(unsigned short code, const KyLanguage& language) {
    return language.Select(*KyLanguageContext::QueryCodeSet(KyCodeSetUnicode)->GetProperty(code));
}

TEST(Language, NumbersNameObjects) {
    ASSERT_NE(KyLanguageContext::QueryLanguage(KyLanguageNeutral), nullptr);
    EXPECT_EQ(KyLanguageContext::QueryLanguage(KyLanguageNeutral)->Variant(), 0);
    EXPECT_EQ(KyLanguageContext::QueryLanguage(KyLanguageDefault), KyLanguageContext::QueryLanguage(KyLanguageNeutral));
    EXPECT_EQ(KyLanguageContext::QueryLanguage(KyLanguageNull), nullptr);
    KyLanguageContext::SetDefaultLanguage(KyLanguageNull);
    EXPECT_EQ(KyLanguageContext::QueryLanguage(KyLanguageDefault), nullptr);
    KyLanguageContext::SetDefaultLanguage(KyLanguageNeutral);
}

TEST(Language, HasATagAndANameOfItsOwn) {
    std::set<std::string> seen;
    for (const KyLanguage* language : AllLanguages()) {
        EXPECT_STRNE(language->Tag(), "");
        EXPECT_STRNE(language->Name(), "");
        EXPECT_TRUE(seen.insert(language->Tag()).second) << language->Tag();
        EXPECT_TRUE(seen.insert(language->Name()).second) << language->Name();
    }
    for (const char* tag : {"en", "de", "fr", "es", "da", "no", "sv", "fi", "cs", "pl", "hu", "tr"}) {
        EXPECT_NE(WithTag(tag), nullptr) << tag;
    }
}

TEST(Language, SharesTheOrderOfAnother) {
    EXPECT_EQ(WithTag("no")->Variant(), WithTag("da")->Variant());
    EXPECT_NE(WithTag("fi")->Variant(), WithTag("sv")->Variant());
    EXPECT_EQ(WithTag("da")->Variant(), WithTag("da")->Code());
    EXPECT_NE(WithTag("da")->Variant(), WithTag("sv")->Variant());
    EXPECT_EQ(WithTag("en")->Variant(), 0) << "nothing differs from the neutral order";
}

TEST(Language, MovesALetter) {
    const unsigned short aRing = 0xE5;
    const KyCharProps& neutral = RecordOf(aRing, *WithTag("en"));
    EXPECT_EQ(neutral.order, 0x4000 | KyCaseLower << 12 | KyAccentRing << 7 | 3 << 2);
    const KyCharProps& danish = RecordOf(aRing, *WithTag("da"));
    EXPECT_EQ(danish.order >> 2 & 0x1F, 28) << "behind z";
    EXPECT_NE(danish.order & 3, 0);
    EXPECT_EQ(danish.upper, 0xC5) << "case is the same in every language";
    EXPECT_EQ(RecordOf(0x212B, *WithTag("da")).order, RecordOf(0xC5, *WithTag("da")).order) << "the angstrom sign";
    EXPECT_EQ(RecordOf(0x212B, *WithTag("da")).lower, aRing);
}

TEST(Language, CountsSeveralCharactersAsOne) {
    const KyCharProps& c = RecordOf('c', *WithTag("es"));
    ASSERT_NE(c.rules, nullptr);
    EXPECT_EQ(c.order, RecordOf('c', *WithTag("en")).order);
    ASSERT_EQ(c.rules->contractions.end() - c.rules->contractions.begin(), 1);
    const KyContraction& ch = *c.rules->contractions.begin();
    ASSERT_EQ(ch.rest.count, 1);
    EXPECT_EQ(ch.rest.items[0], 'h');
    EXPECT_EQ(ch.record->orderClass, KyClassLatin);
    EXPECT_EQ(ch.record->order & 0x407C, 0x4000 | 5 << 2) << "a letter of its own behind c";
    EXPECT_NE(ch.record->order & 3, 0);
}

TEST(Language, ContractionsAreTriedLongestFirstAndReachEverySet) {
    unsigned seen = 0;
    for (const KyLanguage* language : AllLanguages()) {
        for (unsigned set = 1; set < 256; ++set) {
            const KyCodeSet* codeSet = KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(set));
            if (codeSet == nullptr || set == KyCodeSetDefault) continue;
            for (unsigned code = 1; code < 0x200; ++code) {
                const KyCharProps* record = codeSet->GetProperty(static_cast<unsigned short>(code));
                if (record == nullptr) continue;
                const KyCharProps& selected = language->Select(*record);
                if (selected.rules == nullptr) continue;
                unsigned longest = KyContraction::Longest - 1;
                for (const KyContraction& entry : selected.rules->contractions) {
                    ++seen;
                    ASSERT_GT(entry.rest.count, 0);
                    EXPECT_LE(entry.rest.count, longest) << language->Tag();
                    longest = entry.rest.count;
                    EXPECT_NE(entry.record->order, 0);
                }
            }
        }
    }
    EXPECT_GT(seen, 0u);
}

TEST(Language, ChangesOrderAndClassOnly) {
    for (const KyLanguage* language : AllLanguages()) {
        for (unsigned set = 1; set < 256; ++set) {
            const KyCodeSet* codeSet = KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(set));
            if (codeSet == nullptr || set == KyCodeSetDefault) continue;
            for (unsigned code = 1; code < 0x10000; ++code) {
                const KyCharProps* record = codeSet->GetProperty(static_cast<unsigned short>(code));
                if (record == nullptr) continue;
                const KyCharProps& selected = language->Select(*record);
                if (&selected == record) continue;
                EXPECT_EQ(selected.upper, record->upper);
                EXPECT_EQ(selected.lower, record->lower);
                if (selected.order == record->order) continue;
                EXPECT_GE(record->order, 0x4000) << language->Tag() << " " << code;
                EXPECT_LT(record->order, 0x8000);
                EXPECT_GE(selected.order, 0x4000);
                EXPECT_LT(selected.order, 0x8000);
            }
        }
    }
}

TEST(Language, SelectsTheVariantItAsksFor) {
    const KyCharProps variantRecord{.order = 0x4020};
    const KyLanguageVariant variants[] = {{3, &variantRecord}};
    const KyCharRules rules{.variants = variants};
    const KyCharProps record{.order = 0x400C, .rules = &rules};
    EXPECT_EQ(&KyLanguage(9, 3).Select(record), &variantRecord);
    EXPECT_EQ(&KyLanguage(9, 2).Select(record), &record);
    EXPECT_EQ(&KyLanguage(9, 0).Select(record), &record);
    EXPECT_EQ(&KyLanguage(9, 3).Select(variantRecord), &variantRecord);
}

TEST(Language, RanksClasses) {
    unsigned char ranks[128] = {};
    ranks[1] = 5;
    const KyCharProps record{.order = 0x4020, .orderClass = 1};
    EXPECT_EQ(KyLanguage(9, 0, ranks).ClassOf(record), 5);
    EXPECT_EQ(KyLanguage(9).ClassOf(record), 1);
}

}  // namespace
