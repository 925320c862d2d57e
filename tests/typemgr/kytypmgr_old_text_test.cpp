#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "kystring.h"
#include "kytypmgr.h"
#include "row_patch.h"

namespace {

/// The strings that the patched "enum" row converts to; a null pointer makes a record that ends there.
std::vector<KyString> sourceStrings;
bool sourceHasData = true;

KyTypeConvertData* ConvertToSourceStrings(void*, unsigned count) {
    if (!sourceHasData) return KyTypeConvertData::Make(KySTRING_T, count, nullptr, nullptr);
    KyString* strings = KyStringCreate(count);
    for (unsigned i = 0; i < count; ++i) strings[i] = sourceStrings[i];
    return KyTypeConvertData::Make(KySTRING_T, count, strings, nullptr);
}

/// The strings that the patched "enum" row was given.
std::vector<KyString> receivedStrings;
unsigned receivedCount = 0;
KyTypeMgr* receivedManager = nullptr;

void* ReceiveStrings(KyTypeConvertData* record, unsigned count) {
    receivedStrings.clear();
    receivedCount = count;
    receivedManager = record->manager;
    for (int i = 0; record->GetString(i) != nullptr; ++i) receivedStrings.push_back(*record->GetString(i));
    return &receivedCount;
}

class OldText : public testing::Test {
protected:
    OldText() : row(KyEnumTab) {
        row->ConvertToKyString = ConvertToSourceStrings;
        row->ConvertFromKyString = ReceiveStrings;
        sourceHasData = true;
    }

    std::string Join(std::vector<KyString> strings) {
        sourceStrings = std::move(strings);
        KyString* joined = manager.ConvertToKyStringOld(nullptr, KyENUM_T, static_cast<unsigned>(sourceStrings.size()));
        std::string text = joined->StrGet();
        KyStringDelete(joined, 1);
        return text;
    }

    std::vector<std::string> Split(const std::string& text) {
        KyString consumed(text.c_str());
        EXPECT_EQ(manager.ConvertFromKyStringOld(&consumed, KyENUM_T, 9), &receivedCount);
        EXPECT_EQ(receivedCount, 9U);
        EXPECT_EQ(receivedManager, &manager);
        EXPECT_EQ(consumed.Len(), 0);
        std::vector<std::string> pieces;
        for (const KyString& piece : receivedStrings) pieces.emplace_back(piece.StrGet());
        return pieces;
    }

    RowPatch row;
    KyTypeMgr manager{5};
};

using Pieces = std::vector<std::string>;

TEST_F(OldText, EveryValueIsFollowedByTheSeparator) {
    EXPECT_EQ(Join({"a", "b"}), "a\1b\1");
    EXPECT_EQ(Join({"a"}), "a\1");
    EXPECT_EQ(Join({"", ""}), "\1\1");
}

TEST_F(OldText, NoValuesAreAnEmptyText) {
    EXPECT_EQ(Join({}), "");
    KyString* text = manager.ConvertToKyStringOld(nullptr, KyENUM_T, 0);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->IsNullValue(), 0);
    KyStringDelete(text, 1);
}

TEST_F(OldText, SeparatorIsTheFirstCodeThatNoValueHolds) {
    EXPECT_EQ(Join({"a\1b"}), "a\1b\2");
    EXPECT_EQ(Join({"a\2", "\1"}), "a\2\3\1\3");
    EXPECT_EQ(Join({"\2"}), "\2\1");
    std::string used;
    for (int code = 1; code <= 254; ++code) {
        EXPECT_EQ(Join({used.c_str()}), used + static_cast<char>(code)) << code;
        used.insert(used.begin(), static_cast<char>(code));
    }
}

TEST_F(OldText, SeparatorIsACommaWhenAllCodesAreUsed) {
    std::string low;
    std::string high;
    for (int code = 1; code <= 127; ++code) low += static_cast<char>(code);
    for (int code = 128; code <= 254; ++code) high += static_cast<char>(code);
    EXPECT_EQ(Join({low.c_str(), high.c_str()}), low + "," + high + ",");
    EXPECT_EQ(Join({low.c_str(), "\xFF"}), low + "\x80" + "\xFF\x80") << "code 255 is never a separator";
}

