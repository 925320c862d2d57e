#include <gtest/gtest.h>

#include <random>

#include "kystring.h"
#include "oracle/slow_build_string.h"
#include "string_texts.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

constexpr unsigned char kLatin1 = KyCodeSetLatin1;
constexpr unsigned char kUnicode = KyCodeSetUnicode;
constexpr unsigned char kWindows = KyCodeSetWindows1252;
enum Mode : unsigned short { kOverwrite = 1, kInsert = 2, kAppend = 3 };

std::string Repeated(std::size_t n, char c = 'x') { return std::string(n, c); }

// --- MakeString ---

TEST(MakeString, NothingToTakeLeavesNoBuffer) {
    KyString s(kLatin1, 0);
    s.MakeString("abc", kLatin1, 0, 1);
    EXPECT_EQ(s.BufferSizeGet(), 0);
    s.MakeString(nullptr, kLatin1, -1, 1);
    EXPECT_EQ(s.BufferSizeGet(), 0);
    s.MakeString(nullptr, kLatin1, 5, 1);
    EXPECT_EQ(s.BufferSizeGet(), 0);
}

TEST(MakeString, NothingToTakeFreesNothing) {
    for (const char* source : {"", static_cast<const char*>(nullptr)}) {
        KyString s("abc");
        char* buffer = s.StrGet();
        s.MakeString(source, kLatin1, static_cast<short>(source == nullptr ? -1 : 0), 1);
        EXPECT_EQ(s.Len(), 0);
        EXPECT_STREQ(buffer, "abc");
        delete[] buffer;
    }
}

TEST(MakeString, EmptyTextIsOneTerminator) {
    KyString s(kLatin1, 0);
    s.MakeString("", kLatin1, -1, 1);
    EXPECT_EQ(s.BufferSizeGet(), 1);
    KyString wide(kUnicode, 0);
    wide.MakeString("\0", kUnicode, -1, 1);
    EXPECT_EQ(wide.BufferSizeGet(), 2);
}

TEST(MakeString, CountsBytesOrUnits) {
    KyString s(kLatin1, 0);
    s.MakeString("abcdef", kLatin1, 4, 255);
    EXPECT_EQ(Text(s), "abcd");
    EXPECT_EQ(s.BufferSizeGet(), 5);
    KyString wide(kUnicode, 0);
    wide.MakeString("a\0b\0c\0\0", kUnicode, 2, 255);
    EXPECT_EQ(Text16(wide), u"ab");
    EXPECT_EQ(wide.BufferSizeGet(), 6);
}

TEST(MakeString, CountsAbove32767) {
    const std::string text = Repeated(40000);
    KyString s(kLatin1, 0);
    s.MakeString(text.c_str(), kLatin1, static_cast<short>(40000), 1);
    EXPECT_EQ(s.Len(), 40000);
    EXPECT_EQ(KyString(text.c_str(), 40000).Len(), 40000);
}

TEST(MakeString, UnitsInReversedOrder) {
    const struct {
        unsigned char flag;
        std::u16string expected;
    } cases[] = {{2, u"aĀ"},         {0x82, u"aĀ"},       {0xF2, u"aĀ"},   {1, u"愀\x0001"},
                 {255, u"愀\x0001"}, {0x81, u"愀\x0001"}, {8, u"愀\x0001"}};
    for (const auto& c : cases) {
        KyString s(kUnicode, 0);
        s.MakeString("\0a\x01\0", kUnicode, 2, c.flag);
        EXPECT_EQ(Text16(s), c.expected) << int{c.flag};
    }
    KyString measured(kUnicode, 0);
    measured.MakeString("\0a\x01\0\0\0", kUnicode, -1, 2);
    EXPECT_EQ(Text16(measured), u"aĀ");
    KyString narrow(kLatin1, 0);
    narrow.MakeString("abcd", kLatin1, 4, 2);
    EXPECT_EQ(Text(narrow), "abcd") << "bytes have no order";
}

TEST(MakeString, ReversedUnitsThatHaveToBeMapped) {
    KyString s(kLatin1, 0);
    s.MakeString("\0a\0b\0\0", kUnicode, 2, 2);
    EXPECT_EQ(Text(s), "ab");
    s.Destroy();
    s.SetCodeSet(kLatin1);
    s.MakeString("\0a\0b\0c\0\0", kUnicode, 2, 0x82);
    EXPECT_EQ(Text(s), "ab");
    s.Destroy();
    s.SetCodeSet(kLatin1);
    s.MakeString("\0a\0\0\0c", kUnicode, -1, 2);
    EXPECT_EQ(Text(s), "a");
}

