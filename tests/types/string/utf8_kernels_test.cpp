#include "utf8_kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "broken_texts.h"
#include "oracle/slow_multibyte.h"
#include "oracle/slow_utf8.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// Every variant that this machine can run, with no accessible byte behind the areas.

namespace {

constexpr unsigned short kUntouched = 0xEEEE;

class Utf8KernelTest : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        if (GetParam() >= ky::RunnableUtf8Kernels()) GTEST_SKIP() << "not for this machine";
    }
    const ky::Utf8Kernels& kernels = ky::kUtf8Kernels[GetParam()];
};

/// The variants for this machine, where all are tried with one text.
std::span<const ky::Utf8Kernels> Runnable() {
    return {ky::kUtf8Kernels, static_cast<std::size_t>(ky::RunnableUtf8Kernels())};
}

template <class Unit>
bool AllAre(Unit value, const Unit* begin, const Unit* end) {
    return std::all_of(begin, end, [value](Unit unit) { return unit == value; });
}

/// An area that is used again and again, of which each text takes the end.
class Area {
public:
    explicit Area(std::size_t size) : memory(size) {}
    /// The last n bytes.
    char* Last(std::size_t n) { return reinterpret_cast<char*>(memory.data()) + memory.size() - n; }
    char* Put(const std::string& bytes) {
        char* at = Last(bytes.size());
        std::copy(bytes.begin(), bytes.end(), at);
        return at;
    }

private:
    GuardedBuffer memory;
};

std::string BytesOf(const std::u16string& units) {
    return {reinterpret_cast<const char*>(units.data()), 2 * units.size()};
}

/// What a decoding kernel has to give.
struct Decoded {
    std::size_t read = 0;
    std::u16string units;
};
Decoded SlowKernel(const std::string& text, std::size_t room) {
    Decoded decoded;
    while (decoded.read < text.size() && decoded.units.size() < room) {
        unsigned value;
        const int size = SlowDecode(text, decoded.read, value);
        if (size < 1 || size > 3) break;
        decoded.units += static_cast<char16_t>(value);
        decoded.read += static_cast<std::size_t>(size);
    }
    return decoded;
}

TEST(Utf8Kernels, DecodeWhatTheSlowTwinDecodes) {
    TextGenerator generator(1);
    Area in(2000);
    Area out(2000);
    for (int i = 0; i < 400000 / kFewerCases; ++i) {
        const std::string text = generator.Broken(generator.Below(i % 8 == 0 ? 300 : 60));
        const std::size_t room = generator.Below(4) == 0 ? generator.Below(80) : 1000;
        const Decoded wanted = SlowKernel(text, room);
        const char* from = in.Put(text);
        auto* units = reinterpret_cast<unsigned short*>(out.Last(2 * room));
        for (const ky::Utf8Kernels& kernels : Runnable()) {
            std::fill_n(units, room, kUntouched);
            const ky::Utf8Progress got = kernels.utf8ToUnits(from, text.size(), units, room);
            ASSERT_TRUE(AllAre(kUntouched, units + got.written, units + room)) << kernels.name;
            ASSERT_EQ(got.read, wanted.read)
                << kernels.name << ' ' << Hex(text.data(), text.size()) << " into " << room;
            ASSERT_EQ(got.written, wanted.units.size()) << kernels.name << ' ' << Hex(text.data(), text.size());
            ASSERT_TRUE(std::equal(wanted.units.begin(), wanted.units.end(), units))
                << kernels.name << ' ' << Hex(text.data(), text.size());
        }
    }
}

TEST_P(Utf8KernelTest, DecodesEveryUnitAtEveryPlace) {
    Area in(400);
    Area out(400);
    std::size_t wrong = 0;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const std::string form = SlowUtf8(unit);
        const std::size_t before = unit % 67;
        const std::string text = std::string(before, 'a') + form + std::string(unit / 67 % 67, 'z');
        const std::size_t length = text.size() - form.size() + 1;
        auto* units = reinterpret_cast<unsigned short*>(out.Last(2 * length));
        const ky::Utf8Progress got = kernels.utf8ToUnits(in.Put(text), text.size(), units, length);
        wrong += got.read != text.size() || got.written != length || units[before] != unit;
    }
    EXPECT_EQ(wrong, 0u);
}

