#include <algorithm>
#include <utility>

#include "solver/constraints/element_of_constants.h"
#include "solver/constraints/element_of_variables.h"
#include "solver/constraints/extremum.h"
#include "solver/flatzinc/poster_table.h"

// Elements of arrays, the greatest and the least. An index outside the array satisfies nothing, and
// an empty array has no greatest element.
namespace kiv::flatzinc {
namespace {

using enum TruthForm;
using VariableId = Posting::VariableId;

// value = array[index], the first element at index 1.
template <TruthForm form>
void Element(const Posting& posting) {
  const auto elements = posting.GetElements(1);
  if (elements.empty()) return posting.Decide(false, form);
  const VariableId index = posting.GetVariable(0);
  const VariableId value = posting.GetVariable(2);
  constexpr std::int32_t kFirst = 1;
  if (std::ranges::all_of(elements, [](Expression e) { return Posting::IsConstant(e); })) {
    std::vector<std::int32_t> constants;
    for (const Expression e : elements) constants.push_back(posting.NarrowConstant(e.GetValue()));
    return posting.Emplace<ElementOfConstants>(form, {index, value}, std::move(constants), kFirst);
  }
  std::vector<VariableId> arguments = {index, value};
  for (const Expression e : elements) arguments.push_back(posting.GetVariable(e));
  posting.Emplace<ElementOfVariables>(form, std::move(arguments), kFirst);
}

template <Extremum::Which which, TruthForm form>
void PostExtremum(const Posting& posting) {
  auto arguments = posting.GetVariables(1);
  if (arguments.empty()) return posting.Decide(false, form);
  arguments.insert(arguments.begin(), posting.GetVariable(0));
  posting.Emplace<Extremum>(form, std::move(arguments), which);
}

constexpr Poster kPosters[] = {
    {"array_int_element", "i=Ii", Element<kPlain>},
    {"array_int_element_reif", "i=Iib", Element<kReified>},
    {"array_int_element_imp", "i=Iib", Element<kImplied>},
    {"array_bool_element", "i=Bb", Element<kPlain>},
    {"array_bool_element_reif", "i=Bbb", Element<kReified>},
    {"array_bool_element_imp", "i=Bbb", Element<kImplied>},
    {"array_var_int_element", "iIi", Element<kPlain>},
    {"array_var_int_element_reif", "iIib", Element<kReified>},
    {"array_var_int_element_imp", "iIib", Element<kImplied>},
    {"array_var_bool_element", "iBb", Element<kPlain>},
    {"array_var_bool_element_reif", "iBbb", Element<kReified>},
    {"array_var_bool_element_imp", "iBbb", Element<kImplied>},

    {"array_int_maximum", "iI", PostExtremum<Extremum::kGreatest, kPlain>},
    {"array_int_maximum_reif", "iIb", PostExtremum<Extremum::kGreatest, kReified>},
    {"array_int_maximum_imp", "iIb", PostExtremum<Extremum::kGreatest, kImplied>},
    {"array_int_minimum", "iI", PostExtremum<Extremum::kLeast, kPlain>},
    {"array_int_minimum_reif", "iIb", PostExtremum<Extremum::kLeast, kReified>},
    {"array_int_minimum_imp", "iIb", PostExtremum<Extremum::kLeast, kImplied>},
};

}  // namespace

std::span<const Poster> ElementPosters() { return kPosters; }

}  // namespace kiv::flatzinc
