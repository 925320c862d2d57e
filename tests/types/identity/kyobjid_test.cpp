#include "kyobjid.h"

#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <random>

#include "kystring.h"
#include "support/hex.h"

namespace {

unsigned long long NumberOf(const KyObjId& id) { return static_cast<unsigned long long>(id.H) << 32 | id.L; }

KyObjId OfNumber(unsigned long long number) {
    return {7, static_cast<unsigned int>(number), static_cast<unsigned short>(number >> 32)};
}

constexpr unsigned long long kNumbers = 1ULL << 48;

TEST(ObjId, IdentityLeavesTheBlockOut) {
    EXPECT_TRUE(KyObjId(7, 5, 1) == KyObjId(9, 5, 1));
    EXPECT_EQ(KyObjId(7, 5, 1) != KyObjId(9, 5, 1), 0);
    EXPECT_FALSE(KyObjId(7, 5, 1) == KyObjId(7, 6, 1));
    EXPECT_FALSE(KyObjId(7, 5, 1) == KyObjId(7, 5, 2));
}

TEST(ObjId, OrderIsTheDifferenceOfTheHighPartsThenTheSignOfTheLow) {
    EXPECT_EQ(KyObjId(0, 0, 0xFFFF) != KyObjId(0, 0xFFFFFFFF, 0), 0xFFFF);
    EXPECT_EQ(KyObjId(0, 0xFFFFFFFF, 0) != KyObjId(0, 0, 0xFFFF), -0xFFFF);
    EXPECT_EQ(KyObjId(0, 0, 5) != KyObjId(0, 9, 3), 2);
    EXPECT_EQ(KyObjId(0, 0x80000000, 5) != KyObjId(0, 1, 5), 1);
    EXPECT_EQ(KyObjId(9, 1, 5) != KyObjId(0, 0x80000000, 5), -1);
}

TEST(ObjId, StartsAsNullAndTakesFields) {
    const KyObjId null;
    EXPECT_EQ(null.B, 0u);
    EXPECT_EQ(null.L, 0u);
    EXPECT_EQ(null.H, 0u);
    const KyObjId id(1, 2, 3);
    EXPECT_EQ(id.B, 1u);
    EXPECT_EQ(id.L, 2u);
    EXPECT_EQ(id.H, 3u);
}

TEST(ObjId, StepsCarryAndBorrow) {
    KyObjId id(7, 0xFFFFFFFF, 3);
    EXPECT_EQ(&++id, &id);
    EXPECT_EQ(NumberOf(id), 0x400000000u);
    EXPECT_EQ(&--id, &id);
    EXPECT_EQ(NumberOf(id), 0x3FFFFFFFFu);
    id = KyObjId(7, 0, 4);
    EXPECT_EQ(&(id += -1), &id);
    EXPECT_EQ(NumberOf(id), 0x3FFFFFFFFu);
    EXPECT_EQ(id.B, 7u);
}

TEST(ObjId, StepsWrapModulo48Bits) {
    std::mt19937_64 random(3);
    const unsigned long long edges[] = {0, 1, 0xFFFF, 0xFFFFFFFF, 0x100000000, 0x0000FFFF00000000, kNumbers - 1};
    for (int i = 0; i < 2000; ++i) {
        const unsigned long long start = (edges[i % 7] + (i % 5 == 0 ? random() : 0)) % kNumbers;
        KyObjId id = OfNumber(start);
        ++id;
        EXPECT_EQ(NumberOf(id), (start + 1) % kNumbers);
        id = OfNumber(start);
        --id;
        EXPECT_EQ(NumberOf(id), (start + kNumbers - 1) % kNumbers);
        for (const int n : {0, 1, -1, 32767, -32768, static_cast<int>(random() % 65536) - 32768}) {
            id = OfNumber(start);
            id += static_cast<short>(n);
            EXPECT_EQ(NumberOf(id), (start + kNumbers + static_cast<unsigned long long>(n)) % kNumbers) << start << n;
            EXPECT_EQ(id.B, 7u);
        }
    }
}

TEST(ObjId, TheHighestValueHasNoBlock) {
    KyObjId id(7, 5, 1);
    id.SetHighestValue();
    EXPECT_EQ(NumberOf(id), kNumbers - 1);
    EXPECT_EQ(id.B, 0u);
}

TEST(ObjId, OperationsLeaveTheBytesBehindIt) {
    // As in a reference, whose next fields stand where an object id is padded.
    alignas(KyRef) unsigned char area[sizeof(KyRef)];
    auto* id = new (area) KyObjId();
    const auto expectUntouched = [&area] { EXPECT_EQ(Hex(area + 10, 6), "D1 D2 C1 C2 F1 F2"); };
    const unsigned char behind[] = {0xD1, 0xD2, 0xC1, 0xC2, 0xF1, 0xF2};
    std::memcpy(area + 10, behind, sizeof behind);
    const KyObjId other(1, 0xFFFFFFFF, 3);
    *id = other;
    expectUntouched();
    EXPECT_EQ(Hex(area, 10), "01 00 00 00 FF FF FF FF 03 00");
    ++*id;
    --*id;
    *id += 5;
    expectUntouched();
    id->SetHighestValue();
    expectUntouched();
    EXPECT_EQ(Hex(area, 10), "00 00 00 00 FF FF FF FF FF FF");
    id->ScanFromKyString("(1-2#3)", nullptr);
    expectUntouched();
    EXPECT_EQ(Hex(area, 10), "03 00 00 00 02 00 00 00 01 00");
    id->ScanFromKyString("{NULL}", nullptr);
    expectUntouched();
    EXPECT_EQ(NumberOf(*id), 0u);
}

TEST(ClassId, NullIsFirstAndTheOthersFollowTheirNumbers) {
    const KyClassId ascending[] = {{0xFFFF, 0xFFFF}, {0, 0},           {0, 1},           {0, 0xFFFF},
                                   {1, 0},           {0x7FFF, 0x8000}, {0x8000, 0},      {0xFFFE, 0xFFFF},
                                   {0xFFFF, 0},      {0xFFFF, 1},      {0xFFFF, 0x7FFF}, {0xFFFF, 0xFFFE}};
    for (int a = 0; a < 12; ++a) {
        for (int b = 0; b < 12; ++b) {
            EXPECT_EQ(ascending[a] != ascending[b], (a > b) - (a < b)) << a << ' ' << b;
            EXPECT_EQ(ascending[a] > ascending[b], a > b);
        }
    }
}

TEST(ClassId, StartsAsZero) {
    const KyClassId id;
    EXPECT_EQ(id.C, 0u);
    EXPECT_EQ(id.V, 0u);
    KyClassId copy(1, 2);
    copy = id;
    EXPECT_EQ(copy != id, 0);
}

std::string FieldsOf(const KyRef& ref) { return Hex(&ref, sizeof ref); }
std::string FieldsOf(const KyLocalRef& ref) { return Hex(&ref, sizeof ref); }

const KyObjId kObject(0x01020304, 0x05060708, 0x090A);
const KyClassId kClass(0x0D0E, 0x0F10);
const KyRef kReference(kObject, 0x0B0C, kClass);

TEST(Ref, FieldsStandOneBehindTheOther) {
    EXPECT_EQ(FieldsOf(kReference), "04 03 02 01 08 07 06 05 0A 09 0C 0B 0E 0D 10 0F");
    EXPECT_EQ(FieldsOf(KyRef()), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(FieldsOf(KyLocalRef(kObject, kClass)), "04 03 02 01 08 07 06 05 0A 09 00 00 0E 0D 10 0F");
    EXPECT_EQ(FieldsOf(KyLocalRef()), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST(Ref, TakesPartsAndKeepsTheRest) {
    KyRef ref = kReference;
    EXPECT_EQ(&(ref = KyObjId(1, 2, 3)), &ref);
    EXPECT_EQ(FieldsOf(ref), "01 00 00 00 02 00 00 00 03 00 0C 0B 0E 0D 10 0F");
    ref = kReference;
    EXPECT_EQ(&(ref = KyClassId(1, 2)), &ref);
    EXPECT_EQ(FieldsOf(ref), "04 03 02 01 08 07 06 05 0A 09 0C 0B 01 00 02 00");
    ref = kReference;
    EXPECT_EQ(&(ref = static_cast<unsigned short>(5)), &ref);
    EXPECT_EQ(FieldsOf(ref), "04 03 02 01 08 07 06 05 0A 09 05 00 0E 0D 10 0F");
    ref = kReference;
    EXPECT_EQ(&(ref = KyLocalRef(KyObjId(1, 2, 3), KyClassId(4, 5))), &ref);
    EXPECT_EQ(FieldsOf(ref), "01 00 00 00 02 00 00 00 03 00 00 00 04 00 05 00");
    KyRef copy;
    copy = kReference;
    EXPECT_EQ(FieldsOf(copy), FieldsOf(kReference));
}

TEST(Ref, OrderIsTheObjectThenTheOrigin) {
    const auto ref = [](unsigned int low, unsigned short high, unsigned short origin, unsigned short number) {
        return KyRef(KyObjId(low + origin, low, high), origin, KyClassId(number, number));
    };
    EXPECT_EQ(ref(5, 9, 0, 0) != ref(6, 2, 7, 0), 7);
    EXPECT_EQ(ref(5, 2, 9, 0) != ref(6, 2, 7, 0), -1);
    EXPECT_EQ(ref(5, 2, 0x8000, 0) != ref(5, 2, 7, 0), 1);
    EXPECT_EQ(ref(5, 2, 6, 3) != ref(5, 2, 7, 0), -1);
    EXPECT_EQ(ref(5, 2, 7, 3) != ref(5, 2, 7, 4), 0);
    EXPECT_TRUE(ref(5, 2, 7, 3) == ref(5, 2, 7, 4));
    EXPECT_FALSE(ref(5, 2, 6, 3) == ref(5, 2, 7, 3));
    EXPECT_FALSE(ref(4, 2, 6, 3) == ref(5, 2, 6, 3));
}

struct Validity {
    KyObjId object;
    unsigned short origin;
    unsigned short number;
    bool valid;
    bool validOrigin;
};

TEST(Ref, IsValidByItsObjectItsClassAndItsOrigin) {
    const Validity table[] = {
        {{9, 0, 0}, 0, 1, false, false},     {{9, 0, 0}, 0xFFFF, 1, false, false}, {{0, 1, 0}, 0, 1, true, true},
        {{0, 0, 1}, 0, 1, true, true},       {{0, 1, 0}, 0, 0, false, false},      {{0, 1, 0}, 0xFFFF, 0, false, true},
        {{0, 1, 0}, 0xFFFF, 1, false, true}, {{0, 1, 0}, 0xFFFE, 1, true, true},   {{0, 1, 0}, 5, 0xFFFF, true, true},
    };
    for (const Validity& each : table) {
        const KyRef ref(each.object, each.origin, KyClassId(each.number, 7));
        SCOPED_TRACE(FieldsOf(ref));
        EXPECT_EQ(ref.IsValid(), each.valid);
        EXPECT_EQ(ref.IsInvalid(), !each.valid);
        EXPECT_EQ(ref.IsValidOriginId(), each.validOrigin);
        EXPECT_EQ(ref.IsInvalidOriginId(), !each.validOrigin);
    }
}

TEST(LocalRef, TakesPartsAndNeverAnOrigin) {
    KyLocalRef ref;
    EXPECT_EQ(&(ref = kReference), &ref);
    EXPECT_EQ(FieldsOf(ref), "04 03 02 01 08 07 06 05 0A 09 00 00 0E 0D 10 0F");
    EXPECT_EQ(&(ref = KyObjId(1, 2, 3)), &ref);
    EXPECT_EQ(FieldsOf(ref), "01 00 00 00 02 00 00 00 03 00 00 00 0E 0D 10 0F");
    EXPECT_EQ(&(ref = KyClassId(4, 5)), &ref);
    EXPECT_EQ(FieldsOf(ref), "01 00 00 00 02 00 00 00 03 00 00 00 04 00 05 00");
    KyLocalRef copy;
    copy = ref;
    EXPECT_EQ(FieldsOf(copy), FieldsOf(ref));
}

TEST(LocalRef, ComparesItsObject) {
    const KyLocalRef ref(KyObjId(9, 5, 2), KyClassId(1, 1));
    EXPECT_EQ(ref != KyLocalRef(KyObjId(0, 5, 2), KyClassId(7, 7)), 0);
    EXPECT_TRUE(ref == KyLocalRef(KyObjId(0, 5, 2), KyClassId(7, 7)));
    EXPECT_EQ(ref != KyLocalRef(KyObjId(0, 4, 2), KyClassId()), 1);
    EXPECT_EQ(ref != KyLocalRef(KyObjId(0, 4, 12), KyClassId()), -10);
    EXPECT_FALSE(ref == KyLocalRef(KyObjId(9, 4, 2), KyClassId(1, 1)));
}

TEST(LocalRef, DiffersFromReferencesWithAnOrigin) {
    const KyLocalRef ref(KyObjId(9, 5, 2), KyClassId(1, 1));
    EXPECT_EQ(ref != KyRef(KyObjId(0, 5, 2), 0, KyClassId()), 0);
    EXPECT_TRUE(ref == KyRef(KyObjId(0, 5, 2), 0, KyClassId()));
    EXPECT_EQ(ref != KyRef(KyObjId(9, 5, 2), 1, KyClassId(1, 1)), -1);
    EXPECT_FALSE(ref == KyRef(KyObjId(9, 5, 2), 0xFFFF, KyClassId(1, 1)));
    EXPECT_EQ(ref != KyRef(KyObjId(9, 5, 1), 1, KyClassId()), 1);
    EXPECT_EQ(ref != KyRef(KyObjId(9, 4, 2), 1, KyClassId()), 1);
    EXPECT_EQ(ref != KyRef(KyObjId(9, 6, 2), 0, KyClassId()), -1);
}

TEST(LocalRef, PrintsAndScansWithoutAnOrigin) {
    const KyLocalRef ref(KyObjId(3, 12, 0), KyClassId(8, 9));
    KyString out("before");
    EXPECT_EQ(&ref.PrintToKyString(out), &out);
    EXPECT_STREQ(out.StrGet(), "(0-12#3,8)");
    EXPECT_STREQ(KyLocalRef(KyObjId(3, 0, 0), KyClassId(8, 9)).PrintToKyString(out).StrGet(), "{NULL}");

    KyLocalRef back(KyObjId(1, 1, 1), KyClassId(1, 1));
    back.ScanFromKyString("(0-12#3,8)");
    EXPECT_EQ(FieldsOf(back), "03 00 00 00 0C 00 00 00 00 00 00 00 08 00 00 00");
    back.ScanFromKyString("{NULL} and more");
    EXPECT_EQ(FieldsOf(back), FieldsOf(KyLocalRef()));
}

TEST(Identifiers, PrintAndScanAsMembers) {
    KyString out;
    EXPECT_EQ(&KyObjId(3, 12, 0).PrintToKyString(out, nullptr), &out);
    EXPECT_STREQ(out.StrGet(), "(0-12#3)");
    EXPECT_STREQ(KyObjId(3, 12, 0).PrintToKyString(out, "%L").StrGet(), "12");
    EXPECT_STREQ(KyClassId(3, 12).PrintToKyString(out, nullptr).StrGet(), "(3v12)");
    EXPECT_STREQ(KyClassId(3, 12).PrintToKyString(out, "%V").StrGet(), "12");
    EXPECT_STREQ(kReference.PrintToKyString(out, nullptr).StrGet(), "(2828:2314-84281096#16909060, 3342)");
    EXPECT_STREQ(kReference.PrintToKyString(out, "%V").StrGet(), "3856");

    KyObjId object;
    object.ScanFromKyString("(1-2#3)", nullptr);
    EXPECT_TRUE(object == KyObjId(0, 2, 1));
    EXPECT_EQ(object.B, 3u);
    object.ScanFromKyString("77", "%L");
    EXPECT_EQ(NumberOf(object), 77u);
    KyClassId number;
    number.ScanFromKyString("(1v2)", nullptr);
    EXPECT_EQ(number != KyClassId(1, 2), 0);
    number.ScanFromKyString("7", "%V");
    EXPECT_EQ(number != KyClassId(0, 7), 0);
    KyRef ref;
    ref.ScanFromKyString("(2828:2314-84281096#16909060, 3342)", nullptr);
    EXPECT_EQ(FieldsOf(ref), "04 03 02 01 08 07 06 05 0A 09 0C 0B 0E 0D 00 00");
    ref.ScanFromKyString("7", "%D");
    EXPECT_EQ(FieldsOf(ref), "00 00 00 00 00 00 00 00 00 00 07 00 00 00 00 00");
}

}  // namespace
