#pragma once

#include <cstdint>
#include <optional>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/abstract_types/environment.h"

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
KivOmbiFilterResult KeepValues(const KivOmbiObjectEnvironment& environment, unsigned i,
                               Keep&& keep) {
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

}  // namespace kiv
