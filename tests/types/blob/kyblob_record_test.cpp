#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <string>
#include <vector>

#include "blob_contents.h"
#include "kybase.h"
#include "kyblob.h"
#include "kytypes.h"
#include "support/golden.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

using Elements = std::vector<Element>;

const Elements kArrays[] = {
    {},
    {std::nullopt},
    {Content()},
    {Content{0xAB}},
    {Counted(3)},
    {Counted(1000)},
    {std::nullopt, std::nullopt, std::nullopt},
    {Content(), std::nullopt, Counted(5), Content(), Counted(1)},
    {Counted(200), std::nullopt, Counted(70000, 9)},
};

unsigned CountOf(const Elements& elements) { return static_cast<unsigned>(elements.size()); }

/// What is in the array beforehand, of lengths around those that are loaded.
std::vector<KyBlob> OtherBlobs(std::size_t count, unsigned kind) {
    std::vector<KyBlob> blobs(count);
    for (std::size_t i = 0; i < count; ++i) {
        if (kind == 0) continue;
        if (kind == 1) blobs[i].SetNullValue();
        if (kind == 2) blobs[i].Resize(100);
        if (kind == 3) blobs[i].Resize(1100);
    }
    return blobs;
}

std::string Text(const Content& bytes) { return Hex(bytes.data(), bytes.size()); }

TEST(BlobRecord, IsWrittenAndReadBack) {
    for (const unsigned char form : kStoredForms) {
        for (const Elements& elements : kArrays) {
            const Content expected = RecordOf(elements, form);
            const std::vector<KyBlob> blobs = BlobsOf(elements);
            EXPECT_EQ(KyBlobTab.SizeGet(blobs.data(), KyFormMemory, form, CountOf(elements)), expected.size());
            GuardedBuffer record(expected.size());
            EXPECT_EQ(KyBlobTab.Store(record.data(), blobs.data(), form, CountOf(elements)), expected.size());
            EXPECT_EQ(Hex(record.data(), record.size()), Text(expected));
            EXPECT_EQ(KyBlobTab.SizeGet(record.data(), form, form, CountOf(elements)), expected.size());
            for (unsigned kind = 0; kind < 4; ++kind) {
                std::vector<KyBlob> loaded = OtherBlobs(elements.size(), kind);
                EXPECT_EQ(KyBlobTab.Load(loaded.data(), record.data(), form, CountOf(elements)), expected.size());
                EXPECT_EQ(ContentsOf(loaded), elements);
            }
        }
    }
}

TEST(BlobRecord, HasTheBytesThatAreKnown) {
    const std::vector<KyBlob> blobs = BlobsOf({std::nullopt, Content(), Chars("hi")});
    unsigned char record[18];
    EXPECT_EQ(KyBlobTab.Store(record, blobs.data(), KyFormNative, 3), 18u);
    EXPECT_EQ(Hex(record, 18), "0E 00 00 00 FF FF FF FF 00 00 00 00 02 00 00 00 68 69");
    EXPECT_EQ(KyBlobTab.Store(record, blobs.data(), KyFormReversed, 3), 18u);
    EXPECT_EQ(Hex(record, 18), "00 00 00 0E FF FF FF FF 00 00 00 00 00 00 00 02 68 69");
    EXPECT_EQ(KyBlobTab.Store(record, blobs.data(), KyFormNative, 1), 8u);
    EXPECT_EQ(Hex(record, 8), "04 00 00 00 FF FF FF FF");
    EXPECT_EQ(KyBlobTab.Store(record, blobs.data() + 1, KyFormNative, 1), 8u);
    EXPECT_EQ(Hex(record, 8), "04 00 00 00 00 00 00 00");
    EXPECT_EQ(KyBlobTab.Store(record, blobs.data(), KyFormNative, 0), 4u);
    EXPECT_EQ(Hex(record, 4), "00 00 00 00");
}

