#include <gtest/gtest.h>

#include <functional>

#include "generated_strings.h"
#include "kybase.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "string_texts.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

/// What the row's Store writes, into a buffer of exactly the size that it returns.
std::string Stored(const KyTypeTab& row, const KyString* strings, unsigned count, unsigned char flag) {
    const unsigned size = row.SizeGet(strings, KyFormMemory, flag, count);
    GuardedBuffer buffer(size);
    std::memset(buffer.data(), 0xA5, size);
    EXPECT_EQ(row.Store(buffer.data(), strings, flag, count), size);
    return Hex(buffer.data(), size);
}

struct Golden {
    const char* what;
    std::function<KyString()> make;
    const char* native;
    const char* reversed;
};

const Golden kGoldens[] = {
    {"null", Null, "04 00 00 FE 00 FF", "00 04 00 FE 00 FF"},
    {"no buffer", [] { return KyString(1, 0); }, "04 00 01 00 00 FF", "00 04 01 00 00 FF"},
    {"empty", [] { return Labelled("", 1, 0); }, "04 00 01 00 00 FF", "00 04 01 00 00 FF"},
    {"abc", [] { return Labelled("abc", 1, 0); }, "07 00 01 00 61 62 63 00 FF", "00 07 01 00 61 62 63 00 FF"},
    {"labels", [] { return Labelled("a", 2, 9); }, "05 00 02 09 61 00 FF", "00 05 02 09 61 00 FF"},
    {"native", [] { return Labelled("a", 0, 0); }, "05 00 00 00 61 00 FF", "00 05 00 00 61 00 FF"},
    {"units", [] { return Labelled(Wide(u"aĀ"), 253, 3); }, "08 00 FD 03 61 00 00 01 00 FF",
     "00 08 FD 03 00 61 01 00 00 FF"},
    {"no units", [] { return Labelled(Wide(u""), 253, 0); }, "04 00 FD 00 00 FF", "00 04 FD 00 00 FF"},
    {"behind the terminator", [] { return Labelled(KyString("a\0b", 3), 1, 0); }, "07 00 01 00 61 00 62 00 FF",
     "00 07 01 00 61 00 62 00 FF"},
};

TEST(StringStore, GoldenBytes) {
    for (const Golden& golden : kGoldens) {
        const KyString s = golden.make();
        EXPECT_EQ(Stored(KyStringTab, &s, 1, 1), golden.native) << golden.what;
        EXPECT_EQ(Stored(KyStringTab, &s, 1, 2), golden.reversed) << golden.what;
        EXPECT_EQ(Stored(KyStringTab, &s, 1, 0x82), golden.reversed) << golden.what;
    }
}

TEST(StringStore, ArraysAreRecordsBackToBack) {
    const KyString strings[] = {Labelled("a", 1, 0), Null(), Labelled("bc", 1, 0)};
    EXPECT_EQ(Stored(KyStringTab, strings, 3, 1), "05 00 01 00 61 00 FF 04 00 00 FE 00 FF 06 00 01 00 62 63 00 FF");
    EXPECT_EQ(KyStringTab.Store(nullptr, nullptr, 1, 0), 0U);
    EXPECT_EQ(KyStringTab.NullSizeGet(0), 0U);
    EXPECT_EQ(KyStringTab.NullSizeGet(3), 18U);
}

TEST(StringStore, AtEveryOffset) {
    const KyString strings[] = {Labelled(Wide(u"aĀ"), 253, 3), Labelled("bc", 1, 0)};
    for (std::size_t offset = 0; offset < 8; ++offset) {
        GuardedBuffer buffer(offset + 18);
        EXPECT_EQ(KyStringTab.Store(buffer.data() + offset, strings, 2, 2), 18U);
        EXPECT_EQ(Hex(buffer.data() + offset, 18), "00 08 FD 03 00 61 01 00 00 FF 00 06 01 00 62 63 00 FF");
        KyString loaded[2];
        EXPECT_EQ(KyStringTab.Load(loaded, buffer.data() + offset, 2, 2), 18U);
        EXPECT_EQ(Text16(loaded[0]), u"aĀ");
        EXPECT_EQ(Text(loaded[1]), "bc");
    }
}

