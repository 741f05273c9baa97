#pragma once

#include <string>

#include "solver/search/restart_policy.h"
#include "solver/search/value_choice.h"
#include "solver/search/variable_choice.h"

namespace kiv {

// How the variables of one block are searched.
struct StrategyChoice {
  VariableChoice variables;
  ValueChoice values;
};

// Reads "VARIABLES" or "VARIABLES,VALUES", as in "first_fail,lower_half"; without the second the
// smallest value goes first. Throws InputError, which lists what exists.
StrategyChoice ParseStrategy(const std::string& text);

// Reads "none", "constant:N", "linear:N", "geometric:N:F" or "luby:N". Throws InputError.
RestartPolicy ParseRestarts(const std::string& text);

}  // namespace kiv