TEST(MakeString, UnalignedUnits) {
    char bytes[] = "?a\0b\0\0";
    KyString s(kUnicode, 0);
    s.MakeString(bytes + 1, kUnicode, -1, 1);
    EXPECT_EQ(Text16(s), u"ab");
}

TEST(MakeString, ReadsNotPastTheCount) {
    GuardedBuffer bytes(Bytes("61 62 63"));
    KyString s(kLatin1, 0);
    s.MakeString(reinterpret_cast<char*>(bytes.data()), kLatin1, 3, 1);
    EXPECT_EQ(Text(s), "abc");
    GuardedBuffer units(Bytes("00 61 00 62"));
    KyString wide(kUnicode, 0);
    wide.MakeString(reinterpret_cast<char*>(units.data()), kUnicode, 2, 2);
    EXPECT_EQ(Text16(wide), u"ab");
    KyString mapped(kLatin1, 0);
    mapped.MakeString(reinterpret_cast<char*>(units.data()), kUnicode, 2, 2);
    EXPECT_EQ(Text(mapped), "ab");
}

// --- the limit ---

TEST(StringOverflow, CutsTo65532Bytes) {
    const struct {
        std::size_t length;
        unsigned kept;
        std::size_t raised;
    } cases[] = {{65531, 65531, 0}, {65532, 65531, 1}, {65535, 65531, 1}, {65536, 65531, 1}, {70000, 65531, 1}};
    for (const auto& c : cases) {
        for (const int value : {0, 1, 2, 65536}) {
            const std::string text = Repeated(c.length);
            const OverflowSwitch config(value);
            const KyString s(text.c_str());
            EXPECT_EQ(s.Len(), c.kept) << c.length;
            EXPECT_EQ(s.BufferSizeGet(), c.kept + 1) << c.length;
            EXPECT_EQ(OverflowSwitch::Raised().size(), value == 0 ? 0 : c.raised) << c.length;
            for (const std::string& message : OverflowSwitch::Raised()) {
                EXPECT_EQ(message, "String overflow|src/kystring|1110");
            }
        }
    }
}

TEST(StringOverflow, CutsTo32765Units) {
    for (const std::size_t length : {32765U, 32766U, 40000U, 70000U}) {
        const std::u16string text(length, u'Ā');
        const OverflowSwitch config(1);
        const KyString s(reinterpret_cast<const unsigned short*>(text.c_str()));
        EXPECT_EQ(s.Len(), 32765);
        EXPECT_EQ(s.BufferSizeGet(), 65532);
        EXPECT_EQ(OverflowSwitch::Raised().size(), length == 32765 ? 0U : 1U);
    }
}

TEST(StringOverflow, WithoutConfigurationIsSilent) {
    KyConfig* previous = DefaultConfig(nullptr);
    EXPECT_EQ(KyString(Repeated(70000).c_str()).Len(), 65531);
    DefaultConfig(previous);
}

TEST(StringOverflow, IsAskedEveryTime) {
    const OverflowSwitch config(0);
    const std::string text = Repeated(70000);
    const KyString first(text.c_str());
    const KyString second(text.c_str());
    EXPECT_EQ(config.Asked(), 2);
}

TEST(StringOverflow, OfEdits) {
    const std::string most = Repeated(65531);
    const OverflowSwitch config(1);
    KyString s(most.c_str());
    s += "more";
    EXPECT_EQ(s.Len(), 65531);
    EXPECT_EQ(OverflowSwitch::Raised().size(), 1U);
    s.Insert("front", 0);
    EXPECT_EQ(Text(s).substr(0, 7), "frontxx");
    EXPECT_EQ(s.Len(), 65531);
    EXPECT_EQ(OverflowSwitch::Raised().size(), 2U);
    s.Fill(65535, 'y');
    EXPECT_EQ(Text(s), Repeated(65531, 'y'));
    EXPECT_EQ(OverflowSwitch::Raised().size(), 3U);
}

TEST(StringOverflow, OfProductsBeyond32Bits) {
    KyString s(kUnicode, 0);
    const std::u16string text(60000, u'z');
    s.BuildString(reinterpret_cast<const char*>(text.data()), kUnicode, 65535, 0, 60000, 65535, kAppend, 1);
    EXPECT_EQ(s.BufferSizeGet(), 65532);
    EXPECT_EQ(Content(s), std::string(65530, '\0')) << "all of it in front of the source";
    s.BuildString(reinterpret_cast<const char*>(text.data()), kUnicode, 2, 0, 60000, 65535, kAppend, 1);
    EXPECT_EQ(s.BufferSizeGet(), 65532);
}

