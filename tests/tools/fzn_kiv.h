#pragma once

#include <string>
#include <vector>

#include "tests/tools/run_command.h"

namespace kiv::test {

// Runs the built `fzn-kiv` with these arguments and behind them "-" for `text` on standard input.
CommandResult RunFznKiv(const std::string& text, std::vector<std::string> arguments = {},
                        CommandSettings settings = {});

// Runs a script of bash in which $fzn_kiv is the built `fzn-kiv`, and the files that it reads as
// $1, $2, ... have these texts.
CommandResult RunScript(const std::string& script, const std::vector<std::string>& texts);

// More pigeons than holes, told by pairs: no search can exclude all ways in the time of a test.
std::string Pigeons();
// Its first solution comes at once; to prove that none is better takes as long.
std::string PigeonOptimisation();

}  // namespace kiv::test
