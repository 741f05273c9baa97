#include "solver/constraints/linear_sum.h"

#include <algorithm>
#include <utility>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/closed_sum.h"
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
struct LimitsIn {
  explicit LimitsIn(const LinearSum::Limits& limits) {
    if (limits.low) low = static_cast<Wide>(*limits.low);
    if (limits.high) high = static_cast<Wide>(*limits.high);
  }

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
                               const LimitsIn<Wide>& limits, Totals<Wide>& totals, bool& changed) {
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

// For sums of any kind.
template <class Wide>
std::optional<bool> Meets(const KivOmbiObjectEnvironment& environment,
                          std::span<const std::int64_t> coefficients,
                          const LinearSum::Limits& wide_limits) {
  const LimitsIn<Wide> limits(wide_limits);
  const Totals<Wide> totals(environment, coefficients);
  if (limits.AreMissedBy(totals)) return false;
  return limits.HoldAll(totals) ? std::optional(true) : std::nullopt;
}

// Rounds after which bounds that crawl get help; almost all sums are at rest before.
constexpr unsigned kCrawling = 4;
constexpr unsigned kMostRounds = 256;

bool IsEquation(const LinearSum::Limits& limits) {
  return limits.low && limits.high && *limits.low == *limits.high;
}

// For sums of any kind.
template <class Wide>
KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment, const LinearSum& sum,
                           const LinearSum::Limits& wide_limits) {
  const auto coefficients = sum.GetCoefficients();
  const LimitsIn<Wide> limits(wide_limits);
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
    if (IsEquation(wide_limits) && round > kCrawling) {
      if (const auto leap = LeapOverMisfits(environment, coefficients, *wide_limits.low)) {
        return leap;
      }
      totals = Totals<Wide>(environment, coefficients);
    }
  }
  return 0;
}

KivOmbiFilterResult NarrowClosed(const KivOmbiObjectEnvironment& environment, const LinearSum& sum,
                                 const LinearSum::Limits& limits, ClosedSum& closed) {
  if (closed.IsMissed()) return kKivContradiction;
  for (unsigned round = 1; !closed.IsAtRest(); ++round) {
    if (round > kMostRounds) return 0;
    bool changed = false;
    if (!closed.NarrowEach(changed)) return kKivContradiction;
    if (!changed) break;
    if (IsEquation(limits) && round > kCrawling) {
      const auto coefficients = sum.GetCoefficients();
      if (const auto leap = LeapOverMisfits(environment, coefficients, *limits.low)) return leap;
      closed.Read();
      if (closed.IsMissed()) return kKivContradiction;
    }
  }
  return kKivAtFixpoint | (closed.Holds() ? kKivEntailed : 0);
}

}  // namespace

LinearSum::LinearSum(std::vector<std::int64_t> coefficients)
    : coefficients_(std::move(coefficients)), terms_(coefficients_), reach_(0) {
  for (const std::int64_t coefficient : coefficients_) {
    const Int128 size = coefficient < 0 ? -static_cast<Int128>(coefficient) : coefficient;
    reach_ += size << 31;
    has_units_only_ &= size == 1;
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

LinearSum::Limits LinearSum::LimitsOf(std::optional<Int128> low, std::optional<Int128> high) const {
  Limits limits{};
  if (low) limits.low = ClampToReach(*low);
  if (high) limits.high = ClampToReach(*high);
  if (IsNarrow()) {
    limits.narrow_low = static_cast<std::int64_t>(limits.low.value_or(-reach_ - 1));
    limits.narrow_high = static_cast<std::int64_t>(limits.high.value_or(reach_ + 1));
  }
  return limits;
}

std::optional<bool> LinearSum::Meets(const KivOmbiObjectEnvironment& environment,
                                     const Limits& limits) {
  if (!IsNarrow()) return kiv::Meets<Int128>(environment, coefficients_, limits);
  const ClosedSum closed(environment, terms_, limits.narrow_low, limits.narrow_high);
  if (!closed.IsClosed()) return kiv::Meets<std::int64_t>(environment, coefficients_, limits);
  if (closed.IsMissed()) return false;
  return closed.Holds() ? std::optional(true) : std::nullopt;
}

KivOmbiFilterResult LinearSum::NarrowTo(const KivOmbiObjectEnvironment& environment,
                                        const Limits& limits) {
  if (!IsNarrow()) return Narrow<Int128>(environment, *this, limits);
  ClosedSum closed(environment, terms_, limits.narrow_low, limits.narrow_high);
  if (closed.IsClosed()) return NarrowClosed(environment, *this, limits, closed);
  return Narrow<std::int64_t>(environment, *this, limits);
}

}  // namespace kiv
