/// How many blocks each operation takes.

#include <gtest/gtest.h>

#include <new>
#include <utility>

#include "counted_memory.h"
#include "kyistring.h"
#include "kystring.h"
#include "kytypes.h"
#include "string_texts.h"

namespace {

/// The comparer makes its table of keys at the first comparison of a process; that block is no edit's.
[[maybe_unused]] const bool comparerReady = KyString("a") != KyString("b");

template <class... Arguments>
Taken TakenByConstruction(Arguments... arguments) {
    return TakenBy([&] { const KyString s(arguments...); });
}

TEST(KyStringAllocation, ConstructionTakesOneBlockOfTheExactSize) {
    EXPECT_EQ(TakenByConstruction(), (Taken{0, 0}));
    EXPECT_EQ(TakenByConstruction("twelve bytes"), (Taken{1, 13}));
    EXPECT_EQ(TakenByConstruction("twelve bytes", static_cast<unsigned short>(6)), (Taken{1, 7}));
    const unsigned short units[] = {'a', 'b', 0};
    EXPECT_EQ(TakenByConstruction(static_cast<const unsigned short*>(units)), (Taken{1, 6}));
    EXPECT_EQ(TakenByConstruction('c'), (Taken{1, 2}));
    EXPECT_EQ(TakenByConstruction('\0'), (Taken{0, 0}));
    EXPECT_EQ(TakenByConstruction(123456), (Taken{1, 7}));
    EXPECT_EQ(TakenByConstruction(-9223372036854775807LL), (Taken{1, 21}));
    EXPECT_EQ(TakenByConstruction(0.1), (Taken{1, 20}));
}

TEST(KyStringAllocation, CopiesTakeOneBlockAndMovesNone) {
    KyString s("twelve bytes");
    KyString target("other");
    const KyString number("7");
    EXPECT_EQ(TakenBy([&] { const KyString copy(s); }), (Taken{1, 13}));
    EXPECT_EQ(TakenBy([&] { target = s; }), (Taken{1, 13}));
    EXPECT_EQ(TakenBy([&] { target = "text"; }), (Taken{1, 5}));
    EXPECT_EQ(TakenBy([&] { target = std::move(s); }), (Taken{0, 0}));
    EXPECT_EQ(TakenBy([&] { target = 12; }), (Taken{1, 3}));
}

TEST(KyStringAllocation, RowsTakeOneBlockALoadAndNoneElsewhere) {
    KyString values[2] = {"twelve bytes", "twelve bytez"};
    KyString wide(KyCodeSetUnicode, 0);
    wide += values[0];
    unsigned char a[64];
    unsigned char b[64];
    unsigned char units[64];
    EXPECT_EQ(TakenBy([&] {
                  KyStringTab.Store(a, &values[0], 1, 1);
                  KyStringTab.Store(b, &values[1], 1, 1);
                  KyStringTab.Store(units, &wide, 1, 1);
                  KyStringTab.SizeGet(a, 1, 1, 1);
              }),
              (Taken{0, 0}));
    int err = 0;
    const auto compareAll = [&] {
        for (const unsigned short op : std::initializer_list<unsigned short>{0, 0x20, 0x100}) {
            for (unsigned char* other : {a, b, units}) {
                KyStringTab.Compare(1, 0, a, 0, other, op, 1, err);
                KyStringTab.Compare(1, 0, units, 0, other, op, 1, err);
                KyStringTab.Compare(1, 9, a, 0, other, op, 1, err);
            }
        }
        KyStringTab.Compare(8, 0, values, 0, values, 0x100, 2, err);
        KyStringTab.Hash(1, 0, units, 1, err);
    };
    compareAll();  // tables of keys are made
    EXPECT_EQ(TakenBy(compareAll), (Taken{0, 0}));
    EXPECT_EQ(TakenBy([&] { KyStringTab.Load(&values[0], b, 1, 1); }), (Taken{1, 13}));
    EXPECT_EQ(TakenBy([&] { KyStringTab.Load(&values[0], units, 1, 1); }), (Taken{1, 26}));
    unsigned char key[253];
    EXPECT_EQ(TakenBy([&] { KyStringTab.Translate(key, 1, sizeof key, &wide, 8, 0, 1); }), (Taken{0, 0}));
}

TEST(KyStringAllocation, LengthAndStateTakeNone) {
    const KyString s("twelve bytes");
    EXPECT_EQ(TakenBy([&] {
                  EXPECT_EQ(s.Len(), 12);
                  EXPECT_FALSE(s.IsEmpty());
                  EXPECT_NE(s.StrGet(), nullptr);
                  EXPECT_EQ(static_cast<int>(s), 0);
                  KyString::EmptyString();
              }),
              (Taken{0, 0}));
}

template <class Edit>
Taken TakenByEdit(const char* text, Edit edit) {
    KyString s(text);
    return TakenBy([&] { edit(s); });
}

TEST(KyStringAllocation, EditsTakeOneBlockOfTheExactSize) {
    const KyString argument("argument");
    const Taken appended = {1, 12};
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s += argument; }), appended);
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s << "argument"; }), appended);
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s << 'c'; }), (Taken{1, 5}));
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s << 12; }), (Taken{1, 6}));
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s << 0.5; }), (Taken{1, 7}));
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.Insert(argument, 1); }), appended);
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.Replace(argument, 1); }), (Taken{1, 4}));
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.Cut(1, 1); }), (Taken{1, 3}));
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.Fill(9, 'x'); }), (Taken{1, 10}));
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.Expand(9, 'x'); }), (Taken{1, 10}));
    EXPECT_EQ(TakenByEdit(" abc ", [&](KyString& s) { s.Trim(); }), (Taken{1, 4}));
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.ToUpper(); }), (Taken{1, 4}));
    const KyString from("x");
    EXPECT_EQ(from.Find('y', 0, 0xFFFF), KyString::NotFound)
        << "the comparer's tables, made on first use, are not an edit's";
    EXPECT_EQ(TakenByEdit("xaxbx", [&](KyString& s) { s.ReplaceAll(from, argument, 0); }), (Taken{1, 27}));
}

