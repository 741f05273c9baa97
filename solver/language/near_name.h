#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/base/export.h"

namespace kiv {

// The candidate that `name` is most likely a misspelling of: the one with the smallest edit
// distance (insertions, deletions, replacements and swaps of neighbours), if that is small for the
// length of the name. The first of equals.
KIV_EXPORT std::optional<std::string> FindNearName(std::string_view name,
                                                   const std::vector<std::string>& candidates);

// "; did you mean 'candidate'?" when there is one, otherwise nothing.
KIV_EXPORT std::string SuggestNearName(std::string_view name,
                                       const std::vector<std::string>& candidates);

// "'a', 'b'", or "none".
KIV_EXPORT std::string ListNames(const std::vector<std::string>& names);

}  // namespace kiv
