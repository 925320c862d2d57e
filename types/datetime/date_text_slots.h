#ifndef DATE_TEXT_SLOTS_H
#define DATE_TEXT_SLOTS_H

/// Print and Scan of the date and time rows: the first value, whatever the count. Print replaces the output's content,
/// by the null print string for a null value. Scan gives the value pointer, or null when the text ends early (what was
/// read till then is stored) or there is no value. A null format stands for the row's.

#include "kytypes.h"

KyPrintFunc KyDatePrintToKyString;
KyPrintFunc KyTimePrintToKyString;
KyPrintFunc KyDateTimePrintToKyString;
KyPrintFunc KyDateTime_PrintToKyString;
KyPrintFunc KyDateTimeNPrintToKyString;  ///< `KyDateTime_PrintToKyString`
KyPrintFunc KyTimeSpanPrintToKyString;   ///< `KyDateTime_PrintToKyString`

KyScanFunc KyDateScanFromKyString;
KyScanFunc KyTimeScanFromKyString;
KyScanFunc KyDateTimeScanFromKyString;
KyScanFunc KyDateTime_ScanFromKyString;
KyScanFunc KyDateTimeNScanFromKyString;  ///< `KyDateTime_ScanFromKyString`
KyScanFunc KyTimeSpanScanFromKyString;   ///< `KyDateTime_ScanFromKyString`

#endif
