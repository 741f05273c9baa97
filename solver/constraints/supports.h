#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/abstract_types/environment.h"
#include "solver/constraints/values.h"

// Questions to the domains of integer arguments by which constraints look for supports. They take
// domains of any kind and size. A domain without a known bound answers with an end of the integers
// there, which as a bound says nothing; one of which nothing is known holds every value.
namespace kiv {

// The least value of argument i that is `from` or more, the greatest that is `from` or less.
std::optional<std::int32_t> LeastFrom(const KivOmbiObjectEnvironment& environment, unsigned i,
                                      std::int32_t from);
std::optional<std::int32_t> GreatestUpTo(const KivOmbiObjectEnvironment& environment, unsigned i,
                                         std::int32_t from);

// The least and the greatest value that arguments i and j have in common. They take as many steps
// as the two domains alternate between the bounds.
std::optional<std::int32_t> LeastCommon(const KivOmbiObjectEnvironment& environment, unsigned i,
                                        unsigned j);
std::optional<std::int32_t> GreatestCommon(const KivOmbiObjectEnvironment& environment, unsigned i,
                                           unsigned j);

// Removes the values of listable argument i for which `keep` is false: first from its ends, then,
// if its kind can have holes, between them. `keep` must not depend on the domain of i.
template <class Keep>
KivOmbiFilterResult KeepIf(const KivOmbiObjectEnvironment& environment, unsigned i, Keep&& keep) {
  const KivOmbiInteger& domain = environment.Integer(i);
  std::int32_t least = environment.Summary(i).lower;
  std::int32_t greatest = environment.Summary(i).upper;
  while (!keep(least)) {
    if (least == greatest) return Empty(environment, i);
    least = domain.GetNextExactValue(least);
  }
  while (!keep(greatest)) greatest = domain.GetPrevExactValue(greatest);
  if (const auto result = TightenLower(environment, i, least)) return result;
  if (const auto result = TightenUpper(environment, i, greatest)) return result;

  environment.NarrowInteger(i, [&](KivOmbiInteger& values) {
    int changed = 0;
    for (std::int32_t value = least; value < greatest;) {
      const std::int32_t next = values.GetNextExactValue(value);
      if (!keep(value)) {
        if (values.RemoveExactValue(value) == 0) break;  // a kind without holes
        changed = 1;
      }
      value = next;
    }
    return changed;
  });
  return 0;
}

// Argument i keeps the values from `lower` to `upper`, two values of a variable, for which `keep`
// is true, as far as its kind and size allow. `keep` is only asked about values in between.
template <class Keep>
KivOmbiFilterResult KeepIfBetween(const KivOmbiObjectEnvironment& environment, unsigned i,
                                  std::int64_t lower, std::int64_t upper, Keep&& keep) {
  if (const auto result = TightenLower(environment, i, lower)) return result;
  if (const auto result = TightenUpper(environment, i, upper)) return result;
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  if (IsListable(summary)) {
    return KeepIf(environment, i, [&](std::int32_t value) {
      return lower <= value && value <= upper && keep(value);
    });
  }
  if (summary.IsAny()) {
    const bool possible = TakeValues(environment, i, [&](auto&& add) {
      for (std::int64_t value = lower; value <= upper; ++value) {
        const auto candidate = static_cast<std::int32_t>(value);
        if (keep(candidate)) add(candidate);
      }
    });
    return possible ? 0 : kKivContradiction;
  }
  lower = std::max<std::int64_t>(lower, summary.lower);
  upper = std::min<std::int64_t>(upper, summary.upper);
  while (lower <= upper && !keep(static_cast<std::int32_t>(lower))) ++lower;
  while (lower <= upper && !keep(static_cast<std::int32_t>(upper))) --upper;
  if (lower > upper) return Empty(environment, i);
  if (const auto result = TightenLower(environment, i, lower)) return result;
  return TightenUpper(environment, i, upper);
}

}  // namespace kiv
