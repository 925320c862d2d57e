#include "boolean_slots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <string>
#include <vector>

#include "kystring.h"
#include "kytypes.h"
#include "kytypmgr.h"
#include "support/created_arrays.h"
#include "support/golden.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

/// A value as a database may hold it.
KyBoolean OfByte(int byte) { return std::bit_cast<KyBoolean>(static_cast<signed char>(byte)); }

TEST(BooleanRow, IsNamedAndMeasured) {
    EXPECT_STREQ(KyBooleanTab.typeName, "KyBoolean");
    EXPECT_STREQ(KyBooleanTab.typeCodeName, "KyBOOLEAN_T");
    EXPECT_STREQ(KyBooleanTab.printFormat, "noop");
    EXPECT_EQ(KyBooleanTab.sizeWord, 0x10001u);
    for (const unsigned count : {0u, 1u, 7u}) {
        EXPECT_EQ(KyBooleanTab.NullSizeGet(count), count);
        EXPECT_EQ(KyBooleanTab.SizeGet(nullptr, KyFormMemory, KyFormReversed, count), count);
        EXPECT_EQ(KyBooleanTab.SizeGetFromMemFile(nullptr, KyFormNative, count), count);
    }
}

TEST(BooleanRow, AgreesWithItsGoldenFile) { CheckGolden(KyBooleanTab); }

TEST(BooleanRow, KeepsEveryByte) {
    unsigned char all[256];
    for (int i = 0; i < 256; ++i) all[i] = static_cast<unsigned char>(i);
    for (const unsigned char form : {KyFormNative, KyFormReversed}) {
        KyBoolean loaded[256];
        unsigned char stored[256];
        EXPECT_EQ(KyBooleanTab.Load(loaded, all, form, 256), 256u);
        EXPECT_EQ(KyBooleanTab.Store(stored, loaded, form, 256), 256u);
        EXPECT_EQ(Hex(stored, 256), Hex(all, 256));
    }
}

TEST(BooleanRow, IsNullAndSetNull) {
    KyBoolean value(1);
    EXPECT_EQ(KyBooleanTab.IsNull(&value), 0);
    EXPECT_EQ(KyBooleanTab.SetNull(&value), 0);
    EXPECT_NE(KyBooleanTab.IsNull(&value), 0);
    EXPECT_EQ(value.Get(), -1);
}

TEST(BooleanRow, CreatesFalseAndPrecedesArraysByTheirCount) {
    ExpectCreatedArrays(KyBooleanTab, {0}, [](void* created, unsigned count) {
        const auto* values = static_cast<KyBoolean*>(created);
        for (unsigned i = 0; i < count; ++i) EXPECT_EQ(values[i].Get(), 0);
    });
}

int Rank(int byte) {
    const auto number = static_cast<signed char>(byte);
    return number == -1 ? -1000 : number;
}

TEST(BooleanRow, OrdersAllPairsOfBytes) {
    for (int a = 0; a < 256; ++a) {
        for (int b = 0; b < 256; ++b) {
            const bool bothTrue = a != 0 && b != 0 && a != 0xFF && b != 0xFF;
            const int expected = bothTrue ? 0 : (Rank(a) > Rank(b)) - (Rank(a) < Rank(b));
            KyBoolean x[] = {1, OfByte(a), 0};
            KyBoolean y[] = {OfByte(2), OfByte(b), 0};
            int err = -1;
            ASSERT_EQ(KyBooleanTab.Compare(KyFormReversed, 0, x + 1, 0, y + 1, 0, 1, err), expected) << a << ' ' << b;
            ASSERT_EQ(KyBooleanTab.Compare(KyFormMemory, 0, x, 0, y, 0, 3, err), expected) << a << ' ' << b;
            ASSERT_EQ(err, 0);
        }
    }
}

TEST(BooleanRow, TheOperatorWordIsIgnored) {
    KyBoolean null = OfByte(0xFF);
    KyBoolean no(0);
    for (unsigned op = 0; op < 0x10000; op += 0x0111) {
        int err = -1;
        EXPECT_EQ(KyBooleanTab.Compare(KyFormMemory, 0, &null, 0, &no, static_cast<unsigned short>(op), 1, err), -1);
    }
}

