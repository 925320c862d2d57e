#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "dictionary_values.h"
#include "kybase.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

TYPED_TEST_SUITE(DictionaryStringTest, DictionaryStrings);

/// A persistent array or objects.
struct Source {
    void* at;
    unsigned char flag;
    unsigned length;
    unsigned count;
};

/// What Translate makes of the source in a destination against an inaccessible page. `length` 0: as many bytes as
/// `room`, without saying so. Of what it does not write all has to be zero, or, where it knows no length, untouched.
template <class Self>
std::string Translated(unsigned char flag, unsigned length, std::size_t room, const Source& src) {
    constexpr unsigned char fill = 0xA5;
    GuardedBuffer dst(length != 0 ? length : room);
    std::memset(dst.data(), fill, dst.size());
    const unsigned written = RowOf<Self>().Translate(dst.data(), flag, length, src.at, src.flag, src.length, src.count);
    EXPECT_LE(written, dst.size());
    for (std::size_t i = written; i < dst.size(); ++i) EXPECT_EQ(dst.data()[i], length != 0 ? 0 : fill) << i;
    return Hex(dst.data(), written);
}

template <class Self>
std::vector<Self> Values(const std::vector<std::string>& texts) {
    std::vector<Self> values;
    for (const std::string& text : texts) values.emplace_back(text.c_str());
    return values;
}

// --- memory to persistent ---

struct Golden {
    std::vector<std::string> texts;
    const char* native;
    const char* reversed;
};

// Frozen: what databases hold.
const Golden kGolden[] = {
    {{}, "40 00 00", "40 00 00"},
    {{""}, "40 01 00 00", "40 00 01 00"},
    {{"abc"}, "40 04 00 61 62 63 00", "40 00 04 61 62 63 00"},
    {{"\xC8\xDE"}, "40 03 00 E0 DF 00", "40 00 03 E0 DF 00"},
    {{"abc", "", "\xC8"}, "40 07 00 61 62 63 00 00 E0 00", "40 00 07 61 62 63 00 00 E0 00"},
};

TYPED_TEST(DictionaryStringTest, TranslateFromMemoryGivesAsMuchOfTheArrayAsFits) {
    for (const Golden& golden : kGolden) {
        auto values = Values<TypeParam>(golden.texts);
        const Source source = {values.data(), 8, 0, static_cast<unsigned>(values.size())};
        for (const unsigned char flag : Flags{0x00, 0x01, 0x02, 0x81, 0x82}) {
            const auto array = Bytes((flag & 15) == 2 ? golden.reversed : golden.native);
            const std::string all = Hex(array.data(), array.size());
            EXPECT_EQ(Translated<TypeParam>(flag, 0, array.size(), source), all);
            for (unsigned length = 1; length < array.size() + 12; ++length) {
                const std::string fitting = Hex(array.data(), std::min<std::size_t>(length, array.size()));
                EXPECT_EQ(Translated<TypeParam>(flag, length, 0, source), fitting) << length;
            }
        }
    }
}

TYPED_TEST(DictionaryStringTest, TranslateOfNoneIsAnEmptyArray) {
    for (const unsigned char flag : Flags{1, 2, 8}) {
        const Source none = {nullptr, flag, 0, 0};
        EXPECT_EQ(Translated<TypeParam>(1, 0, 3, none), "40 00 00");
        EXPECT_EQ(Translated<TypeParam>(2, 9, 0, none), "40 00 00");
        EXPECT_EQ(Translated<TypeParam>(2, 2, 0, none), "40 00");
    }
}

int assertions = 0;
void CountAssertion(const char*, const char*, int) { ++assertions; }

TYPED_TEST(DictionaryStringTest, TranslateShortensArraysThatAreTooLongAsStoreDoes) {
    auto values = Values<TypeParam>({std::string(40000, 'a'), std::string(40000, 'b')});
    const Source source = {values.data(), 8, 0, 2};
    const auto previous = KYRN_setAssertHandler(CountAssertion);
    assertions = 0;
    const auto array = Stored(values, 2);
    EXPECT_EQ(Translated<TypeParam>(2, 0, array.size(), source), Hex(array.data(), array.size()));
    EXPECT_EQ(Translated<TypeParam>(2, 253, 0, source), Hex(array.data(), 253)) << "the length is that of all";
    KYRN_setAssertHandler(previous);
    EXPECT_EQ(assertions, 3);
}

// --- persistent to persistent ---

struct Pair {
    const char* native;
    const char* reversed;
};

