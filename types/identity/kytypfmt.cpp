#include "kytypfmt.h"

constinit const char* pSpecialDoubleFmt = "ldexp(";