TEST(StringOverflow, OfMappedSources) {
    const std::string text = Repeated(40000);
    const OverflowSwitch config(1);
    KyString s(kUnicode, 0);
    s += text.c_str();
    EXPECT_EQ(s.Len(), 32765);
    EXPECT_EQ(s.BufferSizeGet(), 65532);
    EXPECT_GE(OverflowSwitch::Raised().size(), 1U);
}

// --- BuildString ---

TEST(BuildString, SourceLabelsDecideOnMapping) {
    struct Case {
        unsigned char from, to;
        const char* source;
        std::string expected;
    };
    const Case cases[] = {
        {kLatin1, kLatin1, "ab", "ab"},
        {0, kLatin1, "\xE4", "\xE4"},  // native bytes are taken as they are while the
                                       // widths agree
        {0, kWindows, "\x80", "\x80"},
        {kLatin1, 0, "ab", "ab"},
        {kLatin1, kWindows, "ab", "ab"},
        {kWindows, kWindows, "\x80", "\x80"},
        {kWindows, kLatin1, "a\x80", "a?"},  // mapped although the widths agree
        {kLatin1, kWindows, "a\x80", "a?"},
        {kWindows, 0, "a\x80", "a?"},  // into the native code set
    };
    for (const Case& c : cases) {
        KyString s(c.to, 0);
        s.BuildString(c.source, c.from, 0, 0, static_cast<unsigned short>(std::strlen(c.source)), 1, kAppend, 1);
        EXPECT_EQ(Text(s), c.expected) << int{c.from} << " to " << int{c.to};
    }
    KyString wide(kUnicode, 0);
    wide.BuildString("ab", 0, 0, 0, 2, 1, kAppend, 1);
    EXPECT_EQ(Text16(wide), u"ab") << "native text in a string of the other width";
    KyString native(static_cast<unsigned char>(0), 0);
    native.BuildString("a\0b\0\0", kUnicode, 0, 0, 2, 1, kAppend, 1);
    EXPECT_EQ(Text(native), "ab");
}

TEST(BuildString, MappedSourceBeginsAtItsStart) {
    KyString s(kLatin1, 0);
    s.BuildString("a\0b\0c\0d\0\0", kUnicode, 0, 1, 2, 2, kAppend, 1);
    EXPECT_EQ(Text(s), "bcbc");
    s.BuildString("a\0\0", kUnicode, 0, 3, 2, 1, kAppend, 1);
    EXPECT_EQ(Content(s), std::string(2, '\0')) << "nothing behind the source's terminator is read";
    s.BuildString("a\0\0", kUnicode, 0, 0, 3, 1, kAppend, 1);
    EXPECT_EQ(Content(s), std::string("a\0\0", 3));
}

TEST(BuildString, LongMappedSource) {
    const std::u16string source(5000, u'q');
    KyString s(kLatin1, 0);
    s.BuildString(reinterpret_cast<const char*>(source.c_str()), kUnicode, 0, 0, 5000, 2, kAppend, 1);
    EXPECT_EQ(Text(s), Repeated(10000, 'q'));
}

TEST(BuildString, WithoutSourceNothingIsInsertedOrOverwritten) {
    for (const unsigned short mode : {kOverwrite, kInsert}) {
        KyString s("abc");
        const char* buffer = s.StrGet();
        s.BuildString(nullptr, kLatin1, 1, 0, 1, 1, mode, 1);
        s.BuildString("", kLatin1, 1, 0, 1, 1, mode, 1);
        s.BuildString("\0a", kLatin1, 1, 1, 1, 1, mode, 1);
        s.BuildString("\0", kUnicode, 1, 0, 1, 1, mode, 1);
        EXPECT_EQ(s.StrGet(), buffer) << mode;
        EXPECT_EQ(Text(s), "abc");
    }
    KyString wide = Wide(u"b");
    wide.BuildString(reinterpret_cast<const char*>(u"Ā"), kUnicode, 0, 0, 1, 1, kInsert, 1);
    EXPECT_EQ(Text16(wide), u"Āb") << "a zero low byte is no terminator";
}

