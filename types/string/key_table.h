#ifndef KEY_TABLE_H
#define KEY_TABLE_H

/// Comparison keys of the 256 characters of an 8-bit code set in a language, looked up instead of computed.

#include "order_key.h"

namespace ky {

struct KeyTable {
    /// Instead of a key, which is below 2^31: the character may join its neighbours, expands, or has no record.
    static constexpr unsigned kNeedsIterator = 0x80000000;

    unsigned keys[256];          ///< by code; 0 for the terminator
    unsigned short orders[256];  ///< order values; 0 where there is no key

    unsigned operator[](char c) const { return keys[static_cast<unsigned char>(c)]; }
    unsigned short OrderOf(char c) const { return orders[static_cast<unsigned char>(c)]; }
};

/// The table of a code set and language, made when it is first asked for; null for the numbers for which none is
/// kept. Lives as long as the process. Any thread.
const KeyTable* KeyTableOf(unsigned char codeSet, unsigned char language);

}  // namespace ky

#endif
