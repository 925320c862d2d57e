#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "kyistring.h"
#include "oracle/slow_dictionary.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

using MapFunction = unsigned(unsigned char*, const unsigned char*, unsigned);

const unsigned char* Bytes(const char* text) { return reinterpret_cast<const unsigned char*>(text); }

/// What is written and what is returned: "5B 54 00 = 3".
std::string Mapped(MapFunction* map, const char* text, unsigned max) {
    unsigned char out[64];
    std::memset(out, 0xEE, sizeof out);
    const unsigned result = map(out, Bytes(text), max);
    std::size_t written = sizeof out;
    while (written > 0 && out[written - 1] == 0xEE) --written;
    return Hex(out, written) + " = " + std::to_string(result);
}

TEST(MapString, MapsEveryByteOfDiskForm) {
    EXPECT_EQ(Mapped(_KyIMapString, "aAbB", 0), "4E 54 5A 5B 00 = 5");
    EXPECT_EQ(Mapped(_KyCaseIMapString, "aAbB", 0), "54 54 5B 5B 00 = 5");
    EXPECT_EQ(Mapped(_KyIMapString, "\xE0", 0), "4E 00 = 2") << "the accent is dropped";
    EXPECT_EQ(Mapped(_KyIMapString, "\x8C\x9C\xDF", 0), "90 69 8A 64 9C 9C 00 = 7");
    EXPECT_EQ(Mapped(_KyCaseIMapString, "\x8C\x9C\xDF", 0), "90 69 90 69 9D 9D 00 = 7");
    EXPECT_EQ(Mapped(_KyIMapString, "", 0), "00 = 1");
    EXPECT_EQ(Mapped(_KyIMapString, "1*?\\", 0), "31 2A 3F 43 00 = 5");
}

TEST(MapString, StopsAtTheLimit) {
    EXPECT_EQ(Mapped(_KyIMapString, "aAbB", 2), "4E 54 = 2");
    EXPECT_EQ(Mapped(_KyIMapString, "aAbB", 4), "4E 54 5A 5B = 4");
    EXPECT_EQ(Mapped(_KyIMapString, "aAbB", 5), "4E 54 5A 5B 00 = 4") << "a terminator that fits isn't counted";
    EXPECT_EQ(Mapped(_KyIMapString, "a\xDF", 2), "4E 9C = 2") << "between the keys of one character";
    EXPECT_EQ(Mapped(_KyIMapString, "a\xDF", 3), "4E 9C 9C = 3");
    EXPECT_EQ(Mapped(_KyCaseIMapString, "", 7), "00 = 0");
}

TEST(MapString, NullArguments) {
    unsigned char out[4] = {9, 9, 9, 9};
    for (MapFunction* map : {_KyIMapString, _KyCaseIMapString, _KyCaseIDeMapString}) {
        EXPECT_EQ(map(nullptr, Bytes("a"), 0), 0u);
        EXPECT_EQ(map(out, nullptr, 0), 0u);
        EXPECT_EQ(map(nullptr, nullptr, 3), 0u);
    }
    EXPECT_EQ(out[0], 9);
}

// --- back ---

/// Key, what follows it, the byte, and whether both were used.
TEST(DeMapByte, Pairs) {
    struct {
        unsigned char key, next, byte;
        int used;
    } const cases[] = {
        {0x90, 0x69, 0x8C, 1},                         // lowest of two
        {0x9D, 0x9D, 0xDF, 1}, {0xB3, 0x01, 0x9F, 1},  // lowest of two
        {0xB3, 0x02, 0xDD, 1}, {0x54, 0x03, 0xC0, 1}, {0x54, 0x01, 0xC4, 1}, {0x54, 0x06, 'A', 0},
        {0x54, 0x00, 'A', 0},  {0x90, 0x54, 'O', 0},  {0x9D, 0x54, 'S', 0},  {0x5E, 0x01, 0xC7, 1},
        {0x89, 0x00, 0xD1, 0}, {0x05, 0x03, 0x05, 0}, {0x3F, 0x00, 0x3F, 0}, {0x40, 0x00, 0x40, 0},
        {0x42, 0x00, '[', 0},  {0x4C, 0x00, 0xD7, 0}, {0x4D, 0x00, 0xF7, 0}, {0xBD, 0x00, 0xC5, 0},
        {0xB3, 0x00, 'Y', 0},  {0xB4, 0x00, 0xA4, 0}, {0xCF, 0x00, 0xBF, 0}, {0xE0, 0x00, 0x80, 0},
        {0xFF, 0x00, 0x9F, 0}, {0xD5, 0x00, 0xD5, 0},  // no byte has it
        {0x4F, 0x00, 0x4F, 0},
    };
    for (const auto& c : cases) {
        int used = 7;
        EXPECT_EQ(_KyCaseIDeMapByte(c.key, c.next, used), c.byte) << int{c.key} << ' ' << int{c.next};
        EXPECT_EQ(used, c.used) << int{c.key} << ' ' << int{c.next};
    }
}

