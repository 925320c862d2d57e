#include "kyblob_slots.h"

#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <vector>

#include "blob_contents.h"
#include "kyblob.h"
#include "kytypes.h"
#include "kytypevl.h"
#include "kytypmgr.h"
#include "support/created_arrays.h"

namespace {

using Elements = std::vector<Element>;

Elements ContentsAt(const void* values, std::size_t count) {
    const auto* blobs = static_cast<const KyBlob*>(values);
    Elements contents;
    for (std::size_t i = 0; i < count; ++i) contents.push_back(ContentOf(blobs[i]));
    return contents;
}

TEST(BlobRow, IsNamedAndMeasured) {
    EXPECT_STREQ(KyBlobTab.typeName, "KyBlob");
    EXPECT_STREQ(KyBlobTab.typeCodeName, "KyBLOB_T");
    EXPECT_STREQ(KyBlobTab.printFormat, "[BLOB,len=%L]");
    EXPECT_EQ(KyBlobTab.sizeWord, 8u);
    KyBlob blob;
    EXPECT_EQ(KyBlobTab.GetValue(&blob, 1, KyFormMemory, KyValueStep), KyErrNotSupported);
}

TEST(BlobRow, CreatesEmptyValuesAndPrecedesArraysByTheirCount) {
    ExpectCreatedArrays(KyBlobTab, {0}, [](void* values, unsigned count) {
        EXPECT_EQ(ContentsAt(values, count), Elements(count, Content()));
    });
    for (const unsigned count : {0u, 1u, 2u, 100u}) {
        for (const int which : {1, 2, -1}) {
            void* values = KyBlobTab.DefaultValue(count, which);
            EXPECT_EQ(ContentsAt(values, count), Elements(count));
            EXPECT_EQ(KyBlobTab.Delete(values, count), 0);
        }
    }
}

TEST(BlobRow, ConstructsEmptyValuesInPlace) {
    alignas(KyBlob) unsigned char place[3 * sizeof(KyBlob)];
    std::memset(place, 0xA5, sizeof place);
    KyBlobTab.Constructor(place, 3, 0);
    EXPECT_EQ(ContentsAt(place, 3), Elements(3, Content()));
    KyBlobTab.Destructor(place, 3, 0);
}

TEST(BlobRow, AssignsOneByOneOrTheFirstToAll) {
    const Elements contents = {Chars("a"), std::nullopt, Chars("ccc")};
    std::vector<KyBlob> src = BlobsOf(contents);
    std::vector<KyBlob> dst(3);
    KyBlobTab.Assignment(dst.data(), src.data(), 3, 0);
    EXPECT_EQ(ContentsOf(dst), contents);
    dst[0].Append("x", 1);
    EXPECT_EQ(ContentsOf(src), contents) << "copies are deep";
    for (const int mode : {1, 2, -1}) {
        KyBlobTab.Assignment(dst.data(), src.data(), 3, mode);
        EXPECT_EQ(ContentsOf(dst), Elements(3, Chars("a")));
        KyBlobTab.Assignment(dst.data(), src.data() + 1, 3, mode);
        EXPECT_EQ(ContentsOf(dst), Elements(3));
    }
    KyBlobTab.Assignment(src.data(), src.data(), 3, 0);
    EXPECT_EQ(ContentsOf(src), contents) << "to itself";
    KyBlobTab.Assignment(src.data(), src.data(), 3, 1);
    EXPECT_EQ(ContentsOf(src), Elements(3, Chars("a")));
}

TEST(BlobRow, CopiesIntoRawMemory) {
    const Elements contents = {Chars("a"), std::nullopt, Chars("ccc")};
    std::vector<KyBlob> src = BlobsOf(contents);
    alignas(KyBlob) unsigned char place[3 * sizeof(KyBlob)];
    for (const int mode : {0, 1}) {
        std::memset(place, 0xA5, sizeof place);
        KyBlobTab.Copy(place, src.data(), 3, mode);
        EXPECT_EQ(ContentsAt(place, 3), mode == 0 ? contents : Elements(3, Chars("a")));
        KyBlobTab.Destructor(place, 3, 0);
    }
}

TEST(BlobRow, IsNullAndSetNull) {
    KyBlob blob("abc");
    EXPECT_EQ(KyBlobTab.IsNull(&blob), 0);
    EXPECT_EQ(KyBlobTab.SetNull(&blob), 0);
    EXPECT_NE(KyBlobTab.IsNull(&blob), 0);
    EXPECT_EQ(KyBlobTab.SetNull(&blob), 0);
    KyBlob empty;
    EXPECT_EQ(KyBlobTab.IsNull(&empty), 0);
}

TEST(BlobRow, GivesNoBounds) {
    Content value = RecordOf({Chars("abc")}, KyFormNative);
    KyIdxBounds bounds;
    bounds.lower = bounds.upper = value.data();
    KyIdxBounds out;
    unsigned short op = KyCmpEqual | KyCmpExact;
    EXPECT_EQ(KyBlobTab.EvalAndBound(&bounds, op, value.data(), KyFormNative, 1, &out), 1.0F);
    EXPECT_EQ(KyBlobTab.EvalAndBound(nullptr, op, value.data(), KyFormNative, 1, &out), 1.0F);
    EXPECT_EQ(KyBlobTab.EvalAndBound(nullptr, op, nullptr, KyFormNative, 1, nullptr), 1.0F);
    EXPECT_EQ(op, KyCmpEqual | KyCmpExact);
    EXPECT_EQ(out.lower, nullptr);
    EXPECT_EQ(out.upper, nullptr);
}

TEST(BlobRow, IsSetToNullThroughTheManager) {
    KyTypeMgr manager(5);
    KyBlob blob("abc");
    EXPECT_EQ(manager.SetNullValue(KyBLOB_T, &blob), 0);
    EXPECT_EQ(manager.IsNullValue(KyBLOB_T, &blob), 1);
    EXPECT_EQ(manager.SupportsNullValue(KyBLOB_T), 1);
    EXPECT_EQ(manager.IsFixed(KyBLOB_T), 0);
}

}  // namespace
