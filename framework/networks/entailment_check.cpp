#include "framework/networks/entailment_check.h"

#include <algorithm>
#include <random>
#include <vector>

#include "framework/intervals/sub_int_base.h"

namespace {

constexpr int kSamples = 64;

using Random = std::minstd_rand;

std::int64_t Pick(Random& random, std::int64_t lower, std::int64_t upper) {
  return std::uniform_int_distribution<std::int64_t>(lower, upper)(random);
}

// A value that the variable may have. Bounds are the likeliest to break a claim.
std::int64_t PickValue(Random& random, const KivOmbiVariable& variable) {
  const std::int64_t lower = std::max(variable.summary.lower, SubIntBase::kMin + 1);
  const std::int64_t upper = std::min(variable.summary.upper, SubIntBase::kMax - 1);
  switch (Pick(random, 0, 2)) {
    case 0:
      return lower;
    case 1:
      return upper;
    default:
      break;
  }
  const auto* integer = KivCast<KivOmbiInteger>(variable.domain);
  const std::int64_t value = Pick(random, lower, upper);
  const bool may_be = integer == nullptr || integer->MayBe(static_cast<std::int32_t>(value));
  return may_be ? value : integer->GetNextExactValue(static_cast<std::int32_t>(value));
}

}  // namespace

bool EntailmentHolds(const KivOmbiConstraint& constraint,
                     std::span<const KivOmbiVariable> variables,
                     std::span<const std::uint32_t> arguments) {
  Random random;
  std::vector<std::int64_t> values(arguments.size());
  for (int sample = 0; sample < kSamples; ++sample) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
      // A variable has one value, wherever it stands.
      const auto first =
          static_cast<std::size_t>(std::ranges::find(arguments, arguments[i]) - arguments.begin());
      values[i] = first < i ? values[first] : PickValue(random, variables[arguments[i]]);
    }
    if (!constraint.Holds(values)) return false;
  }
  return true;
}
