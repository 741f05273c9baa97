#include "solver/constraints/number_of_values.h"
#include "solver/constraints/post_all_different.h"
#include "solver/flatzinc/poster_table.h"

namespace kiv::flatzinc {
namespace {

// As it is annotated, or else as suits it.
AllDifferentStrength StrengthOf(const Posting& posting) {
  if (posting.GetStrength() == Strength::kDomain) return AllDifferentStrength::kDomain;
  if (posting.GetStrength() == Strength::kBounds) return AllDifferentStrength::kBounds;
  if (posting.HasAnnotation("value_propagation")) return AllDifferentStrength::kValues;
  return AllDifferentStrength::kAutomatic;
}

void PostAllDifferentValues(const Posting& posting) {
  PostAllDifferent(posting.GetNetwork(), posting.GetVariables(0), StrengthOf(posting));
}

// number, variables
void PostNumberOfValues(const Posting& posting) {
  auto arguments = posting.GetVariables(1);
  arguments.push_back(posting.GetVariable(0));
  posting.GetNetwork().Emplace<NumberOfValues>(arguments);
}

constexpr Poster kPosters[] = {
    {"kiv_all_different", "I", PostAllDifferentValues},
    {"kiv_nvalue", "iI", PostNumberOfValues},
};

}  // namespace

std::span<const Poster> DistinctPosters() { return kPosters; }

}  // namespace kiv::flatzinc
