#ifndef PLAIN_READER_H
#define PLAIN_READER_H

/// Characters that rank alone, read without an iterator.

#include "code_sets.h"
#include "order_key.h"

namespace ky {

/// What is known of a text before its first character is read.
class PlainReader {
public:
    PlainReader(unsigned char codeSet, unsigned char language, unsigned char textFormat)
        : set(&CodeSetOf(codeSet)),
          table(set->HasPropertyTable() ? set : &CodeSetOf(KyCodeSetUnicode)),
          rules(KyLanguageContext::QueryLanguage(language)),
          width(CharWidth(codeSet)),
          format(textFormat) {}

    unsigned Width() const { return width; }

    /// The key of a character that ranks alone, whatever its neighbours are: true and the key, or false when that
    /// needs the iterator.
    bool KeyAt(const char* p, unsigned& key) const {
        const unsigned short code = ReadCode(p, width, format);
        key = 0;
        if (code == 0) return true;
        const KyCharProps* record = RecordOf(code);
        if (record == nullptr || record->rules != nullptr) return false;
        key = OrderKey(record->order, rules != nullptr ? rules->ClassOf(*record) : record->orderClass);
        return true;
    }

    /// The order value of a character that has a key.
    unsigned short OrderAt(const char* p) const { return RecordOf(ReadCode(p, width, format))->order; }

    /// The character may begin a contraction.
    bool MayJoin(const char* p) const {
        const KyCharProps* record = RecordOf(ReadCode(p, width, format));
        return record != nullptr && record->rules != nullptr;
    }

private:
    const KyCharProps* RecordOf(unsigned short code) const {
        return table->GetProperty(table == set ? code : table->MapFrom(*set, code));
    }

    const KyCodeSet* set;
    const KyCodeSet* table;
    const KyLanguage* rules;
    unsigned width;
    unsigned char format;
};

}  // namespace ky

#endif
