#include <iostream>
#include <memory>

#include "tools/kiv/commands.h"
#include "tools/kiv/stop_signal.h"

namespace kiv {
namespace {

ExitCode Propagate(const ModelOptions& options, const ModuleOptions& modules) {
  const LoadedModel loaded = LoadModel(options, modules);
  if (loaded.model == nullptr) return kBadInput;
  const CompiledModel& model = *loaded.model;
  KivOmbNetwork& network = loaded.model->GetNetwork();
  network.SetStopFlag(&CatchStopSignals());

  const KivOmbNetwork::Outcome outcome = network.Propagate();
  const std::string culprit =
      network.GetCulprit() ? " at " + model.Describe(*network.GetCulprit()) : "";
  switch (outcome) {
    case KivOmbNetwork::Outcome::kFixpoint:
      model.PrintOn(std::cout);
      return kSolved;
    case KivOmbNetwork::Outcome::kContradiction:
      std::cerr << "contradiction" << culprit << '\n';
      return kNoSolution;
    case KivOmbNetwork::Outcome::kOverflow:
      std::cerr << "overflow: beyond the range of integers" << culprit << '\n';
      return kUnknown;
    case KivOmbNetwork::Outcome::kStopped:
      break;
  }
  std::cerr << "interrupted\n";
  return kInterrupted;
}

}  // namespace

void AddPropagateCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result) {
  const auto options = std::make_shared<ModelOptions>();
  CLI::App* command =
      app.add_subcommand("propagate", "Shows the domains after propagation, without search");
  options->AddTo(*command);
  command->footer(
      "Prints a line 'name = domain' for each variable that the model declares.\n"
      "Examples:\n"
      "  kiv propagate examples/send_more_money.kiv\n"
      "  kiv propagate examples/queens.kiv -D n=3");
  command->callback([options, &modules, &result] { result = Propagate(*options, modules); });
}

}  // namespace kiv
