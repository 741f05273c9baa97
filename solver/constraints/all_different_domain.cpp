#include "solver/constraints/all_different_domain.h"

#include <utility>

#include "solver/constraints/value_sets.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::AllDifferentDomain", 0, 0, true);

// An argument with as many values as there are arguments, or more, finds one of its own whatever
// the others have. So it hinders nobody, and all there is to know of it is which values the others
// always take.
bool IsAmple(const KivOmbiDomainSummary& summary, unsigned arguments) {
  return summary.IsAny() || !IsValue(summary.lower) || !IsValue(summary.upper) ||
         summary.cardinality >= arguments;
}

}  // namespace

AllDifferentDomain::AllDifferentDomain(TermOffsets offsets)
    : KivOmbiConstraint(&descriptor), offsets_(std::move(offsets)) {}

void AllDifferentDomain::BuildGraph(const KivOmbiObjectEnvironment& environment) {
  const unsigned count = environment.Count();
  matching_.Start(count);
  ample_.clear();
  for (unsigned i = 0; i < count; ++i) {
    const KivOmbiDomainSummary& summary = environment.Summary(i);
    if (IsAmple(summary, count)) {
      ample_.push_back(i);
      continue;
    }
    const std::int64_t offset = OffsetOf(offsets_, i);
    matching_.AddTerm(i);
    ForEachValue(environment, i, [&](std::int32_t value) { matching_.AddValue(value + offset); });
  }
}

// Removes the terms impossible_ from argument i.
KivOmbiFilterResult AllDifferentDomain::RemoveTerms(const KivOmbiObjectEnvironment& environment,
                                                    unsigned i) {
  lost_.clear();
  for (const std::int64_t term : impossible_) {
    const std::int64_t value = term - OffsetOf(offsets_, i);
    if (IsValue(value)) lost_.push_back(static_cast<std::int32_t>(value));
  }
  return RemoveValues(environment, i, lost_);
}

// One pass is all: what is removed was part of no matching, so that it changes none.
std::int64_t AllDifferentDomain::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned count = environment.Count();
  if (!prepared_) {
    prepared_ = true;
    const Repetition repetition = FindRepetition(environment, offsets_);
    repeats_ = repetition.of_variables;
    contradictory_ = repetition.of_terms;
    ample_.reserve(count);
  }
  if (contradictory_) return kKivContradiction;
  if (count <= 1) return kKivAtFixpoint | kKivEntailed;

  BuildGraph(environment);
  if (!matching_.Match()) return kKivContradiction;
  matching_.Classify();
  for (unsigned term = 0; term < matching_.CountTerms(); ++term) {
    impossible_.clear();
    for (const auto& edge : matching_.Edges(term)) {
      if (!edge.possible) impossible_.push_back(edge.value);
    }
    if (impossible_.empty()) continue;
    if (const auto result = RemoveTerms(environment, matching_.Label(term))) return result;
  }
  impossible_.assign(matching_.AlwaysTaken().begin(), matching_.AlwaysTaken().end());
  for (const unsigned i : ample_) {
    if (const auto result = RemoveTerms(environment, i)) return result;
  }
  // A variable in two terms loses in one what the other has yet to hear of.
  if (repeats_) return 0;
  return environment.AllFixed() ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

KivOmbiConstraint::Cost AllDifferentDomain::GetCost() const { return kCostly; }

std::int64_t AllDifferentDomain::GetWakingEvents(unsigned, unsigned) const { return kKivValues; }

bool AllDifferentDomain::Holds(std::span<const std::int64_t> values) const {
  return AreDistinct(values, offsets_);
}

}  // namespace kiv
