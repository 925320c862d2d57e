#ifndef DATE_SLOTS_H
#define DATE_SLOTS_H

/// The slot functions of the date and time types, for their rows; print and scan are those of `date_text_slots.h`. A
/// type's name stands before the slot's: `KyDateCompare`.

#include "date_facts.h"
#include "date_getvalue.h"
#include "date_measures.h"
#include "date_order.h"
#include "date_store.h"
#include "date_values.h"
#include "kytypes.h"

// --- KyDate ---
inline constexpr KyCreateFunc* KyDateCreate = ky::DateValues<KyDate>::Create;
inline constexpr KyDeleteFunc* KyDateDelete = ky::DateValues<KyDate>::Delete;
inline constexpr KyStoreFunc* KyDateStore = &ky::DateStore<KyDate>;
inline constexpr KyLoadFunc* KyDateLoad = &ky::DateLoad<KyDate>;
inline constexpr KyNullSizeGetFunc* KyDateNullSizeGet = &ky::DateNullSizeGet<KyDate>;
inline constexpr KySizeGetFunc* KyDateSizeGet = &ky::DateSizeGet<KyDate>;
inline constexpr KySizeGetFromMemFileFunc* KyDateSizeGetFromMemFile = &ky::DateSizeGetFromMemFile<KyDate>;
inline constexpr KyCompareFunc* KyDateCompare = &ky::DateCompare<KyDate>;
inline constexpr KyEvalAndBoundFunc* KyDateEvalAndBound = ky::DateEvalAndBound<KyDate>();
inline constexpr KyHashFunc* KyDateHash = &ky::DateHash<KyDate>;
inline constexpr KyConvertToFunc* KyDateConvertToKyString = &ky::DateConvertToKyString<ky::KyDateText>;
inline constexpr KyConvertFromFunc* KyDateConvertFromKyString = &ky::DateConvertFromKyString<ky::KyDateText>;
inline constexpr KyConstructorFunc* KyDateConstructor = &ky::DateValues<KyDate>::Constructor;
inline constexpr KyDestructorFunc* KyDateDestructor = &ky::DateValues<KyDate>::Destructor;
inline constexpr KyAssignmentFunc* KyDateAssignment = ky::DateValues<KyDate>::Assignment;
inline constexpr KyCopyFunc* KyDateCopy = &ky::DateValues<KyDate>::Copy;
inline constexpr KyTranslateFunc* KyDateTranslate = ky::kDateTranslate<KyDate>;
inline constexpr KyIsNullFunc* KyDateIsNull = &ky::DateValues<KyDate>::IsNull;
inline constexpr KySetNullFunc* KyDateSetNull = &ky::DateValues<KyDate>::SetNull;
inline constexpr KyDefaultValueFunc* KyDateDefaultValue = &ky::DateDefaultValue<ky::KyDateText>;
inline constexpr KyGetValueFunc* KyGetValueKyDate = &ky::DateGetValue<KyDate>;

// --- KyTime ---
inline constexpr KyCreateFunc* KyTimeCreate = ky::DateValues<KyTime>::Create;
inline constexpr KyDeleteFunc* KyTimeDelete = ky::DateValues<KyTime>::Delete;
inline constexpr KyStoreFunc* KyTimeStore = &ky::DateStore<KyTime>;
inline constexpr KyLoadFunc* KyTimeLoad = &ky::DateLoad<KyTime>;
inline constexpr KyNullSizeGetFunc* KyTimeNullSizeGet = &ky::DateNullSizeGet<KyTime>;
inline constexpr KySizeGetFunc* KyTimeSizeGet = &ky::DateSizeGet<KyTime>;
inline constexpr KySizeGetFromMemFileFunc* KyTimeSizeGetFromMemFile = &ky::DateSizeGetFromMemFile<KyTime>;
inline constexpr KyCompareFunc* KyTimeCompare = &ky::DateCompare<KyTime>;
inline constexpr KyEvalAndBoundFunc* KyTimeEvalAndBound = ky::DateEvalAndBound<KyTime>();
inline constexpr KyHashFunc* KyTimeHash = &ky::DateHash<KyTime>;
inline constexpr KyConvertToFunc* KyTimeConvertToKyString = &ky::DateConvertToKyString<ky::KyTimeText>;
inline constexpr KyConvertFromFunc* KyTimeConvertFromKyString = &ky::DateConvertFromKyString<ky::KyTimeText>;
inline constexpr KyConstructorFunc* KyTimeConstructor = &ky::DateValues<KyTime>::Constructor;
inline constexpr KyDestructorFunc* KyTimeDestructor = &ky::DateValues<KyTime>::Destructor;
inline constexpr KyAssignmentFunc* KyTimeAssignment = ky::DateValues<KyTime>::Assignment;
inline constexpr KyCopyFunc* KyTimeCopy = &ky::DateValues<KyTime>::Copy;
inline constexpr KyTranslateFunc* KyTimeTranslate = ky::kDateTranslate<KyTime>;
inline constexpr KyIsNullFunc* KyTimeIsNull = &ky::DateValues<KyTime>::IsNull;
inline constexpr KySetNullFunc* KyTimeSetNull = &ky::DateValues<KyTime>::SetNull;
inline constexpr KyDefaultValueFunc* KyTimeDefaultValue = &ky::DateDefaultValue<ky::KyTimeText>;
inline constexpr KyGetValueFunc* KyGetValueKyTime = &ky::DateGetValue<KyTime>;

