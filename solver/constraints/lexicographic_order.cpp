#include "solver/constraints/lexicographic_order.h"

#include <algorithm>

#include "framework/abstract_types/constraints/narrowing.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::LexicographicOrder", 0, 0, true);

}  // namespace

LexicographicOrder::LexicographicOrder(unsigned length, Equality equality)
    : KivOmbiConstraint(&descriptor), length_(length), equality_(equality) {}

unsigned LexicographicOrder::CommonLength(unsigned arguments) const {
  return std::min(length_, arguments - length_);
}

// Whether vectors that are equal as far as both go are in order.
bool LexicographicOrder::IsEndAllowed(unsigned arguments) const {
  const unsigned other = arguments - length_;
  return length_ < other || (length_ == other && equality_ == kAllowed);
}

bool LexicographicOrder::IsEqual(const KivOmbiObjectEnvironment& environment, unsigned i) const {
  const unsigned j = length_ + i;
  if (environment.IsSame(i, j)) return true;
  const KivOmbiDomainSummary& x = environment.Summary(i);
  return x.IsFixed() && environment.Summary(j).IsFixed() && x.lower == environment.Summary(j).lower;
}

// Whether the vectors can be in order from pair i on.
bool LexicographicOrder::CanFollow(const KivOmbiObjectEnvironment& environment, unsigned i) const {
  for (; i < CommonLength(environment.Count()); ++i) {
    if (environment.IsSame(i, length_ + i)) continue;
    const std::int32_t least = environment.Summary(i).lower;
    const std::int32_t greatest = environment.Summary(length_ + i).upper;
    if (least != greatest) return least < greatest;
  }
  return IsEndAllowed(environment.Count());
}

std::int64_t LexicographicOrder::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  auto i = static_cast<unsigned>(equal_);
  for (; i < CommonLength(environment.Count()); ++i) {
    if (!IsEqual(environment, i)) {
      const int gap = CanFollow(environment, i + 1) ? 0 : 1;
      const auto result = Order(environment, i, length_ + i, gap);
      if ((result & kKivContradiction) != 0) return result;
    }
    if (!IsEqual(environment, i)) break;
  }
  environment.SetWord(equal_, i);
  if (i == CommonLength(environment.Count())) {
    return IsEndAllowed(environment.Count()) ? kKivEntailed : kKivContradiction;
  }
  const bool is_before =
      HullOf(environment.Summary(i)).upper < HullOf(environment.Summary(length_ + i)).lower;
  return is_before ? kKivEntailed : 0;
}

KivOmbiConstraint::Cost LexicographicOrder::GetCost() const { return kLinear; }

std::int64_t LexicographicOrder::GetWakingEvents(unsigned, unsigned) const { return kKivBounds; }

bool LexicographicOrder::Holds(std::span<const std::int64_t> values) const {
  const auto x = values.first(length_);
  const auto y = values.subspan(length_);
  return equality_ == kAllowed ? !std::ranges::lexicographical_compare(y, x)
                               : std::ranges::lexicographical_compare(x, y);
}

}  // namespace kiv
