#include "code_mapping.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

#include "kybase.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

using Block = std::unique_ptr<char[]>;

struct Mapped {
    Block block;
    unsigned short size;

    std::string Bytes() const { return Hex(block.get(), size); }
};

Mapped Map(unsigned char from, unsigned char to, const char* src) {
    char* out = nullptr;
    const unsigned short size = ky::AllocMapped(from, to, src, out);
    return {Block(out), size};
}

int assertions = 0;
std::string lastAssertion;

/// Counts what is asserted, with "stringOverflow" as given.
class OverflowSwitch final : public KyConfig {
public:
    explicit OverflowSwitch(int setting) : value(setting) {
        previousConfig = DefaultConfig(this);
        previousHandler = KYRN_setAssertHandler([](const char* message, const char* source, int line) {
            ++assertions;
            lastAssertion = std::string(message) + " " + source + " " + std::to_string(line);
        });
        assertions = 0;
    }
    ~OverflowSwitch() override {
        DefaultConfig(previousConfig);
        KYRN_setAssertHandler(previousHandler);
    }
    int GetText(const char*, const char**, const char*) override { return 0; }
    int GetNumber(const char*, double*, const char*) override { return 0; }
    int HasSection(const char*) override { return 1; }
    int GetInteger(const char* key, int* out, const char* section) override {
        if (std::strcmp(key, "stringOverflow") != 0 || std::strcmp(section, "debug") != 0) return 0;
        *out = value;
        return 1;
    }

private:
    int value;
    KyConfig* previousConfig;
    KyAssertHandler previousHandler;
};

TEST(AllocMapped, WidensAndNarrows) {
    EXPECT_EQ(Map(1, 253, "a\xE4").Bytes(), "61 00 E4 00 00 00");
    EXPECT_EQ(Map(253, 1, "a\0\xE4\0\0").Bytes(), "61 E4 00");
    EXPECT_EQ(Map(253, 1,
                  "a\0\0\x4E"
                  "b\0\0")
                  .Bytes(),
              "61 3F 62 00")
        << "a question mark for what is not there";
    EXPECT_EQ(Map(2, 253, "\x80").Bytes(), "AC 20 00 00");
    EXPECT_EQ(Map(1, 3, "\xE4").Bytes(), "3F 00");
    EXPECT_EQ(Map(3, 253, "\xE4").Bytes(), "FD FF 00 00");
    EXPECT_EQ(Map(1, 254, "A\xE4").Bytes(), "41 00 E4 00 00 00") << "order values have no characters: unit by unit";
    EXPECT_EQ(Map(254, 253, "\x0C\x40\0").Bytes(), "0C 40 00 00");
    EXPECT_EQ(Map(254, 2, "\x0C\x40\x80\0\0").Bytes(), "3F 80 00") << "the low byte alone could end the text";
    EXPECT_EQ(Map(1, 253, "").Bytes(), "00 00");
    EXPECT_EQ(Map(253, 1, "\0").Bytes(), "00");
}

TEST(AllocMapped, TheSameSetIsCopied) {
    EXPECT_EQ(Map(1, 1, "a\xFFz").Bytes(), "61 FF 7A 00");
    EXPECT_EQ(Map(3, 3, "\xE4").Bytes(), "E4 00");
    EXPECT_EQ(Map(253, 253, "\xFF\xFF\0").Bytes(), "FF FF 00 00");
}

TEST(AllocMapped, NativeStandsForItsCodeSet) {
    EXPECT_EQ(Map(0, 253, "\xE4").Bytes(), "E4 00 00 00");
    EXPECT_EQ(Map(253, 0, "\xE4\0\0").Bytes(), "E4 00");
    EXPECT_EQ(Map(0, 1, "\xE4").Bytes(), "E4 00");
}

TEST(AllocMapped, ACodeSetWithoutTablesReadsAsTheNativeOneOrUnicode) {
    EXPECT_EQ(Map(99, 253, "\xE4").Bytes(), "E4 00 00 00");
    EXPECT_EQ(Map(230, 1, "\xE4\0\0").Bytes(), "E4 00");
    EXPECT_EQ(Map(255, 1, "\xE4\0\0").Bytes(), "E4 00");
}

