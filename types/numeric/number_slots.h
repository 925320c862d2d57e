#ifndef NUMBER_SLOTS_H
#define NUMBER_SLOTS_H

/// The slot functions of the plain numbers under the names of their families, for rows and for the types that are
/// built on them. A family's name stands before the slot's: `ShortCompare`. Store, Load and the sizes are the base
/// library's own (`kybase.h`), print and scan those of `number_text.h`.

#include "array_rules.h"
#include "number_arrays.h"
#include "number_bounds.h"
#include "number_convert.h"
#include "number_facts.h"
#include "number_getvalue.h"
#include "number_order.h"
#include "number_text.h"
#include "shared_slots.h"

// --- Char: o_char, o_u1b ---
inline constexpr KyCreateFunc* CharCreate = &ky::NumberCreateZeros<CharLSHelper>;
inline constexpr KyDeleteFunc* CharDelete = &ky::NumberDelete;
inline constexpr KySizeGetFromMemFileFunc* CharSizeGetFromMemFile = &ky::WidthFromMemFile<CharLSHelper>;
inline constexpr KyCompareFunc* CharCompare = &ky::NumberCompare<CharLSHelper>;
inline constexpr KyEvalAndBoundFunc* CharEvalAndBound = &ky::NumberEvalAndBound<CharLSHelper>;
inline constexpr KyHashFunc* CharHash = &ky::NumberHash<CharLSHelper>;
inline constexpr KyConvertToFunc* CharConvertToKyString = &ky::NumberConvertToKyString<CharLSHelper>;
inline constexpr KyConvertFromFunc* CharConvertFromKyString = &ky::NumberConvertFromKyString<CharLSHelper>;
inline constexpr KyConstructorFunc* CharConstructor = &ky::NumberConstructor<CharLSHelper>;
inline constexpr KyDestructorFunc* CharDestructor = &ky::NumberDestructor;
inline constexpr KyAssignmentFunc* CharAssignment = &ky::AssignArray<CharLSHelper::Element>;
inline constexpr KyCopyFunc* CharCopy = &ky::AssignArray<CharLSHelper::Element>;
inline constexpr KyTranslateFunc* CharTranslate = &ky::TranslateArray<CharLSHelper>;
inline constexpr KyDefaultValueFunc* CharDefaultValue = &ky::NumberDefaultValue<CharLSHelper>;
inline constexpr KyGetValueFunc* KyGetValueo_char = &ky::NumberGetValue<CharLSHelper::Element>;

inline constexpr KyCreateFunc* O_U1BCreate = &ky::NumberCreateZeros<ByteLSHelper>;
inline constexpr KyDeleteFunc* O_U1BDelete = &ky::NumberDelete;
inline constexpr KyCompareFunc* ByteCompare = &ky::NumberCompare<ByteLSHelper>;
inline constexpr KyEvalAndBoundFunc* ByteEvalAndBound = &ky::NumberEvalAndBound<ByteLSHelper>;
inline constexpr KyHashFunc* ByteHash = &ky::NumberHash<ByteLSHelper>;
inline constexpr KyConvertToFunc* O_U1BConvertToKyString = &ky::NumberConvertToKyString<ByteLSHelper>;
inline constexpr KyConvertFromFunc* O_U1BConvertFromKyString = &ky::NumberConvertFromKyString<ByteLSHelper>;
inline constexpr KyGetValueFunc* KyGetValueo_u1b = &ky::NumberGetValue<ByteLSHelper::Element>;

// --- Short: o_2b, o_u2b ---
inline constexpr KyCreateFunc* ShortCreate = &ky::NumberCreate<ShortLSHelper>;
inline constexpr KyDeleteFunc* ShortDelete = &ky::NumberDelete;
inline constexpr KySizeGetFromMemFileFunc* ShortSizeGetFromMemFile = &ky::WidthFromMemFile<ShortLSHelper>;
inline constexpr KyCompareFunc* ShortCompare = &ky::NumberCompare<ShortLSHelper>;
inline constexpr KyEvalAndBoundFunc* ShortEvalAndBound = &ky::NumberEvalAndBound<ShortLSHelper>;
inline constexpr KyHashFunc* ShortHash = &ky::NumberHash<ShortLSHelper>;
inline constexpr KyConvertToFunc* ShortConvertToKyString = &ky::NumberConvertToKyString<ShortLSHelper>;
inline constexpr KyConvertFromFunc* ShortConvertFromKyString = &ky::NumberConvertFromKyString<ShortLSHelper>;
inline constexpr KyConstructorFunc* ShortConstructor = &ky::NumberConstructor<ShortLSHelper>;
inline constexpr KyDestructorFunc* ShortDestructor = &ky::NumberDestructor;
inline constexpr KyAssignmentFunc* ShortAssignment = &ky::AssignArray<ShortLSHelper::Element>;
inline constexpr KyCopyFunc* ShortCopy = &ky::AssignArray<ShortLSHelper::Element>;
inline constexpr KyTranslateFunc* ShortTranslate = &ky::TranslateArray<ShortLSHelper>;
inline constexpr KyDefaultValueFunc* ShortDefaultValue = &ky::NumberDefaultValue<ShortLSHelper>;
inline constexpr KyGetValueFunc* KyGetValueo_2b = &ky::NumberGetValue<ShortLSHelper::Element>;

