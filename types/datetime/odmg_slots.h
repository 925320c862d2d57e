#ifndef ODMG_SLOTS_H
#define ODMG_SLOTS_H

/// The slot functions of the ODMG types.
///
/// Stored forms: `d_Date` year (2 bytes), month, day; `d_Time` zone hours, zone minutes, hour, minute, second,
/// hundredths; `d_Timestamp` a date, then a time; `d_Interval` the seconds as a float. None of them is ever null.

#include "array_rules.h"
#include "date_fields.h"
#include "date_store.h"
#include "date_values.h"
#include "kyodmg.h"
#include "kytypes.h"
#include "number_slots.h"

// --- values as bytes ---

/// Load is Store.
KyStoreFunc d_TimeStore;
KyStoreFunc d_TimestampStore;

namespace ky {

/// Sizes and Translate: values are as long stored as in memory.
template <class Type, KyStoreFunc store>
struct OdmgFacts {
    using Element = ValueImage<Type>;
    static constexpr auto* Store = store;
    static constexpr auto* Load = store;
    static unsigned NullSizeGet(unsigned count) { return static_cast<unsigned>(sizeof(Type) * count); }
    static unsigned SizeGet(const void*, unsigned char, unsigned char, unsigned count) { return NullSizeGet(count); }
    static unsigned SizeGetFromMemFile(MemFile*, unsigned char, unsigned count) { return NullSizeGet(count); }
};

using OdmgTimeFacts = OdmgFacts<d_Time, d_TimeStore>;
using OdmgTimestampFacts = OdmgFacts<d_Timestamp, d_TimestampStore>;

}  // namespace ky

// The bytes of a `d_Date` are those of a `KyDate`.
inline constexpr KyCreateFunc* d_DateCreate = ky::DateValues<d_Date>::Create;
inline constexpr KyDeleteFunc* d_DateDelete = ky::DateValues<d_Date>::Delete;
inline constexpr KyStoreFunc* d_DateStore = &ky::DateStore<KyDate>;
inline constexpr KyLoadFunc* d_DateLoad = &ky::DateLoad<KyDate>;
inline constexpr KyNullSizeGetFunc* d_DateNullSizeGet = &ky::DateNullSizeGet<KyDate>;
inline constexpr KySizeGetFunc* d_DateSizeGet = &ky::DateSizeGet<KyDate>;
inline constexpr KySizeGetFromMemFileFunc* d_DateSizeGetFromMemFile = &ky::DateSizeGetFromMemFile<KyDate>;
inline constexpr KyConstructorFunc* d_DateConstructor = &ky::DateValues<d_Date>::Constructor;
inline constexpr KyDestructorFunc* d_DateDestructor = &ky::DateValues<d_Date>::Destructor;
inline constexpr KyAssignmentFunc* d_DateAssignment = ky::DateValues<d_Date>::Assignment;
inline constexpr KyCopyFunc* d_DateCopy = &ky::DateValues<d_Date>::Copy;
inline constexpr KyTranslateFunc* d_DateTranslate = ky::kDateTranslate<KyDate>;

inline constexpr KyCreateFunc* d_TimeCreate = ky::DateValues<d_Time>::Create;
inline constexpr KyDeleteFunc* d_TimeDelete = ky::DateValues<d_Time>::Delete;
inline constexpr KyLoadFunc* d_TimeLoad = &d_TimeStore;
inline constexpr KyNullSizeGetFunc* d_TimeNullSizeGet = &ky::OdmgTimeFacts::NullSizeGet;
inline constexpr KySizeGetFunc* d_TimeSizeGet = &ky::OdmgTimeFacts::SizeGet;
inline constexpr KySizeGetFromMemFileFunc* d_TimeSizeGetFromMemFile = &ky::OdmgTimeFacts::SizeGetFromMemFile;
inline constexpr KyConstructorFunc* d_TimeConstructor = &ky::DateValues<d_Time>::Constructor;
inline constexpr KyDestructorFunc* d_TimeDestructor = &ky::DateValues<d_Time>::Destructor;
inline constexpr KyAssignmentFunc* d_TimeAssignment = ky::DateValues<d_Time>::Assignment;
inline constexpr KyCopyFunc* d_TimeCopy = &ky::DateValues<d_Time>::Copy;
inline constexpr KyTranslateFunc* d_TimeTranslate = &ky::TranslateArray<ky::OdmgTimeFacts>;

inline constexpr KyCreateFunc* d_TimestampCreate = ky::DateValues<d_Timestamp>::Create;
inline constexpr KyDeleteFunc* d_TimestampDelete = ky::DateValues<d_Timestamp>::Delete;
inline constexpr KyLoadFunc* d_TimestampLoad = &d_TimestampStore;
inline constexpr KyNullSizeGetFunc* d_TimestampNullSizeGet = &ky::OdmgTimestampFacts::NullSizeGet;
inline constexpr KySizeGetFunc* d_TimestampSizeGet = &ky::OdmgTimestampFacts::SizeGet;
inline constexpr KySizeGetFromMemFileFunc* d_TimestampSizeGetFromMemFile = &ky::OdmgTimestampFacts::SizeGetFromMemFile;
inline constexpr KyConstructorFunc* d_TimestampConstructor = &ky::DateValues<d_Timestamp>::Constructor;
inline constexpr KyDestructorFunc* d_TimestampDestructor = &ky::DateValues<d_Timestamp>::Destructor;
inline constexpr KyAssignmentFunc* d_TimestampAssignment = ky::DateValues<d_Timestamp>::Assignment;
inline constexpr KyCopyFunc* d_TimestampCopy = &ky::DateValues<d_Timestamp>::Copy;
inline constexpr KyTranslateFunc* d_TimestampTranslate = &ky::TranslateArray<ky::OdmgTimestampFacts>;