TEST(AllocMapped, TheDefaultIsThatOfTheWidth) {
    EXPECT_EQ(Map(1, 255, "\xE4").Bytes(), "E4 00 00 00");
    EXPECT_EQ(Map(255, 255, "\xE4\x20\0").Bytes(), "E4 20 00 00");
}

/// Everything that a code set has, character by character.
TEST(AllocMapped, EveryPairOfCodeSetsMapsLikeItsCharacters) {
    const auto set = [](unsigned n) { return KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(n)); };
    unsigned pairs = 0;
    for (unsigned from = 1; from < 254; ++from) {
        if (set(from) == nullptr) continue;
        const unsigned fromWidth = ky::CharWidth(static_cast<unsigned char>(from));
        const unsigned limit = fromWidth == 1 ? 0x100 : 0x10000;
        for (unsigned to = 1; to < 254; ++to) {
            if (set(to) == nullptr) continue;
            ++pairs;
            const unsigned toWidth = ky::CharWidth(static_cast<unsigned char>(to));
            unsigned wrong = 0;
            // In texts of several lengths, so that characters stand at all places of a block.
            for (unsigned code = 1; code < limit;) {
                const unsigned count = std::min(1 + code % 701, limit - code);
                GuardedBuffer text((count + 1) * std::size_t{fromWidth});
                char* src = reinterpret_cast<char*>(text.data());
                for (unsigned i = 0; i <= count; ++i) {
                    const auto c = static_cast<unsigned short>(i < count ? code + i : 0);
                    ky::WriteCode(src + i * std::size_t{fromWidth}, fromWidth, c, 1);
                }
                const Mapped mapped = Map(static_cast<unsigned char>(from), static_cast<unsigned char>(to), src);
                wrong += mapped.size != (count + 1) * toWidth;
                for (unsigned i = 0; i < count; ++i) {
                    const unsigned short got = ky::ReadCode(mapped.block.get() + i * std::size_t{toWidth}, toWidth, 1);
                    wrong += got == 0 || got != set(to)->MapFrom(*set(from), static_cast<unsigned short>(code + i));
                }
                code += count;
            }
            EXPECT_EQ(wrong, 0u) << from << " to " << to;
        }
    }
    EXPECT_EQ(pairs, 27u * 27u) << "the sets 1 to 26 and Unicode";
}

TEST(AllocMapped, ReadsUnalignedAndNotPastTheEnd) {
    const char wide[] = {'a', 0, 'b', 0, 0, 0};
    for (std::size_t offset = 0; offset < 2; ++offset) {
        GuardedBuffer memory(sizeof wide + offset);
        std::memcpy(memory.data() + offset, wide, sizeof wide);
        EXPECT_EQ(Map(253, 1, reinterpret_cast<char*>(memory.data()) + offset).Bytes(), "61 62 00");
    }
    GuardedBuffer narrow(3);
    std::memcpy(narrow.data(), "ab", 3);
    EXPECT_EQ(Map(1, 253, reinterpret_cast<char*>(narrow.data())).Bytes(), "61 00 62 00 00 00");
}

TEST(AllocMapped, CutsAtTheLimit) {
    const struct {
        std::size_t length;
        unsigned char to;
        unsigned size;
        std::size_t kept;
        bool overflow;
    } cases[] = {{65530, 1, 65531, 65530, false},  {65531, 1, 65532, 65531, false},  {65532, 1, 65532, 65531, true},
                 {65536, 1, 65532, 65531, true},   {70000, 1, 65532, 65531, true},   {32765, 253, 65532, 32765, false},
                 {32766, 253, 65532, 32765, true}, {200000, 253, 65532, 32765, true}};
    for (const auto& [length, to, size, kept, overflow] : cases) {
        for (int setting : {0, 1, 65536}) {
            OverflowSwitch config(setting);
            const std::string text(length, 'x');
            const Mapped mapped = Map(3, to, text.c_str());
            EXPECT_EQ(mapped.size, size) << length;
            const unsigned width = ky::CharWidth(to);
            EXPECT_EQ(mapped.block[(kept - 1) * width], 'x');
            for (std::size_t i = kept * width; i < size; ++i) EXPECT_EQ(mapped.block[i], 0);
            EXPECT_EQ(assertions, overflow && setting != 0 ? 1 : 0) << length;
            if (assertions != 0) {
                EXPECT_EQ(lastAssertion, "String overflow src/kystring 1110");
            }
        }
    }
}

