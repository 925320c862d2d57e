#ifndef EMPTY_ROW_H
#define EMPTY_ROW_H

#include "kytypes.h"
#include "shared_slots.h"

namespace ky {

/// A row whose functions answer every call with nothing.
consteval KyTypeTab EmptyRow(const char* typeName, const char* typeCodeName, const char* printFormat,
                             unsigned sizeWord) {
    return {
        .typeName = typeName,
        .typeCodeName = typeCodeName,
        .Create = KyIllegalCreate,
        .Delete = KyIllegalDelete,
        .Store = KyIllegalStore,
        .Load = KyIllegalStore,
        .NullSizeGet = KyIllegalNullSizeGet,
        .SizeGet = KyIllegalSizeGet,
        .SizeGetFromMemFile = KyIllegalSizeGetFromMemFile,
        .Compare = KyIllegalCompare,
        .EvalAndBound = KyIllegalEvalAndBound,
        .Hash = KyIllegalHash,
        .ConvertToKyString = KyIllegalConvertToKyString,
        .ConvertFromKyString = KyIllegalConvertFromKyString,
        .Constructor = KyIllegalConstructor,
        .Destructor = KyIllegalConstructor,
        .Assignment = KyIllegalAssignment,
        .Copy = KyIllegalAssignment,
        .Translate = KyIllegalTranslate,
        .IsNull = NoIsNullDefined,
        .SetNull = nullptr,
        .printFormat = printFormat,
        .PrintToKyString = KyIllegalPrintToKyString,
        .ScanFromKyString = KyIllegalScanFromKyString,
        .sizeWord = sizeWord,
        .DefaultValue = KyIllegalDefaultValue,
        .GetValue = KyGetValueFuncDummy,
        .end = nullptr,
    };
}

}  // namespace ky

#endif
