#ifndef TRANSLATE_BYTES_H
#define TRANSLATE_BYTES_H

#include <cstddef>

namespace ky {

/// A map of 256, from byte to byte.
struct ByteMap {
    unsigned char of[256];
    unsigned char unclear;  ///< a byte that is looked out for; 0: none

    unsigned char operator()(char c) const { return of[static_cast<unsigned char>(c)]; }
};

/// dst[i] = map.of[src[i]] for `size` bytes of a text without zeros. True when `unclear` is among them. `dst` has room
/// for `size` rounded up to 64.
using TranslateBytesKernel = bool(unsigned char* dst, const char* src, std::size_t size, const ByteMap& map);

TranslateBytesKernel TranslateBytes;

TranslateBytesKernel TranslateBytesAny;
TranslateBytesKernel TranslateBytesAvx512;

/// The first is for any machine.
struct TranslateBytesVariant {
    const char* name;
    TranslateBytesKernel* translate;
};
inline constexpr int kTranslateBytesVariants = 2;
extern const TranslateBytesVariant kTranslateBytes[kTranslateBytesVariants];
int RunnableTranslateBytes();

}  // namespace ky

#endif
