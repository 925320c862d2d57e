#include <gtest/gtest.h>

#include "kyi18n.h"

namespace {

TEST(LanguageContext, StartsWithExactComparison) { EXPECT_EQ(KyLanguageContext::GetDefaultCmpOp(), 0x0100); }

TEST(LanguageContext, DefaultCodeSetsHaveTheirWidths) {
    EXPECT_LT(KyLanguageContext::GetDefault8CodeSet(), KyCodeSetFirst16Bit);
    EXPECT_GE(KyLanguageContext::GetDefault16CodeSet(), KyCodeSetFirst16Bit);
}

}  // namespace
