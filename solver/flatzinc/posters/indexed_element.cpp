#include "solver/constraints/element_of_variables.h"
#include "solver/flatzinc/poster_table.h"

namespace kiv::flatzinc {
namespace {

// index, first index, array, element
void PostElement(const Posting& posting) {
  const auto elements = posting.GetVariables(2);
  if (elements.empty()) return posting.PostContradiction();
  const std::int32_t first = posting.NarrowConstant(posting.GetInteger(1));
  posting.NarrowConstant(first + static_cast<std::int64_t>(elements.size()) - 1);
  std::vector<Posting::VariableId> arguments{posting.GetVariable(0), posting.GetVariable(3)};
  arguments.insert(arguments.end(), elements.begin(), elements.end());
  posting.GetNetwork().Emplace<ElementOfVariables>(arguments, first);
}

constexpr Poster kPosters[] = {
    {"kiv_element_int", "i=iIi", PostElement},
    {"kiv_element_bool", "i=iBb", PostElement},
};

}  // namespace

std::span<const Poster> IndexedElementPosters() { return kPosters; }

}  // namespace kiv::flatzinc
