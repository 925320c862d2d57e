#ifndef STRING_BOUNDS_TEXT_H
#define STRING_BOUNDS_TEXT_H

/// Persistent strings as EvalAndBound reads them.

#include <cstddef>

#include "key_reader.h"
#include "string_records.h"

namespace ky {

/// The flag of persistent operands: low byte first unless it says otherwise.
constexpr unsigned char PersistentFlag(unsigned char flag) {
    const bool reversed = FormOf(flag) == KyFormReversed;
    return static_cast<unsigned char>((flag & kCurrentLayout) | (reversed ? KyFormReversed : KyFormNative));
}

/// The first string of the `length` bytes at `array`, 0: of as many as its length field says. No text where that or
/// the label are not all there, or `array` is null.
inline StoredText FirstStored(const void* array, std::size_t length, unsigned char persistentFlag, LayoutRule rule) {
    return StringWalk(array, length, persistentFlag, rule).Current();
}

/// A stored string with a terminator behind it. A null one reads as empty.
class BoundText {
public:
    explicit BoundText(const StoredText& s) : stored(s), copy(s) {}

    bool IsThere() const { return stored.text != nullptr; }
    /// There was no memory for the text; it reads as empty.
    bool IsLost() const { return copy.Text() == nullptr; }
    const StoredText& Stored() const { return stored; }
    const char* Text() const { return stored.IsNull() || IsLost() ? kNothing : copy.Text(); }
    std::size_t Characters() const { return stored.IsNull() ? 0 : stored.Characters(); }

    TextView View(unsigned char form, bool neutral) const {
        return {Text(), stored.codeSet, neutral ? KyLanguageNeutral : stored.ReadingLanguage(), form};
    }

private:
    static constexpr char kNothing[2] = {};

    StoredText stored;
    TerminatedText copy;
};

}  // namespace ky

#endif
