/// The hash of stored strings.

#include "array_rules.h"
#include "key_reader.h"
#include "kystring_slots.h"

namespace {

using ky::KeyPage;

constexpr unsigned With(unsigned hash, unsigned key) { return 9 * hash + key; }

/// The keys of the rest of a text, with `before` the key of the character before it.
[[gnu::noinline]] unsigned HashByReader(const ky::TextView& rest, unsigned limit, unsigned before, unsigned hash) {
    ky::KeyReader keys(rest, limit, ~0u, false, before);
    for (unsigned key = keys.Next(); keys.Order() != 0; key = keys.Next()) hash = With(hash, key);
    return hash;
}

/// `keyAt(p)` looks a character up.
template <unsigned width, class KeyAt>
unsigned HashByTable(ky::TextView text, unsigned limit, const KeyAt& keyAt) {
    unsigned hash = 0;
    unsigned before = 0;
    for (; limit != 0; --limit, text.text += width) {
        const unsigned key = keyAt(text.text);
        if (KeyPage::IsMarked(key)) return HashByReader(text, limit, before, hash);
        if (key == 0) break;
        hash = With(hash, key);
        before = key;
    }
    return hash;
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
    const unsigned limit = length < 0 ? ~0u : static_cast<unsigned>(length);
    if (codeSet == KyCodeSetNative) return HashBytes(text, limit);
    const ky::TextView view{text, codeSet, language, format};
    if (ky::KeyPages::AreKept(codeSet, language)) {
        const ky::KeyPages pages(language);
        return HashByTable<2>(view, limit, [&](const char* p) {
            const unsigned short code = ky::ReadUnit(p, format);
            return pages.PageOf(code).keys[code & 0xFF];
        });
    }
    const ky::KeyTable* table = ky::KeyTableOf(codeSet, language);
    if (table == nullptr) return HashByReader(view, limit, 0, 0);
    return HashByTable<1>(view, limit, [&](const char* p) { return table->KeyOf(*p); });
}
