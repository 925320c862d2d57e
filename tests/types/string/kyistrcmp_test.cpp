#include <gtest/gtest.h>

#include <random>
#include <string>

#include "common_text.h"
#include "dictionary_keys.h"
#include "kyistring.h"
#include "oracle/slow_dictionary.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"

namespace {

constexpr unsigned char kProgram = 0;
constexpr unsigned char kDisk = 0x40;
constexpr unsigned char kKey = 0x80;
constexpr unsigned char kAccents = 0x20;

struct Comparer {
    const char* name;
    int (*compare)(const char*, const char*, unsigned short, unsigned char, unsigned char);
    bool caseAlike;
};
const Comparer kComparers[] = {{"kyistrcmp", kyistrcmp, false}, {"kycaseistrcmp", kycaseistrcmp, true}};

int Sign(int n) { return (n > 0) - (n < 0); }

TEST(DictionaryCompare, OrderOfTexts) {
    struct {
        const char* a;
        const char* b;
        unsigned char mode;
        int apart;
        int alike;
    } const cases[] = {
        {"abc", "abc", kProgram, 0, 0},
        {"abc", "ABC", kProgram, -1, 0},
        {"abc", "abd", kProgram, -1, -1},
        {"ABC", "abd", kProgram, 1, -1},  // the first keys differ: lower case is before upper case at once
        {"abd", "ABC", kProgram, -1, 1},
        {"ab", "abc", kProgram, -1, -1},
        {"Ab", "aB", kProgram, 1, 0},
        {"B", "b", kProgram, 1, 0},
        {"b", "A", kProgram, 1, 1},
        {"a b", "ab", kProgram, -1, -1},
        {"a_b", "a0b", kProgram, 1, 1},
        {"_", "a", kProgram, -1, -1},
        {"~", "A", kProgram, -1, -1},
        {"[", "A", kProgram, -1, -1},
        {"Z", "z", kProgram, 1, 0},
        {"\xE0", "a", kDisk, 0, 0},
        {"\xC0", "\xE0", kDisk, 1, 0},
        {"\xE9t\xE9", "ete", kDisk, 0, 0},
        {"\xE5", "z", kDisk, 1, 1},
        {"x\xE9z", "xey", kDisk, 1, 1},  // what has the same key decides nothing
        {"x\xC9y", "x\xCAz", kDisk, -1, -1},
        {"\xDF", "ss", kDisk, 0, 0},
        {"\xDF", "sS", kDisk, -1, 0},
        {"\xDF", "s", kDisk, 1, 1},
        {"s\xDF", "\xDFs", kDisk, 0, 0},
        {"\x8C", "OE", kDisk, 0, 0},
        {"\x8C", "Oe", kDisk, 1, 0},
        {"\x9C", "oe", kDisk, 0, 0},
        {"\x9C", "OE", kDisk, -1, 0},
        {"\x9F", "Y", kDisk, 0, 0},
        {"\xFF", "y", kDisk, 0, 0},
        {"\x80", "\xFF", kDisk, 1, 1},
        // The same in the program's code page, in which these are other bytes.
        {"\xDE", "ss", kProgram, 0, 0},
        {"\x88", "OE", kProgram, 0, 0},
        {"\x93", "oe", kProgram, 0, 0},
        {"\xC8", "a", kProgram, 0, 0},
        {"\x8C", "OE", kProgram, 1, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.a) + " " + c.b);
        EXPECT_EQ(Sign(kyistrcmp(c.a, c.b, 0, c.mode, c.mode)), c.apart);
        EXPECT_EQ(Sign(kyistrcmp(c.b, c.a, 0, c.mode, c.mode)), -c.apart);
        EXPECT_EQ(Sign(kycaseistrcmp(c.a, c.b, 0, c.mode, c.mode)), c.alike);
        EXPECT_EQ(Sign(kycaseistrcmp(c.b, c.a, 0, c.mode, c.mode)), -c.alike);
    }
}

