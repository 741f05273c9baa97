#include "framework/abstract_types/constraints/truncating_division.h"

#include <algorithm>
#include <array>

#include "framework/abstract_types/constraints/ground_truth.h"
#include "framework/abstract_types/constraints/hull_narrowing.h"
#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/hull.h"
#include "framework/intervals/sub_int_base.h"

namespace {

enum Argument : unsigned { kX, kY, kZ, kArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiTruncatingDivisionConstraint> division(
    "KivOmbiTruncatingDivisionConstraint", kArguments, 0, true);

// The most pairs of values that are looked at one by one.
constexpr std::uint64_t kMostPairs = 4096;

// An infinite bound is no value, so that a domain with one cannot be listed.
bool IsListable(const KivOmbiDomainSummary& summary) {
  return summary.state == KivOmbiDomainSummary::kValues && summary.lower > SubIntBase::kMin &&
         summary.upper < SubIntBase::kMax;
}

bool HaveFewPairs(const KivOmbiDomainSummary& a, const KivOmbiDomainSummary& b) {
  return IsListable(a) && IsListable(b) &&
         std::uint64_t{a.cardinality} * b.cardinality <= kMostPairs;
}

// Whether bounds are all that is known of a domain, or all there is to know.
bool HasNoGaps(const KivOmbiDomainSummary& summary) {
  return !IsListable(summary) ||
         std::int64_t{summary.upper} - summary.lower + 1 == summary.cardinality;
}

// Whether `test(value)` for some value of a listable argument.
template <class Test>
bool HasValueThat(const KivOmbiObjectEnvironment& environment, unsigned i, Test&& test) {
  const std::int32_t last = environment.Summary(i).upper;
  for (std::int32_t value = environment.Summary(i).lower;;
       value = environment.Integer(i).GetNextExactValue(value)) {
    if (test(value)) return true;
    if (value == last) return false;
  }
}

// Whether an argument may have a value in `range`.
bool MayBeIn(const KivOmbiObjectEnvironment& environment, unsigned i, const kiv::Hull& range) {
  const kiv::Hull hull = kiv::HullOf(environment, i);
  const std::int64_t least = std::max(range.lower, hull.lower);
  if (least > std::min(range.upper, hull.upper)) return false;
  if (!IsListable(environment.Summary(i)) || least == hull.lower) return true;
  return environment.Integer(i).GetNextExactValue(static_cast<std::int32_t>(least - 1)) <=
         range.upper;
}

// Removes the values of a listable argument that `is_supported` refuses.
template <class IsSupported>
KivOmbiFilterResult KeepSupported(const KivOmbiObjectEnvironment& environment, unsigned i,
                                  IsSupported&& is_supported) {
  const std::int32_t last = environment.Summary(i).upper;
  const bool possible = environment.NarrowInteger(i, [&](KivOmbiInteger& domain) {
    int changed = 0;
    for (std::int32_t value = environment.Summary(i).lower;;) {
      const std::int32_t next = value < last ? domain.GetNextExactValue(value) : value;
      if (!is_supported(value)) changed |= domain.RemoveExactValue(value);
      if (value == last) return changed;
      value = next;
    }
  });
  return possible ? 0 : kKivContradiction;
}

// What is left of an open operand is exact, so that a fixed one is right as soon as there is some.
KivOmbiFilterResult NarrowBounds(const KivOmbiObjectEnvironment& environment) {
  const bool is_same = environment.IsSame(kX, kY);
  const auto narrow = [&](std::array<kiv::Hull, kArguments>& hulls) {
    auto& [z, x, y] = hulls;
    z = kiv::Intersection(z, is_same ? kiv::Hull{1, 1} : kiv::TruncatedQuotient(x, y));
    if (!x.IsFixed()) x = kiv::TruncatedDividend(x, y, z);
    if (!y.IsFixed()) y = kiv::TruncatedDivisor(x, y, z);
  };
  const auto settle = [&](std::array<kiv::Hull, kArguments>& hulls) {
    kiv::SettleHulls(hulls, narrow);
  };
  return kiv::NarrowHulls(environment, std::array<unsigned, kArguments>{kZ, kX, kY}, settle);
}

KivOmbiFilterResult NarrowValues(const KivOmbiObjectEnvironment& environment) {
  const auto is_quotient = [&](std::int32_t x, std::int32_t y) {
    return y != 0 && environment.Integer(kZ).MayBe(x / y);
  };
  const auto is_divided = [&](std::int32_t y, std::int32_t z) {
    constexpr kiv::Hull kAll{-kiv::Hull::kUnbounded, kiv::Hull::kUnbounded};
    return y != 0 && MayBeIn(environment, kX, kiv::TruncatedDividend(kAll, {y, y}, {z, z}));
  };
  // For one divisor the dividends of successive quotients are successive, so that the bounds of the
  // ones tell all of the others where these have no gaps.
  const bool is_divisor_fixed = environment.Summary(kY).IsFixed();
  const auto is_exact_beside = [&](unsigned i) {
    return is_divisor_fixed && HasNoGaps(environment.Summary(i));
  };
  const bool has_few_dividends =
      !is_exact_beside(kZ) && HaveFewPairs(environment.Summary(kX), environment.Summary(kY));
  if (has_few_dividends) {
    if (const auto result = KeepSupported(environment, kX, [&](std::int32_t x) {
          return HasValueThat(environment, kY, [&](std::int32_t y) { return is_quotient(x, y); });
        })) {
      return result;
    }
    if (const auto result = KeepSupported(environment, kY, [&](std::int32_t y) {
          return HasValueThat(environment, kX, [&](std::int32_t x) { return is_quotient(x, y); });
        })) {
      return result;
    }
  }
  if (is_exact_beside(kX) || !HaveFewPairs(environment.Summary(kY), environment.Summary(kZ))) {
    return has_few_dividends ? 0 : kKivAtFixpoint;
  }
  return KeepSupported(environment, kZ, [&](std::int32_t z) {
    return HasValueThat(environment, kY, [&](std::int32_t y) { return is_divided(y, z); });
  });
}

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiTruncatingDivisionConstraint::sDescriptor = &division;

KivOmbiTruncatingDivisionConstraint::KivOmbiTruncatingDivisionConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiTruncatingDivisionConstraint::~KivOmbiTruncatingDivisionConstraint() = default;

std::int64_t KivOmbiTruncatingDivisionConstraint::Filter(
    const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const bool is_divisor_known = !environment.Summary(kY).IsAny();
  if (const auto result = kiv::RemoveValue(environment, kY, 0)) return result;
  if (const auto result = NarrowBounds(environment)) return result;
  const auto result = NarrowValues(environment);
  if (kiv::IsEnd(result)) return result;
  // A divisor that was unknown may have got a 0 since it was removed.
  return (is_divisor_known ? result : 0) | Settle(environment);
}

bool KivOmbiTruncatingDivisionConstraint::Holds(std::span<const std::int64_t> values) const {
  return kiv::ground_truth::IsTruncatedQuotient(values[kX], values[kY], values[kZ]);
}