TEST(StringStore, LongestStrings) {
    for (const KyString& s : {KyString(std::string(65531, 'x').c_str()), Wide(std::u16string(32765, u'Ā'))}) {
        for (const unsigned char flag : std::initializer_list<unsigned char>{1, 2}) {
            const unsigned size = KyStringTab.SizeGet(&s, KyFormMemory, flag, 1);
            EXPECT_EQ(size, s.NullLen() == 1 ? 65537U : 65536U);
            GuardedBuffer buffer(size);
            EXPECT_EQ(KyStringTab.Store(buffer.data(), &s, flag, 1), size);
            KyString loaded;
            EXPECT_EQ(KyStringTab.Load(&loaded, buffer.data(), flag, 1), size);
            EXPECT_EQ(Content(loaded), Content(s));
        }
    }
}

TEST(StringStore, HalfAUnitAtTheEndIsZero) {
    KyString s("abcd");
    s.CopyMapped("x", 253, -1);
    ASSERT_EQ(s.BufferSizeGet(), 5);
    EXPECT_EQ(Stored(KyStringTab, &s, 1, 2), "00 07 FD 00 00 78 00 00 FF");
    EXPECT_EQ(Stored(KyStringTab, &s, 1, 1), "07 00 FD 00 78 00 00 00 FF");
}

TEST(StringLoad, GivesBackWhatWasStored) {
    for (const Golden& golden : kGoldens) {
        const KyString s = golden.make();
        for (const unsigned char flag : std::initializer_list<unsigned char>{1, 2, 0x81, 0x82}) {
            const std::vector<unsigned char> bytes = Bytes((flag & 15) == 2 ? golden.reversed : golden.native);
            GuardedBuffer buffer(bytes);
            KyString loaded("old content");
            loaded.LanguageSet(77);
            EXPECT_EQ(KyStringTab.Load(&loaded, buffer.data(), flag, 1), bytes.size()) << golden.what;
            EXPECT_EQ(Content(loaded), Content(s)) << golden.what;
            EXPECT_EQ(loaded.CodeSetGet(), s.CodeSetGet()) << golden.what;
            EXPECT_EQ(loaded.LanguageGet(), s.LanguageGet()) << golden.what;
            EXPECT_EQ(loaded.IsNullValue(), s.IsNullValue()) << golden.what;
        }
    }
}

TEST(StringLoad, GivesBackStringsOfEveryCodeSetAndLanguage) {
    StringGenerator generate(41);
    std::vector<unsigned char> codeSets = AllCodeSets();
    codeSets.push_back(KyCodeSetNative);
    for (const unsigned char codeSet : codeSets) {
        for (const unsigned char language : AllLanguages()) {
            // Order values of language 0 are null.
            const bool isNull = codeSet == KyCodeSetOrders && language == 0;
            const KyString strings[] = {generate.Next(codeSet, language, 12), generate.Next(codeSet, language, 400),
                                        KyString(codeSet, language), generate.Next(codeSet, language, 3)};
            for (const unsigned char form : std::initializer_list<unsigned char>{1, 2}) {
                GuardedBuffer buffer(KyStringTab.SizeGet(strings, KyFormMemory, form, 4));
                ASSERT_EQ(KyStringTab.Store(buffer.data(), strings, form, 4), buffer.size());
                EXPECT_EQ(KyStringTab.SizeGet(buffer.data(), form, form, 4), buffer.size());
                MemFile file(buffer.data(), buffer.size());
                EXPECT_EQ(KyStringTab.SizeGetFromMemFile(&file, form, 4), buffer.size());
                KyString loaded[4] = {"old", "old", "old", "old"};
                ASSERT_EQ(KyStringTab.Load(loaded, buffer.data(), form, 4), buffer.size());
                for (int i = 0; i < 4; ++i) {
                    ASSERT_EQ(Content(loaded[i]), Content(strings[i])) << int{codeSet} << " " << int{language};
                    ASSERT_EQ(loaded[i].CodeSetGet(), codeSet);
                    ASSERT_EQ(loaded[i].LanguageGet(), language);
                    ASSERT_EQ(loaded[i].IsNullValue() != 0, isNull);
                }
            }
        }
    }
}

