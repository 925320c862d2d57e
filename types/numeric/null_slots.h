#ifndef NULL_SLOTS_H
#define NULL_SLOTS_H

/// The slot functions of the nullable numbers, for their rows. A type's name stands before the slot's:
/// `KyNull_longCompare`.

#include "null_bounds.h"
#include "null_order.h"
#include "null_store.h"
#include "null_text.h"
#include "null_values.h"

// --- KyNull_char ---
inline constexpr KyCreateFunc* KyNull_charCreate = KyNullTypeCreate<KyNull_char>;
inline constexpr KyDeleteFunc* KyNull_charDelete = KyNullTypeDelete<KyNull_char>;
inline constexpr KyStoreFunc* KyNull_charStore = &KyNullTypeStore<KyNull_char, signed char, CharLSHelper>;
inline constexpr KyLoadFunc* KyNull_charLoad = &KyNullTypeLoad<KyNull_char, signed char, CharLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_charNullSizeGet = &KyNullTypeNullSizeGet<CharLSHelper>;
inline constexpr KySizeGetFunc* KyNull_charSizeGet = &KyNullTypeSizeGet<CharLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_charSizeGetFromMemFile = &KyNullTypeSizeGetFromMemFile<CharLSHelper>;
inline constexpr KyCompareFunc* KyNull_charCompare = &KyNullTypeCompare<KyNull_char, signed char, CharLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_charEvalAndBound =
    &ky::NullEvalAndBound<KyNull_char, signed char, CharLSHelper>;
inline constexpr KyHashFunc* KyNull_charHash = &KyNullTypeHash<KyNull_char, signed char, CharLSHelper>;
inline constexpr KyConvertToFunc* KyNull_charConvertToKyString = &KyNullTypeConvertToKyString<KyNull_char, signed char>;
inline constexpr KyConvertFromFunc* KyNull_charConvertFromKyString =
    &KyNullTypeConvertFromKyString<KyNull_char, signed char>;
inline constexpr KyConstructorFunc* KyNull_charConstructor = &KyNullTypeConstructor<KyNull_char>;
inline constexpr KyDestructorFunc* KyNull_charDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_charAssignment = KyNullTypeAssignment<KyNull_char>;
inline constexpr KyCopyFunc* KyNull_charCopy = KyNullTypeCopy<KyNull_char>;
inline constexpr KyTranslateFunc* KyNull_charTranslate = KyNullTypeTranslate<KyNull_char, signed char, CharLSHelper>;
inline constexpr KyIsNullFunc* KyNull_charIsNull = &KyNullTypeIsNull<KyNull_char>;
inline constexpr KySetNullFunc* KyNull_charSetNull = &KyNullTypeSetNull<KyNull_char>;
inline constexpr KyPrintFunc* KyNull_charPrintToKyString =
    &KyNullTypePrintToKyString<KyNull_char, signed char, CharLSHelper>;
inline constexpr KyScanFunc* KyNull_charScanFromKyString =
    &KyNullTypeScanFromKyString<KyNull_char, signed char, CharLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_charDefaultValue = KyNullTypeDefaultValue<KyNull_char>;
inline constexpr KyGetValueFunc* KyNull_charGetValue = &KyNullTypeGetValue<KyNull_char, signed char>;

// --- KyNull_uchar ---
inline constexpr KyCreateFunc* KyNull_ucharCreate = KyNullTypeCreate<KyNull_uchar>;
inline constexpr KyDeleteFunc* KyNull_ucharDelete = KyNullTypeDelete<KyNull_uchar>;
inline constexpr KyStoreFunc* KyNull_ucharStore = &KyNullTypeStore<KyNull_uchar, unsigned char, CharLSHelper>;
inline constexpr KyLoadFunc* KyNull_ucharLoad = &KyNullTypeLoad<KyNull_uchar, unsigned char, CharLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_ucharNullSizeGet = &KyNullTypeNullSizeGet<CharLSHelper>;
inline constexpr KySizeGetFunc* KyNull_ucharSizeGet = &KyNullTypeSizeGet<CharLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_ucharSizeGetFromMemFile = &KyNullTypeSizeGetFromMemFile<CharLSHelper>;
inline constexpr KyCompareFunc* KyNull_ucharCompare = &KyNullTypeCompare<KyNull_uchar, unsigned char, CharLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_ucharEvalAndBound =
    &ky::NullEvalAndBound<KyNull_uchar, unsigned char, CharLSHelper>;
inline constexpr KyHashFunc* KyNull_ucharHash = &KyNullTypeHash<KyNull_uchar, unsigned char, CharLSHelper>;
inline constexpr KyConvertToFunc* KyNull_ucharConvertToKyString =
    &KyNullTypeConvertToKyString<KyNull_uchar, unsigned char>;
inline constexpr KyConvertFromFunc* KyNull_ucharConvertFromKyString =
    &KyNullTypeConvertFromKyString<KyNull_uchar, unsigned char>;