TEST(DeMapByte, GivesBackAByteOfTheSameKeyForEveryByte) {
    for (unsigned c = 1; c < 256; ++c) {
        unsigned char extra = 0;
        const unsigned char key = _KyCaseIMapByte(static_cast<unsigned char>(c), extra);
        int used = 7;
        const unsigned char alone = _KyCaseIDeMapByte(key, 0, used);
        EXPECT_EQ(used, 0) << c;
        unsigned char extraOfAlone = 0;
        EXPECT_EQ(_KyCaseIMapByte(alone, extraOfAlone), key) << c;
        EXPECT_LE(alone, c >= 0xA0 && c < 0xC0 ? 0xFF : c) << "lowest index of the tables";

        if (extra == 0) continue;
        const unsigned char both = _KyCaseIDeMapByte(key, extra, used);
        EXPECT_EQ(used, 1) << c;
        EXPECT_LE(both, c);
        EXPECT_EQ(_KyCaseIMapByte(both, extraOfAlone), key) << c;
        EXPECT_EQ(extraOfAlone, extra) << c;
    }
}

/// The rules one after the other, over every key and every byte behind it.
TEST(DeMapByte, FollowsTheOrderOfItsRules) {
    const auto expected = [](unsigned key, unsigned next, int& used) -> unsigned {
        const auto keyOf = [](unsigned c, unsigned char& extra) {
            return unsigned{_KyCaseIMapByte(static_cast<unsigned char>(c), extra)};
        };
        unsigned char extra = 0;
        used = 1;
        for (unsigned c = 0; c < 256 && next != 0; ++c) {
            if (keyOf(c, extra) == key && extra == next) return c;
        }
        used = 0;
        if (key < 0x40) return key;
        for (unsigned c = 0x40; c < 0x80; ++c) {
            if (keyOf(c, extra) == key) return c;
        }
        for (unsigned c = 0xC0; c < 0x100; ++c) {
            if (keyOf(c, extra) == key) return c;
        }
        if (key >= 0xE0) return key - 0x60;
        if (key >= 0xB0 && key <= 0xCF) return key - 0x10;
        return key;
    };
    for (unsigned key = 0; key < 256; ++key) {
        for (unsigned next = 0; next < 256; ++next) {
            int used = 7;
            int expectedUsed = 7;
            const unsigned byte =
                _KyCaseIDeMapByte(static_cast<unsigned char>(key), static_cast<unsigned char>(next), used);
            ASSERT_EQ(byte, expected(key, next, expectedUsed)) << key << ' ' << next;
            ASSERT_EQ(used, expectedUsed) << key << ' ' << next;
        }
    }
}

TEST(DeMapString, TakesKeysBack) {
    EXPECT_EQ(Mapped(_KyCaseIDeMapString, "\x54\x5B", 0), "41 42 00 = 3");
    EXPECT_EQ(Mapped(_KyCaseIDeMapString, "\x90\x69\x9D\x9D\x90", 0), "8C DF 4F 00 = 4");
    EXPECT_EQ(Mapped(_KyCaseIDeMapString, "\x54\x5B", 1), "41 = 1");
    EXPECT_EQ(Mapped(_KyCaseIDeMapString, "\x54\x5B", 2), "41 42 = 2");
    EXPECT_EQ(Mapped(_KyCaseIDeMapString, "\x54\x5B", 3), "41 42 00 = 2");
    EXPECT_EQ(Mapped(_KyCaseIDeMapString, "", 0), "00 = 1");
}

