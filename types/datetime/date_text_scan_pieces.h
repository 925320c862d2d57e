#ifndef DATE_TEXT_SCAN_PIECES_H
#define DATE_TEXT_SCAN_PIECES_H

#include "date_text.h"
#include "date_text_pieces.h"

namespace ky {

/// Reads a text, of which all bytes before `limit` are readable, in a recognised format into parts that are 0. False,
/// with anything in the parts, when the text is not what printing such a format usually gives.
bool ScanPieces(const char* text, const char* limit, const FormatPieces& format, DateTimeParts& parts);

}  // namespace ky

#endif
