#ifndef STRING_BOUNDS_H
#define STRING_BOUNDS_H

/// EvalAndBound of the string rows: the share of a range of strings that a comparison keeps, and the limits that it
/// sets.
///
/// The operator word comes back without its modifier bits (AND 0x800F). With neither 0x10 nor 0x100 among them the
/// constant may be a pattern: it then stands for all texts that begin as it does before its first wildcard or escape.
///
/// What is recorded of a constant that is no pattern is a copy of its records, terminators and end markers included. Of
/// a pattern it is one lower limit, a record of that beginning; none where it is empty. A pattern sets no upper limit,
/// since "abc*" itself orders before "abcz", nor is the pattern a lower limit, since it orders behind "abc". A limit
/// may be wider than the comparison, never narrower. It serves an index that is searched with the same modifiers: those
/// that ignore case or accents find what they mean in the order that ignores them, too.
///
/// Limits are read as far as their 8-bit lengths reach; a length of 0 means as many bytes as the record says. A missing
/// lower limit counts as the empty text, a missing upper one as the last text of all. A null constant counts as empty.
/// Of an array the first string is estimated, all are recorded.

#include "kytypes.h"

KyEvalAndBoundFunc StringEvalAndBound;
KyEvalAndBoundFunc StringOldEvalAndBound;

/// `oldFormat` 1: of the old row. Raises the assertion "actualLen <= 254" for a constant that no index holds whole, and
/// goes on.
float StringEvalAndBoundCommon(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                               KyIdxBounds* out, unsigned short oldFormat);

#endif