TEST(KyStringAllocation, OfMappedArguments) {
    const KyString wide = Wide(u"argument");
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s += wide; }), (Taken{1, 12}));
    KyString target = Wide(u"abc");
    EXPECT_EQ(TakenBy([&] { target << "argument"; }), (Taken{1, 24}));
}

TEST(KyStringAllocation, EditsThatChangeNothingTakeNone) {
    const KyString argument("argument");
    const KyString absent("zz");
    const Taken none = {0, 0};
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.Insert(argument, 4); }), none);
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.Replace(argument, 3); }), none);
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.Cut(3, 1); }), none);
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.Expand(3, 'x'); }), none);
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.Trim(); }), none);
    EXPECT_EQ(TakenByEdit("abc", [&](KyString& s) { s.ReplaceAll(absent, argument, 0); }), none);
}

TEST(KyStringAllocation, SumsAndPiecesTakeOneBlock) {
    const KyString a("abc");
    const KyString b("defg");
    EXPECT_EQ(TakenBy([&] { const KyString sum = a + b; }), (Taken{1, 8}));
    EXPECT_EQ(TakenBy([&] { const KyString piece = b.Copy(1, 2); }), (Taken{1, 3}));
    EXPECT_EQ(TakenBy([&] { const KyString piece = b.Left(9); }), (Taken{1, 5}));
    EXPECT_EQ(TakenBy([&] { const KyString piece = b.Right(0); }), (Taken{0, 0}));
}

TEST(KyStringAllocation, MappingsTakeOneBlockOrNone) {
    KyString s("abc");
    EXPECT_EQ(TakenBy([&] { s.MapToCodeSet(KyCodeSetUnicode); }), (Taken{1, 8}));
    EXPECT_EQ(TakenBy([&] { s.SetCodeSet(KyCodeSetLatin1); }), (Taken{1, 4}));
    const KyString wide = Wide(u"ab");
    EXPECT_EQ(TakenBy([&] { s.CopyMapped(wide, KyCodeSetLatin1, -1); }), (Taken{0, 0}));
    EXPECT_EQ(TakenBy([&] { s.CopyMapped(wide, KyCodeSetUnicode, -1); }), (Taken{1, 6}));
}