// --- KyDateTime ---
inline constexpr KyCreateFunc* KyDateTimeCreate = ky::DateValues<KyDateTime>::Create;
inline constexpr KyDeleteFunc* KyDateTimeDelete = ky::DateValues<KyDateTime>::Delete;
inline constexpr KyStoreFunc* KyDateTimeStore = &ky::DateStore<KyDateTime>;
inline constexpr KyLoadFunc* KyDateTimeLoad = &ky::DateLoad<KyDateTime>;
inline constexpr KyNullSizeGetFunc* KyDateTimeNullSizeGet = &ky::DateNullSizeGet<KyDateTime>;
inline constexpr KySizeGetFunc* KyDateTimeSizeGet = &ky::DateSizeGet<KyDateTime>;
inline constexpr KySizeGetFromMemFileFunc* KyDateTimeSizeGetFromMemFile = &ky::DateSizeGetFromMemFile<KyDateTime>;
inline constexpr KyCompareFunc* KyDateTimeCompare = &ky::DateCompare<KyDateTime>;
inline constexpr KyEvalAndBoundFunc* KyDateTimeEvalAndBound = ky::DateEvalAndBound<KyDateTime>();
inline constexpr KyHashFunc* KyDateTimeHash = &ky::DateHash<KyDateTime>;
inline constexpr KyConvertToFunc* KyDateTimeConvertToKyString = &ky::DateConvertToKyString<ky::KyDateTimeText>;
inline constexpr KyConvertFromFunc* KyDateTimeConvertFromKyString = &ky::DateConvertFromKyString<ky::KyDateTimeText>;
inline constexpr KyConstructorFunc* KyDateTimeConstructor = &ky::DateValues<KyDateTime>::Constructor;
inline constexpr KyDestructorFunc* KyDateTimeDestructor = &ky::DateValues<KyDateTime>::Destructor;
inline constexpr KyAssignmentFunc* KyDateTimeAssignment = ky::DateValues<KyDateTime>::Assignment;
inline constexpr KyCopyFunc* KyDateTimeCopy = &ky::DateValues<KyDateTime>::Copy;
inline constexpr KyTranslateFunc* KyDateTimeTranslate = ky::kDateTranslate<KyDateTime>;
inline constexpr KyIsNullFunc* KyDateTimeIsNull = &ky::DateValues<KyDateTime>::IsNull;
inline constexpr KySetNullFunc* KyDateTimeSetNull = &ky::DateValues<KyDateTime>::SetNull;
inline constexpr KyDefaultValueFunc* KyDateTimeDefaultValue = &ky::DateDefaultValue<ky::KyDateTimeText>;
inline constexpr KyGetValueFunc* KyGetValueKyDateTime = &ky::DateGetValue<KyDateTime>;

