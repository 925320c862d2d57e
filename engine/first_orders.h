#ifndef ENGINE_FIRST_ORDERS_H
#define ENGINE_FIRST_ORDERS_H

/// The beginnings of stored strings, measured by the orders that Compare goes by: letters that count as one together
/// have one, a letter that counts as several has as many. So beginnings of equally many orders are in the order of
/// their texts, whatever these are written with. Texts of code set 0, which are compared with each other byte by byte,
/// have to have as many characters as well. The orders of dictionary strings (types 20 and 21) are their keys: a
/// character has one or two.

#include <vector>

#include "record.h"

namespace engine {

struct Beginning {
    unsigned short characters;  ///< not less than the whole text when it has not so many orders
    bool isReached;             ///< the text has so many
    bool isExact;               ///< no character of it has orders behind them
};

/// The shortest beginning that has so many orders. No letter at its end is one with what follows.
Beginning BeginningOf(char type, unsigned char form, Bytes stored, unsigned orders);

/// The record of the longest beginning without orders beyond so many, of a string of type 11.
std::vector<unsigned char> FirstOrders(unsigned char form, Bytes stored, unsigned most);

/// Order of two stored strings, exact, by so many orders and the modifiers of `op`: negative, 0 or positive.
int CompareFirstOrders(char type, unsigned char form, Bytes a, Bytes b, unsigned short op, short orders);

/// Order of two stored arrays of dictionary strings, of any length. Compare refuses those of more than 253 keys.
int CompareDictionaryStrings(char type, unsigned char form, Bytes a, Bytes b, unsigned count);

}  // namespace engine

#endif
