#include "key_table.h"

#include <bitset>
#include <memory>
#include <new>

#include "code_sets.h"

namespace ky {

constinit std::atomic<const KeyTable*> keyTables[kTableCodeSets][kTableLanguages] = {};
constinit std::atomic<const KeyPage*> keyPages[kTableLanguages][256] = {};

namespace {

/// Unicode codes.
using Codes = std::bitset<0x10000>;

/// The records of a code set in a language.
class Records {
public:
    Records(unsigned char codeSet, unsigned char language)
        : set(CodeSetOf(codeSet)),
          table(set.HasPropertyTable() ? set : CodeSetOf(KyCodeSetUnicode)),
          rules(KyLanguageContext::QueryLanguage(language)) {}

    /// Null: there is none.
    const KyCharProps* Of(unsigned short code) const {
        const KyCharProps* record = table.GetProperty(table.MapFrom(set, code));
        return record != nullptr && rules != nullptr ? &rules->Select(*record) : record;
    }
    unsigned KeyOf(const KyCharProps& record) const {
        return OrderKey(record.order, rules != nullptr ? rules->ClassOf(record) : record.orderClass);
    }
    unsigned short UnicodeOf(unsigned short code) const { return set.ToUnicode(code); }

    /// The characters that can be further ones of those that count as one, among those that begin with a code below
    /// `limit`.
    std::unique_ptr<Codes> Joined(unsigned limit) const {
        std::unique_ptr<Codes> joined(new (std::nothrow) Codes);
        if (joined == nullptr) return joined;
        for (unsigned code = 1; code < limit; ++code) {
            if (const KyCharProps* record = Of(static_cast<unsigned short>(code))) AddJoined(*record, *joined);
        }
        return joined;
    }

private:
    static void AddJoined(const KyCharProps& record, Codes& joined) {
        if (record.rules == nullptr) return;
        for (const KyContraction& entry : record.rules->contractions) {
            for (unsigned i = 0; i < entry.rest.count; ++i) joined.set(entry.rest.items[i]);
            AddJoined(*entry.record, joined);
        }
    }

    const KyCodeSet& set;
    const KyCodeSet& table;
    const KyLanguage* rules;
};

void FillPage(KeyPage& page, const Records& records, const Codes& joined, unsigned firstCode) {
    for (unsigned i = 0; i < 256; ++i) {
        const auto code = static_cast<unsigned short>(firstCode + i);
        const KyCharProps* record = code != 0 ? records.Of(code) : nullptr;
        unsigned marks = code != 0 && joined[records.UnicodeOf(code)] ? KeyPage::kLeansBack : 0;
        if (record == nullptr) {
            if (code != 0) marks = KeyPage::kNeedsIterator | KeyPage::kLeansBack;
        } else if (record->rules != nullptr) {
            if (record->rules->orderExpansion.count != 0) marks |= KeyPage::kNeedsIterator;
            if (record->rules->contractions.begin() != record->rules->contractions.end()) marks |= KeyPage::kJoinsNext;
        }
        const bool ranks = record != nullptr && (marks & KeyPage::kNeedsIterator) == 0;
        page.keys[i] = (ranks ? records.KeyOf(*record) : 0) | (marks != 0 ? KeyPage::kMarked : 0);
        page.orders[i] = ranks ? record->order : 0;
        page.marks[i] = static_cast<unsigned char>(marks);
    }
}

/// The rank of a code is the first code with the same key, a marked one its own.
void FillRanks(unsigned char (&ranks)[256], const KeyPage& page, unsigned mask) {
    for (unsigned code = 0; code < 256; ++code) {
        unsigned first = 0;
        while (first != code && (KeyPage::IsMarked(page.keys[first] | page.keys[code]) ||
                                 ((page.keys[first] ^ page.keys[code]) & mask) != 0)) {
            ++first;
        }
        ranks[code] = static_cast<unsigned char>(first);
    }
}

/// A table that is published when it is filled; null when memory fails.
std::unique_ptr<KeyTable> MakeTable(const Records& records, const Codes& joined, unsigned char codeSet,
                                    unsigned char language) {
    std::unique_ptr<KeyTable> made(new (std::nothrow) KeyTable);
    if (made == nullptr) return made;
    FillPage(*made, records, joined, 0);
    for (const unsigned mask : {~0u, ~kCaseBits, ~kAccentBits, ~(kCaseBits | kAccentBits)}) {
        FillRanks(made->ranks[KeyTable::MaskNumber(mask)], *made, mask);
    }
    made->codeSet = codeSet;
    made->language = language;
    return made;
}

/// Stands in when memory fails: an iterator reads every character, and from the text's beginning on.
constexpr KeyTable kNothingKnown = [] {
    KeyTable table{};
    for (unsigned i = 0; i < 256; ++i) {
        table.keys[i] = KeyPage::kMarked;
        table.marks[i] = KeyPage::kNeedsIterator | KeyPage::kLeansBack;
        for (auto& ranks : table.ranks) ranks[i] = static_cast<unsigned char>(i);
    }
    return table;
}();

/// Leaves one of those that threads make at the same time in `place`, and returns it; null: there was no memory.
template <class Made, class Table>
const Table* Publish(std::unique_ptr<Made> made, std::atomic<const Table*>& place) {
    const Table* present = nullptr;
    return place.compare_exchange_strong(present, made.get(), std::memory_order_acq_rel) ? made.release() : present;
}

/// What Unicode texts of a language join; null when memory fails.
const Codes* JoinedOf(unsigned char language, const Records& records) {
    static constinit std::atomic<const Codes*> ofLanguages[kTableLanguages] = {};
    const Codes* joined = ofLanguages[language].load(std::memory_order_acquire);
    return joined != nullptr ? joined : Publish(records.Joined(0x10000), ofLanguages[language]);
}

}  // namespace

const KeyTable* MakeKeyTable(unsigned char codeSet, unsigned char language) {
    const Records records(codeSet, language);
    const std::unique_ptr<Codes> joined = records.Joined(0x100);
    if (joined == nullptr) return nullptr;
    return Publish(MakeTable(records, *joined, codeSet, language), keyTables[codeSet][language]);
}

const KeyPage& MakeKeyPage(unsigned char language, unsigned char highByte) {
    const Records records(KyCodeSetUnicode, language);
    const Codes* joined = JoinedOf(language, records);
    if (joined == nullptr) return kNothingKnown;
    std::atomic<const KeyPage*>& place = keyPages[language][highByte];
    const KeyPage* page;
    if (highByte == 0) {
        page = Publish(MakeTable(records, *joined, KyCodeSetUnicode, language), place);
    } else {
        std::unique_ptr<KeyPage> made(new (std::nothrow) KeyPage);
        if (made != nullptr) FillPage(*made, records, *joined, unsigned{highByte} << 8);
        page = Publish(std::move(made), place);
    }
    return page != nullptr ? *page : kNothingKnown;
}

}  // namespace ky
