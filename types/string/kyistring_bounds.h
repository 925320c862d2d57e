#ifndef KYISTRING_BOUNDS_H
#define KYISTRING_BOUNDS_H

/// EvalAndBound of the dictionary strings: ranges are measured by the first four bytes of keys.
///
/// The operator word comes back without its modifier bits (AND 0x800F), none of which is looked at. A constant with a
/// "*", "?" or backslash is a pattern, and bit 0x0008 is set in the word: the share is that of the texts that begin as
/// it does, and what is recorded is a copy of the whole constant nevertheless. A caller who sees the bit descends an
/// index with the text before that character alone. Of a pattern that begins with such a character nothing is recorded:
/// it keeps everything.
///
/// Limits may be texts or keys. A missing lower limit counts as 0, a missing upper one as FFFFFFFF.

#include "kytypes.h"

KyEvalAndBoundFunc KyIStringEvalAndBound;
KyEvalAndBoundFunc KyCaseIStringEvalAndBound;

#endif