TEST(StringLoad, NoneConsumesNothing) {
    GuardedBuffer buffer(Bytes("04 00 01 00 00 FF"));
    EXPECT_EQ(KyStringTab.Load(nullptr, buffer.data(), 1, 0), 0U);
}

TEST(StringLoad, OldLayout) {
    for (const unsigned char flag : std::initializer_list<unsigned char>{1, 2}) {
        GuardedBuffer buffer(Bytes(flag == 1 ? "06 00 61 62 00 00 63 00" : "00 06 61 62 00 00 63 00"));
        KyString loaded[3] = {Wide(u"x"), Null(), "z"};
        EXPECT_EQ(KyStringTab.Load(loaded, buffer.data(), flag, 3), 8U);
        EXPECT_EQ(Text(loaded[0]), "ab");
        EXPECT_EQ(Text(loaded[1]), "");
        EXPECT_EQ(Text(loaded[2]), "c");
        for (const KyString& s : loaded) {
            EXPECT_EQ(s.CodeSetGet(), KyString::GetDefault8CodeSet());
            EXPECT_EQ(s.LanguageGet(), KyString::GetDefaultLanguage());
        }
    }
}

TEST(StringLoad, Kept_OldLayoutReturnsTheWholeSizeWhateverTheCount) {
    GuardedBuffer buffer(Bytes("06 00 61 62 00 00 63 00"));
    KyString loaded;
    EXPECT_EQ(KyStringTab.Load(&loaded, buffer.data(), 1, 1), 8U);
    EXPECT_EQ(Text(loaded), "ab");
    EXPECT_EQ(KyStringTab.Load(nullptr, buffer.data(), 1, 0), 8U);
}

TEST(StringOldStore, GoldenBytes) {
    const KyString strings[] = {"ab", KyString(), Null(), Wide(u"c"), KyString("d\0e", 3)};
    EXPECT_EQ(Stored(KyOldStringTab, strings, 5, 1), "09 00 61 62 00 00 00 63 00 64 00");
    EXPECT_EQ(Stored(KyOldStringTab, strings, 5, 2), "00 09 61 62 00 00 00 63 00 64 00");
    EXPECT_EQ(Stored(KyOldStringTab, strings, 0, 1), "00 00");
}

TEST(StringOldStore, NarrowTextsStayWhatTheyAreAndWideOnesAreMapped) {
    const unsigned short orders[] = {KyChar('a', KyCodeSetLatin1, 0).GetOrder(),
                                     KyChar('Z', KyCodeSetLatin1, 0).GetOrder()};
    const KyString strings[] = {Labelled(Narrow("\x80\xE4"), KyCodeSetWindows1252, 0),
                                Labelled(Narrow("\xE4"), KyCodeSetNative, 0), Labelled(Wide(u"\u00E4"), 253, 3),
                                StringGenerator::FromCodes(KyCodeSetOrders, 1, {orders[0], orders[1]})};
    EXPECT_EQ(Stored(KyOldStringTab, strings, 4, 1), "0A 00 80 E4 00 E4 00 E4 00 3F 3F 00")
        << "order values are no characters";
}

