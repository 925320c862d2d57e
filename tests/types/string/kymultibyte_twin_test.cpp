// The multibyte conversions against their slow twin, over millions of texts, whole and broken.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "broken_texts.h"
#include "kyi18n.h"
#include "kymultibyte.h"
#include "kystring.h"
#include "multibyte_texts.h"
#include "oracle/slow_multibyte.h"
#include "oracle/slow_utf8.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"

namespace {

std::u16string Units(const KyString& s) {
    std::u16string units(s.Len(), u'\0');
    if (!units.empty()) std::memcpy(units.data(), s.StrGet(), 2 * units.size());
    return units;
}

TEST(MultibyteTwin, ReadsAsDescribed) {
    TextGenerator generator(31);
    GuardedBuffer memory(8000);
    std::vector<unsigned short> out(2000);
    for (int i = 0; i < 1000000 / kFewerCases; ++i) {
        const std::string text = generator.Broken(generator.Below(i % 50 == 0 ? 1200 : 40));
        char* in = reinterpret_cast<char*>(memory.data()) + memory.size() - text.size();
        std::copy(text.begin(), text.end(), in);
        const int length = static_cast<int>(text.size());

        const SlowUnits asString = SlowReadString(text);
        KyString s;
        ASSERT_EQ(KyMBS2KyString(in, s, length), asString.result) << HexOf(text);
        ASSERT_EQ(Units(s), asString.units) << HexOf(text);
        ASSERT_EQ(s.BufferSizeGet(), asString.units.empty() ? 0 : 2 * asString.units.size() + 2);

        const SlowUnits asUnits = SlowReadUnits(text);
        const auto outMax = static_cast<int>(generator.Below(3) == 0 ? generator.Below(300) : 2000);
        out.assign(out.size(), 0xEEEE);
        ASSERT_EQ(KyMultiByteStr2WCharStr(out.data(), outMax, in, length), asUnits.result) << HexOf(text);
        const std::size_t stored = std::min(asUnits.units.size(), static_cast<std::size_t>(outMax));
        ASSERT_TRUE(
            std::equal(asUnits.units.begin(), asUnits.units.begin() + static_cast<std::ptrdiff_t>(stored), out.begin()))
            << HexOf(text);
        ASSERT_TRUE(std::all_of(out.begin() + static_cast<std::ptrdiff_t>(stored), out.end(),
                                [](unsigned short c) { return c == 0xEEEE; }));
    }
}

TEST(MultibyteTwin, ReadsLongTextsAsDescribed) {
    TextGenerator generator(32);
    for (int i = 0; i < 300; ++i) {
        std::string text;
        const std::size_t wanted = 32700 + generator.Below(100);
        while (text.size() < wanted) text += generator.Whole(1 + generator.Below(300));
        while (text.size() > wanted || (!text.empty() && (text.back() & 0x80) != 0)) text.pop_back();
        text += generator.Broken(generator.Below(40));
        GuardedText in(text);
        const SlowUnits slow = SlowReadString(text);
        KyString s;
        ASSERT_EQ(KyMBS2KyString(in.Get(), s, static_cast<int>(text.size())), slow.result) << i;
        ASSERT_EQ(Units(s), slow.units.substr(0, 32765)) << i;
    }
}

/// The text of a code set in Unicode, character by character.
std::u16string InUnicode(const std::string& text, unsigned char codeSet) {
    const KyCodeSet* set = KyLanguageContext::QueryCodeSet(codeSet);
    const KyCodeSet* unicode = KyLanguageContext::QueryCodeSet(KyCodeSetUnicode);
    std::u16string units;
    for (const char c : text) {
        units += static_cast<char16_t>(unicode->MapFrom(*set, static_cast<unsigned char>(c)));
    }
    return units;
}

/// What `KyString2KyMBS` gives for a text that is not ASCII in the code sets below 27.
Encoded SlowWriteMapped(const std::u16string& units, int size) {
    std::string bytes;
    for (const char16_t unit : units) {
        const std::string& form = SlowUtf8OfUnit(unit);
        if (bytes.size() + form.size() > static_cast<std::size_t>(size))
            return {-static_cast<int>(bytes.size()), bytes};
        bytes += form;
    }
    return {static_cast<int>(bytes.size()), bytes};
}

TEST(MultibyteTwin, WritesAsDescribed) {
    TextGenerator generator(33);
    const unsigned char codeSets[] = {KyCodeSetNative, KyCodeSetLatin1, KyCodeSetWindows1252, KyCodeSetAscii};
    for (int i = 0; i < 100000 / kFewerCases; ++i) {
        KyString s;
        std::u16string units;
        bool isAscii = false;
        if (generator.Below(2) == 0) {
            units = SlowReadUnits(generator.Whole(generator.Below(i % 20 == 0 ? 1200 : 40))).units;
            s = Wide(units);
        } else {
            const unsigned char codeSet = codeSets[generator.Below(4)];
            std::string text;
            for (std::size_t n = generator.Below(i % 20 == 0 ? 1200 : 40); n != 0; --n) {
                text += static_cast<char>(generator.Below(40) == 0 ? 0x80 + generator.Below(128) : ' ' + n % 90);
            }
            units = InUnicode(text, codeSet);
            isAscii = std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
            s = WithCodeSet(text, codeSet);
        }
        const std::string utf8 = SlowUtf8(units);
        const int whole = static_cast<int>(utf8.size());
        const int size = generator.Below(2) == 0 ? whole + static_cast<int>(generator.Below(80))
                                                 : static_cast<int>(generator.Below(static_cast<unsigned>(whole) + 2));
        const Encoded got = Encode(s, size);
        if (isAscii) {
            ASSERT_EQ(got.result, whole < size ? whole : -whole);
            std::string wanted = utf8.substr(0, static_cast<std::size_t>(size));
            wanted.resize(static_cast<std::size_t>(size));
            ASSERT_EQ(got.bytes, wanted);
        } else {
            const Encoded wanted = SlowWriteMapped(units, size);
            ASSERT_EQ(got.result, wanted.result) << HexOf(wanted.bytes);
            std::string bytes = wanted.bytes;
            if (wanted.result == whole && whole < size) bytes += '\0';
            bytes.resize(static_cast<std::size_t>(size), '\xEE');
            ASSERT_EQ(got.bytes, bytes) << "nothing else is touched";
        }
        const auto maxChars = static_cast<unsigned short>(generator.Below(50));
        if (!isAscii) {
            ASSERT_EQ(KyMBSLength(s, maxChars), static_cast<int>(SlowUtf8(units.substr(0, maxChars)).size()));
        }
        const Made made = Make(s);
        ASSERT_EQ(made.result, whole);
        ASSERT_EQ(std::string(made.text.get()), utf8);
    }
}

}  // namespace
