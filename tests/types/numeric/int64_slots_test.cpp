#include "int64_slots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "kystring.h"
#include "kytypes.h"
#include "kytypmgr.h"
#include "support/created_arrays.h"
#include "support/golden.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

constexpr long long kLeast = std::numeric_limits<long long>::min();
constexpr long long kLargest = std::numeric_limits<long long>::max();

int Compare(unsigned char form, std::vector<KyInt64> a, std::vector<KyInt64> b) {
    std::vector<unsigned char> storedA(8 * a.size());
    std::vector<unsigned char> storedB(8 * b.size());
    Int64Store(storedA.data(), a.data(), form, static_cast<unsigned>(a.size()));
    Int64Store(storedB.data(), b.data(), form, static_cast<unsigned>(b.size()));
    int err = -1;
    const int result = KyInt64Tab.Compare(form, 0, storedA.data(), 0, storedB.data(), 0,
                                          static_cast<unsigned>(std::min(a.size(), b.size())), err);
    EXPECT_EQ(err, 0);
    return result;
}

TEST(Int64Row, IsNamedAndMeasured) {
    EXPECT_STREQ(KyInt64Tab.typeName, "KyInt64");
    EXPECT_STREQ(KyInt64Tab.typeCodeName, "KyINT64_T");
    EXPECT_STREQ(KyInt64Tab.printFormat, "%S");
    EXPECT_EQ(KyInt64Tab.sizeWord, 0x10008u);
    EXPECT_EQ(KyInt64Tab.SetNull, nullptr);
    KyInt64 value(5);
    EXPECT_EQ(KyInt64Tab.IsNull(&value), 0);
    for (const unsigned count : {0u, 1u, 7u}) {
        EXPECT_EQ(KyInt64Tab.NullSizeGet(count), 8 * count);
        EXPECT_EQ(KyInt64Tab.SizeGet(nullptr, KyFormMemory, KyFormReversed, count), 8 * count);
        EXPECT_EQ(KyInt64Tab.SizeGetFromMemFile(nullptr, KyFormNative, count), 8 * count);
    }
}

TEST(Int64Row, AgreesWithItsGoldenFile) { CheckGolden(KyInt64Tab); }

TEST(Int64Row, Kept_ReversedFormKeepsTheLowHalfFirst) {
    KyInt64 value(0x0102030405060708);
    std::int64_t plain = 0x0102030405060708;
    unsigned char bytes[8];
    EXPECT_EQ(KyInt64Tab.Store(bytes, &value, KyFormReversed, 1), 8u);
    EXPECT_EQ(Hex(bytes, 8), "05 06 07 08 01 02 03 04");
    Ky8BTab.Store(bytes, &plain, KyFormReversed, 1);
    EXPECT_EQ(Hex(bytes, 8), "01 02 03 04 05 06 07 08");
}

TEST(Int64Row, StoresAndLoadsAtAnyOffset) {
    const KyInt64 values[] = {KyInt64(0x0102030405060708), KyInt64(-2), KyInt64(kLeast)};
    const std::string reversed = "05 06 07 08 01 02 03 04 FF FF FF FE FF FF FF FF 00 00 00 00 80 00 00 00";
    for (std::size_t offset = 0; offset < 8; ++offset) {
        for (const int filling : {0x00, 0xFF}) {
            const auto fill = static_cast<unsigned char>(filling);
            std::vector<unsigned char> area(offset + 24 + 8, fill);
            EXPECT_EQ(KyInt64Tab.Store(area.data() + offset, values, KyFormReversed, 3), 24u);
            EXPECT_EQ(Hex(area.data() + offset, 24), reversed);
            EXPECT_EQ(std::count(area.begin(), area.begin() + static_cast<int>(offset), fill),
                      static_cast<int>(offset));
            EXPECT_EQ(std::count(area.end() - 8, area.end(), fill), 8);
            KyInt64 back[3];
            EXPECT_EQ(KyInt64Tab.Load(back, area.data() + offset, KyFormReversed, 3), 24u);
            EXPECT_TRUE(std::equal(values, values + 3, back));
        }
    }
    EXPECT_EQ(KyInt64Tab.Store(nullptr, nullptr, KyFormReversed, 0), 0u);
}

