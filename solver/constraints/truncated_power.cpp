#include "solver/constraints/truncated_power.h"

#include <algorithm>
#include <optional>

#include "framework/abstract_types/constraints/ground_truth.h"
#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/supports.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

enum Argument : unsigned { kX, kY, kZ };

const KivOmbiConstraintDescriptor descriptor("kiv::TruncatedPower", 3, 0, true);

constexpr Hull kNatural{0, Hull::kUnbounded};
constexpr Hull kNegative{-Hull::kUnbounded, -1};

// What powers with negative exponents there are.
constexpr Hull kReciprocals{-1, 1};

// The power, if there is one and it is at most 32 bits wide.
std::optional<std::int64_t> PowerOf(std::int64_t x, std::int64_t y) {
  constexpr std::int64_t kBeyond = std::int64_t{1} << 32;
  const std::int64_t unit = x == -1 && y % 2 != 0 ? -1 : 1;
  if (y == 0 || x == 1 || x == -1) return unit;
  if (y < 0) return x == 0 ? std::nullopt : std::optional<std::int64_t>(0);
  if (x == 0) return 0;
  std::int64_t power = 1;
  for (; y > 0; --y) {
    power *= x;
    if (power >= kBeyond || power <= -kBeyond) return std::nullopt;
  }
  return power;
}

// The powers of X with negative exponents; may be wider than that.
Hull ReciprocalsOf(const Hull& x) {
  const bool has_units = x.Contains(1) || x.Contains(-1);
  const bool has_others = x.lower < -1 || x.upper > 1;
  if (!has_units) return has_others ? Hull{0, 0} : kEmptyHull;
  return {x.Contains(-1) ? -1 : (has_others ? 0 : 1), 1};
}

KivOmbiFilterResult NarrowHulls(const KivOmbiObjectEnvironment& environment) {
  const auto hull = [&](unsigned i) { return HullOf(environment, i); };
  const auto natural = [&] { return Intersection(hull(kY), kNatural); };
  const auto negative = [&] { return Intersection(hull(kY), kNegative); };

  Hull powers = natural().IsEmpty() ? kEmptyHull : Power(hull(kX), natural());
  if (!negative().IsEmpty()) powers = Union(powers, ReciprocalsOf(hull(kX)));
  if (const auto result = NarrowToHull(environment, kZ, powers)) return result;

  const bool may_divide = !Intersection(hull(kZ), kReciprocals).IsEmpty();
  if (natural().IsEmpty()) {
    if (const auto result = RemoveValue(environment, kX, 0)) return result;
  } else {
    Hull exponents = Exponent(hull(kX), natural(), hull(kZ));
    if (may_divide) exponents = Union(exponents, negative());
    if (const auto result = NarrowToHull(environment, kY, exponents)) return result;
  }
  if (may_divide && !negative().IsEmpty()) return 0;
  return NarrowToHull(environment, kX, Base(hull(kX), natural(), hull(kZ)));
}

// Whether `test(value)` for some value of a listable argument.
template <class Test>
bool HasValueThat(const KivOmbiObjectEnvironment& environment, unsigned i, Test&& test) {
  bool found = false;
  ForEachValue(environment.Integer(i), environment.Summary(i),
               [&](std::int32_t value) { found = found || test(value); });
  return found;
}

bool HaveFewTriples(const KivOmbiObjectEnvironment& environment) {
  constexpr std::uint64_t kMostTriples = 32768;
  std::uint64_t triples = 1;
  for (const unsigned i : {kX, kY, kZ}) {
    if (!IsListable(environment.Summary(i))) return false;
    triples *= environment.Summary(i).cardinality;
  }
  return triples <= kMostTriples;
}

KivOmbiFilterResult NarrowValues(const KivOmbiObjectEnvironment& environment) {
  const auto is_power = [&](std::int32_t x, std::int32_t y) {
    const auto power = PowerOf(x, y);
    return power && *power > SubIntBase::kMin && *power < SubIntBase::kMax &&
           environment.Integer(kZ).MayBe(static_cast<std::int32_t>(*power));
  };
  if (const auto result = KeepIf(environment, kX, [&](std::int32_t x) {
        return HasValueThat(environment, kY, [&](std::int32_t y) { return is_power(x, y); });
      })) {
    return result;
  }
  if (const auto result = KeepIf(environment, kY, [&](std::int32_t y) {
        return HasValueThat(environment, kX, [&](std::int32_t x) { return is_power(x, y); });
      })) {
    return result;
  }
  return KeepIf(environment, kZ, [&](std::int32_t z) {
    return HasValueThat(environment, kX, [&](std::int32_t x) {
      return HasValueThat(environment, kY, [&](std::int32_t y) { return PowerOf(x, y) == z; });
    });
  });
}

}  // namespace

TruncatedPower::TruncatedPower() : KivOmbiConstraint(&descriptor) {}

std::int64_t TruncatedPower::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (const auto result = NarrowHulls(environment)) return result;
  if (HaveFewTriples(environment)) {
    if (const auto result = NarrowValues(environment)) return result;
  }
  return Settle(environment);
}

KivOmbiConstraint::Cost TruncatedPower::GetCost() const { return kQuadratic; }

bool TruncatedPower::Holds(std::span<const std::int64_t> values) const {
  const std::int64_t x = values[kX];
  const std::int64_t y = values[kY];
  const std::int64_t z = values[kZ];
  if (y >= 0) return ground_truth::IsPower(x, y, z);
  if (x == 0) return false;
  if (x == 1) return z == 1;
  if (x == -1) return z == (y % 2 == 0 ? 1 : -1);
  return z == 0;
}

}  // namespace kiv
