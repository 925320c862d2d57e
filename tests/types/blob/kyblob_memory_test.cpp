/// Blocks that blobs take and give back, and what happens where there are none.

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "../string/counted_memory.h"
#include "blob_contents.h"
#include "kybase.h"
#include "kyblob.h"
#include "kystring.h"
#include "kytypes.h"
#include "kytypmgr.h"
#include "refusable_malloc.h"

namespace {

std::vector<std::size_t> wanted;

void NoteWanted(std::size_t size) { wanted.push_back(size); }

/// While it lives no buffer of more than `most` bytes is to be had, and the memory handler notes sizes and returns.
class Shortage {
public:
    explicit Shortage(std::size_t most) : before(KySetMemoryHandler(NoteWanted)) {
        wanted.clear();
        largestBuffer = most;
    }
    Shortage(const Shortage&) = delete;
    Shortage& operator=(const Shortage&) = delete;
    ~Shortage() {
        KySetMemoryHandler(before);
        largestBuffer = SIZE_MAX;
    }

private:
    KyMemoryHandler before;
};

class BlobMemory : public testing::Test {
protected:
    // Blocks of `new` are from `malloc`, too.
    void SetUp() override {
        wanted.reserve(16);
        held = buffersHeld;
    }
    void TearDown() override {
        if (IsSkipped()) return;  // the reason takes memory
        EXPECT_EQ(buffersHeld, held) << "nothing leaks";
    }

private:
    std::ptrdiff_t held = 0;
};

TEST_F(BlobMemory, AValueIsABlockAndABuffer) {
    const std::ptrdiff_t before = buffersHeld;
    {
        KyBlob blob;
        EXPECT_EQ(buffersHeld - before, 1) << "an empty one has no buffer";
        blob.SetTo("abc", 3);
        EXPECT_EQ(buffersHeld - before, 2);
        blob.SetTo(nullptr, 0);
        EXPECT_EQ(buffersHeld - before, 1);
        blob.Resize(10).Cut(0, -1);
        EXPECT_EQ(buffersHeld - before, 1);
        blob.Resize(10).Resize(0);
        EXPECT_EQ(buffersHeld - before, 1);
        blob.SetNullValue();
        EXPECT_EQ(buffersHeld - before, 0);
    }
    EXPECT_EQ(buffersHeld - before, 0);
}

/// Buffers that filling a blob of `before` bytes with `after` bytes takes.
std::size_t TakenByFilling(std::size_t before, std::size_t after) {
    KyBlob blob = BlobOf(Content(before));
    const Content bytes = Counted(after);
    const std::size_t taken = buffersTaken;
    blob.SetTo(bytes.data(), static_cast<int>(after));
    return buffersTaken - taken;
}

TEST_F(BlobMemory, Kept_FillingTakesANewBufferWhereTheOldOneIsTooSmallOrMuchTooLarge) {
    EXPECT_EQ(TakenByFilling(200, 100), 0u);
    EXPECT_EQ(TakenByFilling(200, 72), 0u);
    EXPECT_EQ(TakenByFilling(200, 71), 1u);
    EXPECT_EQ(TakenByFilling(200, 50), 1u);
    EXPECT_EQ(TakenByFilling(200, 201), 1u);
    EXPECT_EQ(TakenByFilling(0, 1), 1u);
    EXPECT_EQ(TakenByFilling(129, 1), 0u);
    EXPECT_EQ(TakenByFilling(130, 1), 1u);
    EXPECT_EQ(TakenByFilling(100, 0), 0u);
}

TEST_F(BlobMemory, Kept_BytesInUseTellHowLargeABufferIs) {
    KyBlob blob(200);
    blob.Resize(100);
    const std::size_t taken = buffersTaken;
    blob.SetTo(Content(150).data(), 150);
    EXPECT_EQ(buffersTaken - taken, 2u) << "one of them is the source";
    blob = KyBlob(1000);
    blob.Resize(100);
    const void* place = blob.Seek(0, 1);
    blob.SetTo("x", 1);
    EXPECT_EQ(blob.Seek(0, 1), place);
}

TEST_F(BlobMemory, ManySmallPiecesTakeFewBuffers) {
    KyBlob blob;
    const std::size_t taken = buffersTaken;
    for (int i = 0; i < 1000000; ++i) blob.Append("abc", 3);
    EXPECT_EQ(blob.Length(), 3000000);
    EXPECT_LT(buffersTaken - taken, 50u);
}

TEST_F(BlobMemory, WithoutMemoryABlobIsEmptyAndTheHandlerKnowsTheSize) {
    const Content large(5000);
    Content record = RecordOf({Content(5000)}, KyFormNative);
    struct {
        const char* name;
        std::function<void(KyBlob&)> action;
        std::size_t size;
    } const cases[] = {
        {"SetTo", [&](KyBlob& blob) { blob.SetTo(large.data(), 5000); }, 5000},
        {"Resize", [&](KyBlob& blob) { blob.Resize(6000); }, 6000},
        {"Expand", [&](KyBlob& blob) { blob.Expand(6000); }, 6000},
        {"Append", [&](KyBlob& blob) { blob.Append(large.data(), 5000); }, 5100},
        {"itself",
         [&](KyBlob& blob) {
             for (int i = 0; i < 10; ++i) blob.Append(blob);
         },
         1600},
        {"assignment", [&](KyBlob& blob) { blob = KyBlob(large.data(), 5000); }, 5000},
        {"Load", [&](KyBlob& blob) { EXPECT_EQ(KyBlobTab.Load(&blob, record.data(), KyFormNative, 1), 0u); }, 5000},
    };
    for (const auto& c : cases) {
        KyBlob blob(100);
        {
            const Shortage shortage(1000);
            c.action(blob);
            ASSERT_FALSE(wanted.empty()) << c.name;
            EXPECT_EQ(wanted.front(), c.size) << c.name;
        }
        EXPECT_EQ(ContentOf(blob), Content()) << c.name;
        blob.Append("abc", 3);
        EXPECT_EQ(ContentOf(blob), Chars("abc")) << c.name;
    }
}

TEST_F(BlobMemory, WithoutMemoryConstructionGivesAnEmptyBlob) {
    const Content large(5000);
    const KyBlob source(large.data(), 5000);
    const Shortage shortage(1000);
    EXPECT_EQ(ContentOf(KyBlob(5000)), Content());
    EXPECT_EQ(ContentOf(KyBlob(large.data(), 5000)), Content());
    EXPECT_EQ(ContentOf(KyBlob(source)), Content());
    EXPECT_EQ(ContentOf(source.CopyFrom(0, -1)), Content());
    EXPECT_EQ(wanted, (std::vector<std::size_t>{5000, 5000, 5000, 5000}));
}

TEST_F(BlobMemory, WhereThereIsNoRoomToGrowTheSizeItselfIsTaken) {
    KyBlob blob = BlobOf(Counted(800));
    const Shortage shortage(1000);
    blob.Append("xyz", 3);  // with room to spare it would be 1600
    EXPECT_EQ(blob.Length(), 803);
    EXPECT_TRUE(wanted.empty());
}

TEST_F(BlobMemory, TheDefaultHandlerThrowsAndNothingLeaks) {
    const Content large(5000);
    const KyBlob source(large.data(), 5000);
    Content record = RecordOf({Content(10), Content(5000)}, KyFormNative);
    largestBuffer = 1000;
    EXPECT_THROW(KyBlob(5000), std::bad_alloc);
    EXPECT_THROW(KyBlob(large.data(), 5000), std::bad_alloc);
    EXPECT_THROW(KyBlob copy(source), std::bad_alloc);
    EXPECT_THROW(source.CopyFrom(0, -1), std::bad_alloc);
    KyBlob blob = BlobOf(Counted(100));
    EXPECT_THROW(blob.Append(large.data(), 5000), std::bad_alloc);
    EXPECT_EQ(ContentOf(blob), Counted(100)) << "what was there stays";
    EXPECT_THROW(blob.Resize(5000), std::bad_alloc);
    EXPECT_EQ(ContentOf(blob), Counted(100));
    EXPECT_THROW(blob.SetTo(large.data(), 5000), std::bad_alloc);
    EXPECT_EQ(ContentOf(blob), Content());
    std::vector<KyBlob> loaded(2);
    EXPECT_THROW(KyBlobTab.Load(loaded.data(), record.data(), KyFormNative, 2), std::bad_alloc);
    EXPECT_EQ(ContentsOf(loaded), (std::vector<Element>{Content(10), Content()}));
    largestBuffer = SIZE_MAX;
}

TEST_F(BlobMemory, LengthsBeyondTheLargestChangeNothing) {
    const Shortage shortage(SIZE_MAX);
    KyBlob blob("abc");
    blob.Resize(0x80000000);
    blob.Resize(0xFFFFFFFF);
    // Not a byte of so many is read.
    blob.Append("x", INT_MAX);
    blob.Append("x", INT_MAX - 3);
    EXPECT_EQ(wanted, (std::vector<std::size_t>{0x80000000, 0xFFFFFFFF, 0x80000003, 0x80000000}));
    EXPECT_EQ(ContentOf(blob), (Content{'a', 'b', 'c', 0}));
}

/// A text of `length` characters, all of them the same few pages of memory.
class LongText {
public:
    explicit LongText(std::size_t length) : size(length + kPage) {
        void* area = mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        const int file = memfd_create("text", 0);
        const std::string page(kPiece, 'x');
        if (area == MAP_FAILED || file < 0 || write(file, page.data(), kPiece) != static_cast<ssize_t>(kPiece)) {
            throw std::bad_alloc();
        }
        start = static_cast<char*>(area);
        for (std::size_t at = 0; at < length; at += kPiece) {
            if (mmap(start + at, std::min(kPiece, length - at), PROT_READ, MAP_SHARED | MAP_FIXED, file, 0) ==
                MAP_FAILED) {
                throw std::bad_alloc();
            }
        }
        close(file);
    }
    LongText(const LongText&) = delete;
    LongText& operator=(const LongText&) = delete;
    ~LongText() { munmap(start, size); }