/// Runs `edit` with memory for none, one, ... blocks until it succeeds; whenever memory fails the text and its label
/// have to be as before.
template <class Edit>
void FailEveryBlock(const char* name, Edit edit) {
    for (const std::string& text : {std::string("a-b-c"), std::string(3000, 'a')}) {
        bool succeeded = false;
        for (int blocks = 0; !succeeded && blocks < 20; ++blocks) {
            KyString s(text.c_str());
            s.LanguageSet(3);
            blocksLeft = blocks;
            try {
                edit(s);
                succeeded = true;
            } catch (const std::bad_alloc&) {
            }
            blocksLeft = -1;
            if (succeeded) {
                EXPECT_GT(blocks, 0) << name << " takes a block";
                continue;
            }
            ASSERT_EQ(Text(s), text) << name << ' ' << blocks;
            ASSERT_EQ(s.BufferSizeGet(), text.size() + 1) << name << ' ' << blocks;
            ASSERT_EQ(s.CodeSetGet(), KyString::GetDefault8CodeSet()) << name << ' ' << blocks;
            ASSERT_EQ(s.LanguageGet(), 3) << name << ' ' << blocks;
        }
        EXPECT_TRUE(succeeded) << name;
    }
}

TEST(KyStringAllocation, FailureLeavesTheStringAsItWas) {
    const KyString argument("argument");
    const KyString wide = Wide(std::u16string(1000, u'w'));
    const KyString a("a");
    FailEveryBlock("=", [&](KyString& s) { s = argument; });
    FailEveryBlock("= text", [&](KyString& s) { s = "text"; });
    FailEveryBlock("+=", [&](KyString& s) { s += argument; });
    FailEveryBlock("+= mapped", [&](KyString& s) { s += wide; });
    FailEveryBlock("<<", [&](KyString& s) { s << 12; });
    FailEveryBlock("Insert", [&](KyString& s) { s.Insert(argument, 1); });
    FailEveryBlock("Insert mapped", [&](KyString& s) { s.Insert(wide, 1); });
    FailEveryBlock("Replace", [&](KyString& s) { s.Replace(argument, 1); });
    FailEveryBlock("Cut", [&](KyString& s) { s.Cut(1, 1); });
    FailEveryBlock("Fill", [&](KyString& s) { s.Fill(9, 'x'); });
    FailEveryBlock("ToUpper", [&](KyString& s) { s.ToUpper(); });
    FailEveryBlock("ReplaceAll", [&](KyString& s) { s.ReplaceAll(a, argument, 0); });
    FailEveryBlock("MapToCodeSet", [&](KyString& s) { s.MapToCodeSet(KyCodeSetUnicode); });
    FailEveryBlock("SetCodeSet", [&](KyString& s) { s.SetCodeSet(KyCodeSetUnicode); });
    FailEveryBlock("MakeString", [&](KyString& s) { s.MakeString("text", KyCodeSetLatin1, -1, 1); });
    FailEveryBlock("Alloc", [&](KyString& s) { delete[] static_cast<char*>(s.Alloc(7)); });
}

TEST(KyStringAllocation, FailureOfAMappedCopyLeavesNoBuffer) {
    const KyString wide = Wide(u"longer than what is there");
    KyString s("abc");
    blocksLeft = 0;
    EXPECT_THROW(s.CopyMapped(wide, KyCodeSetLatin1, -1), std::bad_alloc);
    blocksLeft = -1;
    EXPECT_EQ(s.BufferSizeGet(), 0);
    EXPECT_EQ(Text(s), "");
}

// --- dictionary strings ---

