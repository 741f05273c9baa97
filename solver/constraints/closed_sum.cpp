#include "solver/constraints/closed_sum.h"

#include <algorithm>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"

namespace kiv {

void ClosedSum::Read() {
  std::int64_t lower = 0;
  std::int64_t upper = 0;
  std::int64_t widest = 0;
  bool is_closed = true;
  const auto add = [&](const OpenTerms::Term& term, const KivOmbiDomainSummary& summary) {
    is_closed &= summary.lower != SubIntBase::kMin && summary.upper != SubIntBase::kMax;
    const std::int64_t at_lower = term.coefficient * summary.lower;
    const std::int64_t at_upper = term.coefficient * summary.upper;
    const std::int64_t least = std::min(at_lower, at_upper);
    const std::int64_t greatest = std::max(at_lower, at_upper);
    lower += least;
    upper += greatest;
    widest = std::max(widest, greatest - least);
  };
  const std::int64_t fixed = terms_.ForEach(environment_, add);
  is_closed_ = is_closed;
  widest_ = widest;
  room_above_ = high_ - fixed - lower;
  room_below_ = fixed + upper - low_;
}

bool ClosedSum::NarrowEach(bool& changed) {
  widest_ = 0;
  for (const OpenTerms::Term& term : terms_.Get()) {
    if (!NarrowOne(term, changed)) return false;
  }
  return true;
}

bool ClosedSum::NarrowOne(const OpenTerms::Term& term, bool& changed) {
  const KivOmbiDomainSummary& summary = environment_.Summary(term.argument);
  const std::int64_t lower = summary.lower;
  const std::int64_t upper = summary.upper;
  const bool is_rising = term.coefficient > 0;
  const std::int64_t size = is_rising ? term.coefficient : -term.coefficient;
  // How far the argument may go up from its lower bound, and down from its upper one.
  std::int64_t& upwards = is_rising ? room_above_ : room_below_;
  std::int64_t& downwards = is_rising ? room_below_ : room_above_;
  const std::int64_t spread = size * (upper - lower);
  const bool is_too_high = spread > upwards;
  const bool is_too_low = spread > downwards;
  if (is_too_high || is_too_low) {
    if (is_too_low) {
      const std::int64_t least = upper - downwards / size;
      if (TightenLower(environment_, term.argument, least) != 0) return false;
    }
    if (is_too_high) {
      const std::int64_t most = lower + upwards / size;
      if (TightenUpper(environment_, term.argument, most) != 0) return false;
    }
    changed |= summary.lower != lower || summary.upper != upper;
    upwards -= size * (summary.lower - lower);
    downwards -= size * (upper - summary.upper);
    if (IsMissed()) return false;
  }
  widest_ = std::max(widest_, size * (std::int64_t{summary.upper} - summary.lower));
  return true;
}

}  // namespace kiv
