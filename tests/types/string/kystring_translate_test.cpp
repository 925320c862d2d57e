#include "kystring_translate.h"

#include <gtest/gtest.h>

#include "generated_strings.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "string_texts.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

constexpr unsigned short kExact = 0x100;

KyString Labelled(const KyString& s, unsigned char codeSet, unsigned char language) {
    KyString labelled(s);
    labelled.SetCodeSetCode(codeSet);
    labelled.LanguageSet(language);
    return labelled;
}

KyString Null() {
    KyString s;
    s.SetNullValue();
    return s;
}

std::vector<unsigned char> Stored(const KyTypeTab& row, const std::vector<KyString>& strings, unsigned char form) {
    const auto count = static_cast<unsigned>(strings.size());
    std::vector<unsigned char> bytes(row.SizeGet(strings.data(), KyFormMemory, form, count));
    row.Store(bytes.data(), strings.data(), form, count);
    return bytes;
}

/// What Translate makes of the source in a destination of `room` bytes against an inaccessible page; the bytes that it
/// returns are checked to be those in front of the zeros.
std::string Translated(const KyTypeTab& row, unsigned char dstFlag, unsigned dstLen, std::size_t room, void* src,
                       unsigned char srcFlag, unsigned srcLen, unsigned count) {
    GuardedBuffer dst(room);
    std::memset(dst.data(), 0xA5, room);
    const unsigned written = row.Translate(dst.data(), dstFlag, dstLen, src, srcFlag, srcLen, count);
    EXPECT_LE(written, room);
    for (std::size_t i = written; i < dstLen; ++i) EXPECT_EQ(dst.data()[i], 0) << i;
    return Hex(dst.data(), written);
}

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

const std::vector<KyString>& Samples() {
    static const std::vector<KyString> samples = {Labelled("abc", 1, 3), Null(), KyString(1, 0),
                                                  Labelled(Wide(u"a\u0100"), 253, 4),
                                                  Labelled(KyString("a\0b", 3), 2, 0)};
    return samples;
}

TEST(StringTranslate, BetweenAllForms) {
    std::vector<KyString> samples = Samples();
    const auto count = static_cast<unsigned>(samples.size());
    const auto native = Stored(KyStringTab, samples, 1);
    const auto reversed = Stored(KyStringTab, samples, 2);
    const std::string nativeHex = Hex(native.data(), native.size());
    const std::string reversedHex = Hex(reversed.data(), reversed.size());
    const auto size = static_cast<unsigned>(native.size());
    GuardedBuffer from1(native);
    GuardedBuffer from2(reversed);
    for (const unsigned len : {0U, size, size + 9}) {
        const std::size_t room = len != 0 ? len : size;
        EXPECT_EQ(Translated(KyStringTab, 1, len, room, samples.data(), 8, 0, count), nativeHex);
        EXPECT_EQ(Translated(KyStringTab, 2, len, room, samples.data(), 8, 0, count), reversedHex);
        EXPECT_EQ(Translated(KyStringTab, 1, len, room, from1.data(), 1, size, count), nativeHex);
        EXPECT_EQ(Translated(KyStringTab, 2, len, room, from1.data(), 1, 0, count), reversedHex);
        EXPECT_EQ(Translated(KyStringTab, 1, len, room, from2.data(), 0x82, size, count), nativeHex);
        EXPECT_EQ(Translated(KyStringTab, 0x82, len, room, from2.data(), 2, 0, count), reversedHex);
    }
    for (const unsigned char flag : std::initializer_list<unsigned char>{8, 1, 2, 0x81}) {
        std::vector<KyString> loaded(count, KyString("old"));
        void* src = flag == 8 ? static_cast<void*>(samples.data()) : (flag & 15) == 2 ? from2.data() : from1.data();
        const unsigned consumed = KyStringTab.Translate(loaded.data(), 8, 0, src, flag, flag == 8 ? 0 : size, count);
        EXPECT_EQ(consumed, flag == 8 ? 16 * count : size);
        for (unsigned i = 0; i < count; ++i) {
            // An assignment copies up to the terminator, a record has it all.
            EXPECT_EQ(Text(loaded[i]), Text(samples[i]));
            EXPECT_EQ(loaded[i].CodeSetGet(), samples[i].CodeSetGet());
            EXPECT_EQ(loaded[i].LanguageGet(), samples[i].LanguageGet());
        }
    }
    EXPECT_EQ(KyStringTab.Translate(nullptr, 1, 0, nullptr, 8, 0, 0), 0U);
    EXPECT_EQ(KyStringTab.Translate(nullptr, 8, 0, nullptr, 8, 0, 0), 0U);
}

