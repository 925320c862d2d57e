#include "kyblob.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <type_traits>

#include "blob_contents.h"
#include "kybase.h"

namespace {

static_assert(sizeof(KyBlob) == sizeof(void*));

TEST(Blob, IsEmptyAtFirst) {
    KyBlob blob;
    EXPECT_EQ(blob.Length(), 0);
    EXPECT_EQ(blob.IsNullValue(), 0);
    EXPECT_EQ(ContentOf(blob), Content());
}

TEST(Blob, IsMadeOfZeros) {
    EXPECT_EQ(ContentOf(KyBlob(5)), Content(5));
    EXPECT_EQ(ContentOf(KyBlob(1000)), Content(1000));
    for (const int n : {0, -1, INT_MIN}) EXPECT_EQ(ContentOf(KyBlob(n)), Content()) << n;
}

TEST(Blob, IsMadeOfBytes) {
    const Content bytes = Counted(300, 7);
    EXPECT_EQ(ContentOf(KyBlob(bytes.data(), 300)), bytes);
    EXPECT_EQ(ContentOf(KyBlob(bytes.data(), 0)), Content());
    EXPECT_EQ(ContentOf(KyBlob(bytes.data(), -5)), Content());
    EXPECT_EQ(ContentOf(KyBlob(nullptr, 5)), Content());
}

TEST(Blob, IsMadeOfTextWithItsZero) {
    EXPECT_EQ(ContentOf(KyBlob("abc")), (Content{'a', 'b', 'c', 0}));
    EXPECT_EQ(ContentOf(KyBlob("")), Content{0});
    EXPECT_EQ(ContentOf(KyBlob(static_cast<const char*>(nullptr))), Content());
    char text[] = "xy";
    KyBlob blob = BlobOf(std::nullopt);
    blob = text;
    EXPECT_EQ(ContentOf(blob), (Content{'x', 'y', 0}));
    blob = static_cast<const char*>(nullptr);
    EXPECT_EQ(ContentOf(blob), Content());
}

TEST(Blob, CopiesAreDeep) {
    for (const Element& content : {Element(), Element(Content()), Element(Counted(3)), Element(Counted(1000))}) {
        const KyBlob original = BlobOf(content);
        KyBlob copy(original);
        KyBlob assigned("something else");
        assigned = original;
        EXPECT_EQ(ContentOf(copy), content);
        EXPECT_EQ(ContentOf(assigned), content);
        copy.Append("!", 1);
        assigned.SetTo("?", 1);
        EXPECT_EQ(ContentOf(original), content);
    }
}

TEST(Blob, AssigningItselfChangesNothing) {
    for (const Element& content : {Element(), Element(Content()), Element(Counted(500))}) {
        KyBlob blob = BlobOf(content);
        const KyBlob& same = blob;
        const void* place = blob.Seek(0, 1);
        blob = same;
        EXPECT_EQ(ContentOf(blob), content);
        EXPECT_EQ(blob.Seek(0, 1), place);
    }
}

TEST(Blob, NullIsNoValueAndBecomesOne) {
    KyBlob blob("abc");
    EXPECT_EQ(blob.SetNullValue(), 0);
    EXPECT_EQ(blob.IsNullValue(), 1);
    EXPECT_EQ(blob.Length(), 0);
    EXPECT_EQ(blob.SetNullValue(), 0);
    EXPECT_EQ(&blob.SetTo("xyz", 2), &blob);
    EXPECT_EQ(ContentOf(blob), Chars("xy"));
    blob.SetNullValue();
    blob.SetTo(nullptr, 0);
    EXPECT_EQ(ContentOf(blob), Content());
}

/// Whether a blob of `before` bytes that is filled with `after` bytes keeps its buffer.
bool KeepsBuffer(int before, int after) {
    const Content bytes = Counted(static_cast<std::size_t>(after), 3);
    KyBlob blob(before);
    const void* place = blob.Seek(0, 1);
    // Takes the place that a buffer which is given up leaves.
    blob.SetTo(bytes.data(), after);
    EXPECT_EQ(ContentOf(blob), bytes);
    return blob.Seek(0, 1) == place;
}

TEST(Blob, RefillsABufferThatIsNotMuchTooLarge) {
    EXPECT_TRUE(KeepsBuffer(200, 200));
    EXPECT_TRUE(KeepsBuffer(200, 100));
    EXPECT_TRUE(KeepsBuffer(200, 72));
    EXPECT_TRUE(KeepsBuffer(129, 1));
    EXPECT_TRUE(KeepsBuffer(1 << 20, (1 << 20) - 128));
}

TEST(Blob, FillingWithNothingLeavesNoData) {
    for (const int before : {0, 1, 100, 500}) {
        KyBlob blob(before);
        blob.SetTo("x", 0);
        EXPECT_EQ(ContentOf(blob), Content());
        EXPECT_EQ(blob.Seek(0, 1), nullptr);
    }
}

TEST(Blob, IsFilledFromItself) {
    for (const int length : {10, 200, 1000}) {
        for (const int offset : {0, 1, 5}) {
            for (const int n : {1, 4, length - offset}) {
                KyBlob blob = BlobOf(Counted(static_cast<std::size_t>(length)));
                blob.SetTo(blob.Seek(offset, n), n);
                EXPECT_EQ(ContentOf(blob), Counted(static_cast<std::size_t>(n), static_cast<unsigned>(offset)))
                    << length << ' ' << offset << ' ' << n;
            }
        }
    }
    KyBlob text(Chars("abcdef\0").data(), 6);
    text.Append("", 1);
    text = static_cast<const char*>(text.Seek(2, 5));
    EXPECT_EQ(ContentOf(text), (Content{'c', 'd', 'e', 'f', 0}));
}

TEST(Blob, SeeksWhatIsInside) {
    KyBlob blob("abcdef");  // 7 bytes
    auto* start = static_cast<char*>(blob.Seek(0, 7));
    ASSERT_NE(start, nullptr);
    struct {
        int offset, n;
        int found;  ///< -1: nothing
    } const cases[] = {
        {0, 1, 0},   {6, 1, 6},        {3, 4, 3},        {0, 8, -1},       {7, 1, -1},       {6, 2, -1},
        {8, 1, -1},  {0, 0, -1},       {3, 0, -1},       {7, 0, -1},       {-1, 1, -1},      {-1, 2, -1},
        {0, -1, -1}, {INT_MAX, 1, -1}, {1, INT_MAX, -1}, {INT_MIN, 1, -1}, {0, INT_MIN, -1}, {INT_MAX, INT_MAX, -1},
        {8, -1, -1}, {7, -1, -1},
    };
    for (const auto& c : cases) {
        const void* expected = c.found < 0 ? nullptr : start + c.found;
        EXPECT_EQ(blob.Seek(c.offset, c.n), expected) << c.offset << ' ' << c.n;
        EXPECT_EQ(KyBlob().Seek(c.offset, c.n), nullptr);
        EXPECT_EQ(BlobOf(std::nullopt).Seek(c.offset, c.n), nullptr);
    }
}

TEST(Blob, Resizes) {
    KyBlob blob("abcdef");
    const void* place = blob.Seek(0, 1);
    blob.Resize(7);
    EXPECT_EQ(blob.Seek(0, 1), place);
    EXPECT_EQ(&blob.Resize(3), &blob);
    EXPECT_EQ(ContentOf(blob), Chars("abc"));
    EXPECT_EQ(blob.Seek(0, 1), place);
    blob.Resize(5);
    EXPECT_EQ(ContentOf(blob), (Content{'a', 'b', 'c', 0, 0}));
    blob.Resize(0);
    EXPECT_EQ(ContentOf(blob), Content());
    blob.Resize(2);
    EXPECT_EQ(ContentOf(blob), Content(2));
}

TEST(Blob, ResizingMakesANullBlobAValue) {
    for (const unsigned n : {0u, 1u, 300u}) {
        KyBlob blob = BlobOf(std::nullopt);
        EXPECT_EQ(ContentOf(blob.Resize(n)), Content(n));
    }
}

/// Of all pairs, ascending; those of one line are equal.
const std::vector<std::vector<Element>> kAscending = {
    {std::nullopt},
    {Content()},
    {Chars(std::string_view("\0", 1))},
    {Content(2)},
    {Content{0, 1}},
    {Content{0x7F}},
    {Content{0x7F, 0}},
    {Content{0x80}, Content{0x80}},
    {Content{0xFF}},
    {Content{0xFF, 0}},
    {Content{0xFF, 0xFF}},
    {Content(100, 0xFF)},
    {Content(101, 0xFF)},
};

TEST(Blob, OrdersByBytesThenByLength) {
    for (std::size_t i = 0; i < kAscending.size(); ++i) {
        for (std::size_t j = 0; j < kAscending.size(); ++j) {
            for (const Element& a : kAscending[i]) {
                for (const Element& b : kAscending[j]) {
                    const int expected = (i > j) - (i < j);
                    const KyBlob x = BlobOf(a);
                    const KyBlob y = BlobOf(b);
                    EXPECT_EQ(x != y, expected) << i << ' ' << j;
                    EXPECT_EQ(x == y, expected == 0 ? 1 : 0) << i << ' ' << j;
                }
            }
        }
    }
}

TEST(Blob, ReadsNumbersFromItsFirstBytes) {
    const KyBlob blob = BlobOf(Content{0x34, 0x12, 0xFF, 0xFF, 0x99});
    EXPECT_EQ(static_cast<short>(blob), 0x1234);
    EXPECT_EQ(static_cast<int>(blob), static_cast<int>(0xFFFF1234));
    EXPECT_EQ(static_cast<int>(BlobOf(Content{0x34, 0x12})), 0x1234);
    EXPECT_EQ(static_cast<short>(BlobOf(Content{0xFE})), 0x00FE);
    const double number = -2.5;
    EXPECT_EQ(static_cast<double>(KyBlob(&number, sizeof number)), number);
    // The high bytes of the number are the last ones.
    EXPECT_EQ(static_cast<double>(KyBlob(&number, 6)), 0.0);
    for (const Element& none : {Element(), Element(Content())}) {
        const int asInt = BlobOf(none);
        const short asShort = BlobOf(none);
        const double asDouble = BlobOf(none);
        EXPECT_EQ(asInt, 0);
        EXPECT_EQ(asShort, 0);
        EXPECT_EQ(asDouble, 0.0);
    }
}

}  // namespace
