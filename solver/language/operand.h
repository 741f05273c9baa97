#pragma once

#include <cstdint>
#include <optional>

#include "framework/networks/network.h"
#include "solver/language/source_text.h"

namespace kiv {

// The value of an expression: a constant, or a variable of the network.
struct Operand {
  std::optional<std::int64_t> constant;
  KivOmbNetwork::VariableId variable = KivOmbNetwork::kNone;  // unless constant
  SourceRange range;                                          // where it is written
};

}  // namespace kiv
