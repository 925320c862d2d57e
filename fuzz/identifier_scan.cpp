// Any text, scanned with any format or the own one into an identifier of each kind; what is printed of it has to scan
// back.

#include "input.h"
#include "kyobjid.h"
#include "kystring.h"
#include "kytypfmt.h"
#include "kytypmgr.h"

namespace {

/// Formats that keep every field.
const char* FullFormat(char id) { return id == KyREF_T ? KyRefVersionFmt : nullptr; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    const char ids[] = {KyOBJID_T, KyCLID_T, KyREF_T};
    const char id = ids[input.Byte() % 3];
    const bool ownFormat = (input.Byte() & 1) != 0;
    const std::string format = input.Text();
    const std::string given = input.Text();
    KyString text(given.c_str());

    void* value = types.Create(id, 2);
    void* back = types.GetArrayElement(id, value, 1, 2);
    if (types.ScanFromKyString(id, value, text, ownFormat ? nullptr : format.c_str(), 1) != value) __builtin_trap();
    KyString printed;
    types.PrintToKyString(id, printed, value, format.c_str(), 1);

    types.PrintToKyString(id, printed, value, FullFormat(id), 1);
    types.ScanFromKyString(id, back, printed, FullFormat(id), 1);
    unsigned char stored[2][16] = {};
    types.Store(id, stored[0], value, KyFormNative, 1);
    types.Store(id, stored[1], back, KyFormNative, 1);
    // A null is one whatever its other fields hold; they are not printed.
    const bool null = types.IsNullValue(id, value) != 0;
    if (null ? types.IsNullValue(id, back) == 0 : std::memcmp(stored[0], stored[1], 16) != 0) __builtin_trap();
    types.Delete(id, value, 2);
    return 0;
}