TEST(Utf8Kernels, EncodeWhatTheSlowTwinEncodes) {
    TextGenerator generator(11);
    Area in(2001);
    Area out(3000);
    for (int i = 0; i < 100000 / kFewerCases; ++i) {
        std::u16string units = SlowReadUnits(generator.Whole(generator.Below(i % 8 == 0 ? 300 : 60))).units;
        if (generator.Below(3) == 0 && !units.empty()) {
            units[generator.Below(static_cast<unsigned>(units.size()))] = 0;
        }
        const std::size_t room = generator.Below(3) == 0 ? 1000 : generator.Below(200);
        std::string wanted;
        std::size_t size = 0;
        std::size_t read = 0;
        bool fits = true;
        for (std::size_t at = 0; at < units.size() && units[at] != 0; ++at) {
            const std::string& form = SlowUtf8OfUnit(units[at]);
            size += form.size();
            fits = fits && wanted.size() + form.size() <= room;
            if (fits) wanted += form;
            if (fits) ++read;
        }
        char* from = in.Put(BytesOf(units));
        char* to = out.Last(room);
        const std::size_t end = std::min(units.find(u'\0'), units.size());
        const auto check = [&](const ky::Utf8Kernels& kernels, const char* at) {
            std::fill_n(to, room, '\xEE');
            const ky::Utf8Progress got = kernels.unitsToUtf8(at, units.size(), to, room);
            ASSERT_TRUE(AllAre('\xEE', to + got.written, to + room)) << kernels.name;
            ASSERT_EQ(got.read, read) << kernels.name << ' ' << Hex(at, 2 * units.size());
            ASSERT_EQ(std::string(to, got.written), wanted) << kernels.name << ' ' << Hex(at, 2 * units.size());
            const ky::Utf8Progress measured = kernels.utf8Size(at, units.size());
            ASSERT_EQ(measured.read, end) << kernels.name;
            ASSERT_EQ(measured.written, size) << kernels.name;
        };
        for (const ky::Utf8Kernels& kernels : Runnable()) ASSERT_NO_FATAL_FAILURE(check(kernels, from));
        // At an odd address.
        std::memmove(from - 1, from, 2 * units.size());
        for (const ky::Utf8Kernels& kernels : Runnable()) ASSERT_NO_FATAL_FAILURE(check(kernels, from - 1));
    }
}

TEST(Utf8Kernels, EncodeBytesOfEveryCodeSet) {
    std::vector<unsigned short> table(256);
    for (unsigned i = 0; i < 256; ++i) {
        table[i] = static_cast<unsigned short>(i < 0x80 ? i : i % 7 == 0 ? 0 : i % 3 == 0 ? 0x4000 + i : 0x300 + i);
    }
    TextGenerator generator(21);
    Area in(400);
    Area out(1200);
    for (int i = 0; i < 50000 / kFewerCases; ++i) {
        std::string bytes;
        const unsigned others = generator.Below(4) == 0 ? 100 : generator.Below(10);
        for (unsigned n = generator.Below(i % 8 == 0 ? 400 : 50); n != 0; --n) {
            bytes += static_cast<char>(generator.Below(100) < others ? 0x80 + generator.Below(128)
                                                                     : 1 + generator.Below(0x7F));
        }
        const unsigned short* const used = i % 3 == 0 ? nullptr : table.data();
        const std::size_t room = generator.Below(2) == 0 ? 1200 : generator.Below(120);
        std::string wanted;
        std::size_t read = 0;
        for (; read < bytes.size(); ++read) {
            const auto byte = static_cast<unsigned char>(bytes[read]);
            const unsigned unit = used == nullptr ? byte : used[byte] == 0 ? 0xFFFDu : used[byte];
            const std::string& form = SlowUtf8OfUnit(unit);
            if (wanted.size() + form.size() > room) break;
            wanted += form;
        }
        const char* from = in.Put(bytes);
        char* to = out.Last(room);
        for (const ky::Utf8Kernels& kernels : Runnable()) {
            std::fill_n(to, room, '\xEE');
            const ky::Utf8Progress got = kernels.bytesToUtf8(used, from, bytes.size(), to, room);
            ASSERT_EQ(got.read, read) << kernels.name << ' ' << Hex(bytes.data(), bytes.size());
            ASSERT_EQ(std::string(to, got.written), wanted) << kernels.name << ' ' << Hex(bytes.data(), bytes.size());
            ASSERT_TRUE(AllAre('\xEE', to + got.written, to + room)) << kernels.name;
        }
    }
}

