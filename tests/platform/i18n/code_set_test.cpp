#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>
#include <vector>

#include "kyi18n.h"

namespace {

const KyCodeSet& Set(unsigned code) { return *KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(code)); }

constexpr unsigned kLast8BitSet = 26;

constexpr unsigned short kNone = 0;

TEST(CodeSet, NumbersNameObjects) {
    for (unsigned code = 1; code < 255; ++code) {
        const KyCodeSet* set = KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(code));
        const bool exists = code <= kLast8BitSet || code == KyCodeSetUnicode || code == KyCodeSetOrders;
        ASSERT_EQ(set != nullptr, exists) << code;
        if (!exists) continue;
        EXPECT_EQ(set->Code(), code);
        EXPECT_EQ(set->HasPropertyTable(), code != KyCodeSetOrders);
        EXPECT_EQ(set->IsAsciiBelow80(), code != KyCodeSetOrders);
    }
    EXPECT_EQ(Set(KyCodeSetNative).Code(), KyLanguageContext::GetNativeCodeSet());
    EXPECT_EQ(Set(KyCodeSetDefault).Code(), KyLanguageContext::GetDefaultCodeSet());
}

TEST(CodeSet, NamesAreTheRegisteredOnes) {
    const struct {
        unsigned code;
        const char* name;
    } cases[] = {{1, "ISO-8859-1"},    {2, "windows-1252"},  {3, "US-ASCII"},      {4, "IBM437"},
                 {5, "IBM850"},        {6, "HP-ROMAN8"},     {7, "ISO-8859-2"},    {8, "ISO-8859-3"},
                 {9, "ISO-8859-5"},    {10, "ISO-8859-6"},   {11, "ISO-8859-7"},   {12, "ISO-8859-8"},
                 {13, "ISO-8859-9"},   {14, "ISO-8859-11"},  {15, "ISO-8859-13"},  {16, "ISO-8859-15"},
                 {17, "ISO-8859-16"},  {18, "windows-1250"}, {19, "windows-1251"}, {20, "windows-1253"},
                 {21, "windows-1254"}, {22, "windows-1255"}, {23, "windows-1256"}, {24, "windows-1257"},
                 {25, "windows-1258"}, {26, "KOI8-R"}};
    std::set<std::string> seen;
    for (const auto& [code, name] : cases) {
        EXPECT_STREQ(Set(code).Name(), name);
        seen.insert(name);
    }
    EXPECT_EQ(seen.size(), kLast8BitSet);
}

/// A byte of a set and its Unicode code, 0 for no character.
struct Golden {
    unsigned set;
    unsigned short byte;
    unsigned short unicode;
};

