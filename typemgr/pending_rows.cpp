/// Rows of the types that are not built yet: named and measured like their types, and answering every call
/// with nothing. A type that is built takes its line away from here; with the last line this file goes.

#include "empty_row.h"
#include "kytypes.h"

namespace {

enum class Null { none, has };

int PendingIsNull(void*) { return 0; }

/// Not empty, so that the type counts as one with a null value; nothing is set to null yet.
int PendingSetNull(void*) { return KyErrNotSupported; }

consteval KyTypeTab Pending(const char* typeName, const char* typeCodeName, const char* printFormat, unsigned sizeWord,
                            Null null) {
    KyTypeTab row = ky::EmptyRow(typeName, typeCodeName, printFormat, sizeWord);
    if (null == Null::has) {
        row.IsNull = PendingIsNull;
        row.SetNull = PendingSetNull;
    }
    return row;
}

consteval unsigned Fixed(unsigned bytes) { return KyFixedSize | bytes; }

}  // namespace

// clang-format off
constinit KyTypeTab Kyd_DateTab        = Pending("d_Date", "D_DATE_T", "%a %b %e", Fixed(4), Null::none);
constinit KyTypeTab Kyd_TimeTab        = Pending("d_Time", "D_TIME_T", "%I:%M:%S %p", Fixed(6), Null::none);
constinit KyTypeTab Kyd_TimestampTab   = Pending("d_Timestamp", "D_TIMESTAMP_T", "%a %b %e %I:%M:%S %p", Fixed(10), Null::none);
constinit KyTypeTab Kyd_IntervalTab    = Pending("d_Interval", "D_INTERVAL_T", "%e days, %I hours, %M minutes, %S seconds", Fixed(4), Null::none);
// clang-format on