// --- KyDateTimeN ---
inline constexpr KyCreateFunc* KyDateTimeNCreate = ky::DateValues<KyDateTimeN>::Create;
inline constexpr KyDeleteFunc* KyDateTimeNDelete = ky::DateValues<KyDateTimeN>::Delete;
inline constexpr KyStoreFunc* KyDateTimeNStore = &ky::DateStore<KyDateTimeN>;
inline constexpr KyLoadFunc* KyDateTimeNLoad = &ky::DateLoad<KyDateTimeN>;
inline constexpr KyNullSizeGetFunc* KyDateTimeNNullSizeGet = &ky::DateNullSizeGet<KyDateTimeN>;
inline constexpr KySizeGetFunc* KyDateTimeNSizeGet = &ky::DateSizeGet<KyDateTimeN>;
inline constexpr KySizeGetFromMemFileFunc* KyDateTimeNSizeGetFromMemFile = &ky::DateSizeGetFromMemFile<KyDateTimeN>;
inline constexpr KyCompareFunc* KyDateTimeNCompare = &ky::DateCompare<KyDateTimeN>;
inline constexpr KyEvalAndBoundFunc* KyDateTimeNEvalAndBound = ky::DateEvalAndBound<KyDateTimeN>();
inline constexpr KyHashFunc* KyDateTimeNHash = &ky::DateHash<KyDateTimeN>;
inline constexpr KyConvertToFunc* KyDateTimeNConvertToKyString = &ky::DateConvertToKyString<ky::KyDateTimeNText>;
inline constexpr KyConvertFromFunc* KyDateTimeNConvertFromKyString = &ky::DateConvertFromKyString<ky::KyDateTimeNText>;
inline constexpr KyConstructorFunc* KyDateTimeNConstructor = &ky::DateValues<KyDateTimeN>::Constructor;
inline constexpr KyDestructorFunc* KyDateTimeNDestructor = &ky::DateValues<KyDateTimeN>::Destructor;
inline constexpr KyAssignmentFunc* KyDateTimeNAssignment = ky::DateValues<KyDateTimeN>::Assignment;
inline constexpr KyCopyFunc* KyDateTimeNCopy = &ky::DateValues<KyDateTimeN>::Copy;
inline constexpr KyTranslateFunc* KyDateTimeNTranslate = ky::kDateTranslate<KyDateTimeN>;
inline constexpr KyIsNullFunc* KyDateTimeNIsNull = &ky::DateValues<KyDateTimeN>::IsNull;
inline constexpr KySetNullFunc* KyDateTimeNSetNull = &ky::DateValues<KyDateTimeN>::SetNull;
inline constexpr KyDefaultValueFunc* KyDateTimeNDefaultValue = &ky::DateDefaultValue<ky::KyDateTimeNText>;
inline constexpr KyGetValueFunc* KyGetValueKyDateTimeN = &ky::DateGetValue<KyDateTimeN>;

// --- KyTimeSpan ---
inline constexpr KyCreateFunc* KyTimeSpanCreate = ky::DateValues<KyTimeSpan>::Create;
inline constexpr KyDeleteFunc* KyTimeSpanDelete = ky::DateValues<KyTimeSpan>::Delete;
inline constexpr KyStoreFunc* KyTimeSpanStore = &ky::DateStore<KyTimeSpan>;
inline constexpr KyLoadFunc* KyTimeSpanLoad = &ky::DateLoad<KyTimeSpan>;
inline constexpr KyNullSizeGetFunc* KyTimeSpanNullSizeGet = &ky::DateNullSizeGet<KyTimeSpan>;
inline constexpr KySizeGetFunc* KyTimeSpanSizeGet = &ky::DateSizeGet<KyTimeSpan>;
inline constexpr KySizeGetFromMemFileFunc* KyTimeSpanSizeGetFromMemFile = &ky::DateSizeGetFromMemFile<KyTimeSpan>;
inline constexpr KyCompareFunc* KyTimeSpanCompare = &ky::DateCompare<KyTimeSpan>;
inline constexpr KyEvalAndBoundFunc* KyTimeSpanEvalAndBound = ky::DateEvalAndBound<KyTimeSpan>();
inline constexpr KyHashFunc* KyTimeSpanHash = &ky::DateHash<KyTimeSpan>;
inline constexpr KyConvertToFunc* KyTimeSpanConvertToKyString = &ky::DateConvertToKyString<ky::KyTimeSpanText>;
inline constexpr KyConvertFromFunc* KyTimeSpanConvertFromKyString = &ky::DateConvertFromKyString<ky::KyTimeSpanText>;
inline constexpr KyConstructorFunc* KyTimeSpanConstructor = &ky::DateValues<KyTimeSpan>::Constructor;
inline constexpr KyDestructorFunc* KyTimeSpanDestructor = &ky::DateValues<KyTimeSpan>::Destructor;
inline constexpr KyAssignmentFunc* KyTimeSpanAssignment = ky::DateValues<KyTimeSpan>::Assignment;
inline constexpr KyCopyFunc* KyTimeSpanCopy = &ky::DateValues<KyTimeSpan>::Copy;
inline constexpr KyTranslateFunc* KyTimeSpanTranslate = ky::kDateTranslate<KyTimeSpan>;
inline constexpr KyIsNullFunc* KyTimeSpanIsNull = &ky::DateValues<KyTimeSpan>::IsNull;
inline constexpr KySetNullFunc* KyTimeSpanSetNull = &ky::DateValues<KyTimeSpan>::SetNull;
inline constexpr KyDefaultValueFunc* KyTimeSpanDefaultValue = &ky::DateDefaultValue<ky::KyTimeSpanText>;
inline constexpr KyGetValueFunc* KyGetValueKyTimeSpan = &ky::DateGetValue<KyTimeSpan>;

#endif
