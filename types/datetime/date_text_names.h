#ifndef DATE_TEXT_NAMES_H
#define DATE_TEXT_NAMES_H

/// Names of months and weekdays in texts. The tables may be written by applications: names of any length.

#include <bit>

namespace ky {

/// Letters by which a name is known, and that its short form has.
inline constexpr unsigned kShortName = 3;

inline const char* ShortNameEnd(const char* name) {
    unsigned length = 0;
    while (length < kShortName && name[length] != 0) ++length;
    return name + length;
}

/// The first name of the table that a text begins with, or -1. All of the name that the text agrees with is read. A
/// shorter name than a short one has to be there as a whole, an empty one never is.
inline int TakeName(const char*& text, const char* const* names, int count) {
    if (*text == 0) return -1;
    // All first letters are looked at, so that no branch depends on which name it is.
    unsigned candidates = 0;
    for (int i = 0; i < count; ++i) candidates |= (*names[i] == *text ? 1U : 0U) << i;
    for (; candidates != 0; candidates &= candidates - 1) {
        const int index = std::countr_zero(candidates);
        const char* const name = names[index];
        unsigned length = 1;
        while (name[length] == text[length] && name[length] != 0) ++length;
        if (length >= kShortName || name[length] == 0) {
            text += length;
            return index;
        }
    }
    return -1;
}

}  // namespace ky

#endif