inline constexpr KyConstructorFunc* KyNull_ucharConstructor = &KyNullTypeConstructor<KyNull_uchar>;
inline constexpr KyDestructorFunc* KyNull_ucharDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_ucharAssignment = KyNullTypeAssignment<KyNull_uchar>;
inline constexpr KyCopyFunc* KyNull_ucharCopy = KyNullTypeCopy<KyNull_uchar>;
inline constexpr KyTranslateFunc* KyNull_ucharTranslate =
    KyNullTypeTranslate<KyNull_uchar, unsigned char, CharLSHelper>;
inline constexpr KyIsNullFunc* KyNull_ucharIsNull = &KyNullTypeIsNull<KyNull_uchar>;
inline constexpr KySetNullFunc* KyNull_ucharSetNull = &KyNullTypeSetNull<KyNull_uchar>;
inline constexpr KyPrintFunc* KyNull_ucharPrintToKyString =
    &KyNullTypePrintToKyString<KyNull_uchar, unsigned char, CharLSHelper>;
inline constexpr KyScanFunc* KyNull_ucharScanFromKyString =
    &KyNullTypeScanFromKyString<KyNull_uchar, unsigned char, CharLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_ucharDefaultValue = KyNullTypeDefaultValue<KyNull_uchar>;
inline constexpr KyGetValueFunc* KyNull_ucharGetValue = &KyNullTypeGetValue<KyNull_uchar, unsigned char>;

// --- KyNull_short ---
inline constexpr KyCreateFunc* KyNull_shortCreate = KyNullTypeCreate<KyNull_short>;
inline constexpr KyDeleteFunc* KyNull_shortDelete = KyNullTypeDelete<KyNull_short>;
inline constexpr KyStoreFunc* KyNull_shortStore = &KyNullTypeStore<KyNull_short, short, ShortLSHelper>;
inline constexpr KyLoadFunc* KyNull_shortLoad = &KyNullTypeLoad<KyNull_short, short, ShortLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_shortNullSizeGet = &KyNullTypeNullSizeGet<ShortLSHelper>;
inline constexpr KySizeGetFunc* KyNull_shortSizeGet = &KyNullTypeSizeGet<ShortLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_shortSizeGetFromMemFile =
    &KyNullTypeSizeGetFromMemFile<ShortLSHelper>;
inline constexpr KyCompareFunc* KyNull_shortCompare = &KyNullTypeCompare<KyNull_short, short, ShortLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_shortEvalAndBound =
    &ky::NullEvalAndBound<KyNull_short, short, ShortLSHelper>;
inline constexpr KyHashFunc* KyNull_shortHash = &KyNullTypeHash<KyNull_short, short, ShortLSHelper>;
inline constexpr KyConvertToFunc* KyNull_shortConvertToKyString = &KyNullTypeConvertToKyString<KyNull_short, short>;
inline constexpr KyConvertFromFunc* KyNull_shortConvertFromKyString =
    &KyNullTypeConvertFromKyString<KyNull_short, short>;
inline constexpr KyConstructorFunc* KyNull_shortConstructor = &KyNullTypeConstructor<KyNull_short>;
inline constexpr KyDestructorFunc* KyNull_shortDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_shortAssignment = KyNullTypeAssignment<KyNull_short>;
inline constexpr KyCopyFunc* KyNull_shortCopy = KyNullTypeCopy<KyNull_short>;
inline constexpr KyTranslateFunc* KyNull_shortTranslate = KyNullTypeTranslate<KyNull_short, short, ShortLSHelper>;
inline constexpr KyIsNullFunc* KyNull_shortIsNull = &KyNullTypeIsNull<KyNull_short>;
inline constexpr KySetNullFunc* KyNull_shortSetNull = &KyNullTypeSetNull<KyNull_short>;
inline constexpr KyPrintFunc* KyNull_shortPrintToKyString =
    &KyNullTypePrintToKyString<KyNull_short, short, ShortLSHelper>;
inline constexpr KyScanFunc* KyNull_shortScanFromKyString =
    &KyNullTypeScanFromKyString<KyNull_short, short, ShortLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_shortDefaultValue = KyNullTypeDefaultValue<KyNull_short>;
inline constexpr KyGetValueFunc* KyNull_shortGetValue = &KyNullTypeGetValue<KyNull_short, short>;

// --- KyNull_ushort ---
inline constexpr KyCreateFunc* KyNull_ushortCreate = KyNullTypeCreate<KyNull_ushort>;
inline constexpr KyDeleteFunc* KyNull_ushortDelete = KyNullTypeDelete<KyNull_ushort>;
inline constexpr KyStoreFunc* KyNull_ushortStore = &KyNullTypeStore<KyNull_ushort, unsigned short, ShortLSHelper>;
inline constexpr KyLoadFunc* KyNull_ushortLoad = &KyNullTypeLoad<KyNull_ushort, unsigned short, ShortLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_ushortNullSizeGet = &KyNullTypeNullSizeGet<ShortLSHelper>;
inline constexpr KySizeGetFunc* KyNull_ushortSizeGet = &KyNullTypeSizeGet<ShortLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_ushortSizeGetFromMemFile =
    &KyNullTypeSizeGetFromMemFile<ShortLSHelper>;
