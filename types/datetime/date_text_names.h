#ifndef DATE_TEXT_NAMES_H
#define DATE_TEXT_NAMES_H

/// Names of months and weekdays in texts. The tables may be written by applications: names of any length.

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
    for (int i = 0; i < count; ++i) {
        const char* const name = names[i];
        unsigned length = 0;
        while (name[length] != 0 && name[length] == text[length]) ++length;
        if (length >= kShortName || (length != 0 && name[length] == 0)) {
            text += length;
            return i;
        }
    }
    return -1;
}

}  // namespace ky

#endif
