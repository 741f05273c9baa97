#include "tests/solver/flatzinc/solve_text.h"

#include <algorithm>

#include "framework/networks/network.h"
#include "solver/flatzinc/builder.h"
#include "solver/flatzinc/poster_table.h"
#include "solver/flatzinc/reader.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

const Vocabulary& AllWords() {
  static const Vocabulary vocabulary(OpenModules().manager.GetModules());
  return vocabulary;
}

}  // namespace

std::vector<Assignment> SolveText(std::string_view text) {
  const flatzinc::Model model = flatzinc::ReadModel(text);
  KivOmbNetwork network;
  flatzinc::Builder builder(model, AllWords(), network);
  flatzinc::PostConstraints(builder);
  std::vector<Assignment> solutions;
  for (const Assignment& all : SearchSolutions(network)) {
    Assignment& solution = solutions.emplace_back();
    for (std::uint32_t i = 0; i < model.variables.size(); ++i) {
      solution.push_back(all[builder.GetVariable(i)]);
    }
  }
  std::ranges::sort(solutions);
  return solutions;
}

}  // namespace kiv::test
