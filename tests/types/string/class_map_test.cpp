#include "class_map.h"

#include <gtest/gtest.h>

namespace {

TEST(ClassMap, GroupsAreEqualMaskedKeys) {
    for (unsigned short op = 0; op <= 0x60; op = static_cast<unsigned short>(op + 0x20)) {
        const unsigned mask = ky::KeyMask(op);
        for (unsigned char codeSet = 1; codeSet < 27; ++codeSet) {
            for (unsigned char language = 0; language < 16; ++language) {
                const ky::KeyTable* table = ky::KeyTableOf(codeSet, language);
                ASSERT_NE(table, nullptr);
                const ky::ClassMap* map = ky::ClassMapOf(*table, mask);
                ASSERT_NE(map, nullptr);
                EXPECT_EQ(map, ky::ClassMapOf(*table, mask)) << "made once";
                EXPECT_EQ(map->groups.of[0], 0);
                EXPECT_EQ(map->keys[0], 0u);
                for (unsigned c = 1; c < 256; ++c) {
                    const unsigned char group = map->groups.of[c];
                    if (ky::KeyPage::IsMarked(table->keys[c])) {
                        EXPECT_EQ(group, ky::ClassMap::kUnclear);
                        continue;
                    }
                    ASSERT_NE(group, 0);
                    if (group == ky::ClassMap::kUnclear) continue;
                    ASSERT_EQ(map->keys[group], table->keys[c] & mask);
                    for (unsigned other = 1; other < c; ++other) {
                        if (map->groups.of[other] == ky::ClassMap::kUnclear) continue;
                        const bool alike = (table->keys[other] & mask) == (table->keys[c] & mask);
                        ASSERT_EQ(map->groups.of[other] == group, alike) << c << ' ' << other;
                    }
                }
            }
        }
    }
}

TEST(ClassMap, OfTheNativeCodeSetIsThatOfItsTable) {
    const ky::KeyTable* table = ky::KeyTableOf(0, 0);
    ASSERT_NE(table, nullptr);
    const ky::ClassMap* map = ky::ClassMapOf(*table, ky::KeyMask(0x20));
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(map->groups('a'), map->groups('A'));
    EXPECT_NE(map->groups('a'), map->groups('b'));
}

}  // namespace