TEST(BooleanRow, SaysThatABufferEndsAndReadsNothingBehindIt) {
    const unsigned char bytes[] = {1, 0, 1};
    GuardedBuffer a(bytes);
    GuardedBuffer b(bytes);
    b.data()[2] = 0;
    int err = -1;
    EXPECT_EQ(KyBooleanTab.Compare(KyFormNative, 3, a.data(), 3, b.data(), 0, 9, err), 1);
    EXPECT_EQ(err, KyErrBufferEnd);
    EXPECT_EQ(KyBooleanTab.Compare(KyFormNative, 2, a.data(), 3, b.data(), 0, 3, err), 0);
    EXPECT_EQ(err, KyErrBufferEnd);
    EXPECT_EQ(KyBooleanTab.Compare(KyFormNative, 3, a.data(), 3, b.data(), 0, 3, err), 1);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(KyBooleanTab.Compare(KyFormNative, 0, nullptr, 0, nullptr, 0, 0, err), 0);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(KyBooleanTab.Hash(KyFormNative, 3, a.data(), 4, err), 0u);  // 1 ^ 0 ^ 1
    EXPECT_EQ(err, KyErrBufferEnd);
}

TEST(BooleanRow, HashesBytesWithTheirSign) {
    constexpr unsigned factor = 1103515245;
    KyBoolean values[] = {OfByte(0xFF), 1, OfByte(0x80)};
    int err = -1;
    EXPECT_EQ(KyBooleanTab.Hash(KyFormMemory, 0, values, 1, err), 0xFFFFFFFFu * factor);
    EXPECT_EQ(KyBooleanTab.Hash(KyFormMemory, 0, values, 3, err), (0xFFFFFFFFu ^ 1u ^ 0xFFFFFF80u) * factor);
    EXPECT_EQ(err, 0);
}

TEST(BooleanRow, AssignsConstructsAndTranslates) {
    KyBoolean src[] = {OfByte(0xFF), 1, 0};
    KyBoolean dst[3];
    KyBooleanTab.Assignment(dst, src, 3, 0);
    EXPECT_EQ(Hex(dst, 3), "FF 01 00");
    KyBooleanTab.Copy(dst, src + 1, 3, 1);
    EXPECT_EQ(Hex(dst, 3), "01 01 01");
    EXPECT_EQ(KyBooleanTab.Translate(dst, KyFormMemory, 0, src, KyFormReversed, 0, 3), 3u);
    EXPECT_EQ(Hex(dst, 3), "FF 01 00");
    unsigned char stored[5] = {0xA5, 0xA5, 0xA5, 0xA5, 0xA5};
    EXPECT_EQ(KyBooleanTab.Translate(stored, KyFormReversed, 4, src, KyFormNative, 0, 3), 3u);
    EXPECT_EQ(Hex(stored, 5), "FF 01 00 00 A5");
    EXPECT_EQ(KyBooleanTab.Translate(stored, KyFormNative, 1, src + 1, KyFormNative, 2, 2), 1u);
    EXPECT_EQ(Hex(stored, 5), "01 01 00 00 A5");
    KyBooleanTab.Constructor(src, 2, 0);
    EXPECT_EQ(Hex(src, 3), "00 00 00");
    KyBooleanTab.Destructor(dst, 3, 0);
    EXPECT_EQ(Hex(dst, 3), "FF 01 00");
}

TEST(BooleanRow, Prints) {
    KyTypeMgr manager(5);
    KyBoolean values[] = {OfByte(0xFF), 0, 1};
    const char* const texts[] = {"{NULL}", "FALSE", "TRUE"};
    for (int i = 0; i < 3; ++i) {
        for (const char* format : {"noop", "%d", static_cast<const char*>(nullptr)}) {
            KyString out("before");
            EXPECT_STREQ(KyBooleanTab.PrintToKyString(out, values + i, format, 1).StrGet(), texts[i]);
        }
    }
    KyString out;
    EXPECT_STREQ(manager.PrintToKyString(KyBOOLEAN_T, out, values, nullptr, 3).StrGet(), "{NULL},FALSE,TRUE");
}

TEST(BooleanRow, Kept_OnlyTheByteOnePrintsAsTrue) {
    for (int byte = 0; byte < 0xFF; ++byte) {
        KyBoolean value = OfByte(byte);
        KyString out;
        EXPECT_STREQ(KyBooleanTab.PrintToKyString(out, &value, "noop", 1).StrGet(), byte == 1 ? "TRUE" : "FALSE");
        EXPECT_EQ(value == 1, byte != 0);
    }
}

