// Values and their texts: formats, the text of null, values between types.

#include <kyboolean.h>
#include <kydatime.h>
#include <kynull.h>
#include <kystring.h>
#include <kytypmgr.h>

#include <cstdio>

namespace {

void Print(KyTypeMgr& types, char type, void* value, const char* format) {
    KyString text;
    std::printf("%s\n", types.PrintToKyString(type, text, value, format, 1).StrGet());
}

}  // namespace

int main() {
    KyTypeMgr types(5);

    //! [formats]
    // Each type has a format of its own, and takes another one from its caller.
    KyDateTime landing(KyDate(1969, 7, 20), KyTime(20, 17, 40));
    Print(types, KyDATIME_T, &landing, nullptr);
    Print(types, KyDATIME_T, &landing, "%Y-%m-%d %H:%M:%S");
    double tenth = 0.1;
    Print(types, KyDOUBLE_T, &tenth, nullptr);
    Print(types, KyDOUBLE_T, &tenth, "%.3f");
    //! [formats]

    //! [null]
    // Nulls of all types print as one text, which an application may choose.
    KyNull_int unknown;
    types.SetNullValue(KyNULL_INT_T, &unknown);
    Print(types, KyNULL_INT_T, &unknown, nullptr);
    KyTypeMgr::SetNullPrintString("unknown");
    Print(types, KyNULL_INT_T, &unknown, nullptr);
    KyTypeMgr::SetNullPrintString("{NULL}");
    //! [null]

    //! [convert]
    // A value becomes one of another type by way of text.
    int number = 12;
    KyTypeConvertData* record = types.ConvertTo(KyINT_T, &number, 1);
    auto* wide = static_cast<double*>(types.ConvertFrom(KyDOUBLE_T, record, 1));
    std::printf("%g\n", *wide / 8);
    types.Delete(KyDOUBLE_T, wide, 1);
    delete record;
    //! [convert]
    return 0;
}
