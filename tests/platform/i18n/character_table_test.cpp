// What the tables say of the characters of the 16-bit plane.

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "kyi18n.h"

namespace {

const KyCodeSet& Unicode() { return *KyLanguageContext::QueryCodeSet(KyCodeSetUnicode); }
const KyCharProps* RecordAt(unsigned code) { return Unicode().GetProperty(static_cast<unsigned short>(code)); }
unsigned OrderOf(unsigned code) { return RecordAt(code) != nullptr ? RecordAt(code)->order : 0; }
int ClassOf(unsigned code) { return RecordAt(code) != nullptr ? RecordAt(code)->orderClass : KyClassNone; }

std::vector<unsigned short> FurtherOrders(const KyCharProps& record) {
    if (record.rules == nullptr) return {};
    const KyWCharList& list = record.rules->orderExpansion;
    return {list.items, list.items + list.count};
}

/// Calls `see` with a record and all that languages and contractions put in its place.
template <class See>
void WithVariants(const KyCharProps& record, const See& see) {
    see(record);
    if (record.rules == nullptr) return;
    for (const KyLanguageVariant& entry : record.rules->variants) WithVariants(*entry.record, see);
    for (const KyContraction& entry : record.rules->contractions) WithVariants(*entry.record, see);
}

/// Calls `see` with each code of each code set and the records of the code, as above.
template <class See>
void WithEveryRecord(const See& see) {
    for (unsigned number = 1; number < KyCodeSetOrders; ++number) {
        const KyCodeSet* set = KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(number));
        if (set == nullptr) continue;
        for (unsigned code = 1; code < 0x10000; ++code) {
            const KyCharProps* record = set->GetProperty(static_cast<unsigned short>(code));
            if (record == nullptr) continue;
            const auto describe = [&] { return std::to_string(number) + ": " + std::to_string(code); };
            WithVariants(*record, [&](const KyCharProps& each) { see(code, each, describe); });
        }
    }
}

constexpr unsigned kFirstSymbol = 80;
constexpr unsigned kFirstDigit = 16128;
constexpr unsigned kFirstLetter = 0x4000;
constexpr unsigned kFirstHan = 0x8000;
constexpr unsigned kFirstMarker = 65520;

constexpr unsigned Letter(KyLetterCase letterCase, unsigned accent, char letter) {
    return kFirstLetter | unsigned{letterCase} << 12 | accent << 7 | static_cast<unsigned>(letter - 'a' + 3) << 2;
}

TEST(CharacterTable, SpacesAreUnicodesWhiteSpace) {
    const std::set<unsigned> spaces{0x09,   0x0A,   0x0B,   0x0C,   0x0D,   0x20,   0x85,   0xA0,   0x1680,
                                    0x2000, 0x2001, 0x2002, 0x2003, 0x2004, 0x2005, 0x2006, 0x2007, 0x2008,
                                    0x2009, 0x200A, 0x2028, 0x2029, 0x202F, 0x205F, 0x3000};
    for (unsigned code = 1; code < 0x10000; ++code) {
        const unsigned order = OrderOf(code);
        EXPECT_EQ(order != 0 && order < kFirstSymbol, spaces.contains(code)) << std::hex << code;
    }
}