TEST(StringOldStore, LoadsAgain) {
    const KyString strings[] = {"ab", "", "c"};
    GuardedBuffer buffer(KyOldStringTab.SizeGet(strings, KyFormMemory, 2, 3));
    KyOldStringTab.Store(buffer.data(), strings, 2, 3);
    KyString loaded[3];
    EXPECT_EQ(KyOldStringTab.Load(loaded, buffer.data(), 2, 3), buffer.size());
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Text(loaded[i]), Text(strings[i]));
}

TEST(StringSize, OfStoredArrays) {
    const KyString strings[] = {Labelled("a", 1, 0), Labelled(Wide(u"bc"), 253, 0), Null()};
    for (const unsigned char flag : std::initializer_list<unsigned char>{1, 2}) {
        GuardedBuffer buffer(KyStringTab.SizeGet(strings, KyFormMemory, flag, 3));
        KyStringTab.Store(buffer.data(), strings, flag, 3);
        EXPECT_EQ(buffer.size(), 7U + 10 + 6);
        EXPECT_EQ(KyStringTab.SizeGet(buffer.data(), flag, flag, 3), buffer.size());
        EXPECT_EQ(KyStringTab.SizeGet(buffer.data(), flag, flag, 2), 17U);
        EXPECT_EQ(KyStringTab.SizeGet(buffer.data(), flag, 8, 3), 48U);
        EXPECT_EQ(KyOldStringTab.SizeGet(buffer.data(), flag, flag, 3), 2U + 2 + 3 + 1);
        MemFile file(buffer.data(), buffer.size());
        EXPECT_EQ(KyStringTab.SizeGetFromMemFile(&file, flag, 3), buffer.size());
        EXPECT_EQ(file.Seek(7, MemFile::begin), buffer.data() + 7);
        EXPECT_EQ(KyStringTab.SizeGetFromMemFile(&file, flag, 2), 16U);
        EXPECT_EQ(file.Seek(0, MemFile::current), buffer.data() + 7) << "the position stays";
        EXPECT_EQ(KyStringTab.SizeGetFromMemFile(&file, flag, 9), 16U) << "no more are there";
        EXPECT_EQ(KyStringTab.SizeGetFromMemFile(&file, flag, 0), 0U);
    }
    EXPECT_EQ(KyStringTab.SizeGet(nullptr, 8, 1, 2), 12U);
    EXPECT_EQ(KyOldStringTab.SizeGet(nullptr, 8, 1, 2), 4U);
}

TEST(StringSize, OfOldArrays) {
    GuardedBuffer buffer(Bytes("06 00 61 62 00 00 63 00"));
    EXPECT_EQ(KyStringTab.SizeGet(buffer.data(), 1, 1, 3), 8U);
    EXPECT_EQ(KyOldStringTab.SizeGet(buffer.data(), 1, 1, 3), 8U);
    MemFile file(buffer.data(), buffer.size());
    EXPECT_EQ(KyStringTab.SizeGetFromMemFile(&file, 1, 3), 8U);
    EXPECT_EQ(KyOldStringTab.SizeGetFromMemFile(&file, 1, 3), 8U);
}

TEST(StringSize, FileThatEndsEarly) {
    GuardedBuffer buffer(Bytes("07 00 01 00 61"));
    MemFile file(buffer.data(), buffer.size());
    EXPECT_EQ(KyStringTab.SizeGetFromMemFile(&file, 1, 2), 9U) << "the length field is there";
    MemFile head(buffer.data(), 1);
    EXPECT_EQ(KyStringTab.SizeGetFromMemFile(&head, 1, 2), 0U);
}

TEST(StringLoad, KnownToBeInTheCurrentLayout) {
    // Its last byte says otherwise.
    const std::vector<unsigned char> bytes = Bytes("05 00 01 00 61 00 00");
    GuardedBuffer buffer(bytes);
    KyString loaded;
    EXPECT_EQ(KyStringTab.Load(&loaded, buffer.data(), 0x81, 1), 7U);
    EXPECT_EQ(Text(loaded), "a");
    EXPECT_EQ(KyStringTab.SizeGet(buffer.data(), 0x81, 0x81, 1), 7U);
}

