#include "tests/support/strength.h"

#include <algorithm>
#include <set>

#include "framework/intervals/sub_int_base.h"
#include "tests/support/kind_shape.h"

namespace kiv::test {

namespace {

using VariableId = KivOmbNetwork::VariableId;

constexpr std::int64_t kMostAssignments = 20000;

bool IsBounded(const KivOmbiDomainSummary& summary) {
  return !summary.IsAny() && summary.lower > SubIntBase::kMin && summary.upper < SubIntBase::kMax;
}

// The values over which argument `variable` may be supported.
Values SupportOf(const KivOmbNetwork& network, VariableId variable, Strength strength) {
  const KivOmbiDomainSummary& summary = network.GetSummary(variable);
  return strength == Strength::kHull ? Range(summary.lower, summary.upper)
                                     : ValuesOf(network, variable);
}

// The values of argument `variable` that need support.
Values ClaimsOf(const KivOmbNetwork& network, VariableId variable, Strength strength) {
  const KindShape shape = ShapeOf(network.GetKind(variable));
  const bool every =
      shape == KindShape::kTruth || (strength == Strength::kDomain && shape == KindShape::kSet);
  const KivOmbiDomainSummary& summary = network.GetSummary(variable);
  return every ? ValuesOf(network, variable) : Values{summary.lower, summary.upper};
}

}  // namespace

std::optional<std::string> FindWeakness(const ConstraintCase& constraint,
                                        const KivOmbNetwork& network) {
  const bool all_fixed = std::ranges::all_of(constraint.arguments, [&](VariableId argument) {
    return network.GetSummary(argument).IsFixed();
  });
  if (constraint.strength == Strength::kWeaker && !all_fixed) return std::nullopt;
  std::int64_t assignments = 1;
  for (const VariableId argument : constraint.arguments) {
    const KivOmbiDomainSummary& summary = network.GetSummary(argument);
    if (!IsBounded(summary)) return std::nullopt;
    assignments *= constraint.strength == Strength::kHull
                       ? std::int64_t{summary.upper} - summary.lower + 1
                       : std::int64_t{summary.cardinality};
    if (assignments > kMostAssignments) return std::nullopt;
  }

  std::vector<Values> domains;
  for (const VariableId argument : constraint.arguments) {
    domains.push_back(SupportOf(network, argument, constraint.strength));
  }
  std::vector<std::set<std::int64_t>> supported(domains.size());
  for (const Assignment& solution : EnumerateSolutions(domains, constraint.holds)) {
    for (std::size_t i = 0; i < solution.size(); ++i) supported[i].insert(solution[i]);
  }
  for (std::size_t i = 0; i < domains.size(); ++i) {
    for (const std::int32_t value :
         ClaimsOf(network, constraint.arguments[i], constraint.strength)) {
      if (!supported[i].contains(value)) {
        return "argument " + std::to_string(i) + " keeps " + std::to_string(value) +
               ", which nothing supports";
      }
    }
  }
  return std::nullopt;
}

}  // namespace kiv::test
