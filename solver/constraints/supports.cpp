#include "solver/constraints/supports.h"

namespace kiv {

// Kinds are asked for neighbours strictly inside their bounds only: elsewhere they answer with
// numbers that they do not hold.
std::optional<std::int32_t> LeastFrom(const KivOmbiObjectEnvironment& environment, unsigned i,
                                      std::int32_t from) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  if (from <= summary.lower) return summary.lower;
  if (from >= summary.upper) return from == summary.upper ? std::optional(from) : std::nullopt;
  return environment.Integer(i).GetNextExactValue(from - 1);
}

std::optional<std::int32_t> GreatestUpTo(const KivOmbiObjectEnvironment& environment, unsigned i,
                                         std::int32_t from) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  if (from >= summary.upper) return summary.upper;
  if (from <= summary.lower) return from == summary.lower ? std::optional(from) : std::nullopt;
  return environment.Integer(i).GetPrevExactValue(from + 1);
}

std::optional<std::int32_t> LeastCommon(const KivOmbiObjectEnvironment& environment, unsigned i,
                                        unsigned j) {
  std::optional value(environment.Summary(i).lower);
  for (;;) {
    const auto above = LeastFrom(environment, j, *value);
    if (!above || above == value) return above;
    value = LeastFrom(environment, i, *above);
    if (!value || value == above) return value;
  }
}

std::optional<std::int32_t> GreatestCommon(const KivOmbiObjectEnvironment& environment, unsigned i,
                                           unsigned j) {
  std::optional value(environment.Summary(i).upper);
  for (;;) {
    const auto below = GreatestUpTo(environment, j, *value);
    if (!below || below == value) return below;
    value = GreatestUpTo(environment, i, *below);
    if (!value || value == below) return value;
  }
}

}  // namespace kiv
