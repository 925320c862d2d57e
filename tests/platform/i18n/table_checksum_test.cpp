// Version and checksum of the tables. Databases hold both: a line here changes only when a changed order is a
// decision, and then both of them do.

#include <gtest/gtest.h>

#include <cstdint>

#include "kyi18n.h"

namespace {

/// 64-bit FNV-1a over what the interface tells: numbers of 16 bits low byte first, lists after their lengths.
class Checksum {
public:
    std::uint64_t Value() const { return value; }

    void Byte(unsigned byte) {
        value ^= byte;
        value *= 1099511628211u;
    }
    void Number(std::size_t number) {
        Byte(number % 256);
        Byte(number / 256 % 256);
    }
    void List(const KyWCharList& list) {
        Number(list.count);
        for (unsigned i = 0; i < list.count; ++i) Number(list.items[i]);
    }
    void Record(const KyCharProps* record) {
        if (record == nullptr) return Number(0);
        Number(record->order);
        Number(record->upper);
        Number(record->lower);
        Byte(record->orderClass);
        static const KyCharRules none;
        const KyCharRules& rules = record->rules != nullptr ? *record->rules : none;
        List(rules.upperExpansion);
        List(rules.orderExpansion);
        Number(static_cast<std::size_t>(rules.variants.end() - rules.variants.begin()));
        for (const KyLanguageVariant& entry : rules.variants) {
            Byte(entry.variant);
            Record(entry.record);
        }
        Number(static_cast<std::size_t>(rules.contractions.end() - rules.contractions.begin()));
        for (const KyContraction& entry : rules.contractions) {
            List(entry.rest);
            Record(entry.record);
        }
    }
    void CodeSet(const KyCodeSet& set) {
        Byte(set.Code());
        const unsigned last = set.Code() < KyCodeSetFirst16Bit ? 0xFF : 0xFFFF;
        for (unsigned code = 1; code <= last; ++code) {
            Number(set.ToUnicode(static_cast<unsigned short>(code)));
            Record(set.GetProperty(static_cast<unsigned short>(code)));
        }
    }
    void Language(const KyLanguage& language) {
        Byte(language.Code());
        Byte(language.Variant());
        for (unsigned char orderClass = 0; orderClass < 128; ++orderClass) {
            Byte(language.ClassOf(KyCharProps{.orderClass = orderClass}));
        }
    }

private:
    std::uint64_t value = 14695981039346656037u;
};

TEST(TableChecksum, IsWhatTheTablesSay) {
    Checksum checksum;
    for (unsigned number = 1; number < KyCodeSetOrders; ++number) {
        const KyCodeSet* set = KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(number));
        if (set != nullptr) checksum.CodeSet(*set);
    }
    for (unsigned number = 0; number < KyLanguageNull; ++number) {
        const KyLanguage* language = KyLanguageContext::QueryLanguage(static_cast<unsigned char>(number));
        if (language != nullptr) checksum.Language(*language);
    }
    EXPECT_EQ(checksum.Value(), KyTableChecksum);
}

TEST(TableChecksum, IsToldByTheLibraryItself) {
    EXPECT_EQ(KyLanguageContext::QueryTableVersion(), KyTableVersion);
    EXPECT_EQ(KyLanguageContext::QueryTableChecksum(), KyTableChecksum);
}

TEST(TableChecksum, IsPinnedWithTheVersion) {
    EXPECT_EQ(KyTableVersion, 1u);
    EXPECT_EQ(KyTableChecksum, 0xE90A2F1F8E8748D1u);
}

}  // namespace