TEST(StringLoad, RecordsThatAreTooShort) {
    const struct {
        const char* bytes;
        unsigned char flag;
        unsigned size;
        unsigned char codeSet, language;
    } cases[] = {
        {"00 00", 0x81, 2, 0, 0},          {"01 00 FF", 1, 3, 0xFF, 0},       {"02 00 01 FF", 1, 4, 1, 0xFF},
        {"03 00 01 FE FF", 1, 5, 1, 0xFE}, {"04 00 01 05 00 FF", 1, 6, 1, 5}, {"05 00 FD 05 61 00 FF", 1, 7, 0xFD, 5},
    };
    for (const auto& c : cases) {
        GuardedBuffer buffer(Bytes(c.bytes));
        KyString loaded("old");
        EXPECT_EQ(KyStringTab.Load(&loaded, buffer.data(), c.flag, 1), c.size) << c.bytes;
        EXPECT_EQ(loaded.BufferSizeGet(), 0) << c.bytes;
        EXPECT_EQ(loaded.CodeSetGet(), c.codeSet) << c.bytes;
        EXPECT_EQ(loaded.LanguageGet(), c.language) << c.bytes;
        EXPECT_EQ(KyStringTab.SizeGet(buffer.data(), c.flag, c.flag, 1), c.size) << c.bytes;
    }
}

TEST(StringLoad, OldTextsEndWithTheirArray) {
    GuardedBuffer buffer(Bytes("03 00 61 00 00"));
    KyString loaded[4] = {"x", "x", "x", "x"};
    EXPECT_EQ(KyStringTab.Load(loaded, buffer.data(), 1, 4), 5U);
    EXPECT_EQ(Text(loaded[0]), "a");
    for (int i = 1; i < 4; ++i) EXPECT_EQ(Text(loaded[i]), "") << i;
    GuardedBuffer none(Bytes("00 00"));
    EXPECT_EQ(KyStringTab.Load(loaded, none.data(), 1, 1), 2U);
    EXPECT_EQ(Text(loaded[0]), "");
}

TEST(StringOldStore, ShortensWhatTheLengthFieldCannotTell) {
    const OverflowSwitch raised(0);
    const std::string half(40000, 'x');
    KyString strings[] = {half.c_str(), half.c_str(), "third"};
    const unsigned size = KyOldStringTab.SizeGet(strings, KyFormMemory, 1, 3);
    EXPECT_EQ(size, 2U + 65535);
    GuardedBuffer buffer(size);
    EXPECT_EQ(KyOldStringTab.Store(buffer.data(), strings, 1, 3), size);
    ASSERT_EQ(OverflowSwitch::Raised().size(), 1U);
    EXPECT_EQ(OverflowSwitch::Raised()[0].find("array total <= 65535|src/kystring|"), 0U);
    KyString loaded[3];
    EXPECT_EQ(KyOldStringTab.Load(loaded, buffer.data(), 1, 3), size);
    EXPECT_EQ(loaded[0].Len(), 40000);
    EXPECT_EQ(loaded[1].Len(), 65535 - 40001 - 1 - 1);
    EXPECT_EQ(loaded[2].Len(), 0);

    std::vector<KyString> many(70000);
    GuardedBuffer zeros(2 + 65535);
    EXPECT_EQ(KyOldStringTab.SizeGet(many.data(), KyFormMemory, 1, 70000), zeros.size());
    EXPECT_EQ(KyOldStringTab.Store(zeros.data(), many.data(), 1, 70000), zeros.size());
}

