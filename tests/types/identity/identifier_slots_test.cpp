#include "identifier_slots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "identifier_samples.h"
#include "kystring.h"
#include "kytypmgr.h"
#include "shared_slots.h"
#include "support/golden.h"
#include "support/hex.h"

namespace {

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

}  // namespace