TEST(DictionaryCompare, TheResultIsTheDifferenceOfKeys) {
    EXPECT_EQ(kyistrcmp("a", "A", 0, 0, 0), 0x4E - 0x54);
    EXPECT_EQ(kycaseistrcmp("xb", "xC", 0, 0, 0), 0x5B - 0x5E);
    EXPECT_EQ(kyistrcmp("a", "ab", 0, 0, 0), -0x5A);
    EXPECT_EQ(kyistrcmp("s\x80", "s", 0, kDisk, kDisk), 0xE0);
    EXPECT_EQ(kyistrcmp("\xDF", "s", 0, kDisk, kDisk), 0x9C);
}

TEST(DictionaryCompare, Kept_SignsShareKeysWithLetters) {
    EXPECT_EQ(kyistrcmp("\xA3", "Y", 0, kDisk, kDisk), 0);
    EXPECT_EQ(kyistrcmp("\xA7", "Z", 0, kDisk, kDisk), 0);
    EXPECT_EQ(kyistrcmp("\xA0", "y", 0, kDisk, kDisk), 0);
    EXPECT_EQ(kycaseistrcmp("\xA3", "y", 0, kDisk, kDisk), 0);
}

TEST(DictionaryCompare, NullAndEmptyTexts) {
    for (const Comparer& c : kComparers) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.compare(nullptr, nullptr, 0, 0, 0), 0);
        EXPECT_EQ(c.compare("", nullptr, 0, 0, 0), 1);
        EXPECT_EQ(c.compare("a", nullptr, 5, 0, 0), 1);
        EXPECT_EQ(c.compare(nullptr, "", 0, 0, 0), -1);
        EXPECT_EQ(c.compare(nullptr, "a", 1, 0, 0), -1);
        EXPECT_EQ(c.compare("", "", 0, 0, 0), 0);
        // Bytes, not keys.
        EXPECT_EQ(c.compare("", "a", 0, 0, 0), -'a');
        EXPECT_EQ(c.compare("a", "", 0, 0, 0), 'a');
        EXPECT_EQ(c.compare("", " ", 0, 0, 0), -' ');
        EXPECT_EQ(c.compare(" ", "", 0, 0, 0), ' ');
        EXPECT_EQ(c.compare("", "\xE9", 0, kDisk, kDisk), -0xE9);
        EXPECT_EQ(c.compare("\xE9", "", 0, 0, 0), 0xE9);
    }
}

TEST(DictionaryCompare, UpToSoManyKeys) {
    for (const Comparer& c : kComparers) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.compare("abcx", "abcy", 3, 0, 0), 0);
        EXPECT_LT(c.compare("abcx", "abcy", 4, 0, 0), 0);
        EXPECT_EQ(c.compare("abc", "abcy", 3, 0, 0), 0);
        EXPECT_LT(c.compare("abc", "abcy", 4, 0, 0), 0);
        // A character that counts as two is two keys; the second may be beyond the limit.
        EXPECT_EQ(c.compare("\xDF", "st", 1, kDisk, kDisk), 0);
        EXPECT_LT(c.compare("\xDF", "st", 2, kDisk, kDisk), 0);
        EXPECT_EQ(c.compare("\xDFx", "ssy", 2, kDisk, kDisk), 0);
        EXPECT_LT(c.compare("\xDFx", "ssy", 3, kDisk, kDisk), 0);
        EXPECT_EQ(c.compare("\xDF\xDFx", "\xDF\xDFy", 4, kDisk, kDisk), 0);
        EXPECT_LT(c.compare("\xDF\xDFx", "\xDF\xDFy", 5, kDisk, kDisk), 0);
    }
}

TEST(DictionaryCompare, LimitsInEveryPartOfAText) {
    for (const Comparer& c : kComparers) {
        for (std::size_t at = 0; at < 100; ++at) {
            for (const char* different : {"b", "\xF1", "\x8C"}) {
                const std::string a = std::string(at, 'e') + "a";
                const std::string b = std::string(at, 'e') + different;
                for (const std::size_t limit : {at, at + 1, 2 * at, 2 * at + 1}) {
                    const auto keys = static_cast<unsigned short>(limit);
                    ASSERT_EQ(c.compare(a.c_str(), b.c_str(), keys, kDisk, kDisk),
                              SlowDictionaryCompare(c.caseAlike, a, b, keys, kDisk, kDisk))
                        << c.name << ' ' << at << ' ' << limit;
                }
            }
        }
    }
}

