#ifndef KEY_READER_H
#define KEY_READER_H

/// A text as a comparison reads it, key by key.

#include <optional>

#include "code_sets.h"
#include "key_table.h"
#include "kychar.h"
#include "order_key.h"

namespace ky {

/// Orders that are compared at most: maxLen as it travels through the interface, -1 meaning all.
constexpr unsigned CompareLimit(short maxLen) { return maxLen == -1 ? ~0u : static_cast<unsigned short>(maxLen); }

/// A zero-terminated text (null: empty) and how to read it. `format` 2: 16-bit units have their bytes swapped.
struct TextView {
    const char* text;
    unsigned char codeSet;
    unsigned char language;
    unsigned char format;
};

/// Yields the comparison keys of a text, masked, and 0 at its end or behind the last of `limit` orders. Characters are
/// looked up; an iterator reads those that stand for several orders, those that stand together for one, and
/// the texts for which there are no tables. A copy reads on from the same place on its own.
class KeyReader {
public:
    /// `inDefaultClasses`: as if each order value were of its default class. `keyBefore`: the unmasked key of what
    /// precedes the text, where the reader begins inside one.
    KeyReader(const TextView& view, unsigned limit, unsigned keyMask, bool inDefaultClasses, unsigned keyBefore = 0)
        : at(view.text != nullptr ? view.text : kNothing),
          codeSet(TextCodeSet(view.codeSet)),
          language(view.language),
          format(view.format),
          defaultClasses(inDefaultClasses),
          key(keyBefore),
          left(limit),
          mask(keyMask) {
        if (KeyPages::AreKept(codeSet, language)) {
            pages.emplace(language);
        } else {
            table = KeyTableOf(codeSet, language);
        }
    }

    unsigned Next() {
        if (left == 0) return order = 0;
        --left;
        if (!LookUp()) Iterate();
        return (defaultClasses ? OrderKey(order, DefaultClass(order)) : key) & mask;
    }
    /// Order value behind the key that was read last; 0 at the end.
    unsigned short Order() const { return order; }
    bool TookContractions() const { return it && it->TookContractions(); }
    /// Whether further orders of the character that was read last follow.
    bool InCharacter() const { return it && it->InOverflow(); }
    /// The character that the next order is of.
    const char* Place() const { return it && !LooksUp() ? it->Position() : at; }

private:
    /// Where the tables speak of a character; no page: there are no tables.
    struct Entry {
        const KeyPage* page;
        unsigned index;
        unsigned Marks() const { return page->marks[index]; }
    };

    bool LooksUp() const { return table != nullptr || pages; }
    bool LookUp() {
        if (expanding) return false;
        const Entry entry = EntryAt(at);
        if (entry.page == nullptr || (entry.Marks() != 0 && !RanksAlone(entry))) return false;
        key = entry.page->keys[entry.index] & ~KeyPage::kMarked;
        order = entry.page->orders[entry.index];
        if (order != 0) at += CharWidth(codeSet);
        return true;
    }
    Entry EntryAt(const char* p) const {
        if (table != nullptr) return {table, static_cast<unsigned char>(*p)};
        if (!pages) return {nullptr, 0};
        const unsigned short code = ReadUnit(p, format);
        return {&pages->PageOf(code), code & 0xFFu};
    }
    bool RanksAlone(const Entry& entry) const {
        if ((entry.Marks() & KeyPage::kNeedsIterator) != 0) return false;
        if ((entry.Marks() & KeyPage::kJoinsNext) == 0) return true;
        return (EntryAt(at + CharWidth(codeSet)).Marks() & KeyPage::kLeansBack) == 0;
    }
    void Iterate();

    static constexpr char kNothing[2] = {};

    const char* at;
    const KeyTable* table = nullptr;
    std::optional<KeyPages> pages;
    std::optional<KyStringIterator> it;  ///< once one was needed
    unsigned char codeSet;
    unsigned char language;
    unsigned char format;
    bool defaultClasses;
    bool expanding = false;  ///< the iterator has further orders of a character
    unsigned short order = 0;
    unsigned key;  ///< of the order that was read last, unmasked
    unsigned left;
    unsigned mask;
};

}  // namespace ky

#endif
