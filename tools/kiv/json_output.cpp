#include "tools/kiv/json_output.h"

#include <iostream>

#include "tools/kiv/model_json.h"
#include "tools/kiv/output.h"
#include "tools/kiv/statistics_output.h"

namespace kiv {
namespace {

void PrintLine(const Json& json) {
  std::cout << JsonLine(json);
  FlushOutput();
}

const char* NameOf(KivOmbNetwork::Outcome outcome) {
  switch (outcome) {
    case KivOmbNetwork::Outcome::kFixpoint:
      return "fixpoint";
    case KivOmbNetwork::Outcome::kContradiction:
      return "contradiction";
    case KivOmbNetwork::Outcome::kOverflow:
      return "overflow";
    case KivOmbNetwork::Outcome::kStopped:
      break;
  }
  return "interrupted";
}

}  // namespace

void PrintLeafJson(const CompiledModel& model, const SearchLeaf& leaf, std::uint64_t number) {
  Json json = {{"type", leaf.complete ? "solution" : "possibility"}, {"number", number}};
  const auto objective = model.GetGoal().objective;
  if (leaf.complete && objective != KivOmbNetwork::kNone) {
    json["objective"] = model.GetNetwork().GetSummary(objective).lower;
  }
  json["variables"] = DescribeVariables(model);
  PrintLine(json);
}

void PrintOutcomeJson(const CompiledModel& model, const SolveOutcome& outcome) {
  Json json = {{"type", "result"},
               {"status", NameOf(outcome.status)},
               {"end", NameOf(outcome.result.end)},
               {"exit_code", static_cast<int>(outcome.exit_code)}};
  if (outcome.result.best) json["objective"] = *outcome.result.best;
  if (!outcome.unknowns.empty()) json["unknowns"] = outcome.unknowns;
  if (outcome.result.culprit) json["constraint"] = DescribeOrigin(model, *outcome.result.culprit);
  json["statistics"] = DescribeStatistics(model, outcome);
  PrintLine(json);
}

void PrintDomainsJson(const CompiledModel& model, KivOmbNetwork::Outcome outcome,
                      ExitCode exit_code) {
  Json json = {
      {"type", "domains"}, {"status", NameOf(outcome)}, {"exit_code", static_cast<int>(exit_code)}};
  if (const auto culprit = model.GetNetwork().GetCulprit()) {
    json["constraint"] = DescribeOrigin(model, *culprit);
  }
  if (outcome == KivOmbNetwork::Outcome::kFixpoint) json["variables"] = DescribeVariables(model);
  PrintLine(json);
}

}  // namespace kiv
