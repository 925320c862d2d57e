#include <gtest/gtest.h>

#include "kyi18n.h"

namespace {

TEST(LanguageContext, StartsWithExactComparison) { EXPECT_EQ(KyLanguageContext::GetDefaultCmpOp(), 0x0100); }

TEST(LanguageContext, DefaultCodeSetsHaveTheirWidths) {
    EXPECT_LT(KyLanguageContext::GetDefault8CodeSet(), KyCodeSetFirst16Bit);
    EXPECT_GE(KyLanguageContext::GetDefault16CodeSet(), KyCodeSetFirst16Bit);
}

TEST(LanguageContext, SettersAndGettersBelongTogether) {
    const unsigned char before[] = {KyLanguageContext::GetDefaultCodeSet(), KyLanguageContext::GetDefault8CodeSet(),
                                    KyLanguageContext::GetDefault16CodeSet(), KyLanguageContext::GetDefaultLanguage()};
    KyLanguageContext::SetDefaultCodeSet(11);
    KyLanguageContext::SetDefault8CodeSet(12);
    KyLanguageContext::SetDefault16CodeSet(240);
    KyLanguageContext::SetDefaultLanguage(13);
    EXPECT_EQ(KyLanguageContext::GetDefaultCodeSet(), 11);
    EXPECT_EQ(KyLanguageContext::GetDefault8CodeSet(), 12);
    EXPECT_EQ(KyLanguageContext::GetDefault16CodeSet(), 240);
    EXPECT_EQ(KyLanguageContext::GetDefaultLanguage(), 13);
    KyLanguageContext::SetDefaultCodeSet(before[0]);
    KyLanguageContext::SetDefault8CodeSet(before[1]);
    KyLanguageContext::SetDefault16CodeSet(before[2]);
    KyLanguageContext::SetDefaultLanguage(before[3]);
}

TEST(LanguageContext, AttachmentChangesNothing) {
    const unsigned short op = KyLanguageContext::GetDefaultCmpOp();
    KyLanguageContext::SetDefaultCmpOp(0x30);
    for (const int attach : {0, 1, 1, 0}) {
        ___KyI18NContext(attach);
        EXPECT_NE(KyLanguageContext::QueryCodeSet(KyCodeSetNative), nullptr);
        EXPECT_EQ(KyLanguageContext::GetDefaultCmpOp(), 0x30) << "an application's setting";
    }
    KyLanguageContext::SetDefaultCmpOp(op);
}

}  // namespace
