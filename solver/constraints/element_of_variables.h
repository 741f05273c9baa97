#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/value_bits.h"

namespace kiv {

// z = a[x] over the integers (x, z, a[first], a[first + 1], ...); an x outside the array does not
// satisfy it. An index stays while its element may equal z, a value of z while some element at an
// index left may have it, and once the index is known its element and z are equal. Domain
// consistent where the kinds can have holes and hold few values and no variable is repeated,
// otherwise as far as the bounds tell.
class KIV_EXPORT ElementOfVariables final : public KivOmbiConstraint {
 public:
  // The last index must be a value of a variable too.
  explicit ElementOfVariables(std::int32_t first = 0);

  void Activate(KivOmbiNetwork* network) override;
  void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) override;
  // Linear in the indices left, and at worst in their number times that of the values of z.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  void Prepare(const KivOmbiObjectEnvironment& environment);
  static bool FitsBits(const KivOmbiObjectEnvironment& environment);
  void CloseIndices(const KivOmbiObjectEnvironment& environment);
  KivOmbiFilterResult EquateChosen(const KivOmbiObjectEnvironment& environment);
  KivOmbiFilterResult NarrowByBits(const KivOmbiObjectEnvironment& environment);
  template <class IsCommon>
  KivOmbiFilterResult KeepIndices(const KivOmbiObjectEnvironment& environment, bool only_changed,
                                  IsCommon&& is_common);
  KivOmbiFilterResult NarrowBoth(const KivOmbiObjectEnvironment& environment, bool only_changed);
  bool IsAllFound() const;
  KivOmbiFilterResult RemoveUnfound(const KivOmbiObjectEnvironment& environment, std::int64_t base);

  // Where the values of z do not fit a window of bits.
  KivOmbiFilterResult NarrowByBounds(const KivOmbiObjectEnvironment& environment);
  unsigned ElementAt(std::int64_t index) const;
  // Calls `use(element)` for the arguments at the indices left until it returns true; whether it
  // did.
  template <class Use>
  bool FindElement(const KivOmbiObjectEnvironment& environment, Use&& use) const;
  KivOmbiFilterResult NarrowValue(const KivOmbiObjectEnvironment& environment) const;
  KivOmbiFilterResult TakeUnion(const KivOmbiObjectEnvironment& environment) const;

  std::int64_t first_;
  bool repeats_ = false;  // x or z stands in two places
  // By position: the indices that the last run left, which go back with the levels.
  BitWords open_;
  // Whether a run by bits looked at all elements; goes back with the levels. And those that may
  // have changed since the last such run, all after a change of z.
  std::uint64_t looked_at_all_ = 0;
  BitWords changed_;

  // Of a run: indices, and values in the window of those of z.
  BitWords indices_;  // that are left
  BitWords wanted_;   // of z
  BitWords element_;  // of one element
  BitWords found_;    // of all elements
  std::vector<std::int32_t> lost_;
};

}  // namespace kiv
