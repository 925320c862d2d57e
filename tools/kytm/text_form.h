#ifndef KYTM_TEXT_FORM_H
#define KYTM_TEXT_FORM_H

/// Texts of strings: from the UTF-8 that people give into a code set and back.

#include <optional>
#include <string>
#include <string_view>

#include "kystring.h"

namespace kytm {

/// As the caller wrote them: a number, a tag or a name.
struct TextOptions {
    std::optional<std::string> language;
    std::optional<std::string> codeSet;

    bool AnyGiven() const { return language || codeSet; }
};

/// A zero-terminated text in a code set, as the comparer takes it.
struct CodedText {
    unsigned char codeSet;
    unsigned char language;
    const char* characters;  ///< 8-bit, or 16-bit in machine byte order at an even address
};

/// The code set and language of texts, and the way there from UTF-8.
///
/// Without a code set given, a text is ISO 8859-1 where that has all its characters, and Unicode else. Code set 0 takes
/// bytes as they stand.
class TextForm {
public:
    /// `takeBroken`: without options, a text that is no UTF-8 is one of bytes in ISO 8859-1. Throws `Failure` for what
    /// is no language or no code set.
    explicit TextForm(const TextOptions& options, bool takeBroken = false);
    /// Bytes that are characters of the default 8-bit code set as they stand, in the default language.
    static TextForm PlainBytes();

    /// Null when `Result` now holds the text, else why it cannot: broken UTF-8, a character beyond the 16-bit plane or
    /// the code set, a zero byte, more than a string can hold. The reason is valid until the next call.
    const char* Read(std::string_view text);
    /// Of the last `Read`, until the next.
    CodedText Result() const;
    /// The same as a string.
    KyString ToString() const;

    /// The text of a string in the form in which texts are given.
    std::string Write(const KyString& text) const;

    /// Nothing is decoded.
    bool TakesBytes() const { return asTheyStand; }

private:
    TextForm() = default;

    unsigned char language = KyLanguageDefault;
    unsigned char codeSet = KyCodeSetDefault;  ///< the default one: the narrower one that fits
    bool asTheyStand = false;
    bool takesBroken = false;
    std::string fault;

    unsigned char resultCodeSet = KyCodeSetLatin1;
    std::string narrow;   ///< the text in an 8-bit code set
    std::u16string wide;  ///< the text in a 16-bit one

    // Null, or the reason.
    const char* Decode(std::string_view text);
    const char* MapTo(const KyCodeSet& target);
    const char* CheckLength();
    const char* Fail(std::string reason);
};

}  // namespace kytm

#endif