constexpr Golden kGolden[] = {
    {1, 0x80, 0x0080},  {1, 0xE4, 0x00E4},  {1, 0xFF, 0x00FF},   // Latin-1
    {2, 0x80, 0x20AC},  {2, 0x81, kNone},   {2, 0x8D, kNone},    // Windows, western
    {2, 0x8F, kNone},   {2, 0x90, kNone},   {2, 0x9D, kNone},    //
    {2, 0x9C, 0x0153},  {2, 0x9F, 0x0178},  {2, 0xE4, 0x00E4},   //
    {3, 0x7F, 0x007F},  {3, 0x80, kNone},   {3, 0xFF, kNone},    // ASCII
    {4, 0x80, 0x00C7},  {4, 0xE1, 0x00DF},  {4, 0xB0, 0x2591},   // PC
    {4, 0xE3, 0x03C0},  {4, 0xF6, 0x00F7},  {4, 0xFF, 0x00A0},   //
    {5, 0x80, 0x00C7},  {5, 0x9B, 0x00F8},  {5, 0xD5, 0x0131},   // PC, western
    {5, 0xE1, 0x00DF},  {5, 0xFE, 0x25A0},  {5, 0xFF, 0x00A0},   //
    {6, 0xA1, 0x00C0},  {6, 0xAF, 0x20A4},  {6, 0xCC, 0x00E4},   // Roman-8
    {6, 0xCF, 0x00FC},  {6, 0xDB, 0x00DC},  {6, 0xFF, kNone},    //
    {7, 0xA1, 0x0104},  {7, 0xE6, 0x0107},  {7, 0xFF, 0x02D9},   // central European
    {8, 0xA1, 0x0126},  {8, 0xA5, kNone},   {8, 0xB9, 0x0131},   // Maltese
    {9, 0xA1, 0x0401},  {9, 0xD0, 0x0430},  {9, 0xF0, 0x2116},   // Cyrillic
    {10, 0xA1, kNone},  {10, 0xAC, 0x060C}, {10, 0xC7, 0x0627},  // Arabic
    {11, 0xA1, 0x2018}, {11, 0xA4, 0x20AC}, {11, 0xE1, 0x03B1},  // Greek
    {11, 0xAE, kNone},  {11, 0xD2, kNone},  {11, 0xFF, kNone},   //
    {12, 0xDF, 0x2017}, {12, 0xE0, 0x05D0}, {12, 0xFB, kNone},   // Hebrew
    {13, 0xD0, 0x011E}, {13, 0xFD, 0x0131}, {13, 0xE4, 0x00E4},  // Turkish
    {14, 0xA1, 0x0E01}, {14, 0xDB, kNone},  {14, 0xFB, 0x0E5B},  // Thai
    {15, 0xA1, 0x201D}, {15, 0xE0, 0x0105}, {15, 0xFE, 0x017E},  // Baltic
    {16, 0xA4, 0x20AC}, {16, 0xBD, 0x0153}, {16, 0xBE, 0x0178},  // western with the euro
    {17, 0xA1, 0x0104}, {17, 0xA4, 0x20AC}, {17, 0xDE, 0x021A},  // south-eastern European
    {18, 0x81, kNone},  {18, 0x8A, 0x0160}, {18, 0xE6, 0x0107},  // Windows, central European
    {19, 0x80, 0x0402}, {19, 0x98, kNone},  {19, 0xC0, 0x0410},  // Windows, Cyrillic
    {20, 0xA2, 0x0386}, {20, 0xAA, kNone},  {20, 0xE1, 0x03B1},  // Windows, Greek
    {21, 0x8E, kNone},  {21, 0xD0, 0x011E}, {21, 0x80, 0x20AC},  // Windows, Turkish
    {22, 0xE0, 0x05D0}, {22, 0xA4, 0x20AA}, {22, 0xFF, kNone},   // Windows, Hebrew
    {23, 0x80, 0x20AC}, {23, 0x81, 0x067E}, {23, 0xC7, 0x0627},  // Windows, Arabic
    {24, 0xE0, 0x0105}, {24, 0xFF, 0x02D9}, {24, 0x81, kNone},   // Windows, Baltic
    {25, 0xD2, 0x0309}, {25, 0xFE, 0x20AB}, {25, 0xD0, 0x0110},  // Windows, Vietnamese
    {26, 0xA3, 0x0451}, {26, 0xC1, 0x0430}, {26, 0xE1, 0x0410},  // Russian
};

TEST(CodeSet, BytesAreTheirCharacters) {
    for (const auto& [set, byte, unicode] : kGolden) {
        EXPECT_EQ(Set(set).ToUnicode(byte), unicode) << set << ": " << byte;
        if (unicode != kNone) {
            EXPECT_EQ(Set(set).FromUnicode(unicode), byte) << set << ": " << byte;
        }
    }
}

TEST(CodeSet, EverySetGoesToUnicodeAndBack) {
    for (unsigned set = 1; set <= kLast8BitSet; ++set) {
        for (unsigned short byte = 0; byte < 0x100; ++byte) {
            const unsigned short unicode = Set(set).ToUnicode(byte);
            if (byte < 0x80) {
                EXPECT_EQ(unicode, byte);
            }
            if (unicode != kNone) {
                EXPECT_EQ(Set(set).FromUnicode(unicode), byte) << set;
            }
        }
        unsigned characters = 0;
        for (unsigned unicode = 1; unicode < 0x10000; ++unicode) {
            const unsigned short byte = Set(set).FromUnicode(static_cast<unsigned short>(unicode));
            if (byte == 0) continue;
            ++characters;
            EXPECT_EQ(Set(set).ToUnicode(byte), unicode) << set;
        }
        EXPECT_GE(characters, 0x7Fu);
        EXPECT_EQ(Set(set).ToUnicode(0x100), kNone) << "not a code of the set";
        EXPECT_EQ(Set(set).GetProperty(0x100), nullptr);
    }
}