inline constexpr KyCompareFunc* KyNull_ushortCompare = &KyNullTypeCompare<KyNull_ushort, unsigned short, ShortLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_ushortEvalAndBound =
    &ky::NullEvalAndBound<KyNull_ushort, unsigned short, ShortLSHelper>;
inline constexpr KyHashFunc* KyNull_ushortHash = &KyNullTypeHash<KyNull_ushort, unsigned short, ShortLSHelper>;
inline constexpr KyConvertToFunc* KyNull_ushortConvertToKyString =
    &KyNullTypeConvertToKyString<KyNull_ushort, unsigned short>;
inline constexpr KyConvertFromFunc* KyNull_ushortConvertFromKyString =
    &KyNullTypeConvertFromKyString<KyNull_ushort, unsigned short>;
inline constexpr KyConstructorFunc* KyNull_ushortConstructor = &KyNullTypeConstructor<KyNull_ushort>;
inline constexpr KyDestructorFunc* KyNull_ushortDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_ushortAssignment = KyNullTypeAssignment<KyNull_ushort>;
inline constexpr KyCopyFunc* KyNull_ushortCopy = KyNullTypeCopy<KyNull_ushort>;
inline constexpr KyTranslateFunc* KyNull_ushortTranslate =
    KyNullTypeTranslate<KyNull_ushort, unsigned short, ShortLSHelper>;
inline constexpr KyIsNullFunc* KyNull_ushortIsNull = &KyNullTypeIsNull<KyNull_ushort>;
inline constexpr KySetNullFunc* KyNull_ushortSetNull = &KyNullTypeSetNull<KyNull_ushort>;
inline constexpr KyPrintFunc* KyNull_ushortPrintToKyString =
    &KyNullTypePrintToKyString<KyNull_ushort, unsigned short, ShortLSHelper>;
inline constexpr KyScanFunc* KyNull_ushortScanFromKyString =
    &KyNullTypeScanFromKyString<KyNull_ushort, unsigned short, ShortLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_ushortDefaultValue = KyNullTypeDefaultValue<KyNull_ushort>;
inline constexpr KyGetValueFunc* KyNull_ushortGetValue = &KyNullTypeGetValue<KyNull_ushort, unsigned short>;

// --- KyNull_int ---
inline constexpr KyCreateFunc* KyNull_intCreate = KyNullTypeCreate<KyNull_int>;
inline constexpr KyDeleteFunc* KyNull_intDelete = KyNullTypeDelete<KyNull_int>;
inline constexpr KyStoreFunc* KyNull_intStore = &KyNullTypeStore<KyNull_int, int, IntLSHelper>;
inline constexpr KyLoadFunc* KyNull_intLoad = &KyNullTypeLoad<KyNull_int, int, IntLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_intNullSizeGet = &KyNullTypeNullSizeGet<IntLSHelper>;
inline constexpr KySizeGetFunc* KyNull_intSizeGet = &KyNullTypeSizeGet<IntLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_intSizeGetFromMemFile = &KyNullTypeSizeGetFromMemFile<IntLSHelper>;
inline constexpr KyCompareFunc* KyNull_intCompare = &KyNullTypeCompare<KyNull_int, int, IntLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_intEvalAndBound = &ky::NullEvalAndBound<KyNull_int, int, IntLSHelper>;
inline constexpr KyHashFunc* KyNull_intHash = &KyNullTypeHash<KyNull_int, int, IntLSHelper>;
inline constexpr KyConvertToFunc* KyNull_intConvertToKyString = &KyNullTypeConvertToKyString<KyNull_int, int>;
inline constexpr KyConvertFromFunc* KyNull_intConvertFromKyString = &KyNullTypeConvertFromKyString<KyNull_int, int>;
inline constexpr KyConstructorFunc* KyNull_intConstructor = &KyNullTypeConstructor<KyNull_int>;
inline constexpr KyDestructorFunc* KyNull_intDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_intAssignment = KyNullTypeAssignment<KyNull_int>;
inline constexpr KyCopyFunc* KyNull_intCopy = KyNullTypeCopy<KyNull_int>;
inline constexpr KyTranslateFunc* KyNull_intTranslate = KyNullTypeTranslate<KyNull_int, int, IntLSHelper>;
inline constexpr KyIsNullFunc* KyNull_intIsNull = &KyNullTypeIsNull<KyNull_int>;
inline constexpr KySetNullFunc* KyNull_intSetNull = &KyNullTypeSetNull<KyNull_int>;
inline constexpr KyPrintFunc* KyNull_intPrintToKyString = &KyNullTypePrintToKyString<KyNull_int, int, IntLSHelper>;
inline constexpr KyScanFunc* KyNull_intScanFromKyString = &KyNullTypeScanFromKyString<KyNull_int, int, IntLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_intDefaultValue = KyNullTypeDefaultValue<KyNull_int>;
inline constexpr KyGetValueFunc* KyNull_intGetValue = &KyNullTypeGetValue<KyNull_int, int>;

