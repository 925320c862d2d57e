#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "number_roster.h"
#include "support/golden.h"

namespace {

std::string FileName(const NumberType& type) {
    std::string name = type.name();
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    return name;
}

TEST(NumberGolden, BytesAndHashesAreFrozen) {
    for (const NumberType& type : NumberTypes()) CheckGolden(*type.row, FileName(type));
}

}  // namespace
