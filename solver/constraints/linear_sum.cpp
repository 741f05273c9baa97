#include "solver/constraints/linear_sum.h"

#include <algorithm>
#include <utility>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/linear_congruence.h"

namespace kiv {

namespace {

// The sums are computed in the type Wide: 64 bits where they fit, or 128.

// What one argument adds to a sum: at least `lower`, at most `upper`; a side is 0 where the
// argument leaves it open.
template <class Wide>
struct Share {
  Share(std::int64_t coefficient, const KivOmbiDomainSummary& summary) {
    const bool no_lower = summary.lower == SubIntBase::kMin;
    const bool no_upper = summary.upper == SubIntBase::kMax;
    const Wide at_lower = no_lower ? 0 : static_cast<Wide>(coefficient) * summary.lower;
    const Wide at_upper = no_upper ? 0 : static_cast<Wide>(coefficient) * summary.upper;
    const bool rising = coefficient > 0;
    lower = rising ? at_lower : at_upper;
    upper = rising ? at_upper : at_lower;
    open_below = rising ? no_lower : no_upper;
    open_above = rising ? no_upper : no_lower;
  }

  Wide lower;
  Wide upper;
  bool open_below;
  bool open_above;
};

// The shares of all arguments together.
template <class Wide>
struct Totals {
  Totals(const KivOmbiObjectEnvironment& environment, std::span<const std::int64_t> coefficients) {
    for (unsigned i = 0; i < coefficients.size(); ++i) {
      Add(Share<Wide>(coefficients[i], environment.Summary(i)));
    }
  }
  void Add(const Share<Wide>& share) {
    lower += share.lower;
    upper += share.upper;
    open_below += share.open_below ? 1u : 0u;
    open_above += share.open_above ? 1u : 0u;
  }
  void Remove(const Share<Wide>& share) {
    lower -= share.lower;
    upper -= share.upper;
    open_below -= share.open_below ? 1u : 0u;
    open_above -= share.open_above ? 1u : 0u;
  }

  Wide lower = 0;
  Wide upper = 0;
  unsigned open_below = 0;
  unsigned open_above = 0;
};

// low <= sum, sum <= high
template <class Wide>
struct Limits {
  std::optional<Wide> low;
  std::optional<Wide> high;

