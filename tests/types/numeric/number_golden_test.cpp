#include <gtest/gtest.h>

#include "number_roster.h"
#include "support/golden.h"

namespace {

TEST(NumberGolden, BytesAndHashesAreFrozen) {
    for (const NumberType& type : NumberTypes()) CheckGolden(*type.row);
}

}  // namespace
