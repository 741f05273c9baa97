#include <iostream>
#include <memory>

#include "tools/kiv/commands.h"
#include "tools/kiv/json_output.h"
#include "tools/kiv/stop_signal.h"
#include "tools/kiv/trace_output.h"

namespace kiv {
namespace {

using Outcome = KivOmbNetwork::Outcome;

struct PropagateOptions {
  ModelOptions model;
  TraceOptions trace;
  bool json = false;
};

ExitCode ExitCodeOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::kFixpoint:
      return kSolved;
    case Outcome::kContradiction:
      return kNoSolution;
    case Outcome::kOverflow:
      return kUnknown;
    case Outcome::kStopped:
      break;
  }
  return kInterrupted;
}

void PrintText(const CompiledModel& model, Outcome outcome) {
  const auto culprit = model.GetNetwork().GetCulprit();
  const std::string place = culprit ? " at " + model.Describe(*culprit) : "";
  switch (outcome) {
    case Outcome::kFixpoint:
      model.PrintOn(std::cout);
      break;
    case Outcome::kContradiction:
      std::cerr << "contradiction" << place << '\n';
      break;
    case Outcome::kOverflow:
      std::cerr << "overflow: beyond the range of integers" << place << '\n';
      break;
    case Outcome::kStopped:
      std::cerr << "interrupted\n";
      break;
  }
}

ExitCode Propagate(const PropagateOptions& options, const ModuleOptions& modules) {
  const LoadedModel loaded = LoadModel(options.model, modules);
  if (loaded.model == nullptr) return kBadInput;
  CompiledModel& model = *loaded.model;
  Trace trace(options.trace, model);
  model.GetNetwork().SetStopFlag(&CatchStopSignals());

  const Outcome outcome = model.GetNetwork().Propagate();
  trace.Finish();
  const ExitCode exit_code = ExitCodeOf(outcome);
  options.json ? PrintDomainsJson(model, outcome, exit_code) : PrintText(model, outcome);
  return exit_code;
}

}  // namespace

void AddPropagateCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result) {
  const auto options = std::make_shared<PropagateOptions>();
  CLI::App* command =
      app.add_subcommand("propagate", "Shows the domains after propagation, without search");
  options->model.AddTo(*command);
  command->add_flag("--json", options->json, "Writes the domains as a line of JSON");
  options->trace.AddTo(*command);
  command->footer(
      "Prints a line 'name = domain' for each variable that the model declares.\n"
      "Examples:\n"
      "  kiv propagate examples/send_more_money.kiv\n"
      "  kiv propagate --trace text examples/race.kiv\n"
      "  kiv propagate examples/queens.kiv -D n=3");
  command->callback([options, &modules, &result] { result = Propagate(*options, modules); });
}

}  // namespace kiv
