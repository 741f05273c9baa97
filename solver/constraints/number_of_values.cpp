#include "solver/constraints/number_of_values.h"

#include <algorithm>
#include <numeric>
#include <set>

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::NumberOfValues", 0, 0, true);

}  // namespace

NumberOfValues::NumberOfValues() : KivOmbiConstraint(&descriptor) {}

// The greatest number of hulls of which no two meet: always the one that ends first.
std::int32_t NumberOfValues::CountDisjoint(const KivOmbiObjectEnvironment& environment,
                                           unsigned terms) {
  by_upper_.resize(terms);
  std::iota(by_upper_.begin(), by_upper_.end(), 0u);
  std::ranges::sort(by_upper_, {}, [&](unsigned i) { return environment.Summary(i).upper; });
  std::int32_t count = 0;
  std::int64_t last = -Hull::kUnbounded - 1;
  for (const unsigned i : by_upper_) {
    const Hull hull = HullOf(environment.Summary(i));
    if (hull.lower <= last) continue;
    last = hull.upper;
    ++count;
  }
  return count;
}

std::int64_t NumberOfValues::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned terms = environment.Count() - 1;
  const unsigned c = terms;
  const bool all_fixed = environment.AllFixed();
  open_.clear();
  taken_.clear();
  for (unsigned i = 0; i < terms; ++i) {
    if (environment.Summary(i).IsFixed()) {
      taken_.push_back(environment.Summary(i).lower);
    } else {
      open_.push_back(i);
    }
  }
  std::ranges::sort(taken_);
  taken_.erase(std::unique(taken_.begin(), taken_.end()), taken_.end());
  const auto taken = static_cast<std::int32_t>(taken_.size());
  const std::int32_t most = taken + static_cast<std::int32_t>(open_.size());
  const std::int32_t least = CountDisjoint(environment, terms);
  if (const auto result = KeepRange(environment, c, least, most)) return result;

  const KivOmbiDomainSummary counted = environment.Summary(c);
  const bool no_more = counted.upper == taken;
  const bool all_new = counted.lower == most;
  for (const unsigned i : open_) {
    if (no_more) {
      if (const auto result = KeepValues(environment, i, taken_)) return result;
    } else if (all_new) {
      if (const auto result = RemoveValues(environment, i, taken_)) return result;
    }
  }
  return all_fixed ? kKivEntailed : 0;
}

KivOmbiConstraint::Cost NumberOfValues::GetCost() const { return kQuadratic; }

std::int64_t NumberOfValues::GetWakingEvents(unsigned, unsigned) const { return kKivBounds; }

bool NumberOfValues::Holds(std::span<const std::int64_t> values) const {
  const std::set<std::int64_t> different(values.begin(), values.end() - 1);
  return static_cast<std::int64_t>(different.size()) == values.back();
}

}  // namespace kiv
