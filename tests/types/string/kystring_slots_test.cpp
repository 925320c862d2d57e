#include "kystring_slots.h"

#include <gtest/gtest.h>

#include <new>

#include "kystring.h"
#include "kytypmgr.h"
#include "shared_slots.h"
#include "string_texts.h"

namespace {

// --- arrays in memory ---

TEST(StringSlots, CreateAndDelete) {
    for (const unsigned count : {0U, 1U, 2U, 100U}) {
        for (KyCreateFunc* create : {KyStringTab.Create, KyOldStringTab.Create}) {
            void* values = create(count);
            ASSERT_NE(values, nullptr);
            for (unsigned i = 0; i < count; ++i) {
                EXPECT_TRUE(static_cast<KyString*>(values)[i].IsEmpty());
                EXPECT_FALSE(static_cast<KyString*>(values)[i].IsNullValue());
                static_cast<KyString*>(values)[i] = "content";
            }
            EXPECT_EQ(KyStringTab.Delete(values, count), 0);
        }
        void* byDefault = KyStringTab.DefaultValue(count, 1);
        ASSERT_NE(byDefault, nullptr);
        EXPECT_EQ(KyStringTab.Delete(byDefault, count), 0);
        EXPECT_EQ(KyStringDelete(KyStringTab.Create(count), count), 0) << "one allocator for both";
    }
}

TEST(StringSlots, ConstructAndDestructInPlace) {
    alignas(KyString) unsigned char memory[3 * sizeof(KyString)];
    std::memset(memory, 0xFF, sizeof memory);
    KyStringTab.Constructor(memory, 3, 0);
    auto* strings = std::launder(reinterpret_cast<KyString*>(memory));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(strings[i].BufferSizeGet(), 0);
    strings[2] = "freed by the destructor";
    KyStringTab.Destructor(memory, 3, 0);
    KyStringTab.Constructor(memory, 0, 0);
    KyStringTab.Destructor(memory, 0, 0);
}

TEST(StringSlots, AssignAndFill) {
    KyString from[3] = {"a", Wide(u"b"), Null()};
    KyString to[3] = {"x", "y", "z"};
    KyStringTab.Assignment(to, from, 3, 0);
    EXPECT_EQ(Text(to[0]), "a");
    EXPECT_EQ(Text16(to[1]), u"b");
    EXPECT_TRUE(to[2].IsNullValue());
    KyStringTab.Assignment(to, from, 3, 1);
    for (const KyString& s : to) EXPECT_EQ(Text(s), "a");
    KyStringTab.Assignment(to, nullptr, 0, 1);
}

TEST(StringSlots, CopyIntoRawMemory) {
    KyString from[2] = {"a", "b"};
    for (const int mode : {0, 1}) {
        alignas(KyString) unsigned char memory[2 * sizeof(KyString)];
        std::memset(memory, 0xFF, sizeof memory);
        KyStringTab.Copy(memory, from, 2, mode);
        auto* to = std::launder(reinterpret_cast<KyString*>(memory));
        EXPECT_EQ(Text(to[0]), "a");
        EXPECT_EQ(Text(to[1]), mode == 0 ? "b" : "a");
        KyStringTab.Destructor(memory, 2, 0);
    }
}

TEST(StringSlots, NullValues) {
    KyString s("text");
    EXPECT_FALSE(KyStringTab.IsNull(&s));
    EXPECT_EQ(KyStringTab.SetNull(&s), 0);
    EXPECT_TRUE(KyStringTab.IsNull(&s));
    EXPECT_EQ(s.BufferSizeGet(), 0);
    EXPECT_EQ(KyOldStringTab.IsNull, NoIsNullDefined);
    EXPECT_EQ(KyOldStringTab.SetNull, nullptr);
}

// --- conversion records ---

TEST(StringSlots, ConvertsToARecordAndBack) {
    KyString values[3] = {"a", Wide(u"Ā"), Null()};
    KyTypeConvertData* record = KyStringTab.ConvertToKyString(values, 3);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->typeId, KySTRING_T);
    EXPECT_EQ(record->count, 3U);
    EXPECT_EQ(Text(*record->GetString(0)), "a");
    EXPECT_EQ(Text16(*record->GetString(1)), u"Ā");
    EXPECT_TRUE(record->GetString(2)->IsNullValue());

    auto* back = static_cast<KyString*>(KyStringTab.ConvertFromKyString(record, 4));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(Text(back[0]), "a");
    EXPECT_EQ(Text16(back[1]), u"Ā");
    EXPECT_TRUE(back[2].IsNullValue());
    EXPECT_TRUE(back[3].IsEmpty()) << "a missing string";
    EXPECT_FALSE(back[3].IsNullValue());
    KyStringTab.Delete(back, 4);
    KyStringTab.Delete(record->data, 3);
    delete record;

    void* withoutRecord = KyStringTab.ConvertFromKyString(nullptr, 2);
    ASSERT_NE(withoutRecord, nullptr);
    KyStringTab.Delete(withoutRecord, 2);
}

