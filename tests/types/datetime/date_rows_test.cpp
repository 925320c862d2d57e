#include <gtest/gtest.h>

#include "date_slots.h"
#include "date_text_slots.h"

// The rows hold the functions of their types. What two types have in common may be one function.

namespace {

#define EXPECT_SLOTS(type)                                                   \
    do {                                                                     \
        EXPECT_EQ(type##Tab.Create, type##Create);                           \
        EXPECT_EQ(type##Tab.Delete, type##Delete);                           \
        EXPECT_EQ(type##Tab.Store, type##Store);                             \
        EXPECT_EQ(type##Tab.Load, type##Load);                               \
        EXPECT_EQ(type##Tab.NullSizeGet, type##NullSizeGet);                 \
        EXPECT_EQ(type##Tab.SizeGet, type##SizeGet);                         \
        EXPECT_EQ(type##Tab.SizeGetFromMemFile, type##SizeGetFromMemFile);   \
        EXPECT_EQ(type##Tab.Compare, type##Compare);                         \
        EXPECT_EQ(type##Tab.EvalAndBound, type##EvalAndBound);               \
        EXPECT_EQ(type##Tab.Hash, type##Hash);                               \
        EXPECT_EQ(type##Tab.ConvertToKyString, type##ConvertToKyString);     \
        EXPECT_EQ(type##Tab.ConvertFromKyString, type##ConvertFromKyString); \
        EXPECT_EQ(type##Tab.Constructor, type##Constructor);                 \
        EXPECT_EQ(type##Tab.Destructor, type##Destructor);                   \
        EXPECT_EQ(type##Tab.Assignment, type##Assignment);                   \
        EXPECT_EQ(type##Tab.Copy, type##Copy);                               \
        EXPECT_EQ(type##Tab.Translate, type##Translate);                     \
        EXPECT_EQ(type##Tab.IsNull, type##IsNull);                           \
        EXPECT_EQ(type##Tab.SetNull, type##SetNull);                         \
        EXPECT_EQ(type##Tab.PrintToKyString, type##PrintToKyString);         \
        EXPECT_EQ(type##Tab.ScanFromKyString, type##ScanFromKyString);       \
        EXPECT_EQ(type##Tab.DefaultValue, type##DefaultValue);               \
        EXPECT_EQ(type##Tab.GetValue, KyGetValue##type);                     \
        EXPECT_EQ(type##Tab.sizeWord, KyFixedSize | sizeof(type));           \
        EXPECT_EQ(type##Tab.end, nullptr);                                   \
        EXPECT_EQ(#type, std::string(type##Tab.typeName));                   \
    } while (false)

TEST(DateRows, HoldTheFunctionsOfTheirTypes) {
    EXPECT_SLOTS(KyDate);
    EXPECT_SLOTS(KyTime);
    EXPECT_SLOTS(KyDateTime);
    EXPECT_SLOTS(KyDateTimeN);
    EXPECT_SLOTS(KyTimeSpan);
}

TEST(DateRows, NamesAndFormats) {
    EXPECT_STREQ(KyDateTab.printFormat, "%a %e.%b %Y");
    EXPECT_STREQ(KyTimeTab.printFormat, "%I:%M:%S %p");
    EXPECT_STREQ(KyDateTimeTab.printFormat, "%a %e.%b %Y %I:%M:%S %p");
    EXPECT_STREQ(KyDateTimeNTab.printFormat, "%X");
    EXPECT_STREQ(KyTimeSpanTab.printFormat, "%V");
    EXPECT_STREQ(KyDateTab.typeCodeName, "KyDATE_T");
    EXPECT_STREQ(KyTimeTab.typeCodeName, "KyTIME_T");
    EXPECT_STREQ(KyDateTimeTab.typeCodeName, "KyDATIME_T");
    EXPECT_STREQ(KyDateTimeNTab.typeCodeName, "KyDATIME_N_T");
    EXPECT_STREQ(KyTimeSpanTab.typeCodeName, "KyTIMESPAN_T");
}

}  // namespace
