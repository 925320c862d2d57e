#include "identifier_slots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "kyobjid.h"
#include "kystring.h"
#include "kytypes.h"
#include "kytypmgr.h"
#include "shared_slots.h"
#include "support/golden.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

struct Sizes {
    KyTypeTab* row;
    unsigned memory;
    unsigned stored;
};

const Sizes kSizes[] = {{&KyObjIdTab, 12, 10}, {&KyClassIdTab, 4, 4}, {&KyRefTab, 16, 14}};

const KyObjId kObject(0x01020304, 0x05060708, 0x090A);
const KyRef kReference(kObject, 0x0B0C, KyClassId(0x0D0E, 0x0F10));

constexpr unsigned kFactor = 1103515245;

TEST(IdentifierRows, AgreeWithTheirGoldenFiles) {
    for (const Sizes& type : kSizes) CheckGolden(*type.row);
}

TEST(IdentifierRows, AreNamedAndMeasured) {
    EXPECT_STREQ(KyObjIdTab.printFormat, "(%H-%L#%B)");
    EXPECT_STREQ(KyClassIdTab.printFormat, "(%Cv%V)");
    EXPECT_STREQ(KyRefTab.printFormat, "(%D:%H-%L#%B, %C)");
    EXPECT_EQ(KyObjIdTab.sizeWord, 0x1000Cu);
    EXPECT_EQ(KyClassIdTab.sizeWord, 0x10004u);
    EXPECT_EQ(KyRefTab.sizeWord, 0x10010u);
    EXPECT_EQ(KyClassIdTab.GetValue, &KyGetValueFuncDummy);
    for (const Sizes& type : kSizes) {
        for (const unsigned count : {0u, 1u, 7u}) {
            EXPECT_EQ(type.row->NullSizeGet(count), count * type.stored);
            for (const unsigned char from : {KyFormNative, KyFormReversed, KyFormMemory}) {
                EXPECT_EQ(type.row->SizeGet(nullptr, from, KyFormMemory, count), count * type.memory);
                EXPECT_EQ(type.row->SizeGet(nullptr, from, 0x88, count), count * type.memory);
                for (const unsigned char to : {KyFormNative, KyFormReversed, static_cast<unsigned char>(0x12),
                                               static_cast<unsigned char>(0), static_cast<unsigned char>(9)}) {
                    EXPECT_EQ(type.row->SizeGet(nullptr, from, to, count), count * type.stored);
                }
                EXPECT_EQ(type.row->SizeGetFromMemFile(nullptr, from, count), count * type.stored);
            }
        }
    }
}

