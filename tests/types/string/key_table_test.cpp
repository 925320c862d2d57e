#include "key_table.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

#include "kychar.h"

namespace {

using ky::KeyPage;
using ky::KeyTable;
using ky::KeyTableOf;

TEST(KeyTable, HoldsTheKeysOfTheIterator) {
    for (const unsigned char codeSet : std::initializer_list<unsigned char>{0, 1, 2, 3, 17}) {
        const KeyTable* table = KeyTableOf(codeSet, 0);
        ASSERT_NE(table, nullptr);
        EXPECT_EQ(table->keys[0], 0u);
        for (unsigned code = 1; code < 256; ++code) {
            const char text[] = {static_cast<char>(code), 0};
            KyStringIterator it(text, codeSet, 0, 1);
            const unsigned short order = it.GetNextOrder(1);
            EXPECT_EQ(KeyPage::IsMarked(table->KeyOf(text[0])), table->MarksOf(text[0]) != 0) << code;
            if ((table->MarksOf(text[0]) & KeyPage::kNeedsIterator) != 0) {
                EXPECT_TRUE(it.OrderClass() == ky::kNoClass || !it.IsEOS()) << int{codeSet} << ' ' << code;
                EXPECT_EQ(table->OrderOf(text[0]), 0);
                continue;
            }
            EXPECT_EQ(table->KeyOf(text[0]) & ~KeyPage::kMarked, ky::OrderKey(order, it.OrderClass()))
                << int{codeSet} << ' ' << code;
            EXPECT_EQ(table->OrderOf(text[0]), order);
            EXPECT_EQ(it.GetNextOrder(1), 0) << "one order";
        }
    }
}

TEST(KeyPages, HoldTheKeysOfTheIterator) {
    const ky::KeyPages pages(0);
    for (unsigned code = 1; code < 0x10000; ++code) {
        const auto unit = static_cast<unsigned short>(code);
        unsigned short text[] = {unit, 0};
        KyStringIterator it(text, 253, 0, 1);
        const unsigned short order = it.GetNextOrder(1);
        const KeyPage& page = pages.PageOf(unit);
        const unsigned marks = page.marks[code & 0xFF];
        ASSERT_EQ(KeyPage::IsMarked(page.keys[code & 0xFF]), marks != 0) << code;
        if ((marks & KeyPage::kNeedsIterator) != 0) {
            ASSERT_TRUE(it.OrderClass() == ky::kNoClass || !it.IsEOS() || code > ky::kLastCharacterCode) << code;
            continue;
        }
        ASSERT_EQ(page.keys[code & 0xFF] & ~KeyPage::kMarked, ky::OrderKey(order, it.OrderClass())) << code;
        ASSERT_EQ(page.orders[code & 0xFF], order);
    }
    EXPECT_EQ(pages.PageOf(0).keys[0], 0u);
    EXPECT_EQ(&pages.PageOf('a'), &pages.PageOf('z'));
}

TEST(KeyTable, IsKeptForEightBitSetsAlone) {
    EXPECT_EQ(KeyTableOf(1, 0), KeyTableOf(1, 0));
    EXPECT_EQ(KeyTableOf(253, 0), nullptr);
    EXPECT_EQ(KeyTableOf(1, 254), nullptr);
    EXPECT_EQ(KeyTableOf(27, 0), nullptr);
    EXPECT_EQ(KeyTableOf(1, 32), nullptr);
}

TEST(KeyTable, ManyThreadsGetTheSame) {
    constexpr unsigned char firstFresh = 8;
    std::array<std::array<const KeyTable*, 24>, 8> seen{};
    std::vector<std::thread> threads;
    for (auto& mine : seen) {
        threads.emplace_back([&mine] {
            for (unsigned char i = 0; i < mine.size(); ++i) {
                mine[i] = KeyTableOf(1, static_cast<unsigned char>(firstFresh + i));
                if (mine[i]->KeyOf('a') == 0) mine[i] = nullptr;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const auto& mine : seen) EXPECT_EQ(mine, seen[0]);
    EXPECT_NE(seen[0][0], nullptr);
}

TEST(KeyPages, ManyThreadsGetTheSame) {
    constexpr unsigned char freshLanguage = 27;
    std::array<std::array<const KeyPage*, 256>, 8> seen{};
    std::vector<std::thread> threads;
    for (auto& mine : seen) {
        threads.emplace_back([&mine] {
            const ky::KeyPages pages(freshLanguage);
            for (unsigned high = 0; high < 256; ++high) {
                mine[high] = &pages.PageOf(static_cast<unsigned short>(high << 8));
                if (high == 0x4E && mine[high]->keys[0] == 0) mine[high] = nullptr;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const auto& mine : seen) EXPECT_EQ(mine, seen[0]);
    EXPECT_NE(seen[0][0x4E], nullptr);
}

}  // namespace
