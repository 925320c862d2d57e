// Contractions, language variants, expansions, class ranks and code sets without tables, over tables made for
// this test.

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "kychar.h"
#include "kyi18n.h"
#include "kystrcmp.h"
#include "kystring.h"
#include "made_tables.h"
#include "order_key.h"
#include "support/fewer_cases.h"
#include "wildcard_compare.h"

namespace {

struct OrderAndClass {
    unsigned short order;
    unsigned char orderClass = 0;
    bool operator==(const OrderAndClass&) const = default;
};

std::ostream& operator<<(std::ostream& out, const OrderAndClass& item) {
    return out << std::hex << item.order << '/' << std::dec << int{item.orderClass};
}

using Orders = std::vector<OrderAndClass>;

Orders Read(KyStringIterator& it) {
    Orders orders;
    while (const unsigned short order = it.GetNextOrder(1)) orders.push_back({order, it.OrderClass()});
    return orders;
}

Orders OrdersOf(const std::string& text, unsigned char language = 0, unsigned char codeSet = kTabled) {
    KyStringIterator it(text.c_str(), codeSet, language, 1);
    return Read(it);
}

std::string Wide(const std::string& text, unsigned char format) {
    std::string wide;
    for (const char c : text + '\0') wide += format == 1 ? std::string{c, '\0'} : std::string{'\0', c};
    return wide;
}

std::string Shifted(std::string text) {
    for (char& c : text) c = static_cast<char>(c + 0x80);
    return text;
}

struct TextOrders {
    const char* text;
    Orders orders;
};

const std::vector<TextOrders>& NeutralCases() {
    static const std::vector<TextOrders> cases = {
        {"", {}},
        {"cb", {{Letter('c')}, {Letter('b')}}},
        {"c", {{Letter('c')}}},
        {"ch", {{Letter('c', true, 1)}}},
        {"cha", {{Letter('c', true, 1)}, {Letter('a')}}},
        {"chs", {{Letter('c', true, 2)}}},
        {"chsa", {{Letter('c', true, 2)}, {Letter('a')}}},
        {"cch", {{Letter('c')}, {Letter('c', true, 1)}}},
        {"cH", {{Letter('c')}, {Letter('h', false)}}},
        {"cz", {{Letter('c', true, 3)}}},
        {"czz", {{Letter('c', true, 3), 2}}},
        {"czzz", {{Letter('c', true, 3), 2}, {Letter('z')}}},
        {"x", {{Letter('k'), 1}, {Letter('s'), 1}}},
        {"xx", {{Letter('k'), 1}, {Letter('s'), 1}, {Letter('k'), 1}, {Letter('s'), 1}}},
        {"xa", {{Letter('k'), 1}, {Letter('s'), 1}, {Letter('a')}}},
        {"dz", {{Letter('d', true, 1), 3}, {Letter('d'), 3}, {Letter('z'), 3}}},
        {"dza", {{Letter('d', true, 1), 3}, {Letter('d'), 3}, {Letter('z'), 3}, {Letter('a')}}},
        {"ddz", {{Letter('d')}, {Letter('d', true, 1), 3}, {Letter('d'), 3}, {Letter('z'), 3}}},
        {"ll", {{Letter('l')}, {Letter('l')}}},
        {"i", {{Letter('i')}}},
    };
    return cases;
}

TEST(Tables, ContractionsAndExpansions) {
    for (const auto& [text, orders] : NeutralCases()) {
        EXPECT_EQ(OrdersOf(text), orders) << text;
        EXPECT_EQ(OrdersOf(text, 99), orders) << text << " in a language without an object";
        for (const unsigned char format : std::initializer_list<unsigned char>{1, 2}) {
            const std::string units = Wide(text, format);
            KyStringIterator wide(units.c_str(), KyCodeSetUnicode, 0, format);
            EXPECT_EQ(Read(wide), orders) << text;
        }
        EXPECT_EQ(OrdersOf(Shifted(text), 0, kTableless), orders) << text << " without a table of its own";
    }
}

TEST(Tables, OrdersOfAnExpansionHaveTheClassOfTheirKind) {
    const std::string letter{'a', kMixedLetter, 'a'};
    const Orders expected = {{Letter('a')},    {Letter('y'), 5},        {kSymbol, KyClassCommon},
                             {Letter('q'), 5}, {kDigit, KyClassCommon}, {0x8000, KyClassHan},
                             {Letter('a')}};
    EXPECT_EQ(OrdersOf(letter), expected) << "letters that of the letter which expands";
    const std::string symbol{kMixedSymbol};
    EXPECT_EQ(OrdersOf(symbol), (Orders{{300, KyClassCommon}, {Letter('a'), KyClassLatin}, {kDigit, KyClassCommon}}));
    KyStringIterator it(letter.c_str(), kTabled, 0, 1);
    it.GetNextOrder(0);
    it.GetNextOrder(0);
    it.GetNextOrder(0);
    it.GetNextOrder(1);
    EXPECT_EQ(it.OrderClass(), 5) << "whether or not the class was asked for before";
    const unsigned short list[] = {Letter('b')};
    const KyWCharList orders{1, list};
    it.SetOverflow(&orders, KyCodeSetOrders);
    it.GetNextOrder(1);
    EXPECT_EQ(it.OrderClass(), KyClassLatin) << "in a list that is nobody's expansion";
}

TEST(Tables, VariantsAreForTheLanguagesThatAsk) {
    EXPECT_EQ(OrdersOf("ll", kVariantLanguage), (Orders{{Letter('l', true, 1)}}));
    EXPECT_EQ(OrdersOf("lll", kVariantLanguage), (Orders{{Letter('l', true, 1)}, {Letter('l')}}));
    EXPECT_EQ(OrdersOf("i", kVariantLanguage), (Orders{{Letter('i', true, 1)}}));
    EXPECT_EQ(OrdersOf("ch", kVariantLanguage), (Orders{{Letter('c', true, 1)}})) << "what has no variant stays";
    EXPECT_EQ(OrdersOf(Shifted("ll"), kVariantLanguage, kTableless), (Orders{{Letter('l', true, 1)}}));
}

TEST(Tables, ALanguageRanksClasses) {
    EXPECT_EQ(OrdersOf("ax", kRankingLanguage), (Orders{{Letter('a'), 4}, {Letter('k'), 2}, {Letter('s'), 2}}));
    EXPECT_LT(KyStrCmp(kTabled, 0, "z", kTabled, 0, "\xE1", 0x100, -1, 1, nullptr), 0);
    EXPECT_GT(KyStrCmp(kTabled, kRankingLanguage, "z", kTabled, kRankingLanguage, "\xE1", 0x100, -1, 1, nullptr), 0);
}

TEST(Tables, WithoutClassTheOrdersAreTheSame) {
    for (const auto& [text, orders] : NeutralCases()) {
        KyStringIterator it(text, kTabled, 0, 1);
        for (const OrderAndClass& item : orders) EXPECT_EQ(it.GetNextOrder(0), item.order) << text;
        EXPECT_EQ(it.GetNextOrder(0), 0);
    }
}

TEST(Tables, AnOverflowListIsReadInItsCodeSet) {
    const unsigned short items[] = {0x80 + 'x', 0x80 + 'b'};
    const KyWCharList list{2, items};
    KyStringIterator it("az", kTabled, 0, 1);
    it.SetOverflow(&list, kTableless);
    EXPECT_EQ(it.GetNextOrder(1), Letter('k'));
    EXPECT_EQ(it.GetNextOrder(1), Letter('s')) << "an expansion takes the list's place";
    EXPECT_EQ(it.GetNextOrder(1), Letter('z'));
}

TEST(Tables, ACharacterThatUnicodeDoesNotHave) {
    EXPECT_EQ(OrdersOf("aqb", 0, kNarrow), (Orders{{Letter('a')}, {0xFFFD}, {Letter('b')}}));
    EXPECT_EQ(KyChar('q', kNarrow, 0).GetOrder(), 0xFFFD);
    EXPECT_EQ(KyChar('q', kTabled, 0).MapTo(kNarrow).CodeGet(), '?');
}

TEST(Tables, UpperCaseOfSeveralCharacters) {
    KyString text("axa");
    EXPECT_STREQ(text.ToUpper().StrGet(), "AEKSA");
    EXPECT_EQ(KyChar('i', kTabled, kVariantLanguage).ToUpper(nullptr).CodeGet(), 'i')
        << "the code set has no such letter";
    EXPECT_EQ(KyChar(static_cast<unsigned short>('i'), KyCodeSetUnicode, kVariantLanguage).ToUpper(nullptr).CodeGet(),
              0x130);
    EXPECT_EQ(KyChar('i', kTabled, 0).ToUpper(nullptr).CodeGet(), 'I');
}

TEST(Tables, UpperCaseOfSeveralCharactersInOtherCodes) {
    const struct {
        unsigned char codeSet;
        unsigned short code;
        std::vector<unsigned short> upper;
    } cases[] = {
        {kNarrow, 'x', {'E', 'K', 'S'}},
        {kTableless, 0x80 + 'x', {0x80 + 'x'}},    // the list has Unicode's codes, which are others here
        {kOwnCodes, 'x', {0x80 + 'E', 'K', 'S'}},  // the list of its own table has its own
    };
    for (const auto& [codeSet, code, upper] : cases) {
        const KyChar c(code, codeSet, 0);
        KyStringIterator it(c);
        std::vector<unsigned short> codes{c.ToUpper(&it).CodeGet()};
        while (codes.size() < upper.size()) codes.push_back((*it).CodeGet());
        EXPECT_EQ(codes, upper) << int{codeSet};
        ++it;
        EXPECT_TRUE(it.IsEOS()) << "nothing else follows";
    }
}

TEST(Tables, TextOfManyExpansionsStaysInItsBounds) {
    KyString text(std::string(30000, 'x').c_str());
    text.ToUpper();
    EXPECT_EQ(text.Len(), 65531);
}

TEST(Tables, PatternsMatchOrders) {
    const auto matches = [](const char* text, const char* pattern, unsigned char language = 0) {
        return KyStrCmp(kTabled, language, text, kTabled, language, pattern, 0, -1, 1, nullptr) == 0;
    };
    EXPECT_TRUE(matches("cha", "?a")) << "a contraction is one";
    EXPECT_FALSE(matches("cha", "??a"));
    EXPECT_FALSE(matches("cha", "c*")) << "and does not begin with its first letter";
    EXPECT_TRUE(matches("cha", "ch*"));
    EXPECT_TRUE(matches("xa", "??a")) << "an expansion is several";
    EXPECT_TRUE(matches("llama", "?ama", kVariantLanguage));
    EXPECT_FALSE(matches("llama", "?ama"));
}

TEST(Tables, NoSearchIsGivenUpWhereContractionsMeet) {
    const auto prefix = [](const char* text, const char* pattern) {
        return ky::MatchPrefix({text, kTabled, 0, 1}, {pattern, kTabled, 0, 1}, 0);
    };
    // "ch" is one letter seen from the beginning, but "h" can be found from the second place on.
    EXPECT_EQ(prefix("chb", "*h"), ky::PrefixMatch::unclear);
    EXPECT_EQ(prefix("hb", "*h"), ky::PrefixMatch::yes);
    EXPECT_EQ(prefix("ab", "*h"), ky::PrefixMatch::never);
    EXPECT_EQ(KyString("ch").Find(KyString("*h"), 0, 0), KyString::NotFound) << "no place before the end of \"*h\"";
    EXPECT_EQ(KyString("chb").Find(KyString("*h"), 0, 0), 1);
}

/// The comparison spelled out: one key after the other from the beginning.
int SlowCompare(const std::string& a, const std::string& b, unsigned char language, unsigned char codeSet) {
    KyStringIterator itA(a.c_str(), codeSet, language, 1);
    KyStringIterator itB(b.c_str(), codeSet, language, 1);
    for (;;) {
        const unsigned short orderA = itA.GetNextOrder(1);
        const unsigned keyA = ky::OrderKey(orderA, itA.OrderClass());
        const unsigned short orderB = itB.GetNextOrder(1);
        const unsigned keyB = ky::OrderKey(orderB, itB.OrderClass());
        if (keyA != keyB) return static_cast<int>(keyA - keyB);
        if (orderA == 0) return 0;
    }
}

TEST(Tables, ComparingFromTheDifferenceOnIsComparingFromTheBeginning) {
    std::mt19937 random(99);
    static constexpr char letters[] = "chsczzdlxaib";
    const auto text = [&] {
        std::string result;
        for (std::size_t n = random() % 8; n != 0; --n) result += letters[random() % (sizeof letters - 1)];
        return result;
    };
    const auto compare = [](const std::string& a, const std::string& b, unsigned char language, unsigned char codeSet) {
        return KyStrCmp(codeSet, language, a.c_str(), codeSet, language, b.c_str(), 0x100, -1, 1, nullptr);
    };
    for (int round = 0; round < 100000 / kFewerCases; ++round) {
        const std::string a = text();
        const std::string b = a.substr(0, random() % (a.size() + 1)) + text();
        for (const unsigned char language : {KyLanguageNeutral, kVariantLanguage, kRankingLanguage}) {
            ASSERT_EQ(compare(a, b, language, kTabled), SlowCompare(a, b, language, kTabled)) << a << '/' << b;
            ASSERT_EQ(compare(Shifted(a), Shifted(b), language, kTableless), SlowCompare(a, b, language, kTabled));
        }
    }
}

}  // namespace
