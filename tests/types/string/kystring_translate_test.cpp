#include "kystring_translate.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kystring.h"
#include "kystring_rows.h"
#include "kystring_slots.h"
#include "string_texts.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

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

}  // namespace
