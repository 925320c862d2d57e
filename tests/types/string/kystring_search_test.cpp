#include <gtest/gtest.h>

#include <ctime>
#include <iterator>
#include <random>

#include "kystring.h"
#include "kytypes.h"
#include "string_texts.h"
#include "support/fewer_cases.h"

namespace {

constexpr unsigned short kNone = 0xFFFF;
constexpr unsigned short kDefault = 0xFFFF;
constexpr unsigned short kWild = 0;

/// The wildcard characters as they were when this ends.
class OtherWildcards {
public:
    OtherWildcards()
        : asterisk(KyString::GetAsterisk()), question(KyString::GetQuestion()), escape(KyString::GetEscape()) {}
    OtherWildcards(const OtherWildcards&) = delete;
    OtherWildcards& operator=(const OtherWildcards&) = delete;
    ~OtherWildcards() {
        KyString::_nAsterisk = asterisk;
        KyString::_nQuestion = question;
        KyString::_nEscape = escape;
    }

private:
    unsigned short asterisk, question, escape;
};

TEST(KyStringFind, Exactly) {
    const struct {
        const char *text, *pattern;
        unsigned short start, op, expected;
    } cases[] = {
        {"abcabc", "b", 0, kDefault, 1}, {"abcabc", "b", 2, kDefault, 4},     {"abcabc", "bc", 0, 0x100, 1},
        {"abcabc", "x", 0, 0x10, kNone}, {"abcabc", "abc", 3, 0x10, 3},       {"abcabc", "abc", 4, 0x10, kNone},
        {"abcabc", "c", 5, kDefault, 5}, {"abcabc", "c", 6, kDefault, kNone}, {"abcabc", "c", 7, kDefault, kNone},
        {"abc", "", 0, kDefault, kNone}, {"", "a", 0, kDefault, kNone},       {"abc", "abcd", 0, 0x100, kNone},
        {"abc", "abc", 0, 0x100, 0},     {"abc", "B", 0, 0x100, kNone},       {"a*b", "*", 0, 0x10, 1},
        {"a*b", "*", 0, 0x100, 1},       {"abc", "b*", 0, 0x10, kNone},       {"abc", "b*", 0, kDefault, kNone},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(KyString(c.text).Find(c.pattern, c.start, c.op), c.expected)
            << c.text << " " << c.pattern << " " << c.op;
        const std::string text = c.text;
        const KyString wide = Wide(std::u16string(text.begin(), text.end()));
        EXPECT_EQ(wide.Find(c.pattern, c.start, c.op), c.expected) << c.text << " " << c.pattern << " " << c.op;
    }
}

TEST(KyStringFind, WithWildcards) {
    const struct {
        const char *text, *pattern;
        unsigned short expected;
    } cases[] = {
        {"abc", "b*", 1}, {"abc", "b", 1}, {"abc", "?c", 1},    {"abcd", "b?d", 1},   {"abcd", "b*d", 1},
        {"abc", "*", 0},  {"abc", "?", 0}, {"abc", "x", kNone}, {"abc", "c?", kNone},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(KyString(c.text).Find(c.pattern, 0, kWild), c.expected) << c.text << " " << c.pattern;
    }
}

TEST(KyStringFind, Kept_ThePatternsOwnLengthBoundsThePositions) {
    EXPECT_EQ(KyString("abc").Find("b*c", 0, kWild), kNone) << "three characters do not fit behind position 0";
    EXPECT_EQ(KyString("abcd").Find("b*c", 0, kWild), 1);
    EXPECT_EQ(KyString("xabc").Find("b*c", 0, kWild), kNone);
}

TEST(KyStringFind, DoesNotUseWildcardsByDefault) {
    const OtherDefaults restored;
    KyString::SetDefaultCmpOp(0);
    EXPECT_EQ(KyString("abc*").Find("*", 0, kDefault), 3) << "exact even when the default operator allows wildcards";
    KyString::SetDefaultCmpOp(0x20);
    EXPECT_EQ(KyString("abc*").Find("*", 0, kDefault), 3);
    EXPECT_EQ(KyString("abC").Find("c", 0, kDefault), 2) << "the default operator's other bits are used";
}

TEST(KyStringFind, PrefixMatchWorksWithAnyAsterisk) {
    const OtherWildcards restored;
    KyString::SetAsterisk(KyChar('%', KyCodeSetLatin1, 0));
    EXPECT_EQ(KyString("abcd").Find("b", 0, kWild), 1);
    EXPECT_EQ(KyString("abcd").Find("b%d", 0, kWild), 1);
    EXPECT_EQ(KyString("ab*d").Find("b*", 0, kWild), 1);
    EXPECT_EQ(KyString("abcd").Find("b*", 0, kWild), kNone);
    EXPECT_EQ(Wide(u"abcd").Find(Wide(u"b"), 0, kWild), 1);
}

TEST(KyStringFind, InANullStringThatHoldsText) {
    KyString null;
    null.SetNullValue();
    null += "abc";
    EXPECT_EQ(null.Find("b", 0, kWild), 1) << "a null can match a pattern";
    EXPECT_EQ(null.Find("x", 0, kWild), kNone);
    EXPECT_EQ(null.Find("b", 0, 0x100), kNone) << "but is below every text";
    EXPECT_EQ(KyString("abc").Find(null, 0, kWild), kNone);
    EXPECT_EQ(null.Find(null, 0, 0x100), 0);
}

TEST(KyStringFind, OneCharacter) {
    EXPECT_EQ(KyString("abc").Find('c', 0, kDefault), 2);
    EXPECT_EQ(KyString("abc").Find(static_cast<unsigned short>('c'), 1, kDefault), 2);
    EXPECT_EQ(KyString("abc").Find('\0', 0, kDefault), kNone);
    EXPECT_EQ(Wide(u"abc").Find('b', 0, kDefault), 1);
}

TEST(KyStringFind, FarAndLong) {
    const std::string text = std::string(65000, 'a') + "b";
    EXPECT_EQ(KyString(text.c_str()).Find('b', 0, kDefault), 65000);
    EXPECT_EQ(KyString(text.c_str()).Find('b', 65000, kDefault), 65000);
    EXPECT_EQ(KyString(("x" + text).c_str()).Find(text.c_str(), 0, kDefault), 1) << "a pattern above 32767 characters";
    EXPECT_EQ(KyString(("x" + text).c_str()).Find((text + "c").c_str(), 0, kDefault), kNone);
}

// --- every position, one after the other ---

unsigned short SlowFind(const KyString& text, const KyString& pattern, unsigned start, unsigned short op) {
    const unsigned length = pattern.Len();
    const bool wild = op != kDefault && (op & 0x110) == 0;
    if (op == kDefault) op = KyString::GetDefaultCmpOp();
    KyString sought = pattern;
    if (wild) sought += '*';
    const std::size_t width = text.NullLen();
    for (unsigned at = start; length != 0 && at + length <= text.Len(); ++at) {
        const int order = KyStrCmp(text.CodeSetGet(), text.LanguageGet(), text.StrGet() + at * width,
                                   sought.CodeSetGet(), sought.LanguageGet(), sought.StrGet(), op,
                                   wild ? static_cast<short>(-1) : static_cast<short>(length), 1, nullptr);
        if (order == 0) return static_cast<unsigned short>(at);
    }
    return kNone;
}

KyString RandomText(std::mt19937& random, unsigned char codeSet, unsigned char language, const std::u16string& letters,
                    std::size_t longest) {
    std::u16string content;
    for (std::size_t n = random() % (longest + 1); n != 0; --n) content += letters[random() % letters.size()];
    KyString text = Wide(content);
    text.LanguageSet(language);
    if (codeSet == KyCodeSetNative) {
        text.MapToCodeSet(KyCodeSetLatin1);
        text.SetCodeSetCode(KyCodeSetNative);
    } else {
        text.MapToCodeSet(codeSet);
    }
    return text;
}

TEST(KyStringFind, AgreesWithTryingEveryPosition) {
    std::mt19937 random(91);
    const std::u16string alphabets[] = {u"aab",  u"abA\u00E4\u00DFs",      u"chlC",
                                        u"dzsD", u"ab\uFFFF\u0378\u00E6e", u"a\u0301ab"};
    const unsigned char codeSets[] = {0, 1, 2, 253};
    const unsigned short ops[] = {0x10, 0x100, 0x30, 0x70, 0x210, 0, 0x20, 0x60, 0x200, kDefault};
    for (int round = 0; round < 150000 / kFewerCases; ++round) {
        const std::u16string& letters = alphabets[random() % std::size(alphabets)];
        const auto codeSet = codeSets[random() % std::size(codeSets)];
        const auto patternCodeSet = random() % 2 == 0 ? codeSet : codeSets[random() % std::size(codeSets)];
        const auto language = static_cast<unsigned char>(random() % 20);
        const auto patternLanguage = random() % 4 == 0 ? static_cast<unsigned char>(random() % 40) : language;
        const auto op = ops[random() % std::size(ops)];
        const std::size_t longest = random() % 16 == 0 ? 200 : 20;
        const KyString text = RandomText(random, codeSet, language, letters, longest);
        const KyString pattern = RandomText(random, patternCodeSet, patternLanguage, letters + u"*?", 5);
        const auto start = static_cast<unsigned short>(random() % 3);
        ASSERT_EQ(text.Find(pattern, start, op), SlowFind(text, pattern, start, op))
            << int{codeSet} << ' ' << int{patternCodeSet} << ' ' << int{language} << ' ' << int{patternLanguage} << ' '
            << op << ' ' << round;
    }
}

TEST(KyStringFind, NearMissesInLongTexts) {
    const std::string text(60000, 'a');
    const std::string pattern = std::string(20000, 'a').append("b").append(20000, 'a');
    EXPECT_EQ(KyString(text.c_str()).Find(pattern.c_str(), 0, 0x100), kNone);
    EXPECT_EQ(KyString((text.substr(20000) + pattern.substr(20000)).c_str())
                  .Find(pattern.substr(10000, 20000).c_str(), 0, 0x30),
              30000);
    KyString wide(text.c_str());
    wide.MapToCodeSet(253);
    EXPECT_EQ(wide.Find(pattern.substr(10000, 10001).c_str(), 0, 0x100), kNone);
}

/// A language in which "ch" is one letter.
constexpr unsigned char kSpanish = 4;

TEST(KyStringFind, ALongTextWithContractionsIsReadOnce) {
    const std::clock_t start = std::clock();
    std::string joined;
    for (int i = 0; i < 20000; ++i) joined += "ach";
    for (std::string content : {std::string(60000, 'a') + "ch", joined}) {
        for (const char* wanted : {"a*x", "*x", "h*x", "a*h*c*x", "?*ch*x"}) {
            KyString text(content.c_str());
            text.LanguageSet(kSpanish);
            KyString pattern(wanted);
            pattern.LanguageSet(kSpanish);
            EXPECT_EQ(text.Find(pattern, 0, kWild), kNone) << wanted;
            text += KyString("chx..");
            EXPECT_EQ(text.Find(pattern, 100, kWild) != kNone, wanted != std::string("a*h*c*x")) << wanted;
        }
    }
    // A quadratic way takes minutes of the processor's time.
    EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC);
}