// --- text ---

TEST(StringPrint, Formats) {
    const struct {
        const char *format, *expected;
    } cases[] = {
        {"%s", "text"},
        {nullptr, "text"},
        {"<%s>", "<text>"},
        {"%8s|", "    text|"},
        {"%-8s|", "text    |"},
        {"%.2s", "te"},
        {"%6.2s", "    te"},
        {"%-6.2s|", "te    |"},
        {"%.0s", ""},
        {"%.s", ""},
        {"%.9s", "text"},
        {"%2s", "text"},
        {"100%% %s", "100% text"},
        {"plain", "plain"},
        {"%%", "%"},
        {"", ""},
        {"%+ #0'8s", "    text"},
        {"%d", ""},
        {"%s%s", ""},
        {"%n", ""},
        {"%", ""},
        {"%*s", ""},
        {"%ls", ""},
        {"%1$s", ""},
        {"%s%", ""},
        {"a%p", ""},
        {"%-", ""},
        {"%99999999999.3s", nullptr},
    };
    for (const auto& c : cases) {
        KyString value("text");
        KyString out;
        EXPECT_EQ(&KyStringTab.PrintToKyString(out, &value, c.format, 1), &out);
        if (c.expected == nullptr) {
            EXPECT_EQ(out.Len(), 65531) << c.format;
        } else {
            EXPECT_EQ(Text(out), c.expected) << (c.format != nullptr ? c.format : "null");
        }
        EXPECT_EQ(out.CodeSetGet(), value.CodeSetGet());
    }
}

TEST(StringPrint, TheOutputTakesTheValuesCodeSet) {
    KyString value(KyCodeSetWindows1252, 3);
    value += "text";
    KyString out;
    out.LanguageSet(7);
    KyStringTab.PrintToKyString(out, &value, "<%s>", 1);
    EXPECT_EQ(Text(out), "<text>");
    EXPECT_EQ(out.CodeSetGet(), KyCodeSetWindows1252);
    EXPECT_EQ(out.LanguageGet(), 7);
}

TEST(StringPrint, UnicodeIsConvertedToTheOutput) {
    const OtherDefaults restored;
    KyString value = Wide(u"text");
    KyString out;
    KyStringTab.PrintToKyString(out, &value, "<%s>", 1);
    EXPECT_EQ(Text(out), "<text>");
    EXPECT_EQ(out.CodeSetGet(), KyString::GetDefault8CodeSet());

    KyString wide(KyCodeSetUnicode, 0);
    KyStringTab.PrintToKyString(wide, &value, "<%5.3s>", 1);
    EXPECT_EQ(Text16(wide), u"<  tex>");

    KyString native(static_cast<unsigned char>(0), 0);
    KyString::SetDefaultCodeSet(KyCodeSetWindows1252);
    KyStringTab.PrintToKyString(native, &value, "%s", 1);
    EXPECT_EQ(native.CodeSetGet(), KyCodeSetWindows1252);
    native = KyString(static_cast<unsigned char>(0), 0);
    KyString::SetDefaultCodeSet(0);
    KyStringTab.PrintToKyString(native, &value, "%s", 1);
    EXPECT_EQ(native.CodeSetGet(), KyLanguageContext::GetNativeCodeSet());
    EXPECT_EQ(Text(native), "text");
}

TEST(StringPrint, NullAndEmpty) {
    KyString null = Null();
    KyString out;
    KyStringTab.PrintToKyString(out, &null, "<%s>", 1);
    EXPECT_EQ(Text(out), "{NULL}");
    KyString empty(KyCodeSetWindows1252, 5);
    KyStringTab.PrintToKyString(out, &empty, "<%s>", 1);
    EXPECT_EQ(Text(out), "{NULL}") << "an output that has text keeps it";
    out = "";
    KyStringTab.PrintToKyString(out, &empty, "<%s>", 1);
    EXPECT_TRUE(out.IsEmpty());
    EXPECT_EQ(out.CodeSetGet(), KyCodeSetWindows1252);
    EXPECT_EQ(out.LanguageGet(), 5);

    KyString value("text");
    KyString nullOut = Null();
    KyStringTab.PrintToKyString(nullOut, &value, "%s", 1);
    EXPECT_EQ(Text(nullOut), "text");
    EXPECT_FALSE(nullOut.IsNullValue()) << "what was printed is no null value";
}

TEST(StringPrint, OntoItself) {
    KyString value("text");
    KyStringTab.PrintToKyString(value, &value, "<%s>", 1);
    EXPECT_EQ(Text(value), "text<text>");
}

