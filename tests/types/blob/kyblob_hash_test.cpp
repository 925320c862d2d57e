#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "blob_contents.h"
#include "kyblob.h"
#include "kytypes.h"
#include "oracle/slow_blob_records.h"
#include "support/guarded_buffer.h"

namespace {

using Elements = std::vector<Element>;

constexpr unsigned kFactor = 1103515245u;

/// Of a record of which `length` bytes are there; 0: all, and the call is told no length.
unsigned HashStored(unsigned char form, const Content& record, unsigned length, unsigned count) {
    GuardedBuffer bytes(First(record, length != 0 ? length : record.size()));
    int err = -1;
    const unsigned hash = KyBlobTab.Hash(form, length, bytes.data(), count, err);
    EXPECT_EQ(err, 0);
    return hash;
}

unsigned HashInMemory(const Elements& elements, unsigned len, unsigned count) {
    std::vector<KyBlob> blobs = BlobsOf(elements);
    int err = -1;
    const unsigned hash = KyBlobTab.Hash(KyFormMemory, len, blobs.data(), count, err);
    EXPECT_EQ(err, 0);
    return hash;
}

TEST(BlobHash, InMemoryLengthsCount) {
    EXPECT_EQ(HashInMemory({Chars("abc")}, 0, 1), 3 * kFactor);
    EXPECT_EQ(HashInMemory({Chars("xyz")}, 0, 1), 3 * kFactor) << "not what the bytes are";
    EXPECT_EQ(HashInMemory({std::nullopt}, 0, 1), 0u);
    EXPECT_EQ(HashInMemory({Content()}, 0, 1), 0u);
    EXPECT_EQ(HashInMemory({Counted(3), std::nullopt, Counted(5), Counted(1000)}, 0, 4), (3u ^ 5u ^ 1000u) * kFactor);
    EXPECT_EQ(HashInMemory({Counted(3), Counted(5)}, 0, 0), 0u);
    EXPECT_EQ(HashInMemory({Counted(3), Counted(5)}, 8, 2), 3 * kFactor) << "only one handle is there";
}

TEST(BlobHash, Kept_StoredTheTotalCounts) {
    const Elements arrays[] = {{std::nullopt}, {Content()}, {Counted(7)}, {Counted(7), std::nullopt, Counted(300)}};
    for (const unsigned char form : kStoredForms) {
        for (const Elements& elements : arrays) {
            const Content record = RecordOf(elements, form);
            const auto size = static_cast<unsigned>(record.size());
            for (const unsigned count : {1u, 2u, 3u, 100u}) {
                EXPECT_EQ(HashStored(form, record, 0, count), (size - 4) * kFactor);
                EXPECT_EQ(HashStored(form, record, size, count), (size - 4) * kFactor);
            }
            EXPECT_EQ(HashStored(form, record, 0, 0), 0u);
        }
    }
}

TEST(BlobHash, Kept_FormsOfOneBlobHashApart) {
    const Content bytes = Counted(10);
    EXPECT_EQ(HashInMemory({bytes}, 0, 1), 10 * kFactor);
    EXPECT_EQ(HashStored(KyFormNative, RecordOf({bytes}, KyFormNative), 0, 1), 14 * kFactor);
}

TEST(BlobHash, OfACutRecordItsRestCounts) {
    for (const unsigned char form : kStoredForms) {
        const Content record = RecordOf({Counted(20)}, form);
        for (unsigned length = 1; length <= record.size(); ++length) {
            EXPECT_EQ(HashStored(form, record, length, 1), length < 4 ? 0 : (length - 4) * kFactor) << length;
        }
    }
}

TEST(BlobHash, BehindATotalThatTellsTooLittleTheWalkGoesOn) {
    // Total 1 and one byte; then what is taken for a length of 2.
    for (const unsigned char form : kStoredForms) {
        Content record;
        AddNumber(record, 1, form);
        record.insert(record.end(), 5, 0xEE);
        AddNumber(record, 2, form);
        record.insert(record.end(), 9, 0xEE);
        const auto size = static_cast<unsigned>(record.size());
        EXPECT_EQ(HashStored(form, record, size, 1), 5 * kFactor);
        EXPECT_EQ(HashStored(form, record, size, 2), (5u ^ 6u) * kFactor);
    }
}

TEST(BlobHash, ATotalOfAllOnesCountsAsNothing) {
    for (const unsigned char form : kStoredForms) {
        const Content record = RecordTelling(0xFFFFFFFF, {std::nullopt}, form);
        EXPECT_EQ(HashStored(form, record, 0, 1), 0u);
        EXPECT_EQ(HashStored(form, record, 8, 1), 4 * kFactor);
    }
}

TEST(BlobHash, AgreesWithThePlainWalkOnAnyBytes) {
    std::mt19937 random(31);
    for (int round = 0; round < 20000; ++round) {
        const unsigned char form = kStoredForms[round % 2];
        Content record(1 + Below(random, 60));
        for (unsigned char& byte : record) {
            byte = static_cast<unsigned char>(Below(random, 4) == 0 ? 0xFF * (Below(random, 2)) : Below(random, 3));
        }
        const auto length = static_cast<unsigned>(record.size());
        const unsigned count = Below(random, 8);
        ASSERT_EQ(HashStored(form, record, length, count),
                  SlowHash(SlowBlobRecord(record, length, form == KyFormReversed), count));
    }
}

}  // namespace