// --- KyNull_unsigned ---
inline constexpr KyCreateFunc* KyNull_unsignedCreate = KyNullTypeCreate<KyNull_unsigned>;
inline constexpr KyDeleteFunc* KyNull_unsignedDelete = KyNullTypeDelete<KyNull_unsigned>;
inline constexpr KyStoreFunc* KyNull_unsignedStore = &KyNullTypeStore<KyNull_unsigned, unsigned int, IntLSHelper>;
inline constexpr KyLoadFunc* KyNull_unsignedLoad = &KyNullTypeLoad<KyNull_unsigned, unsigned int, IntLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_unsignedNullSizeGet = &KyNullTypeNullSizeGet<IntLSHelper>;
inline constexpr KySizeGetFunc* KyNull_unsignedSizeGet = &KyNullTypeSizeGet<IntLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_unsignedSizeGetFromMemFile =
    &KyNullTypeSizeGetFromMemFile<IntLSHelper>;
inline constexpr KyCompareFunc* KyNull_unsignedCompare = &KyNullTypeCompare<KyNull_unsigned, unsigned int, IntLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_unsignedEvalAndBound =
    &ky::NullEvalAndBound<KyNull_unsigned, unsigned int, IntLSHelper>;
inline constexpr KyHashFunc* KyNull_unsignedHash = &KyNullTypeHash<KyNull_unsigned, unsigned int, IntLSHelper>;
inline constexpr KyConvertToFunc* KyNull_unsignedConvertToKyString =
    &KyNullTypeConvertToKyString<KyNull_unsigned, unsigned int>;
inline constexpr KyConvertFromFunc* KyNull_unsignedConvertFromKyString =
    &KyNullTypeConvertFromKyString<KyNull_unsigned, unsigned int>;
inline constexpr KyConstructorFunc* KyNull_unsignedConstructor = &KyNullTypeConstructor<KyNull_unsigned>;
inline constexpr KyDestructorFunc* KyNull_unsignedDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_unsignedAssignment = KyNullTypeAssignment<KyNull_unsigned>;
inline constexpr KyCopyFunc* KyNull_unsignedCopy = KyNullTypeCopy<KyNull_unsigned>;
inline constexpr KyTranslateFunc* KyNull_unsignedTranslate =
    KyNullTypeTranslate<KyNull_unsigned, unsigned int, IntLSHelper>;
inline constexpr KyIsNullFunc* KyNull_unsignedIsNull = &KyNullTypeIsNull<KyNull_unsigned>;
inline constexpr KySetNullFunc* KyNull_unsignedSetNull = &KyNullTypeSetNull<KyNull_unsigned>;
inline constexpr KyPrintFunc* KyNull_unsignedPrintToKyString =
    &KyNullTypePrintToKyString<KyNull_unsigned, unsigned int, IntLSHelper>;
inline constexpr KyScanFunc* KyNull_unsignedScanFromKyString =
    &KyNullTypeScanFromKyString<KyNull_unsigned, unsigned int, IntLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_unsignedDefaultValue = KyNullTypeDefaultValue<KyNull_unsigned>;
inline constexpr KyGetValueFunc* KyNull_unsignedGetValue = &KyNullTypeGetValue<KyNull_unsigned, unsigned int>;

// --- KyNull_long ---
inline constexpr KyCreateFunc* KyNull_longCreate = KyNullTypeCreate<KyNull_long>;
inline constexpr KyDeleteFunc* KyNull_longDelete = KyNullTypeDelete<KyNull_long>;
inline constexpr KyStoreFunc* KyNull_longStore = &KyNullTypeStore<KyNull_long, int, LongLSHelper>;
inline constexpr KyLoadFunc* KyNull_longLoad = &KyNullTypeLoad<KyNull_long, int, LongLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_longNullSizeGet = &KyNullTypeNullSizeGet<LongLSHelper>;
inline constexpr KySizeGetFunc* KyNull_longSizeGet = &KyNullTypeSizeGet<LongLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_longSizeGetFromMemFile = &KyNullTypeSizeGetFromMemFile<LongLSHelper>;
inline constexpr KyCompareFunc* KyNull_longCompare = &KyNullTypeCompare<KyNull_long, int, LongLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_longEvalAndBound = &ky::NullEvalAndBound<KyNull_long, int, LongLSHelper>;
inline constexpr KyHashFunc* KyNull_longHash = &KyNullTypeHash<KyNull_long, int, LongLSHelper>;
inline constexpr KyConvertToFunc* KyNull_longConvertToKyString = &KyNullTypeConvertToKyString<KyNull_long, int>;
inline constexpr KyConvertFromFunc* KyNull_longConvertFromKyString = &KyNullTypeConvertFromKyString<KyNull_long, int>;
inline constexpr KyConstructorFunc* KyNull_longConstructor = &KyNullTypeConstructor<KyNull_long>;
inline constexpr KyDestructorFunc* KyNull_longDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_longAssignment = KyNullTypeAssignment<KyNull_long>;
inline constexpr KyCopyFunc* KyNull_longCopy = KyNullTypeCopy<KyNull_long>;
inline constexpr KyTranslateFunc* KyNull_longTranslate = KyNullTypeTranslate<KyNull_long, int, LongLSHelper>;
inline constexpr KyIsNullFunc* KyNull_longIsNull = &KyNullTypeIsNull<KyNull_long>;
inline constexpr KySetNullFunc* KyNull_longSetNull = &KyNullTypeSetNull<KyNull_long>;
inline constexpr KyPrintFunc* KyNull_longPrintToKyString = &KyNullTypePrintToKyString<KyNull_long, int, LongLSHelper>;
inline constexpr KyScanFunc* KyNull_longScanFromKyString = &KyNullTypeScanFromKyString<KyNull_long, int, LongLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_longDefaultValue = KyNullTypeDefaultValue<KyNull_long>;
inline constexpr KyGetValueFunc* KyNull_longGetValue = &KyNullTypeGetValue<KyNull_long, int>;

