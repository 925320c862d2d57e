#ifndef NUMBER_TEXT_H
#define NUMBER_TEXT_H

/// Print and scan of the plain numbers: the slots of the families, and the pieces that other types share.
///
/// Formats are the C library's, the results the same under every locale. A format is taken apart first (see
/// `number_format.h`): at most one conversion, of a letter that belongs to the value; its length modifier is
/// replaced by the one of the value's width. A format with anything else prints the empty text and scans nothing;
/// a null format is the family's own ("%c", "%d", "%.17g"). Every print function replaces `out` by a text of the
/// default 8-bit code set and the default language.

#include "kytypes.h"

// One family prints and scans both signednesses: the conversion letter decides ("%u" of all ones is the largest
// unsigned number, "%d" is -1). 16-bit values are widened with their sign first.
KyPrintFunc CharPrintToKyString;  ///< all `count` characters, one piece each; unprintable ones as "0x%02x"
KyPrintFunc ShortPrintToKyString;
KyPrintFunc LongPrintToKyString;
KyPrintFunc IntPrintToKyString;
KyPrintFunc O_8BPrintToKyString;
KyPrintFunc FloatPrintToKyString;
KyPrintFunc DoublePrintToKyString;

// A null value pointer gives null back; a 16-bit text is read as 8-bit text. Where nothing can be read, the value
// stays; with "%.17g" it becomes 0.
KyScanFunc CharScanFromKyString;
KyScanFunc ShortScanFromKyString;
KyScanFunc LongScanFromKyString;
KyScanFunc IntScanFromKyString;
KyScanFunc O_8BScanFromKyString;
KyScanFunc FloatScanFromKyString;
KyScanFunc DoubleScanFromKyString;

namespace ky {

/// Room for a "%.17g" text, its terminator, and what is written behind it on the way.
inline constexpr unsigned kDoubleTextSize = 40;

/// Writes the "%.17g" text form of a number ("NaN", "Infinity", "-Infinity", "+0", "-0", else as printf does it)
/// and a terminator to `out`, `kDoubleTextSize` bytes; returns the length without the terminator.
unsigned DoubleText(double value, char* out);

/// Room for the decimal text of a 64-bit integer and its terminator, written in blocks.
inline constexpr unsigned kIntegerTextSize = 24;

/// Writes the decimal text and a terminator to `out`, `kIntegerTextSize` bytes; returns the length.
unsigned SignedText(long long value, char* out);
unsigned UnsignedText(unsigned long long value, char* out);

/// A zero-terminated text of which all bytes before `limit` are readable, which may lie behind the terminator: the
/// more are, the faster it is read.
struct ScanSource {
    const char* text;
    const char* limit;

    ScanSource(const char* start) : text(start), limit(start) {}  // NOLINT(google-explicit-constructor)
    ScanSource(const char* start, unsigned readable) : text(start), limit(start + readable) {}
};

/// The number that a text holds in the "%.17g" text form; 0 where there is none.
double ScanDoubleText(ScanSource source);

/// Scans one value as the scan slots do; `value` is kept where nothing was read.
/// A null format is the family's own.
void ScanText(ScanSource source, const char* format, signed char& value);
void ScanText(ScanSource source, const char* format, short& value);
void ScanText(ScanSource source, const char* format, int& value);
void ScanText(ScanSource source, const char* format, long long& value);
void ScanText(ScanSource source, const char* format, float& value);
void ScanText(ScanSource source, const char* format, double& value);

}  // namespace ky

#endif
