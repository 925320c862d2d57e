#include <gtest/gtest.h>

#include "kystring.h"
#include "kystring_slots.h"
#include "string_texts.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

constexpr unsigned short kExact = 0x100;
constexpr unsigned kHashFactor = 1103515245;
constexpr unsigned kNullHash = 0xFEFE7575;

/// An array of strings stored in one form, with an inaccessible page right behind it.
class StoredArray {
public:
    StoredArray(const KyTypeTab& row, const std::vector<KyString>& strings, unsigned char form)
        : buffer(row.SizeGet(strings.data(), KyFormMemory, form, Count(strings))) {
        row.Store(buffer.data(), strings.data(), form, Count(strings));
    }
    void* Data() { return buffer.data(); }
    unsigned Size() const { return static_cast<unsigned>(buffer.size()); }

private:
    GuardedBuffer buffer;
    static unsigned Count(const std::vector<KyString>& strings) { return static_cast<unsigned>(strings.size()); }
};

struct Result {
    int sign;
    int err;
    friend bool operator==(const Result&, const Result&) = default;
};

void PrintTo(const Result& r, std::ostream* out) { *out << r.sign << " err " << r.err; }

Result Compared(const KyTypeTab& row, unsigned char flag, unsigned len1, void* a, unsigned len2, void* b,
                unsigned short op, unsigned count) {
    int err = 77;
    const int result = row.Compare(flag, len1, a, len2, b, op, count, err);
    return {(result > 0) - (result < 0), err};
}

/// The same comparison in memory form and in the persistent ones, which have to agree.
Result InEveryForm(std::vector<KyString> a, std::vector<KyString> b, unsigned short op) {
    const auto count = static_cast<unsigned>(a.size());
    const Result inMemory = Compared(KyStringTab, 8, 0, a.data(), 0, b.data(), op, count);
    for (const unsigned char flag : std::initializer_list<unsigned char>{0x01, 0x02, 0x81, 0x82}) {
        StoredArray storedA(KyStringTab, a, flag);
        StoredArray storedB(KyStringTab, b, flag);
        EXPECT_EQ(Compared(KyStringTab, flag, 0, storedA.Data(), 0, storedB.Data(), op, count), inMemory) << int{flag};
        EXPECT_EQ(
            Compared(KyStringTab, flag, storedA.Size(), storedA.Data(), storedB.Size(), storedB.Data(), op, count),
            inMemory)
            << int{flag};
    }
    return inMemory;
}

TEST(StringCompareSlot, FollowsTheOrderInEveryForm) {
    const KyString ascending[] = {
        Null(),    "", "a", Wide(u"ab"), "abc", "b", std::string(300, 'b').c_str(), Wide(std::u16string(300, u'c')),
        Wide(u"d")};
    const int n = 9;
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            EXPECT_EQ(InEveryForm({ascending[i]}, {ascending[j]}, kExact), (Result{(i > j) - (i < j), 0})) << i << j;
            EXPECT_EQ(InEveryForm({"x", ascending[i]}, {"x", ascending[j]}, 0x10), (Result{(i > j) - (i < j), 0}));
        }
    }
}

TEST(StringCompareSlot, EmptyWithAndWithoutBufferAreEqual) {
    EXPECT_EQ(InEveryForm({KyString()}, {KyString("")}, kExact), (Result{0, 0}));
}

TEST(StringCompareSlot, PatternsMatch) {
    EXPECT_EQ(InEveryForm({"abc"}, {"a*"}, 0).sign, 0);
    EXPECT_EQ(InEveryForm({"abc"}, {"a*"}, 0x10).sign, 1);
    EXPECT_EQ(InEveryForm({"abc"}, {"A?C"}, 0x20).sign, 0);
    EXPECT_EQ(InEveryForm({"abc"}, {"A?C"}, 0x30).sign == 0, false);
    EXPECT_EQ(InEveryForm({Null()}, {"*"}, 0), (Result{-1, 0})) << "an absent text is first, whatever the operator";
    EXPECT_EQ(InEveryForm({""}, {"*"}, 0), (Result{-1, 0}));
}

