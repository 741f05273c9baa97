#pragma once

#include <CLI/App.hpp>
#include <cstdint>
#include <optional>
#include <string>

#include "solver/search/search_options.h"
#include "tools/kiv/model_input.h"
#include "tools/kiv/trace_output.h"

namespace kiv {

// What the command line says about solving a model. Texts are read when the search is made.
struct SolveOptions {
  ModelOptions model;
  bool all = false;
  std::optional<std::uint64_t> solutions;
  std::string time_limit;
  std::optional<std::uint64_t> failure_limit;
  std::optional<std::uint64_t> node_limit;
  std::uint64_t seed = 0;
  std::string strategy;
  std::string restarts;
  bool statistics = false;
  bool json = false;
  bool quiet = false;
  TraceOptions trace;

  // Adds them to a subcommand.
  void AddTo(CLI::App& command);

  // How many solutions are asked for; without a word on the command line the model decides. None
  // for all of them.
  std::optional<std::uint64_t> CountWanted(GoalKind goal) const;
  // The search that is asked for: by the command line, else by the model, else by what suits its
  // goal. Throws InputError for a text that cannot be read.
  SearchOptions MakeSearch(const CompiledModel& model) const;
};

}  // namespace kiv
