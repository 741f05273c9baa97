#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "framework/base/export.h"

namespace kiv {

// What an operator makes of constants.
struct FoldedConstant {
  std::optional<std::int64_t> value;
  std::string
      error;  // why there is no value; empty when the operator has no meaning over constants
};

// Arithmetic in 64 bits: what does not fit is an error, as is a quotient that is not exact. `div`
// truncates toward zero, so that `mod` has the sign of its left operand.
KIV_EXPORT FoldedConstant FoldUnary(std::string_view symbol, std::int64_t operand);
KIV_EXPORT FoldedConstant FoldBinary(std::string_view symbol, std::int64_t left,
                                     std::int64_t right);

// The answer to `==`, `<<`, `<==`, `>>` or `>==` between constants; nothing for any other operator.
KIV_EXPORT std::optional<bool> FoldQuestion(std::string_view symbol, std::int64_t left,
                                            std::int64_t right);
// What `and`, `or`, `xor`, `=>` or `==` makes of truth values; nothing for any other operator.
KIV_EXPORT std::optional<bool> FoldConnective(std::string_view symbol, bool left, bool right);

}  // namespace kiv
