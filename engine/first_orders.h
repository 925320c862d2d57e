#ifndef ENGINE_FIRST_ORDERS_H
#define ENGINE_FIRST_ORDERS_H

/// The beginnings of stored strings (type 11), measured by the orders that Compare goes by: letters that count as one
/// together have one, a letter that counts as several has as many. So beginnings of equally many orders are in the
/// order of their texts, whatever these are written with. Texts of code set 0, which are compared with each other byte
/// by byte, have to have as many characters as well.

#include <vector>

#include "record.h"

namespace engine {

struct Beginning {
    unsigned short characters;  ///< of the whole text when it has not so many orders
    bool isReached;             ///< the text has so many
    bool isExact;               ///< no character of it has orders behind them
};

/// The shortest beginning that has so many orders. No letter at its end is one with what follows.
Beginning BeginningOf(unsigned char form, Bytes stored, unsigned orders);

/// The record of the longest beginning without orders beyond so many.
std::vector<unsigned char> FirstOrders(unsigned char form, Bytes stored, unsigned most);

/// Order of two stored strings, exact, by so many orders and the modifiers of `op`: negative, 0 or positive.
int CompareFirstOrders(unsigned char form, Bytes a, Bytes b, unsigned short op, short orders);

}  // namespace engine

#endif
