#include "empty_row.h"
#include "kytypes.h"

constinit KyTypeTab KyStringTab = ky::EmptyRow("KyString", "KySTRING_T", "%s", 16);
constinit KyTypeTab KyOldStringTab = ky::EmptyRow("KyString", "KySTRING_T", "%s", 16);
