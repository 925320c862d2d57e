#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "blob_contents.h"
#include "kyblob.h"
#include "kytypes.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

using Elements = std::vector<Element>;

const Elements kElements = {Chars("abc"), std::nullopt, Content()};

unsigned Translate(void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                   unsigned srcLen) {
    return KyBlobTab.Translate(dst, dstFlag, dstLen, src, srcFlag, srcLen, 3);
}

std::string Text(const Content& bytes) { return Hex(bytes.data(), bytes.size()); }

TEST(BlobTranslate, BetweenArraysInMemoryAssigns) {
    std::vector<KyBlob> src = BlobsOf(kElements);
    std::vector<KyBlob> dst(3);
    EXPECT_EQ(Translate(dst.data(), KyFormMemory, 0, src.data(), KyFormMemory, 0), 24u);
    EXPECT_EQ(ContentsOf(dst), kElements);
    EXPECT_EQ(ContentsOf(src), kElements);
}

TEST(BlobTranslate, FromAndToMemoryLoadsAndStores) {
    for (const unsigned char form : kStoredForms) {
        const Content expected = RecordOf(kElements, form);
        const auto size = static_cast<unsigned>(expected.size());
        std::vector<KyBlob> blobs = BlobsOf(kElements);
        for (const unsigned dstLen : {0u, size, size + 9}) {
            Content record(size + 9, 0xA5);
            EXPECT_EQ(Translate(record.data(), form, dstLen, blobs.data(), KyFormMemory, 0), size);
            EXPECT_EQ(Hex(record.data(), size), Text(expected));
            EXPECT_EQ(Hex(record.data() + size, 2), "A5 A5");
        }
        GuardedBuffer record(expected);
        for (const unsigned srcLen : {0u, size}) {
            std::vector<KyBlob> loaded(3);
            EXPECT_EQ(Translate(loaded.data(), KyFormMemory, 0, record.data(), form, srcLen), size);
            EXPECT_EQ(ContentsOf(loaded), kElements);
        }
    }
}

TEST(BlobTranslate, WhatDoesNotFitIsNotWritten) {
    std::vector<KyBlob> blobs = BlobsOf(kElements);
    for (const unsigned char form : kStoredForms) {
        const auto size = static_cast<unsigned>(RecordOf(kElements, form).size());
        for (unsigned dstLen = 1; dstLen < size; ++dstLen) {
            GuardedBuffer record(dstLen);
            EXPECT_EQ(Translate(record.data(), form, dstLen, blobs.data(), KyFormMemory, 0), 0u);
            EXPECT_EQ(Hex(record.data(), dstLen), Text(Content(dstLen)));
        }
    }
}

TEST(BlobTranslate, WhatGoesOnBehindItsLengthIsNotLoaded) {
    for (const unsigned char form : kStoredForms) {
        const Content whole = RecordOf(kElements, form);
        for (std::size_t length = 1; length < whole.size(); ++length) {
            GuardedBuffer record(First(whole, length));
            std::vector<KyBlob> blobs(3);
            EXPECT_EQ(Translate(blobs.data(), KyFormMemory, 0, record.data(), form, static_cast<unsigned>(length)), 0u);
            EXPECT_EQ(ContentsOf(blobs), Elements(3, Content()));
        }
        GuardedBuffer lying(RecordTelling(INT_MAX, {}, form));
        std::vector<KyBlob> blobs(3);
        EXPECT_EQ(Translate(blobs.data(), KyFormMemory, 0, lying.data(), form, 4), 0u);
    }
}

TEST(BlobTranslate, BetweenRecordsCopiesBytes) {
    const Content whole = RecordOf(kElements, KyFormNative);
    const auto size = static_cast<unsigned>(whole.size());
    for (const unsigned char dstForm : kStoredForms) {
        GuardedBuffer src(whole);
        struct {
            unsigned dstLen, srcLen, copied;
        } const cases[] = {{0, 0, size}, {size, 0, size}, {0, size, size}, {size + 5, 0, size}, {size - 1, 0, size - 1},
                           {3, size, 3}, {size, 5, 5},    {0, 5, 5}};
        for (const auto& c : cases) {
            const unsigned room = c.dstLen != 0 ? c.dstLen : c.copied;
            Content dst(room + 2, 0xA5);
            EXPECT_EQ(Translate(dst.data(), dstForm, c.dstLen, src.data(), KyFormNative, c.srcLen), c.copied);
            Content expected(whole.begin(), whole.begin() + c.copied);
            expected.resize(room);
            expected.resize(room + 2, 0xA5);
            EXPECT_EQ(Text(dst), Text(expected)) << c.dstLen << ' ' << c.srcLen;
        }
    }
}

TEST(BlobTranslate, ARecordIsMeasuredInItsOwnByteOrder) {
    const Content whole = RecordOf(kElements, KyFormReversed);
    Content dst(whole.size());
    Content src = whole;
    EXPECT_EQ(Translate(dst.data(), KyFormNative, 0, src.data(), KyFormReversed, 0), whole.size());
    EXPECT_EQ(Text(dst), Text(whole)) << "nothing is swapped";
}

}  // namespace
