// The comparer against its slow twin: every code set, every language, every operator.

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "compare_texts.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "oracle/slow_string_compare.h"
#include "support/fewer_cases.h"
#include "support/hex.h"

namespace {

using texts::Below;
using texts::Codes;
using texts::Random;

constexpr unsigned char kLanguages = 32;

std::string Shown(const std::string& bytes) { return Hex(bytes.data(), bytes.size()); }

const Codes& AlphabetOf(unsigned char codeSet) {
    static std::array<Codes, 256> alphabets;
    Codes& alphabet = alphabets[codeSet];
    if (alphabet.empty()) alphabet = texts::AlphabetOf(codeSet);
    return alphabet;
}

/// One comparison: labels and codes of the two texts, and how they are compared.
struct Case {
    unsigned char codeSetA, languageA;
    unsigned char codeSetB, languageB;
    Codes a, b;
    unsigned short op;
    short maxLen;
    unsigned char format;
};

std::ostream& operator<<(std::ostream& out, const Case& c) {
    const auto text = [&](unsigned char codeSet, unsigned char language, const Codes& codes) {
        out << int{codeSet} << '/' << int{language} << ":";
        for (const unsigned short code : codes) out << ' ' << std::hex << code << std::dec;
    };
    text(c.codeSetA, c.languageA, c.a);
    text(c.codeSetB, c.languageB, c.b);
    return out << " op " << std::hex << c.op << std::dec << " maxLen " << c.maxLen << " format " << int{c.format};
}

/// Texts at places that differ from case to case, half of them at the end of readable memory.
class Checker {
public:
    explicit Checker(Random& randomNumbers) : random(randomNumbers) {}

    void Check(const Case& c) {
        const char* a = areaA.Put(texts::Encoded(c.a, c.codeSetA, c.format), Gap());
        const char* b = areaB.Put(texts::Encoded(c.b, c.codeSetB, c.format), Gap());
        const int fast =
            KyStrCmp(c.codeSetA, c.languageA, a, c.codeSetB, c.languageB, b, c.op, c.maxLen, c.format, nullptr);
        const int slow =
            slow::Compare({c.codeSetA, c.languageA, a}, {c.codeSetB, c.languageB, b}, c.op, c.maxLen, c.format);
        ASSERT_EQ(fast, slow) << c;
        const unsigned hash = HashString(c.codeSetA, c.languageA, a, -1, c.format);
        ASSERT_EQ(hash, slow::Hash({c.codeSetA, c.languageA, a}, c.format)) << c;
        const bool oneKind = (c.codeSetA == 0) == (c.codeSetB == 0) && (c.codeSetA == 254) == (c.codeSetB == 254);
        if (fast == 0 && oneKind && c.op == KyCmpStringExact && c.maxLen == -1) {
            ASSERT_EQ(hash, HashString(c.codeSetB, c.languageB, b, -1, c.format)) << c;
        }
    }

private:
    std::size_t Gap() { return Below(random, 2) == 0 ? Below(random, 3) : Below(random, 5000); }

