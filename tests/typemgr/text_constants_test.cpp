#include "text_constants.h"

#include <gtest/gtest.h>

#include <string>

#include "kystring.h"
#include "kytypmgr.h"

namespace {

/// What the process's null print string was asked before any test or other static initialiser set it.
const std::string textAtStart = KyTypeMgr::GetNullPrintString().StrGet();

class NullPrintString : public testing::Test {
protected:
    ~NullPrintString() override { KyTypeMgr::SetNullPrintString(KyString("{NULL}")); }
};

TEST_F(NullPrintString, IsThereFromTheFirstInstructionOn) {
    EXPECT_EQ(textAtStart, "{NULL}");
    EXPECT_STREQ(KyTypeMgr::GetNullPrintString().StrGet(), "{NULL}");
    EXPECT_EQ(KyTypeMgr::GetNullPrintString().IsNullValue(), 0);
    EXPECT_EQ(&KyTypeMgr::GetNullPrintString(), &ky::NullPrintString());
    EXPECT_STREQ(ky::ZeroSourceString().StrGet(), "0");
}

TEST_F(NullPrintString, IsReplacedByAssignment) {
    KyString text("nothing");
    KyTypeMgr::SetNullPrintString(text);
    text = "changed";
    EXPECT_STREQ(KyTypeMgr::GetNullPrintString().StrGet(), "nothing");
}

TEST_F(NullPrintString, IsRecognisedAtTheBeginningOfATextOnly) {
    for (const char* text : {"{NULL}", "{NULL}x", "{NULL} 12", "{NULL}{NULL}"}) {
        EXPECT_TRUE(ky::BeginsWithNullPrintString(KyString(text))) << text;
    }
    for (const char* text : {"", "{", "{NULL", "{null}", " {NULL}", "x{NULL}", "{NULLx"}) {
        EXPECT_FALSE(ky::BeginsWithNullPrintString(KyString(text))) << text;
    }
}

TEST_F(NullPrintString, IsRecognisedIn16BitText) {
    const unsigned short with[] = {'{', 'N', 'U', 'L', 'L', '}', '7', 0};
    const unsigned short without[] = {'{', 'N', 'U', 'L', 'L', 0x7D00, 0};
    const unsigned short shorter[] = {'{', 'N', 0};
    EXPECT_TRUE(ky::BeginsWithNullPrintString(KyString(with)));
    EXPECT_FALSE(ky::BeginsWithNullPrintString(KyString(without)));
    EXPECT_FALSE(ky::BeginsWithNullPrintString(KyString(shorter)));
    EXPECT_FALSE(
        ky::BeginsWithNullPrintString(KyString(static_cast<unsigned char>(253), static_cast<unsigned char>(0))));
}

TEST_F(NullPrintString, Of16BitsIsRecognisedIn8BitText) {
    const unsigned short wide[] = {'n', 'i', 'l', 0};
    KyTypeMgr::SetNullPrintString(KyString(wide));
    EXPECT_TRUE(ky::BeginsWithNullPrintString(KyString("nil!")));
    EXPECT_TRUE(ky::BeginsWithNullPrintString(KyString(wide)));
    EXPECT_FALSE(ky::BeginsWithNullPrintString(KyString("ni")));
    EXPECT_FALSE(ky::BeginsWithNullPrintString(KyString("{NULL}")));
}

TEST_F(NullPrintString, WhenEmptyBeginsNoText) {
    for (const KyString& nothing : {KyString(""), KyString()}) {
        KyTypeMgr::SetNullPrintString(nothing);
        EXPECT_FALSE(ky::BeginsWithNullPrintString(KyString("")));
        EXPECT_FALSE(ky::BeginsWithNullPrintString(KyString("12")));
        EXPECT_FALSE(ky::BeginsWithNullPrintString(KyString("{NULL}")));
    }
}

TEST_F(NullPrintString, OfAsciiIsTheSameInEvery8BitCodeSet) {
    const unsigned char codeSets[] = {1, 2, 3, 4, 6, 26};
    for (const unsigned char codeSet : codeSets) {
        KyString with("{NULL}5");
        with.SetCodeSetCode(codeSet);
        EXPECT_TRUE(ky::BeginsWithNullPrintString(with)) << unsigned{codeSet};
        KyString without("{NULx}5");
        without.SetCodeSetCode(codeSet);
        EXPECT_FALSE(ky::BeginsWithNullPrintString(without)) << unsigned{codeSet};
    }
}

TEST_F(NullPrintString, Outside8BitAsciiIsMappedBetweenCodeSets) {
    KyString euro(static_cast<unsigned char>(2), static_cast<unsigned char>(0));  // Windows-1252
    euro.MakeString("\x80", 2, -1, 1);
    KyTypeMgr::SetNullPrintString(euro);
    EXPECT_TRUE(ky::BeginsWithNullPrintString(euro));
    const unsigned short unicode[] = {0x20AC, '5', 0};
    EXPECT_TRUE(ky::BeginsWithNullPrintString(KyString(unicode)));
    KyString control(static_cast<unsigned char>(1), static_cast<unsigned char>(0));  // Latin-1: 0x80 is no euro sign
    control.MakeString("\x80", 1, -1, 1);
    EXPECT_FALSE(ky::BeginsWithNullPrintString(control));
}

}  // namespace
