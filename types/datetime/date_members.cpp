#include "date_value_text.h"
#include "kydatime.h"
#include "kydatimeN.h"

// The text members of dates and times. Where no format is given each class has one that reads back as it was printed.

namespace {

const char* FormatOr(const char* format, const char* own) { return format != nullptr ? format : own; }

template <class Value>
Value* Scan(Value& value, KyString& in, const char* format) {
    return ky::ScanValue(value, in, format) ? &value : nullptr;
}

}  // namespace

KyString& KyDate::PrintToKyString(KyString& out, const char* format) const {
    return ky::PrintValue(out, *this, FormatOr(format, ky::kDateFormat));
}
KyDate* KyDate::ScanFromKyString(KyString& in, const char* format) {
    return Scan(*this, in, FormatOr(format, ky::kDateFormat));
}

KyString& KyTime::PrintToKyString(KyString& out, const char* format) const {
    return ky::PrintValue(out, *this, FormatOr(format, ky::kTimeFormat));
}
KyTime* KyTime::ScanFromKyString(KyString& in, const char* format) {
    return Scan(*this, in, FormatOr(format, ky::kTimeFormat));
}

KyString& KyDateTime::PrintToKyString(KyString& out, const char* format) const {
    return ky::PrintValue(out, *this, FormatOr(format, ky::kDateTimeFormat));
}
KyDateTime* KyDateTime::ScanFromKyString(KyString& in, const char* format) {
    return Scan(*this, in, FormatOr(format, ky::kDateTimeFormat));
}

KyString& KyDateTime_::PrintToKyString(KyString& out, const char* format) const {
    return ky::PrintValue(out, *this, FormatOr(format, ky::kDateTimeNFormat));
}
KyDateTime_* KyDateTime_::ScanFromKyString(KyString& in, const char* format) {
    return Scan(*this, in, FormatOr(format, ky::kDateTimeNFormat));
}

KyString& KyDateTimeN::PrintToKyString(KyString& out, const char* format) const {
    return KyDateTime_::PrintToKyString(out, format);
}
KyDateTimeN* KyDateTimeN::ScanFromKyString(KyString& in, const char* format) {
    return Scan(*this, in, FormatOr(format, ky::kDateTimeNFormat));
}

KyString& KyTimeSpan::PrintToKyString(KyString& out, const char* format) const {
    return KyDateTime_::PrintToKyString(out, FormatOr(format, ky::kTimeSpanFormat));
}
KyTimeSpan* KyTimeSpan::ScanFromKyString(KyString& in, const char* format) {
    return Scan(*this, in, FormatOr(format, ky::kTimeSpanFormat));
}
