#include "order_fields.h"

#include "kyi18n.h"

namespace ky::tables {
namespace {

constexpr unsigned kFormsOfADigit = 10;

unsigned short Order(unsigned order) { return static_cast<unsigned short>(order); }

/// First order behind the last one that the data may use of a kind.
unsigned LimitOf(OrderKind kind) {
    switch (kind) {
        case OrderKind::space:
            return FirstSymbol;
        case OrderKind::symbol:
            return FirstByteSymbol;
        case OrderKind::digit:
            return FirstLetter;
        case OrderKind::letter:
            return FirstHan;
        default:
            return FirstMarker;
    }
}

OrderFields ReadCounted(DataLine& line, OrderKind kind, unsigned first) {
    const unsigned number = ParseNumber(line.At(), line.Next("the number"), 0xFFFF);
    const unsigned order = first + number;
    if (number + first < FirstSpace || order >= LimitOf(kind)) {
        throw BadData(line.At(), "number " + std::to_string(number) + " is outside the orders of its kind");
    }
    return {{DefaultClassOf(order), Order(order)}, true};
}

OrderFields ReadDigit(DataLine& line) {
    const unsigned orderClass = ParseNumber(line.At(), line.Next("the class"), KyClassLastDigits);
    const unsigned form = ParseNumber(line.At(), line.Next("the form"), kFormsOfADigit - 1);
    const unsigned value = ParseNumber(line.At(), line.Next("the value"), 9);
    if (orderClass < KyClassCommon) throw BadData(line.At(), "digits have the classes 16 to 19");
    return {{static_cast<unsigned char>(orderClass), Order(FirstDigit + kFormsOfADigit * value + form)}, false};
}

unsigned CaseNumber(const Place& at, const std::string& name) {
    if (name == "upper") return KyCaseUpper;
    if (name == "title") return KyCaseTitle;
    if (name == "lower") return KyCaseLower;
    if (name == "small") return KyCaseSmall;
    throw BadData(at, "\"" + name + "\" is not a case");
}

/// A letter field: a letter of the alphabet in the Latin class, a number elsewhere.
unsigned LetterNumber(const Place& at, unsigned orderClass, const std::string& text) {
    if (orderClass != KyClassLatin) return ParseNumber(at, text, 31);
    if (text.size() != 1 || text[0] < 'a' || text[0] > 'z') {
        throw BadData(at, "\"" + text + "\" is not a letter from a to z");
    }
    return static_cast<unsigned>(text[0] - 'a' + 3);
}

}  // namespace

OrderKind KindOf(unsigned order) {
    if (order < FirstSymbol) return OrderKind::space;
    if (order < FirstDigit) return OrderKind::symbol;
    if (order < FirstLetter) return OrderKind::digit;
    return order < FirstHan ? OrderKind::letter : OrderKind::han;
}

unsigned char DefaultClassOf(unsigned order) {
    if (order < FirstLetter) return KyClassCommon;
    return order < FirstHan ? KyClassLatin : KyClassHan;
}

ClassAndOrder ReadLetter(DataLine& line) {
    const Place& at = line.At();
    const unsigned orderClass = ParseNumber(at, line.Next("the class"), KyClassHan - 1u);
    if (orderClass < KyClassLatin) throw BadData(at, "letters have the classes 32 to 119");
    const std::string& identity = line.Next("letter and variant");
    const std::size_t point = identity.find('.');
    if (point == std::string::npos) throw BadData(at, "\"" + identity + "\" is not a letter and its variant");
    const unsigned letter = LetterNumber(at, orderClass, identity.substr(0, point));
    const unsigned variant = ParseNumber(at, identity.substr(point + 1), 3);
    const unsigned letterCase = CaseNumber(at, line.Next("the case"));
    const unsigned accent = ParseNumber(at, line.Next("the accent"), 31);
    return {static_cast<unsigned char>(orderClass),
            Order(FirstLetter | letterCase << 12 | accent << 7 | letter << 2 | variant)};
}

std::optional<OrderFields> ReadOrder(DataLine& line, const std::string& kind) {
    if (kind == "space") return ReadCounted(line, OrderKind::space, 0);
    if (kind == "symbol") return ReadCounted(line, OrderKind::symbol, FirstSymbol);
    if (kind == "han") return ReadCounted(line, OrderKind::han, FirstHan);
    if (kind == "digit") return ReadDigit(line);
    if (kind == "letter") return OrderFields{ReadLetter(line), false};
    return std::nullopt;
}

unsigned short CountOn(const Place& at, unsigned short order, unsigned steps) {
    const unsigned counted = order + steps;
    if (counted >= LimitOf(KindOf(order))) throw BadData(at, "the range goes beyond the orders of its kind");
    return Order(counted);
}

}  // namespace ky::tables