  bool AreMissedBy(const Totals<Wide>& totals) const {
    return (high && totals.open_below == 0 && totals.lower > *high) ||
           (low && totals.open_above == 0 && totals.upper < *low);
  }
  // By how much one share may differ from the least or the greatest that it adds to the totals and
  // still meet the limits: no argument whose share spreads less is narrowed. -1 when that cannot be
  // told.
  Wide SlackOf(const Totals<Wide>& totals) const {
    if (totals.open_below != 0 || totals.open_above != 0) return -1;
    if (!high) return totals.upper - *low;
    return low ? std::min<Wide>(*high - totals.lower, totals.upper - *low) : *high - totals.lower;
  }
  // Whether what the totals tell of the arguments differs.
  bool TellMore(const Totals<Wide>& before, const Totals<Wide>& after) const {
    return (high && (before.lower != after.lower || before.open_below != after.open_below)) ||
           (low && (before.upper != after.upper || before.open_above != after.open_above));
  }
  bool HoldAll(const Totals<Wide>& totals) const {
    return (!high || (totals.open_above == 0 && totals.upper <= *high)) &&
           (!low || (totals.open_below == 0 && totals.lower >= *low));
  }
};

// Where argument i must lie, when its share must be from `least` to `most`.
template <class Wide>
Hull HullWithin(Wide coefficient, const std::optional<Wide>& least,
                const std::optional<Wide>& most) {
  const auto& from = coefficient > 0 ? least : most;
  const auto& to = coefficient > 0 ? most : least;
  return {from ? ToHullBound(CeilDivide(*from, coefficient)) : -Hull::kUnbounded,
          to ? ToHullBound(FloorDivide(*to, coefficient)) : Hull::kUnbounded};
}

// Narrows each argument by the bounds of the others, as they are by then.
template <class Wide>
KivOmbiFilterResult NarrowEach(const KivOmbiObjectEnvironment& environment,
                               std::span<const std::int64_t> coefficients,
                               const Limits<Wide>& limits, Totals<Wide>& totals, bool& changed) {
  KivOmbiFilterResult overflow = 0;
  Wide slack = limits.SlackOf(totals);
  for (unsigned i = 0; i < coefficients.size(); ++i) {
    const KivOmbiDomainSummary before = environment.Summary(i);
    const Wide spread = static_cast<Wide>(coefficients[i]) * (Wide{before.upper} - before.lower);
    if ((spread < 0 ? -spread : spread) <= slack) continue;
    const Share<Wide> share(coefficients[i], before);
    Totals<Wide> others = totals;
    others.Remove(share);
    std::optional<Wide> least;
    std::optional<Wide> most;
    if (limits.low && others.open_above == 0) least = *limits.low - others.upper;
    if (limits.high && others.open_below == 0) most = *limits.high - others.lower;
    const bool fits_below = !least || (!share.open_below && share.lower >= *least);
    const bool fits_above = !most || (!share.open_above && share.upper <= *most);
    if (fits_below && fits_above) continue;

    const Hull hull = HullWithin(static_cast<Wide>(coefficients[i]), least, most);
    const auto result = NarrowToHull(environment, i, hull);
    if ((result & kKivContradiction) != 0) return result;
    overflow |= result;
    if (environment.Summary(i) == before) continue;
    others.Add(Share<Wide>(coefficients[i], environment.Summary(i)));
    changed |= limits.TellMore(totals, others);
    totals = others;
    slack = limits.SlackOf(totals);
  }
  return overflow;
}

// Where all but two arguments are fixed, lets the bounds of the two jump over what no integer
// partner fits.
KivOmbiFilterResult LeapOverMisfits(const KivOmbiObjectEnvironment& environment,
                                    std::span<const std::int64_t> coefficients, Int128 sum) {
  unsigned open[2] = {};
  unsigned count = 0;
  for (unsigned i = 0; i < coefficients.size(); ++i) {
    const KivOmbiDomainSummary& summary = environment.Summary(i);
    if (summary.IsFixed()) {
      sum -= static_cast<Int128>(coefficients[i]) * summary.lower;
    } else if (count < 2) {
      open[count++] = i;
    } else {
      return 0;
    }
  }
  if (count < 2) return 0;
  return NarrowToCongruent(environment, {open[0], coefficients[open[0]]},
                           {open[1], coefficients[open[1]]}, sum);
}

template <class Wide>
KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment,
                           std::span<const std::int64_t> coefficients, const Limits<Wide>& limits) {
  // Rounds after which bounds that crawl get help; almost all sums are at rest before.
  constexpr unsigned kCrawling = 4;
  constexpr unsigned kMostRounds = 256;
  const bool is_equation = limits.low && limits.high && *limits.low == *limits.high;
  Totals<Wide> totals(environment, coefficients);
  if (limits.AreMissedBy(totals)) return kKivContradiction;
  for (unsigned round = 1; round <= kMostRounds; ++round) {
    bool changed = false;
    const auto result = NarrowEach(environment, coefficients, limits, totals, changed);
    if ((result & kKivContradiction) != 0) return result;
    if (!changed) {
      const bool holds = limits.HoldAll(totals);
      return result | kKivAtFixpoint | (holds ? kKivEntailed : 0);
    }
    if (is_equation && round > kCrawling) {
      if (const auto leap = LeapOverMisfits(environment, coefficients, *limits.low)) return leap;
      totals = Totals<Wide>(environment, coefficients);
    }
  }
  return 0;
}

}  // namespace

LinearSum::LinearSum(std::vector<std::int64_t> coefficients)
    : coefficients_(std::move(coefficients)), reach_(0) {
  for (const std::int64_t coefficient : coefficients_) {
    const Int128 size = coefficient < 0 ? -static_cast<Int128>(coefficient) : coefficient;
    reach_ += size << 31;
  }
}

KivOmbiConstraint::Cost LinearSum::GetCost() const noexcept {
  if (Count() <= 1) return KivOmbiConstraint::kUnary;
  if (Count() == 2) return KivOmbiConstraint::kBinary;
  return Count() == 3 ? KivOmbiConstraint::kTernary : KivOmbiConstraint::kLinear;
}

Int128 LinearSum::Of(std::span<const std::int64_t> values) const {
  Int128 sum = 0;
  for (unsigned i = 0; i < Count(); ++i) sum += static_cast<Int128>(coefficients_[i]) * values[i];
  return sum;
}

Int128 LinearSum::ClampToReach(Int128 constant) const {
  return std::clamp<Int128>(constant, -reach_ - 1, reach_ + 1);
}

LinearSum::Range LinearSum::RangeOver(const KivOmbiObjectEnvironment& environment) const {
  const auto range = [](const auto& totals) {
    Range found;
    if (totals.open_below == 0) found.lower = totals.lower;
    if (totals.open_above == 0) found.upper = totals.upper;
    return found;
  };
  return IsNarrow() ? range(Totals<std::int64_t>(environment, coefficients_))
                    : range(Totals<Int128>(environment, coefficients_));
}

KivOmbiFilterResult LinearSum::NarrowTo(const KivOmbiObjectEnvironment& environment,
                                        std::optional<Int128> low,
                                        std::optional<Int128> high) const {
  if (low) low = ClampToReach(*low);
  if (high) high = ClampToReach(*high);
  if (!IsNarrow()) return Narrow<Int128>(environment, coefficients_, {low, high});
  Limits<std::int64_t> limits;
  if (low) limits.low = static_cast<std::int64_t>(*low);
  if (high) limits.high = static_cast<std::int64_t>(*high);
  return Narrow(environment, coefficients_, limits);
}

}  // namespace kiv