TEST(CharacterTable, DigitsCarryTheirValues) {
    for (unsigned value = 0; value < 10; ++value) {
        EXPECT_EQ(OrderOf('0' + value), kFirstDigit + 10 * value);
        EXPECT_EQ(ClassOf('0' + value), KyClassCommon);
    }
    // The first digits of further scripts: Arabic, Devanagari, Thai, Mongolian, full width.
    for (const unsigned zero : {0x0660u, 0x06F0u, 0x0966u, 0x0E50u, 0x1810u, 0xFF10u}) {
        std::set<std::pair<unsigned, int>> forms;
        for (unsigned value = 0; value < 10; ++value) {
            const unsigned order = OrderOf(zero + value);
            ASSERT_GE(order, kFirstDigit) << std::hex << zero;
            ASSERT_LT(order, kFirstLetter);
            EXPECT_EQ((order - kFirstDigit) / 10, value) << std::hex << zero;
            EXPECT_GE(ClassOf(zero + value), KyClassCommon);
            EXPECT_LE(ClassOf(zero + value), KyClassLastDigits);
            forms.insert({(order - kFirstDigit) % 10, ClassOf(zero + value)});
        }
        EXPECT_EQ(forms.size(), 1u) << "one form a script";
        EXPECT_NE(*forms.begin(), std::make_pair(0u, int{KyClassCommon})) << "the form of ASCII";
    }
    // Only decimal digits are digits: no superscripts, circled or Roman numbers.
    for (const unsigned code : {0xB2u, 0xB3u, 0xB9u, 0x2070u, 0x2460u, 0x2160u, 0x3007u}) {
        EXPECT_FALSE(OrderOf(code) >= kFirstDigit && OrderOf(code) < kFirstLetter) << std::hex << code;
    }
}

TEST(CharacterTable, LatinLettersHaveTheirFields) {
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        const auto lower = static_cast<unsigned char>(letter);
        EXPECT_EQ(OrderOf(lower), Letter(KyCaseLower, KyAccentNone, letter));
        EXPECT_EQ(OrderOf(lower - 32u), Letter(KyCaseUpper, KyAccentNone, letter));
        EXPECT_EQ(ClassOf(lower), KyClassLatin);
    }
    const struct {
        unsigned code;
        unsigned order;
    } cases[] = {
        {0xC4, Letter(KyCaseUpper, KyAccentDiaeresis, 'a')},
        {0xE4, Letter(KyCaseLower, KyAccentDiaeresis, 'a')},
        {0xC7, Letter(KyCaseUpper, KyAccentCedilla, 'c')},
        {0xF1, Letter(KyCaseLower, KyAccentTilde, 'n')},
        {0x010D, Letter(KyCaseLower, KyAccentCaron, 'c')},
        {0x0105, Letter(KyCaseLower, KyAccentOgonek, 'a')},
        {0x0151, Letter(KyCaseLower, KyAccentDoubleAcute, 'o')},
        {0x0161, Letter(KyCaseLower, KyAccentCaron, 's')},
        {0x1EA5, Letter(KyCaseLower, KyAccentCircumflexAcute, 'a')},
        {0xFF, Letter(KyCaseLower, KyAccentDiaeresis, 'y')},
    };
    for (const auto& [code, order] : cases) {
        EXPECT_EQ(OrderOf(code), order) << std::hex << code;
        EXPECT_EQ(ClassOf(code), KyClassLatin);
    }
}

TEST(CharacterTable, LigaturesCountAsTheirLetters) {
    const struct {
        unsigned code;
        unsigned order;
        std::vector<unsigned short> further;
    } cases[] = {
        {0xE6, Letter(KyCaseLower, KyAccentLigature, 'a'), {Letter(KyCaseLower, KyAccentNone, 'e')}},
        {0xC6, Letter(KyCaseUpper, KyAccentLigature, 'a'), {Letter(KyCaseUpper, KyAccentNone, 'e')}},
        {0xDF, Letter(KyCaseLower, KyAccentLigature, 's'), {Letter(KyCaseLower, KyAccentNone, 's')}},
    };
    for (const auto& [code, order, further] : cases) {
        EXPECT_EQ(OrderOf(code), order);
        EXPECT_EQ(FurtherOrders(*RecordAt(code)), further);
    }
}

TEST(CharacterTable, ClassesCarryTheScript) {
    const struct {
        unsigned code;
        int orderClass;
    } cases[] = {
        {'A', KyClassLatin},       {0x03B1, KyClassGreek},  {0x0430, KyClassCyrillic}, {0x10D0, KyClassGeorgian},
        {0x0561, KyClassArmenian}, {0x05D0, KyClassHebrew}, {0x0627, KyClassArabic},   {0x0905, KyClassDevanagari},
        {0x0E01, KyClassThai},     {0x1100, KyClassHangul}, {0xAC00, KyClassHangul},   {0x3042, KyClassKana},
        {0x30A2, KyClassKana},     {0x4E00, KyClassHan},    {0x3400, KyClassHan},      {' ', KyClassCommon},
        {'*', KyClassCommon},      {0x20AC, KyClassCommon}, {0x0301, KyClassCommon},   {0xFFFD, KyClassCommon},
        {0xFFFE, KyClassNone},     {0x0378, KyClassNone},
    };
    for (const auto& [code, orderClass] : cases) EXPECT_EQ(ClassOf(code), orderClass) << std::hex << code;
}