inline constexpr KyCreateFunc* WordCreate = &ky::NumberCreate<WordLSHelper>;
inline constexpr KyDeleteFunc* WordDelete = &ky::NumberDelete;
inline constexpr KyCompareFunc* WordCompare = &ky::NumberCompare<WordLSHelper>;
inline constexpr KyEvalAndBoundFunc* WordEvalAndBound = &ky::NumberEvalAndBound<WordLSHelper>;
inline constexpr KyHashFunc* WordHash = &ky::NumberHash<WordLSHelper>;
inline constexpr KyConvertToFunc* WordConvertToKyString = &ky::NumberConvertToKyString<WordLSHelper>;
inline constexpr KyConvertFromFunc* WordConvertFromKyString = &ky::NumberConvertFromKyString<WordLSHelper>;
inline constexpr KyGetValueFunc* KyGetValueo_u2b = &ky::NumberGetValue<WordLSHelper::Element>;

// --- Long: o_4b, o_u4b, BlockId ---
inline constexpr KyCreateFunc* LongCreate = &ky::NumberCreate<LongLSHelper>;
inline constexpr KyDeleteFunc* LongDelete = &ky::NumberDelete;
inline constexpr KySizeGetFromMemFileFunc* LongSizeGetFromMemFile = &ky::WidthFromMemFile<LongLSHelper>;
inline constexpr KyCompareFunc* LongCompare = &ky::NumberCompare<LongLSHelper>;
inline constexpr KyEvalAndBoundFunc* LongEvalAndBound = &ky::NumberEvalAndBound<LongLSHelper>;
inline constexpr KyHashFunc* LongHash = &ky::NumberHash<LongLSHelper>;
inline constexpr KyConvertToFunc* LongConvertToKyString = &ky::NumberConvertToKyString<LongLSHelper>;
inline constexpr KyConvertFromFunc* LongConvertFromKyString = &ky::NumberConvertFromKyString<LongLSHelper>;
inline constexpr KyConstructorFunc* LongConstructor = &ky::NumberConstructor<LongLSHelper>;
inline constexpr KyDestructorFunc* LongDestructor = &ky::NumberDestructor;
inline constexpr KyAssignmentFunc* LongAssignment = &ky::AssignArray<LongLSHelper::Element>;
inline constexpr KyCopyFunc* LongCopy = &ky::AssignArray<LongLSHelper::Element>;
inline constexpr KyTranslateFunc* LongTranslate = &ky::TranslateArray<LongLSHelper>;
inline constexpr KyDefaultValueFunc* LongDefaultValue = &ky::NumberDefaultValue<LongLSHelper>;
inline constexpr KyGetValueFunc* KyGetValueo_4b = &ky::NumberGetValue<LongLSHelper::Element>;

inline constexpr KyCreateFunc* KyDWordCreate = &ky::NumberCreate<DwordLSHelper>;
inline constexpr KyDeleteFunc* KyDWordDelete = &ky::NumberDelete;
inline constexpr KyCompareFunc* DwordCompare = &ky::NumberCompare<DwordLSHelper>;
inline constexpr KyEvalAndBoundFunc* DwordEvalAndBound = &ky::NumberEvalAndBound<DwordLSHelper>;
inline constexpr KyHashFunc* DwordHash = &ky::NumberHash<DwordLSHelper>;
inline constexpr KyConvertToFunc* KyDWordConvertToKyString = &ky::NumberConvertToKyString<DwordLSHelper>;
inline constexpr KyConvertFromFunc* KyDWordConvertFromKyString = &ky::NumberConvertFromKyString<DwordLSHelper>;
inline constexpr KyGetValueFunc* KyGetValueo_u4b = &ky::NumberGetValue<DwordLSHelper::Element>;