const Pair kArrays[] = {
    {"40 00 00", "40 00 00"},
    {"40 07 00 61 62 63 00 00 E0 00", "40 00 07 61 62 63 00 00 E0 00"},
    {"01 03 00 C8 DE 00", "01 00 03 C8 DE 00"},
    {"80 04 00 4E 4F 50 00", "80 00 04 4E 4F 50 00"},
    {"FF 04 00 4E 4F 50 00", "FF 00 04 4E 4F 50 00"},
    {"40 03 00 61 62 63", "40 00 03 61 62 63"},
};

TYPED_TEST(DictionaryStringTest, TranslateBetweenPersistentFormsKeepsMarkerAndTexts) {
    for (const Pair& pair : kArrays) {
        for (const unsigned char from : Flags{0x01, 0x02, 0x81, 0x82}) {
            GuardedBuffer source(Bytes((from & 15) == 2 ? pair.reversed : pair.native));
            const auto size = static_cast<unsigned>(source.size());
            for (const unsigned char to : Flags{0x01, 0x02, 0x81, 0x82}) {
                const auto array = Bytes((to & 15) == 2 ? pair.reversed : pair.native);
                for (const unsigned given : {0U, size}) {
                    const Source src = {source.data(), from, given, 1};
                    EXPECT_EQ(Translated<TypeParam>(to, 0, size, src), Hex(array.data(), size));
                    for (unsigned length = 1; length < size + 12; ++length) {
                        const std::string fitting = Hex(array.data(), std::min(length, size));
                        EXPECT_EQ(Translated<TypeParam>(to, length, 0, src), fitting) << length;
                    }
                }
            }
        }
    }
}

TYPED_TEST(DictionaryStringTest, TranslateTakesNothingBehindTheArray) {
    auto bytes = Bytes("40 00 02 61 00 EE EE");
    EXPECT_EQ(Translated<TypeParam>(1, 9, 0, {bytes.data(), 2, 7, 1}), "40 02 00 61 00");
    EXPECT_EQ(Translated<TypeParam>(2, 0, 5, {bytes.data(), 2, 7, 1}), "40 00 02 61 00");
}

TYPED_TEST(DictionaryStringTest, TranslateTakesTheWholeArrayWhateverTheCount) {
    auto bytes = Bytes("40 04 00 61 00 62 00");
    for (const unsigned count : {1U, 2U, 9U}) {
        EXPECT_EQ(Translated<TypeParam>(2, 0, 7, {bytes.data(), 1, 7, count}), "40 00 04 61 00 62 00");
    }
}

TYPED_TEST(DictionaryStringTest, TranslateLeavesCutArraysCut) {
    for (const Pair& pair : kArrays) {
        const auto native = Bytes(pair.native);
        const auto reversed = Bytes(pair.reversed);
        for (unsigned length = 1; length < native.size(); ++length) {
            SCOPED_TRACE(length);
            const std::size_t kept = length < 3 ? 0 : length;
            GuardedBuffer part(std::span(native.data(), length));
            const Source src = {part.data(), 1, length, 1};
            for (const unsigned room : {0U, 64U}) {
                EXPECT_EQ(Translated<TypeParam>(1, room, 64, src), Hex(native.data(), kept));
                EXPECT_EQ(Translated<TypeParam>(2, room, 64, src), Hex(reversed.data(), kept));
            }
            GuardedBuffer other(std::span(reversed.data(), length));
            EXPECT_EQ(Translated<TypeParam>(1, 0, 64, {other.data(), 2, length, 1}), Hex(native.data(), kept));
        }
    }
}

TYPED_TEST(DictionaryStringTest, TranslateInPlace) {
    const KyTypeTab& row = RowOf<TypeParam>();
    for (const Pair& pair : kArrays) {
        GuardedBuffer buffer(Bytes(pair.native));
        const auto size = static_cast<unsigned>(buffer.size());
        for (const unsigned length : {0U, size}) {
            EXPECT_EQ(row.Translate(buffer.data(), 1, length, buffer.data(), 1, size, 1), size);
            EXPECT_EQ(Hex(buffer.data(), size), pair.native);
            EXPECT_EQ(row.Translate(buffer.data(), 2, length, buffer.data(), 1, size, 1), size);
            EXPECT_EQ(Hex(buffer.data(), size), pair.reversed);
            EXPECT_EQ(row.Translate(buffer.data(), 1, length, buffer.data(), 2, 0, 1), size);
            EXPECT_EQ(Hex(buffer.data(), size), pair.native);
        }
    }
}

// --- into memory ---