TEST(Int64Row, CreatesZeroesAndPrecedesArraysByTheirCount) {
    ExpectCreatedArrays(KyInt64Tab, {0}, [](void* created, unsigned count) {
        const auto* values = static_cast<KyInt64*>(created);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(values) % alignof(KyInt64), 0u);
        EXPECT_EQ(std::count(values, values + count, KyInt64(0)), static_cast<int>(count));
    });
}

TEST(Int64Row, OrdersElementByElementInEveryForm) {
    const long long ascending[] = {kLeast, kLeast + 1, -4294967297, -4294967296, -4294967295, -2,         -1,      0,
                                   1,      255,        256,         4294967295,  4294967296,  4294967297, kLargest};
    for (const unsigned char form : {KyFormMemory, KyFormNative, KyFormReversed, static_cast<unsigned char>(0x12),
                                     static_cast<unsigned char>(0x88), static_cast<unsigned char>(5)}) {
        for (const long long a : ascending) {
            for (const long long b : ascending) {
                const int expected = (a > b) - (a < b);
                EXPECT_EQ(Compare(form, {a}, {b}), expected) << a << ' ' << b;
                EXPECT_EQ(Compare(form, {7, a, 7}, {7, b, 7}), expected) << a << ' ' << b;
                EXPECT_EQ(Compare(form, {7, a, 9}, {7, b, 8}), expected != 0 ? expected : 1) << a << ' ' << b;
            }
        }
    }
    EXPECT_EQ(Compare(KyFormReversed, {}, {}), 0);
}

struct Ended {
    unsigned len1;
    unsigned len2;
    int result;
    int err;
};

TEST(Int64Row, TheOperatorWordIsIgnored) {
    KyInt64 a(5);
    KyInt64 b(6);
    for (unsigned op = 0; op < 0x10000; op += 0x0111) {
        int err = -1;
        EXPECT_EQ(KyInt64Tab.Compare(KyFormMemory, 0, &a, 0, &b, static_cast<unsigned short>(op), 1, err), -1);
    }
}

TEST(Int64Row, TheOnlyElementIsReadWhateverTheLength) {
    KyInt64 a(5);
    KyInt64 b(6);
    for (unsigned length = 1; length <= 8; ++length) {
        int err = -1;
        EXPECT_EQ(KyInt64Tab.Compare(KyFormMemory, length, &a, length, &b, 0, 1, err), -1);
        EXPECT_EQ(err, 0);
        EXPECT_EQ(KyInt64Tab.Hash(KyFormMemory, length, &a, 1, err), 5 * 1103515245u);
        EXPECT_EQ(err, 0);
    }
}

TEST(Int64Row, TakesValuesAtAnyAddress) {
    const long long numbers[] = {0x0102030405060708, -2};
    for (std::size_t offset = 0; offset < 8; ++offset) {
        unsigned char area[8 + sizeof numbers];
        unsigned char* const at = area + offset;
        std::memcpy(at, numbers, sizeof numbers);
        KyInt64 values[] = {numbers[0], numbers[1]};
        for (const unsigned char form : {KyFormMemory, KyFormNative, KyFormReversed}) {
            int err = -1;
            EXPECT_EQ(KyInt64Tab.Compare(form, 0, at, 0, values, 0, 2, err), 0);
            EXPECT_EQ(KyInt64Tab.Hash(form, 0, at, 2, err), KyInt64Tab.Hash(form, 0, values, 2, err));
        }
        KyString out;
        EXPECT_STREQ(KyInt64Tab.PrintToKyString(out, at, "%S", 1).StrGet(), "72623859790382856");
        KyTypeConvertData* record = KyTypeMgr(5).ConvertTo(KyINT64_T, at, 2);
        EXPECT_STREQ(record->GetString(1)->StrGet(), "-2");
        KyStringDelete(static_cast<KyString*>(record->data), 2);
        record->data = nullptr;
        delete record;
        EXPECT_EQ(KyInt64Tab.GetValue(at + 8, 1, KyFormMemory, KyValueStep), 0);
        KyString text("77");
        EXPECT_EQ(KyInt64Tab.ScanFromKyString(at, text, "%S", 1), at);
        EXPECT_EQ(Hex(at, 16), "4D 00 00 00 00 00 00 00 FF FF FF FF FF FF FF FF");
        KyInt64Tab.Copy(at, values, 2, 1);
        EXPECT_EQ(std::memcmp(at + 8, values, 8), 0);
        KyInt64Tab.Constructor(at, 1, 0);
        EXPECT_EQ(Hex(at, 8), "00 00 00 00 00 00 00 00");
    }
}

