#pragma once

#include <CLI/App.hpp>

#include "tools/kiv/exit_code.h"
#include "tools/kiv/model_input.h"

namespace kiv {

// Each adds a subcommand to `app`. When it is chosen, it does its work and leaves in `result` how
// the process shall end. The arguments must outlive the parsing of the command line.
void AddSolveCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result);
void AddPropagateCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result);
void AddCheckCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result);
void AddOperatorsCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result);
void AddKindsCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result);
void AddDomainCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result);
void AddCompletionCommand(CLI::App& app, ExitCode& result);

}  // namespace kiv
