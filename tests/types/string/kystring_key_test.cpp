/// Index keys: records, or texts of orders as older databases have them.

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "generated_strings.h"
#include "kybase.h"
#include "kystring.h"
#include "kystring_rows.h"
#include "kystring_slots.h"
#include "kystring_translate.h"
#include "string_texts.h"
#include "support/hex.h"

namespace {

constexpr unsigned short kExact = 0x100;

/// Chooses the kind of Unicode keys for as long as it lives.
class UnicodeKeys {
public:
    explicit UnicodeKeys(int areRecords) : previous(ky::unicodeKeysAreRecords.exchange(areRecords)) {}
    UnicodeKeys(const UnicodeKeys&) = delete;
    UnicodeKeys& operator=(const UnicodeKeys&) = delete;
    ~UnicodeKeys() { ky::unicodeKeysAreRecords = previous; }

private:
    int previous;
};

/// A string's index key.
std::vector<unsigned char> KeyOf(KyString s, unsigned char form) {
    std::vector<unsigned char> key(ky::kIndexKeyBytes);
    const unsigned written = KyStringTab.Translate(key.data(), form, ky::kIndexKeyBytes, &s, 8, 0, 1);
    EXPECT_LE(written, ky::kIndexKeyBytes);
    return key;
}

struct Result {
    int sign;
    int err;
};

Result ComparedKeys(std::vector<unsigned char>& a, std::vector<unsigned char>& b, unsigned char form,
                    unsigned short op = kExact) {
    Result r{0, 77};
    r.sign = KyStringTab.Compare(form, 253, a.data(), 253, b.data(), op, 1, r.err);
    return r;
}

int ExactOrder(const KyString& a, const KyString& b) {
    const int result = a.Compare(b, -1, kExact);
    return (result > 0) - (result < 0);
}

TEST(StringKey, OrdersAsTheStringsDo) {
    const UnicodeKeys records(1);
    const std::vector<unsigned char> codeSets = AllCodeSets();
    const std::vector<unsigned char> languages = AllLanguages();
    StringGenerator generate(23);
    for (const unsigned char codeSet : codeSets) {
        if (codeSet == KyCodeSetOrders) continue;
        for (const unsigned char language : languages) {
            std::vector<KyString> strings;
            const KyString common = generate.Next(codeSet, language, 120);
            for (int i = 0; i < 6; ++i) {
                KyString s = generate.Next(codeSet, language, i < 3 ? 6 : 150);
                // Some are longer than a key, and some differ behind its end.
                if (i >= 3) s = common + common + s;
                strings.push_back(s);
            }
            const unsigned char form = generate.Below(2) == 0 ? 1 : 2;
            for (const KyString& a : strings) {
                for (const KyString& b : strings) {
                    auto keyA = KeyOf(a, form);
                    auto keyB = KeyOf(b, form);
                    const Result r = ComparedKeys(keyA, keyB, form);
                    if (r.err == 0) {
                        ASSERT_EQ(r.sign, ExactOrder(a, b)) << int{codeSet} << " " << int{language};
                    } else {
                        ASSERT_EQ(r.err, 2101);
                        // Equal as far as the shorter key goes: at least 120 characters.
                        ASSERT_EQ(ExactOrder(a.Left(60), b.Left(60)), 0);
                        ASSERT_TRUE(a.BufferSizeGet() > 247 || b.BufferSizeGet() > 247);
                    }
                    ASSERT_EQ(ComparedKeys(keyB, keyA, form).sign, -r.sign);
                }
            }
        }
    }
}

TEST(StringKey, CutKeysAreInOneOrder) {
    const UnicodeKeys records(1);
    StringGenerator generate(5);
    for (const unsigned char language : std::initializer_list<unsigned char>{0, 10, 12}) {
        std::vector<std::vector<unsigned char>> keys;
        for (int i = 0; i < 24; ++i) {
            // Letters that may join stand right at the cut.
            std::vector<unsigned short> codes(246, 'x');
            while (codes.size() < 260 + generate.Below(10)) codes.push_back(u"cdhsz"[generate.Below(5)]);
            keys.push_back(KeyOf(StringGenerator::FromCodes(1, language, codes), 1));
        }
        for (auto& a : keys) {
            for (auto& b : keys) {
                for (auto& c : keys) {
                    if (ComparedKeys(a, b, 1).sign <= 0 && ComparedKeys(b, c, 1).sign <= 0) {
                        ASSERT_LE(ComparedKeys(a, c, 1).sign, 0) << int{language};
                    }
                }
            }
        }
    }
}

TEST(StringKey, OfRecordsIsThatOfStrings) {
    const UnicodeKeys records(1);
    StringGenerator generate(3);
    for (int round = 0; round < 200; ++round) {
        const unsigned char codeSet = round % 2 == 0 ? 1 : 253;
        const KyString s = generate.Next(codeSet, 0, 300);
        for (const unsigned char from : std::initializer_list<unsigned char>{1, 2}) {
            auto record = Stored(KyStringTab, {s}, from);
            for (const unsigned char to : std::initializer_list<unsigned char>{1, 2}) {
                std::vector<unsigned char> key(253, 0xA5);
                KyStringTab.Translate(key.data(), to, 253, record.data(), from, 0, 1);
                EXPECT_EQ(key, KeyOf(s, to));
            }
        }
    }
}

TEST(StringKey, OrderTextsOfOlderDatabases) {
    const UnicodeKeys orders(0);
    const KyString latin = Labelled(Wide(u"aB\u00DF"), 253, 0);
    EXPECT_EQ(Translated(KyStringTab, 1, 253, 253, const_cast<KyString*>(&latin), 8, 0, 1).substr(0, 11),
              "0C 00 FE 01");
    const KyString greek = Labelled(Wide(u"\u03B1"), 253, 0);
    EXPECT_EQ(Translated(KyStringTab, 2, 253, 253, const_cast<KyString*>(&greek), 8, 0, 1).substr(0, 11), "00 06 FE 81")
        << "a class is lost";
    const KyString longest = Labelled(Wide(std::u16string(123, u'a')), 253, 0);
    auto key = KeyOf(longest, 1);
    EXPECT_EQ(Hex(key.data(), 4), "FA 00 FE 01");
    EXPECT_EQ(Hex(key.data() + 250, 3), "00 FF 00");
    const KyString cut = Labelled(Wide(std::u16string(124, u'a')), 253, 0);
    auto cutKey = KeyOf(cut, 1);
    EXPECT_EQ(Hex(cutKey.data(), 4), "FA 00 FE 81");
    EXPECT_EQ(ComparedKeys(key, cutKey, 1).err, 2115);
    EXPECT_EQ(ComparedKeys(cutKey, key, 1).err, 2114);

    KyString narrow = Labelled("abc", 1, 0);
    EXPECT_EQ(Translated(KyStringTab, 1, 253, 253, &narrow, 8, 0, 1), "07 00 01 00 61 62 63 00 FF") << "no Unicode";
    KyString wide = Labelled(Wide(u"a"), 253, 0);
    EXPECT_EQ(Translated(KyStringTab, 1, 254, 254, &wide, 8, 0, 1), "06 00 FD 00 61 00 00 FF") << "no key";
    KyString null = Labelled(Wide(u""), 253, 254);
    EXPECT_EQ(Translated(KyStringTab, 1, 253, 253, &null, 8, 0, 1), "04 00 FD FE 00 FF");
    KyString two[] = {wide, wide};
    EXPECT_EQ(Translated(KyStringTab, 1, 253, 253, two, 8, 0, 2).substr(0, 11), "06 00 FD 00") << "an array";
}

/// Two texts of a language, the same every fourth time, and their keys in one form.
struct KeyedPair {
    KyString a, b;
    unsigned char form;
    std::vector<unsigned char> keyA, keyB;
};

class PairGenerator {
public:
    explicit PairGenerator(unsigned seed) : generate(seed) {}