    Random& random;
    texts::Area areaA;
    texts::Area areaB;
};

unsigned char RandomLanguage(Random& random) {
    switch (Below(random, 40)) {
        case 0:
            return 99;
        case 1:
            return KyLanguageDefault;
        case 2:
            return KyLanguageNull;
        default:
            return static_cast<unsigned char>(Below(random, kLanguages));
    }
}

short RandomMaxLen(Random& random) {
    switch (Below(random, 8)) {
        case 0:
            return static_cast<short>(Below(random, 4));
        case 1:
            return static_cast<short>(Below(random, 40));
        case 2:
            return static_cast<short>(0x8000 + Below(random, 100));
        default:
            return -1;
    }
}

unsigned short RandomOperator(Random& random) {
    static constexpr unsigned short bits[] = {0x10, 0x20, 0x40, 0x80, 0x100, 0x200, 0x1000, 0x7};
    unsigned short op = 0;
    for (const unsigned short bit : bits) {
        if (Below(random, 3) == 0) op |= bit;
    }
    return Below(random, 4) == 0 ? KyCmpStringExact : op;
}

Case RandomCase(Random& random, unsigned char codeSet) {
    Case c{};
    c.codeSetA = c.codeSetB = codeSet;
    c.languageA = c.languageB = RandomLanguage(random);
    if (Below(random, 8) == 0) c.languageB = RandomLanguage(random);
    c.a = texts::RandomCodes(random, AlphabetOf(codeSet), texts::RandomLength(random));
    if (Below(random, 6) == 0) {
        // Of another kind: the same Unicode characters, as far as they can be had.
        static constexpr unsigned char others[] = {0, 1, 2, 7, 17, 253, 254};
        c.codeSetB = others[Below(random, std::size(others))];
        for (const unsigned short code : c.a) {
            const unsigned short other = ky::CodeSetOf(c.codeSetB).MapFrom(ky::CodeSetOf(codeSet), code);
            if (other != 0) c.b.push_back(other);
        }
    } else {
        c.b = c.a;
    }
    c.b = texts::Variation(random, c.codeSetB, AlphabetOf(c.codeSetB), c.b);
    c.op = RandomOperator(random);
    c.maxLen = RandomMaxLen(random);
    c.format = static_cast<unsigned char>(1 + Below(random, 2));
    if (Below(random, 20) == 0) c.format = Below(random, 2) == 0 ? 8 : 255;
    return c;
}

class CompareTwin : public testing::TestWithParam<int> {};

TEST_P(CompareTwin, Agrees) {
    const auto codeSet = static_cast<unsigned char>(GetParam());
    Random random(static_cast<unsigned>(GetParam()));
    Checker checker(random);
    const int cases = (codeSet == KyCodeSetUnicode ? 400000 : 80000) / kFewerCases;
    for (int i = 0; i < cases && !HasFatalFailure(); ++i) checker.Check(RandomCase(random, codeSet));
}

INSTANTIATE_TEST_SUITE_P(CodeSets, CompareTwin,
                         testing::Values(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21,
                                         22, 23, 24, 25, 26, 100, 230, 253, 254, 255));

/// Long equal beginnings that end within or behind what counts as one character, at every place of a page.
TEST(CompareTwinPlaces, BeginningsAreSkippedRightEverywhere) {
    struct Tail {
        const char16_t* a;
        const char16_t* b;
    };
    static constexpr Tail tails[] = {{u"ch", u"cz"}, {u"h", u"z"},    {u"c", u"ch"},          {u"dzs", u"dz"},
                                     {u"zs", u"z"},  {u"ccs", u"cs"}, {u"aa", u"a"},          {u"ss", u"\u00DF"},
                                     {u"l", u"ll"},  {u"x", u"X"},    {u"xa", u"Xb"},         {u"", u"h"},
                                     {u"", u""},     {u"Hx", u"hx"},  {u"e\u0301", u"\u00E9"}};
    static constexpr const char16_t* joints[] = {u"", u"c", u"cc", u"dz", u"czz", u"l", u"aaa", u"\u00DF"};
    Random random(3);
    texts::Area areaA;
    texts::Area areaB;
    std::vector<std::size_t> lengths;
    for (const std::size_t middle : std::initializer_list<std::size_t>{0, 16, 32, 64, 128, 272, 4096}) {
        for (std::size_t length = middle - (middle < 3 ? middle : 3); length < middle + 3; ++length)
            lengths.push_back(length);
    }
    const auto codesOf = [](std::size_t length, const char16_t* joint, const char16_t* tail) {
        Codes codes(length, 'q');
        for (const char16_t* p : {joint, tail}) {
            for (; *p != 0; ++p) codes.push_back(static_cast<unsigned short>(*p));
        }
        return codes;
    };
    static constexpr unsigned char languages[] = {0, 4, 6, 10, 12, 27};
    static constexpr unsigned short operators[] = {0x100, 0x30, 0x70};
    for (int round = 0; round < 200000 / kFewerCases; ++round) {
        const std::size_t length = lengths[Below(random, lengths.size())];
        const char16_t* joint = joints[Below(random, std::size(joints))];
        const Tail& tail = tails[Below(random, std::size(tails))];
        const unsigned char codeSet = Below(random, 2) == 0 ? KyCodeSetUnicode : KyCodeSetLatin1;
        const unsigned char language = languages[Below(random, std::size(languages))];
        const unsigned short op = operators[Below(random, std::size(operators))];
        const auto format = static_cast<unsigned char>(1 + Below(random, 2));
        Codes codesA = codesOf(length, joint, tail.a);
        Codes codesB = codesOf(length, joint, tail.b);
        if (codeSet == KyCodeSetLatin1 && (tail.a[0] != 0 && tail.a[1] > 0xFF)) continue;
        if (Below(random, 3) == 0) std::fill_n(codesB.begin(), length / (1 + Below(random, 3)), 'Q');
        const std::string bytesA = texts::Encoded(codesA, codeSet, format);
        const std::string bytesB = texts::Encoded(codesB, codeSet, format);
        const char* a = areaA.Put(bytesA, Below(random, 2) * Below(random, 80));
        const char* b = areaB.Put(bytesB, Below(random, 2) * Below(random, 80));
        ASSERT_EQ(KyStrCmp(codeSet, language, a, codeSet, language, b, op, -1, format, nullptr),
                  slow::Compare({codeSet, language, a}, {codeSet, language, b}, op, -1, format))
            << length << ' ' << int{codeSet} << ' ' << int{language} << ' ' << op << ' ' << Shown(bytesA) << '/'
            << Shown(bytesB);
    }
}

/// Runs of pairs that an operator takes for the same: some the ranks of the first page know, some only their keys, some
/// need an iterator. Wherever the runs meet and whatever stands behind them, nothing is skipped or read twice.
TEST(CompareTwinPlaces, RunsOfAlikeCharactersAreSkippedRightEverywhere) {
    struct Pair {
        unsigned short a;
        unsigned short b;
    };
    static constexpr Pair pairs[] = {{'q', 'Q'},       {'e', 0xE9},    {0xE4, 0xC4},     {0x436, 0x416},
                                     {0x438, 0x439},   {0x3B1, 0x391}, {0x101, 0x100},   {0x101, 'a'},
                                     {0x4E00, 0x4E00}, {0xDF, 0x1E9E}, {0xAC00, 0xAC00}, {0x378, 0x378},
                                     {0xFFFE, 0xFFFE}, {'c', 'C'},     {'l', 'L'},       {0xFF21, 0xFF41}};
    static constexpr Pair tails[] = {
        {0, 0},        {'a', 'b'},  {'h', 'z'},    {0x434, 0x435},  {0x416, 0x437}, {0, 'h'},
        {0xFFFF, 'a'}, {0xE9, 'f'}, {0x1E9E, 's'}, {0x4100, 0x6100}};  // Han; a and its capital in the other byte order
    static constexpr unsigned char languages[] = {0, 4, 6, 10, 12, 28};
    static constexpr unsigned short operators[] = {0x100, 0x10, 0x30, 0x50, 0x70, 0x270};
    Random random(21);
    texts::Area areaA;
    texts::Area areaB;
    for (int round = 0; round < 200000 / kFewerCases; ++round) {
        Codes codesA;
        Codes codesB;
        const auto append = [&](const Pair& pair) {
            const bool swap = Below(random, 2) == 0;
            if (const unsigned short a = swap ? pair.b : pair.a; a != 0) codesA.push_back(a);
            if (const unsigned short b = swap ? pair.a : pair.b; b != 0) codesB.push_back(b);
        };
        for (std::size_t runs = Below(random, 5); runs != 0; --runs) {
            const Pair& pair = pairs[Below(random, std::size(pairs))];
            for (std::size_t n = 1 + Below(random, Below(random, 6) == 0 ? 300 : 24); n != 0; --n) append(pair);
        }
        append(tails[Below(random, std::size(tails))]);
        const auto format = static_cast<unsigned char>(1 + Below(random, 2));
        const unsigned char language = languages[Below(random, std::size(languages))];
        const unsigned short op = operators[Below(random, std::size(operators))];
        const std::string bytesA = texts::Encoded(codesA, KyCodeSetUnicode, format);
        const std::string bytesB = texts::Encoded(codesB, KyCodeSetUnicode, format);
        const char* a = areaA.Put(bytesA, Below(random, 2) * Below(random, 80));
        const char* b = areaB.Put(bytesB, Below(random, 2) * Below(random, 80));
        ASSERT_EQ(KyStrCmp(KyCodeSetUnicode, language, a, KyCodeSetUnicode, language, b, op, -1, format, nullptr),
                  slow::Compare({KyCodeSetUnicode, language, a}, {KyCodeSetUnicode, language, b}, op, -1, format))
            << int{language} << ' ' << op << ' ' << int{format} << ' ' << Shown(bytesA) << '/' << Shown(bytesB);
    }
}

/// Every operator without wildcards is an order, also of texts of several code sets and languages.
TEST(CompareOrder, IsAntisymmetricAndTransitive) {
    Random random(8);
    static constexpr unsigned char codeSets[] = {1, 2, 7, 11, 17, 253};
    static constexpr unsigned short operators[] = {0x100, 0x10, 0x30, 0x50, 0x70, 0x210, 0x270};
    struct Labelled {
        unsigned char codeSet, language;
        std::string bytes;
    };
    const auto sign = [](int value) { return (value > 0) - (value < 0); };
    for (int round = 0; round < 300000 / kFewerCases; ++round) {
        const unsigned short op = operators[Below(random, std::size(operators))];
        const bool stored = Below(random, 8) == 0;
        Labelled all[3];
        Codes codes;
        const unsigned char oneSet = codeSets[Below(random, std::size(codeSets))];
        const auto oneLanguage = static_cast<unsigned char>(Below(random, kLanguages));
        const bool mixed = Below(random, 3) == 0;
        for (Labelled& text : all) {
            text.codeSet = stored ? KyCodeSetOrders : mixed ? codeSets[Below(random, std::size(codeSets))] : oneSet;
            text.language = stored ? 1 : mixed ? static_cast<unsigned char>(Below(random, kLanguages)) : oneLanguage;
            codes = codes.empty() || mixed ? texts::RandomCodes(random, AlphabetOf(text.codeSet), 1 + Below(random, 4))
                                           : texts::Variation(random, text.codeSet, AlphabetOf(text.codeSet), codes);
            text.bytes = texts::Encoded(codes, text.codeSet, 1);
        }
        const auto compare = [&](int i, int j) {
            return sign(KyStrCmp(all[i].codeSet, all[i].language, all[i].bytes.data(), all[j].codeSet, all[j].language,
                                 all[j].bytes.data(), op, -1, 1, nullptr));
        };
        const auto what = [&] { return Shown(all[0].bytes) + '/' + Shown(all[1].bytes) + '/' + Shown(all[2].bytes); };
        const int ab = compare(0, 1);
        const int bc = compare(1, 2);
        ASSERT_EQ(ab, -compare(1, 0)) << what();
        ASSERT_EQ(compare(0, 0), 0) << what();
        if (ab <= 0 && bc <= 0) {
            ASSERT_EQ(compare(0, 2), std::min(ab, bc)) << what();
        }
        if (ab >= 0 && bc >= 0) {
            ASSERT_EQ(compare(0, 2), std::max(ab, bc)) << what();
        }
        if (op == 0x100 && ab == 0) {
            ASSERT_EQ(HashString(all[0].codeSet, all[0].language, all[0].bytes.data(), -1, 1),
                      HashString(all[1].codeSet, all[1].language, all[1].bytes.data(), -1, 1))
                << what();
        }
        if (op == 0x10) {
            EXPECT_EQ(ab, sign(KyStrCmp(all[0].codeSet, all[0].language, all[0].bytes.data(), all[1].codeSet,
                                        all[1].language, all[1].bytes.data(), 0x100, -1, 1, nullptr)));
        }
    }
}

}  // namespace
