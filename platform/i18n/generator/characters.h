#ifndef CHARACTERS_H
#define CHARACTERS_H

/// The characters of the 16-bit plane as the data describes them.

#include <map>

#include "data_line.h"
#include "order_fields.h"

namespace ky::tables {

using Codes = std::vector<unsigned short>;

struct Character {
    Place at;
    unsigned char orderClass = 0;
    unsigned short order = 0;
    unsigned short upper = 0;       ///< 0: the character itself
    unsigned short lower = 0;       ///< 0: the character itself
    Codes upperExpansion;           ///< codes behind `upper`
    Codes then;                     ///< characters whose orders follow
    Codes expansion;                ///< the orders of `then`
    unsigned short equivalent = 0;  ///< the character whose place in the order this one shares
    bool syllable = false;          ///< class, order and expansion come from its parts
};

/// By code.
using Characters = std::map<unsigned short, Character>;

/// Reads the folder `characters` and resolves what its lines say of other lines.
Characters ReadCharacters(const std::filesystem::path& folder);

/// The character of a code that a line names.
const Character& Find(const Characters& characters, unsigned short code, const Place& at);

/// The orders of the characters of an expansion. They have none of their own, and their classes are those with which
/// the second and further orders of an expanding character of this class and order are compared.
class ExpansionRule {
public:
    ExpansionRule(Place where, unsigned char orderClass, unsigned short order);
    /// Refuses a part that may not stand in the expansion.
    void Check(unsigned char partClass, unsigned short partOrder, bool partExpands) const;

private:
    Place at;
    unsigned char letterClass;
};

}  // namespace ky::tables

#endif
