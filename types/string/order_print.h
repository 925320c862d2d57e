#ifndef ORDER_PRINT_H
#define ORDER_PRINT_H

/// Texts of order values, to be read by people.

#include "kystring.h"

namespace ky {

struct PrintedOrders {
    KyString text;  ///< in Latin-1
    bool isAscii;   ///< and it stays so, whatever the code set of the output
};

/// Prints the orders of a text that holds them. The format has one of the directives
///   %1M  each order as a character, a letter without its accents
///   %2M  each as the very character of the text's 8-bit code set, where there is one, else as by %1M; so is "%s"
///   %3M  each order's name, printed through the format one by one, and at last "[MIX]" where the text is marked
///   %4M  each as its character is written in ASCII, printed through the format one by one
/// The first of them that it has, in this order, counts as its "%s"; a further conversion makes the format unfit. An
/// order without a character is a question mark.
PrintedOrders PrintOrders(const KyString& orders, const char* format);

}  // namespace ky

#endif