TEST(CharacterTable, EveryOrderFitsItsClass) {
    unsigned seen = 0;
    WithEveryRecord([&](unsigned, const KyCharProps& record, const auto& describe) {
        ++seen;
        const int orderClass = record.orderClass;
        EXPECT_LT(record.order, kFirstMarker) << describe();
        if (record.order < kFirstDigit) {
            EXPECT_EQ(orderClass, KyClassCommon) << describe();
        } else if (record.order < kFirstLetter) {
            EXPECT_TRUE(orderClass >= KyClassCommon && orderClass <= KyClassLastDigits) << describe();
        } else if (record.order < kFirstHan) {
            EXPECT_TRUE(orderClass >= KyClassLatin && orderClass < KyClassHan) << describe();
        } else {
            EXPECT_EQ(orderClass, KyClassHan) << describe();
        }
    });
    EXPECT_GT(seen, 70000u);
}

TEST(CharacterTable, CodesThatAreHalvesOrForPrivateUseAreSymbols) {
    for (unsigned code = 0xD800; code <= 0xF8FF; ++code) {
        EXPECT_TRUE(OrderOf(code) >= kFirstSymbol && OrderOf(code) < kFirstDigit) << std::hex << code;
        if (code != 0xD800) {
            EXPECT_EQ(OrderOf(code), OrderOf(code - 1) + 1) << std::hex << code;
        }
    }
    for (const unsigned code : {0xFDD0u, 0xFDEFu, 0xFFFEu, 0xFFFFu}) EXPECT_EQ(RecordAt(code), nullptr) << code;
}

TEST(CharacterTable, HanIsOrderedByCodeWithinABlock) {
    for (unsigned code = 0x4E01; code <= 0x9FFF; ++code) EXPECT_EQ(OrderOf(code), OrderOf(code - 1) + 1);
    for (unsigned code = 0x3401; code <= 0x4DBF; ++code) EXPECT_EQ(OrderOf(code), OrderOf(code - 1) + 1);
    EXPECT_GE(OrderOf(0x4E00), kFirstHan);
    EXPECT_GT(OrderOf(0x3400), OrderOf(0x9FFF)) << "the extension behind the basic block";
}

TEST(CharacterTable, SyllablesAreTheirParts) {
    std::set<const KyCharRules*> rules;
    for (unsigned index = 0; index < 11172; ++index) {
        const KyCharProps& syllable = *RecordAt(0xAC00 + index);
        EXPECT_EQ(syllable.order, OrderOf(0x1100 + index / 588));
        EXPECT_EQ(syllable.orderClass, KyClassHangul);
        std::vector<unsigned short> further{static_cast<unsigned short>(OrderOf(0x1161 + index / 28 % 21))};
        if (index % 28 != 0) further.push_back(static_cast<unsigned short>(OrderOf(0x11A7 + index % 28)));
        EXPECT_EQ(FurtherOrders(syllable), further);
        rules.insert(syllable.rules);
    }
    EXPECT_EQ(rules.size(), 588u) << "one for each vowel with each trailing consonant";
    // Leading consonants before vowels before trailing ones: what ends orders before what goes on.
    EXPECT_LT(OrderOf(0x1112), OrderOf(0x1161));
    EXPECT_LT(OrderOf(0x1175), OrderOf(0x11A8));
}

