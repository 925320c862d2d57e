#ifndef DATE_TEXT_PRINT_ITEMS_H
#define DATE_TEXT_PRINT_ITEMS_H

#include "date_text.h"

namespace ky {

/// `PrintDateTime`, directive by directive, whatever the parts and the format are.
void PrintItems(KyString& out, const DateTimeParts& parts, const char* format, const DatePrintRules& rules);

}  // namespace ky

#endif
