#include "solver/constraints/number_of_values.h"
#include "solver/constraints/post_all_different.h"
#include "solver/flatzinc/poster_table.h"

namespace kiv::flatzinc {
namespace {

void PostAllDifferentValues(const Posting& posting) {
  PostAllDifferent(posting.GetNetwork(), posting.GetVariables(0));
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
