// The rows of strings: the current one, and the one of the old persistent layout.

#include "kystring.h"
#include "kystring_slots.h"
#include "kytypes.h"
#include "shared_slots.h"
#include "string_bounds.h"

constinit KyTypeTab KyStringTab = {
    .typeName = "KyString",
    .typeCodeName = "KySTRING_T",
    .Create = StringCreate,
    .Delete = StringDelete,
    .Store = StringStore,
    .Load = StringLoad,
    .NullSizeGet = StringNullSizeGet,
    .SizeGet = StringSizeGet,
    .SizeGetFromMemFile = StringSizeGetFromMemFile,
    .Compare = StringCompare,
    .EvalAndBound = StringEvalAndBound,
    .Hash = StringHash,
    .ConvertToKyString = KyStringConvertToKyString,
    .ConvertFromKyString = KyStringConvertFromKyString,
    .Constructor = KyStringConstructor,
    .Destructor = KyStringDestructor,
    .Assignment = KyStringAssignment,
    .Copy = KyStringCopy,
    .Translate = KyStringTranslate,
    .IsNull = KyStringIsNull,
    .SetNull = KyStringSetNull,
    .printFormat = "%s",
    .PrintToKyString = KyStringPrintToKyString,
    .ScanFromKyString = KyStringScanFromKyString,
    .sizeWord = sizeof(KyString),
    .DefaultValue = KyStringDefaultValue,
    .GetValue = KyGetValueKyString,
    .end = nullptr,
};

constinit KyTypeTab KyOldStringTab = {
    .typeName = "KyString",
    .typeCodeName = "KySTRING_T",
    .Create = StringCreate,
    .Delete = StringDelete,
    .Store = StringOldStore,
    .Load = StringLoad,
    .NullSizeGet = StringNullSizeGet,
    .SizeGet = StringOldSizeGet,
    .SizeGetFromMemFile = StringOldSizeGetFromMemFile,
    .Compare = StringOldCompare,
    .EvalAndBound = StringOldEvalAndBound,
    .Hash = StringOldHash,
    .ConvertToKyString = KyStringConvertToKyString,
    .ConvertFromKyString = KyStringConvertFromKyString,
    .Constructor = KyStringConstructor,
    .Destructor = KyStringDestructor,
    .Assignment = KyStringAssignment,
    .Copy = KyStringCopy,
    .Translate = KyStringOldTranslate,
    .IsNull = NoIsNullDefined,
    .SetNull = nullptr,
    .printFormat = "%s",
    .PrintToKyString = KyStringPrintToKyString,
    .ScanFromKyString = KyStringScanFromKyString,
    .sizeWord = sizeof(KyString),
    .DefaultValue = KyStringDefaultValue,
    .GetValue = KyGetValueFuncDummy,
    .end = nullptr,
};
