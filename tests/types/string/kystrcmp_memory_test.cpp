// The comparer over texts behind which nothing can be read.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "kyi18n.h"
#include "kystrcmp.h"
#include "support/guarded_buffer.h"

namespace {

constexpr unsigned short kExact = 0x100;
constexpr unsigned short kLiteral = 0x10;

/// The same text in 16-bit Unicode, without a terminator.
std::string Wide(const std::string& latin1) {
    std::string wide;
    for (const char c : latin1) wide += {c, '\0'};
    return wide;
}

TEST(CompareAtTheEndOfMemory, WideTextsOfAnyLengthAtTheEndOfAPage) {
    // Pairs of a capital and a small letter that only the keys, not the first page's ranks, know to be the same.
    for (std::size_t length = 1; length <= 200; ++length) {
        GuardedBuffer a(2 * length + 2);
        GuardedBuffer b(2 * length + 2);
        for (std::size_t i = 0; i <= length; ++i) {
            const char16_t small = i == length ? u'\0' : i % 7 == 3 ? u'x' : u'ж';
            const char16_t capital = i == length ? u'\0' : i % 7 == 3 ? u'X' : u'Ж';
            std::memcpy(a.data() + 2 * i, &small, 2);
            std::memcpy(b.data() + 2 * i, &capital, 2);
        }
        const auto compare = [&](unsigned short op) {
            return KyStrCmp(KyCodeSetUnicode, 0, reinterpret_cast<const char*>(a.data()), KyCodeSetUnicode, 0,
                            reinterpret_cast<const char*>(b.data()), op, -1, 1, nullptr);
        };
        EXPECT_EQ(compare(kLiteral | 0x20), 0) << length;
        EXPECT_GT(compare(kExact), 0) << length;
    }
}

TEST(CompareAtTheEndOfMemory, NothingBehindTheLimitIsRead) {
    const std::string latin = "aB\xE4 1x";
    for (const unsigned char codeSet : std::initializer_list<unsigned char>{0, 1, 2, 253, 254}) {
        const std::string bytes = codeSet < 225 ? latin : Wide(latin);
        GuardedBuffer a(bytes.size());
        GuardedBuffer b(bytes.size());
        std::memcpy(a.data(), bytes.data(), bytes.size());
        std::memcpy(b.data(), bytes.data(), bytes.size());
        const auto* atA = reinterpret_cast<const char*>(a.data());
        const auto* atB = reinterpret_cast<const char*>(b.data());
        for (const unsigned short op : std::initializer_list<unsigned short>{kExact, kLiteral, 0x70, 0, 0x60}) {
            const auto compare = [&](unsigned char setA, unsigned char setB) {
                return KyStrCmp(setA, 1, setA == codeSet ? atA : latin.c_str(), setB, 1,
                                setB == codeSet ? atB : latin.c_str(), op, static_cast<short>(latin.size()), 1,
                                nullptr);
            };
            EXPECT_EQ(compare(codeSet, codeSet), 0) << int{codeSet} << ' ' << op;
            if (codeSet == 254) continue;
            EXPECT_EQ(compare(codeSet, 1), 0) << int{codeSet} << ' ' << op;
            EXPECT_EQ(compare(1, codeSet), 0) << int{codeSet} << ' ' << op;
        }
    }
}

}  // namespace