TEST(Int64Row, SaysThatABufferEnds) {
    // The third elements differ; so do the fourth, the other way round.
    KyInt64 a[] = {1, 2, 3, 9};
    KyInt64 b[] = {1, 2, 4, 8};
    const Ended table[] = {
        {0, 0, -1, 0},
        {32, 32, -1, 0},
        {16, 32, 0, KyErrBufferEnd},
        {32, 16, 0, KyErrBufferEnd},
        {17, 17, -1, KyErrBufferEnd},  // the third element starts inside, and ends the walk besides deciding it
        {24, 32, -1, KyErrBufferEnd},
        {25, 25, -1, 0},
        {1, 1, 0, KyErrBufferEnd},
        {8, 0, 0, KyErrBufferEnd},
    };
    for (const unsigned char form : {KyFormMemory, KyFormNative, KyFormReversed}) {
        for (const Ended& each : table) {
            KyInt64 storedA[4];
            KyInt64 storedB[4];
            Int64Store(storedA, a, form, 4);
            Int64Store(storedB, b, form, 4);
            int err = -1;
            EXPECT_EQ(KyInt64Tab.Compare(form, each.len1, storedA, each.len2, storedB, 0, 4, err), each.result);
            EXPECT_EQ(err, each.err) << each.len1 << ' ' << each.len2;
        }
    }
}

TEST(Int64Row, ReadsNothingBehindTheBuffers) {
    GuardedBuffer a(24);
    GuardedBuffer b(24);
    std::memset(a.data(), 0, 24);
    std::memset(b.data(), 0, 24);
    int err = -1;
    EXPECT_EQ(KyInt64Tab.Compare(KyFormReversed, 24, a.data(), 24, b.data(), 0, 5, err), 0);
    EXPECT_EQ(err, KyErrBufferEnd);
    EXPECT_EQ(KyInt64Tab.Compare(KyFormReversed, 0, a.data(), 0, b.data(), 0, 3, err), 0);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(KyInt64Tab.Hash(KyFormReversed, 24, a.data(), 5, err), 0u);
    EXPECT_EQ(err, KyErrBufferEnd);
    EXPECT_EQ(KyInt64Tab.Compare(KyFormMemory, 0, nullptr, 0, nullptr, 0, 0, err), 0);
    EXPECT_EQ(err, 0);
}

TEST(Int64Row, Kept_HashesTheLowHalvesOnly) {
    constexpr unsigned factor = 1103515245;
    KyInt64 one(1);
    KyInt64 high(0x100000001);
    int err = -1;
    EXPECT_EQ(KyInt64Tab.Hash(KyFormMemory, 0, &one, 1, err), factor);
    EXPECT_EQ(KyInt64Tab.Hash(KyFormMemory, 0, &high, 1, err), factor);
    EXPECT_EQ(err, 0);

    KyInt64 values[100];
    std::uint32_t low = 0;
    for (int i = 0; i < 100; ++i) {
        values[i] = KyInt64(0x123456789ABCDEF) * (i + 1);
        low ^= static_cast<std::uint32_t>(values[i].GetU8b());
    }
    for (const unsigned char form : {KyFormMemory, KyFormNative, KyFormReversed}) {
        unsigned char stored[800];
        Int64Store(stored, values, form, 100);
        EXPECT_EQ(KyInt64Tab.Hash(form, 0, stored, 100, err), low * factor);
        EXPECT_EQ(err, 0);
        EXPECT_EQ(KyInt64Tab.Hash(form, 0, stored, 0, err), 0u);
        EXPECT_EQ(KyInt64Tab.Hash(form, 1, stored, 2, err), static_cast<unsigned>(values[0].GetU8b()) * factor);
        EXPECT_EQ(err, KyErrBufferEnd);
    }
    EXPECT_EQ(KyInt64Tab.Hash(KyFormMemory, 0, values, 100, err), Ky8BTab.Hash(KyFormMemory, 0, values, 100, err));
}

