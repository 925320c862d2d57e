#include "kymultibyte.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "multibyte_texts.h"
#include "oracle/slow_utf8.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

constexpr unsigned short kUntouched = 0xEEEE;

TEST(Utf8Character, EveryUnitIsWrittenAsTheSlowTwinWritesIt) {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const auto c = static_cast<unsigned short>(unit);
        const std::string expected = SlowUtf8(unit);
        char bytes[4] = {'\x7E', '\x7E', '\x7E', '\x7E'};
        const int length = ky_wctomb(bytes, c);
        ASSERT_EQ(length, static_cast<int>(expected.size())) << unit;
        ASSERT_EQ(std::string(bytes, expected.size()), expected) << unit;
        ASSERT_EQ(bytes[length], '\x7E') << unit;
        ASSERT_EQ(ky_len4wc(c), length) << unit;
        ASSERT_EQ(KyWChar2MultiByte(bytes, static_cast<wchar_t>(unit | 0x10000)), length) << "the low 16 bits";
        ASSERT_EQ(std::string(bytes, expected.size()), expected) << unit;
    }
}

TEST(Utf8Character, EverySequenceOfOneToThreeBytesIsReadAsTheSlowTwinReadsIt) {
    // What is no character's encoding is an error.
    constexpr std::int32_t kNone = -1;
    std::vector<std::int32_t> character[4];
    for (int length = 1; length <= 3; ++length) character[length].assign(std::size_t{1} << 8 * length, kNone);
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const std::string bytes = SlowUtf8(unit);
        std::size_t index = 0;
        for (const char byte : bytes) index = index << 8 | static_cast<unsigned char>(byte);
        character[bytes.size()][index] = static_cast<std::int32_t>(unit);
    }
    GuardedBuffer memory(3);
    std::size_t wrong = 0;
    for (unsigned n = 1; n <= 3; ++n) {
        unsigned char* text = memory.data() + 3 - n;
        for (std::size_t sequence = 0; sequence < std::size_t{1} << 8 * n; ++sequence) {
            for (unsigned i = 0; i < n; ++i) text[i] = static_cast<unsigned char>(sequence >> 8 * (n - 1 - i));
            int length = -1;
            std::int32_t value = kNone;
            for (unsigned taken = 1; taken <= n && value == kNone; ++taken) {
                value = character[taken][sequence >> 8 * (n - taken)];
                if (value != kNone) length = static_cast<int>(taken);
            }
            unsigned short out = kUntouched;
            const int result = ky_mbtowc(&out, reinterpret_cast<const char*>(text), n);
            wrong += result != length || out != (value == kNone ? kUntouched : value);
        }
    }
    EXPECT_EQ(wrong, 0u);
}

TEST(Utf8Character, Kept_LongerFormsAreCutTo16Bits) {
    const struct {
        const char* bytes;
        unsigned short low;
    } cases[] = {
        {"F0 9F 98 80", 0xF600},       {"F0 90 80 80", 0x0000},       {"F4 8F BF BF", 0xFFFF},
        {"F7 BF BF BF", 0xFFFF},       {"F8 88 80 80 80", 0x0000},    {"FB BF BF BF BF", 0xFFFF},
        {"FC 84 80 80 80 81", 0x0001}, {"FD BF BF BF BF BF", 0xFFFF},
    };
    for (const auto& [hex, low] : cases) {
        const std::string bytes = BytesOf(hex);
        GuardedText text(bytes);
        unsigned short out = kUntouched;
        EXPECT_EQ(ky_mbtowc(&out, text.Get(), bytes.size()), static_cast<int>(bytes.size())) << hex;
        EXPECT_EQ(out, low) << hex;
    }
    std::mt19937 random(4711);
    for (int i = 0; i < 20000; ++i) {
        const unsigned value = static_cast<unsigned>(random()) >> random() % 16 >> 1;
        const std::string bytes = SlowUtf8(value);
        unsigned short out = kUntouched;
        ASSERT_EQ(ky_mbtowc(&out, bytes.data(), bytes.size()), static_cast<int>(bytes.size())) << value;
        ASSERT_EQ(out, value & 0xFFFF);
    }
}

TEST(Utf8Character, EveryBrokenSequenceIsRefused) {
    const char* cases[] = {
        "80",
        "BF",
        "C0 80",
        "C0 AF",
        "C1 BF",
        "E0 80 80",
        "E0 9F BF",
        "F0 80 80",
        "F0 8F BF",
        "C3",
        "C3 28",
        "C3 C3",
        "C3 00",
        "C3 FF",
        "E2 82",
        "E2 28 A1",
        "E2 82 28",
        "E2 82 FF",
        "E2 82 00",
        "F0 8F BF BF",
        "F0 80 80 80",
        "F0 9F 98",
        "F0 28 98",
        "F0 9F 28",
        "F8 88 80",
        "F8 87 BF BF BF",
        "FC 83 BF BF BF BF",
        "FC 84 80 80 80 28",
        "FE",
        "FF",
        "FE 80",
        "FF BF BF",
        "80 80 80 80 80",
        "80 80 80 80 80 80",
        "FE 83 BF BF BF BF BF",
        "80 41",
        "BF C3 A9",
    };
    for (const char* hex : cases) {
        const std::string bytes = BytesOf(hex);
        GuardedText text(bytes);
        unsigned short out = kUntouched;
        EXPECT_EQ(ky_mbtowc(&out, text.Get(), bytes.size()), -1) << hex;
        EXPECT_EQ(out, kUntouched) << hex;
        EXPECT_EQ(KyMultiByte2WChar(&out, text.Get(), bytes.size()), -1) << hex;

        GuardedText behind("ab" + bytes);
        unsigned short units[8] = {};
        EXPECT_EQ(KyMultiByteStr2WCharStr(units, 8, behind.Get(), static_cast<int>(bytes.size()) + 2), -1) << hex;
        EXPECT_EQ(units[1], 'b') << hex;
        KyString s;
        EXPECT_EQ(KyMBS2KyString(behind.Get(), s, static_cast<int>(bytes.size()) + 2), -1) << hex;
        EXPECT_EQ(Text16(s), u"ab") << hex;
    }
}