// --- KyNull_ulong ---
inline constexpr KyCreateFunc* KyNull_ulongCreate = KyNullTypeCreate<KyNull_ulong>;
inline constexpr KyDeleteFunc* KyNull_ulongDelete = KyNullTypeDelete<KyNull_ulong>;
inline constexpr KyStoreFunc* KyNull_ulongStore = &KyNullTypeStore<KyNull_ulong, unsigned int, LongLSHelper>;
inline constexpr KyLoadFunc* KyNull_ulongLoad = &KyNullTypeLoad<KyNull_ulong, unsigned int, LongLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_ulongNullSizeGet = &KyNullTypeNullSizeGet<LongLSHelper>;
inline constexpr KySizeGetFunc* KyNull_ulongSizeGet = &KyNullTypeSizeGet<LongLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_ulongSizeGetFromMemFile = &KyNullTypeSizeGetFromMemFile<LongLSHelper>;
inline constexpr KyCompareFunc* KyNull_ulongCompare = &KyNullTypeCompare<KyNull_ulong, unsigned int, LongLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_ulongEvalAndBound =
    &ky::NullEvalAndBound<KyNull_ulong, unsigned int, LongLSHelper>;
inline constexpr KyHashFunc* KyNull_ulongHash = &KyNullTypeHash<KyNull_ulong, unsigned int, LongLSHelper>;
inline constexpr KyConvertToFunc* KyNull_ulongConvertToKyString =
    &KyNullTypeConvertToKyString<KyNull_ulong, unsigned int>;
inline constexpr KyConvertFromFunc* KyNull_ulongConvertFromKyString =
    &KyNullTypeConvertFromKyString<KyNull_ulong, unsigned int>;
inline constexpr KyConstructorFunc* KyNull_ulongConstructor = &KyNullTypeConstructor<KyNull_ulong>;
inline constexpr KyDestructorFunc* KyNull_ulongDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_ulongAssignment = KyNullTypeAssignment<KyNull_ulong>;
inline constexpr KyCopyFunc* KyNull_ulongCopy = KyNullTypeCopy<KyNull_ulong>;
inline constexpr KyTranslateFunc* KyNull_ulongTranslate = KyNullTypeTranslate<KyNull_ulong, unsigned int, LongLSHelper>;
inline constexpr KyIsNullFunc* KyNull_ulongIsNull = &KyNullTypeIsNull<KyNull_ulong>;
inline constexpr KySetNullFunc* KyNull_ulongSetNull = &KyNullTypeSetNull<KyNull_ulong>;
inline constexpr KyPrintFunc* KyNull_ulongPrintToKyString =
    &KyNullTypePrintToKyString<KyNull_ulong, unsigned int, LongLSHelper>;
inline constexpr KyScanFunc* KyNull_ulongScanFromKyString =
    &KyNullTypeScanFromKyString<KyNull_ulong, unsigned int, LongLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_ulongDefaultValue = KyNullTypeDefaultValue<KyNull_ulong>;
inline constexpr KyGetValueFunc* KyNull_ulongGetValue = &KyNullTypeGetValue<KyNull_ulong, unsigned int>;

// --- KyNull_float ---
inline constexpr KyCreateFunc* KyNull_floatCreate = KyNullTypeCreate<KyNull_float>;
inline constexpr KyDeleteFunc* KyNull_floatDelete = KyNullTypeDelete<KyNull_float>;
inline constexpr KyStoreFunc* KyNull_floatStore = &KyNullTypeStore<KyNull_float, float, FloatLSHelper>;
inline constexpr KyLoadFunc* KyNull_floatLoad = &KyNullTypeLoad<KyNull_float, float, FloatLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_floatNullSizeGet = &KyNullTypeNullSizeGet<FloatLSHelper>;
inline constexpr KySizeGetFunc* KyNull_floatSizeGet = &KyNullTypeSizeGet<FloatLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_floatSizeGetFromMemFile =
    &KyNullTypeSizeGetFromMemFile<FloatLSHelper>;
