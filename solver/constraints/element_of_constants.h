#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"

namespace kiv {

// z = a[x] over two integers (x, z), where a is an array of constants with the indices first,
// first + 1, ...; an x outside the array does not satisfy it. An index stays while its element is
// possible for z, a value of z while some index left has it: domain consistent where both kinds can
// have holes and hold few values, otherwise as far as the bounds tell.
class KIV_EXPORT ElementOfConstants final : public KivOmbiConstraint {
 public:
  // Throws std::invalid_argument when an element or an index is no value of a variable.
  explicit ElementOfConstants(std::vector<std::int32_t> elements, std::int32_t first = 0);

  // Linear in the indices left and the values of z, but for the search among the elements.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  bool IsSupported(const KivOmbiObjectEnvironment& environment, std::int64_t index) const;
  KivOmbiFilterResult NarrowValue(const KivOmbiObjectEnvironment& environment);
  std::int64_t Last() const { return first_ + static_cast<std::int64_t>(elements_.size()) - 1; }

  std::vector<std::int32_t> elements_;
  std::int64_t first_;
  std::vector<std::int32_t> values_;     // of the elements, ascending, each once
  std::vector<std::uint32_t> value_of_;  // by index: the position of the element in values_
  std::vector<bool> taken_;              // by position in values_: some index left has it
};

}  // namespace kiv