// Stored, ordered and hashed an interval is an `o_float`.
inline constexpr KyCreateFunc* d_IntervalCreate = ky::DateValues<d_Interval>::Create;
inline constexpr KyDeleteFunc* d_IntervalDelete = ky::DateValues<d_Interval>::Delete;
inline constexpr KyStoreFunc* d_IntervalStore = &FloatStore;
inline constexpr KyLoadFunc* d_IntervalLoad = &FloatStore;
inline constexpr KyNullSizeGetFunc* d_IntervalNullSizeGet = &FloatNullSizeGet;
inline constexpr KySizeGetFunc* d_IntervalSizeGet = &FloatSizeGet;
inline constexpr KySizeGetFromMemFileFunc* d_IntervalSizeGetFromMemFile = FloatSizeGetFromMemFile;
inline constexpr KyCompareFunc* d_IntervalCompare = FloatCompare;
inline constexpr KyEvalAndBoundFunc* d_IntervalEvalAndBound = FloatEvalAndBound;
inline constexpr KyHashFunc* d_IntervalHash = FloatHash;
inline constexpr KyConstructorFunc* d_IntervalConstructor = &ky::DateValues<d_Interval>::Constructor;
inline constexpr KyDestructorFunc* d_IntervalDestructor = &ky::DateValues<d_Interval>::Destructor;
inline constexpr KyAssignmentFunc* d_IntervalAssignment = ky::DateValues<d_Interval>::Assignment;
inline constexpr KyCopyFunc* d_IntervalCopy = &ky::DateValues<d_Interval>::Copy;
inline constexpr KyTranslateFunc* d_IntervalTranslate = FloatTranslate;

// --- order ---

/// Memory form: the difference of the day numbers, without wildcards. Stored form: by unsigned year, month and day;
/// unless the operator is exact, a field of the second operand that is all ones stands for any.
// KEPT: years before 0 come before the others in memory and behind them in an index.
KyCompareFunc d_DateCompare;
/// By `operator!=` in every form; 255 is a byte like others, the operator does not matter.
KyCompareFunc d_TimeCompare;
/// Memory form: by `operator!=`. Stored form: by `d_DateCompare`, then by time.
KyCompareFunc d_TimestampCompare;

// Values that are equal in one form hash alike in every form. Frozen, persistent.
KyHashFunc d_DateHash;
KyHashFunc d_TimeHash;
KyHashFunc d_TimestampHash;

// Ranges are measured in days, seconds of the day and seconds.
KyEvalAndBoundFunc d_DateEvalAndBound;
KyEvalAndBoundFunc d_TimeEvalAndBound;
KyEvalAndBoundFunc d_TimestampEvalAndBound;

// --- text ---

namespace ky {

// The rows' formats, and what counts for a row that has none.
inline constexpr char kOdmgDateFormat[] = "%a %b %e";
inline constexpr char kOdmgTimeFormat[] = "%I:%M:%S %p";
inline constexpr char kOdmgTimestampFormat[] = "%a %b %e %I:%M:%S %p";
inline constexpr char kOdmgIntervalFormat[] = "%e days, %I hours, %M minutes, %S seconds";

}  // namespace ky

/// The first value, by the directives of dates. Weekdays are those of `d_Date`; a day or month of 255 is a wildcard and
/// prints as "*", and so does a year, local hour, local minute or second of -1. An interval has days, hours, minutes,
/// seconds and nanoseconds; a negative one has the minus on the first that is not 0, the last two being one. Days
/// beyond an int print as the greatest one.
KyPrintFunc d_DatePrintToKyString;
KyPrintFunc d_TimePrintToKyString;
KyPrintFunc d_TimestampPrintToKyString;
KyPrintFunc d_IntervalPrintToKyString;

/// As `date_text_slots.h` tells; a time keeps its zone. The null print string makes every field 0.
KyScanFunc d_DateScanFromKyString;
KyScanFunc d_TimeScanFromKyString;
KyScanFunc d_TimestampScanFromKyString;
KyScanFunc d_IntervalScanFromKyString;

// In the row's format.
// KEPT: the rows' own formats have no year or no hundredths, which are lost on the way.
KyConvertToFunc d_DateConvertToKyString;
KyConvertToFunc d_TimeConvertToKyString;
KyConvertToFunc d_TimestampConvertToKyString;
KyConvertToFunc d_IntervalConvertToKyString;
KyConvertFromFunc d_DateConvertFromKyString;
KyConvertFromFunc d_TimeConvertFromKyString;
KyConvertFromFunc d_TimestampConvertFromKyString;
KyConvertFromFunc d_IntervalConvertFromKyString;

/// Fields of 0; times are midnight in the default zone.
KyDefaultValueFunc d_DateDefaultValue;
KyDefaultValueFunc d_TimeDefaultValue;
KyDefaultValueFunc d_TimestampDefaultValue;
KyDefaultValueFunc d_IntervalDefaultValue;

// --- steps: the next day, the next hundredth of a second; none for a value with a field out of its range ---

KyGetValueFunc KyGetValued_Date;
KyGetValueFunc KyGetValued_Time;
KyGetValueFunc KyGetValued_Timestamp;
/// A negative interval whose successor would be positive steps to 0; one too large for a hundredth to count, to the
/// next float.
KyGetValueFunc KyGetValued_Interval;

#endif
