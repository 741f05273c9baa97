#include "solver/constraints/clause.h"

#include <algorithm>

#include "solver/constraints/truth.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::Clause", 0, 0, true);

}  // namespace

Clause::Clause(unsigned positive) : KivOmbiConstraint(&descriptor), positive_(positive) {}

void Clause::ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) {
  if (index == watched_[0] || index == watched_[1]) {
    KivOmbiConstraint::ActivateByArgument(index, events, network);
  }
}

// Looks for two literals that are not false, first at those watched so far, then from the second of
// these on, round about, so that a run of false literals is not passed again and again.
std::int64_t Clause::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned count = environment.Count();
  std::array<unsigned, 2> found{};
  unsigned size = 0;
  const unsigned start = watched_[1];
  for (unsigned step = 0; step <= count && size < 2; ++step) {
    const unsigned i = step == 0 ? watched_[0] : (start + step - 1) % count;
    if (i >= count || (step > 0 && i == watched_[0])) continue;
    const KivOmbiDomainSummary& truth = environment.Summary(i);
    if (IsKnown(truth, Wanted(i))) return kKivEntailed;
    if (truth.IsFixed()) continue;
    if (size == 1 && environment.IsSame(found[0], i)) {
      if (Wanted(found[0]) != Wanted(i)) return kKivEntailed;
      continue;  // the same literal once more
    }
    found[size++] = i;
  }
  if (size == 0) return kKivContradiction;
  if (size == 1) {
    const auto result = SetTruth(environment, found[0], Wanted(found[0]));
    return result != 0 ? result : kKivEntailed;
  }
  watched_ = found;
  return kKivAtFixpoint;
}

KivOmbiConstraint::Cost Clause::GetCost() const { return kUnary; }

std::int64_t Clause::GetWakingEvents(unsigned, unsigned) const { return kKivFixed; }

bool Clause::Holds(std::span<const std::int64_t> values) const {
  const auto positive = values.first(positive_);
  const auto negative = values.subspan(positive_);
  return std::ranges::any_of(positive, [](std::int64_t value) { return value != 0; }) ||
         std::ranges::any_of(negative, [](std::int64_t value) { return value == 0; });
}

}  // namespace kiv
