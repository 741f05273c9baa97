#include "solver/flatzinc/domain.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kiv::flatzinc {

Domain Domain::FromRange(std::int64_t lower, std::int64_t upper) {
  Domain domain;
  domain.lower_ = lower;
  domain.upper_ = upper;
  return domain;
}

Domain Domain::FromSet(const IntegerSet& set, const Model& model) {
  if (set.values.size == 0) return FromRange(set.lower, set.upper);
  const auto values = model.GetValues(set);
  return FromValues({values.begin(), values.end()});
}

Domain Domain::FromValues(std::vector<std::int64_t> values) {
  if (values.empty()) return FromRange(1, 0);
  Domain domain = FromRange(values.front(), values.back());
  const bool has_holes = domain.Count() > values.size();
  if (has_holes) domain.values_ = std::move(values);
  return domain;
}

void Domain::Intersect(const Domain& other) {
  const std::int64_t lower = std::max(lower_, other.lower_);
  const std::int64_t upper = std::min(upper_, other.upper_);
  if (IsRange() && other.IsRange()) {
    lower_ = lower;
    upper_ = upper;
    return;
  }
  std::vector<std::int64_t> common;
  const auto take_between = [&](const std::vector<std::int64_t>& values) {
    std::ranges::copy_if(values, std::back_inserter(common),
                         [&](std::int64_t value) { return lower <= value && value <= upper; });
  };
  if (IsRange()) {
    take_between(other.values_);
  } else if (other.IsRange()) {
    take_between(values_);
  } else {
    std::ranges::set_intersection(values_, other.values_, std::back_inserter(common));
  }
  *this = FromValues(std::move(common));
}

std::uint64_t Domain::Count() const noexcept {
  if (IsEmpty()) return 0;
  if (!values_.empty()) return values_.size();
  return static_cast<std::uint64_t>(upper_ - lower_) + 1;
}

bool Domain::Contains(std::int64_t value) const noexcept {
  if (value < lower_ || upper_ < value) return false;
  return values_.empty() || std::ranges::binary_search(values_, value);
}

}  // namespace kiv::flatzinc