inline constexpr KyCompareFunc* KyNull_floatCompare = KyNullFloatDoubleCompare<KyNull_float, float, FloatLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_floatEvalAndBound =
    &ky::NullEvalAndBound<KyNull_float, float, FloatLSHelper>;
inline constexpr KyHashFunc* KyNull_floatHash = &KyNullTypeHash<KyNull_float, float, FloatLSHelper>;
inline constexpr KyConvertToFunc* KyNull_floatConvertToKyString = &KyNullTypeConvertToKyString<KyNull_float, float>;
inline constexpr KyConvertFromFunc* KyNull_floatConvertFromKyString =
    &KyNullTypeConvertFromKyString<KyNull_float, float>;
inline constexpr KyConstructorFunc* KyNull_floatConstructor = &KyNullTypeConstructor<KyNull_float>;
inline constexpr KyDestructorFunc* KyNull_floatDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_floatAssignment = KyNullTypeAssignment<KyNull_float>;
inline constexpr KyCopyFunc* KyNull_floatCopy = KyNullTypeCopy<KyNull_float>;
inline constexpr KyTranslateFunc* KyNull_floatTranslate = KyNullTypeTranslate<KyNull_float, float, FloatLSHelper>;
inline constexpr KyIsNullFunc* KyNull_floatIsNull = &KyNullTypeIsNull<KyNull_float>;
inline constexpr KySetNullFunc* KyNull_floatSetNull = &KyNullTypeSetNull<KyNull_float>;
inline constexpr KyPrintFunc* KyNull_floatPrintToKyString =
    &KyNullTypePrintToKyString<KyNull_float, float, FloatLSHelper>;
inline constexpr KyScanFunc* KyNull_floatScanFromKyString =
    &KyNullTypeScanFromKyString<KyNull_float, float, FloatLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_floatDefaultValue = KyNullTypeDefaultValue<KyNull_float>;
inline constexpr KyGetValueFunc* KyNull_floatGetValue = &KyNullTypeGetValue<KyNull_float, float>;

// --- KyNull_double ---
inline constexpr KyCreateFunc* KyNull_doubleCreate = KyNullTypeCreate<KyNull_double>;
inline constexpr KyDeleteFunc* KyNull_doubleDelete = KyNullTypeDelete<KyNull_double>;
inline constexpr KyStoreFunc* KyNull_doubleStore = &KyNullTypeStore<KyNull_double, double, DoubleLSHelper>;
inline constexpr KyLoadFunc* KyNull_doubleLoad = &KyNullTypeLoad<KyNull_double, double, DoubleLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_doubleNullSizeGet = &KyNullTypeNullSizeGet<DoubleLSHelper>;
inline constexpr KySizeGetFunc* KyNull_doubleSizeGet = &KyNullTypeSizeGet<DoubleLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_doubleSizeGetFromMemFile =
    &KyNullTypeSizeGetFromMemFile<DoubleLSHelper>;
inline constexpr KyCompareFunc* KyNull_doubleCompare = KyNullFloatDoubleCompare<KyNull_double, double, DoubleLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_doubleEvalAndBound =
    &ky::NullEvalAndBound<KyNull_double, double, DoubleLSHelper>;
inline constexpr KyHashFunc* KyNull_doubleHash = &KyNullTypeHash<KyNull_double, double, DoubleLSHelper>;
inline constexpr KyConvertToFunc* KyNull_doubleConvertToKyString = &KyNullTypeConvertToKyString<KyNull_double, double>;
inline constexpr KyConvertFromFunc* KyNull_doubleConvertFromKyString =
    &KyNullTypeConvertFromKyString<KyNull_double, double>;
inline constexpr KyConstructorFunc* KyNull_doubleConstructor = &KyNullTypeConstructor<KyNull_double>;
inline constexpr KyDestructorFunc* KyNull_doubleDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_doubleAssignment = KyNullTypeAssignment<KyNull_double>;
inline constexpr KyCopyFunc* KyNull_doubleCopy = KyNullTypeCopy<KyNull_double>;
inline constexpr KyTranslateFunc* KyNull_doubleTranslate = KyNullTypeTranslate<KyNull_double, double, DoubleLSHelper>;
inline constexpr KyIsNullFunc* KyNull_doubleIsNull = &KyNullTypeIsNull<KyNull_double>;
inline constexpr KySetNullFunc* KyNull_doubleSetNull = &KyNullTypeSetNull<KyNull_double>;
inline constexpr KyPrintFunc* KyNull_doublePrintToKyString =
    &KyNullTypePrintToKyString<KyNull_double, double, DoubleLSHelper>;
inline constexpr KyScanFunc* KyNull_doubleScanFromKyString =
    &KyNullTypeScanFromKyString<KyNull_double, double, DoubleLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_doubleDefaultValue = KyNullTypeDefaultValue<KyNull_double>;
inline constexpr KyGetValueFunc* KyNull_doubleGetValue = &KyNullTypeGetValue<KyNull_double, double>;

