/// Arrays in memory: made, emptied, assigned, set to null.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "identifier_samples.h"
#include "kystring.h"
#include "kytypmgr.h"
#include "support/created_arrays.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

TEST(IdentifierRows, CreateZeroesAndPrecedeArraysByTheirCount) {
    for (const Sizes& type : kSizes) {
        ExpectCreatedArrays(*type.row, {0}, [&](void* created, unsigned count) {
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(created) % 4, 0u);
            std::vector<unsigned char> stored(count * type.stored);
            type.row->Store(stored.data(), created, KyFormNative, count);
            EXPECT_EQ(std::count(stored.begin(), stored.end(), 0), static_cast<long>(stored.size()));
        });
    }
}

TEST(IdentifierRows, DefaultsAreZeroOrNull) {
    for (const Sizes& type : kSizes) {
        for (const unsigned count : {1u, 2u, 5u}) {
            for (const int which : {0, 1, -1, 7}) {
                void* values = type.row->DefaultValue(count, which);
                for (unsigned i = 0; i < count; ++i) {
                    // The zero of class ids alone is a value.
                    const bool null = type.row != &KyClassIdTab || which != 0;
                    EXPECT_EQ(type.row->IsNull(static_cast<char*>(values) + i * type.memory), null ? 1 : 0) << which;
                }
                type.row->Delete(values, count);
            }
        }
    }
}

TEST(IdentifierRows, ConstructorWritesItsFieldsAlone) {
    for (const Sizes& type : kSizes) {
        std::vector<unsigned char> area(3 * type.memory, 0xEE);
        type.row->Constructor(area.data(), 2, 0);
        const unsigned fields = std::min(type.memory, type.row == &KyObjIdTab ? 10u : type.memory);
        for (unsigned i = 0; i < area.size(); ++i) {
            const bool written = i < 2 * type.memory && i % type.memory < fields;
            EXPECT_EQ(area[i], written ? 0 : 0xEE) << type.row->typeName << i;
        }
        type.row->Destructor(area.data(), 3, 0);
        EXPECT_EQ(area[0], 0);
        EXPECT_EQ(area.back(), 0xEE);
    }
}

TEST(IdentifierRows, NullIsTheObjectNumberZeroOrTheHighestClass) {
    KyObjId object(7, 1, 0);
    EXPECT_EQ(KyObjIdTab.IsNull(&object), 0);
    object = KyObjId(7, 0, 1);
    EXPECT_EQ(KyObjIdTab.IsNull(&object), 0);
    object = KyObjId(7, 0, 0);
    EXPECT_EQ(KyObjIdTab.IsNull(&object), 1);

    KyClassId number(0xFFFF, 0xFFFF);
    EXPECT_EQ(KyClassIdTab.IsNull(&number), 1);
    for (const KyClassId& each : {KyClassId(0, 0), KyClassId(0xFFFF, 0), KyClassId(0, 0xFFFF)}) {
        number = each;
        EXPECT_EQ(KyClassIdTab.IsNull(&number), 0);
    }

    KyRef ref(KyObjId(7, 0, 0), 1, KyClassId(2, 3));
    EXPECT_EQ(KyRefTab.IsNull(&ref), 1);
    ref = KyObjId(0, 1, 0);
    EXPECT_EQ(KyRefTab.IsNull(&ref), 0);
}

