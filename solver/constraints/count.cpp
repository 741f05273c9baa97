#include "solver/constraints/count.h"

#include <algorithm>
#include <array>

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/among.h"
#include "solver/constraints/value_sets.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::Count", 0, 0, true);

// While y has too many values to look at: one that is taken at all is the value of a term.
KivOmbiFilterResult NarrowToHullOfTerms(const KivOmbiObjectEnvironment& environment, unsigned terms,
                                        unsigned y) {
  Hull hull{Hull::kUnbounded, -Hull::kUnbounded};
  for (unsigned i = 0; i < terms; ++i) {
    const Hull term = HullOf(environment.Summary(i));
    hull = {std::min(hull.lower, term.lower), std::max(hull.upper, term.upper)};
  }
  if (const auto result = TightenLower(environment, y, hull.lower)) return result;
  return TightenUpper(environment, y, hull.upper);
}

}  // namespace

Count::Count() : KivOmbiConstraint(&descriptor) {}

std::int64_t Count::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned terms = environment.Count() - 2;
  const unsigned y = terms;
  const unsigned c = terms + 1;
  if (environment.Summary(y).IsFixed()) {
    const std::array value{environment.Summary(y).lower};
    return NarrowAmong(environment, terms, c, value);
  }
  if (!IsListable(environment.Summary(y))) {
    const auto most = static_cast<std::int32_t>(terms);
    if (const auto result = KeepRange(environment, c, 0, most)) return result;
    return environment.Summary(c).lower > 0 ? NarrowToHullOfTerms(environment, terms, y) : 0;
  }

  std::int32_t least = static_cast<std::int32_t>(terms);
  std::int32_t most = 0;
  const bool possible = FilterValues(environment, y, [&](std::int32_t value) {
    std::int32_t surely = 0;
    std::int32_t possibly = 0;
    for (unsigned i = 0; i < terms; ++i) {
      if (!environment.Integer(i).MayBe(value)) continue;
      ++possibly;
      if (environment.Summary(i).IsFixed()) ++surely;
    }
    if (!MayBeBetween(environment, c, surely, possibly)) return false;
    least = std::min(least, surely);
    most = std::max(most, possibly);
    return true;
  });
  return possible ? KeepRange(environment, c, least, most) : kKivContradiction;
}

KivOmbiConstraint::Cost Count::GetCost() const { return kQuadratic; }

bool Count::Holds(std::span<const std::int64_t> values) const {
  const auto terms = values.first(values.size() - 2);
  return std::ranges::count(terms, values[terms.size()]) == values.back();
}

}  // namespace kiv
