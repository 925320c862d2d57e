#ifndef DATE_FACTS_H
#define DATE_FACTS_H

/// What the text slots have to know of each date and time type; see `date_convert.h`.

#include "date_convert.h"
#include "date_text_slots.h"
#include "kydatime.h"
#include "kydatimeN.h"
#include "kytypes.h"

namespace ky {

template <class Class, KyTypeTab& row, auto* print, auto* scan>
struct DateTextFacts {
    using Value = Class;
    static constexpr auto* Print = print;
    static constexpr auto* Scan = scan;
    static const char* Format() { return row.printFormat; }
    static Value WithoutText() { return Value::NullValue(); }
};

using KyDateText = DateTextFacts<KyDate, KyDateTab, &KyDatePrintToKyString, &KyDateScanFromKyString>;
using KyTimeText = DateTextFacts<KyTime, KyTimeTab, &KyTimePrintToKyString, &KyTimeScanFromKyString>;
using KyDateTimeText =
    DateTextFacts<KyDateTime, KyDateTimeTab, &KyDateTimePrintToKyString, &KyDateTimeScanFromKyString>;
using KyDateTimeNText =
    DateTextFacts<KyDateTimeN, KyDateTimeNTab, &KyDateTimeNPrintToKyString, &KyDateTimeNScanFromKyString>;
using KyTimeSpanText =
    DateTextFacts<KyTimeSpan, KyTimeSpanTab, &KyTimeSpanPrintToKyString, &KyTimeSpanScanFromKyString>;

/// The slot. `which`: 0 gives the value of an empty text, whose fields are all 0, anything else null.
template <class Facts>
void* DateDefaultValue(unsigned count, int which) {
    return which == 0 ? DateFromEmptyTexts<Facts>(count) : DateConvertFromKyString<Facts>(nullptr, count);
}

}  // namespace ky

#endif
