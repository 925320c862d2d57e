#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "blob_contents.h"
#include "kyblob.h"
#include "kystring.h"
#include "kytypes.h"
#include "kytypmgr.h"

namespace {

using Elements = std::vector<Element>;

std::string Print(const Element& content, const char* format) {
    KyBlob blob = BlobOf(content);
    KyString out("before");
    EXPECT_EQ(&KyBlobTab.PrintToKyString(out, &blob, format, 1), &out);
    return out.StrGet();
}

TEST(BlobText, PrintsByTheFormat) {
    const Content three = Chars("abc");
    struct {
        const char* format;
        const char* text;
    } const cases[] = {
        {"[BLOB,len=%L]", "[BLOB,len=3]"},
        {nullptr, "[BLOB,len=3]"},
        {"%x%L", "x3"},
        {"%%L", "%L"},
        {"%%%L", "%3"},
        {"%L%L", "33"},
        {"", ""},
        {"%", ""},
        {"a%", "a"},
        {"%%", "%"},
        {"%l", "l"},
        {"no length", "no length"},
        {"%d %s", "d s"},
        {"%L%", "3"},
        {"\xE9%L",
         "\xE9"
         "3"},
    };
    for (const auto& c : cases) EXPECT_EQ(Print(three, c.format), c.text);
    EXPECT_EQ(Print(Content(), "%L"), "0");
    EXPECT_EQ(Print(Content(70000), "%L"), "70000");
}

TEST(BlobText, NullPrintsAsTheNullPrintString) {
    EXPECT_EQ(Print(std::nullopt, "[BLOB,len=%L]"), "{NULL}");
    EXPECT_EQ(Print(std::nullopt, ""), "{NULL}");
    const KyString before = KyTypeMgr::GetNullPrintString();
    KyTypeMgr::SetNullPrintString("nil");
    EXPECT_EQ(Print(std::nullopt, nullptr), "nil");
    KyTypeMgr::SetNullPrintString(before);
}

TEST(BlobText, PrintsIntoANullString) {
    KyBlob blob("abc");
    KyString out;
    out.SetNullValue();
    KyBlobTab.PrintToKyString(out, &blob, "%L", 1);
    EXPECT_STREQ(out.StrGet(), "4");
    EXPECT_EQ(out.IsNullValue(), 0);
}

TEST(BlobText, ArraysArePrintedByTheManager) {
    KyTypeMgr manager(5);
    std::vector<KyBlob> blobs = BlobsOf({Chars("abc"), std::nullopt, Content()});
    KyString out;
    EXPECT_STREQ(manager.PrintToKyString(KyBLOB_T, out, blobs.data(), nullptr, 3).StrGet(),
                 "[BLOB,len=3],{NULL},[BLOB,len=0]");
}

struct Scanned {
    const char* text;
    Element content;
};

const Scanned kScanned[] = {
    {"", Content()},
    {"00", Content{0}},
    {"ff", Content{0xFF}},
    {"FF", Content{0xFF}},
    {"aBcD09", Content{0xAB, 0xCD, 0x09}},
};
const char* const kRefused[] = {"0",   "abc",  "0g", "g0",       "0x00",  " 00",
                                "00 ", "0 0 ", "-1", "\xE9\xE9", "{NULL", "{null}"};

TEST(BlobText, Scans) {
    for (const char* format : {"[BLOB,len=%L]", static_cast<const char*>(nullptr)}) {
        for (const Scanned& each : kScanned) {
            for (const Element& before : {Element(), Element(Counted(5))}) {
                KyBlob blob = BlobOf(before);
                KyString text(each.text);
                EXPECT_EQ(KyBlobTab.ScanFromKyString(&blob, text, format, 1), &blob);
                EXPECT_EQ(ContentOf(blob), each.content) << each.text;
            }
        }
    }
}

TEST(BlobText, WhatIsNoPairsOfDigitsLeavesTheValue) {
    for (const char* refused : kRefused) {
        for (const Element& before : {Element(), Element(Content()), Element(Counted(5))}) {
            KyBlob blob = BlobOf(before);
            KyString text(refused);
            EXPECT_EQ(KyBlobTab.ScanFromKyString(&blob, text, nullptr, 1), nullptr) << refused;
            EXPECT_EQ(ContentOf(blob), before) << refused;
        }
    }
}

TEST(BlobText, ScansNull) {
    KyString nullString;
    nullString.SetNullValue();
    KyString nullText("{NULL}");
    KyString more("{NULL}00");
    for (KyString* text : {&nullString, &nullText, &more}) {
        KyBlob blob("abc");
        EXPECT_EQ(KyBlobTab.ScanFromKyString(&blob, *text, nullptr, 1), &blob);
        EXPECT_EQ(ContentOf(blob), std::nullopt);
        EXPECT_EQ(KyBlobTab.ScanFromKyString(nullptr, *text, nullptr, 1), nullptr);
    }
}

TEST(BlobText, ScansSixteenBitTexts) {
    const unsigned short digits[] = {'0', 'a', 'F', 'f', 0};
    const unsigned short likeDigits[] = {0x3100 + '0', '0', 0};  // whose low bytes are digits
    KyBlob blob;
    KyString text(digits);
    EXPECT_EQ(KyBlobTab.ScanFromKyString(&blob, text, nullptr, 1), &blob);
    EXPECT_EQ(ContentOf(blob), (Content{0x0A, 0xFF}));
    text = KyString(likeDigits);
    EXPECT_EQ(KyBlobTab.ScanFromKyString(&blob, text, nullptr, 1), nullptr);
}

TEST(BlobText, ConvertsToTextsAndBack) {
    KyTypeMgr manager(5);
    const Elements elements = {std::nullopt, Content(), Content{0, 0x9F, 0xA0, 0xFF}, Content(32765, 0x5A)};
    std::vector<KyBlob> blobs = BlobsOf(elements);
    KyTypeConvertData* record = manager.ConvertTo(KyBLOB_T, blobs.data(), 4);
    ASSERT_NE(record, nullptr);
    EXPECT_NE(record->GetString(0)->IsNullValue(), 0);
    EXPECT_STREQ(record->GetString(1)->StrGet(), "");
    EXPECT_EQ(record->GetString(1)->IsNullValue(), 0);
    EXPECT_STREQ(record->GetString(2)->StrGet(), "009fa0ff");
    void* back = manager.ConvertFrom(KyBLOB_T, record, 5);
    ASSERT_NE(back, nullptr);
    Elements expected = elements;
    expected.emplace_back();  // there is no fifth text
    const auto* values = static_cast<const KyBlob*>(back);
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(ContentOf(values[i]), expected[i]) << i;
    manager.Delete(KyBLOB_T, back, 5);
    delete record;
}

TEST(BlobText, WhatFitsInNoStringIsNotConverted) {
    KyTypeMgr manager(5);
    std::vector<KyBlob> blobs = BlobsOf({Chars("a"), Content(32766)});
    EXPECT_EQ(manager.ConvertTo(KyBLOB_T, blobs.data(), 2), nullptr);
    KyTypeConvertData* record = manager.ConvertTo(KyBLOB_T, blobs.data(), 1);
    EXPECT_NE(record, nullptr);
    delete record;
}

TEST(BlobText, OneBadTextConvertsToNothing) {
    KyTypeMgr manager(5);
    for (const char* refused : kRefused) {
        KyTypeConvertData record(KySTRING_T, 3, KyStringCreate(3), &manager);
        *record.GetString(0) = "00";
        *record.GetString(1) = refused;
        *record.GetString(2) = "00";
        EXPECT_EQ(manager.ConvertFrom(KyBLOB_T, &record, 3), nullptr) << refused;
        void* values = manager.ConvertFrom(KyBLOB_T, &record, 1);
        EXPECT_NE(values, nullptr);
        manager.Delete(KyBLOB_T, values, 1);
    }
}

TEST(BlobText, TheNullTextIsNoConvertedNull) {
    KyTypeMgr manager(5);
    KyTypeConvertData record(KySTRING_T, 1, KyStringCreate(1), &manager);
    *record.GetString(0) = "{NULL}";
    EXPECT_EQ(manager.ConvertFrom(KyBLOB_T, &record, 1), nullptr);
}

TEST(BlobText, WithoutTextsAllAreNull) {
    for (const unsigned count : {0u, 1u, 3u}) {
        auto* blobs = static_cast<KyBlob*>(KyBlobTab.ConvertFromKyString(nullptr, count));
        ASSERT_NE(blobs, nullptr);
        for (unsigned i = 0; i < count; ++i) EXPECT_EQ(ContentOf(blobs[i]), std::nullopt);
        KyBlobTab.Delete(blobs, count);
    }
}

TEST(BlobText, AnyBytesComeBackFromTheirText) {
    std::mt19937 random(37);
    for (int round = 0; round < 500; ++round) {
        Content content(Below(random, 300));
        for (unsigned char& byte : content) byte = static_cast<unsigned char>(random());
        KyBlob blob = BlobOf(content);
        KyTypeConvertData* record = KyBlobTab.ConvertToKyString(&blob, 1);
        KyBlob scanned;
        KyBlobTab.ScanFromKyString(&scanned, *record->GetString(0), nullptr, 1);
        EXPECT_EQ(ContentOf(scanned), content);
        KyStringDelete(static_cast<KyString*>(record->data), 1);
        delete record;
    }
}

}  // namespace
