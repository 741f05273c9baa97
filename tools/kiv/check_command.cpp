#include <iostream>
#include <memory>

#include "tools/kiv/commands.h"
#include "tools/kiv/output.h"

namespace kiv {
namespace {

ExitCode Check(const ModelOptions& options, const ModuleOptions& modules) {
  const LoadedModel loaded = LoadModel(options, modules);
  if (loaded.model == nullptr) return kBadInput;
  std::cout << "ok: " << Count(loaded.model->GetDeclared().size(), "variable") << ", "
            << Count(loaded.model->GetNetwork().CountConstraints(), "constraint") << '\n';
  return kSolved;
}

}  // namespace

void AddCheckCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result) {
  const auto options = std::make_shared<ModelOptions>();
  CLI::App* command =
      app.add_subcommand("check", "Tells whether a model is well formed, without solving it");
  options->AddTo(*command);
  command->footer(
      "Prints 'ok' with the number of variables that the model declares, each element of an array\n"
      "for itself, and of constraints that it makes; or what is wrong with it.\n"
      "Examples:\n"
      "  kiv check examples/queens.kiv\n"
      "  kiv check -D n=20 examples/queens.kiv");
  command->callback([options, &modules, &result] { result = Check(*options, modules); });
}

}  // namespace kiv