TEST(StringPrint, AppendsToAnOutputThatHasText) {
    KyString out(KyCodeSetWindows1252, 7);
    out += "old ";
    KyString value = Wide(u"n\u00E4h\u20AC");
    KyStringTab.PrintToKyString(out, &value, "<%s>", 1);
    EXPECT_EQ(Text(out), "old <n\xE4h\x80>") << "mapped into the output's code set";
    KyString latin = Narrow("\xE4");
    KyStringTab.PrintToKyString(out, &latin, "%s", 1);
    KyString null = Null();
    KyStringTab.PrintToKyString(out, &null, "<%s>", 1);
    EXPECT_EQ(Text(out), "old <n\xE4h\x80>\xE4{NULL}");
    EXPECT_EQ(out.CodeSetGet(), KyCodeSetWindows1252);
    EXPECT_EQ(out.LanguageGet(), 7);

    KyString wide = Wide(u"w");
    KyStringTab.PrintToKyString(wide, &latin, "%s", 1);
    EXPECT_EQ(Text16(wide), u"w\u00E4");
    KyString unfit("a");
    KyStringTab.PrintToKyString(unfit, &latin, "%d", 1);
    EXPECT_EQ(Text(unfit), "a");
}

TEST(StringScan, TakesTheWholeText) {
    KyString value("old");
    KyString text = Wide(u"new text");
    text.LanguageSet(4);
    EXPECT_EQ(KyStringTab.ScanFromKyString(&value, text, "%d", 1), &value);
    EXPECT_EQ(Text16(value), u"new text");
    EXPECT_EQ(value.LanguageGet(), 4);
    EXPECT_EQ(KyStringTab.ScanFromKyString(nullptr, text, "%s", 1), nullptr);
}

TEST(StringScan, NullPrintStringMakesNull) {
    const struct {
        const char* text;
        bool null;
    } cases[] = {{"{NULL}", true}, {"{NULL} and more", true}, {"{NULL", false}, {"{null}", false}, {"", false}};
    for (const auto& c : cases) {
        KyString value("old");
        KyString text(c.text);
        KyStringTab.ScanFromKyString(&value, text, "%s", 1);
        EXPECT_EQ(value.IsNullValue() != 0, c.null) << c.text;
        if (!c.null) {
            EXPECT_EQ(Text(value), c.text);
        }
    }
    KyString value;
    KyString wide = Wide(u"{NULL}");
    KyStringTab.ScanFromKyString(&value, wide, nullptr, 1);
    EXPECT_TRUE(value.IsNullValue());
}

// --- GetValue ---

TEST(StringGetValue, StoredStringsHaveNoSuccessor) {
    unsigned char record[] = {5, 0, 1, 0, 'a', 0, 0xFF};
    const unsigned char before[] = {5, 0, 1, 0, 'a', 0, 0xFF};
    EXPECT_EQ(KyStringTab.GetValue(record, 1, 0x81, KyValueKeep), 0);
    EXPECT_EQ(KyStringTab.GetValue(record, 1, 0x81, KyValueStep), KyErrNoSuccessor);
    EXPECT_EQ(KyStringTab.GetValue(record, 1, 0x81, KyValueStepNext), KyErrNoSuccessor);
    EXPECT_EQ(KyStringTab.GetValue(record, 1, 0x81, KyValueLeast), KyErrNotSupported);
    for (const unsigned char form : std::initializer_list<unsigned char>{1, 2, 8, 0x82, 0x80}) {
        EXPECT_EQ(KyStringTab.GetValue(record, 1, form, KyValueStep), KyErrNotSupported) << int{form};
        EXPECT_EQ(KyStringTab.GetValue(record, 1, form, KyValueKeep), KyErrNotSupported) << int{form};
    }
    EXPECT_EQ(std::memcmp(record, before, sizeof record), 0);
}

TEST(StringSlots, DefaultValuesAreEmptyAndNotNull) {
    auto* values = static_cast<KyString*>(KyStringTab.DefaultValue(3, 0));
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(values[i].IsEmpty());
        EXPECT_FALSE(values[i].IsNullValue());
    }
    KyStringTab.Delete(values, 3);
}

// --- the rows ---

TEST(StringRows, NamesAndSharedSlots) {
    for (const KyTypeTab* row : {&KyStringTab, &KyOldStringTab}) {
        EXPECT_STREQ(row->typeName, "KyString");
        EXPECT_STREQ(row->typeCodeName, "KySTRING_T");
        EXPECT_STREQ(row->printFormat, "%s");
        EXPECT_EQ(row->sizeWord, 16U);
        EXPECT_EQ(row->Load, StringLoad);
        EXPECT_EQ(row->NullSizeGet, StringNullSizeGet);
        EXPECT_EQ(row->end, nullptr);
    }
    EXPECT_NE(KyStringTab.Store, KyOldStringTab.Store);
    EXPECT_EQ(KyStringTab.Translate, KyStringTranslate);
    EXPECT_EQ(KyOldStringTab.Translate, KyStringOldTranslate);
    EXPECT_EQ(KyStringTab.GetValue, KyGetValueKyString);
    EXPECT_EQ(KyOldStringTab.GetValue, KyGetValueFuncDummy);
}

}  // namespace
