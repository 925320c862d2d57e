#ifndef KYTM_LINE_MATCHER_H
#define KYTM_LINE_MATCHER_H

/// Texts against one pattern, by the system's string comparer.

#include <string>
#include <string_view>

#include "text_form.h"

namespace kytm {

/// "*" stands for any run of characters, "?" for one, and a backslash takes the meaning from the next character. With
/// an exact bit in the compare word the pattern means itself.
class LineMatcher {
public:
    /// `anywhere`: a part of a text is enough. Throws `Failure` for a pattern that `TextForm` cannot read and for what
    /// `TextOptions` refuses.
    LineMatcher(const std::string& givenPattern, const TextOptions& options, unsigned short word, bool anywhere);

    /// Null when `Matches` now tells about this text; else the reason why the text could not be read.
    const char* Test(std::string_view text);
    bool Matches() const { return matches; }

private:
    TextForm form;
    unsigned short op;
    bool isLiteralPart;  ///< of bytes, which have no escape: searched for byte by byte
    KyString pattern;
    bool matches = false;
};

}  // namespace kytm

#endif
