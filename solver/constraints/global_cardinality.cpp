#include "solver/constraints/global_cardinality.h"

#include <algorithm>
#include <stdexcept>

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::GlobalCardinality", 0, 0, true);

}  // namespace

GlobalCardinality::GlobalCardinality(const std::vector<std::int32_t>& values, Cover cover)
    : KivOmbiConstraint(&descriptor),
      values_(values),
      counted_(true),
      closed_(cover == Cover::kClosed) {
  std::ranges::sort(values_);
  if (std::ranges::adjacent_find(values_) != values_.end()) {
    throw std::invalid_argument("global_cardinality: a value is given twice");
  }
  if (!std::ranges::all_of(values_, IsValue)) {
    throw std::invalid_argument("global_cardinality: a value that no variable can hold");
  }
  for (const std::int32_t value : values_) {
    const auto position = std::ranges::find(values, value) - values.begin();
    tallies_.push_back({static_cast<unsigned>(position), 0, 0, 0, 0});
  }
}

GlobalCardinality::GlobalCardinality(const std::vector<std::int32_t>& values,
                                     const std::vector<Limits>& limits, Cover cover)
    : GlobalCardinality(values, cover) {
  if (limits.size() != values.size()) {
    throw std::invalid_argument("global_cardinality: limits for each value, and for no other");
  }
  counted_ = false;
  limits_ = limits;
}

unsigned GlobalCardinality::CountTerms(unsigned arguments) const {
  return counted_ ? arguments - static_cast<unsigned>(values_.size()) : arguments;
}

void GlobalCardinality::CountTaken(const KivOmbiObjectEnvironment& environment, unsigned terms) {
  for (Tally& tally : tallies_) tally.surely = tally.possibly = 0;
  for (unsigned i = 0; i < terms; ++i) {
    const ValueSet near = Between(values_, environment.Summary(i));
    auto tally = tallies_.begin() + (near.data() - values_.data());
    const bool fixed = environment.Summary(i).IsFixed();
    for (const std::int32_t value : near) {
      if (environment.Integer(i).MayBe(value)) {
        ++tally->possibly;
        if (fixed) ++tally->surely;
      }
      ++tally;
    }
  }
}

// What the counts may be by what is taken, by their limits and by each other; one step gives all
// that follows for the bounds of a sum. False when nothing is left.
bool GlobalCardinality::AddUp(const KivOmbiObjectEnvironment& environment, unsigned terms) {
  std::int64_t least = 0;
  std::int64_t most = 0;
  for (Tally& tally : tallies_) {
    const Hull limits = counted_
                            ? HullOf(environment.Summary(terms + tally.position))
                            : Hull{limits_[tally.position].least, limits_[tally.position].most};
    tally.least = std::max(limits.lower, tally.surely);
    tally.most = std::min(limits.upper, tally.possibly);
    if (tally.least > tally.most) return false;
    least += tally.least;
    most += tally.most;
  }
  if (least > terms || (closed_ && most < terms)) return false;
  for (Tally& tally : tallies_) {
    const std::int64_t others_least = least - tally.least;
    const std::int64_t others_most = most - tally.most;
    if (closed_) tally.least = std::max(tally.least, terms - others_most);
    tally.most = std::min(tally.most, terms - others_least);
  }
  return true;
}

KivOmbiFilterResult GlobalCardinality::NarrowCounts(const KivOmbiObjectEnvironment& environment,
                                                    unsigned terms) const {
  for (const Tally& tally : tallies_) {
    const auto result =
        KeepRange(environment, terms + tally.position, static_cast<std::int32_t>(tally.least),
                  static_cast<std::int32_t>(tally.most));
    if (result != 0) return result;
  }
  return 0;
}

KivOmbiFilterResult GlobalCardinality::NarrowTerms(const KivOmbiObjectEnvironment& environment,
                                                   unsigned terms) const {
  for (std::size_t k = 0; k < values_.size(); ++k) {
    const Tally& tally = tallies_[k];
    if (tally.surely == tally.possibly) continue;
    const bool no_more = tally.most == tally.surely;
    const bool no_less = tally.least == tally.possibly;
    if (!no_more && !no_less) continue;
    const ValueSet value = ValueSet(values_).subspan(k, 1);
    for (unsigned i = 0; i < terms; ++i) {
      if (environment.Summary(i).IsFixed() || !MayBeIn(environment, i, value)) continue;
      const auto result =
          no_more ? RemoveValues(environment, i, value) : KeepValues(environment, i, value);
      if (result != 0) return result;
    }
  }
  return 0;
}

std::int64_t GlobalCardinality::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned terms = CountTerms(environment.Count());
  const bool all_fixed = environment.AllFixed();
  if (closed_) {
    for (unsigned i = 0; i < terms; ++i) {
      if (const auto result = KeepValues(environment, i, values_)) return result;
    }
  }
  CountTaken(environment, terms);
  if (!AddUp(environment, terms)) return kKivContradiction;
  if (counted_) {
    if (const auto result = NarrowCounts(environment, terms)) return result;
  }
  if (const auto result = NarrowTerms(environment, terms)) return result;
  return all_fixed ? kKivEntailed : 0;
}

KivOmbiConstraint::Cost GlobalCardinality::GetCost() const { return kQuadratic; }

std::int64_t GlobalCardinality::GetWakingEvents(unsigned index, unsigned arguments) const {
  return index < CountTerms(arguments) ? kKivValues : kKivBounds;
}

bool GlobalCardinality::Holds(std::span<const std::int64_t> values) const {
  const unsigned terms = CountTerms(static_cast<unsigned>(values.size()));
  const auto taken = values.first(terms);
  std::int64_t covered = 0;
  for (std::size_t k = 0; k < values_.size(); ++k) {
    const unsigned position = tallies_[k].position;
    const std::int64_t times = std::ranges::count(taken, std::int64_t{values_[k]});
    covered += times;
    const bool right = counted_
                           ? times == values[terms + position]
                           : limits_[position].least <= times && times <= limits_[position].most;
    if (!right) return false;
  }
  return !closed_ || covered == static_cast<std::int64_t>(terms);
}

}  // namespace kiv
