// The row of seals.

#include "kyseal_slots.h"
#include "kytypes.h"
#include "shared_slots.h"

constinit KyTypeTab KySealTab = {
    .typeName = "KySeal",
    .typeCodeName = "KySEAL_T",
    .Create = SealCreate,
    .Delete = SealDelete,
    .Store = SealStore,
    .Load = SealLoad,
    .NullSizeGet = SealNullSizeGet,
    .SizeGet = SealSizeGet,
    .SizeGetFromMemFile = SealSizeGetFromMemFile,
    .Compare = SealCompare,
    .EvalAndBound = SealEvalAndBound,
    .Hash = SealHash,
    .ConvertToKyString = SealConvertToKyString,
    .ConvertFromKyString = SealConvertFromKyString,
    .Constructor = SealConstructor,
    .Destructor = SealDestructor,
    .Assignment = SealAssignment,
    .Copy = SealCopy,
    .Translate = SealTranslate,
    .IsNull = NoIsNullDefined,
    .SetNull = nullptr,
    .printFormat = "noop",
    .PrintToKyString = SealPrintToKyString,
    .ScanFromKyString = SealScanFromKyString,
    .sizeWord = KyFixedSize | sizeof(KySeal),
    .DefaultValue = SealDefaultValue,
    .GetValue = KyGetValueFuncDummy,
    .end = nullptr,
};
