/// The hash of stored strings.

#include "array_rules.h"
#include "key_reader.h"
#include "kystring_slots.h"
#include "text_keys.h"

namespace {

using ky::KeyPage;

constexpr unsigned kWhole = ~0u;

constexpr unsigned With(unsigned hash, unsigned key) { return 9 * hash + key; }

/// Goes on with the rest of a text; `before` is the key of the character before it.
[[gnu::noinline]] unsigned HashByReader(const ky::TextView& rest, unsigned limit, unsigned before, unsigned hash) {
    ky::KeyReader keys(rest, limit, ~0u, false, before);
    for (unsigned key = keys.Next(); keys.Order() != 0; key = keys.Next()) hash = With(hash, key);
    return hash;
}

/// Looks keys up one after the other.
template <class Text>
struct KeyCursor {
    const Text& text;

    unsigned Key(const char* p) { return text.KeyIfReady(p); }
};

/// Most texts keep to one page.
template <>
struct KeyCursor<ky::WideText> {
    const ky::WideText& text;
    unsigned high = 0;
    const KeyPage* page = &text.pages.PageOf(0);

    unsigned Key(const char* p) {
        const unsigned short code = ky::ReadUnit(p, text.format);
        if (code >> 8 != high) {
            high = code >> 8;
            page = &text.pages.PageOf(code);
        }
        return page->keys[code & 0xFF];
    }
};

/// The end of a text, or a character that does not rank alone.
constexpr bool Stops(unsigned key) { return key - 1 >= KeyPage::kMarked - 1; }

template <class Text>
unsigned HashByTable(const Text& text, const char* start, unsigned limit) {
    KeyCursor<Text> cursor{text};
    const char* p = start;
    unsigned hash = 0;
    unsigned key = 0;
    if (limit == kWhole) {
        for (; !Stops(key = cursor.Key(p)); p += Text::width) hash = With(hash, key);
    } else {
        for (; limit != 0 && !Stops(key = cursor.Key(p)); p += Text::width, --limit) hash = With(hash, key);
    }
    if (!KeyPage::IsMarked(key)) return hash;
    return HashByReader(text.View(p), limit, p != start ? text.Key(p - Text::width) : 0, hash);
}

unsigned HashBytes(const char* text, unsigned limit) {
    unsigned hash = 0;
    for (; limit != 0 && *text != 0; --limit, ++text) hash = With(hash, static_cast<unsigned char>(*text));
    return hash;
}

}  // namespace

unsigned HashString(unsigned char codeSet, unsigned char language, const char* text, int length, unsigned char format) {
    if (ky::IsNullLabel(codeSet, language)) return ky::kNullHash;
    if (text == nullptr) return 0;
    const unsigned limit = length < 0 ? kWhole : static_cast<unsigned>(length);
    if (codeSet == KyCodeSetNative) return HashBytes(text, limit);
    if (ky::KeyPages::AreKept(codeSet, language)) {
        return HashByTable(ky::WideText{ky::KeyPages(language), format}, text, limit);
    }
    const ky::KeyTable* table = ky::KeyTableOf(codeSet, language);
    if (table != nullptr) return HashByTable(ky::NarrowText{table}, text, limit);
    return HashByReader({text, codeSet, language, format}, limit, 0, 0);
}
