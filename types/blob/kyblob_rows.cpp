// The row of blobs.

#include "kyblob_slots.h"
#include "kytypes.h"
#include "shared_slots.h"

constinit KyTypeTab KyBlobTab = {
    .typeName = "KyBlob",
    .typeCodeName = "KyBLOB_T",
    .Create = BlobCreate,
    .Delete = BlobDelete,
    .Store = BlobStore,
    .Load = BlobLoad,
    .NullSizeGet = BlobNullSizeGet,
    .SizeGet = BlobSizeGet,
    .SizeGetFromMemFile = BlobSizeGetFromMemFile,
    .Compare = BlobCompare,
    .EvalAndBound = BlobEvalAndBound,
    .Hash = BlobHash,
    .ConvertToKyString = BlobConvertToKyString,
    .ConvertFromKyString = BlobConvertFromKyString,
    .Constructor = BlobConstructor,
    .Destructor = BlobDestructor,
    .Assignment = BlobAssignment,
    .Copy = BlobCopy,
    .Translate = BlobTranslate,
    .IsNull = BlobIsNull,
    .SetNull = BlobSetNull,
    .printFormat = ky::kBlobFormat,
    .PrintToKyString = BlobPrintToKyString,
    .ScanFromKyString = BlobScanFromKyString,
    .sizeWord = sizeof(KyBlob),
    .DefaultValue = BlobDefaultValue,
    .GetValue = KyGetValueFuncDummy,
    .end = nullptr,
};
