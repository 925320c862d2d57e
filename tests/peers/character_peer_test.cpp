// Case and kinds of the characters of the 16-bit plane beside the peer's.

#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/ustring.h>

#include <string>

#include "kychar.h"

namespace {

constexpr unsigned kCodes = 0x10000;

KyChar Character(unsigned code) { return {static_cast<unsigned short>(code), KyCodeSetUnicode, KyLanguageNeutral}; }

bool IsAssigned(unsigned code) {
    const int category = u_charType(static_cast<UChar32>(code));
    return category != U_UNASSIGNED && category != U_SURROGATE && category != U_PRIVATE_USE_CHAR;
}

const KyCharProps* Record(unsigned code) {
    return KyLanguageContext::QueryCodeSet(KyCodeSetUnicode)->GetProperty(static_cast<unsigned short>(code));
}

/// The upper-case form in full, by way of an iterator.
std::u16string FullUpper(unsigned code) {
    char16_t text[2] = {static_cast<char16_t>(code), 0};
    KyStringIterator it(reinterpret_cast<const char*>(text), KyCodeSetUnicode, KyLanguageNeutral, 1);
    KyCharToUpper upper;
    char16_t out[8] = {};
    KyStringIterator to(reinterpret_cast<const char*>(out), KyCodeSetUnicode, KyLanguageNeutral, 1);
    it.Transform(to, upper);
    return out;
}

std::u16string PeerFullUpper(unsigned code) {
    const char16_t text[1] = {static_cast<char16_t>(code)};
    char16_t out[8] = {};
    UErrorCode status = U_ZERO_ERROR;
    const int length = u_strToUpper(out, 8, text, 1, "", &status);
    EXPECT_TRUE(U_SUCCESS(status));
    return {out, static_cast<std::size_t>(length)};
}

TEST(CharacterPeer, EveryAssignedCharacterHasARecord) {
    for (unsigned code = 1; code < kCodes; ++code) {
        if (IsAssigned(code)) {
            EXPECT_NE(Record(code), nullptr) << std::hex << code;
        }
    }
}

TEST(CharacterPeer, UpperCase) {
    unsigned mapped = 0;
    for (unsigned code = 1; code < kCodes; ++code) {
        const KyCharProps* record = Record(code);
        if (record != nullptr && record->rules != nullptr && record->rules->upperExpansion.count != 0) {
            EXPECT_EQ(FullUpper(code), PeerFullUpper(code)) << std::hex << code;
            continue;
        }
        const UChar32 expected = u_toupper(static_cast<UChar32>(code));
        if (expected >= static_cast<UChar32>(kCodes)) continue;
        EXPECT_EQ(Character(code).ToUpper(nullptr).CodeGet(), static_cast<unsigned>(expected)) << std::hex << code;
        if (expected != static_cast<UChar32>(code)) ++mapped;
    }
    EXPECT_GT(mapped, 1100u);
}

TEST(CharacterPeer, LowerCase) {
    unsigned mapped = 0;
    for (unsigned code = 1; code < kCodes; ++code) {
        const UChar32 expected = u_tolower(static_cast<UChar32>(code));
        if (expected >= static_cast<UChar32>(kCodes)) continue;
        EXPECT_EQ(Character(code).ToLower(nullptr).CodeGet(), static_cast<unsigned>(expected)) << std::hex << code;
        if (expected != static_cast<UChar32>(code)) ++mapped;
    }
    EXPECT_GT(mapped, 1100u);
}

TEST(CharacterPeer, SharpSBecomesTwoLetters) {
    EXPECT_EQ(FullUpper(0xDF), u"SS");
    EXPECT_EQ(PeerFullUpper(0xDF), u"SS");
}

TEST(CharacterPeer, Spaces) {
    for (unsigned code = 1; code < kCodes; ++code) {
        EXPECT_EQ(Character(code).IsSpace(), u_isUWhiteSpace(static_cast<UChar32>(code)) != 0) << std::hex << code;
    }
}

TEST(CharacterPeer, Digits) {
    for (unsigned code = 1; code < kCodes; ++code) {
        EXPECT_EQ(Character(code).IsDigit(), u_isdigit(static_cast<UChar32>(code)) != 0) << std::hex << code;
    }
}

TEST(CharacterPeer, Letters) {
    for (unsigned code = 1; code < kCodes; ++code) {
        const KyChar c = Character(code);
        if (Record(code) == nullptr) {
            EXPECT_FALSE(IsAssigned(code)) << std::hex << code;
            continue;
        }
        EXPECT_EQ(c.IsAlpha() || c.IsHan(), u_isalpha(static_cast<UChar32>(code)) != 0) << std::hex << code;
        if (!c.IsHan()) continue;
        UErrorCode status = U_ZERO_ERROR;
        EXPECT_EQ(uscript_getScript(static_cast<UChar32>(code), &status), USCRIPT_HAN) << std::hex << code;
    }
}

TEST(CharacterPeer, ValuesOfDigits) {
    for (unsigned code = 1; code < kCodes; ++code) {
        const KyChar c = Character(code);
        if (!c.IsDigit()) continue;
        EXPECT_EQ((c.GetOrder() - 16128) / 10, u_charDigitValue(static_cast<UChar32>(code))) << std::hex << code;
    }
}

}  // namespace
