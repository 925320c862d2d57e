#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "dictionary_values.h"
#include "kybase.h"
#include "kydiskform.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

TYPED_TEST_SUITE(DictionaryStringTest, DictionaryStrings);

struct Golden {
    std::vector<std::string> texts;
    unsigned char flag;
    const char* bytes;
};

// Frozen: what databases hold.
const Golden kGolden[] = {
    {{}, 1, "40 00 00"},
    {{}, 2, "40 00 00"},
    {{""}, 1, "40 01 00 00"},
    {{""}, 2, "40 00 01 00"},
    {{"abc"}, 1, "40 04 00 61 62 63 00"},
    {{"abc"}, 2, "40 00 04 61 62 63 00"},
    {{"abc"}, 0, "40 04 00 61 62 63 00"},
    {{"abc", "", "d"}, 2, "40 00 07 61 62 63 00 00 64 00"},
    {{"\xC8\xDE"}, 1, "40 03 00 E0 DF 00"},
    {{"\x90\xAC"}, 1, "40 03 00 98 98 00"},
    {{"\xC8\xDE"}, 0x81, "01 03 00 C8 DE 00"},
    {{"\xC8\xDE", "x"}, 0x12, "01 00 05 C8 DE 00 78 00"},
    {{""}, 0x41, "01 01 00 00"},
};

TYPED_TEST(DictionaryStringTest, StoredBytesAreFrozen) {
    const KyTypeTab& row = RowOf<TypeParam>();
    for (const Golden& golden : kGolden) {
        std::vector<TypeParam> values;
        for (const std::string& text : golden.texts) values.emplace_back(text.c_str());
        const auto count = static_cast<unsigned>(values.size());
        const auto expected = Bytes(golden.bytes);
        EXPECT_EQ(row.SizeGet(values.data(), KyFormMemory, golden.flag & 0x7F, count), expected.size()) << golden.bytes;
        for (const unsigned char fill : Flags{0x00, 0xFF}) {
            for (std::size_t offset = 0; offset < 4; ++offset) {
                std::vector<unsigned char> buffer(expected.size() + 8, fill);
                EXPECT_EQ(row.Store(buffer.data() + offset, values.data(), golden.flag, count), expected.size());
                EXPECT_EQ(Hex(buffer.data() + offset, expected.size()), golden.bytes);
                EXPECT_EQ(buffer[offset + expected.size()], fill);
            }
        }
        GuardedBuffer stored(expected);
        std::vector<TypeParam> loaded(count, TypeParam("old"));
        EXPECT_EQ(row.Load(loaded.data(), stored.data(), golden.flag, count), expected.size()) << golden.bytes;
        for (unsigned i = 0; i < count; ++i) {
            const bool sharesDiskByte = golden.texts[i] == "\x90\xAC";
            EXPECT_EQ(Text(loaded[i]), sharesDiskByte ? "\x90\x90" : golden.texts[i]);
            EXPECT_EQ(HoldsBlock(loaded[i]), !golden.texts[i].empty());
            EXPECT_EQ(loaded[i].ModeGet(), 0);
        }
        EXPECT_EQ(row.SizeGet(stored.data(), golden.flag, golden.flag & 15, count), expected.size());
    }
}

TYPED_TEST(DictionaryStringTest, StoreDoesNotLookAtTheMode) {
    std::vector<TypeParam> values(1, TypeParam("\xC8"));
    values[0].ModeSet(0x40);
    EXPECT_EQ(Hex(Stored(values, 1).data(), 5), "40 02 00 E0 00");
}

TYPED_TEST(DictionaryStringTest, LoadTakesTheMarkersWordNotTheFlags) {
    const KyTypeTab& row = RowOf<TypeParam>();
    struct {
        const char* bytes;
        const char* text;
        unsigned char mode;
    } const cases[] = {
        {"40 03 00 E0 DF 00", "\xC8\xDE", 0},    {"01 03 00 E0 DF 00", "\xE0\xDF", 0},
        {"00 03 00 E0 DF 00", "\xE0\xDF", 0},    {"80 03 00 E0 DF 00", "\xE0\xDF", 0x80},
        {"FF 03 00 E0 DF 00", "\xE0\xDF", 0x80}, {"C0 03 00 E0 DF 00", "\xE0\xDF", 0x80},
    };
    for (const auto& c : cases) {
        for (const unsigned char flag : Flags{0x01, 0x81, 0x11}) {
            TypeParam value("old");
            const auto bytes = Bytes(c.bytes);
            EXPECT_EQ(row.Load(&value, bytes.data(), flag, 1), 6u);
            EXPECT_EQ(Text(value), c.text) << c.bytes;
            EXPECT_EQ(value.ModeGet(), c.mode) << c.bytes;
        }
    }
}

