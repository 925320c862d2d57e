#include <algorithm>

#include "code_mapping.h"
#include "kystring.h"
#include "lasting_string.h"

namespace {

/// What lies beyond the end of every string: labelled with the defaults as they were at load.
const KyString& Beyond() {
    static ky::LastingString empty;
    return empty.Get();
}

[[maybe_unused]] const KyString& beyondAtLoad = Beyond();

}  // namespace

KyString KyString::CopyRange(unsigned pos, unsigned n) const {
    const unsigned length = Len();
    // KEPT: what is copied from beyond the end carries the defaults, not this string's code set and language.
    if (pos >= length) return Beyond();
    const unsigned count = std::min(n, length - pos);
    if (count == 0) return KyString(codeSet, language);
    const unsigned width = ky::CharWidth(codeSet);
    return KyString(codeSet, language, buffer + std::size_t{pos} * width, std::size_t{count} * width);
}

KyString KyString::Copy(unsigned short pos, short n) const { return CopyRange(pos, static_cast<unsigned short>(n)); }
KyString KyString::Left(unsigned short n) const { return CopyRange(0, n); }

KyString KyString::Right(unsigned short n) const {
    const unsigned count = std::min<unsigned>(n, Len());
    return CopyRange(Len() - count, count);
}
