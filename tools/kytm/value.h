#ifndef KYTM_VALUE_H
#define KYTM_VALUE_H

/// Values of a type in memory form, and the way from a text to a value.

#include <optional>
#include <string>
#include <string_view>

#include "kytypmgr.h"
#include "number_format.h"
#include "text_form.h"

namespace kytm {

/// An array of values made by the type's Create, freed by its Delete. Values whose size is fixed start as zero
/// bytes, padding included, so that what is shown of them does not change from run to run.
class Values {
public:
    /// Throws `Failure` for types of which no values can be made.
    Values(char typeId, unsigned valueCount);
    Values(const Values&) = delete;
    Values& operator=(const Values&) = delete;
    ~Values();

    void* operator[](std::size_t index) const { return base + index * size; }

private:
    char id;
    unsigned count;
    std::size_t size;  ///< bytes of one value
    unsigned char* base;
};

/// Reads values of one type from texts, and knows when it could not.
///
/// The type manager's scan does not report. A number's element keeps what it held when the text has no number (or
/// becomes 0), reading stops silently at the first character that does not belong to it, and a number that is too
/// large is cut to the element's bits. So each text has to stand these tests:
///
/// 1. All types: at most 65531 bytes (a longer text would be cut) and no zero byte (the text would end there); text
///    that goes on behind the null print string would be lost. Strings: what `TextForm` can read.
/// 2. Types whose row has a number's print format: the text as a whole is what the format in use describes: white
///    space, a number (or one character, or "0x" and its code), and the format's own text around it. White space
///    behind is allowed.
/// 3. Whole numbers: the bytes of the scanned value are those of the number in the text. A text is also refused when
///    the number lies outside the range of both the type and the conversion: "65535" is no `o_2b`; with "%x",
///    "ffff" is.
/// 4. Identifiers: beside blanks and parentheses the text is what the format describes, and each number fits its field.
/// 5. Seals: the text as a whole is a number from 0 to 281474976710655.
/// 6. Blobs: the type's scan reports; the text is pairs of hexadecimal digits or that of null.
/// 7. Dates, times and spans: the scan is not cut short by the text's end and comes to that end, and the numbers of the
///    value's own text are those of the given one. So a text is refused that the type holds only in part, and a
///    number that its field cannot hold.
/// 8. All other types of fixed size: the text is scanned into two values, one of all-zero and one of all-one bytes
///    before. What the text does not determine stays different in the two.
class Scanner {
public:
    /// `givenFormat` null: the row's print format; it has to live as long as the scanner, as does `textForm`, which
    /// reads the texts of strings. Throws `Failure` for a format that does not fit a number type.
    Scanner(char typeId, const char* givenFormat, TextForm& textForm);

    /// Null when `value`, an element of the type, now holds the text's value; else the reason why not, and the
    /// element's content means nothing. The reason is valid until the next call.
    const char* Scan(std::string_view text, void* value);

    /// The same of a word of the command line: for blobs "@FILE" stands for the bytes of a file ("@-": standard input).
    /// Throws `Failure` for a file that cannot be read.
    const char* ScanArgument(std::string_view word, void* value);

private:
    char id;
    const char* format;
    TextForm& form;
    std::optional<NumberFormat> number;  ///< set for types whose row has a number's format
    std::string nullText;
    bool hasNull;
    bool isFixed;
    bool isSigned = false;
    unsigned memoryBytes;
    unsigned numberBytes = 0;  ///< of the number inside a value
    Values second;             ///< the other value of tests 7 and 8

    const char* ScanNumber(std::string_view text, void* value);
    const char* ScanWhole(std::string_view digits, std::string_view text, void* value, int base);
    const char* ScanIdentifier(std::string_view text, void* value);
    const char* ScanSeal(std::string_view text, void* value);
    const char* ScanTwice(std::string_view text, void* value);
    const char* ScanDate(std::string_view text, void* value);
    bool DateEndsWithText(std::string_view text);
    bool FitsRange(const WholeNumber& given, int base) const;
    /// By the format in use; false when the row's function says that the scan failed.
    bool ScanInto(std::string_view text, void* value) { return ScanInto(text, value, format); }
    bool ScanInto(std::string_view text, void* value, const char* byFormat);
    bool TypeIsSigned();
};

/// Types whose values print as decimal numbers.
bool IsNumberType(char id);

/// The order of two values in memory form, exact, as Compare tells it.
int CompareExactly(char id, void* a, void* b);

/// Text of a value. `format` null: the row's. `form`: the form of strings.
std::string PrintValue(char id, void* value, const char* format, const TextForm& form);

/// The form in which texts of this type are given; `takeBroken` as in `TextForm`. Throws `Failure` when options are
/// given and the type has neither code set nor language.
TextForm FormOfTexts(char id, const TextOptions& options, bool takeBroken = false);

}  // namespace kytm

#endif
