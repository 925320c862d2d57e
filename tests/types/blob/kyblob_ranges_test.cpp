#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <string>

#include "blob_contents.h"
#include "kyblob.h"

namespace {

/// The range as the class describes it.
Content SlowRange(const Content& content, long long offset, long long n) {
    const auto length = static_cast<long long>(content.size());
    if (offset < 0 || offset >= length || n < -1 || n == 0) return {};
    const long long end = n == -1 ? length : std::min(offset + n, length);
    return {content.begin() + offset, content.begin() + end};
}

constexpr int kOffsets[] = {INT_MIN, -2, -1, 0, 1, 2, 5, 6, 7, 8, INT_MAX};
constexpr int kCounts[] = {INT_MIN, -2, -1, 0, 1, 2, 5, 6, 7, 8, INT_MAX};

const Element kContents[] = {std::nullopt, Content(), Chars("a"), Chars("abcdefg")};

TEST(BlobRanges, AreCopied) {
    for (const Element& content : kContents) {
        for (const int offset : kOffsets) {
            for (const int n : kCounts) {
                const Content expected = SlowRange(content.value_or(Content()), offset, n);
                const KyBlob blob = BlobOf(content);
                EXPECT_EQ(ContentOf(blob.CopyFrom(offset, n)), expected) << offset << ' ' << n;
                for (const Element& before : kContents) {
                    KyBlob dst = BlobOf(before);
                    EXPECT_EQ(blob.CopyTo(dst, offset, n), static_cast<int>(expected.size()));
                    EXPECT_EQ(ContentOf(dst), expected) << offset << ' ' << n;
                }
                KyBlob itself = BlobOf(content);
                EXPECT_EQ(itself.CopyTo(itself, offset, n), static_cast<int>(expected.size()));
                EXPECT_EQ(ContentOf(itself), expected) << offset << ' ' << n;
                EXPECT_EQ(ContentOf(blob), content);
            }
        }
    }
}

TEST(BlobRanges, AreCut) {
    for (const Element& content : kContents) {
        for (const int offset : kOffsets) {
            for (const int n : kCounts) {
                Element expected = content;
                if (expected) {
                    const auto cut = static_cast<std::ptrdiff_t>(SlowRange(*content, offset, n).size());
                    if (cut != 0) expected->erase(expected->begin() + offset, expected->begin() + offset + cut);
                }
                KyBlob blob = BlobOf(content);
                EXPECT_EQ(&blob.Cut(offset, n), &blob);
                EXPECT_EQ(ContentOf(blob), expected) << offset << ' ' << n;
            }
        }
    }
}

TEST(BlobRanges, OfLargeBlobsAreCopiedWithinThem) {
    // Both sides of the limit up to which a buffer is used again.
    for (const int n : {1, 871, 872, 873, 999}) {
        KyBlob blob = BlobOf(Counted(1000));
        EXPECT_EQ(blob.CopyTo(blob, 1, n), n);
        EXPECT_EQ(ContentOf(blob), Counted(static_cast<std::size_t>(n), 1));
    }
}

TEST(BlobRanges, BytesAreAppended) {
    KyBlob blob = BlobOf(std::nullopt);
    EXPECT_EQ(&blob.Append("abc", 2), &blob);
    EXPECT_EQ(ContentOf(blob), Chars("ab"));
    blob.Append("cde", 3).Append(BlobOf(Chars("fg"))) += BlobOf(Chars("h"));
    EXPECT_EQ(ContentOf(blob), Chars("abcdefgh"));
}

TEST(BlobRanges, AppendingNothingChangesNothing) {
    for (const Element& content : kContents) {
        KyBlob blob = BlobOf(content);
        blob.Append("x", 0).Append("x", -1).Append("x", INT_MIN).Append(nullptr, 5);
        blob.Append(KyBlob()).Append(BlobOf(std::nullopt)) += KyBlob();
        EXPECT_EQ(ContentOf(blob), content);
    }
}

TEST(BlobRanges, ABlobIsAppendedToItself) {
    for (const Element& content : kContents) {
        KyBlob blob = BlobOf(content);
        for (int round = 0; round < 6; ++round) {
            Element twice = ContentOf(blob);
            if (twice) twice->insert(twice->end(), twice->begin(), twice->end());
            if (round % 2 == 0) {
                blob.Append(blob);
            } else {
                blob.Append(blob.Seek(0, blob.Length()), blob.Length());
            }
            EXPECT_EQ(ContentOf(blob), twice);
        }
    }
    KyBlob blob(Chars("abcdef").data(), 6);
    blob.Append(blob.Seek(2, 3), 3);
    EXPECT_EQ(ContentOf(blob), Chars("abcdefcde"));
}

TEST(BlobRanges, AnyPiecesAreAppended) {
    std::mt19937 random(17);
    KyBlob blob;
    Content expected;
    for (int piece = 0; piece < 3000; ++piece) {
        const Content bytes = Counted(Below(random, 9), Below(random, 256));
        blob.Append(bytes.data(), static_cast<int>(bytes.size()));
        expected.insert(expected.end(), bytes.begin(), bytes.end());
        if (Below(random, 50) == 0) {
            const auto cut = Below(random, expected.size() + 1);
            expected.resize(expected.size() - cut);
            blob.Cut(static_cast<int>(expected.size()), -1);
        }
        if (Below(random, 50) == 0) {
            expected.resize(expected.size() + 5);
            blob.Expand(static_cast<int>(expected.size()));
        }
        if (Below(random, 50) == 0) {
            expected.resize(expected.size() / 2);
            blob.Resize(static_cast<unsigned>(expected.size()));
        }
        ASSERT_EQ(ContentOf(blob), expected) << piece;
    }
}

TEST(BlobRanges, Expand) {
    for (const Element& content : kContents) {
        for (const int n : {INT_MIN, -1, 0, 1, 7, 8, 100}) {
            Element expected = content;
            const int length = content ? static_cast<int>(content->size()) : 0;
            if (n > length) {
                if (!expected) expected.emplace();
                expected->resize(static_cast<std::size_t>(n));
            }
            KyBlob blob = BlobOf(content);
            EXPECT_EQ(&blob.Expand(n), &blob);
            EXPECT_EQ(ContentOf(blob), expected) << n;
        }
    }
}

TEST(BlobRanges, WhatIsAddedInRoomOfBeforeIsZero) {
    KyBlob blob = BlobOf(Content(100, 0xEE));
    blob.Resize(10).Expand(50);
    Content expected(10, 0xEE);
    expected.resize(50);
    EXPECT_EQ(ContentOf(blob), expected);
    blob.Cut(5, -1).Resize(20);
    expected.resize(5);
    expected.resize(20);
    EXPECT_EQ(ContentOf(blob), expected);
}

TEST(BlobRanges, AreSearched) {
    struct {
        Element content, pattern;
        int found;
    } const cases[] = {
        {Chars("abcabd"), Chars("abd"), 3},
        {Chars("abcabd"), Chars("ab"), 0},
        {Chars("abcabd"), Chars("d"), 5},
        {Chars("abcabd"), Chars("abcabd"), 0},
        {Chars("abcabd"), Chars("abcabde"), -1},
        {Chars("abcabd"), Chars("x"), -1},
        {Chars("aaab"), Chars("aab"), 1},
        {Content{1, 0, 2, 0, 3}, Content{0, 3}, 3},
        {Content{1, 0, 2, 0, 3}, Content{0}, 1},
        {Content{0xFF, 0x80}, Content{0x80}, 1},
        {Chars("abc"), Content(), -1},
        {Chars("abc"), std::nullopt, -1},
        {Content(), Chars("a"), -1},
        {Content(), Content(), -1},
        {std::nullopt, Chars("a"), -1},
        {std::nullopt, std::nullopt, -1},
    };
    for (const auto& c : cases) EXPECT_EQ(BlobOf(c.content).Search(BlobOf(c.pattern)), c.found);
    const KyBlob blob("itself");
    EXPECT_EQ(blob.Search(blob), 0);
}

TEST(BlobRanges, SearchFindsWhatThePlainSearchFinds) {
    std::mt19937 random(19);
    for (int round = 0; round < 3000; ++round) {
        const auto run = [&](std::size_t most) {
            Content bytes(Below(random, most));
            for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(Below(random, 2));
            return bytes;
        };
        const Content content = run(60);
        const Content pattern = run(8);
        const auto found = std::search(content.begin(), content.end(), pattern.begin(), pattern.end());
        const bool isThere = !pattern.empty() && found != content.end();
        EXPECT_EQ(BlobOf(content).Search(BlobOf(pattern)), isThere ? static_cast<int>(found - content.begin()) : -1);
    }
}

}  // namespace
