/// Comparison and hash, in memory and as stored.

#include <gtest/gtest.h>

#include <vector>

#include "identifier_samples.h"

namespace {

constexpr unsigned kFactor = 1103515245;

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

}  // namespace
