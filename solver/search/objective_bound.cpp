#include "solver/search/objective_bound.h"

#include "solver/search/literal.h"

namespace kiv {

void ObjectiveBound::Record(const KivOmbNetwork& network) {
  best_ = network.GetSummary(objective_.variable).lower;
}

bool ObjectiveBound::Excludes(const KivOmbNetwork& network) const {
  if (!best_) return false;
  const KivOmbiDomainSummary& summary = network.GetSummary(objective_.variable);
  return objective_.sense == Objective::Sense::kMinimize ? summary.lower >= *best_
                                                         : summary.upper <= *best_;
}

bool ObjectiveBound::Impose(KivOmbNetwork& network) const {
  if (!best_) return false;
  const auto no_better = objective_.sense == Objective::Sense::kMinimize
                             ? Literal::AtLeast(objective_.variable, *best_)
                             : Literal::AtMost(objective_.variable, *best_);
  const Literal better = Negated(no_better);
  return !IsEntailed(network, better) && kiv::Impose(network, better);
}

}  // namespace kiv