TEST(BlobRecord, AgreesWithItsGoldenFile) {
    for (const GoldenLine& line : ReadGolden(GoldenName(KyBlobTab))) {
        SCOPED_TRACE(line.number);
        Element content;
        if (line.value != "{NULL}") content.emplace();
        for (std::size_t at = 0; content && line.value != "\"\"" && at < line.value.size(); at += 2) {
            content->push_back(static_cast<unsigned char>(std::stoul(line.value.substr(at, 2), nullptr, 16)));
        }
        KyBlob blob = BlobOf(content);
        const auto hashText = [](unsigned hash) {
            Content bytes;
            AddNumber(bytes, hash, KyFormReversed);
            std::string text = Text(bytes);
            std::erase(text, ' ');
            return text;
        };
        int err = -1;
        EXPECT_EQ(hashText(KyBlobTab.Hash(KyFormMemory, 0, &blob, 1, err)), line.packed);
        for (const unsigned char form : kStoredForms) {
            Content record = RecordOf({content}, form);
            EXPECT_EQ(KyBlobTab.Store(record.data(), &blob, form, 1), record.size());
            EXPECT_EQ(Text(record), form == KyFormNative ? line.form1 : line.form2);
            EXPECT_EQ(hashText(KyBlobTab.Hash(form, 0, record.data(), 1, err)), line.hash);
            KyBlob loaded;
            EXPECT_EQ(KyBlobTab.Load(&loaded, record.data(), form, 1), record.size());
            EXPECT_EQ(ContentOf(loaded), content);
        }
    }
}

TEST(BlobRecord, OnlyTheLowBitsOfAFlagChooseTheForm) {
    const std::vector<KyBlob> blobs = BlobsOf({Chars("abc")});
    struct {
        unsigned char flag, form;
    } const cases[] = {{0x12, 2}, {0xF2, 2}, {0x81, 1}, {0x00, 1}, {0x05, 1}, {0x09, 1}, {0x0A, 1}, {0x22, 2}};
    for (const auto& c : cases) {
        const Content expected = RecordOf({Chars("abc")}, c.form);
        Content record(expected.size());
        EXPECT_EQ(KyBlobTab.Store(record.data(), blobs.data(), c.flag, 1), expected.size());
        EXPECT_EQ(Text(record), Text(expected)) << int{c.flag};
        EXPECT_EQ(KyBlobTab.SizeGet(record.data(), c.flag, 1, 1), expected.size());
        KyBlob loaded;
        EXPECT_EQ(KyBlobTab.Load(&loaded, record.data(), c.flag, 1), expected.size());
        EXPECT_EQ(ContentOf(loaded), Chars("abc"));
    }
    EXPECT_EQ(KyBlobTab.SizeGet(blobs.data(), 0x88, 1, 1), 11u);
}

TEST(BlobRecord, IsStoredAndLoadedAtAnyAddress) {
    const Elements elements = {Counted(9), std::nullopt, Counted(2)};
    for (std::size_t offset = 0; offset < 8; ++offset) {
        const Content expected = RecordOf(elements, KyFormReversed);
        Content area(offset + expected.size() + 4, 0xA5);
        KyBlobTab.Store(area.data() + offset, BlobsOf(elements).data(), KyFormReversed, 3);
        EXPECT_EQ(Hex(area.data() + offset, expected.size()), Text(expected));
        EXPECT_EQ(std::count(area.end() - 4, area.end(), 0xA5), 4);
        std::vector<KyBlob> loaded(3);
        KyBlobTab.Load(loaded.data(), area.data() + offset, KyFormReversed, 3);
        EXPECT_EQ(ContentsOf(loaded), elements);
    }
}

/// A record that is not as it should be.
struct BadRecord {
    const char* name;
    std::uint32_t total;
    std::vector<std::uint32_t> lengths;  ///< a length field each, with 5 bytes behind
    std::size_t loaded;                  ///< elements that are loaded before
};

const BadRecord kBadRecords[] = {
    {"negative total", 0x80000000, {5}, 0},
    {"all ones as a total", 0xFFFFFFFF, {5}, 0},
    {"no room for a length", 0, {5}, 0},
    {"no room for a whole length", 3, {5}, 0},
    {"no room for the last byte", 8, {5}, 0},
    {"no room for the second length", 9, {5, 5}, 1},
    {"no room for the whole second length", 12, {5, 5}, 1},
    {"no room for the second's last byte", 17, {5, 5}, 1},
    {"negative length", 9, {0x80000000}, 0},
    {"length next to that of null", 9, {0xFFFFFFFE}, 0},
    {"negative second length", 18, {5, 0xFFFFFFF0}, 1},
    {"a sum that wraps to the total", 0x7FFFFFFF, {5, 0x7FFFFFFF}, 1},
    {"a sum that wraps in 32 bits", 18, {5, 0xFFFFFFF7}, 1},
    {"the largest length", 0x7FFFFFFF, {0x7FFFFFFF}, 0},
    {"a length of nearly all", 0x7FFFFFFF, {0x7FFFFFFC}, 0},
};