TEST(IdentifierRows, CreateZeroesAndPrecedeArraysByTheirCount) {
    for (const Sizes& type : kSizes) {
        for (const unsigned count : {0u, 1u, 2u, 3u, 1000u}) {
            for (void* created : {type.row->Create(count), type.row->DefaultValue(count, 0)}) {
                ASSERT_NE(created, nullptr);
                EXPECT_EQ(reinterpret_cast<std::uintptr_t>(created) % 4, 0u);
                std::vector<unsigned char> stored(count * type.stored);
                type.row->Store(stored.data(), created, KyFormNative, count);
                EXPECT_EQ(std::count(stored.begin(), stored.end(), 0), static_cast<long>(stored.size()));
                if (count > 1) {
                    std::size_t header = 0;
                    std::memcpy(&header, static_cast<const char*>(created) - sizeof header, sizeof header);
                    EXPECT_EQ(header, count);
                }
                EXPECT_EQ(type.row->Delete(created, count), 0);
            }
            EXPECT_EQ(type.row->Delete(nullptr, count), 0);
        }
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

TEST(IdentifierRows, TheUpperBitsOfAFlagMeanNothing) {
    KyRef ref = kReference;
    for (const Sizes& type : kSizes) {
        for (const int form : {0, 1, 2, 3, 9}) {
            unsigned char plain[14] = {};
            unsigned char flagged[14] = {};
            const auto flag = static_cast<unsigned char>(form | 0xA0);
            EXPECT_EQ(type.row->Store(plain, &ref, static_cast<unsigned char>(form), 1), type.stored);
            EXPECT_EQ(type.row->Store(flagged, &ref, flag, 1), type.stored);
            EXPECT_EQ(Hex(flagged, 14), Hex(plain, 14));
            unsigned char reversed[14] = {};
            type.row->Store(reversed, &ref, KyFormReversed, 1);
            EXPECT_EQ(Hex(plain, 14) == Hex(reversed, 14), form == 2);
            unsigned char back[16] = {};
            EXPECT_EQ(type.row->Load(back, plain, flag, 1), type.stored);
            EXPECT_EQ(Hex(back, type.stored), Hex(&ref, type.stored));
            int err = -1;
            unsigned char zeros[14] = {};
            EXPECT_EQ(type.row->Compare(flag, 0, plain, 0, zeros, 0, 1, err),
                      type.row->Compare(static_cast<unsigned char>(form), 0, plain, 0, zeros, 0, 1, err));
            EXPECT_EQ(type.row->Hash(flag, 0, plain, 1, err),
                      type.row->Hash(static_cast<unsigned char>(form), 0, plain, 1, err));
        }
    }
    KyObjId a(0, 1, 9);
    KyObjId b(0, 2, 4);
    int err = -1;
    EXPECT_EQ(KyObjIdTab.Compare(0x88, 0, &a, 0, &b, 0, 1, err), 5);
}

TEST(IdentifierRows, ResultsOfCompareAreDifferences) {
    KyObjId high(0, 0, 0x0300);
    KyObjId low(0, 0xFFFFFFFF, 0x01FF);
    int err = -1;
    EXPECT_EQ(KyObjIdTab.Compare(KyFormMemory, 0, &high, 0, &low, 0, 1, err), 0x0101);
    unsigned char storedHigh[10];
    unsigned char storedLow[10];
    KyObjIdTab.Store(storedHigh, &high, KyFormNative, 1);
    KyObjIdTab.Store(storedLow, &low, KyFormNative, 1);
    EXPECT_EQ(KyObjIdTab.Compare(KyFormNative, 0, storedHigh, 0, storedLow, 0, 1, err), 2);
    EXPECT_EQ(KyObjIdTab.Compare(KyFormNative, 0, storedLow, 0, storedHigh, 0, 1, err), -2);
    for (unsigned op = 0; op < 0x10000; op += 0x1111) {
        EXPECT_EQ(KyObjIdTab.Compare(KyFormMemory, 0, &high, 0, &low, static_cast<unsigned short>(op), 1, err), 0x101);
    }
}

TEST(IdentifierRows, Kept_StoredReferencesCompareByTheirOriginFirst) {
    KyRef a(KyObjId(0, 9, 0), 1, KyClassId());
    KyRef b(KyObjId(0, 5, 0), 2, KyClassId());
    int err = -1;
    EXPECT_EQ(KyRefTab.Compare(KyFormMemory, 0, &a, 0, &b, 0, 1, err), 1);
    unsigned char storedA[14];
    unsigned char storedB[14];
    KyRefTab.Store(storedA, &a, KyFormNative, 1);
    KyRefTab.Store(storedB, &b, KyFormNative, 1);
    EXPECT_EQ(KyRefTab.Compare(KyFormNative, 0, storedA, 0, storedB, 0, 1, err), -1);
}

TEST(IdentifierRows, Kept_TheReversedFormComparesAndHashesAsTheOther) {
    KyObjId a(0, 0x00000100, 0);
    KyObjId b(0, 0x00000002, 0);
    unsigned char storedA[10];
    unsigned char storedB[10];
    KyObjIdTab.Store(storedA, &a, KyFormReversed, 1);
    KyObjIdTab.Store(storedB, &b, KyFormReversed, 1);
    int err = -1;
    EXPECT_EQ(KyObjIdTab.Compare(KyFormMemory, 0, &a, 0, &b, 0, 1, err), 1);
    EXPECT_EQ(KyObjIdTab.Compare(KyFormReversed, 0, storedA, 0, storedB, 0, 1, err), -2) << "00 02 below 02 00";
    EXPECT_EQ(KyObjIdTab.Hash(KyFormReversed, 0, storedA, 1, err), 0x00010000u * kFactor);
    EXPECT_EQ(KyObjIdTab.Hash(KyFormMemory, 0, &a, 1, err), 0x00000100u * kFactor);
}

TEST(IdentifierRows, ClassIdsAreTheSameInEveryForm) {
    const KyClassId ascending[] = {{0xFFFF, 0xFFFF}, {0, 0}, {0, 1}, {1, 0}, {0x0102, 0}, {0x0201, 0}, {0xFFFF, 0}};
    for (const unsigned char form : {KyFormMemory, KyFormNative, KyFormReversed}) {
        for (int a = 0; a < 7; ++a) {
            for (int b = 0; b < 7; ++b) {
                unsigned char storedA[4];
                unsigned char storedB[4];
                KyClassIdTab.Store(storedA, &ascending[a], form, 1);
                KyClassIdTab.Store(storedB, &ascending[b], form, 1);
                int err = -1;
                EXPECT_EQ(KyClassIdTab.Compare(form, 0, storedA, 0, storedB, 0, 1, err), (a > b) - (a < b));
                EXPECT_EQ(KyClassIdTab.Hash(form, 0, storedA, 1, err),
                          static_cast<unsigned>(ascending[a].C ^ ascending[a].V) * kFactor);
            }
        }
    }
}

struct Ended {
    unsigned len1;  ///< in elements, and bytes more
    unsigned more1;
    unsigned len2;
    unsigned more2;
    int sign;
    int err;
};

TEST(IdentifierRows, SayThatABufferEnds) {
    // The third elements differ; so do the fourth, the other way round.
    const unsigned char lowsA[] = {1, 2, 3, 9};
    const unsigned char lowsB[] = {1, 2, 4, 8};
    const Ended table[] = {
        {0, 0, 0, 0, -1, 0},
        {4, 0, 4, 0, -1, 0},
        {2, 0, 4, 0, 0, KyErrBufferEnd},
        {4, 0, 2, 0, 0, KyErrBufferEnd},
        {2, 1, 2, 1, -1, KyErrBufferEnd},  // the third element starts inside, and ends the walk besides deciding it
        {3, 0, 4, 0, -1, KyErrBufferEnd},
        {3, 1, 3, 1, -1, 0},
        {0, 1, 0, 1, 0, KyErrBufferEnd},
        {1, 0, 0, 0, 0, KyErrBufferEnd},
    };
    for (const Sizes& type : kSizes) {
        for (const unsigned char form : {KyFormMemory, KyFormNative, KyFormReversed}) {
            const unsigned size = form == KyFormMemory ? type.memory : type.stored;
            std::vector<unsigned char> a(4 * size);
            std::vector<unsigned char> b(4 * size);
            for (unsigned i = 0; i < 4; ++i) {
                const unsigned place = i * size + (type.row == &KyClassIdTab ? 0 : 4);
                a[place] = lowsA[i];
                b[place] = lowsB[i];
            }
            for (const Ended& each : table) {
                int err = -1;
                const int result = type.row->Compare(form, each.len1 * size + each.more1, a.data(),
                                                     each.len2 * size + each.more2, b.data(), 0, 4, err);
                EXPECT_EQ((result > 0) - (result < 0), each.sign) << type.row->typeName << ' ' << each.len1;
                EXPECT_EQ(err, each.err) << type.row->typeName << ' ' << each.len1 << ' ' << each.len2;
            }
            int err = -1;
            type.row->Hash(form, 3 * size + 1, a.data(), 4, err);
            EXPECT_EQ(err, 0);
            type.row->Hash(form, 3 * size, a.data(), 4, err);
            EXPECT_EQ(err, KyErrBufferEnd);
        }
    }
}

TEST(IdentifierRows, AVersionIsNotStoredInAReference) {
    unsigned char stored[14];
    EXPECT_EQ(KyRefTab.Store(stored, &kReference, KyFormReversed, 1), 14u);
    EXPECT_EQ(Hex(stored, 14), "01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E");
    KyRef back(KyObjId(), 9, KyClassId(9, 9));
    EXPECT_EQ(KyRefTab.Load(&back, stored, KyFormReversed, 1), 14u);
    EXPECT_EQ(Hex(&back, 16), "04 03 02 01 08 07 06 05 0A 09 0C 0B 0E 0D 00 00");
}

TEST(IdentifierRows, TranslateBetweenForms) {
    KyRef refs[] = {kReference, KyRef(KyObjId(1, 2, 3), 4, KyClassId(5, 6))};
    unsigned char stored[32];
    EXPECT_EQ(KyRefTab.Translate(stored, KyFormReversed, 0, refs, KyFormMemory, 0, 2), 28u);
    EXPECT_EQ(Hex(stored, 28), "01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 00 00 00 01 00 00 00 02 00 03 00 04 00 05");
    KyRef back[2];
    EXPECT_EQ(KyRefTab.Translate(back, KyFormMemory, 0, stored, KyFormReversed, 0, 2), 28u);
    EXPECT_EQ(Hex(back + 1, 16), "01 00 00 00 02 00 00 00 03 00 04 00 05 00 00 00");
    EXPECT_EQ(KyRefTab.Translate(back, KyFormMemory, 0, refs, KyFormMemory, 0, 2), 32u);
    EXPECT_EQ(Hex(back, 32), Hex(refs, 32)) << "the version, too";
    // Persistent to persistent never turns bytes.
    unsigned char other[32];
    EXPECT_EQ(KyRefTab.Translate(other, KyFormNative, 32, stored, KyFormReversed, 0, 2), 28u);
    EXPECT_EQ(Hex(other, 32), Hex(stored, 28) + " 00 00 00 00");
    std::fill(other, other + 32, 0xA5);
    EXPECT_EQ(KyRefTab.Translate(other, KyFormNative, 5, stored, KyFormReversed, 28, 2), 5u);
    EXPECT_EQ(Hex(other, 6), Hex(stored, 5) + " A5");

    KyObjId objects[] = {kObject, {1, 2, 3}};
    EXPECT_EQ(KyObjIdTab.Translate(stored, KyFormReversed, 0, objects, KyFormMemory, 0, 2), 20u);
    EXPECT_EQ(Hex(stored, 20), "01 02 03 04 05 06 07 08 09 0A 00 00 00 01 00 00 00 02 00 03");
    KyObjId objectsBack[2];
    EXPECT_EQ(KyObjIdTab.Translate(objectsBack, KyFormMemory, 0, stored, KyFormReversed, 0, 2), 20u);
    EXPECT_EQ(Hex(objectsBack + 1, 10), "01 00 00 00 02 00 00 00 03 00");
    EXPECT_EQ(KyObjIdTab.Translate(other, KyFormNative, 0, stored, KyFormReversed, 0, 2), 20u);
    EXPECT_EQ(Hex(other, 20), Hex(stored, 20));

    KyClassId numbers[] = {{0x0102, 0x0304}, {0xFFFF, 0xFFFF}};
    EXPECT_EQ(KyClassIdTab.Translate(stored, KyFormReversed, 0, numbers, KyFormMemory, 0, 2), 8u);
    EXPECT_EQ(Hex(stored, 8), "01 02 03 04 FF FF FF FF");
    KyClassId numbersBack[2];
    EXPECT_EQ(KyClassIdTab.Translate(numbersBack, KyFormMemory, 0, stored, KyFormReversed, 0, 2), 8u);
    EXPECT_EQ(Hex(numbersBack, 8), "02 01 04 03 FF FF FF FF");
    EXPECT_EQ(KyClassIdTab.Translate(numbersBack, KyFormMemory, 0, numbers, KyFormMemory, 0, 2), 8u);
}

TEST(IdentifierRows, ObjectNumbersStep) {
    for (const unsigned char what : {KyValueStep, KyValueStepNext}) {
        unsigned char area[16];
        std::memcpy(area, &kReference, sizeof area);
        for (KyTypeTab* row : {&KyObjIdTab, &KyRefTab}) {
            const unsigned char start[] = {7, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 3, 0};
            std::memcpy(area, start, sizeof start);
            EXPECT_EQ(row->GetValue(area, 0, KyFormMemory, what), 0);
            EXPECT_EQ(Hex(area, 16), "07 00 00 00 00 00 00 00 04 00 0C 0B 0E 0D 10 0F");
            EXPECT_EQ(row->GetValue(area, 5, KyFormMemory, what), 0);
            EXPECT_EQ(Hex(area, 16), "07 00 00 00 01 00 00 00 04 00 0C 0B 0E 0D 10 0F");
            std::memset(area + 4, 0, 6);
            EXPECT_EQ(row->GetValue(area, 1, KyFormMemory, what), 0) << "null steps to the first number";
            EXPECT_EQ(Hex(area, 10), "07 00 00 00 01 00 00 00 00 00");
            std::memset(area + 4, 0xFF, 6);
            EXPECT_EQ(row->GetValue(area, 1, KyFormMemory, what), KyErrNoSuccessor);
            EXPECT_EQ(Hex(area, 16), "07 00 00 00 FF FF FF FF FF FF 0C 0B 0E 0D 10 0F");
        }
    }
}

TEST(IdentifierRows, NothingButStepsInMemoryIsSupported) {
    for (KyTypeTab* row : {&KyObjIdTab, &KyClassIdTab, &KyRefTab}) {
        unsigned char area[16];
        std::memcpy(area, &kReference, sizeof area);
        for (int byte = 0; byte < 256; ++byte) {
            const auto other = static_cast<unsigned char>(byte);
            if (other != KyFormMemory || row == &KyClassIdTab) {
                EXPECT_EQ(row->GetValue(area, 1, other, KyValueStep), KyErrNotSupported) << byte;
            }
            if ((other != KyValueStep && other != KyValueStepNext) || row == &KyClassIdTab) {
                EXPECT_EQ(row->GetValue(area, 1, KyFormMemory, other), KyErrNotSupported) << byte;
            }
        }
        EXPECT_EQ(Hex(area, 16), Hex(&kReference, 16));
    }
}

TEST(IdentifierRows, Kept_StoredNumbersAreSteppedInMachineOrderWhateverTheirForm) {
    KyTypeMgr manager(5);
    unsigned char stored[] = {9, 0, 0, 0, 5, 0, 0, 0, 0, 0, 1, 2, 3, 4};
    EXPECT_EQ(manager.GetValue(KyREF_T, stored, 1, KyFormNative, KyValueStep), 0);
    EXPECT_EQ(Hex(stored, 14), "09 00 00 00 06 00 00 00 00 00 01 02 03 04");
    EXPECT_EQ(manager.GetValue(KyOBJID_T, stored, 1, KyFormReversed, KyValueStep), 0);
    EXPECT_EQ(Hex(stored, 14), "09 00 00 00 07 00 00 00 00 00 01 02 03 04");
    EXPECT_EQ(manager.GetValue(KyCLID_T, stored, 1, KyFormNative, KyValueStep), KyErrNotSupported);
    EXPECT_EQ(manager.SupportsCapability(KyOBJID_T, KyCapabilityCounter), 1);
    EXPECT_EQ(manager.SupportsCapability(KyREF_T, KyCapabilityCounter), 0);
}

TEST(IdentifierRows, ValuesAtAnyAddress) {
    for (const Sizes& type : kSizes) {
        for (std::size_t offset = 0; offset < 8; ++offset) {
            unsigned char area[8 + 2 * 16];
            unsigned char* const at = area + offset;
            type.row->Constructor(at, 2, 0);
            KyString text("(1-2#3)");
            EXPECT_EQ(type.row->ScanFromKyString(at + type.memory, text, "%B%L%H%C%V", 1), at + type.memory);
            KyRef values[2];
            std::memcpy(values, at, 2 * type.memory);
            int err = -1;
            EXPECT_EQ(type.row->Compare(KyFormMemory, 0, at, 0, values, 0, 2, err), 0);
            EXPECT_EQ(type.row->Hash(KyFormMemory, 0, at, 2, err), type.row->Hash(KyFormMemory, 0, values, 2, err));
            EXPECT_EQ(type.row->IsNull(at + type.memory), 0);
            EXPECT_EQ(type.row->SetNull(at + type.memory), 0);
            EXPECT_EQ(type.row->IsNull(at + type.memory), 1);
        }
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
