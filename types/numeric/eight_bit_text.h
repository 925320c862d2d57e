#ifndef EIGHT_BIT_TEXT_H
#define EIGHT_BIT_TEXT_H

#include "kyi18n.h"
#include "kystring.h"

namespace ky {

/// What `read` gives for a string of 8-bit characters, in which numbers are read: `text` itself where it is one, else
/// a copy in the default 8-bit code set, which ends with the call. `Text` is `KyString`, const or not.
template <class Text, class Read>
auto ReadAsEightBit(Text& text, Read read) {
    if (text.CodeSetGet() < KyCodeSetFirst16Bit) return read(text);
    KyString copy;
    copy.CopyMapped(text, KyString::GetDefault8CodeSet(), -1);
    return read(copy);
}

}  // namespace ky

#endif