TEST(BooleanRow, PrintsIntoANullString) {
    KyBoolean values[] = {1, OfByte(0xFF)};
    for (int i = 0; i < 2; ++i) {
        KyString out;
        out.SetNullValue();
        EXPECT_STREQ(KyBooleanTab.PrintToKyString(out, values + i, "noop", 1).StrGet(), i == 0 ? "TRUE" : "{NULL}");
        EXPECT_FALSE(out.IsNullValue());
    }
}

struct Scanned {
    const char* text;
    int byte;
};

TEST(BooleanRow, Scans) {
    const Scanned table[] = {
        {"T", 1},     {"t", 1},     {"TRUE", 1},    {"true", 1},     {"1", 1},       {"True", 0},
        {"tRUE", 0},  {"TRUE ", 0}, {" TRUE", 0},   {"yes", 0},      {"10", 0},      {"", 0},
        {"FALSE", 0}, {"{NULL", 0}, {"{NULL}", -1}, {"{NULL}1", -1}, {" {NULL}", 0}, {"{null}", 0},
    };
    for (const Scanned& each : table) {
        KyBoolean value = OfByte(7);
        KyString text(each.text);
        EXPECT_EQ(KyBooleanTab.ScanFromKyString(&value, text, "noop", 1), &value);
        EXPECT_EQ(value.Get(), each.byte) << each.text;
    }
    KyString text("T");
    EXPECT_EQ(KyBooleanTab.ScanFromKyString(nullptr, text, "noop", 1), nullptr);
}

TEST(BooleanRow, ScansSixteenBitText) {
    const unsigned short trueText[] = {'t', 'r', 'u', 'e', 0};
    const unsigned short otherText[] = {'t', 'r', 0};  // whose first byte alone would be true
    const unsigned short nullText[] = {'{', 'N', 'U', 'L', 'L', '}', 0};
    KyBoolean value;
    KyString text(trueText);
    KyBooleanTab.ScanFromKyString(&value, text, nullptr, 1);
    EXPECT_EQ(value.Get(), 1);
    text = KyString(otherText);
    KyBooleanTab.ScanFromKyString(&value, text, nullptr, 1);
    EXPECT_EQ(value.Get(), 0);
    text = KyString(nullText);
    KyBooleanTab.ScanFromKyString(&value, text, nullptr, 1);
    EXPECT_EQ(value.Get(), -1);
}

TEST(BooleanRow, ScansANullStringAsFalse) {
    KyString text("T");
    text.SetNullValue();
    KyBoolean value(1);
    KyBooleanTab.ScanFromKyString(&value, text, nullptr, 1);
    EXPECT_EQ(value.Get(), 0);
}

TEST(BooleanRow, FollowsTheNullPrintString) {
    const KyString before = KyTypeMgr::GetNullPrintString();
    KyBoolean null = OfByte(0xFF);
    KyBoolean value;
    KyString out;
    KyString old("{NULL}");

    KyTypeMgr::SetNullPrintString("nil");
    EXPECT_STREQ(KyBooleanTab.PrintToKyString(out, &null, "noop", 1).StrGet(), "nil");
    KyBooleanTab.ScanFromKyString(&value, out, "noop", 1);
    EXPECT_EQ(value.Get(), -1);
    KyBooleanTab.ScanFromKyString(&value, old, "noop", 1);
    EXPECT_EQ(value.Get(), 0);

    KyTypeMgr::SetNullPrintString("");
    KyString yes("T");
    KyBooleanTab.ScanFromKyString(&value, yes, "noop", 1);
    EXPECT_EQ(value.Get(), 1);
    KyTypeMgr::SetNullPrintString(before);
}

TEST(BooleanRow, ConvertsToTextsAndBack) {
    KyTypeMgr manager(5);
    KyBoolean values[] = {OfByte(0xFF), 0, 1, OfByte(2)};
    KyTypeConvertData* record = manager.ConvertTo(KyBOOLEAN_T, values, 4);
    ASSERT_NE(record, nullptr);
    EXPECT_NE(record->GetString(0)->IsNullValue(), 0);
    EXPECT_STREQ(record->GetString(1)->StrGet(), "0");
    EXPECT_STREQ(record->GetString(2)->StrGet(), "1");
    EXPECT_STREQ(record->GetString(3)->StrGet(), "1");

    *record->GetString(3) = "123";
    auto* back = static_cast<KyBoolean*>(manager.ConvertFrom(KyBOOLEAN_T, record, 5));
    EXPECT_EQ(Hex(back, 5), "FF 00 01 01 FF");
    manager.Delete(KyBOOLEAN_T, back, 5);
    *record->GetString(1) = "";
    *record->GetString(2) = "true";
    back = static_cast<KyBoolean*>(manager.ConvertFrom(KyBOOLEAN_T, record, 4));
    EXPECT_EQ(Hex(back, 4), "FF 00 00 01");
    manager.Delete(KyBOOLEAN_T, back, 4);
    delete record;
}

