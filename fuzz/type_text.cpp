// Any text read as a value of any type: by its scanner with any format, out of a conversion record, and in the older
// form of texts. What a record or an older text says of a value is read back.

#include "input.h"
#include "kystring.h"
#include "kytypmgr.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    const char id = static_cast<char>(input.Byte() % KyRES_T);
    const unsigned char kinds = input.Byte();
    const unsigned count = 1 + (kinds >> 4) % 4;
    const std::string format = input.Text();
    KyString text(input.Text().c_str());
    if ((kinds & 2) != 0) text.MapToCodeSet(253);

    void* value = types.DefaultValue(id, count, 0);
    if (value == nullptr) return 0;
    void* scanned = types.ScanFromKyString(id, value, text, (kinds & 1) != 0 ? nullptr : format.c_str(), 1);
    if (scanned != nullptr && scanned != value) __builtin_trap();
    KyString printed;
    types.PrintToKyString(id, printed, value, (kinds & 1) != 0 ? nullptr : format.c_str(), count);

    KyTypeConvertData* record = types.ConvertTo(id, value, count);
    if (record != nullptr) {
        if (record->count != count || record->typeId != KySTRING_T) __builtin_trap();
        void* back = types.ConvertFrom(id, record, count);
        if (back != nullptr) types.Delete(id, back, count);
        if (KyString* first = record->GetString(0)) *first = text;
        back = types.ConvertFrom(id, record, count);
        if (back != nullptr) types.Delete(id, back, count);
        delete record;
    }
    KyString* old = types.ConvertToKyStringOld(value, id, count);
    types.Delete(id, value, count);
    if (old != nullptr) {
        void* back = types.ConvertFromKyStringOld(old, id, count);
        if (back != nullptr) types.Delete(id, back, count);
        KyStringDelete(old, 1);
    }
    KyString consumed(text);
    void* fromText = types.ConvertFromKyStringOld(&consumed, id, count);
    if (fromText != nullptr) types.Delete(id, fromText, count);
    return 0;
}
