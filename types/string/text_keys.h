#ifndef TEXT_KEYS_H
#define TEXT_KEYS_H

/// How the keys of a text's characters are looked up, one kind of text a class.

#include "key_reader.h"
#include "key_table.h"

namespace ky {

struct NarrowText {
    static constexpr unsigned width = 1;
    static constexpr bool hasMarks = true;
    const KeyTable* table;

    TextView View(const char* p) const { return {p, table->codeSet, table->language, 1}; }
    unsigned Key(const char* p) const { return table->KeyOf(*p); }
    unsigned KeyIfReady(const char* p) const { return Key(p); }
    unsigned char Marks(const char* p) const { return table->MarksOf(*p); }
    unsigned short Order(const char* p) const { return table->OrderOf(*p); }
};

struct WideText {
    static constexpr unsigned width = 2;
    static constexpr bool hasMarks = true;
    KeyPages pages;
    unsigned char format;

    TextView View(const char* p) const { return {p, KyCodeSetUnicode, pages.Language(), format}; }
    unsigned Key(const char* p) const {
        const unsigned short code = ReadUnit(p, format);
        return pages.PageOf(code).keys[code & 0xFF];
    }
    /// Marked while the page is not made.
    unsigned KeyIfReady(const char* p) const {
        const unsigned short code = ReadUnit(p, format);
        const KeyPage* page = pages.ReadyPageOf(code);
        return page != nullptr ? page->keys[code & 0xFF] : KeyPage::kMarked;
    }
    unsigned char Marks(const char* p) const {
        const unsigned short code = ReadUnit(p, format);
        return pages.PageOf(code).marks[code & 0xFF];
    }
    unsigned short Order(const char* p) const {
        const unsigned short code = ReadUnit(p, format);
        return pages.PageOf(code).orders[code & 0xFF];
    }
};

/// A text of orders, in default classes.
struct OrderText {
    static constexpr unsigned width = 2;
    static constexpr bool hasMarks = false;
    unsigned char format;

    unsigned Key(const char* p) const {
        const unsigned short order = ReadOrder(p, format);
        return OrderKey(order, DefaultClass(order));
    }
};

}  // namespace ky

#endif
