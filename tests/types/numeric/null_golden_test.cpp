#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "null_roster.h"
#include "support/golden.h"

namespace {

std::string FileName(const NullType& type) {
    std::string name = type.name();
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    return name;
}

TEST(NullGolden, BytesAndHashesAreFrozen) {
    for (const NullType& type : NullTypes()) {
        CheckGolden(*type.row, FileName(type));
        for (const GoldenLine& line : ReadGolden(FileName(type))) EXPECT_NE(line.packed, "") << type.name();
    }
}

}  // namespace