    KeyedPair Next() {
        const unsigned char language = languages[generate.Below(static_cast<unsigned>(languages.size()))];
        const KyString a = generate.Next(253, language, 5);
        const KyString b = generate.Below(4) == 0 ? a : generate.Next(253, language, 5);
        const unsigned char form = generate.Below(2) == 0 ? 1 : 2;
        return {a, b, form, KeyOf(a, form), KeyOf(b, form)};
    }

private:
    StringGenerator generate;
    const std::vector<unsigned char> languages = AllLanguages();
};

TEST(StringKey, OrderTextsOrderAsTheStringsWhereNothingIsLost) {
    const UnicodeKeys orders(0);
    PairGenerator generate(31);
    int unmarked = 0;
    for (int round = 0; round < 2000; ++round) {
        auto [a, b, form, keyA, keyB] = generate.Next();
        const Result r = ComparedKeys(keyA, keyB, form);
        if (r.err != 0) continue;
        ++unmarked;
        ASSERT_EQ(r.sign, ExactOrder(a, b));
    }
    EXPECT_GT(unmarked, 300);
}

TEST(StringKey, OrderTextsCompareWithConstantsAsWithTheirKeys) {
    const UnicodeKeys orders(0);
    PairGenerator generate(37);
    int equalHashes = 0;
    for (int round = 0; round < 2000; ++round) {
        auto [a, b, form, keyA, keyB] = generate.Next();
        if (a.IsEmpty() || b.IsEmpty()) continue;
        auto constant = Stored(KyStringTab, {b}, form);
        const Result keys = ComparedKeys(keyA, keyB, form);
        int err = 77;
        ASSERT_EQ(KyStringTab.Compare(form, 253, keyA.data(), 0, constant.data(), kExact, 1, err), keys.sign);
        ASSERT_EQ(KyStringTab.Compare(form, 0, constant.data(), 253, keyA.data(), kExact, 1, err), -keys.sign);
        const unsigned hashOfKey = KyStringTab.Hash(form, 253, keyB.data(), 1, err);
        if (keyB[3] == KyCodeSetLatin1) {
            ASSERT_EQ(KyStringTab.Hash(form, 0, constant.data(), 1, err), hashOfKey) << "nothing is lost";
            ++equalHashes;
        }
        if (keys.sign == 0) {
            ASSERT_EQ(KyStringTab.Hash(form, 253, keyA.data(), 1, err), hashOfKey);
        }
    }
    EXPECT_GT(equalHashes, 300);
}

/// A configuration with "oldIndexUnicodeOrder".
class OrderSwitch : public KyConfig {
public:
    explicit OrderSwitch(int switchValue) : value(switchValue), previous(DefaultConfig(this)) {}
    OrderSwitch(const OrderSwitch&) = delete;
    OrderSwitch& operator=(const OrderSwitch&) = delete;
    ~OrderSwitch() override { DefaultConfig(previous); }