    const char* Text() const { return start; }

private:
    static constexpr std::size_t kPage = 4096;
    static constexpr std::size_t kPiece = 1024 * kPage;
    std::size_t size;
    char* start = nullptr;
};

TEST_F(BlobMemory, TextsBeyondTheLargestLengthChangeNothing) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "the sanitizer notes every byte that is read, in memory of its own";
#endif
    // The page behind the text begins with its terminator, the first byte too many.
    const LongText text(0x80000000);
    const Shortage shortage(SIZE_MAX);
    KyBlob blob("abc");
    EXPECT_EQ(&(blob = text.Text()), &blob);
    EXPECT_EQ(wanted, std::vector<std::size_t>{0x80000001});
    EXPECT_EQ(ContentOf(blob), (Content{'a', 'b', 'c', 0}));
}

TEST_F(BlobMemory, CreateGivesNullWhereOneOfItsBlocksIsMissing) {
    for (const unsigned count : {1u, 2u, 5u}) {
        void* values = nullptr;
        int available = 0;
        for (; values == nullptr; ++available) {
            blocksLeft = available;
            values = KyBlobTab.Create(count);
            blocksLeft = -1;
        }
        EXPECT_GT(available, static_cast<int>(count)) << "a block for each value and one for their handles";
        KyBlobTab.Delete(values, count);
    }
}

