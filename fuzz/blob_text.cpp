// Texts scanned into blobs, and formats that blobs are printed by.

#include "input.h"
#include "kyblob.h"
#include "kystring.h"
#include "kytypmgr.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    const std::string text = input.Text();
    const std::string format = input.Text();
    KyString scanned(text.c_str());
    KyBlob blob("before");
    const KyBlob before(blob);
    const bool isValue = types.ScanFromKyString(KyBLOB_T, &blob, scanned, format.c_str(), 1) != nullptr;
    if (!isValue && blob != before) __builtin_trap();

    KyTypeConvertData* record = types.ConvertTo(KyBLOB_T, &blob, 1);
    if (record == nullptr) __builtin_trap();
    void* back = types.ConvertFrom(KyBLOB_T, record, 1);
    if (back == nullptr || types.Cmp(KyBLOB_T, back, &blob, 0, 1, KyFormMemory) != 0) __builtin_trap();
    types.Delete(KyBLOB_T, back, 1);
    delete record;

    KyString out;
    types.PrintToKyString(KyBLOB_T, out, &blob, format.c_str(), 1);
    return 0;
}
