#include <gtest/gtest.h>

#include "kybase.h"

namespace {

struct Check {
    int major, minor, release;
    unsigned flags;
    bool fits;
};

const Check checks[] = {
    {12, 0, 2, 3, true},  {12, 0, 2, 7, true},  {12, 0, 2, 0, true},   {12, 0, 3, 3, false},
    {12, 1, 2, 3, false}, {11, 0, 2, 3, false}, {-12, 0, 2, 3, false}, {12, 0, 3, 1, true},
    {12, 1, 2, 2, true},  {12, 1, 3, 2, false}, {11, 1, 3, 0, true},   {11, 1, 3, 0xFFFFFFFC, true},
};

TEST(Version, OnlyWhatTheFlagsNameHasToAgree) {
    for (const auto& [major, minor, release, flags, fits] : checks) {
        for (const int other : {-1, 0, 229, 1000}) {
            EXPECT_EQ(CheckKyVersionNumber(major, minor, release, other, other, flags) == 0, fits)
                << major << '.' << minor << '.' << release << " flags " << flags;
        }
    }
}

}  // namespace
