#ifndef STRING_COMPARE_H
#define STRING_COMPARE_H

/// Comparison of two texts key by key, without wildcards. Results are the difference of the first keys that differ
/// under `mask`, or 0.

#include "key_reader.h"

namespace ky {

/// Whole texts in the 8-bit code set and the language of the table.
int CompareByTable(const KeyTable& table, const char* a, const char* b, unsigned mask);

/// Whole Unicode texts of one language, in one byte order.
int CompareByPages(KeyPages pages, const char* a, const char* b, unsigned char format, unsigned mask);

/// Any texts, up to `limit` orders. A text of order values brings both into the default classes.
int CompareKeys(TextView a, TextView b, unsigned limit, unsigned mask);

}  // namespace ky

#endif
