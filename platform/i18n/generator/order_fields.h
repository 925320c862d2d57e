#ifndef ORDER_FIELDS_H
#define ORDER_FIELDS_H

/// The kinds of order values and how the data writes them.

#include <optional>
#include <string>

#include "data_line.h"

namespace ky::tables {

inline constexpr unsigned FirstSpace = 1;
inline constexpr unsigned FirstSymbol = 80;
inline constexpr unsigned FirstByteSymbol = 16000;  ///< of the 128 symbols that stand for bytes without a character
inline constexpr unsigned FirstDigit = 16128;
inline constexpr unsigned FirstLetter = 0x4000;
inline constexpr unsigned FirstHan = 0x8000;
inline constexpr unsigned FirstMarker = 65520;

enum class OrderKind { space, symbol, digit, letter, han };

OrderKind KindOf(unsigned order);

/// The class that an order has when nothing else is known.
unsigned char DefaultClassOf(unsigned order);

struct ClassAndOrder {
    unsigned char orderClass;
    unsigned short order;
};

/// The fields behind a kind that says class and order itself ("letter", "digit", ...). With `counted`, the order is
/// one whose number goes on by one in a range of codes. Nothing for another kind.
struct OrderFields {
    ClassAndOrder place;
    bool counted;
};
std::optional<OrderFields> ReadOrder(DataLine& line, const std::string& kind);

/// The fields behind the kind "letter".
ClassAndOrder ReadLetter(DataLine& line);

/// The order `steps` behind a counted one, of the same kind.
unsigned short CountOn(const Place& at, unsigned short order, unsigned steps);

}  // namespace ky::tables

#endif