TEST_P(Utf8KernelTest, CountsBytesThatDoNotContinueUpToAZero) {
    TextGenerator generator(31);
    Area in(2000);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = generator.Broken(generator.Below(i % 8 == 0 ? 600 : 100));
        const std::size_t end = std::min(text.find('\0'), text.size());
        const std::string before = text.substr(0, end);
        const auto starts = std::count_if(before.begin(), before.end(), [](char c) { return (c & 0xC0) != 0x80; });
        const ky::Utf8Progress got = kernels.utf8Length(in.Put(text), text.size());
        ASSERT_EQ(got.read, end);
        ASSERT_EQ(got.written, static_cast<std::size_t>(starts));
        // Nothing behind a zero.
        const ky::Utf8Progress unlimited = kernels.utf8Length(in.Put(before + '\0'), 100000);
        ASSERT_EQ(unlimited.read, end);
        ASSERT_EQ(unlimited.written, got.written);
    }
}

TEST_P(Utf8KernelTest, FindsTheEndOfAscii) {
    Area in(400);
    Area out(400);
    for (std::size_t length = 0; length <= 300; ++length) {
        for (std::size_t at = 0; at <= length; at += length < 140 ? 1 : 7) {
            std::string text;
            for (std::size_t i = 0; i < length; ++i) text += static_cast<char>(1 + i * 7 % 127);
            if (at < length) text[at] = static_cast<char>(at % 3 == 0 ? 0 : 0x80 + at % 128);
            const char* from = in.Put(text);
            char* to = out.Last(length);
            ASSERT_EQ(kernels.asciiRun(from, length), at) << length;
            std::fill_n(to, length, '\xEE');
            ASSERT_EQ(kernels.copyAscii(from, length, to), at) << length;
            ASSERT_EQ(std::string(to, length), text.substr(0, at) + std::string(length - at, '\xEE'));
        }
    }
}

TEST_P(Utf8KernelTest, NothingIsNothing) {
    unsigned short unit = 0xEEEE;
    EXPECT_EQ(kernels.utf8ToUnits(nullptr, 0, nullptr, 0).read, 0u);
    EXPECT_EQ(kernels.utf8Length(nullptr, 0).read, 0u);
    EXPECT_EQ(kernels.utf8ToUnits("a", 1, &unit, 0).read, 0u);
    EXPECT_EQ(unit, 0xEEEE);
    EXPECT_EQ(kernels.unitsToUtf8(nullptr, 0, nullptr, 0).read, 0u);
    EXPECT_EQ(kernels.unitsToUtf8("a\0", 1, nullptr, 0).read, 0u);
    EXPECT_EQ(kernels.bytesToUtf8(nullptr, nullptr, 0, nullptr, 0).read, 0u);
    EXPECT_EQ(kernels.utf8Size(nullptr, 0).written, 0u);
    EXPECT_EQ(kernels.asciiRun(nullptr, 0), 0u);
    EXPECT_EQ(kernels.copyAscii(nullptr, 0, nullptr), 0u);
}

TEST(Utf8Kernels, TheLoaderTakesTheWidest) {
    const int runnable = ky::RunnableUtf8Kernels();
    ASSERT_GE(runnable, 1);
    ASSERT_LE(runnable, ky::kUtf8KernelVariants);
    unsigned short units[4];
    EXPECT_EQ(ky::Utf8ToUnits("a\xC3\xA9", 3, units, 4).written, 2u);
    EXPECT_EQ(ky::Utf8Length("a\xC3\xA9", 3).written, 2u);
    char bytes[4];
    EXPECT_EQ(ky::UnitsToUtf8("a\0\xE9", 2, bytes, 4).written, 3u);
}

INSTANTIATE_TEST_SUITE_P(Variants, Utf8KernelTest, testing::Range(0, ky::kUtf8KernelVariants),
                         [](const testing::TestParamInfo<int>& i) { return ky::kUtf8Kernels[i.param].name; });

}  // namespace
