#include "solver/constraints/all_different_domain.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <numeric>
#include <utility>

#include "solver/constraints/value_sets.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::AllDifferentDomain", 0, 0, true);

}  // namespace

AllDifferentDomain::AllDifferentDomain(TermOffsets offsets)
    : KivOmbiConstraint(&descriptor), offsets_(std::move(offsets)) {}

void AllDifferentDomain::Prepare(const KivOmbiObjectEnvironment& environment) {
  prepared_ = true;
  const Repetition repetition = FindRepetition(environment, offsets_);
  repeats_ = repetition.of_variables;
  contradictory_ = repetition.of_terms;
  const unsigned count = environment.Count();
  for (unsigned i = 0; i < count; ++i) holds_gaps_.push_back(environment.Kind(i)->HoldsGaps());
  for (auto* arguments : {&open_, &crowd_, &ample_}) arguments->reserve(count);
  last_term_.resize(count);
}

// Let k be the greatest number such that k arguments have at most k values each. An argument with
// more finds a value of its own whatever those have: of the others the one with the fewest has more
// than k + 1, the next more than k + 2 values, and so on. So it hinders nobody, and all there is to
// know of it is which values the crowd always takes.
//
// What a fixed argument has, the others have lost, and then it is out of their way. Only where one
// keeps such values between its bounds, fixed ones belong to the crowd.
void AllDifferentDomain::FindCrowd(const KivOmbiObjectEnvironment& environment) {
  const unsigned count = environment.Count();
  open_.clear();
  bool all_hold_gaps = true;
  for (unsigned i = 0; i < count; ++i) {
    if (environment.Summary(i).IsFixed()) continue;
    open_.push_back(i);
    all_hold_gaps &= holds_gaps_[i] != 0;
  }
  if (!all_hold_gaps) {
    open_.resize(count);
    std::iota(open_.begin(), open_.end(), 0u);
  }
  sizes_.assign(open_.size() + 1, 0);
  for (const unsigned i : open_) {
    const KivOmbiDomainSummary& summary = environment.Summary(i);
    if (IsClosed(summary) && summary.cardinality < sizes_.size()) ++sizes_[summary.cardinality];
  }
  unsigned most_values = 0;
  unsigned arguments = 0;
  for (unsigned k = 1; k < sizes_.size(); ++k) {
    arguments += sizes_[k];
    if (arguments >= k) most_values = k;
  }
  crowd_.clear();
  ample_.clear();
  for (const unsigned i : open_) {
    const KivOmbiDomainSummary& summary = environment.Summary(i);
    const bool is_crowded = IsClosed(summary) && summary.cardinality <= most_values;
    (is_crowded ? crowd_ : ample_).push_back(i);
  }
}

// One pass is all: what is removed was part of no matching, so that it changes none.
std::int64_t AllDifferentDomain::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (!prepared_) Prepare(environment);
  if (contradictory_) return kKivContradiction;
  FindCrowd(environment);
  if (!crowd_.empty()) {
    std::int64_t least = std::numeric_limits<std::int64_t>::max();
    std::int64_t greatest = std::numeric_limits<std::int64_t>::min();
    for (const unsigned i : crowd_) {
      least = std::min(least, environment.Summary(i).lower + OffsetOf(offsets_, i));
      greatest = std::max(greatest, environment.Summary(i).upper + OffsetOf(offsets_, i));
    }
    const std::int64_t width = greatest - least + 1;
    const auto result = width <= kWidestBitWindow
                            ? NarrowByBits(environment, least, CountWords(width))
                            : NarrowByGraph(environment);
    if (result != 0) return result;
  }
  // A variable in two terms loses in one what the other has yet to hear of.
  if (repeats_) return 0;
  return environment.AllFixed() ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

KivOmbiFilterResult AllDifferentDomain::NarrowByBits(const KivOmbiObjectEnvironment& environment,
                                                     std::int64_t base, std::size_t words) {
  const auto terms = static_cast<unsigned>(crowd_.size());
  bits_.Start(terms, words);
  for (unsigned term = 0; term < terms; ++term) {
    const unsigned i = crowd_[term];
    TakeBits(environment, i, base - OffsetOf(offsets_, i), bits_.Row(term));
    bits_.Prefer(term, static_cast<unsigned>(last_term_[i] - base));
  }
  if (!bits_.Match()) return kKivContradiction;
  for (unsigned term = 0; term < terms; ++term) {
    last_term_[crowd_[term]] = base + bits_.PlaceOf(term);
  }
  bits_.Classify();
  const auto always_taken = bits_.AlwaysTaken();
  if (std::ranges::none_of(always_taken, std::identity())) return 0;
  for (unsigned term = 0; term < terms; ++term) {
    if (const auto result = RemoveBits(environment, crowd_[term], base, bits_.Row(term))) {
      return result;
    }
  }
  row_.resize(words);
  for (const unsigned i : ample_) {
    TakeBits(environment, i, base - OffsetOf(offsets_, i), row_);
    for (std::size_t w = 0; w < words; ++w) row_[w] &= always_taken[w];
    if (const auto result = RemoveBits(environment, i, base, row_)) return result;
  }
  return 0;
}

// Removes the terms of a window from argument i.
KivOmbiFilterResult AllDifferentDomain::RemoveBits(const KivOmbiObjectEnvironment& environment,
                                                   unsigned i, std::int64_t base,
                                                   std::span<const BitWord> bits) {
  impossible_.clear();
  ForEachBit(bits, [&](std::size_t place) {
    impossible_.push_back(base + static_cast<std::int64_t>(place));
  });
  return RemoveTerms(environment, i);
}

KivOmbiFilterResult AllDifferentDomain::NarrowByGraph(const KivOmbiObjectEnvironment& environment) {
  graph_.Start(environment.Count());
  for (const unsigned i : crowd_) {
    const std::int64_t offset = OffsetOf(offsets_, i);
    graph_.AddTerm(i);
    ForEachValue(environment, i, [&](std::int32_t value) { graph_.AddValue(value + offset); });
  }
  if (!graph_.Match()) return kKivContradiction;
  graph_.Classify();
  for (unsigned term = 0; term < graph_.CountTerms(); ++term) {
    impossible_.clear();
    for (const auto& edge : graph_.Edges(term)) {
      if (!edge.possible) impossible_.push_back(edge.value);
    }
    if (const auto result = RemoveTerms(environment, graph_.Label(term))) return result;
  }
  impossible_.assign(graph_.AlwaysTaken().begin(), graph_.AlwaysTaken().end());
  for (const unsigned i : ample_) {
    if (const auto result = RemoveTerms(environment, i)) return result;
  }
  return 0;
}

// Removes the terms impossible_ from argument i.
KivOmbiFilterResult AllDifferentDomain::RemoveTerms(const KivOmbiObjectEnvironment& environment,
                                                    unsigned i) {
  if (impossible_.empty()) return 0;
  lost_.clear();
  for (const std::int64_t term : impossible_) {
    const std::int64_t value = term - OffsetOf(offsets_, i);
    if (IsValue(value)) lost_.push_back(static_cast<std::int32_t>(value));
  }
  return RemoveValues(environment, i, lost_);
}

KivOmbiConstraint::Cost AllDifferentDomain::GetCost() const { return kCostly; }

std::int64_t AllDifferentDomain::GetWakingEvents(unsigned, unsigned) const { return kKivValues; }

bool AllDifferentDomain::Holds(std::span<const std::int64_t> values) const {
  return AreDistinct(values, offsets_);
}

}  // namespace kiv
