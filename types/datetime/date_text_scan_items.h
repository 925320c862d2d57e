#ifndef DATE_TEXT_SCAN_ITEMS_H
#define DATE_TEXT_SCAN_ITEMS_H

#include "date_text.h"

namespace ky {

/// Reads a text that is no null text, directive by directive, whatever text and format are. All bytes before `limit`
/// are readable.
DateScan ScanItems(DateTimeParts& parts, const char* text, const char* limit, const char* format);

}  // namespace ky

#endif
