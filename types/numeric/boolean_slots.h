#ifndef BOOLEAN_SLOTS_H
#define BOOLEAN_SLOTS_H

/// The slot functions of `KyBoolean`. Persistent form: the byte as it stands.

#include "counted_array.h"
#include "kyboolean.h"
#include "kytypes.h"
#include "number_slots.h"

inline constexpr KyCreateFunc* BooleanCreate = &ky::CountedCreate<KyBoolean>;
inline constexpr KyDeleteFunc* BooleanDelete = &ky::CountedDelete<KyBoolean>;
inline constexpr KyDefaultValueFunc* BooleanDefaultValue = &ky::CountedDefaultValue<KyBoolean>;

// As bytes they are stored, hashed and moved like `o_char`: null hashes as -1.
inline constexpr KyStoreFunc* BooleanStore = &CharStore;
inline constexpr KyLoadFunc* BooleanLoad = &CharStore;
inline constexpr KyNullSizeGetFunc* BooleanNullSizeGet = &CharNullSizeGet;
inline constexpr KySizeGetFunc* BooleanSizeGet = &CharSizeGet;
inline constexpr KySizeGetFromMemFileFunc* BooleanSizeGetFromMemFile = CharSizeGetFromMemFile;
inline constexpr KyHashFunc* BooleanHash = CharHash;
inline constexpr KyConstructorFunc* BooleanConstructor = CharConstructor;
inline constexpr KyDestructorFunc* BooleanDestructor = CharDestructor;
inline constexpr KyAssignmentFunc* BooleanAssignment = CharAssignment;
inline constexpr KyCopyFunc* BooleanCopy = CharCopy;
inline constexpr KyTranslateFunc* BooleanTranslate = CharTranslate;

/// Null, false, true; bytes of one truth value are equal, others ordered as signed numbers.
KyCompareFunc BooleanCompare;
/// A third of any range, whatever is asked. Limits are recorded as for numbers.
KyEvalAndBoundFunc BooleanEvalAndBound;

KyIsNullFunc KyBooleanIsNull;
KySetNullFunc KyBooleanSetNull;

KyConvertToFunc BooleanConvertToKyString;  ///< "1", "0" or a null string
/// Null without a text; else true exactly when the text begins with "1".
KyConvertFromFunc BooleanConvertFromKyString;

/// The null print string, "TRUE" or "FALSE"; the format does not matter.
// KEPT: only the byte 1 prints as true, whatever counts as true in comparisons.
KyPrintFunc BooleanPrintToKyString;
/// Null for a text that begins with the null print string; true for exactly "T", "t", "TRUE", "true" and "1"; false
/// for any other, "True" included. The format does not matter. A null value pointer gives null back.
KyScanFunc BooleanScanFromKyString;

/// Null steps to false, false to true; true has no successor. Other selectors are not supported.
KyGetValueFunc KyGetValueKyBoolean;

#endif