// --- O_8B: o_8b, o_u8b ---
inline constexpr KyCreateFunc* O_8BCreate = &ky::NumberCreate<O_8BLSHelper>;
inline constexpr KyDeleteFunc* O_8BDelete = &ky::NumberDelete;
inline constexpr KySizeGetFromMemFileFunc* O_8BSizeGetFromMemFile = &ky::WidthFromMemFile<O_8BLSHelper>;
inline constexpr KyCompareFunc* O_8BCompare = &ky::NumberCompare<O_8BLSHelper>;
inline constexpr KyEvalAndBoundFunc* O_8BEvalAndBound = &ky::NumberEvalAndBound<O_8BLSHelper>;
inline constexpr KyHashFunc* O_8BHash = &ky::NumberHash<O_8BLSHelper>;
inline constexpr KyConvertToFunc* O_8BConvertToKyString = &ky::NumberConvertToKyString<O_8BLSHelper>;
inline constexpr KyConvertFromFunc* O_8BConvertFromKyString = &ky::NumberConvertFromKyString<O_8BLSHelper>;
inline constexpr KyConstructorFunc* O_8BConstructor = &ky::NumberConstructor<O_8BLSHelper>;
inline constexpr KyDestructorFunc* O_8BDestructor = &ky::NumberDestructor;
inline constexpr KyAssignmentFunc* O_8BAssignment = &ky::AssignArray<O_8BLSHelper::Element>;
inline constexpr KyCopyFunc* O_8BCopy = &ky::AssignArray<O_8BLSHelper::Element>;
inline constexpr KyTranslateFunc* O_8BTranslate = &ky::TranslateArray<O_8BLSHelper>;
inline constexpr KyDefaultValueFunc* O_8BDefaultValue = &ky::NumberDefaultValue<O_8BLSHelper>;
inline constexpr KyGetValueFunc* KyGetValueo_8b = &ky::NumberGetValue<O_8BLSHelper::Element>;

inline constexpr KyCreateFunc* O_U8BCreate = &ky::NumberCreate<O_U8BLSHelper>;
inline constexpr KyDeleteFunc* O_U8BDelete = &ky::NumberDelete;
inline constexpr KyCompareFunc* O_U8BCompare = &ky::NumberCompare<O_U8BLSHelper>;
inline constexpr KyEvalAndBoundFunc* O_U8BEvalAndBound = &ky::NumberEvalAndBound<O_U8BLSHelper>;
inline constexpr KyHashFunc* O_U8BHash = &ky::NumberHash<O_U8BLSHelper>;
inline constexpr KyConvertToFunc* O_U8BConvertToKyString = &ky::NumberConvertToKyString<O_U8BLSHelper>;
inline constexpr KyConvertFromFunc* O_U8BConvertFromKyString = &ky::NumberConvertFromKyString<O_U8BLSHelper>;
inline constexpr KyGetValueFunc* KyGetValueo_u8b = &ky::NumberGetValue<O_U8BLSHelper::Element>;

// --- Int: int, unsigned, enum ---
inline constexpr KyCreateFunc* IntCreate = &ky::NumberCreate<IntLSHelper>;
inline constexpr KyDeleteFunc* IntDelete = &ky::NumberDelete;
inline constexpr KySizeGetFromMemFileFunc* IntSizeGetFromMemFile = &ky::FlagSizeFromMemFile<IntLSHelper>;
inline constexpr KyCompareFunc* IntCompare = &ky::NumberCompare<IntLSHelper>;
inline constexpr KyEvalAndBoundFunc* IntEvalAndBound = &ky::NumberEvalAndBound<IntLSHelper>;
inline constexpr KyHashFunc* IntHash = &ky::NumberHash<IntLSHelper>;
inline constexpr KyConvertToFunc* IntConvertToKyString = &ky::NumberConvertToKyString<IntLSHelper>;
inline constexpr KyConvertFromFunc* IntConvertFromKyString = &ky::NumberConvertFromKyString<IntLSHelper>;
inline constexpr KyConstructorFunc* IntConstructor = &ky::NumberConstructor<IntLSHelper>;
inline constexpr KyDestructorFunc* IntDestructor = &ky::NumberDestructor;
inline constexpr KyAssignmentFunc* IntAssignment = &ky::AssignArray<IntLSHelper::Element>;
inline constexpr KyCopyFunc* IntCopy = &ky::AssignArray<IntLSHelper::Element>;
inline constexpr KyTranslateFunc* IntTranslate = &ky::TranslateArray<IntLSHelper>;
inline constexpr KyTranslateFunc* EnumTranslate = &ky::TranslateArray<IntLSHelper>;
inline constexpr KyDefaultValueFunc* IntDefaultValue = &ky::NumberDefaultValue<IntLSHelper>;