TEST(StringSize, TheFirstRecordTellsTheLayoutOfAll) {
    // The second one's last byte is damaged.
    GuardedBuffer records(Bytes("05 00 01 00 61 00 FF 06 00 01 00 62 63 00 00"));
    EXPECT_EQ(KyStringTab.SizeGet(records.data(), 1, 1, 2), 15U);
    EXPECT_EQ(KyStringTab.SizeGet(records.data(), 1, 0x21, 2), 18U);
    EXPECT_EQ(KyStringTab.SizeGet(records.data(), 1, 0x41, 2), 18U);
}

TEST(StringSize, InAnotherForm) {
    constexpr unsigned char units = 0x21;
    constexpr unsigned char orders = 0x41;
    const struct {
        const char* what;
        KyString s;
        unsigned plain, asUnits, asOrders;
    } cases[] = {
        {"letters", Labelled("abc", 1, 0), 9, 12, 12},
        {"expansion",
         Labelled(Narrow("Stra\xDF"
                         "e"),
                  1, 0),
         12, 18, 20},
        {"contraction", Labelled("ch", 1, 10), 8, 10, 8},
        {"slack", Labelled(KyString("a\0bcd", 5), 1, 0), 11, 8, 8},
        {"no buffer", KyString(1, 0), 6, 6, 6},
        {"null", Null(), 6, 6, 6},
        {"null with a text", Labelled("abc", 1, 254), 9, 9, 9},
        {"16-bit", Labelled(Wide(u"ab"), 253, 0), 10, 10, 10},
    };
    unsigned char memory[64];
    for (const auto& c : cases) {
        EXPECT_EQ(KyStringTab.SizeGet(&c.s, 8, 1, 1), c.plain) << c.what;
        EXPECT_EQ(KyStringTab.SizeGet(&c.s, 8, 0x81, 1), c.plain) << c.what;
        EXPECT_EQ(KyStringTab.SizeGet(&c.s, 8, units, 1), c.asUnits) << c.what;
        EXPECT_EQ(KyStringTab.SizeGet(&c.s, 8, orders, 1), c.asOrders) << c.what;
        EXPECT_EQ(KyStringTab.SizeGet(&c.s, 8, units | orders, 1), c.asOrders) << c.what;
        for (const unsigned char form : std::initializer_list<unsigned char>{1, 2}) {
            const unsigned stored = KyStringTab.Store(memory, &c.s, form, 1);
            GuardedBuffer record(std::span(memory, stored));
            EXPECT_EQ(KyStringTab.SizeGet(record.data(), form, form, 1), c.plain) << c.what;
            EXPECT_EQ(KyStringTab.SizeGet(record.data(), form, units, 1), c.asUnits) << c.what;
            EXPECT_EQ(KyStringTab.SizeGet(record.data(), form | 0x80, orders, 1), c.asOrders) << c.what;
            MemFile file(record.data(), stored);
            EXPECT_EQ(KyStringTab.SizeGetFromMemFile(&file, form | 0x20, 1), c.asUnits) << c.what;
            EXPECT_EQ(KyStringTab.SizeGetFromMemFile(&file, form | 0x40, 1), c.asOrders) << c.what;
            EXPECT_EQ(KyOldStringTab.SizeGetFromMemFile(&file, form | 0x40, 1), c.plain) << c.what;
            EXPECT_EQ(KyOldStringTab.SizeGet(record.data(), form, orders, 1), KyOldStringTab.SizeGet(&c.s, 8, 1, 1));
        }
    }
}

TEST(StringSize, EveryByteHasOrders) {
    std::string bytes;
    for (int c = 1; c < 256; ++c) bytes += static_cast<char>(c);
    for (unsigned codeSet = 0; codeSet < KyCodeSetFirst16Bit; ++codeSet) {
        KyString s = Narrow(bytes);
        s.SetCodeSetCode(static_cast<unsigned char>(codeSet));
        s.LanguageSet(0);
        EXPECT_GE(KyStringTab.SizeGet(&s, KyFormMemory, 0x41, 1), 6 + 2 * 255u) << codeSet;
    }
}

}  // namespace
