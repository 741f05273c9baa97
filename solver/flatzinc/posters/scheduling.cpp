#include "solver/constraints/cumulative.h"
#include "solver/constraints/disjunctive.h"
#include "solver/flatzinc/poster_table.h"

namespace kiv::flatzinc {
namespace {

void CheckTasks(const Posting& posting, std::size_t arrays) {
  for (std::size_t i = 1; i < arrays; ++i) {
    if (posting.GetElements(i).size() == posting.GetElements(0).size()) continue;
    posting.Refuse("takes arrays of one length");
  }
}

std::vector<Posting::VariableId> JoinVariables(const Posting& posting, std::size_t arrays) {
  std::vector<Posting::VariableId> joined;
  for (std::size_t i = 0; i < arrays; ++i) {
    const auto variables = posting.GetVariables(i);
    joined.insert(joined.end(), variables.begin(), variables.end());
  }
  return joined;
}

// starts, durations, demands, capacity
void PostCumulative(const Posting& posting) {
  CheckTasks(posting, 3);
  const auto tasks = static_cast<unsigned>(posting.GetElements(0).size());
  if (tasks == 0) return;  // holds whatever the capacity is
  auto arguments = JoinVariables(posting, 3);
  arguments.push_back(posting.GetVariable(3));
  posting.GetNetwork().Emplace<Cumulative>(arguments, tasks);
}

// starts, durations
void PostDisjunctive(const Posting& posting) {
  CheckTasks(posting, 2);
  const auto tasks = static_cast<unsigned>(posting.GetElements(0).size());
  posting.GetNetwork().Emplace<Disjunctive>(JoinVariables(posting, 2), tasks);
}

constexpr Poster kPosters[] = {
    {"kiv_cumulative", "IIIi", PostCumulative},
    {"kiv_disjunctive", "II", PostDisjunctive},
};

}  // namespace

std::span<const Poster> SchedulingPosters() { return kPosters; }

}  // namespace kiv::flatzinc