Content BytesOf(const BadRecord& bad, unsigned char form) {
    Content record;
    AddNumber(record, bad.total, form);
    for (const std::uint32_t length : bad.lengths) {
        AddNumber(record, length, form);
        record.insert(record.end(), 5, 0x77);
    }
    return record;
}

TEST(BlobRecord, MalformedOnesAreRefused) {
    // With buffers that are too small for what the records tell, and with some that would stay.
    const Elements befores[] = {{Chars("one"), Chars("two"), std::nullopt}, {Counted(60), Counted(70), Counted(80)}};
    for (const unsigned char form : kStoredForms) {
        for (const BadRecord& bad : kBadRecords) {
            for (const Elements& before : befores) {
                SCOPED_TRACE(bad.name);
                GuardedBuffer record(BytesOf(bad, form));
                std::vector<KyBlob> blobs = BlobsOf(before);
                const auto count = static_cast<unsigned>(bad.lengths.size());
                EXPECT_EQ(KyBlobTab.Load(blobs.data(), record.data(), form, count), 0u);
                for (std::size_t i = 0; i < blobs.size(); ++i) {
                    EXPECT_EQ(ContentOf(blobs[i]), i < bad.loaded ? Element(Content(5, 0x77)) : before[i]) << i;
                }
            }
        }
    }
}

TEST(BlobRecord, ANullElementCountsItsLengthField) {
    for (const unsigned char form : kStoredForms) {
        // Room for two null elements, not for a third, nor for what would be its length field.
        GuardedBuffer record(RecordTelling(8, {std::nullopt, std::nullopt}, form));
        std::vector<KyBlob> blobs(3);
        EXPECT_EQ(KyBlobTab.Load(blobs.data(), record.data(), form, 2), 12u);
        EXPECT_EQ(KyBlobTab.Load(blobs.data(), record.data(), form, 3), 0u);
        EXPECT_EQ(ContentsOf(blobs), (Elements{std::nullopt, std::nullopt, Content()}));
    }
}

TEST(BlobRecord, ATotalMayBeLargerThanItsElements) {
    for (const unsigned char form : kStoredForms) {
        Content record = RecordTelling(20, {Chars("abc")}, form);
        KyBlob blob;
        EXPECT_EQ(KyBlobTab.Load(&blob, record.data(), form, 1), 24u);
        EXPECT_EQ(ContentOf(blob), Chars("abc"));
        EXPECT_EQ(KyBlobTab.SizeGet(record.data(), form, form, 1), 24u);
    }
}

TEST(BlobRecord, OfNoElementsOnlyTheTotalIsRead) {
    for (const unsigned char form : kStoredForms) {
        GuardedBuffer record(RecordTelling(0x7FFFFFFF, {}, form));
        EXPECT_EQ(KyBlobTab.Load(nullptr, record.data(), form, 0), 0x80000003u);
        GuardedBuffer negative(RecordTelling(0x80000000, {}, form));
        EXPECT_EQ(KyBlobTab.Load(nullptr, negative.data(), form, 0), 0u);
    }
}

TEST(BlobRecord, Kept_ATotalOfAllOnesMeasuresAsNothing) {
    for (const unsigned char form : kStoredForms) {
        struct {
            std::uint32_t total;
            unsigned size;
        } const cases[] = {{0xFFFFFFFF, 4}, {0, 4}, {10, 14}, {0x7FFFFFFF, 0x80000003}, {0xFFFFFFFB, 0xFFFFFFFF}};
        for (const auto& c : cases) {
            GuardedBuffer record(RecordTelling(c.total, {}, form));
            EXPECT_EQ(KyBlobTab.SizeGet(record.data(), form, KyFormNative, 1), c.size);
            MemFile file(record.data(), record.size());
            EXPECT_EQ(KyBlobTab.SizeGetFromMemFile(&file, form, 1), c.size);
        }
    }
}

