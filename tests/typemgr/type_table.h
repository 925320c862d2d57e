#ifndef TYPE_TABLE_H
#define TYPE_TABLE_H

#include "kytypes.h"

/// What each id stands for, written out once more beside the rows themselves.
struct ExpectedType {
    int id;
    KyTypeTab* row;
    const char* name;
    const char* codeName;
    const char* format;
    bool fixed;
    unsigned size;
    bool hasNull;
};

inline const ExpectedType expectedTypes[] = {
    {0, &KyCharTab, "o_char", "Ky1B_T", "%c", true, 1, false},
    {1, &KyShortTab, "o_2b", "Ky2B_T", "%hd", true, 2, false},
    {2, &KyLongTab, "o_4b", "Ky4B_T", "%ld", true, 4, false},
    {3, &KyDoubleTab, "o_double", "KyDOUBLE_T", "%.17g", true, 8, false},
    {4, &KyFloatTab, "o_float", "KyFLOAT_T", "%.17g", true, 4, false},
    {5, &KyWordTab, "o_u2b", "KyU2B_T", "%hu", true, 2, false},
    {6, &KyDWordTab, "o_u4b", "KyU4B_T", "%lu", true, 4, false},
    {7, &KyIntTab, "int", "KyINT_T", "%d", true, 4, false},
    {8, &KyUnsignedTab, "unsigned", "KyUNSIGNED_T", "%u", true, 4, false},
    {9, &KyEnumTab, "enum", "KyENUM_T", "%d", true, 4, false},
    {10, &KyByteTab, "o_u1b", "KyU1B_T", "%c", true, 1, false},
    {11, &KyStringTab, "KyString", "KySTRING_T", "%s", false, 16, true},
    {12, &KyDateTab, "KyDate", "KyDATE_T", "%a %e.%b %Y", true, 4, true},
    {13, &KyTimeTab, "KyTime", "KyTIME_T", "%I:%M:%S %p", true, 3, true},
    {14, &KyBlockIdTab, "BlockId", "KyBLOCKID_T", "#%lu", true, 4, false},
    {15, &KyObjIdTab, "KyObjId", "KyOBJID_T", "(%H-%L#%B)", true, 12, true},
    {16, &KyClassIdTab, "KyClassId", "KyCLID_T", "(%Cv%V)", true, 4, true},
    {17, &KyRefTab, "KyRef", "KyREF_T", "(%D:%H-%L#%B, %C)", true, 16, true},
    {18, &KyBlobTab, "KyBlob", "KyBLOB_T", "[BLOB,len=%L]", false, 8, true},
    {19, &KyDateTimeTab, "KyDateTime", "KyDATIME_T", "%a %e.%b %Y %I:%M:%S %p", true, 8, true},
    {20, &KyIStringTab, "KyIString", "KyISTRING_T", "%s", false, 16, false},
    {21, &KyCaseIStringTab, "KyCaseIString", "KyCASEISTRING_T", "%s", false, 16, false},
    {22, &Kyd_DateTab, "d_Date", "D_DATE_T", "%a %b %e", true, 4, false},
    {23, &Kyd_TimeTab, "d_Time", "D_TIME_T", "%I:%M:%S %p", true, 6, false},
    {24, &Kyd_TimestampTab, "d_Timestamp", "D_TIMESTAMP_T", "%a %b %e %I:%M:%S %p", true, 10, false},
    {25, &Kyd_IntervalTab, "d_Interval", "D_INTERVAL_T", "%e days, %I hours, %M minutes, %S seconds", true, 4, false},
    {26, &KyInt64Tab, "KyInt64", "KyINT64_T", "%S", true, 8, false},
    {27, &KyBooleanTab, "KyBoolean", "KyBOOLEAN_T", "noop", true, 1, true},
    {28, &KyNull_charTab, "KyNull_char", "KyNULL_1B_T", "%c", true, 2, true},
    {29, &KyNull_ucharTab, "KyNull_uchar", "KyNULL_U1B_T", "%c", true, 2, true},
    {30, &KyNull_shortTab, "KyNull_short", "KyNULL_2B_T", "%hd", true, 4, true},
    {31, &KyNull_ushortTab, "KyNull_ushort", "KyNULL_U2B_T", "%hu", true, 4, true},
    {32, &KyNull_intTab, "KyNull_int", "KyNULL_INT_T", "%d", true, 8, true},
    {33, &KyNull_unsignedTab, "KyNull_unsigned", "KyNULL_UNSIGNED_T", "%u", true, 8, true},
    {34, &KyNull_longTab, "KyNull_long", "KyNULL_4B_T", "%ld", true, 8, true},
    {35, &KyNull_ulongTab, "KyNull_ulong", "KyNULL_U4B_T", "%lu", true, 8, true},
    {36, &KyNull_floatTab, "KyNull_float", "KyNULL_FLOAT_T", "%.17g", true, 8, true},
    {37, &KyNull_doubleTab, "KyNull_double", "KyNULL_DOUBLE_T", "%.17g", true, 16, true},
    {38, &KyNull_KyInt64Tab, "KyNull_KyInt64", "KyNULL_KYINT64_T", "%S", true, 12, true},
    {39, &KySealTab, "KySeal", "KySEAL_T", "noop", true, 6, false},
    {40, &KyDateTimeNTab, "KyDateTimeN", "KyDATIME_N_T", "%X", true, 12, true},
    {41, &KyTimeSpanTab, "KyTimeSpan", "KyTIMESPAN_T", "%V", true, 12, true},
    {42, &Ky8BTab, "o_8b", "Ky8B_T", "%lld", true, 8, false},
    {43, &KyU8BTab, "o_u8b", "KyU8B_T", "%llu", true, 8, false},
    {44, &KyNull_8bTab, "KyNull_8b", "KyNULL_8B_T", "%lld", true, 16, true},
    {45, &KyNull_u8bTab, "KyNull_u8b", "KyNULL_U8B_T", "%llu", true, 16, true},
    {46, &KyIllegalTab, "illegal", "KyRES_T", "illegal", true, 0, false},
};

#endif
