#include "date_text_slots.h"

#include "date_value_text.h"

namespace {

/// The format that counts: the caller's, the row's as it is at the time, or, when that was taken away, the class's own.
const char* FormatOf(const char* format, const KyTypeTab& row, const char* own) {
    if (format != nullptr) return format;
    return row.printFormat != nullptr ? row.printFormat : own;
}

template <class Value>
KyString& Print(KyString& out, const void* value, const char* format) {
    return ky::PrintValue(out, *static_cast<const Value*>(value), format);
}

template <class Value>
void* Scan(void* value, KyString& text, const char* format) {
    if (value == nullptr) return nullptr;
    return ky::ScanValue(*static_cast<Value*>(value), text, format) ? value : nullptr;
}

}  // namespace

KyString& KyDatePrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return Print<KyDate>(out, value, FormatOf(format, KyDateTab, ky::kDateFormat));
}
KyString& KyTimePrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return Print<KyTime>(out, value, FormatOf(format, KyTimeTab, ky::kTimeFormat));
}
KyString& KyDateTimePrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return Print<KyDateTime>(out, value, FormatOf(format, KyDateTimeTab, ky::kDateTimeFormat));
}
KyString& KyDateTime_PrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    return Print<KyDateTime_>(out, value, FormatOf(format, KyDateTimeNTab, ky::kDateTimeNFormat));
}
KyString& KyDateTimeNPrintToKyString(KyString& out, void* value, const char* format, unsigned count) {
    return KyDateTime_PrintToKyString(out, value, format, count);
}
KyString& KyTimeSpanPrintToKyString(KyString& out, void* value, const char* format, unsigned count) {
    return KyDateTime_PrintToKyString(out, value, FormatOf(format, KyTimeSpanTab, ky::kTimeSpanFormat), count);
}

void* KyDateScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return Scan<KyDate>(value, text, FormatOf(format, KyDateTab, ky::kDateFormat));
}
void* KyTimeScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return Scan<KyTime>(value, text, FormatOf(format, KyTimeTab, ky::kTimeFormat));
}
void* KyDateTimeScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return Scan<KyDateTime>(value, text, FormatOf(format, KyDateTimeTab, ky::kDateTimeFormat));
}
void* KyDateTime_ScanFromKyString(void* value, KyString& text, const char* format, unsigned) {
    return Scan<KyDateTime_>(value, text, FormatOf(format, KyDateTimeNTab, ky::kDateTimeNFormat));
}
void* KyDateTimeNScanFromKyString(void* value, KyString& text, const char* format, unsigned count) {
    return KyDateTime_ScanFromKyString(value, text, format, count);
}
void* KyTimeSpanScanFromKyString(void* value, KyString& text, const char* format, unsigned count) {
    return KyDateTime_ScanFromKyString(value, text, FormatOf(format, KyTimeSpanTab, ky::kTimeSpanFormat), count);
}