TEST(DictionaryCompare, ZeroIs65535Keys) {
    for (const Comparer& c : kComparers) {
        std::string a(65534, 'x');
        std::string b = a;
        a += "ax";
        b += "ay";
        EXPECT_EQ(c.compare(a.c_str(), b.c_str(), 0, 0, 0), 0) << "beyond the last key that counts";
        a[65534] = 'b';
        EXPECT_GT(c.compare(a.c_str(), b.c_str(), 0, 0, 0), 0) << "the last key that counts";

        std::string pairsA(32767, '\xDF');
        std::string pairsB = pairsA;
        pairsA += "ax";
        pairsB += "ay";
        EXPECT_EQ(c.compare(pairsA.c_str(), pairsB.c_str(), 0, kDisk, kDisk), 0);
        pairsA[32767] = 'b';
        EXPECT_GT(c.compare(pairsA.c_str(), pairsB.c_str(), 0, kDisk, kDisk), 0);
        EXPECT_EQ(c.compare(pairsA.c_str(), pairsB.c_str(), 65534, kDisk, kDisk), 0);
    }
}

TEST(DictionaryCompare, ModesOfEachSide) {
    for (const Comparer& c : kComparers) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.compare("\xDE", "\xDF", 0, kProgram, kDisk), 0);
        EXPECT_EQ(c.compare("\xDF", "\xDE", 0, kDisk, kProgram), 0);
        const char key[] = "\x9B\x54";  // upper-case s and a
        EXPECT_EQ(c.compare("\x9B\x54", key, 0, kKey, kKey), 0);
        EXPECT_LT(c.compare("\x8C", "\x9C", 0, kKey, kKey), 0) << "no pair of letters";
        EXPECT_LT(c.compare("A", "a", 0, kKey, kKey), 0) << "no letters";
        EXPECT_EQ(c.compare("\xDF", "\xDF", 0, kKey | kDisk | kAccents, kKey), 0);
    }
    EXPECT_EQ(kyistrcmp("QA", "\x9A\x54", 0, kProgram, kKey), -1);
    EXPECT_EQ(kyistrcmp("sA", "\x9C\x54", 0, kProgram, kKey), 0);
    EXPECT_EQ(kycaseistrcmp("\x9D\x9D", "\xDF", 0, kKey, kDisk), 0);
    EXPECT_EQ(kycaseistrcmp("\x9D\x9D", "SS", 0, kKey | kAccents, kAccents), 0) << "0x80 wins";
}

TEST(DictionaryCompare, AccentsCountWhereAsked) {
    const auto order = [](const char* a, const char* b) {
        return kycaseistrcmp(a, b, 0, kDisk | kAccents, kDisk | kAccents);
    };
    EXPECT_GT(order("\xE0", "a"), 0);
    EXPECT_EQ(order("\xE0", "\xC0"), 0);
    EXPECT_EQ(order("\xE0", "a"), 3);
    EXPECT_LT(order("\xE0", "b"), 0);
    EXPECT_LT(order("\xE0z", "ba"), 0);
    // An expansion is one key, just before its first letter.
    EXPECT_EQ(order("\xDF", "s"), -1);
    EXPECT_EQ(order("\x8C", "O"), -1);
    EXPECT_EQ(order("\x9C", "\x8C"), 0);
    EXPECT_LT(order("\xDFz", "sa"), 0);
    // One side only.
    EXPECT_GT(kycaseistrcmp("\xE0", "\xE0", 0, kDisk | kAccents, kDisk), 0);
    EXPECT_EQ(kycaseistrcmp("a", "A", 0, kDisk | kAccents, kDisk), 0);
    EXPECT_EQ(kyistrcmp("\xE0", "a", 0, kDisk | kAccents, kDisk | kAccents), 0) << "not here";
}

