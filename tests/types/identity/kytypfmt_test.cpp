#include "kytypfmt.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

struct Patched {
    const char* format;
    unsigned pos;
    const char* expected;
};

TEST(PatchFormat, TwoCharactersBecomeOne) {
    const Patched table[] = {
        {"%lu", 1, "%s"},
        {"(%hu-%lu)", 2, "(%s-%lu)"},
        {"%1M of all", 1, "%s of all"},
        {"ab", 0, "s"},
        {"abc", 1, "as"},
        {"abc", 2, "abs"},
        {"abc", 3, "abc"},
        {"abc", 100, "abc"},
        {"%d", 1, "%s"},
        {"", 0, ""},
    };
    for (const Patched& each : table) {
        std::string room(std::strlen(each.format) + 2, '~');
        patch_format(room.data(), each.format, each.pos);
        EXPECT_STREQ(room.c_str(), each.expected) << each.format << ' ' << each.pos;
        EXPECT_EQ(room.back(), '~');
    }
}

TEST(TextFormats, AreThoseOfTheDatabase) {
    EXPECT_STREQ(KyObjIdFmt, "(%H-%L#%B)");
    EXPECT_STREQ(KyClassIdFmt, "(%Cv%V)");
    EXPECT_STREQ(KyRefFmt, "(%D:%H-%L#%B, %C)");
    EXPECT_STREQ(KyRefVersionFmt, "(%D:%H-%L#%B,%Cv%V)");
    EXPECT_STREQ(KyLocalRefFmt, "(%H-%L#%B,%C)");
}

}  // namespace
