#include "kydiskform.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "kyi18n.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

using Conversion = unsigned char (*)(unsigned char);

/// The results for all 256 bytes.
std::array<unsigned char, 256> AllOf(Conversion convert) {
    std::array<unsigned char, 256> all{};
    for (unsigned c = 0; c < 256; ++c) all[c] = convert(static_cast<unsigned char>(c));
    return all;
}

/// FNV-1a, 64 bits.
std::uint64_t Checksum(const std::array<unsigned char, 256>& bytes) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (const unsigned char byte : bytes) sum = (sum ^ byte) * 0x100000001B3;
    return sum;
}

unsigned char* Guarded(GuardedBuffer& memory, const std::vector<unsigned char>& bytes) {
    std::memcpy(memory.data(), bytes.data(), bytes.size());
    return memory.data();
}

TEST(DiskForm, TablesAreFrozen) {
    EXPECT_EQ(Checksum(AllOf(_KyConvertToDiskFormat)), 0x6E27B3923B151679u);
    EXPECT_EQ(Checksum(AllOf(_KyConvertFromDiskFormat)), 0xE71798F2BAD17E0Du);
}

TEST(DiskForm, Rows) {
    const struct {
        unsigned char row;
        const char* toDisk;
        const char* fromDisk;
    } cases[] = {
        {0x80, "80 82 84 85 86 87 89 8B 8C 8D 8E 91 93 94 96 97", "80 A9 81 BE 82 83 84 85 AA 86 EB 87 88 89 8A FF"},
        {0x90, "98 9A 9B 9C 9D 9E A6 A9 AC AE B2 B3 B8 B9 D7 F7", "AC 8B EC 8C 8D FC 8E 8F 90 AF 91 92 93 94 95 EE"},
        {0xA0, "A0 C0 C2 C8 CA CB CE CF B4 81 88 A8 98 D9 DB 99", "A0 B8 BF BB BA BC 96 BD AB 97 F9 FB 98 F6 99 B0"},
        {0xE0, "C1 C3 E3 D0 F0 CD CC D3 D2 D5 F5 8A 9A DA 9F FF", "C8 C4 C0 E2 CC D4 D7 B5 C9 C5 C1 CD D9 D5 D1 DD"},
        {0xF0, "DE FE B7 B5 B6 BE AD BC BD AA BA AB 95 BB B1 8F", "E4 B7 CA C6 C2 EA CE 9F D6 CB C7 C3 CF B2 F1 EF"},
    };
    for (const auto& [row, toDisk, fromDisk] : cases) {
        EXPECT_EQ(Hex(&AllOf(_KyConvertToDiskFormat)[row], 16), toDisk);
        EXPECT_EQ(Hex(&AllOf(_KyConvertFromDiskFormat)[row], 16), fromDisk);
    }
    EXPECT_EQ(_KyConvertToDiskFormat(0x41), 0x41);
    EXPECT_EQ(_KyConvertToDiskFormat(0xA1), 0xC0);
    EXPECT_EQ(_KyConvertFromDiskFormat(0xC0), 0xA1);
}

TEST(DiskForm, AsciiStaysAndNothingElseBecomesAscii) {
    for (unsigned c = 0; c < 256; ++c) {
        const auto byte = static_cast<unsigned char>(c);
        if (c < 0x80) {
            EXPECT_EQ(_KyConvertToDiskFormat(byte), byte);
            EXPECT_EQ(_KyConvertFromDiskFormat(byte), byte);
        } else {
            EXPECT_GE(_KyConvertToDiskFormat(byte), 0x80) << c;
            EXPECT_GE(_KyConvertFromDiskFormat(byte), 0x80) << c;
        }
    }
}

TEST(DiskForm, Kept_TwoBytesDoNotComeBack) {
    using Pairs = std::vector<std::pair<int, int>>;
    std::multiset<int> written;
    Pairs changed;
    Pairs neverWritten;
    for (unsigned c = 0x80; c < 256; ++c) {
        const auto byte = static_cast<unsigned char>(c);
        written.insert(_KyConvertToDiskFormat(byte));
        const unsigned char back = _KyConvertFromDiskFormat(_KyConvertToDiskFormat(byte));
        if (back != byte) changed.emplace_back(byte, back);
    }
    std::vector<int> twice;
    for (unsigned c = 0x80; c < 256; ++c) {
        if (written.count(static_cast<int>(c)) == 2) twice.push_back(static_cast<int>(c));
        if (written.count(static_cast<int>(c)) == 0) {
            neverWritten.emplace_back(c, _KyConvertFromDiskFormat(static_cast<unsigned char>(c)));
        }
    }
    EXPECT_EQ(changed, (Pairs{{0xAC, 0x90}, {0xEC, 0x91}}));
    EXPECT_EQ(twice, (std::vector<int>{0x98, 0x9A}));
    EXPECT_EQ(neverWritten, (Pairs{{0x90, 0xAC}, {0x92, 0xEC}})) << "the way back takes every byte once";
}

