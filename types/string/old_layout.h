#ifndef OLD_LAYOUT_H
#define OLD_LAYOUT_H

/// Arrays in the old layout. Null and empty strings are one zero byte each. 16-bit texts are mapped into the default
/// 8-bit code set, which is what readers will assume; 8-bit texts are written as they are, up to their terminators.
/// Texts of more than 65535 bytes in all raise an assertion, and the last of them are shortened until they fit; of
/// more than 65535 strings the first are written.

#include "byte_sink.h"
#include "string_records.h"

namespace ky {

/// Bytes of the next `count` strings of the walk in the old layout, the length field included.
std::size_t OldLayoutSize(StringWalk walk, unsigned count);

/// Writes them, texts of `sourceForm` into `form`.
void StoreOldLayout(ByteSink& sink, const StringWalk& walk, unsigned char sourceForm, unsigned char form,
                    unsigned count);

}  // namespace ky

#endif
