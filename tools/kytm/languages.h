#ifndef KYTM_LANGUAGES_H
#define KYTM_LANGUAGES_H

/// The languages that texts can be in.

#include <string_view>
#include <vector>

#include "kyi18n.h"

namespace kytm {

/// All of them, in the order of their numbers.
std::vector<const KyLanguage*> Languages();

/// The number of a language given by number, tag or English name, case and punctuation aside. Throws `Failure`, with
/// the nearest names, for anything else.
unsigned char FindLanguage(std::string_view name);

}  // namespace kytm

#endif
