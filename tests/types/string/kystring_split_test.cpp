#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kystring.h"
#include "string_texts.h"

namespace {

std::vector<std::string> Items(const char* list, const char* separator) {
    std::vector<std::string> items;
    KyString item;
    unsigned short pos = 0;
    while (KySplitList(list, item, separator, pos) == 0) items.push_back(Text(item));
    return items;
}

TEST(KySplitList, CutsAndTrims) {
    using Texts = std::vector<std::string>;
    EXPECT_EQ(Items("a, b", ","), (Texts{"a", "b"}));
    EXPECT_EQ(Items("a", ","), (Texts{"a"}));
    EXPECT_EQ(Items("", ","), (Texts{}));
    EXPECT_EQ(Items("a,", ","), (Texts{"a"})) << "no empty item behind the last separator";
    EXPECT_EQ(Items("a,,b", ","), (Texts{"a", "", "b"}));
    EXPECT_EQ(Items(",,a", ","), (Texts{"", "a"})) << "only a separator at the very start is skipped";
    EXPECT_EQ(Items("a,b", ""), (Texts{"a,b"}));
    EXPECT_EQ(Items(" a b ; c ", ";"), (Texts{"a b", "c"}));
    EXPECT_EQ(Items("*a*b", "*"), (Texts{"a", "b"}));
}

TEST(KySplitList, Kept_StepsOneCharacterWhateverTheSeparatorsLength) {
    EXPECT_EQ(Items("a--b", "--"), (std::vector<std::string>{"a", "-b"}));
}

TEST(KySplitList, PositionsAndTheEnd) {
    KyString item("kept");
    unsigned short pos = 0;
    const KyString list("ab,c");
    EXPECT_EQ(KySplitList(list, item, ",", pos), 0);
    EXPECT_EQ(pos, 3);
    EXPECT_EQ(KySplitList(list, item, ",", pos), 0);
    EXPECT_EQ(pos, 5);
    EXPECT_EQ(Text(item), "c");
    EXPECT_EQ(KySplitList(list, item, ",", pos), -2005);
    EXPECT_EQ(Text(item), "c");
    EXPECT_EQ(pos, 5);
}

TEST(KySplitList, FollowsTheDefaultOperatorAndWidth) {
    KyString item;
    unsigned short pos = 0;
    KyString list = Wide(u"a\u0100 b");
    list.LanguageSet(4);
    EXPECT_EQ(KySplitList(list, item, Wide(u"\u0100"), pos), 0);
    EXPECT_EQ(Text16(item), u"a");
    EXPECT_EQ(item.LanguageGet(), 4);
    EXPECT_EQ(KySplitList(list, item, Wide(u"\u0100"), pos), 0);
    EXPECT_EQ(Text16(item), u"b");
    const OtherDefaults restored;
    KyString::SetDefaultCmpOp(0x20);
    EXPECT_EQ(Items("1x2X3", "x"), (std::vector<std::string>{"1", "2", "3"}));
}

TEST(KySplitList, LongItemsAndItself) {
    KyString list((std::string(40000, 'a') + ",b").c_str());
    KyString item;
    unsigned short pos = 0;
    EXPECT_EQ(KySplitList(list, item, ",", pos), 0);
    EXPECT_EQ(item.Len(), 40000);
    pos = 0;
    EXPECT_EQ(KySplitList(list, list, ",", pos), 0);
    EXPECT_EQ(list.Len(), 40000);
}

}  // namespace