TEST(CharacterTable, CanonicalEquivalentsAreOneCharacterInTheOrder) {
    const struct {
        unsigned code;
        unsigned other;
    } cases[] = {{0x212B, 0xC5}, {0x212A, 'K'}, {0x2126, 0x03A9}, {0x1F71, 0x03AC}, {0xF900, 0x8C48}, {0x0340, 0x0300}};
    for (const auto& [code, other] : cases) {
        EXPECT_EQ(OrderOf(code), OrderOf(other)) << std::hex << code;
        EXPECT_EQ(ClassOf(code), ClassOf(other));
        EXPECT_EQ(FurtherOrders(*RecordAt(code)), FurtherOrders(*RecordAt(other)));
    }
}

TEST(CharacterTable, CasePairs) {
    const struct {
        unsigned upper;
        unsigned lower;
    } pairs[] = {{'A', 'a'},       {'Z', 'z'},       {0xC4, 0xE4},     {0x0178, 0xFF},
                 {0x0410, 0x0430}, {0x0391, 0x03B1}, {0x0531, 0x0561}, {0x1E00, 0x1E01},
                 {0x2160, 0x2170}, {0xFF21, 0xFF41}, {0x24B6, 0x24D0}, {0x10A0, 0x2D00}};
    for (const auto& [upper, lower] : pairs) {
        EXPECT_EQ(RecordAt(upper)->lower, lower) << std::hex << upper;
        EXPECT_EQ(RecordAt(lower)->upper, upper);
        EXPECT_EQ(RecordAt(upper)->upper, 0);
        EXPECT_EQ(RecordAt(lower)->lower, 0);
    }
    EXPECT_EQ(RecordAt(0xB5)->upper, 0x039C) << "the micro sign is a mu";
    EXPECT_EQ(RecordAt(0x0131)->upper, 'I');
    EXPECT_EQ(RecordAt(0x0130)->lower, 'i');
    EXPECT_EQ(RecordAt(0x01C5)->upper, 0x01C4) << "title case has both";
    EXPECT_EQ(RecordAt(0x01C5)->lower, 0x01C6);
    EXPECT_EQ(RecordAt(0x4E00)->upper, 0);
}

TEST(CharacterTable, CaseLeadsToCharacters) {
    for (unsigned code = 1; code < 0x10000; ++code) {
        const KyCharProps* record = RecordAt(code);
        if (record == nullptr) continue;
        for (const unsigned target : {record->upper, record->lower}) {
            if (target != 0) {
                EXPECT_NE(RecordAt(target), nullptr) << std::hex << code;
            }
        }
    }
}

TEST(CharacterTable, WildcardsAreAloneWithTheirOrders) {
    const std::set<unsigned> wildcards{OrderOf('*'), OrderOf('?'), OrderOf('\\')};
    EXPECT_EQ(wildcards.size(), 3u);
    WithEveryRecord([&](unsigned code, const KyCharProps& record, const auto& describe) {
        const bool wildcard = code == '*' || code == '?' || code == '\\';
        EXPECT_EQ(wildcards.contains(record.order), wildcard) << describe();
        if (wildcard) {
            EXPECT_EQ(record.order, OrderOf(code)) << describe();
        }
        for (const unsigned order : FurtherOrders(record)) EXPECT_FALSE(wildcards.contains(order)) << describe();
    });
    // A code without a record is its own order.
    for (const unsigned order : wildcards) EXPECT_NE(RecordAt(order), nullptr);
}

TEST(CharacterTable, ExpansionsKeepTheClass) {
    std::map<unsigned, std::set<int>> classesOfOrder;
    WithEveryRecord([&](unsigned, const KyCharProps& record, const auto&) {
        if (FurtherOrders(record).empty()) classesOfOrder[record.order].insert(record.orderClass);
    });
    WithEveryRecord([&](unsigned, const KyCharProps& record, const auto& describe) {
        const bool letter = record.order >= kFirstLetter && record.order < kFirstHan;
        for (const unsigned order : FurtherOrders(record)) {
            int expected = order < kFirstLetter ? KyClassCommon : KyClassHan;
            if (order >= kFirstLetter && order < kFirstHan) expected = letter ? record.orderClass : KyClassLatin;
            EXPECT_TRUE(classesOfOrder[order].contains(expected)) << describe();
        }
    });
}

}  // namespace
