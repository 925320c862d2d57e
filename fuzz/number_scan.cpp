// Any text, scanned with any format or the row's own, into one number of any type.

#include "input.h"
#include "kystring.h"
#include "kytypmgr.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    const char id = AnyNumberId(input);
    const bool ownFormat = (input.Byte() & 1) != 0;
    const std::string format = input.Text();
    KyString text(input.Text().c_str());

    void* value = types.Create(id, 1);
    types.ConstructorPtrGet(id)(value, 1, 0);
    if (types.ScanFromKyString(id, value, text, ownFormat ? nullptr : format.c_str(), 1) != value) __builtin_trap();
    types.Delete(id, value, 1);
    return 0;
}