TEST(KyStringFind, WildcardsAmongContractionsAgreeWithTryingEveryPosition) {
    std::mt19937 random(92);
    const unsigned short ops[] = {0, 0x20, 0x40, 0x60, 0x200};
    for (int round = 0; round < 60000 / kFewerCases; ++round) {
        // Contractions of Spanish, Czech and Hungarian, and letters that expand or lean on others.
        const std::u16string letters = round % 3 == 0   ? u"aach"
                                       : round % 3 == 1 ? u"chlrz\u00E6\uFFFF"
                                                        : u"dzsZ\u00DFx";
        const auto language = static_cast<unsigned char>(random() % 40);
        const unsigned char codeSet = round % 2 == 0 ? KyCodeSetLatin1 : KyCodeSetUnicode;
        const KyString text = RandomText(random, codeSet, language, letters, random() % 8 == 0 ? 100 : 12);
        const KyString pattern = RandomText(random, codeSet, language, letters + u"***?", 6);
        const auto op = ops[random() % std::size(ops)];
        ASSERT_EQ(text.Find(pattern, 0, op), SlowFind(text, pattern, 0, op))
            << int{language} << ' ' << op << ' ' << round;
    }
}

TEST(KyStringFind, AMarkerAmongContractionsHasTheClassOfWhatPrecedesIt) {
    KyString text = Wide(u"cchx\uFFFF....");
    text.LanguageSet(kSpanish);
    KyString pattern = Wide(u"*hx\uFFFF");
    pattern.LanguageSet(kSpanish);
    EXPECT_EQ(text.Find(pattern, 0, kWild), 2) << "seen from before, h is in a contraction";
}