inline constexpr KyCreateFunc* UnsignedCreate = &ky::NumberCreate<UnsignedLSHelper>;
inline constexpr KyDeleteFunc* UnsignedDelete = &ky::NumberDelete;
inline constexpr KyCompareFunc* UnsignedCompare = &ky::NumberCompare<UnsignedLSHelper>;
inline constexpr KyEvalAndBoundFunc* UnsignedEvalAndBound = &ky::NumberEvalAndBound<UnsignedLSHelper>;
inline constexpr KyHashFunc* UnsignedHash = &ky::NumberHash<UnsignedLSHelper>;
inline constexpr KyConvertToFunc* UnsignedConvertToKyString = &ky::NumberConvertToKyString<UnsignedLSHelper>;
inline constexpr KyConvertFromFunc* UnsignedConvertFromKyString = &ky::NumberConvertFromKyString<UnsignedLSHelper>;
inline constexpr KyTranslateFunc* UnsignedTranslate = &ky::TranslateArray<UnsignedLSHelper>;

// --- Float: o_float ---
inline constexpr KyCreateFunc* FloatCreate = &ky::NumberCreate<FloatLSHelper>;
inline constexpr KyDeleteFunc* FloatDelete = &ky::NumberDelete;
inline constexpr KySizeGetFromMemFileFunc* FloatSizeGetFromMemFile = &ky::FormSizeFromMemFile<FloatLSHelper>;
inline constexpr KyCompareFunc* FloatCompare = &ky::NumberCompare<FloatLSHelper>;
inline constexpr KyEvalAndBoundFunc* FloatEvalAndBound = &ky::NumberEvalAndBound<FloatLSHelper>;
inline constexpr KyHashFunc* FloatHash = &ky::NumberHash<FloatLSHelper>;
inline constexpr KyConvertToFunc* FloatConvertToKyString = &ky::NumberConvertToKyString<FloatLSHelper>;
inline constexpr KyConvertFromFunc* FloatConvertFromKyString = &ky::NumberConvertFromKyString<FloatLSHelper>;
inline constexpr KyConstructorFunc* FloatConstructor = &ky::NumberConstructor<FloatLSHelper>;
inline constexpr KyDestructorFunc* FloatDestructor = &ky::NumberDestructor;
inline constexpr KyAssignmentFunc* FloatAssignment = &ky::AssignArray<ky::BitsOf<FloatLSHelper::Element>>;
inline constexpr KyCopyFunc* FloatCopy = &ky::AssignArray<ky::BitsOf<FloatLSHelper::Element>>;
inline constexpr KyTranslateFunc* FloatTranslate = &ky::TranslateArray<FloatLSHelper>;
inline constexpr KyDefaultValueFunc* FloatDefaultValue = &ky::NumberDefaultValue<FloatLSHelper>;
inline constexpr KyGetValueFunc* KyGetValueo_float = &ky::NumberGetValue<FloatLSHelper::Element>;

// --- Double: o_double ---
inline constexpr KyCreateFunc* DoubleCreate = &ky::NumberCreate<DoubleLSHelper>;
inline constexpr KyDeleteFunc* DoubleDelete = &ky::NumberDelete;
inline constexpr KySizeGetFromMemFileFunc* DoubleSizeGetFromMemFile = &ky::FormSizeFromMemFile<DoubleLSHelper>;
inline constexpr KyCompareFunc* DoubleCompare = &ky::NumberCompare<DoubleLSHelper>;
inline constexpr KyEvalAndBoundFunc* DoubleEvalAndBound = &ky::NumberEvalAndBound<DoubleLSHelper>;
inline constexpr KyHashFunc* DoubleHash = &ky::NumberHash<DoubleLSHelper>;
inline constexpr KyConvertToFunc* DoubleConvertToKyString = &ky::NumberConvertToKyString<DoubleLSHelper>;
inline constexpr KyConvertFromFunc* DoubleConvertFromKyString = &ky::NumberConvertFromKyString<DoubleLSHelper>;
inline constexpr KyConstructorFunc* DoubleConstructor = &ky::NumberConstructor<DoubleLSHelper>;
inline constexpr KyDestructorFunc* DoubleDestructor = &ky::NumberDestructor;
inline constexpr KyAssignmentFunc* DoubleAssignment = &ky::AssignArray<ky::BitsOf<DoubleLSHelper::Element>>;
inline constexpr KyCopyFunc* DoubleCopy = &ky::AssignArray<ky::BitsOf<DoubleLSHelper::Element>>;
inline constexpr KyTranslateFunc* DoubleTranslate = &ky::TranslateArray<DoubleLSHelper>;
inline constexpr KyDefaultValueFunc* DoubleDefaultValue = &ky::NumberDefaultValue<DoubleLSHelper>;
inline constexpr KyGetValueFunc* KyGetValueo_double = &ky::NumberGetValue<DoubleLSHelper::Element>;

#endif
