#ifndef TEXT_CONSTANTS_H
#define TEXT_CONSTANTS_H

/// Texts that exist from loading on: usable from the first instruction, never destroyed.

class KyString;

namespace ky {

/// What null values print as: "{NULL}" unless an application replaced it. Scanners recognise it.
KyString& NullPrintString();

/// "0": what a value without null and without assignment is set to instead of null.
KyString& ZeroSourceString();

/// Whether a text begins with the whole null print string, character code by character code; what follows it
/// does not matter. An empty null print string begins no text.
bool BeginsWithNullPrintString(const KyString& text);

}  // namespace ky

#endif
