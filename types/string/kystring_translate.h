#ifndef KYSTRING_TRANSLATE_H
#define KYSTRING_TRANSLATE_H

/// Index keys.
///
/// A key is what Translate writes for one string into a destination of 253 bytes: the string's record, or as much of
/// it as fits. Its length field tells of the whole record, by which readers see that a key is cut short; Compare orders
/// such keys.
///
/// Where the configuration has a non-zero "oldIndexUnicodeOrder", keys of Unicode strings are order texts instead, as
/// older databases hold them: the order values of the string's characters without their classes, so that scripts
/// share their letters and interleave. They are marked where something is lost by that, and where they are cut. Where
/// there is no memory to make one, no byte is written, and Translate returns 0.

#include <atomic>
#include <cstddef>

namespace ky {

inline constexpr unsigned kIndexKeyBytes = 253;
/// Order values in a key at most: the rest of the record takes 6 bytes.
inline constexpr std::size_t kMostKeyOrders = 123;

/// Keys of Unicode strings are their records (1) or order texts (0); -1: the configuration was not asked yet. It is
/// asked once a process, since keys of the two kinds must not meet in one index.
extern constinit std::atomic<int> unicodeKeysAreRecords;

}  // namespace ky

#endif