TEST(StringTranslate, InPlace) {
    const auto native = Stored(KyStringTab, Samples(), 1);
    const auto reversed = Stored(KyStringTab, Samples(), 2);
    const auto size = static_cast<unsigned>(native.size());
    GuardedBuffer buffer(native);
    const auto count = static_cast<unsigned>(Samples().size());
    EXPECT_EQ(KyStringTab.Translate(buffer.data(), 2, size, buffer.data(), 1, size, count), size);
    EXPECT_EQ(Hex(buffer.data(), size), Hex(reversed.data(), size));
    EXPECT_EQ(KyStringTab.Translate(buffer.data(), 1, size, buffer.data(), 2, size, count), size);
    EXPECT_EQ(Hex(buffer.data(), size), Hex(native.data(), size));
}

TEST(StringTranslate, ShortDestinationsGetTheBeginning) {
    for (KyString s : {Labelled("abcdef", 1, 0), Labelled(Wide(u"a\u0100bc"), 253, 0)}) {
        for (const unsigned char form : std::initializer_list<unsigned char>{1, 2}) {
            auto record = Stored(KyStringTab, {s}, form);
            auto other = Stored(KyStringTab, {s}, form == 1 ? 2 : 1);
            for (unsigned len = 1; len < record.size(); ++len) {
                const std::string expected = Hex(record.data(), len);
                EXPECT_EQ(Translated(KyStringTab, form, len, len, &s, 8, 0, 1), expected);
                EXPECT_EQ(Translated(KyStringTab, form, len, len, record.data(), form, 0, 1), expected);
                EXPECT_EQ(Translated(KyStringTab, form, len, len, other.data(), form == 1 ? 2 : 1, 0, 1), expected);
            }
        }
    }
}

TEST(StringTranslate, CutSourcesStayCut) {
    const KyString wide = Labelled(Wide(u"a\u0100bc"), 253, 7);
    const auto record = Stored(KyStringTab, {wide}, 1);
    const auto reversed = Stored(KyStringTab, {wide}, 2);
    for (unsigned length = 1; length < record.size(); ++length) {
        GuardedBuffer part(std::span(record.data(), length));
        SCOPED_TRACE(length);
        const unsigned content = length > 4 ? std::min(length - 4, 8U) : 0;
        const std::string same = Translated(KyStringTab, 1, 0, 64, part.data(), 1, length, 1);
        EXPECT_EQ(same, length < 4 ? "" : Hex(record.data(), 4 + content));
        const std::string swapped = Translated(KyStringTab, 2, 0, 64, part.data(), 1, length, 1);
        EXPECT_EQ(swapped, length < 4 ? "" : Hex(reversed.data(), 4 + content / 2 * 2)) << "whole units";
        KyString loaded[2] = {"old", "old"};
        EXPECT_EQ(KyStringTab.Translate(loaded, 8, 0, part.data(), 1, length, 2), length);
        EXPECT_EQ(Text16(loaded[0]), std::u16string(u"a\u0100bc", content / 2));
        EXPECT_TRUE(loaded[1].IsEmpty());
    }
}

// --- the old layout ---

TEST(StringTranslate, OutOfTheOldLayout) {
    GuardedBuffer old(Bytes("04 00 61 62 00 00"));
    const auto codeSet = KyString::GetDefault8CodeSet();
    const auto language = KyString::GetDefaultLanguage();
    const auto expected = Stored(KyStringTab, {Labelled("ab", codeSet, language), KyString(codeSet, language)}, 2);
    for (const unsigned srcLen : {0U, 6U}) {
        EXPECT_EQ(Translated(KyStringTab, 2, 0, expected.size(), old.data(), 1, srcLen, 2),
                  Hex(expected.data(), expected.size()));
    }
    KyString loaded[2];
    EXPECT_EQ(KyStringTab.Translate(loaded, 8, 0, old.data(), 1, 6, 2), 6U);
    EXPECT_EQ(Text(loaded[0]), "ab");
    GuardedBuffer part(Bytes("04 00 61"));
    EXPECT_EQ(KyOldStringTab.Translate(loaded, 8, 0, part.data(), 1, 3, 2), 3U);
    EXPECT_EQ(Text(loaded[0]), "a");
    EXPECT_EQ(Text(loaded[1]), "");
}

