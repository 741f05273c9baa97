#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <iostream>

#include "tools/kiv/commands.h"
#include "tools/kiv/output.h"

namespace {

int Run(int argc, char** argv) {
  CLI::App app("Kiv, a constraint solver over subdefinite values.", "kiv");
  app.set_version_flag("--version", "kiv " KIV_VERSION);
  app.require_subcommand(1);
  app.fallthrough();
  app.footer(
      "Examples:\n"
      "  kiv solve examples/send_more_money.kiv\n"
      "  kiv solve --all -D n=6 examples/queens.kiv\n"
      "  kiv propagate examples/send_more_money.kiv\n"
      "  kiv check examples/queens.kiv\n"
      "  kiv domain '{ 1, 5, 9 } + [1, 3]'\n"
      "  kiv operators --module KivOmbEnumIntegers\n"
      "Exit codes: 0 solved, 1 no solution, 2 bad input, 3 unknown, 4 failure, 130 interrupted.\n"
      "'kiv COMMAND --help' tells more of a command.");

  kiv::ModuleOptions modules;
  app.add_option("--load", modules.load, "Loads a further module of kinds and operators")
      ->type_name("MODULE")
      ->allow_extra_args(false);
  kiv::ExitCode result = kiv::kSolved;
  kiv::AddSolveCommand(app, modules, result);
  kiv::AddPropagateCommand(app, modules, result);
  kiv::AddCheckCommand(app, modules, result);
  kiv::AddDomainCommand(app, modules, result);
  kiv::AddOperatorsCommand(app, modules, result);
  kiv::AddKindsCommand(app, modules, result);
  kiv::AddCompletionCommand(app, result);

  try {
    app.parse(argc, argv);
    kiv::FlushOutput();
  } catch (const CLI::ParseError& error) {
    // Asking for help or the version arrives here, too, as a success.
    const bool success = app.exit(error) == 0;
    kiv::FlushOutput();
    return success ? kiv::kSolved : kiv::kBadInput;
  }
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  // A pipe that nobody reads shows as a failed write, which is reported.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return Run(argc, argv);
  } catch (const kiv::InputError& error) {
    std::cerr << "kiv: " << error.what() << '\n';
    return kiv::kBadInput;
  } catch (const std::exception& error) {
    std::cerr << "kiv: " << error.what() << '\n';
    return kiv::kFailure;
  }
}
