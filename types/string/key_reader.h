#ifndef KEY_READER_H
#define KEY_READER_H

/// The two ways in which a comparison reads a text: as comparison keys, or as plain bytes.

#include <optional>

#include "code_sets.h"
#include "key_table.h"
#include "kychar.h"
#include "order_key.h"

namespace ky {

/// Characters that are compared at most: maxLen as it travels through the interface, -1 meaning all.
constexpr unsigned CompareLimit(short maxLen) { return maxLen == -1 ? ~0u : static_cast<unsigned short>(maxLen); }

/// Yields the comparison keys of a text, masked, and 0 at its end or behind the last of `limit` orders. A null text is
/// empty. Characters that rank alone are looked up; from the first other one on an iterator reads.
class KeyReader {
public:
    KeyReader(const char* text, unsigned char textCodeSet, unsigned char textLanguage, unsigned char textFormat,
              unsigned limit, unsigned keyMask)
        : table(text != nullptr ? KeyTableOf(textCodeSet, textLanguage) : nullptr),
          at(text),
          left(limit),
          mask(keyMask),
          codeSet(TextCodeSet(textCodeSet)),
          language(textLanguage),
          format(textFormat) {
        if (table == nullptr) ReadOnByIterator();
    }

    unsigned Next() {
        if (left == 0) return order = 0;
        --left;
        if (table != nullptr) {
            const unsigned key = (*table)[*at];
            if (key != KeyTable::kNeedsIterator) {
                order = table->OrderOf(*at);
                if (order != 0) ++at;
                return key & mask;
            }
            ReadOnByIterator();
        }
        order = it->GetNextOrder(1);
        return OrderKey(order, it->OrderClass()) & mask;
    }
    /// Order value behind the key that was read last; 0 at the end.
    unsigned short Order() const { return order; }
    bool TookContractions() const { return it && it->TookContractions(); }

private:
    void ReadOnByIterator() {
        table = nullptr;
        it.emplace(at, codeSet, language, format);
    }

    const KeyTable* table;  ///< null: the iterator reads
    const char* at;
    std::optional<KyStringIterator> it;
    unsigned left;
    unsigned mask;
    unsigned short order = 0;
    unsigned char codeSet;
    unsigned char language;
    unsigned char format;
};

/// Bytes as their own keys. A null text is empty.
class ByteReader {
public:
    ByteReader(const char* text, unsigned limit) : at(text), left(text != nullptr ? limit : 0) {}

    unsigned Next() {
        if (left == 0) return order = 0;
        --left;
        order = static_cast<unsigned char>(*at);
        if (order == 0) {
            left = 0;
        } else {
            ++at;
        }
        return order;
    }
    unsigned short Order() const { return order; }
    static constexpr bool TookContractions() { return false; }

private:
    const char* at;
    unsigned left;
    unsigned short order = 0;
};

}  // namespace ky

#endif
