#ifndef EIGHT_BIT_TEXT_H
#define EIGHT_BIT_TEXT_H

#include "kyi18n.h"
#include "kystring.h"

namespace ky {

/// A string's characters as 8-bit text, in which numbers are read: the string's own where it is an 8-bit one,
/// else those of a copy in the default 8-bit code set. The string has to outlive it, unchanged.
class EightBitText {
public:
    explicit EightBitText(const KyString& text) {
        if (text.CodeSetGet() < KyCodeSetFirst16Bit) {
            start = text.StrGet();
            readable = text.BufferSizeGet();
        } else {
            copy.CopyMapped(text, KyString::GetDefault8CodeSet(), -1);
            start = copy.StrGet();
            readable = copy.BufferSizeGet();
        }
    }

    EightBitText(const EightBitText&) = delete;
    EightBitText& operator=(const EightBitText&) = delete;

    /// Zero-terminated, never null.
    const char* Get() const { return start; }
    /// How many bytes from there on are the string's; none where it has no buffer.
    unsigned Readable() const { return readable; }

private:
    KyString copy{KyCodeSetNative, KyLanguageNeutral};
    const char* start;
    unsigned readable;
};

}  // namespace ky

#endif
