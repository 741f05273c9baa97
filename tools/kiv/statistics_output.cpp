#include "tools/kiv/statistics_output.h"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <string>

namespace kiv {

Json DescribeStatistics(const CompiledModel& model, const SolveOutcome& outcome) {
  const SearchStatistics& statistics = outcome.result.statistics;
  const double milliseconds = std::chrono::duration<double, std::milli>(outcome.time).count();
  return {{"variables", model.GetNetwork().CountVariables()},
          {"constraints", model.GetNetwork().CountConstraints()},
          {"solutions", statistics.solutions},
          {"possibilities", statistics.unknowns},
          {"nodes", statistics.nodes},
          {"failures", statistics.failures},
          {"restarts", statistics.restarts},
          {"nogoods", statistics.nogoods},
          {"propagations", statistics.propagations},
          {"peak_depth", statistics.peak_depth},
          // To the millisecond, so that it is short.
          {"seconds", static_cast<double>(static_cast<std::int64_t>(milliseconds)) / 1000}};
}

void PrintStatistics(const CompiledModel& model, const SolveOutcome& outcome) {
  const Json statistics = DescribeStatistics(model, outcome);
  std::size_t name_width = 0;
  std::size_t value_width = 0;
  for (const auto& [name, value] : statistics.items()) {
    name_width = std::max(name_width, name.size());
    value_width = std::max(value_width, value.dump().size());
  }
  for (const auto& [name, value] : statistics.items()) {
    std::cerr << std::left << std::setw(static_cast<int>(name_width)) << name << "  " << std::right
              << std::setw(static_cast<int>(value_width)) << value.dump() << '\n';
  }
}

}  // namespace kiv