/// HP Roman-8 from 0xA0 on, in Unicode; 0: no character.
constexpr unsigned short kRoman8FromA0[96] = {
    0x00A0, 0x00C0, 0x00C2, 0x00C8, 0x00CA, 0x00CB, 0x00CE, 0x00CF, 0x00B4, 0x02CB, 0x02C6, 0x00A8, 0x02DC, 0x00D9,
    0x00DB, 0x20A4, 0x00AF, 0x00DD, 0x00FD, 0x00B0, 0x00C7, 0x00E7, 0x00D1, 0x00F1, 0x00A1, 0x00BF, 0x00A4, 0x00A3,
    0x00A5, 0x00A7, 0x0192, 0x00A2, 0x00E2, 0x00EA, 0x00F4, 0x00FB, 0x00E1, 0x00E9, 0x00F3, 0x00FA, 0x00E0, 0x00E8,
    0x00F2, 0x00F9, 0x00E4, 0x00EB, 0x00F6, 0x00FC, 0x00C5, 0x00EE, 0x00D8, 0x00C6, 0x00E5, 0x00ED, 0x00F8, 0x00E6,
    0x00C4, 0x00EC, 0x00D6, 0x00DC, 0x00C9, 0x00EF, 0x00DF, 0x00D4, 0x00C1, 0x00C3, 0x00E3, 0x00D0, 0x00F0, 0x00CD,
    0x00CC, 0x00D3, 0x00D2, 0x00D5, 0x00F5, 0x0160, 0x0161, 0x00DA, 0x0178, 0x00FF, 0x00DE, 0x00FE, 0x00B7, 0x00B5,
    0x00B6, 0x00BE, 0x2014, 0x00BC, 0x00BD, 0x00AA, 0x00BA, 0x00AB, 0x25A0, 0x00BB, 0x00B1, 0};

TEST(DiskForm, TakesRoman8ToWindows1252) {
    const KyCodeSet* windows = KyLanguageContext::QueryCodeSet(KyCodeSetWindows1252);
    ASSERT_NE(windows, nullptr);
    unsigned agreeing = 0;
    std::vector<unsigned> elsewhere;
    for (unsigned c = 0x80; c < 256; ++c) {
        const auto unicode = c < 0xA0 ? static_cast<unsigned short>(c) : kRoman8FromA0[c - 0xA0];
        if (unicode != 0 && windows->ToUnicode(_KyConvertToDiskFormat(static_cast<unsigned char>(c))) == unicode) {
            ++agreeing;
        } else if (c >= 0xA0 && unicode != 0 && windows->FromUnicode(unicode) != 0) {
            elsewhere.push_back(c);
        }
    }
    EXPECT_EQ(agreeing, 91u);
    EXPECT_EQ(elsewhere, std::vector<unsigned>{0xF6}) << "the dash";
}

TEST(DiskForm, EncodesTextUpToItsEnd) {
    const struct {
        const char* text;
        const char* disk;
    } cases[] = {{"00", "00"}, {"41 00", "41 00"}, {"41 A1 AC FF 7F 00", "41 C0 98 8F 7F 00"}};
    for (const auto& [text, disk] : cases) {
        const std::vector<unsigned char> bytes = Bytes(text);
        GuardedBuffer src(bytes.size());
        GuardedBuffer dst(bytes.size());
        EXPECT_EQ(_KyEncodeString(dst.data(), Guarded(src, bytes), 0), bytes.size());
        EXPECT_EQ(Hex(dst.data(), bytes.size()), disk);
    }
}

TEST(DiskForm, EncodesCountedBytesWithoutTerminator) {
    const std::vector<unsigned char> bytes = Bytes("A1 00 EC 41");
    for (unsigned short n = 1; n <= 4; ++n) {
        GuardedBuffer src(n);
        std::memcpy(src.data(), bytes.data(), n);
        GuardedBuffer dst(n);
        EXPECT_EQ(_KyEncodeString(dst.data(), src.data(), n), n);
        EXPECT_EQ(Hex(dst.data(), n), std::string("C0 00 9A 41").substr(0, n * 3u - 1));
    }
    std::vector<unsigned char> longest(65535, 0xA1);
    EXPECT_EQ(_KyEncodeString(longest.data(), longest.data(), 65535), 65535u) << "in place";
    EXPECT_EQ(longest, std::vector<unsigned char>(65535, 0xC0));
}

TEST(DiskForm, DecodesTextUpToItsEnd) {
    const std::vector<unsigned char> bytes = Bytes("41 C0 98 8F 90 00");
    GuardedBuffer src(bytes.size());
    GuardedBuffer dst(bytes.size());
    EXPECT_EQ(_KyDecodeString(dst.data(), Guarded(src, bytes)), 6u);
    EXPECT_EQ(Hex(dst.data(), 6), "41 A1 90 FF AC 00");
    EXPECT_EQ(_KyDecodeString(src.data(), src.data()), 6u);
    EXPECT_EQ(Hex(src.data(), 6), "41 A1 90 FF AC 00") << "in place";
    unsigned char empty[] = {0, 0xEE};
    EXPECT_EQ(_KyDecodeString(empty, empty), 1u);
    EXPECT_EQ(empty[1], 0xEE);
}

TEST(DiskForm, TextLongerThan65535BytesIsCountedWhole) {
    std::vector<unsigned char> text(70001, 0xA1);
    text.back() = 0;
    EXPECT_EQ(_KyEncodeString(text.data(), text.data(), 0), 70001u);
    EXPECT_EQ(_KyDecodeString(text.data(), text.data()), 70001u);
    EXPECT_EQ(text[69999], 0xA1);
}

}  // namespace
