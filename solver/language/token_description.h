#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "framework/base/export.h"

namespace kiv {

// `word` between quotes, cut short when it is too long for a message.
KIV_EXPORT std::string QuoteWord(std::string_view word);

// A token as a message names it, and its length in bytes.
struct TokenDescription {
  std::string text;
  std::size_t length;
};

// The first token of `text`: a word, a sign, or the end.
KIV_EXPORT TokenDescription DescribeToken(std::string_view text);

}  // namespace kiv