TEST_F(OldText, SeparatorIsLookedForAmongTheUnitsOf16BitText) {
    const unsigned short units[] = {0x0101, 0x0200, 2, 0};
    // Only the unit 2 is a code; the bytes of the others are none.
    sourceStrings = {KyString(units)};
    KyString* joined = manager.ConvertToKyStringOld(nullptr, KyENUM_T, 1);
    ASSERT_GE(joined->Len(), 1);
    EXPECT_EQ(joined->StrGet()[joined->Len() - 1], '\1');
    KyStringDelete(joined, 1);
    sourceStrings = {KyString(units), "\1"};
    joined = manager.ConvertToKyStringOld(nullptr, KyENUM_T, 2);
    EXPECT_EQ(joined->StrGet()[joined->Len() - 1], '\3');
    KyStringDelete(joined, 1);
}

TEST_F(OldText, MissingStringsLeaveTheirSeparators) {
    sourceHasData = false;
    KyString* joined = manager.ConvertToKyStringOld(nullptr, KyENUM_T, 3);
    EXPECT_STREQ(joined->StrGet(), "\1\1\1");
    KyStringDelete(joined, 1);
}

TEST_F(OldText, WithoutConversionThereIsNoText) {
    row->ConvertToKyString = nullptr;
    EXPECT_EQ(manager.ConvertToKyStringOld(nullptr, KyENUM_T, 2), nullptr);
    row->ConvertToKyString = [](void*, unsigned) -> KyTypeConvertData* { return nullptr; };
    EXPECT_EQ(manager.ConvertToKyStringOld(nullptr, KyENUM_T, 2), nullptr);
    row->ConvertFromKyString = nullptr;
    KyString text("a,");
    EXPECT_EQ(manager.ConvertFromKyStringOld(&text, KyENUM_T, 1), nullptr);
    EXPECT_EQ(text.Len(), 0);
}

TEST_F(OldText, IsSplitAtItsLastCharacter) {
    EXPECT_EQ(Split("a\1b\1"), (Pieces{"a", "b", ""}));
    EXPECT_EQ(Split("a,b"), (Pieces{"a,", ""}));
    EXPECT_EQ(Split("abcb"), (Pieces{"a", "c", ""}));
    EXPECT_EQ(Split(",,"), (Pieces{"", "", ""}));
    EXPECT_EQ(Split("x"), (Pieces{"", ""}));
    EXPECT_EQ(Split(""), (Pieces{""}));
}

TEST_F(OldText, PiecesKeepCodeSetAndLanguage) {
    const unsigned short units[] = {0x20AC, 9, 'b', 9, 0};
    KyString text(units);
    text.LanguageSet(7);
    const unsigned char codeSet = text.CodeSetGet();
    manager.ConvertFromKyStringOld(&text, KyENUM_T, 2);
    EXPECT_EQ(text.Len(), 0);
    EXPECT_EQ(text.CodeSetGet(), codeSet);
    ASSERT_EQ(receivedStrings.size(), 3U);
    EXPECT_EQ(receivedStrings[0].CodeSetGet(), codeSet);
    EXPECT_EQ(receivedStrings[0].LanguageGet(), 7);
    const unsigned short first[] = {0x20AC, 0};
    EXPECT_EQ(std::memcmp(receivedStrings[0].StrGet(), first, sizeof first), 0);
    EXPECT_EQ(receivedStrings[2].Len(), 0);
}

TEST_F(OldText, LongTextsKeepTheirPieces) {
    const std::string longPiece(65000, 'l');
    EXPECT_EQ(Split(longPiece + "\1s\1"), (Pieces{longPiece, "s", ""}));
    EXPECT_EQ(Join({KyString(longPiece.c_str()), "s"}), longPiece + "\1s\1");
    EXPECT_EQ(Split(std::string(65531, '\1')), Pieces(65532));
}

TEST(OldTextOfTypes, NumbersGoThereAndBackUnderBothArrays) {
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        int numbers[] = {1, -20, 300};
        KyString* text = manager.ConvertToKyStringOld(numbers, KyINT_T, 3);
        ASSERT_NE(text, nullptr);
        EXPECT_STREQ(text->StrGet(),
                     "1\1-20\1"
                     "300\1");
        auto* back = static_cast<int*>(manager.ConvertFromKyStringOld(text, KyINT_T, 4));
        ASSERT_NE(back, nullptr);
        EXPECT_EQ(std::memcmp(back, numbers, sizeof numbers), 0);
        EXPECT_EQ(back[3], 0);
        EXPECT_EQ(text->Len(), 0);
        manager.Delete(KyINT_T, back, 4);
        KyStringDelete(text, 1);
    }
}

TEST(OldTextOfTypes, ManyValuesTakeLinearTimeAndAreCut) {
    KyTypeMgr manager(5);
    std::vector<int> numbers(200000, 12345);
    KyString* text = manager.ConvertToKyStringOld(numbers.data(), KyINT_T, 200000);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->Len(), 65531);
    KyStringDelete(text, 1);
}

}  // namespace