// --- a slow twin ---

/// Texts of one another's likeness: `b` begins as `a` does, in other letters of the same keys.
class Texts {
public:
    explicit Texts(unsigned seed) : random(seed) {}

    std::string First(std::size_t length) {
        std::string text;
        while (text.size() < length) text += Character();
        return text;
    }
    std::string Like(const std::string& text) {
        std::string like;
        for (const char c : text) {
            switch (random() % 24) {
                case 0:
                    like += Character();
                    break;
                case 1:
                    like += "ss";
                    break;
                case 2:
                    break;
                case 3:
                case 4:
                    like += Accented(c);
                    break;
                case 5:
                case 6:
                case 7:
                    like += std::isalpha(static_cast<unsigned char>(c)) != 0 ? static_cast<char>(c ^ 0x20) : c;
                    break;
                default:
                    like += c;
            }
        }
        return like;
    }
    unsigned Number(unsigned below) { return static_cast<unsigned>(random() % below); }

private:
    std::mt19937 random;

    char Character() {
        static constexpr char frequent[] = "aAeEsSoO\xDF\xDF\x8C\x9C\xDE\x88\x93 z";
        if (random() % 4 == 0) return static_cast<char>(random() % 255 + 1);
        return frequent[random() % (sizeof frequent - 1)];
    }
    char Accented(char c) {
        switch (c | 0x20) {
            case 'a':
                return '\xE0';
            case 'e':
                return '\xC9';
            case 'o':
                return '\xF6';
            default:
                return c;
        }
    }
};

std::string Printable(const std::string& text) {
    std::string out;
    for (const char c : text) out += testing::PrintToString(static_cast<unsigned>(static_cast<unsigned char>(c))) + ' ';
    return out;
}

TEST(DictionaryCompare, AgreesWithTheSlowTwin) {
    Texts texts(20);
    static constexpr unsigned char modes[] = {0, 0, 0, kDisk, kDisk, kKey, kAccents, kDisk | kAccents, kKey | kAccents};
    for (int i = 0; i < 1'500'000 / kFewerCases; ++i) {
        const std::string a = texts.First(i % 64 == 0 ? texts.Number(300) : texts.Number(24));
        const std::string b = texts.Like(a);
        const unsigned char modeA = modes[texts.Number(std::size(modes))];
        const unsigned char modeB = i % 8 == 0 ? modes[texts.Number(std::size(modes))] : modeA;
        const auto limit = static_cast<unsigned short>(i % 3 == 0 ? texts.Number(40) : 0);
        for (const Comparer& c : kComparers) {
            ASSERT_EQ(c.compare(a.c_str(), b.c_str(), limit, modeA, modeB),
                      SlowDictionaryCompare(c.caseAlike, a, b, limit, modeA, modeB))
                << c.name << " modes " << int{modeA} << ' ' << int{modeB} << " limit " << limit << "\n"
                << Printable(a) << "\n"
                << Printable(b);
        }
    }
}

TEST(DictionaryCompare, EveryPairOfBytes) {
    for (const Comparer& c : kComparers) {
        for (unsigned mode = 0; mode < 256; mode += 0x20) {
            const auto both = static_cast<unsigned char>(mode);
            for (unsigned a = 1; a < 256; ++a) {
                for (unsigned b = 1; b < 256; ++b) {
                    const char textA[] = {'q', static_cast<char>(a), 0};
                    const char textB[] = {'q', static_cast<char>(b), 0};
                    ASSERT_EQ(c.compare(textA, textB, 0, both, both),
                              SlowDictionaryCompare(c.caseAlike, textA, textB, 0, both, both))
                        << a << ' ' << b << ' ' << mode;
                    // The first of the text, and by the first two keys alone.
                    ASSERT_EQ(c.compare(textA + 1, textB + 1, 0, both, both),
                              SlowDictionaryCompare(c.caseAlike, textA + 1, textB + 1, 0, both, both))
                        << a << ' ' << b << ' ' << mode;
                    ASSERT_EQ(c.compare(textA, textB, 2, both, both),
                              SlowDictionaryCompare(c.caseAlike, textA, textB, 2, both, both))
                        << a << ' ' << b << ' ' << mode;
                }
            }
        }
    }
}