TYPED_TEST(DictionaryStringTest, LoadReadsNoMoreThanTheHeaderTells) {
    const KyTypeTab& row = RowOf<TypeParam>();
    TypeParam values[3] = {"x", "y", "z"};
    values[2].ModeSet(0x40);
    GuardedBuffer unterminated(Bytes("40 04 00 61 00 62 63"));
    EXPECT_EQ(row.Load(values, unterminated.data(), 1, 3), 7u);
    EXPECT_EQ(Text(values[0]), "a");
    EXPECT_EQ(Text(values[1]), "bc");
    EXPECT_EQ(Text(values[2]), "");
    EXPECT_EQ(values[2].ModeGet(), 0);
    GuardedBuffer nothing(Bytes("40 00 00"));
    EXPECT_EQ(row.Load(values, nothing.data(), 1, 2), 3u);
    EXPECT_EQ(Text(values[0]), "");
    EXPECT_EQ(row.Load(values, nothing.data(), 1, 0), 3u);
    GuardedBuffer more(Bytes("40 06 00 61 00 62 00 63 00"));
    EXPECT_EQ(row.Load(values, more.data(), 1, 1), 5u) << "one of three";
    EXPECT_EQ(Text(values[0]), "a");
}

TYPED_TEST(DictionaryStringTest, EveryByteSurvivesStoring) {
    const KyTypeTab& row = RowOf<TypeParam>();
    std::mt19937 random(5);
    for (int i = 0; i < 3000; ++i) {
        std::vector<TypeParam> values(1 + random() % 4);
        for (TypeParam& value : values) {
            std::string text;
            for (auto n = random() % 40; n != 0; --n) {
                auto c = static_cast<char>(random() % 255 + 1);
                if (c == '\xAC' || c == '\xEC') c = 'x';  // these come back as others
                text += c;
            }
            value = text.c_str();
        }
        for (const unsigned char flag : Flags{0x01, 0x02, 0x81, 0x92}) {
            const auto bytes = Stored(values, flag);
            std::vector<TypeParam> loaded(values.size());
            ASSERT_EQ(row.Load(loaded.data(), bytes.data(), flag, static_cast<unsigned>(values.size())), bytes.size());
            for (std::size_t v = 0; v < values.size(); ++v) ASSERT_EQ(Text(loaded[v]), Text(values[v]));
        }
    }
}

TYPED_TEST(DictionaryStringTest, Sizes) {
    const KyTypeTab& row = RowOf<TypeParam>();
    EXPECT_EQ(row.NullSizeGet(0), 3u);
    EXPECT_EQ(row.NullSizeGet(1), 4u);
    EXPECT_EQ(row.NullSizeGet(5), 8u);
    const TypeParam values[] = {"abc", "\xDE"};
    EXPECT_EQ(row.SizeGet(values, 8, 1, 2), 9u);
    EXPECT_EQ(row.SizeGet(values, 8, 8, 2), 32u);
    EXPECT_EQ(row.SizeGet(values, 8, 0x81, 2), 10u) << "the key";
    EXPECT_EQ(row.SizeGet(nullptr, 8, 1, 2), row.NullSizeGet(2));
    const auto stored = Bytes("40 00 06 61 62 63 00 DF 00");
    EXPECT_EQ(row.SizeGet(stored.data(), 2, 1, 2), 9u);
    EXPECT_EQ(row.SizeGet(stored.data(), 2, 0x82, 2), 10u);
    EXPECT_EQ(row.SizeGet(stored.data(), 2, 8, 2), 32u);
    const auto key = Bytes("80 00 06 61 62 63 00 DF 00");
    EXPECT_EQ(row.SizeGet(key.data(), 2, 0x82, 1), 9u);
}