TEST(BuildString, AppendWithoutSourceTruncates) {
    KyString s("abcdef");
    s.BuildString(nullptr, kLatin1, 3, 0, 0, 1, kAppend, 1);
    EXPECT_EQ(Text(s), "abc");
    EXPECT_EQ(s.BufferSizeGet(), 4);
    s.BuildString(nullptr, kLatin1, 2, 0, 2, 1, kAppend, 1);
    EXPECT_EQ(Content(s), std::string("ab\0\0", 4)) << "a source that is not there counts as zeros";
}

TEST(BuildString, OtherModesLeaveNoContent) {
    for (const unsigned short mode : std::initializer_list<unsigned short>{0, 4, 255, 65535}) {
        KyString s("abc");
        s.BuildString("x", kLatin1, 0, 0, 1, 1, mode, 1);
        EXPECT_EQ(s.BufferSizeGet(), 0) << mode;
        EXPECT_EQ(s.Len(), 0) << mode;
    }
}

TEST(BuildString, InsertKeepsWhatStandsBehindTheTerminator) {
    KyString s("a\0b", 3);
    s.BuildString("x", kLatin1, 1, 0, 1, 1, kInsert, 1);
    EXPECT_EQ(Content(s), std::string("ax\0b", 4));
    s.BuildString("yz", kLatin1, 0, 0, 2, 1, kOverwrite, 1);
    EXPECT_EQ(Content(s), std::string("yz\0b", 4));
    s += "c";
    EXPECT_EQ(Content(s), "yzc") << "appending does not";
}

TEST(BuildString, OwnBufferAsSource) {
    KyString s("abc");
    s.BuildString(s.StrGet(), s.CodeSetGet(), 1, 0, 3, 2, kInsert, 1);
    EXPECT_EQ(Text(s), "aabcabcbc");
    s.BuildString(s.StrGet(), s.CodeSetGet(), 0, 7, 100, 1, kAppend, 1);
    EXPECT_EQ(Content(s), "bc" + std::string(98, '\0')) << "nothing behind the buffer is read";
    KyString t("abc");
    t.BuildString(t.StrGet(), t.CodeSetGet(), 0, 500, 4, 1, kAppend, 1);
    EXPECT_EQ(Content(t), std::string(4, '\0'));
}

/// BuildString and its slow twin on the same random operations, one string through each whole series.
template <class Unit>
void CompareWithTwin(unsigned seed, unsigned char codeSet) {
    using Slow = SlowBuild<Unit>;
    std::mt19937 random(seed);
    const auto below = [&](unsigned n) { return static_cast<unsigned short>(random() % n); };
    KyString s(codeSet, 0);
    std::optional<typename Slow::Block> twin;
    for (int step = 0; step < 4000 / kFewerCases; ++step) {
        typename Slow::Block source;
        for (unsigned n = below(random() % 8 == 0 ? 300 : 12); n != 0; --n) {
            source += static_cast<Unit>(below(10) == 0 ? 0 : 1 + below(sizeof(Unit) == 1 ? 255 : 65535));
        }
        const auto srcStart = below(static_cast<unsigned>(source.size()) + 1);
        const auto srcCount = below(static_cast<unsigned>(source.size() - srcStart) + 1);
        const unsigned short pos = below(random() % 50 == 0 ? 65536 : 40);
        const unsigned short repeat = below(random() % 50 == 0 ? 65536 : 4);
        const unsigned short mode = random() % 40 == 0 ? 4 : static_cast<unsigned short>(1 + below(3));
        s.BuildString(reinterpret_cast<const char*>(source.c_str()), codeSet, pos, srcStart, srcCount, repeat, mode, 1);
        twin = Slow::Apply(twin, source, pos, srcStart, srcCount, repeat, mode);
        const std::size_t size = twin ? twin->size() * sizeof(Unit) : 0;
        ASSERT_EQ(s.BufferSizeGet(), size) << "step " << step << " mode " << mode;
        if (twin) {
            ASSERT_EQ(std::memcmp(s.StrGet(), twin->data(), size), 0) << "step " << step << " mode " << mode;
        }
    }
}

TEST(BuildString, AgreesWithItsSlowTwinOnBytes) {
    for (unsigned seed = 1; seed <= 5; ++seed) CompareWithTwin<char>(seed, kLatin1);
}

TEST(BuildString, AgreesWithItsSlowTwinOnUnits) {
    for (unsigned seed = 1; seed <= 5; ++seed) CompareWithTwin<char16_t>(seed, kUnicode);
}

}  // namespace
