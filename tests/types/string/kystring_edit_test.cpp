#include <gtest/gtest.h>

#include <random>

#include "kystring.h"
#include "string_texts.h"

namespace {

constexpr unsigned char kLatin1 = KyCodeSetLatin1;
constexpr unsigned char kUnicode = KyCodeSetUnicode;

std::string Repeated(std::size_t n, char c = 'x') { return std::string(n, c); }

// --- filling ---

TEST(KyStringFill, ReplacesTheContent) {
    KyString s("old");
    EXPECT_EQ(&s.Fill(3, 'z'), &s);
    EXPECT_EQ(Text(s), "zzz");
    EXPECT_EQ(s.BufferSizeGet(), 4);
    s.Fill(2, static_cast<unsigned short>('u'));
    EXPECT_EQ(Text(s), "uu") << "mapped to the string's code set";
    KyString wide(kUnicode, 0);
    wide.Fill(2, static_cast<unsigned short>(0x100));
    EXPECT_EQ(Text16(wide), u"ĀĀ");
    wide.Fill(3, 'n');
    EXPECT_EQ(Text16(wide), u"nnn");
    EXPECT_EQ(wide.BufferSizeGet(), 8);
}

TEST(KyStringFill, NothingEmpties) {
    KyString s("old");
    s.Fill(0, 'z');
    EXPECT_TRUE(s.IsEmpty());
    s = "old";
    s.Fill(5, '\0');
    EXPECT_TRUE(s.IsEmpty());
    s = "old";
    s.Fill(5, static_cast<unsigned short>(0));
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(s.BufferSizeGet(), 1);
}

TEST(KyStringExpand, LengthensOnly) {
    const struct {
        unsigned short n;
        char c;
        std::string expected;
    } cases[] = {{5, '.', "abc.."}, {4, '.', "abc."}, {3, '.', "abc"}, {0, '.', "abc"}, {9, '\0', "abc"}};
    for (const auto& c : cases) {
        KyString s("abc");
        s.Expand(c.n, c.c);
        EXPECT_EQ(Text(s), c.expected);
        KyString same("abc");
        same.Expand(c.n, static_cast<unsigned short>(c.c));
        EXPECT_EQ(Text(same), c.expected);
    }
    KyString fresh(kUnicode, 0);
    fresh.Expand(2, static_cast<unsigned short>(0x100));
    EXPECT_EQ(Text16(fresh), u"ĀĀ");
    KyString longText("a");
    longText.Expand(40000, 'b');
    EXPECT_EQ(Text(longText), std::string("a").append(39999, 'b'));
}

// --- cutting ---

TEST(KyStringCut, RemovesCharacters) {
    const struct {
        unsigned short pos;
        short n;
        std::string expected;
    } cases[] = {
        {2, -1, "ab"},    {0, 0, "abcdef"},  {2, 2, "abef"},    {0, 1, "bcdef"},       {0, 6, ""},
        {0, 100, ""},     {4, 100, "abcd"},  {0, -1, ""},       {6, -1, "abcdef"},     {6, 1, "abcdef"},
        {7, 1, "abcdef"}, {7, -1, "abcdef"}, {1, -2, "abcdef"}, {0, -32768, "abcdef"}, {65535, 32767, "abcdef"},
    };
    for (const auto& c : cases) {
        KyString s("abcdef");
        EXPECT_EQ(&s.Cut(c.pos, c.n), &s);
        EXPECT_EQ(Text(s), c.expected) << c.pos << "," << c.n;
        EXPECT_EQ(s.BufferSizeGet(), c.expected.size() + 1) << c.pos << "," << c.n;
        KyString wide = Wide(u"abcdef");
        wide.Cut(c.pos, c.n);
        EXPECT_EQ(Text16(wide), std::u16string(c.expected.begin(), c.expected.end())) << c.pos << "," << c.n;
    }
    KyString none;
    none.Cut(0, -1);
    EXPECT_EQ(none.BufferSizeGet(), 0);
}

TEST(KyStringCut, LongTexts) {
    const std::string text = std::string("a").append(65000, 'x').append("b");
    KyString s(text.c_str());
    s.Cut(1, -1);
    EXPECT_EQ(Text(s), "a");
    s = text.c_str();
    s.Cut(40000, 32767);
    EXPECT_EQ(s.Len(), 40000) << "up to the end";
}

// --- inserting and overwriting ---

TEST(KyStringInsert, AtEveryPosition) {
    const struct {
        unsigned short pos;
        std::string expected;
    } cases[] = {{0, "XYabc"}, {1, "aXYbc"}, {3, "abcXY"}, {4, "abc"}, {65535, "abc"}};
    for (const auto& c : cases) {
        KyString s("abc");
        EXPECT_EQ(&s.Insert("XY", c.pos), &s);
        EXPECT_EQ(Text(s), c.expected) << c.pos;
    }
}

TEST(KyStringInsert, EdgeCases) {
    KyString s("abc");
    s.Insert(KyString(), 1);
    s.Insert("", 3);
    EXPECT_EQ(Text(s), "abc");
    KyString none(kLatin1, 0);
    none.Insert("new", 0);
    EXPECT_EQ(Text(none), "new");
    EXPECT_EQ(none.BufferSizeGet(), 4);
    none.Insert(none, 1);
    EXPECT_EQ(Text(none), "nnewew");
    none.Insert(Wide(u"W"), 6);
    EXPECT_EQ(Text(none), "nnewewW");
    KyString longText(Repeated(40000).c_str());
    longText.Insert(Repeated(20000, 'y').c_str(), 35000);
    EXPECT_EQ(Text(longText), Repeated(35000) + Repeated(20000, 'y') + Repeated(5000));
}

TEST(KyStringReplace, NeverLengthens) {
    const struct {
        unsigned short pos;
        const char* text;
        std::string expected;
    } cases[] = {{3, "XYZ", "abcX"}, {0, "XYZ", "XYZd"}, {1, "X", "aXcd"}, {0, "VWXYZ", "VWXY"},
                 {4, "X", "abcd"},   {9, "X", "abcd"},   {0, "", "abcd"}};
    for (const auto& c : cases) {
        KyString s("abcd");
        EXPECT_EQ(&s.Replace(c.text, c.pos), &s);
        EXPECT_EQ(Text(s), c.expected) << c.pos << c.text;
        EXPECT_EQ(s.BufferSizeGet(), 5);
    }
    KyString self("abcd");
    self.Replace(self, 2);
    EXPECT_EQ(Text(self), "abab");
    KyString longText(Repeated(60000).c_str());
    longText.Replace(Repeated(50000, 'y').c_str(), 20000);
    EXPECT_EQ(Text(longText), Repeated(20000) + Repeated(40000, 'y'));
}

// --- appending ---

TEST(KyStringAppend, OfEveryKind) {
    KyString s(kLatin1, 0);
    const unsigned short wideText[] = {'w', 0};
    s << KyString("s") << 'c' << "text" << wideText << static_cast<short>(-1) << 2 << 3U << 4LL << 5ULL << 0.5F << 1.5;
    EXPECT_EQ(Text(s), "sctextw-123450.51.5");
    EXPECT_EQ(s.BufferSizeGet(), s.Len() + 1);
    s << '\0' << static_cast<const char*>(nullptr) << static_cast<const unsigned short*>(nullptr) << "";
    EXPECT_EQ(Text(s), "sctextw-123450.51.5");
    KyString wide(kUnicode, 0);
    wide << "n" << 12 << 0.5 << wideText << 'c';
    EXPECT_EQ(Text16(wide), u"n120.5wc");
}

TEST(KyStringAppend, Kept_UnsignedNumbersAreFormattedAsSigned) {
    KyString s;
    s << 4294967295U;
    EXPECT_EQ(Text(s), "-1");
}

TEST(KyStringAppend, Kept_UnsignedShortIsANumberIn8BitAndACharacterIn16BitStrings) {
    KyString narrow("a");
    narrow << static_cast<unsigned short>(65);
    EXPECT_EQ(Text(narrow), "a65");
    narrow << static_cast<unsigned short>(65535) << static_cast<unsigned short>(0);
    EXPECT_EQ(Text(narrow), "a65655350");
    KyString wide = Wide(u"a");
    wide << static_cast<unsigned short>(65) << static_cast<unsigned short>(0x100) << static_cast<unsigned short>(0);
    EXPECT_EQ(Text16(wide), u"aAĀ");
}

TEST(KyStringAppend, MapsToTheStringsCodeSet) {
    KyString s("a");
    s += Wide(u"b");
    EXPECT_EQ(Text(s), "ab");
    EXPECT_EQ(s.CodeSetGet(), KyString::GetDefault8CodeSet());
    KyString wide = Wide(u"a");
    wide += "b";
    EXPECT_EQ(Text16(wide), u"ab");
}

TEST(KyStringAppend, EdgeCases) {
    KyString s("ab");
    s += s;
    EXPECT_EQ(Text(s), "abab");
    s += KyString();
    EXPECT_EQ(Text(s), "abab");
    s << s.StrGet() + 2;
    EXPECT_EQ(Text(s), "ababab");
    KyString none(kLatin1, 0);
    none += KyString();
    EXPECT_EQ(none.BufferSizeGet(), 1) << "one terminator";
    KyString longText(Repeated(33000).c_str());
    longText += longText;
    EXPECT_EQ(longText.Len(), 65531);
}

TEST(KyStringAppend, ToANullStringLeavesItNull) {
    KyString null;
    null.SetNullValue();
    null += "text";
    EXPECT_TRUE(null.IsNullValue());
    EXPECT_EQ(Text(null), "text");
    KyString second;
    second.SetNullValue();
    EXPECT_TRUE((second + KyString("text")).IsNullValue());
}

TEST(KyStringSum, HasTheLabelOfTheFirst) {
    KyString a("ab");
    a.LanguageSet(7);
    const KyString sum = a + Wide(u"cd");
    EXPECT_EQ(Text(sum), "abcd");
    EXPECT_EQ(sum.LanguageGet(), 7);
    EXPECT_EQ(sum.BufferSizeGet(), 5);
    EXPECT_EQ(Text(a + a), "abab");
    EXPECT_EQ(Text16(Wide(u"Ā") + KyString("b")), u"Āb");
    EXPECT_EQ((KyString() + KyString()).BufferSizeGet(), 1);
    EXPECT_EQ((KyString(Repeated(40000).c_str()) + KyString(Repeated(40000).c_str())).Len(), 65531);
}

// --- trimming ---

TEST(KyStringTrim, Ends) {
    const struct {
        std::string text, left, right, both;
    } cases[] = {
        {"", "", "", ""},
        {"a", "a", "a", "a"},
        {"  a b  ", "a b  ", "  a b", "a b"},
        {"   ", "", "", ""},
        {"\t\r\n a", "a", "\t\r\n a", "a"},
        {"a\v\f ", "a\v\f ", "a", "a"},
        {" a", "a", " a", "a"},
        {"a ", "a ", "a", "a"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Text(KyString(c.text.c_str()).LeftTrim()), c.left) << c.text;
        EXPECT_EQ(Text(KyString(c.text.c_str()).RightTrim()), c.right) << c.text;
        EXPECT_EQ(Text(KyString(c.text.c_str()).Trim()), c.both) << c.text;
        const std::u16string wide(c.text.begin(), c.text.end());
        EXPECT_EQ(Text16(Wide(wide).Trim()), std::u16string(c.both.begin(), c.both.end())) << c.text;
    }
    KyString none;
    none.Trim();
    none.LeftTrim();
    none.RightTrim();
    EXPECT_EQ(none.BufferSizeGet(), 0);
}

TEST(KyStringTrim, LongRuns) {
    const std::string blanks = Repeated(40000, ' ');
    EXPECT_EQ(Text(KyString((blanks + "a").c_str()).LeftTrim()), "a");
    EXPECT_EQ(Text(KyString(("a" + blanks).c_str()).RightTrim()), "a");
    EXPECT_EQ(Text(KyString((Repeated(20000, ' ') + "a" + blanks).c_str()).Trim()), "a");
}

TEST(KyStringTrim, WithoutSpacesKeepsTheBuffer) {
    KyString s("a\0b", 3);
    const char* buffer = s.StrGet();
    s.Trim();
    EXPECT_EQ(s.StrGet(), buffer);
    EXPECT_EQ(s.BufferSizeGet(), 4);
}

// --- case and transformations ---

TEST(KyStringCase, OfAscii) {
    EXPECT_EQ(Text(KyString("Hello, World 1").ToUpper()), "HELLO, WORLD 1");
    EXPECT_EQ(Text(KyString("Hello, World 1").ToLower()), "hello, world 1");
    EXPECT_EQ(Text16(Wide(u"Hello").ToUpper()), u"HELLO");
    EXPECT_EQ(KyString("Hello").ToUpper().BufferSizeGet(), 6) << "the terminator counts";
    EXPECT_EQ(Wide(u"Hello").ToUpper().BufferSizeGet(), 12);
    KyString none;
    none.ToUpper();
    EXPECT_EQ(none.BufferSizeGet(), 0);
    EXPECT_EQ(KyString("").ToLower().BufferSizeGet(), 1);
    KyString dropped("a\0b", 3);
    dropped.ToUpper();
    EXPECT_EQ(Content(dropped), "A");
}

TEST(KyStringCase, OfTextsWhoseDoubleExceeds16Bits) {
    for (const std::size_t length : {32766U, 32767U, 32768U, 40000U, 65531U}) {
        const OverflowSwitch config(1);
        EXPECT_EQ(Text(KyString(Repeated(length).c_str()).ToUpper()), Repeated(length, 'X'));
        EXPECT_TRUE(OverflowSwitch::Raised().empty());
    }
    EXPECT_EQ(Text16(Wide(std::u16string(32765, u'a')).ToUpper()), std::u16string(32765, u'A'));
}

/// Every character three times.
class Thrice final : public KyCharOperation {
public:
    KyChar operator()(const KyChar& c, KyStringIterator* it) override {
        if (further == 0) {
            further = 2;
            codes[0] = codes[1] = c.CodeGet();
            list = KyWCharList{2, codes};
            it->SetOverflow(&list, 255);
        } else {
            --further;
        }
        return c;
    }

private:
    int further = 0;
    unsigned short codes[2] = {};
    KyWCharList list{};
};

TEST(KyStringTransform, MayLengthenBeyondTwice) {
    KyString s("abc");
    Thrice op;
    EXPECT_EQ(&s.Transform(op), &s);
    EXPECT_EQ(Text(s), "aaabbbccc");
    EXPECT_EQ(s.BufferSizeGet(), 10);
    KyString longer(Repeated(2000).c_str());
    EXPECT_EQ(Text(longer.Transform(op)), Repeated(6000));
    KyString wide = Wide(u"Āb");
    EXPECT_EQ(Text16(wide.Transform(op)), u"ĀĀĀbbb");
}

TEST(KyStringTransform, IsCutAtTheLimit) {
    const OverflowSwitch config(1);
    KyString s(Repeated(30000).c_str());
    Thrice op;
    s.Transform(op);
    EXPECT_EQ(Text(s), Repeated(65531));
    EXPECT_EQ(s.BufferSizeGet(), 65532);
    EXPECT_EQ(OverflowSwitch::Raised().size(), 1U);
}

/// Yields characters of another code set and language.
class ToWide final : public KyCharOperation {
public:
    KyChar operator()(const KyChar& c, KyStringIterator*) override {
        return KyChar(static_cast<unsigned short>(c.CodeGet() + 1), kUnicode, 9);
    }
};

TEST(KyStringTransform, ResultsAreMappedToTheString) {
    KyString s("abc");
    s.LanguageSet(3);
    ToWide op;
    s.Transform(op);
    EXPECT_EQ(Text(s), "bcd");
    EXPECT_EQ(s.CodeSetGet(), KyString::GetDefault8CodeSet());
    EXPECT_EQ(s.LanguageGet(), 3);
}

// --- replacing all ---

TEST(KyStringReplaceAll, Texts) {
    const struct {
        const char *text, *from, *to;
        unsigned short start;
        std::string expected;
    } cases[] = {
        {"abcabc", "b", "XX", 0, "aXXcaXXc"}, {"abcabc", "b", "", 0, "acac"},   {"abcabc", "b", "XX", 2, "abcaXXc"},
        {"aaaa", "aa", "a", 0, "aa"},         {"aaa", "aa", "b", 0, "ba"},      {"aa", "a", "aa", 0, "aaaa"},
        {"abc", "x", "y", 0, "abc"},          {"abc", "", "y", 0, "abc"},       {"abc", "abc", "", 0, ""},
        {"abc", "c", "de", 3, "abc"},         {"abc", "c", "de", 65535, "abc"}, {"", "a", "b", 0, ""},
        {"a*c*", "*", "?", 0, "a?c?"},        {"abc", "abcd", "x", 0, "abc"},
    };
    for (const auto& c : cases) {
        KyString s(c.text);
        EXPECT_EQ(&s.ReplaceAll(c.from, KyString(c.to), c.start), &s);
        EXPECT_EQ(Text(s), c.expected) << c.text << " " << c.from << " " << c.to << " " << c.start;
    }
}

TEST(KyStringReplaceAll, Characters) {
    EXPECT_EQ(Text(KyString("a-b-c").ReplaceAll('-', '+', 0)), "a+b+c");
    EXPECT_EQ(Text(KyString("a-b-c").ReplaceAll('-', '\0', 0)), "abc");
    EXPECT_EQ(Text(KyString("a-b-c").ReplaceAll('\0', '+', 0)), "a-b-c");
    EXPECT_EQ(Text(KyString("a-b-c").ReplaceAll(static_cast<unsigned short>('-'), static_cast<unsigned short>('+'), 2)),
              "a-b+c");
    EXPECT_EQ(Text16(Wide(u"a-b").ReplaceAll('-', '+', 0)), u"a+b");
}

TEST(KyStringReplaceAll, OfTheStringItself) {
    KyString s("ab");
    s.ReplaceAll("b", s, 0);
    EXPECT_EQ(Text(s), "aab");
    s.ReplaceAll(s, "c", 0);
    EXPECT_EQ(Text(s), "c");
    s.ReplaceAll(s, s, 0);
    EXPECT_EQ(Text(s), "c");
}

TEST(KyStringReplaceAll, WithoutAMatchKeepsTheBuffer) {
    KyString s("a\0b", 3);
    s.ReplaceAll("x", "y", 0);
    EXPECT_EQ(s.BufferSizeGet(), 4);
}

TEST(KyStringReplaceAll, ManyAndLong) {
    EXPECT_EQ(Text(KyString(Repeated(3000).c_str()).ReplaceAll("x", "yz", 0)).substr(5990), "yzyzyzyzyz");
    const std::string big = Repeated(40000, 'b');
    EXPECT_EQ(Text(KyString(("a" + big + "c").c_str()).ReplaceAll(big.c_str(), "-", 0)), "a-c");
}

TEST(KyStringReplaceAll, IsCutLikeEveryEdit) {
    const OverflowSwitch config(1);
    KyString s((Repeated(65000, 'a') + "--" + Repeated(500, 'a') + "-").c_str());
    s.ReplaceAll("-", Repeated(100, 'b').c_str(), 0);
    EXPECT_EQ(Text(s), Repeated(65000, 'a') + Repeated(200, 'b') + Repeated(331, 'a'));
    EXPECT_FALSE(OverflowSwitch::Raised().empty());
    KyString straddling((Repeated(65529, 'a') + "--").c_str());
    straddling.ReplaceAll("-", "bbb", 0);
    EXPECT_EQ(Text(straddling), Repeated(65529, 'a') + "bb");
}

// --- extraction ---

TEST(KyStringCopy, Ranges) {
    const struct {
        unsigned short pos;
        short n;
        std::string expected;
    } cases[] = {{0, 3, "abc"},  {1, 2, "bc"}, {4, 1, "e"}, {4, 9, "e"}, {2, -1, "cde"},
                 {2, -2, "cde"}, {2, 0, ""},   {5, 1, ""},  {10, 2, ""}, {65535, -1, ""}};
    KyString s("abcde");
    s.LanguageSet(6);
    for (const auto& c : cases) {
        EXPECT_EQ(Text(s.Copy(c.pos, c.n)), c.expected) << c.pos << "," << c.n;
        if (c.pos < 5) {
            EXPECT_EQ(s.Copy(c.pos, c.n).LanguageGet(), 6) << c.pos << "," << c.n;
        }
    }
    EXPECT_EQ(Text16(Wide(u"āĀb").Copy(1, 1)), u"Ā");
}

TEST(KyStringCopy, Kept_BeyondTheEndHasTheLabelOfLoading) {
    KyString s = Wide(u"abc");
    s.LanguageSet(6);
    const KyString beyond = s.Copy(3, 1);
    EXPECT_EQ(beyond.CodeSetGet(), KyString::EmptyString().CodeSetGet());
    EXPECT_EQ(beyond.LanguageGet(), KyString::EmptyString().LanguageGet());
    EXPECT_EQ(beyond.BufferSizeGet(), 0);
}

TEST(KyStringCopy, LeftAndRight) {
    const KyString s("abcde");
    EXPECT_EQ(Text(s.Left(2)), "ab");
    EXPECT_EQ(Text(s.Left(9)), "abcde");
    EXPECT_EQ(Text(s.Left(0)), "");
    EXPECT_EQ(Text(s.Right(2)), "de");
    EXPECT_EQ(Text(s.Right(9)), "abcde");
    EXPECT_EQ(Text(s.Right(0)), "");
    EXPECT_EQ(Text(KyString().Left(3)), "");
    EXPECT_EQ(Text(KyString().Right(3)), "");
}

TEST(KyStringCopy, CountsFrom32768On) {
    const std::string text = Repeated(30000, 'a') + Repeated(30000, 'b');
    const KyString s(text.c_str());
    for (const unsigned n : {32767U, 32768U, 40000U, 59999U, 60000U, 65531U, 65535U}) {
        const auto count = static_cast<unsigned short>(n);
        EXPECT_EQ(Text(s.Left(count)), text.substr(0, n)) << n;
        EXPECT_EQ(Text(s.Right(count)), text.substr(60000 - std::min(n, 60000U))) << n;
        EXPECT_EQ(Text(s.Copy(1, static_cast<short>(count))), text.substr(1, n)) << n;
    }
}

// --- against std::basic_string ---

/// The same random edits on a string and on a standard one.
template <class Unit, class Make>
void CompareWithStandardString(unsigned seed, Make make) {
    using Standard = std::basic_string<Unit>;
    std::mt19937 random(seed);
    const auto below = [&](std::size_t n) { return static_cast<unsigned short>(random() % n); };
    Standard twin;
    KyString s = make(twin);
    for (int step = 0; step < 3000; ++step) {
        Standard piece;
        for (unsigned n = below(7); n != 0; --n) piece += static_cast<Unit>('a' + below(3));
        const KyString text = make(piece);
        const unsigned short pos = below(twin.size() + 3);
        const auto n = static_cast<short>(below(8) - 2);
        switch (below(9)) {
            case 0:
                s.Cut(pos, n);
                if (pos < twin.size() && (n > 0 || n == -1)) twin.erase(pos, static_cast<std::size_t>(n));
                break;
            case 1:
                s.Insert(text, pos);
                if (pos <= twin.size()) twin.insert(pos, piece);
                break;
            case 2:
                s.Replace(text, pos);
                if (pos < twin.size()) {
                    const std::size_t count = std::min(piece.size(), twin.size() - pos);
                    twin.replace(pos, count, piece, 0, count);
                }
                break;
            case 3:
                s += text;
                twin += piece;
                break;
            case 4:
                s.Expand(pos, 'e');
                if (twin.size() < pos) twin.resize(pos, 'e');
                break;
            case 5: {
                const Standard part = pos < twin.size() ? twin.substr(pos, static_cast<unsigned short>(n)) : Standard();
                const KyString copied = s.Copy(pos, n);
                ASSERT_EQ(copied.Len(), part.size());
                if (!part.empty()) {
                    ASSERT_EQ(std::memcmp(copied.StrGet(), part.data(), part.size() * sizeof(Unit)), 0) << step;
                }
                break;
            }
            case 6: {
                const std::size_t at = piece.empty() || pos > twin.size() ? Standard::npos : twin.find(piece, pos);
                ASSERT_EQ(s.Find(text, pos, 0x100), at == Standard::npos ? 0xFFFF : at) << step;
                break;
            }
            case 7: {
                const Standard to = piece.substr(piece.size() / 2);
                const Standard from = piece.substr(0, piece.size() / 2);
                s.ReplaceAll(make(from), make(to), pos);
                for (std::size_t at = pos; !from.empty() && at <= twin.size(); at += to.size()) {
                    at = twin.find(from, at);
                    if (at == Standard::npos) break;
                    twin.replace(at, from.size(), to);
                }
                break;
            }
            default:
                if (twin.size() > 200) {
                    s.Fill(3, 'f');
                    twin.assign(3, 'f');
                }
                break;
        }
        ASSERT_EQ(s.Len(), twin.size()) << "step " << step;
        ASSERT_EQ(std::memcmp(s.StrGet(), twin.c_str(), (twin.size() + 1) * sizeof(Unit)), 0) << "step " << step;
        if (s.BufferSizeGet() != 0) {
            ASSERT_EQ(s.BufferSizeGet(), (twin.size() + 1) * sizeof(Unit)) << "step " << step;
        }
    }
}

TEST(KyStringEdits, AgreeWithStandardStringsOfBytes) {
    for (unsigned seed = 1; seed <= 4; ++seed) CompareWithStandardString<char>(seed, Narrow);
}

TEST(KyStringEdits, AgreeWithStandardStringsOfUnits) {
    for (unsigned seed = 1; seed <= 4; ++seed) CompareWithStandardString<char16_t>(seed, Wide);
}

}  // namespace