TEST(Utf8Character, AFormThatIsLongerThanNeededIsRefused) {
    for (int length = 2; length <= 6; ++length) {
        const int bitsOfShorter = SlowUtf8Bits(length - 1);
        const unsigned largestOfShorter = (1u << bitsOfShorter) - 1;
        for (const unsigned value : {0u, 1u, 0x41u, largestOfShorter}) {
            if (value > largestOfShorter) continue;
            const std::string bytes = SlowUtf8(value, length);
            EXPECT_EQ(ky_mbtowc(nullptr, bytes.data(), bytes.size()), -1) << HexOf(bytes);
        }
        const std::string bytes = SlowUtf8(largestOfShorter + 1, length);
        EXPECT_EQ(ky_mbtowc(nullptr, bytes.data(), bytes.size()), length) << HexOf(bytes);
    }
}

TEST(Utf8Character, NothingIsReadBehindTheGivenBytes) {
    for (int length = 2; length <= 6; ++length) {
        const std::string whole = SlowUtf8(1u << (SlowUtf8Bits(length) - 1), length);
        for (std::size_t n = 1; n < whole.size(); ++n) {
            GuardedText cut(whole.substr(0, n));
            unsigned short out = kUntouched;
            EXPECT_EQ(ky_mbtowc(&out, cut.Get(), n), -1);
            EXPECT_EQ(out, kUntouched);
        }
        EXPECT_EQ(ky_mbtowc(nullptr, (whole + "rest").data(), whole.size() + 4), length);
    }
}

TEST(Utf8Character, EdgeCases) {
    unsigned short out = kUntouched;
    EXPECT_EQ(ky_mbtowc(&out, nullptr, 0), 0) << "null is looked at before the length";
    EXPECT_EQ(ky_mbtowc(&out, nullptr, 5), 0);
    GuardedText nothing("");
    EXPECT_EQ(ky_mbtowc(&out, nothing.Get(), 0), -1);
    EXPECT_EQ(out, kUntouched);
    EXPECT_EQ(ky_mbtowc(&out, "\xE2\x82\xAC", 3), 3);
    EXPECT_EQ(out, 0x20AC);
    EXPECT_EQ(ky_mbtowc(&out, "", 1), 1) << "a zero byte is a character";
    EXPECT_EQ(out, 0);
    EXPECT_EQ(ky_mbtowc(&out, "\xED\xA0\x80", 3), 3) << "half of a pair is a 16-bit character like any other";
    EXPECT_EQ(out, 0xD800);
    EXPECT_EQ(ky_mbtowc(nullptr, "a", SIZE_MAX), 1);

    EXPECT_EQ(ky_wctomb(nullptr, 'a'), 0);
    EXPECT_EQ(KyWChar2MultiByte(nullptr, L'a'), 0);
    EXPECT_EQ(ky_len4wc(0x7F), 1);
    EXPECT_EQ(ky_len4wc(0x80), 2);
    EXPECT_EQ(ky_len4wc(0x7FF), 2);
    EXPECT_EQ(ky_len4wc(0x800), 3);
}

TEST(Utf8Units, StoresTheFirstAndCountsAll) {
    const std::string text("a\0\xC3\xA9\xE2\x82\xAC", 7);
    const std::vector<unsigned short> units = {'a', 0, 0xE9, 0x20AC};
    for (int outMax = -1; outMax <= 6; ++outMax) {
        GuardedText in(text);
        unsigned short out[6];
        std::fill_n(out, 6, kUntouched);
        EXPECT_EQ(KyMultiByteStr2WCharStr(out, outMax, in.Get(), 7), 4) << outMax;
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(out[i], i < std::min(outMax, 4) ? units[static_cast<std::size_t>(i)] : kUntouched) << outMax;
        }
    }
    EXPECT_EQ(KyMultiByteStr2WCharStr(nullptr, 0, text.data(), 7), 4);
    EXPECT_EQ(KyMultiByteStr2WCharStr(nullptr, 0, text.data(), 2), 2);
    EXPECT_EQ(KyMultiByteStr2WCharStr(nullptr, 0, text.data(), 3), -1) << "cut off";
    EXPECT_EQ(KyMultiByteStr2WCharStr(nullptr, 0, text.data(), 0), 0);
    EXPECT_EQ(KyMultiByteStr2WCharStr(nullptr, 0, text.data(), -1), 0);
    EXPECT_EQ(KyMultiByteStr2WCharStr(nullptr, 0, nullptr, 5), 0);
}

}  // namespace
