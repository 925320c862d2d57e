#ifndef DATE_TEXT_PRINT_PIECES_H
#define DATE_TEXT_PRINT_PIECES_H

#include "date_text.h"
#include "date_text_pieces.h"

namespace ky {

/// Room that the text of any pieces takes, with what is written behind it on the way.
inline constexpr unsigned kPiecesTextSize = 96;

/// Writes the parts in a recognised format to `out`, `kPiecesTextSize` bytes; returns the end of the text, or null when
/// a part is not one that the format shows with its usual number of digits.
char* PrintPieces(char* out, const FormatPieces& format, const DateTimeParts& parts, const DatePrintRules& rules);

}  // namespace ky

#endif
