#ifndef LENT_TEXT_H
#define LENT_TEXT_H

#include <cstddef>

#include "code_sets.h"
#include "kystring.h"

namespace ky {

/// The code set of texts without a label: the default 8-bit one.
inline unsigned char UnlabelledCodeSet() {
    const unsigned char codeSet = KyString::GetDefault8CodeSet();
    return CharWidth(codeSet) == 1 ? codeSet : static_cast<unsigned char>(KyCodeSetNative);
}

/// A zero-terminated 8-bit text without a label as a string with one, while this lives, and not copied. The text comes
/// from array new.
class LentText {
public:
    /// A text that is only read.
    explicit LentText(const char* text) : LentText(nullptr, const_cast<char*>(text)) {}
    /// A text that may be changed: `owner` receives what became of it, null for an empty one.
    explicit LentText(char*& owner) : LentText(&owner, owner) {}
    LentText(const LentText&) = delete;
    LentText& operator=(const LentText&) = delete;
    ~LentText() {
        if (home != nullptr) {
            *home = Take(string);
        } else {
            string.buffer = nullptr;
        }
    }

    KyString& operator*() { return string; }
    KyString* operator->() { return &string; }

    /// The text of a string, taken away from it; null for an empty one.
    static char* Take(KyString& from) {
        if (from.IsEmpty()) return nullptr;
        char* taken = from.buffer;
        from.buffer = nullptr;
        from.bufferSize = 0;
        return taken;
    }

private:
    KyString string;
    char** home;

    LentText(char** owner, char* text);
};

}  // namespace ky

#endif