TEST(Int64Row, AssignsEachOrTheFirst) {
    KyInt64 src[] = {1, -2, kLeast};
    for (auto* assign : {KyInt64Tab.Assignment, KyInt64Tab.Copy}) {
        KyInt64 dst[3];
        assign(dst, src, 3, 0);
        EXPECT_TRUE(std::equal(src, src + 3, dst));
        assign(dst, src + 1, 3, 1);
        EXPECT_EQ(std::count(dst, dst + 3, KyInt64(-2)), 3);
        assign(dst, src, 0, 1);
        EXPECT_EQ(dst[0], -2);
    }
    KyInt64Tab.Constructor(src, 2, 0);
    EXPECT_EQ(src[0], 0);
    EXPECT_EQ(src[1], 0);
    EXPECT_EQ(src[2], kLeast);
    KyInt64Tab.Destructor(src, 3, 0);
    EXPECT_EQ(src[2], kLeast);
}

TEST(Int64Row, TranslatesBetweenForms) {
    KyInt64 values[] = {0x0102030405060708, -2};
    unsigned char stored[20];
    EXPECT_EQ(KyInt64Tab.Translate(stored, KyFormReversed, 0, values, KyFormMemory, 0, 2), 16u);
    EXPECT_EQ(Hex(stored, 16), "05 06 07 08 01 02 03 04 FF FF FF FE FF FF FF FF");
    KyInt64 back[2];
    EXPECT_EQ(KyInt64Tab.Translate(back, KyFormMemory, 0, stored, KyFormReversed, 0, 2), 16u);
    EXPECT_TRUE(std::equal(values, values + 2, back));
    KyInt64 copy[2];
    EXPECT_EQ(KyInt64Tab.Translate(copy, KyFormMemory, 0, values, KyFormMemory, 0, 2), 16u);
    EXPECT_TRUE(std::equal(values, values + 2, copy));
    // Persistent to persistent never turns bytes.
    unsigned char other[20];
    EXPECT_EQ(KyInt64Tab.Translate(other, KyFormNative, 20, stored, KyFormReversed, 0, 2), 16u);
    EXPECT_EQ(Hex(other, 20), Hex(stored, 16) + " 00 00 00 00");
    std::fill(other, other + 20, 0xA5);
    EXPECT_EQ(KyInt64Tab.Translate(other, KyFormNative, 8, stored, KyFormReversed, 16, 2), 8u);
    EXPECT_EQ(Hex(other, 9), Hex(stored, 8) + " A5");
}

TEST(Int64Row, ConvertsToTextsAndBack) {
    KyTypeMgr manager(5);
    KyInt64 values[] = {0, -1, kLeast, kLargest, 4294967296};
    const char* const texts[] = {"0", "-1", "-9223372036854775808", "9223372036854775807", "4294967296"};
    KyTypeConvertData* record = manager.ConvertTo(KyINT64_T, values, 5);
    ASSERT_NE(record, nullptr);
    for (int i = 0; i < 5; ++i) EXPECT_STREQ(record->GetString(i)->StrGet(), texts[i]);
    auto* back = static_cast<KyInt64*>(manager.ConvertFrom(KyINT64_T, record, 5));
    EXPECT_TRUE(std::equal(values, values + 5, back));
    manager.Delete(KyINT64_T, back, 5);

    record->GetString(1)->SetNullValue();
    *record->GetString(2) = "";
    // One text more is asked for than there are.
    back = static_cast<KyInt64*>(manager.ConvertFrom(KyINT64_T, record, 6));
    EXPECT_EQ(back[1], 0);
    EXPECT_EQ(back[2], 0);
    EXPECT_EQ(back[3], kLargest);
    EXPECT_EQ(back[5], 0);
    manager.Delete(KyINT64_T, back, 6);
    delete record;

    back = static_cast<KyInt64*>(manager.ConvertFrom(KyINT64_T, nullptr, 2));
    EXPECT_EQ(back[0], 0);
    EXPECT_EQ(back[1], 0);
    manager.Delete(KyINT64_T, back, 2);
}

struct FromText {
    const char* text;
    long long value;
};

TEST(Int64Row, TextsConvertInTheirOwnBaseAndWithinTheRange) {
    const FromText table[] = {
        {"010", 8},  {"0x10", 16},
        {" -5", -5}, {"12ab", 12},
        {"x", 0},    {"99999999999999999999", kLargest},
        {"1.9", 1},  {"-99999999999999999999", kLeast},
    };
    KyTypeMgr manager(5);
    KyTypeConvertData record(KySTRING_T, 1, KyStringCreate(1), &manager);
    for (const FromText& each : table) {
        *record.GetString(0) = each.text;
        auto* value = static_cast<KyInt64*>(manager.ConvertFrom(KyINT64_T, &record, 1));
        EXPECT_EQ(value->Get8b(), each.value) << each.text;
        manager.Delete(KyINT64_T, value, 1);
    }
}

