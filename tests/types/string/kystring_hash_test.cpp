#include <gtest/gtest.h>

#include "generated_strings.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "string_texts.h"
#include "support/guarded_buffer.h"

namespace {

unsigned HashSlot(unsigned char flag, unsigned len, void* data) {
    int err = 77;
    const unsigned hash = KyStringTab.Hash(flag, len, data, 1, err);
    EXPECT_EQ(err, 0);
    return hash;
}

TEST(HashKyString, BytesCountWithTheirSign) {
    EXPECT_EQ(HashKyString(KyString("ab")), 9U * 'a' + 'b');
    EXPECT_EQ(HashKyString(Narrow("a\xFF")), 9U * 'a' - 1);
    EXPECT_EQ(HashKyString7(Narrow("a\xFF")), 9U * 'a' + 0x7F);
    EXPECT_EQ(HashKyString(KyString()), 0U);
    EXPECT_EQ(HashKyString7(KyString()), 0U);
    EXPECT_EQ(HashKyString(KyString("a\0b", 3)), unsigned{'a'}) << "up to the terminator";
}

TEST(HashKyString, UnicodeByUnits) {
    EXPECT_EQ(HashKyString(Wide(u"a\u8001")), 9U * 'a' + 0x8001);
    EXPECT_EQ(HashKyString7(Wide(u"a\u8001")), 9U * 'a' + 1);
}

TEST(HashKyString, Kept_Other16BitCodeSetsByBytes) {
    const KyString orders = StringGenerator::FromCodes(KyCodeSetOrders, 1, {0x6141, 0x00FF, 0x4141});
    EXPECT_EQ(HashKyString(orders), 9 * (9U * 0x41 + 0x61) - 1);
    EXPECT_EQ(HashKyString7(orders), 9 * (9U * 0x41 + 0x61) + 0x7F);
}

/// The string in every form has one hash.
unsigned HashInEveryForm(KyString s) {
    const unsigned hash = HashSlot(8, 0, &s);
    for (const unsigned char form : std::initializer_list<unsigned char>{1, 2}) {
        GuardedBuffer record(KyStringTab.SizeGet(&s, 8, form, 1));
        KyStringTab.Store(record.data(), &s, form, 1);
        EXPECT_EQ(HashSlot(form, 0, record.data()), hash);
        EXPECT_EQ(HashSlot(form | 0x80, static_cast<unsigned>(record.size()), record.data()), hash);
    }
    return hash;
}

TEST(StringHashSlot, EqualStringsHashAlikeInEveryFormAndCodeSet) {
    StringGenerator generate(77);
    const std::vector<unsigned char> codeSets = AllCodeSets();
    const std::vector<unsigned char> languages = AllLanguages();
    int equalAcross = 0;
    for (int round = 0; round < 3000; ++round) {
        const unsigned char language = languages[generate.Below(static_cast<unsigned>(languages.size()))];
        const unsigned char codeSet = codeSets[generate.Below(static_cast<unsigned>(codeSets.size()))];
        if (codeSet == KyCodeSetOrders) continue;
        const KyString a = generate.Next(codeSet, language, round % 10 == 0 ? 300 : 8);
        KyString b(a);
        b.MapToCodeSet(codeSets[generate.Below(static_cast<unsigned>(codeSets.size()))]);
        if (b.CodeSetGet() == KyCodeSetOrders) continue;
        const unsigned hashA = HashInEveryForm(a);
        const unsigned hashB = HashInEveryForm(b);
        if (a.IsEmpty() || a.Compare(b, -1, 0x100) != 0) continue;
        equalAcross += a.CodeSetGet() != b.CodeSetGet() ? 1 : 0;
        EXPECT_EQ(hashA, hashB) << int{codeSet} << " " << int{b.CodeSetGet()} << " " << int{language};
    }
    EXPECT_GT(equalAcross, 300);
}

TEST(StringHashSlot, NothingBehindTheEndIsRead) {
    StringGenerator generate(78);
    for (const unsigned char codeSet : AllCodeSets()) {
        const KyString s = generate.Next(codeSet, 1, 12);
        for (const unsigned char form : std::initializer_list<unsigned char>{1, 2}) {
            std::vector<unsigned char> record(KyStringTab.SizeGet(&s, 8, form, 1));
            KyStringTab.Store(record.data(), &s, form, 1);
            for (unsigned length = 1; length < record.size(); ++length) {
                GuardedBuffer part(std::span(record.data(), length));
                int err = 77;
                KyStringTab.Hash(form, length, part.data(), 1, err);
                EXPECT_EQ(err, length < 4 ? 2101 : 0) << length;
                err = 77;
                KyOldStringTab.Hash(form, length, part.data(), 2, err);
                EXPECT_TRUE(err == 2101 || err == 0) << length;
            }
        }
    }
}

}  // namespace
