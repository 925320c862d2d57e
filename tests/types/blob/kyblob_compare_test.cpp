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

int CompareStored(unsigned char form, unsigned len1, Content a, unsigned len2, Content b, unsigned count) {
    GuardedBuffer first(First(a, len1 != 0 ? len1 : a.size()));
    GuardedBuffer second(First(b, len2 != 0 ? len2 : b.size()));
    int err = -1;
    const int result = KyBlobTab.Compare(form, len1, first.data(), len2, second.data(), 0, count, err);
    EXPECT_EQ(err, 0);
    return result;
}

/// In a stored form, with and without lengths.
int CompareStored(unsigned char form, const Elements& a, const Elements& b, unsigned count) {
    const Content first = RecordOf(a, form);
    const Content second = RecordOf(b, form);
    const int result = CompareStored(form, 0, first, 0, second, count);
    EXPECT_EQ(CompareStored(form, static_cast<unsigned>(first.size()), first, static_cast<unsigned>(second.size()),
                            second, count),
              result);
    return result;
}

int CompareInMemory(const Elements& a, const Elements& b, unsigned count) {
    std::vector<KyBlob> first = BlobsOf(a);
    std::vector<KyBlob> second = BlobsOf(b);
    int err = -1;
    const int result = KyBlobTab.Compare(KyFormMemory, 0, first.data(), 0, second.data(), 0, count, err);
    EXPECT_EQ(err, 0);
    return result;
}

/// Ascending.
const Elements kAscending = {
    std::nullopt,        Content(),          Content{0},         Content{0, 0}, Content{0, 1},
    Content{0x7F},       Content{0x7F, 0},   Content{0x80},      Content{0xFF}, Content{0xFF, 0},
    Content{0xFF, 0xFF}, Content(300, 0xFF), Content(301, 0xFF),
};

TEST(BlobCompare, OrdersSingleValuesAlikeInAllForms) {
    for (std::size_t i = 0; i < kAscending.size(); ++i) {
        for (std::size_t j = 0; j < kAscending.size(); ++j) {
            const Element& a = kAscending[i];
            const Element& b = kAscending[j];
            const int order = (i > j) - (i < j);
            EXPECT_EQ(CompareInMemory({a}, {b}, 1), order) << i << ' ' << j;
            const bool byNull = a.has_value() != b.has_value();
            for (const unsigned char form : kStoredForms) {
                EXPECT_EQ(CompareStored(form, {a}, {b}, 1), byNull ? 2 * order : order) << i << ' ' << j;
            }
        }
    }
}

TEST(BlobCompare, Kept_AStoredNullGivesTwo) {
    for (const unsigned char form : kStoredForms) {
        EXPECT_EQ(CompareStored(form, {std::nullopt}, {Content()}, 1), -2);
        EXPECT_EQ(CompareStored(form, {Chars("abc")}, {std::nullopt}, 1), 2);
        EXPECT_EQ(CompareStored(form, {std::nullopt}, {std::nullopt}, 1), 0);
    }
}

TEST(BlobCompare, TheFirstElementsThatDifferDecide) {
    struct {
        Elements a, b;
        int inMemory, stored;
    } const cases[] = {
        {{Chars("a"), Chars("b"), Chars("c")}, {Chars("a"), Chars("b"), Chars("c")}, 0, 0},
        {{Chars("a"), Chars("b"), Chars("c")}, {Chars("a"), Chars("c"), Chars("a")}, -1, -1},
        {{Chars("aa"), Content(), Chars("c")}, {Chars("aa"), Content(), Chars("cc")}, -1, -1},
        {{std::nullopt, Chars("x")}, {std::nullopt, Chars("w")}, 1, 1},
        {{Chars("x"), std::nullopt}, {Chars("x"), Content()}, -1, -2},
        // Not the texts behind one another.
        {{Chars("ab"), Chars("c")}, {Chars("a"), Chars("bc")}, 1, 1},
    };
    for (const auto& c : cases) {
        const auto count = static_cast<unsigned>(c.a.size());
        EXPECT_EQ(CompareInMemory(c.a, c.b, count), c.inMemory);
        EXPECT_EQ(CompareInMemory(c.b, c.a, count), -c.inMemory);
        for (const unsigned char form : kStoredForms) {
            EXPECT_EQ(CompareStored(form, c.a, c.b, count), c.stored);
            EXPECT_EQ(CompareStored(form, c.b, c.a, count), -c.stored);
        }
    }
}

TEST(BlobCompare, OnlySoManyElementsCount) {
    const Elements a = {Chars("a"), Chars("b")};
    const Elements b = {Chars("a"), Chars("c")};
    EXPECT_EQ(CompareInMemory(a, b, 1), 0);
    EXPECT_EQ(CompareStored(KyFormNative, a, b, 1), 0);
    EXPECT_EQ(CompareStored(KyFormNative, a, b, 0), 0);
    EXPECT_EQ(CompareInMemory(a, b, 0), 0);
}