TEST(StringCompareSlot, FirstDifferenceDecides) {
    EXPECT_EQ(InEveryForm({"a", "b", "c"}, {"a", "b", "d"}, kExact), (Result{-1, 0}));
    EXPECT_EQ(InEveryForm({"a", "c", "a"}, {"a", "b", "d"}, kExact), (Result{1, 0}));
    EXPECT_EQ(InEveryForm({"a", "b"}, {"a", "b"}, kExact), (Result{0, 0}));
}

TEST(StringCompareSlot, CountOfNone) {
    EXPECT_EQ(Compared(KyStringTab, 8, 0, nullptr, 0, nullptr, kExact, 0), (Result{0, 0}));
}

TEST(StringCompareSlot, MissingOperandIsFirst) {
    KyString s("a");
    EXPECT_EQ(Compared(KyStringTab, 8, 0, nullptr, 0, &s, kExact, 1), (Result{-1, 0}));
    EXPECT_EQ(Compared(KyStringTab, 8, 0, &s, 0, nullptr, kExact, 1), (Result{1, 0}));
    EXPECT_EQ(Compared(KyStringTab, 8, 0, nullptr, 0, nullptr, kExact, 1), (Result{0, 0}));
}

TEST(StringCompareSlot, BuffersThatEndEarly) {
    const std::vector<KyString> strings = {"ab", "cd", "ef"};
    KyString inMemory[] = {"ab", "cd", "ef"};
    EXPECT_EQ(Compared(KyStringTab, 8, 32, inMemory, 0, inMemory, kExact, 3), (Result{0, 2101}));
    EXPECT_EQ(Compared(KyStringTab, 8, 33, inMemory, 0, inMemory, kExact, 3), (Result{0, 0}));
    for (const unsigned char flag : std::initializer_list<unsigned char>{1, 2}) {
        StoredArray stored(KyStringTab, strings, flag);
        for (unsigned length = 1; length <= stored.Size(); ++length) {
            GuardedBuffer part(std::span(static_cast<unsigned char*>(stored.Data()), length));
            const Result whole = Compared(KyStringTab, flag, length, part.data(), 0, stored.Data(), kExact, 3);
            EXPECT_EQ(whole.err, length == stored.Size() ? 0 : 2101) << length;
            EXPECT_LE(whole.sign, 0) << length;
            const Result mirrored = Compared(KyStringTab, flag, 0, stored.Data(), length, part.data(), kExact, 3);
            EXPECT_EQ(mirrored, (Result{-whole.sign, whole.err})) << length;
        }
        EXPECT_EQ(Compared(KyStringTab, flag, 8, stored.Data(), 0, stored.Data(), kExact, 1), (Result{0, 0}));
        EXPECT_EQ(Compared(KyStringTab, flag, 8, stored.Data(), 0, stored.Data(), kExact, 2), (Result{0, 2101}));
    }
}

TEST(StringCompareSlot, AnElementCanDecideAndTheBufferEndAtOnce) {
    KyString a[] = {"a", "x"};
    KyString b[] = {"b", "x"};
    EXPECT_EQ(Compared(KyStringTab, 8, 16, a, 0, b, kExact, 2), (Result{-1, 2101}));
}

TEST(StringCompareSlot, OldLayout) {
    for (const KyTypeTab* row : {&KyStringTab, &KyOldStringTab}) {
        for (const unsigned char flag : std::initializer_list<unsigned char>{1, 2}) {
            StoredArray a(KyOldStringTab, {"a", "", "c"}, flag);
            StoredArray b(KyOldStringTab, {"a", "", "d"}, flag);
            EXPECT_EQ(Compared(*row, flag, 0, a.Data(), 0, b.Data(), kExact, 3), (Result{-1, 0}));
            EXPECT_EQ(Compared(*row, flag, a.Size(), a.Data(), b.Size(), b.Data(), kExact, 3), (Result{-1, 0}));
            EXPECT_EQ(Compared(*row, flag, 0, a.Data(), 0, b.Data(), kExact, 2), (Result{0, 0}));
            EXPECT_EQ(Compared(*row, flag, 0, a.Data(), 0, b.Data(), kExact, 1), (Result{0, 0}));
            EXPECT_EQ(Compared(*row, flag, 0, a.Data(), 0, a.Data(), kExact, 4), (Result{0, 2101}));
            StoredArray current(KyStringTab, {"a", "", "c"}, flag);
            if (row == &KyStringTab) {
                EXPECT_EQ(Compared(*row, flag, 0, a.Data(), 0, current.Data(), kExact, 3), (Result{0, 0})) << "mixed";
            } else {
                EXPECT_NE(Compared(*row, flag, 0, a.Data(), 0, current.Data(), kExact, 3).sign, 0)
                    << "the old row knows no other layout";
                EXPECT_EQ(Compared(*row, flag | 0x80, 0, current.Data(), 0, current.Data(), kExact, 3), (Result{0, 0}));
            }
        }
    }
}