TEST(KyStringFind, SubStringPos) {
    EXPECT_EQ(KyString("abcabc").SubStringPos("c", 0x100), 2);
    EXPECT_EQ(KyString("abc").SubStringPos("b*", kWild), 1);
    EXPECT_EQ(KyString("abc").SubStringPos("x", kDefault), kNone);
}

// --- comparison ---

TEST(KyStringCompare, OperatorsFollowTheOrder) {
    const char* ascending[] = {"", "a", "ab", "abc", "b", "ba"};
    for (int i = 0; i < 6; ++i) {
        for (int j = 0; j < 6; ++j) {
            const KyString a(ascending[i]);
            const KyString b(ascending[j]);
            EXPECT_EQ(a == b, i == j);
            EXPECT_EQ((a != b) != 0, i != j);
            EXPECT_EQ(a < b, i < j);
            EXPECT_EQ(a <= b, i <= j);
            EXPECT_EQ(a > b, i > j);
            EXPECT_EQ(a >= b, i >= j);
            EXPECT_EQ(a.Compare(b, -1, 0xFFFF) < 0, i < j);
            EXPECT_EQ(a.Compare(b, -1, 0x100) > 0, i > j);
        }
    }
}

TEST(KyStringCompare, DoesNotTakeTextsForPatterns) {
    EXPECT_FALSE(KyString("abc") == KyString("*"));
    EXPECT_FALSE(KyString("abc") == KyString("a?c"));
    EXPECT_TRUE(KyString("a?c") == KyString("a?c"));
}