TEST(BlobCompare, AWalkEndsWhereNoFurtherLengthIs) {
    const Elements a = {Chars("a"), Chars("b"), Chars("c")};
    const Elements b = {Chars("a")};
    for (const unsigned char form : kStoredForms) {
        EXPECT_EQ(CompareStored(form, a, b, 3), 0) << "equal as far as both go";
        const Content record = RecordOf(a, form);
        Content other = record;
        other[13] = 'x';  // the second element
        for (unsigned length = 1; length <= record.size(); ++length) {
            EXPECT_EQ(CompareStored(form, length, record, length, other, 3), length < 14 ? 0 : -1) << length;
            EXPECT_EQ(CompareStored(form, length, record, 0, other, 3), length < 14 ? 0 : -1) << length;
        }
    }
}

TEST(BlobCompare, OfACutElementWhatIsThereCountsThenTheLength) {
    for (const unsigned char form : kStoredForms) {
        const Content a = RecordOf({Chars("abcdef")}, form);
        const Content b = RecordOf({Chars("abcdeg")}, form);
        const Content longer = RecordOf({Chars("abcdefg")}, form);
        const auto size = static_cast<unsigned>(a.size());
        EXPECT_EQ(CompareStored(form, size, a, size, b, 1), -1);
        EXPECT_EQ(CompareStored(form, size - 1, a, size, b, 1), 0);
        EXPECT_EQ(CompareStored(form, size - 1, a, 0, longer, 1), -1);
        EXPECT_EQ(CompareStored(form, 8, a, 8, longer, 1), -1) << "only the lengths are there";
        EXPECT_EQ(CompareStored(form, 7, a, 8, longer, 1), 0);
    }
}

TEST(BlobCompare, StoredLengthsCountAsUnsigned) {
    for (const unsigned char form : kStoredForms) {
        Content a = RecordTelling(0x80000008, {}, form);
        AddNumber(a, 0x80000004, form);
        Content b = RecordTelling(8, {Chars("abcd")}, form);
        const Content content = Chars("abcd");
        a.insert(a.end(), content.begin(), content.end());
        EXPECT_EQ(CompareStored(form, 12, a, 12, b, 1), 1);
        EXPECT_EQ(CompareStored(form, 12, b, 12, a, 9), -1);
        EXPECT_EQ(CompareStored(form, 12, a, 12, a, 9), 0);
    }
}

TEST(BlobCompare, OnlySoManyHandlesAreRead) {
    std::vector<KyBlob> a = BlobsOf({Chars("a"), Chars("b")});
    std::vector<KyBlob> b = BlobsOf({Chars("a"), Chars("c")});
    int err = -1;
    EXPECT_EQ(KyBlobTab.Compare(KyFormMemory, 8, a.data(), 0, b.data(), 0, 2, err), 0);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(KyBlobTab.Compare(KyFormMemory, 0, a.data(), 8, b.data(), 0, 2, err), 0);
    EXPECT_EQ(KyBlobTab.Compare(KyFormMemory, 16, a.data(), 16, b.data(), 0, 2, err), -1);
    EXPECT_EQ(KyBlobTab.Compare(KyFormMemory, 1, a.data(), 1, b.data(), 0, 1, err), 0);
    EXPECT_EQ(err, 0);
}

TEST(BlobCompare, TheOperatorWordIsIgnored) {
    KyBlob star("*");
    KyBlob other("abc");
    for (unsigned op = 0; op < 0x10000; op += 0x0111) {
        int err = -1;
        EXPECT_EQ(KyBlobTab.Compare(KyFormMemory, 0, &star, 0, &other, static_cast<unsigned short>(op), 1, err), -1);
        EXPECT_EQ(err, 0);
    }
}

Content DamagedRecord(std::mt19937& random, unsigned char form) {
    Elements elements;
    for (unsigned i = Below(random, 5); i > 0; --i) {
        if (Below(random, 5) != 0) {
            Content content(Below(random, 6));
            for (unsigned char& byte : content) byte = static_cast<unsigned char>(Below(random, 2));
            elements.emplace_back(content);
        } else {
            elements.emplace_back();
        }
    }
    Content record = RecordOf(elements, form);
    if (Below(random, 2) == 0) {
        constexpr unsigned char odd[] = {0, 1, 3, 4, 5, 0x7F, 0x80, 0xFC, 0xFF};
        record[Below(random, record.size())] = odd[Below(random, sizeof odd)];
    }
    return record;
}

TEST(BlobCompare, AgreesWithThePlainWalkOnAnyRecords) {
    std::mt19937 random(29);
    for (int round = 0; round < 40000; ++round) {
        const unsigned char form = kStoredForms[round % 2];
        const Content a = DamagedRecord(random, form);
        const Content b = Below(random, 3) == 0 ? a : DamagedRecord(random, form);
        const auto len1 = static_cast<unsigned>(1 + Below(random, a.size()));
        const auto len2 = static_cast<unsigned>(1 + Below(random, b.size()));
        const unsigned count = Below(random, 6);
        const bool reversed = form == KyFormReversed;
        const int expected = SlowCompare(SlowBlobRecord(a, len1, reversed), SlowBlobRecord(b, len2, reversed), count);
        ASSERT_EQ(CompareStored(form, len1, a, len2, b, count), expected) << round;
    }
}

}  // namespace
