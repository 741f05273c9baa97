#include <iostream>
#include <memory>
#include <string>

#include "tools/kiv/bash_completion.h"
#include "tools/kiv/commands.h"

namespace kiv {

void AddCompletionCommand(CLI::App& app, ExitCode& result) {
  const auto shell = std::make_shared<std::string>();
  CLI::App* command =
      app.add_subcommand("completion", "Prints a script that completes command lines of kiv");
  command->add_option("SHELL", *shell, "The shell; so far there is only bash")
      ->required()
      ->type_name("bash")
      ->check(CLI::IsMember({"bash"}).description(""));
  command->footer(
      "Examples:\n"
      "  source <(kiv completion bash)\n"
      "  kiv completion bash > ~/.local/share/bash-completion/completions/kiv");
  command->callback([shell, &app, &result] {
    PrintBashCompletion(app, std::cout);
    result = kSolved;
  });
}

}  // namespace kiv