TEST_F(BlobMemory, WhatCannotBeCopiedAsAWholeLeavesNothing) {
    std::vector<KyBlob> src = BlobsOf({Content(10), Content(20), Content(5000)});
    alignas(KyBlob) unsigned char place[3 * sizeof(KyBlob)];
    const std::ptrdiff_t before = buffersHeld;
    largestBuffer = 1000;
    EXPECT_THROW(KyBlobTab.Copy(place, src.data(), 3, 0), std::bad_alloc);
    EXPECT_THROW(KyBlobTab.Copy(place, src.data() + 2, 3, 1), std::bad_alloc);
    largestBuffer = SIZE_MAX;
    EXPECT_EQ(buffersHeld, before);
}

TEST_F(BlobMemory, WhatCannotBeConvertedAsAWholeLeavesNothing) {
    std::vector<KyBlob> blobs = BlobsOf({Content(10), std::nullopt, Content(5000)});
    KyTypeConvertData* record = KyBlobTab.ConvertToKyString(blobs.data(), 3);
    const std::ptrdiff_t before = buffersHeld;
    largestBuffer = 1000;
    EXPECT_THROW(KyBlobTab.ConvertFromKyString(record, 3), std::bad_alloc);
    largestBuffer = SIZE_MAX;
    EXPECT_EQ(buffersHeld, before);
    KyStringDelete(static_cast<KyString*>(record->data), 3);
    delete record;
    // Each of the blocks that the texts and their record take is refused once.
    for (int available = 0;; ++available) {
        const std::ptrdiff_t atFirst = buffersHeld;
        record = nullptr;
        blocksLeft = available;
        try {
            record = KyBlobTab.ConvertToKyString(blobs.data(), 3);
        } catch (const std::bad_alloc&) {
        }
        blocksLeft = -1;
        if (record != nullptr) break;
        EXPECT_EQ(buffersHeld, atFirst) << available;
    }
    KyStringDelete(static_cast<KyString*>(record->data), 3);
    delete record;
}

TEST_F(BlobMemory, ATextThatIsNoValueLeavesNothing) {
    KyTypeConvertData record(KySTRING_T, 3, KyStringCreate(3), nullptr);
    *record.GetString(0) = "0001";
    *record.GetString(1) = "02";
    *record.GetString(2) = "0";
    EXPECT_EQ(KyBlobTab.ConvertFromKyString(&record, 3), nullptr);
    KyStringDelete(static_cast<KyString*>(record.data), 3);
}

}  // namespace