    int GetText(const char*, const char**, const char*) override { return 0; }
    int GetNumber(const char*, double*, const char*) override { return 0; }
    int HasSection(const char*) override { return 0; }
    int GetInteger(const char* key, int* out, const char* section) override {
        if (section != nullptr || std::strcmp(key, "oldIndexUnicodeOrder") != 0) return 0;
        ++asked;
        *out = value;
        return 1;
    }
    int Asked() const { return asked; }

private:
    int value;
    int asked = 0;
    KyConfig* previous;
};

TEST(StringKey, TheConfigurationIsAskedOnce) {
    const KyString wide = Labelled(Wide(u"a"), 253, 0);
    for (const int value : {0, 1, 7}) {
        const UnicodeKeys unknown(-1);
        OrderSwitch config(value);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(KeyOf(wide, 1)[2], value == 0 ? 253 : 254);
        EXPECT_EQ(config.Asked(), 1);
        EXPECT_EQ(ky::unicodeKeysAreRecords, value == 0 ? 1 : 0);
    }
    const UnicodeKeys unknown(-1);
    KyConfig* previous = DefaultConfig(nullptr);
    EXPECT_EQ(KeyOf(wide, 1)[2], 253) << "no configuration";
    DefaultConfig(previous);
}

}  // namespace