TEST(CodeSet, NoCodeBelow512IsWithoutARecord) {
    for (unsigned set = 1; set <= kLast8BitSet; ++set) {
        for (unsigned short byte = 1; byte < 0x100; ++byte) EXPECT_NE(Set(set).GetProperty(byte), nullptr) << set;
        EXPECT_EQ(Set(set).GetProperty(0), nullptr);
    }
    for (unsigned short code = 1; code < 0x200; ++code) EXPECT_NE(Set(KyCodeSetUnicode).GetProperty(code), nullptr);
    EXPECT_EQ(Set(KyCodeSetUnicode).GetProperty(0), nullptr);
}

TEST(CodeSet, BytesWithoutACharacterAreSymbolsOfTheirOwn) {
    unsigned seen = 0;
    for (unsigned set = 1; set <= kLast8BitSet; ++set) {
        for (unsigned short byte = 0x80; byte < 0x100; ++byte) {
            if (Set(set).ToUnicode(byte) != kNone) continue;
            ++seen;
            const KyCharProps& record = *Set(set).GetProperty(byte);
            EXPECT_EQ(record.order, 16000 + byte - 0x80);
            EXPECT_EQ(record.orderClass, KyClassCommon);
            EXPECT_EQ(record.upper, 0);
            EXPECT_EQ(record.lower, 0);
            EXPECT_EQ(record.rules, nullptr);
        }
    }
    EXPECT_GT(seen, 0x80u);
    for (unsigned code = 1; code < 0x10000; ++code) {
        const KyCharProps* record = Set(KyCodeSetUnicode).GetProperty(static_cast<unsigned short>(code));
        EXPECT_FALSE(record != nullptr && record->order >= 16000 && record->order < 16128) << code;
    }
}

TEST(CodeSet, OrderBelongsToTheCharacterWhateverItsSet) {
    for (unsigned set = 1; set <= kLast8BitSet; ++set) {
        for (unsigned short byte = 1; byte < 0x100; ++byte) {
            const unsigned short unicode = Set(set).ToUnicode(byte);
            if (unicode == kNone) continue;
            const KyCharProps& record = *Set(set).GetProperty(byte);
            const KyCharProps& character = *Set(KyCodeSetUnicode).GetProperty(unicode);
            EXPECT_EQ(record.order, character.order) << set << ": " << byte;
            EXPECT_EQ(record.orderClass, character.orderClass);
            EXPECT_EQ(record.lower, character.lower);
            EXPECT_EQ(KyCodeSet::GetUnicodeProps(&Set(set), byte, KyLanguageNeutral), &record);
        }
    }
}

TEST(CodeSet, ACaseFormThatTheSetCannotWriteWholeIsNone) {
    const struct {
        unsigned set;
        unsigned short byte;
        unsigned short upper;
        std::vector<unsigned short> further;
    } cases[] = {
        {1, 0xDF, 'S', {'S'}},                                 // sharp s
        {4, 0xE1, 'S', {'S'}},                                 //
        {KyCodeSetUnicode, 0x0390, 0x0399, {0x0308, 0x0301}},  // iota with dialytika and tonos
        {11, 0xC0, 0, {}},                                     // there without combining marks
    };
    for (const auto& [set, byte, upper, further] : cases) {
        const KyCharProps& record = *Set(set).GetProperty(byte);
        EXPECT_EQ(record.upper, upper) << set;
        const KyWCharList list = record.rules != nullptr ? record.rules->upperExpansion : KyWCharList{};
        EXPECT_EQ(std::vector<unsigned short>(list.items, list.items + list.count), further) << set;
    }
}

