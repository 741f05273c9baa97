#include "solver/constraints/closed_sum.h"

#include <algorithm>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"

namespace kiv {

void ClosedSum::Read() {
  std::int64_t lower = 0;
  std::int64_t upper = 0;
  widest_ = 0;
  for (unsigned i = 0; i < coefficients_.size(); ++i) {
    const KivOmbiDomainSummary& summary = environment_.Summary(i);
    if (summary.lower == SubIntBase::kMin || summary.upper == SubIntBase::kMax) {
      is_closed_ = false;
      return;
    }
    const std::int64_t at_lower = coefficients_[i] * summary.lower;
    const std::int64_t at_upper = coefficients_[i] * summary.upper;
    const std::int64_t least = std::min(at_lower, at_upper);
    const std::int64_t greatest = std::max(at_lower, at_upper);
    lower += least;
    upper += greatest;
    widest_ = std::max(widest_, greatest - least);
  }
  room_above_ = high_ - lower;
  room_below_ = upper - low_;
}

bool ClosedSum::NarrowEach(bool& changed) {
  widest_ = 0;
  for (unsigned i = 0; i < coefficients_.size(); ++i) {
    if (!NarrowOne(i, changed)) return false;
  }
  return true;
}

bool ClosedSum::NarrowOne(unsigned i, bool& changed) {
  const KivOmbiDomainSummary& summary = environment_.Summary(i);
  const std::int64_t lower = summary.lower;
  const std::int64_t upper = summary.upper;
  const bool is_rising = coefficients_[i] > 0;
  const std::int64_t size = is_rising ? coefficients_[i] : -coefficients_[i];
  // How far the argument may go up from its lower bound, and down from its upper one.
  std::int64_t& upwards = is_rising ? room_above_ : room_below_;
  std::int64_t& downwards = is_rising ? room_below_ : room_above_;
  const std::int64_t spread = size * (upper - lower);
  if (spread > upwards || spread > downwards) {
    const std::int64_t most = spread > upwards ? lower + upwards / size : upper;
    const std::int64_t least = spread > downwards ? upper - downwards / size : lower;
    if (TightenLower(environment_, i, least) != 0) return false;
    if (TightenUpper(environment_, i, most) != 0) return false;
    changed |= summary.lower != lower || summary.upper != upper;
    upwards -= size * (summary.lower - lower);
    downwards -= size * (upper - summary.upper);
    if (IsMissed()) return false;
  }
  widest_ = std::max(widest_, size * (std::int64_t{summary.upper} - summary.lower));
  return true;
}

}  // namespace kiv