TEST(DictionaryStringAllocation, EachContentTakesOneBlockOfTheExactSize) {
    EXPECT_EQ(TakenBy([] { const KyIString s("twelve bytes"); }), (Taken{1, 13}));
    EXPECT_EQ(TakenBy([] { const KyIString s(""); }), (Taken{0, 0}));
    EXPECT_EQ(TakenBy([] { const KyCaseIString s(12); }), (Taken{1, 3}));
    KyIString s("twelve bytes");
    KyIString& same = s;
    const KyIString other("four");
    EXPECT_EQ(TakenBy([&] { const KyIString copy(s); }), (Taken{1, 13}));
    EXPECT_EQ(TakenBy([&] { s += other; }), (Taken{1, 17}));
    EXPECT_EQ(TakenBy([&] { s.Insert(other, 2); }), (Taken{1, 21}));
    EXPECT_EQ(TakenBy([&] { s.Cut(0, 4); }), (Taken{1, 17}));
    EXPECT_EQ(TakenBy([&] { s = other; }), (Taken{1, 5}));
    EXPECT_EQ(TakenBy([&] { s = std::move(same); }), (Taken{0, 0}));
    EXPECT_EQ(TakenBy([&] { s = "text"; }), (Taken{1, 5}));
    EXPECT_EQ(TakenBy([&] { s.Fill(3, 'x'); }), (Taken{1, 4}));
    EXPECT_EQ(TakenBy([&] { s.Cut(0, -1); }), (Taken{1, 1})) << "given up again";
    EXPECT_EQ(TakenBy([&] { s.SpaceToZero(); }), (Taken{0, 0}));
    EXPECT_EQ(TakenBy([&] { static_cast<void>(s.Find(other, 0, 0)); }), (Taken{0, 0}));
    EXPECT_EQ(TakenBy([&] { static_cast<void>(s == other); }), (Taken{0, 0}));
    EXPECT_EQ(TakenBy([&] { static_cast<void>(static_cast<int>(s)); }), (Taken{0, 0}));
}

TEST(DictionaryStringAllocation, FailureLeavesTheTextAsItWas) {
    const KyIString argument("argument");
    const auto check = [&](auto edit) {
        KyIString s("a-b-c");
        s.ModeSet(0x40);
        blocksLeft = 0;
        EXPECT_THROW(edit(s), std::bad_alloc);
        blocksLeft = -1;
        EXPECT_STREQ(s.StrGet(), "a-b-c");
        EXPECT_EQ(s.ModeGet(), 0x40);
    };
    check([&](KyIString& s) { s = argument; });
    check([&](KyIString& s) { s += argument; });
    check([&](KyIString& s) { s.Insert(argument, 1); });
    check([&](KyIString& s) { s.ReplaceAll("-", argument, 0); });
    check([&](KyIString& s) { s.ToUpper(); });
}

TEST(DictionaryStringAllocation, ComparingStoredValuesTakesNone) {
    KyIString values[2] = {"twelve bytes", "twelve Bytes"};
    unsigned char a[16];
    unsigned char b[16];
    KyIStringTab.Store(a, values, 1, 1);
    KyIStringTab.Store(b, values + 1, 1, 1);
    int err = 0;
    EXPECT_EQ(TakenBy([&] {
                  KyIStringTab.Compare(1, 16, a, 16, b, KyCmpExact, 1, err);
                  KyIStringTab.Compare(1, 16, a, 16, b, 0, 1, err);
                  KyIStringTab.Compare(1, 9, a, 16, b, 0, 1, err);
              }),
              (Taken{0, 0}));
    EXPECT_EQ(TakenBy([&] { KyIStringTab.Load(values, a, 1, 1); }), (Taken{1, 13}));
}

std::size_t askedFor = 0;

TEST(DictionaryStringAllocation, LoadWithoutMemoryCallsTheHandler) {
    const unsigned char stored[] = {0x40, 7, 0, 'a', 'b', 'c', 0, 'd', 'e', 0};
    KyIString values[2] = {"old", "old"};
    const auto load = [&] { return KyIStringTab.Load(values, stored, 1, 2); };
    blocksLeft = 0;
    EXPECT_THROW(load(), std::bad_alloc);
    blocksLeft = -1;
    EXPECT_STREQ(values[0].StrGet(), "old");

    const KyMemoryHandler previous = KySetMemoryHandler([](std::size_t size) {
        askedFor = size;
        blocksLeft = -1;
    });
    blocksLeft = 0;
    EXPECT_EQ(load(), 10u) << "a handler that returns leaves the value empty";
    KySetMemoryHandler(previous);
    EXPECT_EQ(askedFor, 4u);
    EXPECT_STREQ(values[0].StrGet(), "");
    EXPECT_STREQ(values[1].StrGet(), "de");
}

}  // namespace
