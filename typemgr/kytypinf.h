#ifndef KYTYPINF_H
#define KYTYPINF_H

/// What an engine finds by name after it has loaded the library.

#include "kyexport.h"

extern "C" {

/// The options block: 16 bytes, zero at load, filled by the engine. Bit 0 of the first byte set: the
/// number conversions of `KyString` read 8-bit text in base 10 instead of taking the base from the text.
KY_EXPORT void* ___KyTypeMgrOptions();
}

#endif
