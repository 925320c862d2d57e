#include "kybase.h"

unsigned CharNullSizeGet(unsigned count) { return count; }
unsigned ShortNullSizeGet(unsigned count) { return 2 * count; }
unsigned LongNullSizeGet(unsigned count) { return 4 * count; }
unsigned O_8BNullSizeGet(unsigned count) { return 8 * count; }
unsigned FloatNullSizeGet(unsigned count) { return 4 * count; }
unsigned DoubleNullSizeGet(unsigned count) { return 8 * count; }
unsigned IntNullSizeGet(unsigned count) { return 4 * count; }

unsigned CharSizeGet(const void*, unsigned char, unsigned char, unsigned count) { return CharNullSizeGet(count); }
unsigned ShortSizeGet(const void*, unsigned char, unsigned char, unsigned count) { return ShortNullSizeGet(count); }
unsigned LongSizeGet(const void*, unsigned char, unsigned char, unsigned count) { return LongNullSizeGet(count); }
unsigned O_8BSizeGet(const void*, unsigned char, unsigned char, unsigned count) { return O_8BNullSizeGet(count); }
unsigned FloatSizeGet(const void*, unsigned char, unsigned char, unsigned count) { return FloatNullSizeGet(count); }
unsigned DoubleSizeGet(const void*, unsigned char, unsigned char, unsigned count) { return DoubleNullSizeGet(count); }
unsigned IntSizeGet(const void*, unsigned char, unsigned char, unsigned count) { return IntNullSizeGet(count); }