TYPED_TEST(DictionaryStringTest, SizesFromFiles) {
    const KyTypeTab& row = RowOf<TypeParam>();
    auto bytes = Bytes("EE EE 40 00 06 61 62 63 00 DF 00 EE");
    MemFile file(bytes.data(), bytes.size());
    void* start = file.Seek(2, MemFile::begin);
    EXPECT_EQ(row.SizeGetFromMemFile(&file, 2, 2), 9u);
    EXPECT_EQ(row.SizeGetFromMemFile(&file, 0x82, 2), 10u);
    EXPECT_EQ(file.Seek(0, MemFile::current), start) << "the position stays";

    for (std::size_t size = 0; size <= 9; ++size) {
        GuardedBuffer cut(std::span<const unsigned char>(bytes).subspan(2, size));
        MemFile part(cut.data(), size);
        const unsigned expected = size < 3 ? 0 : 9;
        EXPECT_EQ(row.SizeGetFromMemFile(&part, 2, 2), expected) << size;
        EXPECT_EQ(row.SizeGetFromMemFile(&part, 0x82, 2), size == 9 ? 10u : expected) << size;
    }
}

// --- arrays that are too long for the header ---

int assertions = 0;
void CountAssertion(const char*, const char*, int) { ++assertions; }

TYPED_TEST(DictionaryStringTest, LastTextsAreShortenedUntilTheHeaderHoldsTheTotal) {
    const KyTypeTab& row = RowOf<TypeParam>();
    struct {
        std::vector<std::size_t> lengths, kept;
        int assertions;
    } const cases[] = {
        {{40000, 25533}, {40000, 25533}, 0},   {{40000, 25534}, {40000, 25533}, 1},
        {{40000, 40000}, {40000, 25533}, 1},   {{65531, 3}, {65531, 2}, 1},
        {{65531, 2, 0}, {65531, 1, 0}, 1},     {{40000, 40000, 1000, 7}, {40000, 25531, 0, 0}, 1},
        {{0, 65531, 65531}, {0, 65531, 1}, 1},
    };
    const auto previous = KYRN_setAssertHandler(CountAssertion);
    for (const auto& c : cases) {
        std::vector<TypeParam> values;
        std::size_t total = 0;
        for (std::size_t i = 0; i < c.lengths.size(); ++i) {
            values.emplace_back(std::string(c.lengths[i], static_cast<char>('a' + i)).c_str());
            total += c.kept[i] + 1;
        }
        const auto count = static_cast<unsigned>(values.size());
        assertions = 0;
        EXPECT_EQ(row.SizeGet(values.data(), 8, 2, count), total + 3);
        EXPECT_EQ(assertions, 0);
        GuardedBuffer stored(total + 3);
        EXPECT_EQ(row.Store(stored.data(), values.data(), 2, count), total + 3);
        EXPECT_EQ(assertions, c.assertions);
        EXPECT_EQ(stored.data()[1] * 256u + stored.data()[2], total);
        std::vector<TypeParam> loaded(count);
        EXPECT_EQ(row.Load(loaded.data(), stored.data(), 2, count), total + 3);
        for (unsigned i = 0; i < count; ++i) {
            EXPECT_EQ(loaded[i].Len(), c.kept[i]);
            EXPECT_EQ(std::string(values[i].StrGet()).substr(0, c.kept[i]), Text(loaded[i]));
        }
        EXPECT_EQ(row.SizeGet(stored.data(), 2, 1, count), total + 3);
    }
    KYRN_setAssertHandler(previous);
}

TYPED_TEST(DictionaryStringTest, MoreValuesThanTheHeaderHolds) {
    const KyTypeTab& row = RowOf<TypeParam>();
    std::vector<TypeParam> values(70000);
    values[0] = "x";
    values[69999] = "y";
    const auto previous = KYRN_setAssertHandler(CountAssertion);
    assertions = 0;
    const auto bytes = Stored(values, 1);
    KYRN_setAssertHandler(previous);
    EXPECT_EQ(assertions, 1);
    EXPECT_EQ(bytes.size(), 65538u);
    std::vector<TypeParam> loaded(70000, TypeParam("old"));
    EXPECT_EQ(row.Load(loaded.data(), bytes.data(), 1, 70000), 65538u);
    for (const TypeParam& value : loaded) ASSERT_TRUE(value.IsEmpty());
}

}  // namespace