TEST(Int64Row, ConvertsNoElementsAtAll) {
    KyTypeMgr manager(5);
    KyInt64 value;
    KyTypeConvertData* record = manager.ConvertTo(KyINT64_T, &value, 0);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->count, 0u);
    void* back = manager.ConvertFrom(KyINT64_T, record, 0);
    EXPECT_NE(back, nullptr);
    manager.Delete(KyINT64_T, back, 0);
    delete record;
}

TEST(Int64Row, PrintsAndScans) {
    KyTypeMgr manager(5);
    KyInt64 values[] = {-5, 6, 7};
    KyString out("before");
    EXPECT_STREQ(manager.PrintToKyString(KyINT64_T, out, values, nullptr, 1).StrGet(), "-5");
    EXPECT_STREQ(manager.PrintToKyString(KyINT64_T, out, values, "%x", 0).StrGet(), "0xfffffffffffffffb");
    out = "";
    EXPECT_STREQ(manager.PrintToKyString(KyINT64_T, out, values, nullptr, 3).StrGet(), "-5,6,7");
    EXPECT_STREQ(KyInt64Tab.PrintToKyString(out, values, nullptr, 1).StrGet(), "");

    KyString text("-0x1F");
    EXPECT_EQ(KyInt64Tab.ScanFromKyString(values, text, "%x", 1), values);
    EXPECT_EQ(values[0], -31);
    EXPECT_EQ(values[1], 6);
    EXPECT_EQ(KyInt64Tab.ScanFromKyString(nullptr, text, "%x", 1), nullptr);
    EXPECT_EQ(KyInt64Tab.ScanFromKyString(values, text, nullptr, 1), values);
    EXPECT_EQ(values[0], -31);
}

TEST(Int64Row, StepsAndWraps) {
    KyInt64 value(4294967295);
    EXPECT_EQ(KyInt64Tab.GetValue(&value, 1, KyFormMemory, KyValueStep), 0);
    EXPECT_EQ(value, 4294967296);
    EXPECT_EQ(KyInt64Tab.GetValue(&value, 0, KyFormMemory, KyValueStepNext), 0);
    EXPECT_EQ(value, 4294967297);
    EXPECT_EQ(KyInt64Tab.GetValue(&value, 1, KyFormMemory, KyValueKeep), 0);
    EXPECT_EQ(value, 4294967297);
    value = kLargest;
    EXPECT_EQ(KyInt64Tab.GetValue(&value, 1, KyFormMemory, KyValueStep), 0);
    EXPECT_EQ(value, kLeast);
    value = 5;
    EXPECT_EQ(KyInt64Tab.GetValue(&value, 1, KyFormMemory, KyValueLeast), 0);
    EXPECT_EQ(value, kLeast);
    EXPECT_EQ(KyInt64Tab.GetValue(&value, 1, KyFormNative, KyValueStep), KyErrNotSupported);
    EXPECT_EQ(KyInt64Tab.GetValue(&value, 1, KyFormMemory, 80), KyErrNotSupported);
    EXPECT_EQ(value, kLeast);
}

TEST(Int64Row, Kept_StoredNumbersAreSteppedInMachineOrderWhateverTheirForm) {
    KyTypeMgr manager(5);
    unsigned char stored[] = {5, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(manager.GetValue(KyINT64_T, stored, 1, KyFormNative, KyValueStep), 0);
    EXPECT_EQ(Hex(stored, 8), "06 00 00 00 00 00 00 00");
    unsigned char reversed[] = {0, 0, 0, 5, 0, 0, 0, 0};
    EXPECT_EQ(manager.GetValue(KyINT64_T, reversed, 1, KyFormReversed, KyValueStep), 0);
    EXPECT_EQ(Hex(reversed, 8), "01 00 00 05 00 00 00 00");
}

TEST(Int64Row, HasNoNullAndBecomesZeroInstead) {
    KyTypeMgr manager(5);
    KyInt64 value(-5);
    EXPECT_EQ(manager.SupportsNullValue(KyINT64_T), 0);
    EXPECT_EQ(manager.SetNullValue(KyINT64_T, &value), 0);
    EXPECT_EQ(value, 0);
}

}  // namespace
