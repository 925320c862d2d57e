#ifndef KYTM_IDENTIFIER_SHAPE_H
#define KYTM_IDENTIFIER_SHAPE_H

#include <string_view>

namespace kytm {

/// The types whose scan looks at nothing but the numbers of a text.
bool IsIdentifier(char id);

enum class IdentifierFault { none, otherForm, tooLarge };

/// Whether a text is what a format of identifiers describes, beside blanks and parentheses, and each of its numbers
/// fits the field that it stands for.
IdentifierFault CheckIdentifier(std::string_view text, std::string_view format);

}  // namespace kytm

#endif