TEST(KyStringCompare, InequalityIsTheResultItself) {
    const KyString a("a");
    const KyString b("b");
    EXPECT_EQ(a != b, a.Compare(b, -1, 0xFFFF));
    EXPECT_LT(a != b, -1);
    EXPECT_GT(b != a, 1);
}

TEST(KyStringCompare, AnObjectEqualsItselfWhateverItsComparison) {
    const OtherDefaults restored;
    KyString::SetDefaultCmpOp(0);
    const KyString escaping("a\\b");
    EXPECT_NE(escaping.Compare(escaping, -1, 0xFFFF), 0) << "as a pattern it is two characters";
    EXPECT_TRUE(escaping == escaping);
}

TEST(KyStringCompare, UsesTheDefaultOperator) {
    const OtherDefaults restored;
    KyString::SetDefaultCmpOp(0);
    EXPECT_TRUE(KyString("abc") == KyString("a*"));
    KyString::SetDefaultCmpOp(0x30);
    EXPECT_TRUE(KyString("abc") == KyString("ABC"));
}

TEST(KyStringCompare, UpToALength) {
    EXPECT_EQ(KyString("abcX").Compare("abcY", 3, 0x100), 0);
    EXPECT_LT(KyString("abcX").Compare("abcY", 4, 0x100), 0);
    EXPECT_EQ(KyString("a").Compare("b", 0, 0x100), 0);
}

TEST(KyStringCompare, AcrossCodeSetsAndEmpties) {
    EXPECT_TRUE(KyString("abc") == Wide(u"abc"));
    EXPECT_TRUE(KyString() == KyString(""));
    EXPECT_TRUE(KyString() < KyString("a"));
    KyString null;
    null.SetNullValue();
    EXPECT_TRUE(null == null);
    EXPECT_TRUE(null < KyString(""));
    EXPECT_TRUE(KyString("") > null);
}

TEST(KyStringCompare, IgnoringLanguages) {
    KyString a("abc");
    KyString b("abc");
    b.LanguageSet(2);
    EXPECT_TRUE(a.EqualsIgnoreLanguage(b));
    EXPECT_FALSE(a.EqualsIgnoreLanguage(KyString("abd")));
    EXPECT_FALSE(a.EqualsIgnoreLanguage(KyString("a*")));
    EXPECT_TRUE(a.EqualsIgnoreLanguage(a));
}

TEST(KyStringCompare, Kept_NullEqualsEmptyWhenLanguagesAreIgnored) {
    KyString null;
    null.SetNullValue();
    EXPECT_TRUE(null.EqualsIgnoreLanguage(KyString("")));
    EXPECT_FALSE(null.EqualsIgnoreLanguage(KyString("a")));
    KyString other(null);
    other += "text";
    EXPECT_TRUE(null.EqualsIgnoreLanguage(other)) << "equal languages are kept: two nulls";
}

// --- wildcard characters ---

TEST(KyStringWildcards, DefaultsAreOrdersOfAscii) {
    const OtherWildcards restored;
    KyString::_nAsterisk = KyString::_nQuestion = KyString::_nEscape = 0;
    EXPECT_EQ(KyString::GetAsterisk(), KyChar('*', KyCodeSetLatin1, 0).GetOrder());
    EXPECT_EQ(KyString::GetQuestion(), KyChar('?', KyCodeSetLatin1, 0).GetOrder());
    EXPECT_EQ(KyString::GetEscape(), KyChar('\\', KyCodeSetLatin1, 0).GetOrder());
    EXPECT_EQ(KyString::_nAsterisk, KyString::GetAsterisk());
    EXPECT_NE(KyString::GetAsterisk(), 0);
}

TEST(KyStringWildcards, SettersStoreOrders) {
    const OtherWildcards restored;
    EXPECT_EQ(KyString::SetAsterisk(KyChar('%', KyCodeSetLatin1, 0)), 0);
    EXPECT_EQ(KyString::SetQuestion(KyChar(static_cast<unsigned short>('_'), KyCodeSetUnicode, 0)), 0);
    EXPECT_EQ(KyString::SetEscape(KyChar('!', KyCodeSetLatin1, 0)), 0);
    EXPECT_EQ(KyString::GetAsterisk(), KyChar('%', KyCodeSetLatin1, 0).GetOrder());
    EXPECT_EQ(KyString::GetQuestion(), KyChar('_', KyCodeSetLatin1, 0).GetOrder());
    EXPECT_EQ(KyString::GetEscape(), KyChar('!', KyCodeSetLatin1, 0).GetOrder());
}

}  // namespace
