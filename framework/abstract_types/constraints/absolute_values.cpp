#include "framework/abstract_types/constraints/absolute_values.h"

#include <algorithm>
#include <cstddef>
#include <span>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"

namespace kiv {

namespace {

using Values = std::span<const SubIntBase>;

bool HasFiniteList(const KivOmbiObjectEnvironment& environment, unsigned i) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  return summary.lower > SubIntBase::kMin && summary.upper < SubIntBase::kMax &&
         !environment.Values(i).empty();
}

std::size_t CountNegatives(Values values) {
  const auto is_negative = [](SubIntBase value) { return value.GetValue() < 0; };
  return static_cast<std::size_t>(std::ranges::partition_point(values, is_negative) -
                                  values.begin());
}

// The values of a, ascending, whose absolute value is none of z.
void FindWithoutAbsolute(Values a, Values z, std::vector<std::int32_t>& lost) {
  const std::size_t negatives = CountNegatives(a);
  std::size_t above = z.size();  // values of z from here on are greater than those still wanted
  for (std::size_t k = 0; k < negatives; ++k) {
    const std::int32_t wanted = -a[k].GetValue();
    while (above > 0 && z[above - 1].GetValue() > wanted) --above;
    if (above == 0 || z[above - 1].GetValue() != wanted) lost.push_back(a[k].GetValue());
  }
  std::size_t next = 0;
  for (const SubIntBase value : a.subspan(negatives)) {
    while (next < z.size() && z[next] < value) ++next;
    if (next == z.size() || z[next] != value) lost.push_back(value.GetValue());
  }
}

// The values of z, ascending, that are the absolute value of none of a.
void FindWithoutRoot(Values a, Values z, std::vector<std::int32_t>& lost) {
  std::size_t negatives = CountNegatives(a);  // those before are less than the negated value
  std::size_t next = negatives;
  for (const SubIntBase value : z) {
    while (next < a.size() && a[next] < value) ++next;
    while (negatives > 0 && -a[negatives - 1].GetValue() < value.GetValue()) --negatives;
    const bool has_root = (next < a.size() && a[next] == value) ||
                          (negatives > 0 && -a[negatives - 1].GetValue() == value.GetValue());
    if (!has_root) lost.push_back(value.GetValue());
  }
}

}  // namespace

bool AbsoluteValues::Suit(const KivOmbiObjectEnvironment& environment, unsigned a, unsigned z) {
  return !environment.IsSame(a, z) && HasFiniteList(environment, a) &&
         HasFiniteList(environment, z);
}

// What goes from one side was no reason for anything to stay on the other.
KivOmbiFilterResult AbsoluteValues::Narrow(const KivOmbiObjectEnvironment& environment, unsigned a,
                                           unsigned z) {
  lost_.clear();
  FindWithoutRoot(environment.Values(a), environment.Values(z), lost_);
  if (const auto result = LoseValues(environment, z, lost_)) return result;
  lost_.clear();
  FindWithoutAbsolute(environment.Values(a), environment.Values(z), lost_);
  return LoseValues(environment, a, lost_);
}

}  // namespace kiv