TEST(AllocMapped, OverflowIsSilentWithoutAConfiguration) {
    OverflowSwitch counting(1);
    KyConfig* mine = DefaultConfig(nullptr);
    ky::CheckStringOverflow();
    EXPECT_EQ(assertions, 0);
    DefaultConfig(mine);
    ky::CheckStringOverflow();
    EXPECT_EQ(assertions, 1);
}

/// Says nothing about "stringOverflow".
class SilentConfig final : public KyConfig {
public:
    int GetText(const char*, const char**, const char*) override { return 0; }
    int GetNumber(const char*, double*, const char*) override { return 0; }
    int HasSection(const char*) override { return 0; }
    int GetInteger(const char*, int* out, const char*) override {
        given = *out;
        return 0;
    }
    int given = -1;
};

TEST(AllocMapped, OverflowIsSilentWithoutTheKey) {
    OverflowSwitch counting(1);
    SilentConfig silent;
    KyConfig* mine = DefaultConfig(&silent);
    ky::CheckStringOverflow();
    EXPECT_EQ(silent.given, 0) << "off unless the configuration says otherwise";
    EXPECT_EQ(assertions, 0);
    DefaultConfig(mine);
}

TEST(AllocMappedN, TakesUpToNCharacters) {
    const struct {
        unsigned char from;
        unsigned char to;
        const char* src;
        unsigned short n;
        unsigned short copied;
        const char* bytes;
    } cases[] = {{1, 1, "abc", 2, 2, "61 62 00"},
                 {1, 3, "abc", 2, 2, "61 62 00"},
                 {1, 253, "a\xE4z", 2, 2, "61 00 E4 00 00 00"},
                 {1, 253, "a", 3, 1, "61 00 00 00 00 00 00 00"},
                 {253, 1, "a\0b\0\0", 9, 2, "61 62 00 00 00 00 00 00 00 00"},
                 {1, 1, "abc", 0, 0, "00"},
                 {0, 0, "abc", 3, 3, "61 62 63 00"}};
    for (const auto& [from, to, src, n, copied, bytes] : cases) {
        char* buf = nullptr;
        unsigned short size = 0;
        EXPECT_EQ(ky::AllocMappedN(from, to, src, n, buf, size), copied);
        EXPECT_EQ(Hex(buf, size), bytes);
        delete[] buf;
    }
}

TEST(AllocMappedN, UsesAnEnoughLargeBufferAgainAndClearsItsRest) {
    char* buf = new char[6];
    std::memset(buf, 'z', 6);
    char* const before = buf;
    unsigned short size = 6;
    EXPECT_EQ(ky::AllocMappedN(1, 1, "abc", 3, buf, size), 3);
    EXPECT_EQ(buf, before);
    EXPECT_EQ(size, 6);
    EXPECT_EQ(Hex(buf, 6), "61 62 63 00 00 00");
    EXPECT_EQ(ky::AllocMappedN(1, 253, "abc", 3, buf, size), 3);
    EXPECT_EQ(size, 8);
    EXPECT_EQ(Hex(buf, 8), "61 00 62 00 63 00 00 00");
    delete[] buf;
}

TEST(AllocMappedN, CutsAtTheLimit) {
    const std::string text(70000, 'x');
    OverflowSwitch config(1);
    char* buf = nullptr;
    unsigned short size = 0;
    EXPECT_EQ(ky::AllocMappedN(1, 253, text.c_str(), 40000, buf, size), 32765);
    EXPECT_EQ(size, 65532);
    EXPECT_EQ(Hex(buf + 65530, 2), "00 00");
    EXPECT_EQ(assertions, 1);
    EXPECT_EQ(ky::AllocMappedN(1, 1, text.c_str(), 65535, buf, size), 65531);
    EXPECT_EQ(assertions, 2);
    EXPECT_EQ(buf[65531], 0);
    delete[] buf;
}

}  // namespace
