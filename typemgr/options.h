#ifndef OPTIONS_H
#define OPTIONS_H

/// What this library reads of the options block that the engine fills.

namespace ky {

/// Whether 8-bit texts convert to integers in base 10, whatever prefix they begin with.
bool NumbersAreBase10();

}  // namespace ky

#endif