TEST(CodeSet, CharactersThatTheTargetLacksAreReplacedVisibly) {
    const struct {
        unsigned char from;
        unsigned char to;
        unsigned short code;
        unsigned short mapped;
    } cases[] = {
        {KyCodeSetLatin1, KyCodeSetUnicode, 0xE4, 0xE4},
        {KyCodeSetUnicode, KyCodeSetLatin1, 0xE4, 0xE4},
        {KyCodeSetWindows1252, KyCodeSetUnicode, 0x80, 0x20AC},
        {KyCodeSetUnicode, KyCodeSetWindows1252, 0x20AC, 0x80},
        {KyCodeSetWindows1252, KyCodeSetLatin1, 0xFC, 0xFC},
        {KyCodeSetWindows1252, KyCodeSetLatin1, 0x80, '?'},  // Latin-1 has no euro sign
        {KyCodeSetWindows1252, KyCodeSetUnicode, 0x81, 0xFFFD},
        {KyCodeSetWindows1252, KyCodeSetWindows1252, 0x81, 0x81},
        {4, 5, 0xE1, 0xE1},
        {26, 9, 0xC1, 0xD0},
        {KyCodeSetUnicode, KyCodeSetAscii, 0xE4, '?'},
        {KyCodeSetUnicode, KyCodeSetWindows1252, 0x4E00, '?'},
        {KyCodeSetUnicode, KyCodeSetLatin1, 0xFFFD, '?'},
        {KyCodeSetAscii, KyCodeSetUnicode, 0x80, 0xFFFD},  // no character at all
        {KyCodeSetAscii, KyCodeSetLatin1, 0x80, '?'},
        {KyCodeSetAscii, KyCodeSetAscii, 0x80, 0x80},
        {KyCodeSetUnicode, KyCodeSetAscii, 0, 0},
    };
    for (const auto& [from, to, code, mapped] : cases) {
        EXPECT_EQ(Set(to).MapFrom(Set(from), code), mapped) << int{from} << " to " << int{to} << ": " << code;
    }
}

TEST(CodeSet, NoCharacterMapsToTheTerminator) {
    for (unsigned from = 1; from < 255; ++from) {
        for (unsigned to = 1; to < 255; ++to) {
            const auto exists = [](unsigned set) { return set <= kLast8BitSet || set >= KyCodeSetUnicode; };
            if (!exists(from) || !exists(to)) continue;
            const unsigned limit = from < KyCodeSetFirst16Bit ? 0x100 : 0x10000;
            for (unsigned code = 1; code < limit; code += code < 0x180 ? 1 : 61) {
                const unsigned short mapped = Set(to).MapFrom(Set(from), static_cast<unsigned short>(code));
                EXPECT_NE(mapped, 0) << from << " to " << to << ": " << code;
                if (to < KyCodeSetFirst16Bit) {
                    EXPECT_LT(mapped, 0x100);
                }
            }
            EXPECT_EQ(Set(to).MapFrom(Set(from), 0), 0);
        }
    }
}

TEST(CodeSet, OrderValuesAreTakenOverAsTheyAre) {
    EXPECT_EQ(Set(KyCodeSetOrders).MapFrom(Set(KyCodeSetLatin1), 'A'), 'A');
    EXPECT_EQ(Set(KyCodeSetOrders).MapFrom(Set(KyCodeSetUnicode), 0x4E00), 0x4E00);
    EXPECT_EQ(Set(KyCodeSetUnicode).MapFrom(Set(KyCodeSetOrders), 0x400C), 0x400C);
    EXPECT_EQ(Set(KyCodeSetLatin1).MapFrom(Set(KyCodeSetOrders), 0x51), 0x51);
    EXPECT_EQ(Set(KyCodeSetLatin1).MapFrom(Set(KyCodeSetOrders), 0x4100), '?') << "no room for 16 bits";
}

TEST(CodeSet, NullHasNoProperties) { EXPECT_EQ(KyCodeSet::GetUnicodeProps(nullptr, 'a', KyLanguageNeutral), nullptr); }

}  // namespace
