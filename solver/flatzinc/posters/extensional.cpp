#include <algorithm>
#include <vector>

#include "solver/constraints/table.h"
#include "solver/flatzinc/poster_table.h"
#include "solver/language/declared_domain.h"

namespace kiv::flatzinc {
namespace {

// variables, the rows of the table one after the other
void PostTable(const Posting& posting) {
  const auto variables = posting.GetVariables(0);
  const auto cells = posting.GetElements(1);
  const std::size_t arity = variables.size();
  if (arity == 0 ? !cells.empty() : cells.size() % arity != 0) {
    posting.Refuse("takes rows with a value for each of its variables");
  }
  if (cells.size() > TupleIndex::kMostCells) {
    posting.Refuse("takes at most " + std::to_string(TupleIndex::kMostCells) + " values in rows");
  }
  std::vector<std::int32_t> possible;
  for (std::size_t row = 0; row < cells.size(); row += arity) {
    const auto values = cells.subspan(row, arity);
    const bool is_possible = std::ranges::all_of(
        values, [](Expression value) { return IsModelInteger(value.GetValue()); });
    if (!is_possible) continue;
    for (const Expression value : values) {
      possible.push_back(static_cast<std::int32_t>(value.GetValue()));
    }
  }
  if (possible.empty()) return posting.PostContradiction();
  const std::size_t count = possible.size() / arity;
  posting.GetNetwork().Emplace<Table>(variables, static_cast<unsigned>(arity), count,
                                      std::move(possible));
}

constexpr Poster kPosters[] = {
    {"kiv_table_int", "I=I", PostTable},
    {"kiv_table_bool", "B=B", PostTable},
};

}  // namespace

std::span<const Poster> ExtensionalPosters() { return kPosters; }

}  // namespace kiv::flatzinc
