#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/base/export.h"
#include "solver/search/value_choice.h"
#include "solver/search/variable_choice.h"

namespace kiv {

// The words by which models and command lines speak of strategies: "first_fail", "lower_half".
KIV_EXPORT std::optional<VariableChoice> FindVariableChoice(std::string_view name);
KIV_EXPORT std::optional<ValueChoice> FindValueChoice(std::string_view name);

// All of them, in the order in which they are listed to users.
KIV_EXPORT std::vector<std::string> GetVariableChoiceNames();
KIV_EXPORT std::vector<std::string> GetValueChoiceNames();

}  // namespace kiv
