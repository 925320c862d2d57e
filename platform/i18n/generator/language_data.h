#ifndef LANGUAGE_DATA_H
#define LANGUAGE_DATA_H

/// The languages as the data describes them.

#include "characters.h"

namespace ky::tables {

/// What differs from the neutral order: a character, or several that count as one.
struct Tailoring {
    Place at;
    Codes sequence;
    unsigned char orderClass = 0;
    unsigned short order = 0;
    std::vector<Codes> then;  ///< sequences of the language whose orders follow
    Codes expansion;          ///< the orders of `then`
};

struct LanguageData {
    Place at;
    unsigned char number = 0;
    std::string tag;
    std::string name;
    std::string asTag;  ///< the language whose order this one has; empty: its own
    std::vector<Tailoring> tailorings;

    /// The number by which records know what differs in this language; 0: nothing does.
    unsigned char variant = 0;
};

/// Reads the folder `languages`. Sorted by number.
std::vector<LanguageData> ReadLanguages(const std::filesystem::path& folder, const Characters& characters);

}  // namespace ky::tables

#endif
