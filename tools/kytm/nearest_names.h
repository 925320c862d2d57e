#ifndef KYTM_NEAREST_NAMES_H
#define KYTM_NEAREST_NAMES_H

/// Suggestions for a name that is not known.

#include <string>
#include <string_view>
#include <vector>

namespace kytm {

/// The three known names with the fewest letters inserted, left out or replaced, case aside, nearest first: "a, b, c".
std::string NearestNames(std::string_view name, const std::vector<std::string>& known);

}  // namespace kytm

#endif
