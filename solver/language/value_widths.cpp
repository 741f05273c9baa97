#include "solver/language/value_widths.h"

#include <algorithm>
#include <array>

#include "framework/abstract_types/constraints/narrowing.h"

namespace kiv {
namespace {

constexpr Hull kAnything{-Hull::kUnbounded, Hull::kUnbounded};

// As many values as the hull has at most.
ValueWidth Limit(const Hull& hull, std::uint64_t count) {
  const auto size = static_cast<std::uint64_t>(std::max<std::int64_t>(hull.upper - hull.lower, 0));
  return {hull, std::min({count, size + 1, ValueWidth::kMostCounted})};
}

Hull HullOfUnary(std::string_view symbol, const Hull& x) {
  if (symbol == "-") return Negation(x);
  if (symbol == "abs") return Absolute(x);
  if (symbol == "sign") return Sign(x);
  if (symbol == "next") return Sum(x, {1, 1});
  if (symbol == "prev") return Difference(x, {1, 1});
  return kAnything;
}

Hull HullOfBinary(std::string_view symbol, const Hull& x, const Hull& y) {
  struct Entry {
    std::string_view symbol;
    Hull (*hull)(const Hull&, const Hull&);
  };
  // An exact quotient lies where the truncated one does, but 0 / 0 may be anything.
  constexpr std::array kEntries = {Entry{"+", &Sum},       Entry{"-", &Difference},
                                   Entry{"*", &Product},   Entry{"div", &TruncatedQuotient},
                                   Entry{"^", &Power},     Entry{"mod", &Remainder},
                                   Entry{"/\\", &Minimum}, Entry{"\\/", &Maximum}};
  for (const Entry& entry : kEntries) {
    if (entry.symbol == symbol) return entry.hull(x, y);
  }
  return kAnything;
}

}  // namespace

ValueWidth ValueWidths::Of(const Operand& operand) const {
  if (operand.constant) return {{*operand.constant, *operand.constant}, 1};
  if (!operand.IsSum()) return Of(operand.variable);
  const std::int64_t constant = operand.sum.GetConstant();
  ValueWidth width{{constant, constant}, 1};
  for (const LinearTerm& term : operand.sum.GetTerms()) {
    const ValueWidth variable = Of(term.variable);
    const Hull product = Product({term.coefficient, term.coefficient}, variable.hull);
    width = Limit(Sum(width.hull, product), width.count * variable.count);
  }
  return width;
}

ValueWidth ValueWidths::Of(KivOmbNetwork::VariableId variable) const {
  if (const auto found = noted_.find(variable); found != noted_.end()) return found->second;
  const KivOmbiDomainSummary& summary = network_.GetSummary(variable);
  const Hull hull = summary.IsAny() ? kAnything : HullOf(summary);
  const bool is_known = summary.state == KivOmbiDomainSummary::kValues;
  return Limit(hull, is_known ? summary.cardinality : ValueWidth::kMostCounted);
}

ValueWidth ValueWidths::Apply(std::string_view symbol, const ValueWidth& left,
                              const ValueWidth* right) {
  if (right == nullptr) return Limit(HullOfUnary(symbol, left.hull), left.count);
  const Hull hull = HullOfBinary(symbol, left.hull, right->hull);
  const bool either_is_open = std::max(left.count, right->count) >= ValueWidth::kMostCounted;
  return Limit(hull, either_is_open ? ValueWidth::kMostCounted : left.count * right->count);
}

void ValueWidths::Note(KivOmbNetwork::VariableId variable, const ValueWidth& width) {
  noted_.emplace(variable, width);
}

}  // namespace kiv