TEST(DictionaryCompare, ReadsNothingBehindATerminator) {
    constexpr std::size_t room = 200;
    GuardedBuffer bufferA(room);
    GuardedBuffer bufferB(room);
    for (std::size_t length = 1; length < room; ++length) {
        for (const std::size_t shift : {std::size_t{0}, std::size_t{1}, std::size_t{7}, std::size_t{40}}) {
            if (length + 1 + shift > room) continue;
            auto* a = reinterpret_cast<char*>(bufferA.data()) + room - length - 1;
            auto* b = reinterpret_cast<char*>(bufferB.data()) + room - length - 1 - shift;
            std::memset(a, 'e', length);
            std::memset(b, 'E', length);
            a[length] = b[length] = 0;
            EXPECT_EQ(kycaseistrcmp(a, b, 0, 0, 0), 0);
            EXPECT_LT(kyistrcmp(a, b, 0, 0, 0), 0);
            std::memset(b, '\xC9', length);
            EXPECT_EQ(kycaseistrcmp(a, b, 0, kDisk, kDisk), 0);
            std::memset(b, 'e', length);
            b[length - 1] = 'f';
            EXPECT_LT(kyistrcmp(a, b, 0, 0, 0), 0);
            EXPECT_GT(kycaseistrcmp(b, a, 0, 0, 0), 0);
            b[length - 1] = 'e';
            EXPECT_EQ(kyistrcmp(a, b, 0, 0, 0), 0);
            EXPECT_EQ(kyistrcmp(b, a, 0, 0, 0), 0);
        }
    }
}

TEST(DictionaryCompare, EveryKernelFindsTheSamePlace) {
    Texts texts(21);
    for (int i = 0; i < 20'000; ++i) {
        const std::string a = texts.First(texts.Number(400));
        std::string b = a;
        for (unsigned changes = texts.Number(4); changes != 0 && !b.empty(); --changes) {
            b[texts.Number(static_cast<unsigned>(b.size()))] = static_cast<char>(texts.Number(256));
        }
        for (const bool caseAlike : {false, true}) {
            const auto& keys = caseAlike ? ky::ByteKeysOf<ky::CaseAlike>(kDisk) : ky::ByteKeysOf<ky::CaseApart>(kDisk);
            std::size_t expected = 0;
            while (a.c_str()[expected] != 0 && keys.keys[static_cast<unsigned char>(a[expected])] ==
                                                   keys.keys[static_cast<unsigned char>(b.c_str()[expected])]) {
                ++expected;
            }
            for (int variant = 0; variant < ky::RunnableCommonTextKernels(); ++variant) {
                ASSERT_EQ(ky::kCommonTextKernels[variant].ranks(keys.marks, a.c_str(), b.c_str()), expected)
                    << ky::kCommonTextKernels[variant].name;
            }
        }
    }
}

TEST(DictionaryKeyTables, MarksAreEqualWhereKeysAre) {
    const auto check = [](const ky::ByteKeys& keys) {
        for (unsigned a = 0; a < 256; ++a) {
            EXPECT_EQ(keys.keys[a] == 0, a == 0);
            for (unsigned b = 0; b < 256; ++b) {
                EXPECT_EQ(keys.keys[a] == keys.keys[b], keys.marks[a] == keys.marks[b]) << a << ' ' << b;
            }
        }
    };
    for (unsigned mode = 0; mode < 256; mode += 0x20) {
        SCOPED_TRACE(mode);
        check(ky::ByteKeysOf<ky::CaseApart>(static_cast<unsigned char>(mode)));
        check(ky::ByteKeysOf<ky::CaseAlike>(static_cast<unsigned char>(mode)));
    }
}

}  // namespace
