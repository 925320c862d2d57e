#ifndef KYTM_DATE_TEXTS_H
#define KYTM_DATE_TEXTS_H

/// Texts of dates, times and spans.

#include <string_view>

namespace kytm {

/// Of the nine types that are printed and scanned by the directives of dates.
bool IsDateType(char id);

/// Whether the numbers of a text are those of another, in their order: `printed` is the text of the value that was
/// read from `given`, by the same format.
///
/// Signs, leading zeros and all that is no number do not count. A "*" is the number -1. Where the value's text leaves
/// a zero out, the given one may have it. Fractions are equal when their values are; the ninth digit may differ by one,
/// as "%f" reads binary fractions and truncates.
bool SameNumbers(std::string_view given, std::string_view printed);

}  // namespace kytm

#endif
