#ifndef KYTM_MISTAKE_H
#define KYTM_MISTAKE_H

/// Mistakes in texts of several words, shown where they are.

#include <string>
#include <string_view>

#include "error.h"
#include "terminal.h"

namespace kytm {

/// The message, behind it the line of the text with the mistake, and below that a caret under its place. `source`
/// names the file that the text is from; the number of the line follows it. Empty: the text was given in the call.
Failure Mistake(const engine::TextError& error, std::string_view text, const std::string& source = "");

}  // namespace kytm

#endif