TEST(StringCompareSlot, TheFirstRecordTellsTheLayoutOfAll) {
    // The second record's last byte is damaged.
    const auto records = Bytes("05 00 01 00 61 00 FF 05 00 01 00 62 00 00");
    GuardedBuffer a(records);
    StoredArray b(KyStringTab, {KyString("a"), KyString("b")}, 1);
    EXPECT_EQ(Compared(KyStringTab, 1, 14, a.data(), b.Size(), b.Data(), kExact, 2), (Result{0, 0}));
    EXPECT_EQ(Compared(KyStringTab, 1, 0, a.data(), 0, b.Data(), kExact, 2), (Result{0, 0}));
}

TEST(StringCompareSlot, OldLayoutThatEndsEarly) {
    StoredArray a(KyOldStringTab, {"ab", "cd"}, 1);
    for (unsigned length = 1; length < a.Size(); ++length) {
        GuardedBuffer part(std::span(static_cast<unsigned char*>(a.Data()), length));
        EXPECT_EQ(Compared(KyOldStringTab, 1, length, part.data(), 0, a.Data(), kExact, 2).err, 2101) << length;
    }
}

// --- hashing ---

unsigned HashOf(const KyTypeTab& row, unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    err = 77;
    return row.Hash(flag, len, data, count, err);
}

/// The hash in memory form, after the persistent forms were seen to agree.
unsigned HashInEveryForm(std::vector<KyString> strings) {
    const auto count = static_cast<unsigned>(strings.size());
    int err;
    const unsigned inMemory = HashOf(KyStringTab, 8, 0, strings.data(), count, err);
    EXPECT_EQ(err, 0);
    for (const unsigned char flag : std::initializer_list<unsigned char>{0x01, 0x02, 0x81, 0x82}) {
        StoredArray stored(KyStringTab, strings, flag);
        EXPECT_EQ(HashOf(KyStringTab, flag, stored.Size(), stored.Data(), count, err), inMemory) << int{flag};
        EXPECT_EQ(err, 0);
        EXPECT_EQ(HashOf(KyStringTab, flag, 0, stored.Data(), count, err), inMemory) << int{flag};
        EXPECT_EQ(err, 0);
    }
    return inMemory;
}

TEST(HashString, OfOneText) {
    EXPECT_EQ(HashString(0, 254, "a", -1, 1), kNullHash);
    EXPECT_EQ(HashString(254, 0, "a", -1, 1), kNullHash);
    EXPECT_EQ(HashString(1, 0, "abc", 0, 1), 0U);
    EXPECT_EQ(HashString(1, 0, "", -1, 1), 0U);
    EXPECT_EQ(HashString(0, 0, "ab\xFF", -1, 1), (9U * 'a' + 'b') * 9 + 0xFF);
    EXPECT_EQ(HashString(0, 0, "abc", 2, 1), 9U * 'a' + 'b');
    EXPECT_EQ(HashString(1, 0, "abc", 2, 1), HashString(1, 0, "ab", -1, 1));
    // A is the Latin letter 3, upper case: class 32, order 0x400C; a is the same in case 2.
    EXPECT_EQ(HashString(1, 0, "A", -1, 1), 0x20400C00U);
    EXPECT_EQ(HashString(1, 0, "aA", -1, 1), 9 * 0x20400C40U + 0x20400C00U);
    EXPECT_EQ(HashString(253, 0, "\0A", 1, 2), 0x20400C00U) << "swapped units";
}

