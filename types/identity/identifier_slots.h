#ifndef IDENTIFIER_SLOTS_H
#define IDENTIFIER_SLOTS_H

/// The slot functions of the identifiers that are no members of their classes.

#include "counted_array.h"
#include "kyobjid.h"
#include "kytypes.h"

// --- KyObjId ---
KyConstructorFunc KyObjIdConstructor;  ///< nulls
KyDestructorFunc KyObjIdDestructor;
// The fields alone: of the last object id not the bytes behind it.
KyAssignmentFunc KyObjIdAssignment;
inline constexpr KyCopyFunc* KyObjIdCopy = &KyObjIdAssignment;
KyIsNullFunc KyObjIdIsNull;
KySetNullFunc KyObjIdSetNull;  ///< B becomes 0, too
inline constexpr KyDefaultValueFunc* KyObjIdDefaultValue = &ky::CountedDefaultValue<KyObjId>;
/// The next object number; the highest has none. Other selectors than stepping are not supported.
KyGetValueFunc KyGetValueKyObjId;

// --- KyClassId ---
KyConstructorFunc KyClassIdConstructor;  ///< 0 v 0
inline constexpr KyDestructorFunc* KyClassIdDestructor = &KyObjIdDestructor;
KyAssignmentFunc KyClassIdAssignment;
inline constexpr KyCopyFunc* KyClassIdCopy = &KyClassIdAssignment;
KyIsNullFunc KyClassIdIsNull;
KySetNullFunc KyClassIdSetNull;
KyDefaultValueFunc KyClassIdDefaultValue;  ///< `which` 0: 0 v 0; else null

// --- KyRef ---
KyConstructorFunc KyRefConstructor;  ///< nulls
inline constexpr KyDestructorFunc* KyRefDestructor = &KyObjIdDestructor;
KyAssignmentFunc KyRefAssignment;
inline constexpr KyCopyFunc* KyRefCopy = &KyRefAssignment;
// A reference begins with its object id.
inline constexpr KyIsNullFunc* KyRefIsNull = &KyObjIdIsNull;
KySetNullFunc KyRefSetNull;  ///< every field becomes 0
inline constexpr KyDefaultValueFunc* KyRefDefaultValue = &ky::CountedDefaultValue<KyRef>;
inline constexpr KyGetValueFunc* KyGetValueKyRef = &KyGetValueKyObjId;

#endif
