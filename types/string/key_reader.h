#ifndef KEY_READER_H
#define KEY_READER_H

/// The two ways in which a comparison reads a text: as comparison keys, or as plain bytes.

#include "kychar.h"
#include "order_key.h"

namespace ky {

/// Characters that are compared at most: maxLen as it travels through the interface, -1 meaning all.
constexpr unsigned CompareLimit(short maxLen) { return maxLen == -1 ? ~0u : static_cast<unsigned short>(maxLen); }

/// Yields the comparison keys of a text, masked, and 0 at its end or behind the last of `limit` orders.
class KeyReader {
public:
    KeyReader(const char* text, unsigned char codeSet, unsigned char language, unsigned char format, unsigned limit,
              unsigned keyMask)
        : it(text, codeSet, language, format), left(limit), mask(keyMask) {}

    unsigned Next() {
        if (left == 0) return order = 0;
        --left;
        order = it.GetNextOrder(1);
        return OrderKey(order, it.OrderClass()) & mask;
    }
    /// Order value behind the key that was read last; 0 at the end.
    unsigned short Order() const { return order; }
    bool TookContractions() const { return it.TookContractions(); }

private:
    KyStringIterator it;
    unsigned left;
    unsigned mask;
    unsigned short order = 0;
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
