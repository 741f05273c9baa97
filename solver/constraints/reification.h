#pragma once

#include <optional>
#include <utility>

#include "solver/constraints/truth.h"

namespace kiv {

// How a truth value goes with a relation.
enum class Reification {
  kEquivalence,  // it is true if and only if the relation holds
  kImplication,  // if it is true, the relation holds
};

// Runs a relation that argument `truth` goes with. `decide()` is whether the relation holds, as far
// as the domains tell (std::optional<bool>), `impose(holds)` narrows to where it holds or to where
// it does not, and returns KivOmbiFilterResult bits.
template <class Decide, class Impose>
KivOmbiFilterResult FilterReified(const KivOmbiObjectEnvironment& environment, unsigned truth,
                                  Reification reification, Decide&& decide, Impose&& impose) {
  const bool is_implication = reification == Reification::kImplication;
  if (environment.Summary(truth).IsFixed()) {
    const bool holds = IsKnown(environment.Summary(truth), true);
    return holds || !is_implication ? impose(holds) : kKivEntailed;
  }
  const std::optional<bool> holds = decide();
  if (!holds) return kKivAtFixpoint;
  if (*holds && is_implication) return kKivEntailed;
  if (const auto result = SetTruth(environment, truth, *holds)) return result;
  // An integer of which nothing is known yet does not take a truth value.
  return environment.Summary(truth).IsFixed() ? kKivEntailed : kKivAtFixpoint;
}

// The ground truth of a relation that a truth value goes with.
inline bool HoldsReified(bool truth, Reification reification, bool holds) {
  return reification == Reification::kImplication ? !truth || holds : truth == holds;
}

}  // namespace kiv