// --- KyNull_KyInt64 ---
inline constexpr KyCreateFunc* KyNull_KyInt64Create = KyNullTypeCreate<KyNull_KyInt64>;
inline constexpr KyDeleteFunc* KyNull_KyInt64Delete = KyNullTypeDelete<KyNull_KyInt64>;
inline constexpr KyStoreFunc* KyNull_KyInt64Store = &KyNullTypeStore<KyNull_KyInt64, KyInt64, Int64LSHelper>;
inline constexpr KyLoadFunc* KyNull_KyInt64Load = &KyNullTypeLoad<KyNull_KyInt64, KyInt64, Int64LSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_KyInt64NullSizeGet = &KyNullTypeNullSizeGet<Int64LSHelper>;
inline constexpr KySizeGetFunc* KyNull_KyInt64SizeGet = &KyNullTypeSizeGet<Int64LSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_KyInt64SizeGetFromMemFile =
    &KyNullTypeSizeGetFromMemFile<Int64LSHelper>;
inline constexpr KyCompareFunc* KyNull_KyInt64Compare = &KyNullTypeCompare<KyNull_KyInt64, KyInt64, Int64LSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_KyInt64EvalAndBound =
    &ky::NullEvalAndBound<KyNull_KyInt64, KyInt64, Int64LSHelper>;
inline constexpr KyHashFunc* KyNull_KyInt64Hash = &KyNullTypeHash<KyNull_KyInt64, KyInt64, Int64LSHelper>;
inline constexpr KyConvertToFunc* KyNull_KyInt64ConvertToKyString =
    &KyNullTypeConvertToKyString<KyNull_KyInt64, KyInt64>;
inline constexpr KyConvertFromFunc* KyNull_KyInt64ConvertFromKyString =
    &KyNullTypeConvertFromKyString<KyNull_KyInt64, KyInt64>;
inline constexpr KyConstructorFunc* KyNull_KyInt64Constructor = &KyNullTypeConstructor<KyNull_KyInt64>;
inline constexpr KyDestructorFunc* KyNull_KyInt64Destructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_KyInt64Assignment = KyNullTypeAssignment<KyNull_KyInt64>;
inline constexpr KyCopyFunc* KyNull_KyInt64Copy = KyNullTypeCopy<KyNull_KyInt64>;
inline constexpr KyTranslateFunc* KyNull_KyInt64Translate = KyNullTypeTranslate<KyNull_KyInt64, KyInt64, Int64LSHelper>;
inline constexpr KyIsNullFunc* KyNull_KyInt64IsNull = &KyNullTypeIsNull<KyNull_KyInt64>;
inline constexpr KySetNullFunc* KyNull_KyInt64SetNull = &KyNullTypeSetNull<KyNull_KyInt64>;
inline constexpr KyPrintFunc* KyNull_KyInt64PrintToKyString =
    &KyNullTypePrintToKyString<KyNull_KyInt64, KyInt64, Int64LSHelper>;
inline constexpr KyScanFunc* KyNull_KyInt64ScanFromKyString =
    &KyNullTypeScanFromKyString<KyNull_KyInt64, KyInt64, Int64LSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_KyInt64DefaultValue = KyNullTypeDefaultValue<KyNull_KyInt64>;
inline constexpr KyGetValueFunc* KyNull_KyInt64GetValue = &KyNullTypeGetValue<KyNull_KyInt64, KyInt64>;

// --- KyNull_8b ---
inline constexpr KyCreateFunc* KyNull_8bCreate = KyNullTypeCreate<KyNull_8b>;
inline constexpr KyDeleteFunc* KyNull_8bDelete = KyNullTypeDelete<KyNull_8b>;
inline constexpr KyStoreFunc* KyNull_8bStore = &KyNullTypeStore<KyNull_8b, long long, O_8BLSHelper>;
inline constexpr KyLoadFunc* KyNull_8bLoad = &KyNullTypeLoad<KyNull_8b, long long, O_8BLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_8bNullSizeGet = &KyNullTypeNullSizeGet<O_8BLSHelper>;
inline constexpr KySizeGetFunc* KyNull_8bSizeGet = &KyNullTypeSizeGet<O_8BLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_8bSizeGetFromMemFile = &KyNullTypeSizeGetFromMemFile<O_8BLSHelper>;
inline constexpr KyCompareFunc* KyNull_8bCompare = &KyNullTypeCompare<KyNull_8b, long long, O_8BLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_8bEvalAndBound = &ky::NullEvalAndBound<KyNull_8b, long long, O_8BLSHelper>;
inline constexpr KyHashFunc* KyNull_8bHash = &KyNullTypeHash<KyNull_8b, long long, O_8BLSHelper>;
inline constexpr KyConvertToFunc* KyNull_8bConvertToKyString = &KyNullTypeConvertToKyString<KyNull_8b, long long>;
inline constexpr KyConvertFromFunc* KyNull_8bConvertFromKyString = &KyNullTypeConvertFromKyString<KyNull_8b, long long>;
inline constexpr KyConstructorFunc* KyNull_8bConstructor = &KyNullTypeConstructor<KyNull_8b>;
inline constexpr KyDestructorFunc* KyNull_8bDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_8bAssignment = KyNullTypeAssignment<KyNull_8b>;
inline constexpr KyCopyFunc* KyNull_8bCopy = KyNullTypeCopy<KyNull_8b>;
inline constexpr KyTranslateFunc* KyNull_8bTranslate = KyNullTypeTranslate<KyNull_8b, long long, O_8BLSHelper>;
inline constexpr KyIsNullFunc* KyNull_8bIsNull = &KyNullTypeIsNull<KyNull_8b>;
inline constexpr KySetNullFunc* KyNull_8bSetNull = &KyNullTypeSetNull<KyNull_8b>;
inline constexpr KyPrintFunc* KyNull_8bPrintToKyString = &KyNullTypePrintToKyString<KyNull_8b, long long, O_8BLSHelper>;
inline constexpr KyScanFunc* KyNull_8bScanFromKyString =
    &KyNullTypeScanFromKyString<KyNull_8b, long long, O_8BLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_8bDefaultValue = KyNullTypeDefaultValue<KyNull_8b>;
