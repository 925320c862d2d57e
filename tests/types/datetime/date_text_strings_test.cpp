/// The strings that dates are printed into and scanned out of: null texts, code sets, locales.

#include <gtest/gtest.h>

#include "date_texts.h"
#include "kyi18n.h"
#include "kystring.h"
#include "support/comma_locale.h"
#include "text_constants.h"

namespace {

using Parts = ky::DateTimeParts;
constexpr auto kWhole = ky::DateScan::whole;
constexpr auto kCut = ky::DateScan::cut;

constexpr Parts kMay = {2024, 5, 7, 15, 4, 9, 0};

TEST(DatePrint, NullIsTheNullPrintString) {
    KyString out("before");
    ky::PrintNullDate(out);
    EXPECT_STREQ(out.StrGet(), "{NULL}");
    const KyString kept = ky::NullPrintString();
    ky::NullPrintString() = "nothing";
    ky::PrintNullDate(out);
    ky::NullPrintString() = kept;
    EXPECT_STREQ(out.StrGet(), "nothing");
}

TEST(DatePrint, TakesTheDefaultCodeSetAndLanguage) {
    KyString out(1, 3);
    ky::PrintDateTime(out, kMay, "%Q%A", ky::kKyDatePrint);
    EXPECT_EQ(out.CodeSetGet(), KyString::GetDefault8CodeSet());
    EXPECT_EQ(out.LanguageGet(), KyString::GetDefaultLanguage());
    EXPECT_EQ(out.BufferSizeGet(), sizeof "QTuesday");
    ky::PrintDateTime(out, kMay, "%D", ky::kKyDatePrint);
    EXPECT_EQ(out.BufferSizeGet(), sizeof "2024-05-07");
}

TEST(DatePrint, TakesTheDefaultsAsAnAssignedTextDoes) {
    const unsigned char before = KyString::GetDefault8CodeSet();
    for (const unsigned char codeSet : {KyCodeSetLatin1, KyCodeSetWindows1252}) {
        KyLanguageContext::SetDefault8CodeSet(codeSet);
        KyString assigned;
        assigned = "2024-05-07";
        KyString out("before");
        ky::PrintDateTime(out, kMay, "%Y-%m-%d", ky::kKyDatePrint);
        KyLanguageContext::SetDefault8CodeSet(before);
        EXPECT_EQ(out.CodeSetGet(), assigned.CodeSetGet());
        EXPECT_EQ(out.BufferSizeGet(), assigned.BufferSizeGet());
        EXPECT_EQ(out.LanguageGet(), assigned.LanguageGet());
        EXPECT_TRUE(out == assigned);
    }
}

TEST(DatePrint, KeepsABlockOfTheSameSize) {
    KyString out("a block of 16 b");
    const char* const block = out.StrGet();
    ky::PrintDateTime(out, kMay, "%a %e.%b %Y", ky::kKyDatePrint);
    EXPECT_STREQ(out.StrGet(), "Tue 07.May 2024");
    EXPECT_EQ(out.StrGet(), block);
    EXPECT_EQ(out.BufferSizeGet(), sizeof "Tue 07.May 2024");

    ky::PrintDateTime(out, kMay, "%Y-%m-%d", ky::kKyDatePrint);
    EXPECT_STREQ(out.StrGet(), "2024-05-07");
    EXPECT_EQ(out.BufferSizeGet(), sizeof "2024-05-07");
}

TEST(DatePrint, ABlockThatIsKeptHasNothingLeftOfItsText) {
    const KyString expected("Tue 07.May 2024");
    const unsigned short wide[] = {'s', 'e', 'v', 'e', 'n', '_', '_', 0};
    KyString out(wide);
    ASSERT_EQ(out.BufferSizeGet(), expected.BufferSizeGet());
    ky::PrintDateTime(out, kMay, "%a %e.%b %Y", ky::kKyDatePrint);
    EXPECT_EQ(out.CodeSetGet(), expected.CodeSetGet());
    EXPECT_TRUE(out == expected);

    KyString format("%a %e.%b %Y    ");  // which is cut to the format that it begins with
    const_cast<char*>(format.StrGet())[11] = 0;
    ASSERT_EQ(format.BufferSizeGet(), expected.BufferSizeGet());
    ky::PrintDateTime(format, kMay, format.StrGet(), ky::kKyDatePrint);
    EXPECT_TRUE(format == expected);
}

TEST(DateScan, NullIsRecognisedByItsBeginning) {
    for (const char* text : {"{NULL}", "{NULL}2024"}) {
        const Scan scan(text, "%Y");
        EXPECT_EQ(scan.result, ky::DateScan::null) << text;
        EXPECT_EQ(scan.parts.year, 77);
    }
    for (const char* text : {"{NULL", "{null}", " {NULL}", "{}"}) {
        EXPECT_NE(Scan(text, "%Y").result, ky::DateScan::null) << text;
    }
}

TEST(DateScan, AnotherNullPrintString) {
    const KyString kept = ky::NullPrintString();
    ky::NullPrintString() = "2024";
    EXPECT_EQ(Scan("2024-05-07", "%D").result, ky::DateScan::null);
    EXPECT_EQ(Scan("2023-05-07", "%D").result, kWhole);
    EXPECT_EQ(Scan("", "%D").result, kCut);
    ky::NullPrintString() = "*";
    EXPECT_EQ(Scan("*-05-07", "%D").result, ky::DateScan::null);
    ky::NullPrintString() = "";
    EXPECT_EQ(Scan("", "%D").result, ky::DateScan::null);
    EXPECT_EQ(Scan("2024-05-07", "%D").result, kWhole);
    EXPECT_EQ(Scan(" ", "%D").result, kCut);
    ky::NullPrintString() = "\xE4";
    EXPECT_EQ(Scan("\xE4", "%D").result, ky::DateScan::null);
    EXPECT_EQ(Scan("\xE5", "%D").result, kCut);
    KyString other("\x84");  // the same character in another code set
    constexpr unsigned char kIbm437 = 4;
    other.SetCodeSetCode(kIbm437);
    ky::NullPrintString() = other;
    EXPECT_EQ(Scan("\xE4", "%D").result, ky::DateScan::null);
    EXPECT_EQ(Scan("\x84", "%D").result, kCut);
    const unsigned short wide[] = {'n', 'o', 0};
    ky::NullPrintString() = KyString(wide);
    EXPECT_EQ(Scan("no", "%D").result, ky::DateScan::null);
    EXPECT_EQ(Scan("n", "%D").result, kCut);
    const unsigned short nothing[] = {0};
    ky::NullPrintString() = KyString(nothing);
    EXPECT_EQ(Scan("", "%D").result, ky::DateScan::null);
    EXPECT_EQ(Scan("2024-05-07", "%D").result, kWhole);
    ky::NullPrintString() = kept;
    EXPECT_EQ(Scan("{NULL}", "%D").result, ky::DateScan::null);
}

TEST(DateScan, SixteenBitTextIsCopied) {
    const unsigned short wide[] = {'2', '0', '2', '4', '-', '5', '-', '7', 0};
    KyString text(wide);
    const KyString before(text);
    Parts parts{.second = 9};
    EXPECT_EQ(ky::ScanDateTime(parts, text, "%D"), kWhole);
    EXPECT_EQ(parts, (Parts{2024, 5, 7}));
    EXPECT_EQ(text.CodeSetGet(), before.CodeSetGet());
    EXPECT_TRUE(text == before);
    const unsigned short null[] = {'{', 'N', 'U', 'L', 'L', '}', 0};
    KyString nullText(null);
    EXPECT_EQ(ky::ScanDateTime(parts, nullText, "%D"), ky::DateScan::null);
}

TEST(DateScan, NullStringsAreEmptyTexts) {
    KyString text;
    text.SetNullValue();
    Parts parts{.second = 9};
    EXPECT_EQ(ky::ScanDateTime(parts, text, "%D"), kCut);
    EXPECT_EQ(parts, Parts{});
}

TEST(DatePrint, IsTheSameUnderOtherLocales) {
    const CommaLocale comma;
    EXPECT_EQ(Printed({.second = 5, .nanoseconds = 250000}, "%f %N"), "05.000250 250000");
    EXPECT_EQ(Printed({.second = 2147483647, .nanoseconds = 500000000}, "%f"), "2147483647.500");
    EXPECT_EQ(Printed({123456, 1, 1}, "%Y %J"), "123456 44444191");
}

TEST(DateScan, IsTheSameUnderOtherLocales) {
    const CommaLocale comma;
    EXPECT_EQ(Scan("5.25", "%f").parts, (Parts{.second = 5, .nanoseconds = 250000000}));
    EXPECT_EQ(Scan("5,25", "%f").parts, (Parts{.second = 5}));
    EXPECT_EQ(Scan("5.250000000000000000000001", "%f").parts, (Parts{.second = 5, .nanoseconds = 250000000}));
    EXPECT_EQ(Scan("1.234.567", "%d").parts, (Parts{.day = 1}));
}

}  // namespace