TYPED_TEST(DictionaryStringTest, TranslateInMemoryIsAnAssignment) {
    auto values = Values<TypeParam>({"abc", "", "\xC8"});
    values[0].ModeSet(0x40);
    std::vector<TypeParam> copies(3, TypeParam("old"));
    EXPECT_EQ(RowOf<TypeParam>().Translate(copies.data(), 8, 1, values.data(), 8, 1, 3), 48u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(Text(copies[i]), Text(values[i]));
        EXPECT_EQ(copies[i].ModeGet(), 0);
    }
    EXPECT_EQ(RowOf<TypeParam>().Translate(nullptr, 8, 0, nullptr, 8, 0, 0), 0u);
    EXPECT_EQ(RowOf<TypeParam>().Translate(copies.data(), 8, 0, copies.data(), 8, 0, 3), 48u);
    EXPECT_EQ(Text(copies[0]), "abc") << "onto themselves";
}

TYPED_TEST(DictionaryStringTest, TranslateIntoMemoryLoads) {
    struct {
        const char* bytes;
        unsigned char flag;
        const char* text;
        unsigned char mode;
    } const cases[] = {
        {"40 03 00 E0 DF 00", 0x01, "\xC8\xDE", 0},    {"40 00 03 E0 DF 00", 0x82, "\xC8\xDE", 0},
        {"01 03 00 E0 DF 00", 0x81, "\xE0\xDF", 0},    {"80 00 03 E0 DF 00", 0x02, "\xE0\xDF", 0x80},
        {"FF 03 00 E0 DF 00", 0x01, "\xE0\xDF", 0x80},
    };
    for (const auto& c : cases) {
        GuardedBuffer source(Bytes(c.bytes));
        for (const unsigned given : {0U, 6U}) {
            TypeParam value("old");
            EXPECT_EQ(RowOf<TypeParam>().Translate(&value, 8, 0, source.data(), c.flag, given, 1), 6u);
            EXPECT_EQ(Text(value), c.text) << c.bytes;
            EXPECT_EQ(value.ModeGet(), c.mode) << c.bytes;
        }
    }
    GuardedBuffer two(Bytes("40 04 00 61 00 62 00"));
    TypeParam one("old");
    EXPECT_EQ(RowOf<TypeParam>().Translate(&one, 8, 0, two.data(), 1, 7, 1), 5u) << "one of two";
    EXPECT_EQ(Text(one), "a");
}

TYPED_TEST(DictionaryStringTest, TranslateIntoMemoryLoadsWhatIsThereOfCutArrays) {
    const auto bytes = Bytes("40 00 07 61 62 63 00 00 E0 00");
    for (unsigned length = 1; length <= bytes.size(); ++length) {
        SCOPED_TRACE(length);
        GuardedBuffer part(std::span(bytes.data(), length));
        TypeParam values[4] = {"old", "old", "old", "old"};
        EXPECT_EQ(RowOf<TypeParam>().Translate(values, 8, 0, part.data(), 2, length, 4), length);
        EXPECT_EQ(Text(values[0]), std::string("abc").substr(0, length > 3 ? length - 3 : 0));
        EXPECT_EQ(Text(values[1]), "");
        EXPECT_EQ(Text(values[2]), length > 8 ? "\xC8" : "");
        EXPECT_EQ(Text(values[3]), "");
    }
}

// --- there and back ---

TYPED_TEST(DictionaryStringTest, TranslateThroughBothByteOrdersGivesTheTextsBack) {
    const KyTypeTab& row = RowOf<TypeParam>();
    std::mt19937 random(7);
    for (int i = 0; i < 1000; ++i) {
        std::vector<TypeParam> values(1 + random() % 4);
        for (TypeParam& value : values) {
            std::string text;
            for (auto n = random() % 300; n != 0; --n) {
                const auto c = static_cast<char>(random() % 255 + 1);
                text += c == '\xAC' || c == '\xEC' ? 'x' : c;  // these come back as others
            }
            value = text.c_str();
        }
        const auto count = static_cast<unsigned>(values.size());
        const auto size = row.SizeGet(values.data(), 8, 1, count);
        GuardedBuffer native(size);
        GuardedBuffer reversed(size);
        ASSERT_EQ(row.Translate(native.data(), 1, 0, values.data(), 8, 0, count), size);
        ASSERT_EQ(row.Translate(reversed.data(), 2, size, native.data(), 1, size, count), size);
        const auto stored = Stored(values, 2);
        ASSERT_EQ(Hex(reversed.data(), size), Hex(stored.data(), stored.size()));
        std::vector<TypeParam> loaded(count);
        ASSERT_EQ(row.Translate(loaded.data(), 8, 0, reversed.data(), 2, size, count), size);
        for (std::size_t v = 0; v < count; ++v) ASSERT_EQ(Text(loaded[v]), Text(values[v]));
    }
}

}  // namespace
