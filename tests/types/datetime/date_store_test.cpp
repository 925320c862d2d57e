#include <gtest/gtest.h>

#include "date_roster.h"
#include "support/golden.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// The stored forms, their sizes, and Translate.

namespace {

class DateStored : public testing::TestWithParam<DateType> {
protected:
    const DateType& type = GetParam();
};

TEST_P(DateStored, GoldenBytesAndHashes) { CheckGolden(*type.row); }

TEST_P(DateStored, SizesAreTheStoredOnesWhateverTheFlags) {
    const auto stored = static_cast<unsigned>(type.Stored());
    for (const unsigned count : {0u, 1u, 2u, 1000u}) {
        EXPECT_EQ(type.row->NullSizeGet(count), stored * count);
        for (const unsigned char from : kDateFlags) {
            EXPECT_EQ(type.row->SizeGetFromMemFile(nullptr, from, count), stored * count);
            for (const unsigned char to : kDateFlags) {
                EXPECT_EQ(type.row->SizeGet(nullptr, from, to, count), stored * count);
            }
        }
    }
    EXPECT_EQ(type.row->sizeWord, KyFixedSize | type.Memory());
}

TEST_P(DateStored, OneValueIsStoredAndLoadedAtAnyAddressAndNothingElse) {
    for (const SlowDate& value : DateSamples()) {
        for (const unsigned char flag : kDateFlags) {
            const unsigned char form = (flag & 15) == KyFormReversed ? KyFormReversed : KyFormNative;
            const ByteVector expected = DateInForm(type, value, form);
            for (std::size_t offset = 0; offset < 8; ++offset) {
                for (const unsigned char before : {std::uint8_t{0x00}, std::uint8_t{0xFF}}) {
                    ByteVector stored(offset + expected.size() + 1, before);
                    ByteVector memory = DateInForm(type, value, KyFormMemory, 0xEE);
                    EXPECT_EQ(type.row->Store(stored.data() + offset, memory.data(), flag, 1), expected.size());
                    EXPECT_EQ(Hex(stored.data() + offset, expected.size()), Hex(expected.data(), expected.size()));
                    EXPECT_EQ(stored.back(), before);
                    GuardedBuffer loaded(type.Memory());
                    std::memset(loaded.data(), before, loaded.size());
                    EXPECT_EQ(type.row->Load(loaded.data(), stored.data() + offset, flag, 1), expected.size());
                    memory = DateInForm(type, value, KyFormMemory, 0);
                    EXPECT_EQ(Hex(loaded.data(), loaded.size()), Hex(memory.data(), memory.size()));
                }
            }
        }
    }
}

TEST_P(DateStored, TranslateToMemoryLoadsAndFromMemoryStores) {
    const std::vector<SlowDate>& values = DateSamples();
    const auto count = static_cast<unsigned>(values.size());
    ByteVector memory = DatesInForm(type, values, KyFormMemory);
    for (const unsigned char form : {KyFormNative, KyFormReversed}) {
        ByteVector stored = DatesInForm(type, values, form);
        const auto size = static_cast<unsigned>(stored.size());
        ByteVector to(stored.size());
        EXPECT_EQ(type.row->Translate(to.data(), form, size, memory.data(), KyFormMemory, 0, count), size);
        EXPECT_EQ(to, stored);
        ByteVector back(memory.size());
        EXPECT_EQ(type.row->Translate(back.data(), KyFormMemory, 0, stored.data(), form, size, count), size);
        EXPECT_EQ(back, memory);
    }
    ByteVector copy(memory.size());
    EXPECT_EQ(type.row->Translate(copy.data(), KyFormMemory, 0, memory.data(), KyFormMemory, 0, count),
              count * type.Memory());
    EXPECT_EQ(copy, memory);
}

TEST_P(DateStored, Kept_TranslateBetweenStoredFormsSwapsNothing) {
    ByteVector stored = DatesInForm(type, {DateSamples()[13], DateSamples()[16]}, KyFormNative);
    const auto size = static_cast<unsigned>(stored.size());
    ByteVector to(stored.size() + 3, 0xEE);
    EXPECT_EQ(type.row->Translate(to.data(), KyFormReversed, 0, stored.data(), KyFormNative, 0, 2), size);
    EXPECT_EQ(Hex(to.data(), size), Hex(stored.data(), size));
    EXPECT_EQ(to.back(), 0xEE);
    EXPECT_EQ(type.row->Translate(to.data(), KyFormReversed, size + 3, stored.data(), KyFormNative, size, 2), size);
    EXPECT_EQ(Hex(to.data(), size), Hex(stored.data(), size));
    EXPECT_EQ(Hex(to.data() + size, 3), "00 00 00") << "a longer destination is filled up";
    EXPECT_EQ(type.row->Translate(to.data(), KyFormReversed, 2, stored.data(), KyFormNative, size, 2), 2u);
}

INSTANTIATE_TEST_SUITE_P(All, DateStored, testing::ValuesIn(DateTypes()),
                         [](const auto& instance) { return instance.param.Name(); });

TEST(DateStored, TheYearStandsInTheOrderOfTheForm) {
    ByteVector date = Bytes("E8 07 05 07");
    ByteVector stored(4);
    KyDateTab.Store(stored.data(), date.data(), KyFormReversed, 1);
    EXPECT_EQ(Hex(stored.data(), 4), "07 E8 05 07");
    KyDateTab.Store(stored.data(), date.data(), KyFormNative, 1);
    EXPECT_EQ(Hex(stored.data(), 4), "E8 07 05 07");
    KyDateTab.Store(stored.data(), date.data(), 0x82, 1);
    EXPECT_EQ(Hex(stored.data(), 4), "07 E8 05 07") << "the upper bits are not the form's";
}

}  // namespace