TEST(IdentifierRows, SetNullWritesEveryField) {
    unsigned char area[16];
    std::memcpy(area, &kReference, sizeof area);
    EXPECT_EQ(KyObjIdTab.SetNull(area), 0);
    EXPECT_EQ(Hex(area, 16), "00 00 00 00 00 00 00 00 00 00 0C 0B 0E 0D 10 0F") << "an object id within a reference";
    std::memcpy(area, &kReference, sizeof area);
    EXPECT_EQ(KyRefTab.SetNull(area), 0);
    EXPECT_EQ(Hex(area, 16), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(KyClassIdTab.SetNull(area), 0);
    EXPECT_EQ(Hex(area, 5), "FF FF FF FF 00");
}

TEST(IdentifierRows, ObjectIdsAreLoadedAndAssignedIntoReferences) {
    const unsigned char stored[] = {0, 0, 0, 1, 0, 0, 0, 2, 0, 3};
    unsigned char area[16];
    std::memcpy(area, &kReference, sizeof area);
    EXPECT_EQ(KyObjIdTab.Load(area, stored, KyFormReversed, 1), 10u);
    EXPECT_EQ(Hex(area, 16), "01 00 00 00 02 00 00 00 03 00 0C 0B 0E 0D 10 0F");
    KyObjId other(4, 5, 6);
    for (const int mode : {0, 1}) {
        std::memcpy(area, &kReference, sizeof area);
        KyObjIdTab.Assignment(area, &other, 1, mode);
        EXPECT_EQ(Hex(area, 16), "04 00 00 00 05 00 00 00 06 00 0C 0B 0E 0D 10 0F");
        std::memcpy(area, &kReference, sizeof area);
        KyObjIdTab.Copy(area, &other, 1, mode);
        EXPECT_EQ(Hex(area, 16), "04 00 00 00 05 00 00 00 06 00 0C 0B 0E 0D 10 0F");
    }
    std::memcpy(area, &kReference, sizeof area);
    EXPECT_EQ(KyObjIdTab.Translate(area, KyFormMemory, 0, &other, KyFormMemory, 0, 1), 12u);
    EXPECT_EQ(Hex(area, 16), "04 00 00 00 05 00 00 00 06 00 0C 0B 0E 0D 10 0F");
}

TEST(IdentifierRows, NothingBehindTheLastFieldIsTouched) {
    const unsigned char reversed[] = {0, 0, 0, 1, 0, 0, 0, 2, 0, 3, 0, 0, 0, 4, 0, 0, 0, 5, 0, 6};
    GuardedBuffer stored(reversed);
    GuardedBuffer memory(22);
    GuardedBuffer copy(22);
    EXPECT_EQ(KyObjIdTab.Load(memory.data(), stored.data(), KyFormReversed, 2), 20u);
    KyObjIdTab.Assignment(copy.data(), memory.data(), 2, 0);
    EXPECT_EQ(Hex(copy.data() + 12, 10), "04 00 00 00 05 00 00 00 06 00");
    KyObjIdTab.Copy(copy.data(), memory.data() + 12, 1, 0);
    KyObjIdTab.Copy(copy.data(), memory.data(), 2, 1);
    EXPECT_EQ(Hex(copy.data() + 12, 10), "01 00 00 00 02 00 00 00 03 00");
    EXPECT_EQ(KyObjIdTab.Store(stored.data(), copy.data(), KyFormNative, 2), 20u);
    EXPECT_EQ(Hex(stored.data(), 20), "01 00 00 00 02 00 00 00 03 00 01 00 00 00 02 00 00 00 03 00");
    int err = -1;
    EXPECT_EQ(KyObjIdTab.Compare(KyFormMemory, 0, copy.data(), 0, copy.data(), 0, 2, err), 0);
    EXPECT_EQ(KyObjIdTab.Hash(KyFormMemory, 0, copy.data(), 2, err), 0u);
    KyObjIdTab.Constructor(memory.data(), 2, 0);
    EXPECT_EQ(KyObjIdTab.IsNull(memory.data() + 12), 1);
    EXPECT_EQ(KyObjIdTab.GetValue(memory.data() + 12, 1, KyFormMemory, KyValueStep), 0);
    EXPECT_EQ(Hex(memory.data() + 12, 10), "00 00 00 00 01 00 00 00 00 00");
    KyString out;
    EXPECT_STREQ(KyObjIdTab.PrintToKyString(out, memory.data() + 12, nullptr, 1).StrGet(), "(0-1#0)");
    EXPECT_EQ(KyObjIdTab.SetNull(memory.data() + 12), 0);
}

TEST(IdentifierRows, AssignEachOrTheFirst) {
    KyRef refs[] = {KyRef(KyObjId(1, 2, 3), 4, KyClassId(5, 6)), kReference, KyRef()};
    KyRef refTargets[3];
    KyClassId numbers[] = {{1, 2}, {3, 4}, {0xFFFF, 0xFFFF}};
    KyClassId numberTargets[3];
    KyObjId objects[] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
    KyObjId objectTargets[3];
    for (int slot = 0; slot < 2; ++slot) {
        const auto assign = [slot](KyTypeTab& row, void* dst, void* src, unsigned count, int mode) {
            (slot == 0 ? row.Assignment : row.Copy)(dst, src, count, mode);
        };
        assign(KyRefTab, refTargets, refs, 3, 0);
        EXPECT_EQ(Hex(refTargets, sizeof refs), Hex(refs, sizeof refs));
        assign(KyRefTab, refTargets, refs + 1, 3, 1);
        for (const KyRef& each : refTargets) EXPECT_EQ(Hex(&each, 16), Hex(&kReference, 16));
        assign(KyClassIdTab, numberTargets, numbers, 3, 0);
        EXPECT_EQ(Hex(numberTargets, sizeof numbers), Hex(numbers, sizeof numbers));
        assign(KyClassIdTab, numberTargets, numbers + 2, 3, 7);
        for (const KyClassId& each : numberTargets) EXPECT_EQ(Hex(&each, 4), "FF FF FF FF");
        assign(KyObjIdTab, objectTargets, objects, 3, 0);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(Hex(objectTargets + i, 10), Hex(objects + i, 10));
        assign(KyObjIdTab, objectTargets, objects + 1, 3, -1);
        for (const KyObjId& each : objectTargets) EXPECT_EQ(Hex(&each, 10), "04 00 00 00 05 00 00 00 06 00");
        assign(KyObjIdTab, objectTargets, objects, 0, 1);
        assign(KyObjIdTab, objectTargets, objects, 0, 0);
        EXPECT_EQ(Hex(objectTargets, 10), "04 00 00 00 05 00 00 00 06 00");
        assign(KyObjIdTab, objects, objects, 3, 0);
        EXPECT_EQ(Hex(objects + 2, 10), "07 00 00 00 08 00 00 00 09 00");
    }
}

TEST(IdentifierRows, TheManagerSetsNulls) {
    KyTypeMgr manager(5);
    KyRef ref = kReference;
    EXPECT_EQ(manager.SupportsNullValue(KyREF_T), 1);
    EXPECT_EQ(manager.SetNullValue(KyREF_T, &ref), 0);
    EXPECT_EQ(manager.IsNullValue(KyREF_T, &ref), 1);
    EXPECT_EQ(Hex(&ref, 16), Hex(std::vector<unsigned char>(16).data(), 16));
}

}  // namespace