TEST(BooleanRow, ConvertsSixteenBitTexts) {
    const unsigned short one[] = {'1', 'x', 0};
    const unsigned short startsLikeOne[] = {0x3100 + '1', 0};
    KyTypeMgr manager(5);
    KyTypeConvertData record(KySTRING_T, 2, KyStringCreate(2), &manager);
    *record.GetString(0) = KyString(one);
    *record.GetString(1) = KyString(startsLikeOne);
    auto* back = static_cast<KyBoolean*>(manager.ConvertFrom(KyBOOLEAN_T, &record, 2));
    EXPECT_EQ(Hex(back, 2), "01 00");
    manager.Delete(KyBOOLEAN_T, back, 2);
}

TEST(BooleanRow, WithoutTextsAllAreNull) {
    KyTypeMgr manager(5);
    KyTypeConvertData noTexts(Ky1B_T, 2, manager.Create(Ky1B_T, 2), &manager);
    for (KyTypeConvertData* record : {static_cast<KyTypeConvertData*>(nullptr), &noTexts}) {
        auto* values = static_cast<KyBoolean*>(manager.ConvertFrom(KyBOOLEAN_T, record, 2));
        EXPECT_EQ(Hex(values, 2), "FF FF");
        manager.Delete(KyBOOLEAN_T, values, 2);
    }
    KyBoolean value;
    KyTypeConvertData* record = manager.ConvertTo(KyBOOLEAN_T, &value, 0);
    ASSERT_NE(record, nullptr);
    void* none = manager.ConvertFrom(KyBOOLEAN_T, record, 0);
    EXPECT_NE(none, nullptr);
    manager.Delete(KyBOOLEAN_T, none, 0);
    delete record;
}

TEST(BooleanRow, StepsFromNullToTrue) {
    for (const unsigned char what : {KyValueStep, KyValueStepNext}) {
        KyBoolean value = OfByte(0xFF);
        EXPECT_EQ(KyBooleanTab.GetValue(&value, 0, KyFormMemory, what), 0);
        EXPECT_EQ(value.Get(), 0);
        EXPECT_EQ(KyBooleanTab.GetValue(&value, 3, KyFormMemory, what), 0);
        EXPECT_EQ(value.Get(), 1);
        EXPECT_EQ(KyBooleanTab.GetValue(&value, 1, KyFormMemory, what), KyErrNoSuccessor);
        EXPECT_EQ(value.Get(), 1);
        EXPECT_EQ(KyBooleanTab.GetValue(&value, 1, KyFormNative, what), KyErrNotSupported);
    }
    for (const int odd : {2, 0x80}) {
        KyBoolean value = OfByte(odd);
        EXPECT_EQ(KyBooleanTab.GetValue(&value, 1, KyFormMemory, KyValueStep), KyErrNoSuccessor) << "it counts as true";
        EXPECT_EQ(value.Get(), static_cast<signed char>(odd));
    }
    KyBoolean value = OfByte(0xFF);
    for (int byte = 0; byte < 256; ++byte) {
        const auto other = static_cast<unsigned char>(byte);
        if (other != KyFormMemory) {
            EXPECT_EQ(KyBooleanTab.GetValue(&value, 1, other, KyValueStep), KyErrNotSupported) << byte;
        }
        if (other != KyValueStep && other != KyValueStepNext) {
            EXPECT_EQ(KyBooleanTab.GetValue(&value, 1, KyFormMemory, other), KyErrNotSupported) << byte;
        }
    }
    EXPECT_EQ(value.Get(), -1);
}

TEST(BooleanRow, StoredValuesAreSteppedByTheManager) {
    KyTypeMgr manager(5);
    unsigned char stored[] = {0xFF, 0xFF};
    for (const int byte : {0, 1}) {
        EXPECT_EQ(manager.GetValue(KyBOOLEAN_T, stored, 2, KyFormReversed, KyValueStep), 0);
        EXPECT_EQ(stored[0], byte);
    }
    EXPECT_EQ(manager.GetValue(KyBOOLEAN_T, stored, 2, KyFormNative, KyValueStep), KyErrNoSuccessor);
    EXPECT_EQ(Hex(stored, 2), "01 FF") << "one value is stepped, whatever the count";
}

}  // namespace