TEST(StringOldTranslate, IntoTheOldLayout) {
    std::vector<KyString> strings = {Labelled("ab", 1, 0), Null(), Labelled(Wide(u"c\u00E4"), 253, 0)};
    const std::string expected1 = "07 00 61 62 00 00 63 E4 00";
    const std::string expected2 = "00 07 61 62 00 00 63 E4 00";
    EXPECT_EQ(Translated(KyOldStringTab, 1, 0, 9, strings.data(), 8, 0, 3), expected1);
    EXPECT_EQ(Translated(KyOldStringTab, 2, 12, 12, strings.data(), 8, 0, 3), expected2);
    for (const unsigned char form : std::initializer_list<unsigned char>{1, 2}) {
        auto records = Stored(KyStringTab, strings, form);
        GuardedBuffer guarded(records);
        const auto size = static_cast<unsigned>(records.size());
        EXPECT_EQ(Translated(KyOldStringTab, 1, 0, 9, guarded.data(), form, size, 3), expected1);
        auto old = Stored(KyOldStringTab, strings, form);
        GuardedBuffer guardedOld(old);
        EXPECT_EQ(Translated(KyOldStringTab, 2, 0, 9, guardedOld.data(), form, 0, 3), expected2);
        EXPECT_EQ(Translated(KyOldStringTab, 2, 4, 4, guardedOld.data(), form, 9, 3), expected2.substr(0, 11));
        GuardedBuffer part(std::span(old.data(), 6));
        EXPECT_EQ(Translated(KyOldStringTab, 1, 0, 9, part.data(), form, 6, 3), expected1.substr(0, 17))
            << "the length field stays";
    }
    EXPECT_EQ(Translated(KyOldStringTab, 1, 0, 2, nullptr, 8, 0, 0), "00 00");
}

TEST(StringOldTranslate, CutSourcesStayCut) {
    const auto native = Bytes("06 00 61 62 00 63 64 00");
    const auto reversed = Bytes("00 06 61 62 00 63 64 00");
    for (unsigned length = 1; length < native.size(); ++length) {
        SCOPED_TRACE(length);
        GuardedBuffer part(std::span(native.data(), length));
        KyString loaded[3] = {"old", "old", "old"};
        EXPECT_EQ(KyOldStringTab.Translate(loaded, 8, 0, part.data(), 1, length, 3), length);
        const unsigned present = length > 2 ? length - 2 : 0;
        EXPECT_EQ(Text(loaded[0]), std::string("ab").substr(0, present));
        EXPECT_EQ(Text(loaded[1]), std::string("cd").substr(0, present > 3 ? present - 3 : 0));
        EXPECT_EQ(Text(loaded[2]), "");
        const std::string swapped = Translated(KyOldStringTab, 2, 0, 64, part.data(), 1, length, 3);
        if (length >= 2) {
            EXPECT_EQ(swapped, Hex(reversed.data(), length)) << "the length field stays";
        }
    }
}

TEST(StringOldTranslate, ALengthFieldThatTellsOfMoreThanThereIs) {
    GuardedBuffer array(Bytes("00 E0 61 00 62 00"));
    KyString loaded[2];
    EXPECT_EQ(KyOldStringTab.Translate(loaded, 8, 0, array.data(), 1, 6, 2), 6U);
    EXPECT_EQ(Text(loaded[0]), "a");
    EXPECT_EQ(Text(loaded[1]), "b");
}

// --- index keys ---

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

TEST(StringKey, OrderTextsOrderAsTheStringsWhereNothingIsLost) {
    const UnicodeKeys orders(0);
    StringGenerator generate(31);
    const std::vector<unsigned char> languages = AllLanguages();
    int unmarked = 0;
    for (int round = 0; round < 2000; ++round) {
        const unsigned char language = languages[generate.Below(static_cast<unsigned>(languages.size()))];
        const KyString a = generate.Next(253, language, 5);
        const KyString b = generate.Below(4) == 0 ? a : generate.Next(253, language, 5);
        const unsigned char form = generate.Below(2) == 0 ? 1 : 2;
        auto keyA = KeyOf(a, form);
        auto keyB = KeyOf(b, form);
        const Result r = ComparedKeys(keyA, keyB, form);
        if (r.err != 0) continue;
        ++unmarked;
        ASSERT_EQ(r.sign, ExactOrder(a, b));
    }
    EXPECT_GT(unmarked, 300);
}

TEST(StringKey, OrderTextsCompareWithConstantsAsWithTheirKeys) {
    const UnicodeKeys orders(0);
    StringGenerator generate(37);
    const std::vector<unsigned char> languages = AllLanguages();
    int equalHashes = 0;
    for (int round = 0; round < 2000; ++round) {
        const unsigned char language = languages[generate.Below(static_cast<unsigned>(languages.size()))];
        const KyString a = generate.Next(253, language, 5);
        const KyString b = generate.Below(4) == 0 ? a : generate.Next(253, language, 5);
        if (a.IsEmpty() || b.IsEmpty()) continue;
        const unsigned char form = generate.Below(2) == 0 ? 1 : 2;
        auto keyA = KeyOf(a, form);
        auto keyB = KeyOf(b, form);
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