inline constexpr KyGetValueFunc* KyNull_8bGetValue = &KyNullTypeGetValue<KyNull_8b, long long>;

// --- KyNull_u8b ---
inline constexpr KyCreateFunc* KyNull_u8bCreate = KyNullTypeCreate<KyNull_u8b>;
inline constexpr KyDeleteFunc* KyNull_u8bDelete = KyNullTypeDelete<KyNull_u8b>;
inline constexpr KyStoreFunc* KyNull_u8bStore = &KyNullTypeStore<KyNull_u8b, unsigned long long, O_8BLSHelper>;
inline constexpr KyLoadFunc* KyNull_u8bLoad = &KyNullTypeLoad<KyNull_u8b, unsigned long long, O_8BLSHelper>;
inline constexpr KyNullSizeGetFunc* KyNull_u8bNullSizeGet = &KyNullTypeNullSizeGet<O_8BLSHelper>;
inline constexpr KySizeGetFunc* KyNull_u8bSizeGet = &KyNullTypeSizeGet<O_8BLSHelper>;
inline constexpr KySizeGetFromMemFileFunc* KyNull_u8bSizeGetFromMemFile = &KyNullTypeSizeGetFromMemFile<O_8BLSHelper>;
inline constexpr KyCompareFunc* KyNull_u8bCompare = &KyNullTypeCompare<KyNull_u8b, unsigned long long, O_8BLSHelper>;
inline constexpr KyEvalAndBoundFunc* KyNull_u8bEvalAndBound =
    &ky::NullEvalAndBound<KyNull_u8b, unsigned long long, O_8BLSHelper>;
inline constexpr KyHashFunc* KyNull_u8bHash = &KyNullTypeHash<KyNull_u8b, unsigned long long, O_8BLSHelper>;
inline constexpr KyConvertToFunc* KyNull_u8bConvertToKyString =
    &KyNullTypeConvertToKyString<KyNull_u8b, unsigned long long>;
inline constexpr KyConvertFromFunc* KyNull_u8bConvertFromKyString =
    &KyNullTypeConvertFromKyString<KyNull_u8b, unsigned long long>;
inline constexpr KyConstructorFunc* KyNull_u8bConstructor = &KyNullTypeConstructor<KyNull_u8b>;
inline constexpr KyDestructorFunc* KyNull_u8bDestructor = &KyNullTypeDestructor;
inline constexpr KyAssignmentFunc* KyNull_u8bAssignment = KyNullTypeAssignment<KyNull_u8b>;
inline constexpr KyCopyFunc* KyNull_u8bCopy = KyNullTypeCopy<KyNull_u8b>;
inline constexpr KyTranslateFunc* KyNull_u8bTranslate =
    KyNullTypeTranslate<KyNull_u8b, unsigned long long, O_8BLSHelper>;
inline constexpr KyIsNullFunc* KyNull_u8bIsNull = &KyNullTypeIsNull<KyNull_u8b>;
inline constexpr KySetNullFunc* KyNull_u8bSetNull = &KyNullTypeSetNull<KyNull_u8b>;
inline constexpr KyPrintFunc* KyNull_u8bPrintToKyString =
    &KyNullTypePrintToKyString<KyNull_u8b, unsigned long long, O_8BLSHelper>;
inline constexpr KyScanFunc* KyNull_u8bScanFromKyString =
    &KyNullTypeScanFromKyString<KyNull_u8b, unsigned long long, O_8BLSHelper>;
inline constexpr KyDefaultValueFunc* KyNull_u8bDefaultValue = KyNullTypeDefaultValue<KyNull_u8b>;
inline constexpr KyGetValueFunc* KyNull_u8bGetValue = &KyNullTypeGetValue<KyNull_u8b, unsigned long long>;

#endif