TEST(StringHashSlot, IsTheSameInEveryForm) {
    EXPECT_EQ(HashInEveryForm({KyString("A")}), 0x20400C00U * kHashFactor);
    EXPECT_EQ(HashInEveryForm({Wide(u"A")}), 0x20400C00U * kHashFactor) << "equal texts hash alike";
    EXPECT_EQ(HashInEveryForm({Null()}), kNullHash * kHashFactor);
    EXPECT_EQ(HashInEveryForm({KyString()}), 0U);
    EXPECT_EQ(HashInEveryForm({KyString("A"), Null(), ""}), (0x20400C00U ^ kNullHash) * kHashFactor);
    HashInEveryForm({std::string(253, 'q').c_str(), std::string(254, 'q').c_str(), std::string(1000, 'q').c_str()});
    HashInEveryForm({Wide(std::u16string(127, u'Ā')), Wide(std::u16string(128, u'Ā'))});
}

TEST(StringHashSlot, EqualElementsCancelOut) {
    EXPECT_EQ(HashInEveryForm({KyString("A"), KyString("A")}), 0U);
    EXPECT_EQ(HashInEveryForm({Null(), Null()}), 0U);
    EXPECT_EQ(HashInEveryForm({KyString("A"), KyString("b"), KyString("A")}), HashInEveryForm({KyString("b")}));
}

TEST(StringHashSlot, OfNone) {
    int err;
    EXPECT_EQ(HashOf(KyStringTab, 8, 0, nullptr, 0, err), 0U);
    EXPECT_EQ(err, 0);
}

TEST(StringHashSlot, BuffersThatEndEarly) {
    int err;
    KyString inMemory[] = {"A", "b"};
    EXPECT_EQ(HashOf(KyStringTab, 8, 16, inMemory, 2, err), 0x20400C00U * kHashFactor);
    EXPECT_EQ(err, 2101);
    for (const unsigned char flag : std::initializer_list<unsigned char>{1, 2}) {
        StoredArray stored(KyStringTab, {"Abc", "b"}, flag);
        GuardedBuffer part(std::span(static_cast<unsigned char*>(stored.Data()), 5));
        EXPECT_EQ(HashOf(KyStringTab, flag, 5, part.data(), 1, err), 0x20400C00U * kHashFactor)
            << "the part that is there";
        EXPECT_EQ(err, 0);
        EXPECT_EQ(HashOf(KyStringTab, flag, 5, part.data(), 2, err), 0x20400C00U * kHashFactor);
        EXPECT_EQ(err, 2101);

        StoredArray wide(KyStringTab, {Wide(u"AB")}, flag);
        GuardedBuffer half(std::span(static_cast<unsigned char*>(wide.Data()), 7));
        EXPECT_EQ(HashOf(KyStringTab, flag, 7, half.data(), 1, err), 0x20400C00U * kHashFactor) << "whole units only";
    }
}

TEST(StringHashSlot, LongPartsAreNotHashed) {
    StoredArray stored(KyStringTab, {std::string(300, 'A').c_str()}, 1);
    for (const unsigned present : {253U, 254U, 299U}) {
        GuardedBuffer part(std::span(static_cast<unsigned char*>(stored.Data()), 4 + present));
        int err;
        const unsigned hash = HashOf(KyStringTab, 1, 4 + present, part.data(), 1, err);
        EXPECT_EQ(err, present < 254 ? 0 : -2999) << present;
        EXPECT_EQ(hash == 0, present >= 254) << present;
    }
}

TEST(StringHashSlot, OldLayoutHashesBytes) {
    for (const KyTypeTab* row : {&KyStringTab, &KyOldStringTab}) {
        for (const unsigned char flag : std::initializer_list<unsigned char>{1, 2}) {
            StoredArray stored(KyOldStringTab, {"A", "", "b"}, flag);
            int err;
            EXPECT_EQ(HashOf(*row, flag, stored.Size(), stored.Data(), 3, err), (unsigned{'A'} ^ 'b') * kHashFactor);
            EXPECT_EQ(err, 0);
        }
    }
}

}  // namespace
