/// The rows of strings, in both layouts. Until the persistent forms are built they hold what follows from the
/// class itself: making, freeing and null, on which conversion records of every type rely.

#include "empty_row.h"
#include "kystring.h"
#include "kytypes.h"

KyIsNullFunc KyStringIsNull;
KySetNullFunc KyStringSetNull;

int KyStringIsNull(void* value) { return static_cast<KyString*>(value)->IsNullValue(); }

int KyStringSetNull(void* value) { return static_cast<KyString*>(value)->SetNullValue(); }

namespace {

void* CreateStrings(unsigned count) { return KyStringCreate(count); }

consteval KyTypeTab StringRow() {
    KyTypeTab row = ky::EmptyRow("KyString", "KySTRING_T", "%s", sizeof(KyString));
    row.Create = CreateStrings;
    row.Delete = KyStringDelete;
    return row;
}

consteval KyTypeTab NullableStringRow() {
    KyTypeTab row = StringRow();
    row.IsNull = KyStringIsNull;
    row.SetNull = KyStringSetNull;
    return row;
}

}  // namespace

constinit KyTypeTab KyStringTab = NullableStringRow();
/// Strings of the older layout have no null: it keeps no language.
constinit KyTypeTab KyOldStringTab = StringRow();