TEST(BlobRecord, IsMeasuredInAFileWhosePositionStays) {
    for (const unsigned char form : kStoredForms) {
        Content bytes(3, 0xEE);
        AddNumber(bytes, 10, form);
        GuardedBuffer buffer(bytes);
        MemFile file(buffer.data(), buffer.size());
        for (long position = 0; position <= 7; ++position) {
            const void* place = file.Seek(position, MemFile::begin);
            const unsigned size = KyBlobTab.SizeGetFromMemFile(&file, form, 5);
            if (position == 3) {
                EXPECT_EQ(size, 14u);
            }
            if (position > 3) {
                EXPECT_EQ(size, 4u) << "no total is there";
            }
            EXPECT_EQ(file.Seek(0, MemFile::current), place);
        }
    }
}

TEST(BlobRecord, Kept_NullSizeLeavesTheTotalOut) {
    for (const unsigned count : {0u, 1u, 5u}) EXPECT_EQ(KyBlobTab.NullSizeGet(count), 4 * count);
}

/// Handles to one block that tells a length of which nothing is there: sizes and refusals read no bytes.
class TellingBlobs {
public:
    TellingBlobs(std::size_t count, int length) : data{.data = &data, .length = length, .capacity = 0} {
        for (std::size_t i = 0; i < count; ++i) handles.push_back(&data);
    }
    const void* Blobs() const { return handles.data(); }

private:
    KyBlobData data;
    std::vector<KyBlobData*> handles;
};

TEST(BlobRecord, ArraysThatCouldNotBeLoadedAreNotStored) {
    struct {
        std::size_t count;
        int length;
    } const cases[] = {{1, INT_MAX - 3}, {1, INT_MAX}, {2, 0x40000000}, {3, INT_MAX}, {2, 0x3FFFFFFC}};
    for (const auto& c : cases) {
        const TellingBlobs blobs(c.count, c.length);
        unsigned char record[8] = {1, 2, 3, 4, 5, 6, 7, 8};
        EXPECT_EQ(KyBlobTab.Store(record, blobs.Blobs(), KyFormNative, static_cast<unsigned>(c.count)), 0u);
        EXPECT_EQ(Hex(record, 8), "01 02 03 04 05 06 07 08");
        const auto size = 4 + c.count * (4 + static_cast<std::uint64_t>(c.length));
        EXPECT_EQ(KyBlobTab.SizeGet(blobs.Blobs(), KyFormMemory, KyFormNative, static_cast<unsigned>(c.count)),
                  static_cast<unsigned>(size));
    }
}

TEST(BlobRecord, AnythingDamagedIsLoadedOrRefused) {
    std::mt19937 random(23);
    for (int round = 0; round < 20000; ++round) {
        Elements elements;
        for (unsigned i = Below(random, 4); i > 0; --i) {
            if (Below(random, 4) != 0) {
                elements.emplace_back(Counted(Below(random, 12)));
            } else {
                elements.emplace_back();
            }
        }
        const unsigned char form = kStoredForms[round % 2];
        Content bytes = RecordOf(elements, form);
        for (unsigned i = Below(random, 3); i > 0; --i) {
            bytes[Below(random, bytes.size())] =
                static_cast<unsigned char>(Below(random, 4) == 0 ? random() : Below(random, 16));
        }
        const std::uint32_t told = NumberAt(bytes, 0, form);
        const unsigned count = CountOf(elements) + Below(random, 2);
        GuardedBuffer record(bytes);
        std::vector<KyBlob> blobs(count);
        // Load trusts a total: it is not to tell more than is there.
        if (told <= bytes.size() - 4 || told > INT_MAX) {
            const unsigned size = KyBlobTab.Load(blobs.data(), record.data(), form, count);
            ASSERT_TRUE(size == 0 || size == 4 + told);
        }
        const auto length = static_cast<unsigned>(bytes.size());
        const unsigned size = KyBlobTab.Translate(blobs.data(), KyFormMemory, 0, record.data(), form, length, count);
        ASSERT_TRUE(size == 0 || (size == 4 + told && size <= length));
    }
}

}  // namespace
