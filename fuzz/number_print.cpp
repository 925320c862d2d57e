// Any bytes as a number of any plain type, printed with any format; the row's own format has to scan back.

#include "input.h"
#include "kystring.h"
#include "kytypmgr.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    const char id = NumberId(input);
    const std::string format = input.Text();
    unsigned char bytes[8] = {};
    for (unsigned char& byte : bytes) byte = input.Byte();

    void* value = types.Create(id, 2);
    types.ConstructorPtrGet(id)(value, 2, 0);
    types.Load(id, value, bytes, KyFormNative, 1);
    KyString text;
    types.PrintToKyString(id, text, value, format.c_str(), 1);

    types.PrintToKyString(id, text, value, nullptr, 1);
    void* back = types.GetArrayElement(id, value, 1, 2);
    types.ScanFromKyString(id, back, text, nullptr, 1);
    if (types.Cmp(id, value, back, 0, 1, KyFormMemory) != 0) __builtin_trap();
    types.Delete(id, value, 2);
    return 0;
}
