#include <gtest/gtest.h>

#include "null_roster.h"
#include "support/golden.h"

namespace {

TEST(NullGolden, BytesAndHashesAreFrozen) {
    for (const NullType& type : NullTypes()) {
        CheckGolden(*type.row);
        for (const GoldenLine& line : ReadGolden(GoldenName(*type.row))) EXPECT_NE(line.packed, "") << type.name();
    }
}

}  // namespace
