#ifndef CODE_MAP_KERNELS_H
#define CODE_MAP_KERNELS_H

/// The loops that take texts between 8-bit code sets and 16-bit units by table. The one from bytes exists in two
/// variants, for any x86-64 and for AVX-512; the loader picks one for the machine at hand. Exactly the results are
/// written.

#include <cstddef>

#include "kyi18n.h"

namespace ky {

/// The unit of each of `count` bytes that are not zero, to any address. `table`: the units of the 256 bytes, ASCII
/// being itself; 0: no character, for which `KyCodeSet::Substitute` is written. Null: every byte is its unit.
using BytesToUnitsKernel = void(const unsigned short* table, const char* bytes, std::size_t count, char* units);

BytesToUnitsKernel BytesToUnits, BytesToUnitsAny, BytesToUnitsAvx512;
bool RunsBytesToUnitsAvx512();

/// The byte of each of `count` units at any address. `map` knows the bytes, ASCII being itself; null: every unit below
/// 0x100 is its byte. `substitute`: the byte of all others.
void UnitsToBytes(const KyUnicodeMap* map, const char* units, std::size_t count, char* bytes, char substitute);

/// Units before the first zero unit, `count` when there is none. All of them are readable, at any address.
std::size_t UnitsBeforeZero(const char* units, std::size_t count);

}  // namespace ky

#endif