TEST(DeMapString, TextsOfOneKeyComeBackAsOneText) {
    for (const char* text : {"abc",
                             "Stra\xDF"
                             "e",
                             "\xC9t\xE9", "[x]~", "C\x9Cur", "0123 \x05"}) {
        unsigned char key[64];
        unsigned char back[64];
        unsigned char again[64];
        const unsigned length = _KyCaseIMapString(key, Bytes(text), 0);
        _KyCaseIDeMapString(back, key, 0);
        EXPECT_EQ(_KyCaseIMapString(again, back, 0), length) << text;
        EXPECT_EQ(Hex(again, length), Hex(key, length)) << text;
    }
}

// --- lengths ---

TEST(MapLength, OfObjects) {
    const KyIString values[] = {"abc", "",
                                "Stra\xDE"
                                "e"};
    EXPECT_EQ(_KyIMapLength(values, 8, 3), 4u + 1u + 8u);
    EXPECT_EQ(_KyIMapLength(values, 8, 1), 4u);
    EXPECT_EQ(_KyIMapLength(values, 8, 0), 0u);
    KyCaseIString modes[] = {"\xDE", "\xDE", "\xDE", "\xDF"};
    modes[1].ModeSet(0x80);
    modes[2].ModeSet(0x40);
    modes[3].ModeSet(0x60);
    EXPECT_EQ(_KyCaseIMapLength(modes, 8, 4), 3u + 2u + 2u + 3u);
}

TEST(MapLength, OfPersistentForms) {
    const auto disk = ::Bytes("40 05 00 61 DF 00 62 00");
    EXPECT_EQ(_KyIMapLength(disk.data(), 1, 2), 4u + 2u);
    EXPECT_EQ(_KyCaseIMapLength(disk.data(), 1, 2), 4u + 2u);
    const auto plain = ::Bytes("01 00 05 61 DE 00 62 00");
    EXPECT_EQ(_KyIMapLength(plain.data(), 2, 2), 4u + 2u);
    const auto key = ::Bytes("80 00 05 61 DE 00 62 00");
    EXPECT_EQ(_KyIMapLength(key.data(), 2, 2), 5u) << "as it is stored";
    EXPECT_EQ(_KyCaseIMapLength(key.data(), 2, 7), 5u);
    const auto otherKey = ::Bytes("FF 03 00 61 DF 00");
    EXPECT_EQ(_KyCaseIMapLength(otherKey.data(), 1, 1), 3u);
}

TEST(MapLength, ReadsNoMoreThanTheHeaderTells) {
    const auto bytes = ::Bytes("40 03 00 61 DF 62");
    GuardedBuffer guarded(bytes);
    EXPECT_EQ(_KyIMapLength(guarded.data(), 1, 1), 5u);
    EXPECT_EQ(_KyIMapLength(guarded.data(), 1, 4), 8u) << "values that aren't there are empty";
}

TEST(Sizes, OfStoredValuesAndObjects) {
    const auto stored = ::Bytes("40 05 00 61 DF 00 62 00");
    EXPECT_EQ(_KyISizeNoMem(stored.data(), 1, 0, 2), 5u);
    EXPECT_EQ(_KyCaseISizeNoMem(stored.data(), 1, 2, 2), 5u);
    EXPECT_EQ(_KyISizeNoMem(stored.data(), 2, 1, 2), 0x500u) << "the order of `format`";
    EXPECT_EQ(_KyISizeNoMem(stored.data(), 1, 0x80, 2), 6u);
    EXPECT_EQ(_KyCaseISizeNoMem(stored.data(), 1, 0x81, 2), 6u);

    const KyIString values[] = {"abc", "",
                                "Stra\xDE"
                                "e"};
    EXPECT_EQ(_KyISizeMem(values, 8, 1, 3), 4u + 1u + 7u);
    EXPECT_EQ(_KyISizeMem(values, 8, 0x81, 3), 4u + 1u + 8u);
    EXPECT_EQ(_KyCaseISizeMem(values, 8, 2, 0), 0u);
}

}  // namespace
