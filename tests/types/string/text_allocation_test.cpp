/// When memory fails in a conversion or a search.

#include <gtest/gtest.h>

#include <initializer_list>
#include <new>
#include <string>

#include "counted_memory.h"
#include "fail_without_leaks.h"
#include "kymultibyte.h"
#include "kystring.h"
#include "kywildcard.h"
#include "string_texts.h"

namespace {

TEST(KyStringAllocation, FailureOfConversionsLeaksNothing) {
    for (const std::size_t length : {3u, 300u, 20000u}) {
        std::string utf8;
        while (utf8.size() < length) utf8 += "a\xC3\xA9";
        const auto size = static_cast<int>(utf8.size());
        KyString wide;
        KyMBS2KyString(utf8.data(), wide, size);
        FailWithoutLeaks("KyMBS2KyString", true, [&] {
            KyString s("before");
            KyMBS2KyString(utf8.data(), s, size);
        });
        FailWithoutLeaks("KyString2MultiByteString", true, [&] {
            char* out = nullptr;
            int outSize = 0;
            KyString2MultiByteString(wide, out, outSize);
            delete[] out;
        });
        char out[4] = "abc";
        FailWithoutLeaks("KyString2MultiByteString into too little", length > 20, [&] {
            char* given = out;
            int outSize = 1;
            KyString2MultiByteString(wide, given, outSize);
        });
        FailWithoutLeaks("KyString2KyMBS", false, [&] { KyString2KyMBS(wide, out, 3); });
        FailWithoutLeaks("KyMBSLength", false, [&] { KyMBSLength(wide, 0xFFFF); });
    }
}

TEST(KyStringAllocation, AFailedConversionLeavesTheStringAsItWas) {
    for (const char* utf8 : {"abc", "ab\xC3"}) {
        KyString s("before");
        for (const int blocks : {0, 1, 2}) {
            const int needed = utf8[2] == 'c' ? 1 : 3;
            if (blocks == needed) break;
            blocksLeft = blocks;
            EXPECT_THROW(KyMBS2KyString(utf8, s, 3), std::bad_alloc) << utf8 << blocks;
            blocksLeft = -1;
            EXPECT_EQ(Text(s), "before");
        }
    }
    KyString s;
    EXPECT_EQ(TakenBy([&] { KyMBS2KyString("a\xC3\xA9", s, 3); }), (Taken{1, 6}));
}

TEST(KyStringAllocation, FailureOfSearchesLeaksNothing) {
    const std::string letters = std::string(5000, 'a') + "ch\xE6";
    std::string text = letters;
    std::string pattern = "*" + std::string(2000, 'a') + "*\xE6*";
    FailWithoutLeaks("strwild", false, [&] { strwild(pattern.data(), text.data()); });
    FailWithoutLeaks("istrwild", true, [&] { istrwild(pattern.data(), text.data(), 0, 0); });
    FailWithoutLeaks("caseistrwild", true, [&] { caseistrwild(pattern.data(), text.data(), 0, 0x40); });
    FailWithoutLeaks("caseistrwild, short", false, [&] {
        char few[] = "*a";
        caseistrwild(few, few, 0x40, 0x40);
    });
    FailWithoutLeaks("KyStrWild", false, [&] { KyStrWild(1, 4, text.data(), 0, 32767, nullptr, 1); });
    for (const auto language : std::initializer_list<unsigned char>{0, 4}) {
        FailWithoutLeaks("KyStrCmp", true,
                         [&] { KyStrCmp(1, language, text.c_str(), 1, language, pattern.c_str(), 0, -1, 1, nullptr); });
        KyString searched(text.c_str());
        searched.LanguageSet(language);
        KyString wanted("a*x");
        wanted.LanguageSet(language);
        FailWithoutLeaks("Find", true, [&] { EXPECT_EQ(searched.Find(wanted, 0, 0), KyString::NotFound); });
    }
    const KyString list("one, two");
    FailWithoutLeaks("KySplitList", true, [&] {
        KyString item;
        unsigned short pos = 0;
        KySplitList(list, item, ",", pos);
    });
}

TEST(KyStringAllocation, AListThatCannotBeCutLeavesItemAndPosition) {
    const KyString list("one, two");
    const KyString separator(",");
    KyString item("kept");
    unsigned short pos = 0;
    for (int blocks = 0; blocks < 2; ++blocks) {
        blocksLeft = blocks;
        EXPECT_THROW(KySplitList(list, item, separator, pos), std::bad_alloc) << blocks;
        blocksLeft = -1;
        EXPECT_EQ(Text(item), "kept");
        EXPECT_EQ(pos, blocks == 0 ? 0 : 4);
        pos = 4;  // then a blank is trimmed
    }
}

}  // namespace
