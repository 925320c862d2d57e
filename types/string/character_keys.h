#ifndef CHARACTER_KEYS_H
#define CHARACTER_KEYS_H

#include <optional>

#include "text_keys.h"

namespace ky {

/// The keys of a text's characters one by one, each as though it stood alone.
class CharacterKeys {
public:
    /// Instead of a key: the character does not rank alone whatever its neighbours are.
    static constexpr unsigned kUnclear = ~0u;

    /// Plain bytes.
    CharacterKeys() = default;
    /// Characters of an 8-bit code set or of Unicode in machine byte order; none are looked up (`Exist`) where there
    /// are no tables.
    CharacterKeys(unsigned char codeSet, unsigned char language, unsigned keyMask) : mask(keyMask), bytes(false) {
        if (KeyPages::AreKept(codeSet, language)) {
            pages.emplace(language);
        } else {
            table = KeyTableOf(codeSet, language);
        }
    }

    bool Exist() const { return bytes || table != nullptr || pages.has_value(); }

    /// Writes the keys of `count` characters.
    void Read(const char* text, std::size_t count, unsigned* keys) const {
        if (bytes) {
            for (std::size_t i = 0; i < count; ++i) keys[i] = static_cast<unsigned char>(text[i]);
        } else if (table != nullptr) {
            LookUp(NarrowText{table}, text, count, keys);
        } else {
            LookUp(WideText{*pages, 1}, text, count, keys);
        }
    }

private:
    template <class Text>
    void LookUp(const Text& characters, const char* text, std::size_t count, unsigned* keys) const {
        const unsigned kept = mask;
        for (std::size_t i = 0; i < count; ++i) {
            const unsigned key = characters.Key(text + i * Text::width);
            keys[i] = KeyPage::IsMarked(key) ? kUnclear : key & kept;
        }
    }

    unsigned mask = ~0u;
    bool bytes = true;
    const KeyTable* table = nullptr;
    std::optional<KeyPages> pages;
};

}  // namespace ky

#endif
