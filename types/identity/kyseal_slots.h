#ifndef KYSEAL_SLOTS_H
#define KYSEAL_SLOTS_H

/// The slot functions of `KySeal`.
///
/// Persistent form: 6 bytes a value, the number with its most significant byte first, whatever the flag.
// KEPT: one byte order in all forms, so that the bytes of stored seals order as their numbers do.

#include "array_rules.h"
#include "counted_array.h"
#include "kyseal.h"
#include "kytypes.h"
#include "number_arrays.h"

KyStoreFunc SealStore;
KyLoadFunc SealLoad;
unsigned SealNullSizeGet(unsigned count);
KySizeGetFunc SealSizeGet;  ///< the value is not read and may be null
KySizeGetFromMemFileFunc SealSizeGetFromMemFile;

inline constexpr KyCreateFunc* SealCreate = &ky::CountedCreate<KySeal>;
inline constexpr KyDeleteFunc* SealDelete = &ky::CountedDelete<KySeal>;
inline constexpr KyDefaultValueFunc* SealDefaultValue = &ky::CountedDefaultValue<KySeal>;

/// The difference of the first words that differ in memory form, of the first bytes in a stored one.
KyCompareFunc SealCompare;
/// Frozen, persistent; the same in all forms. The factor of all hashes times the XOR of the elements, of each of which
/// counts: its low 32 bits XOR its high 16.
KyHashFunc SealHash;
/// A missing lower limit is 0, a missing upper one the highest seal.
KyEvalAndBoundFunc SealEvalAndBound;

KyConvertToFunc SealConvertToKyString;
KyConvertFromFunc SealConvertFromKyString;
KyPrintFunc SealPrintToKyString;  ///< the first value, by `KySeal::sealFmt`; the format does not matter
KyScanFunc SealScanFromKyString;  ///< the same; a null value pointer gives null back

struct SealLSHelper {
    using Element = KySeal;
    static constexpr auto* Store = &SealStore;
    static constexpr auto* Load = &SealLoad;
    static constexpr auto* SizeGet = &SealSizeGet;
};

inline constexpr KyConstructorFunc* SealConstructor = &ky::NumberConstructor<SealLSHelper>;
inline constexpr KyDestructorFunc* SealDestructor = &ky::NumberDestructor;
inline constexpr KyAssignmentFunc* SealAssignment = &ky::AssignArray<KySeal>;
inline constexpr KyCopyFunc* SealCopy = &ky::AssignArray<KySeal>;
inline constexpr KyTranslateFunc* SealTranslate = &ky::TranslateArray<SealLSHelper>;

#endif
