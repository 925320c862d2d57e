#ifndef KEY_TABLE_H
#define KEY_TABLE_H

/// Comparison keys of characters in a language, looked up instead of computed: a table for each 8-bit code set, pages
/// for Unicode. Made when first asked for, kept as long as the process lives, read by any thread.

#include <atomic>

#include "order_key.h"

namespace ky {

/// The keys of 256 characters in a row.
struct KeyPage {
    /// Set in a key, which is below 2^31, unless the character ranks alone whatever its neighbours are.
    static constexpr unsigned kMarked = 0x80000000;

    /// Why a key is marked.
    enum Mark : unsigned char {
        /// May be the first of characters that count as one: with a neighbour behind it that leans back.
        kJoinsNext = 1,
        /// May be a further one of them, or takes its class from what precedes it. A character without this mark begins
        /// something new, and a reader may begin with it.
        kLeansBack = 2,
        /// Has no key here: it expands or has no record.
        kNeedsIterator = 4
    };

    unsigned keys[256];          ///< 0 for the terminator
    unsigned short orders[256];  ///< order values; 0 where an iterator is needed
    unsigned char marks[256];

    static constexpr bool IsMarked(unsigned key) { return (key & kMarked) != 0; }
};

/// Keys of an 8-bit code set, or of the first 256 codes of Unicode.
struct KeyTable : KeyPage {
    /// Equal for characters whose keys are the same under a mask, none of which is marked. The masks are those of the
    /// operators that ignore nothing, case, accents and both.
    unsigned char ranks[4][256];
    unsigned char codeSet;
    unsigned char language;

    static constexpr unsigned MaskNumber(unsigned mask) {
        return ((mask & kCaseBits) == 0 ? 1u : 0u) | ((mask & kAccentBits) == 0 ? 2u : 0u);
    }

    unsigned KeyOf(char c) const { return keys[static_cast<unsigned char>(c)]; }
    unsigned short OrderOf(char c) const { return orders[static_cast<unsigned char>(c)]; }
    unsigned char MarksOf(char c) const { return marks[static_cast<unsigned char>(c)]; }
};

/// Code sets and languages below these numbers have tables: all that there are.
inline constexpr unsigned kTableCodeSets = 27;
inline constexpr unsigned kTableLanguages = 32;

/// Null: not made yet.
extern constinit std::atomic<const KeyTable*> keyTables[kTableCodeSets][kTableLanguages];
extern constinit std::atomic<const KeyPage*> keyPages[kTableLanguages][256];

const KeyTable* MakeKeyTable(unsigned char codeSet, unsigned char language);
const KeyPage& MakeKeyPage(unsigned char language, unsigned char highByte);

/// The table of a code set (0: the native one) and language; null for the numbers for which none is kept, and when
/// memory fails.
inline const KeyTable* KeyTableOf(unsigned char codeSet, unsigned char language) {
    if (codeSet >= kTableCodeSets || language >= kTableLanguages) return nullptr;
    const KeyTable* table = keyTables[codeSet][language].load(std::memory_order_acquire);
    return table != nullptr ? table : MakeKeyTable(codeSet, language);
}

/// The keys of Unicode in a language below `kTableLanguages`.
class KeyPages {
public:
    explicit KeyPages(unsigned char ofLanguage) : language(ofLanguage) {}

    static constexpr bool AreKept(unsigned char codeSet, unsigned char language) {
        return codeSet == KyCodeSetUnicode && language < kTableLanguages;
    }

    unsigned char Language() const { return language; }
    const KeyPage& PageOf(unsigned short code) const {
        const KeyPage* page = ReadyPageOf(code);
        return page != nullptr ? *page : MakeKeyPage(language, static_cast<unsigned char>(code >> 8));
    }
    /// Null: not made yet.
    const KeyPage* ReadyPageOf(unsigned short code) const {
        return keyPages[language][code >> 8].load(std::memory_order_acquire);
    }
    const KeyTable& FirstPage() const { return static_cast<const KeyTable&>(PageOf(0)); }

private:
    unsigned char language;
};

}  // namespace ky

#endif
