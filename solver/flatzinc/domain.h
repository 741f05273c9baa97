#pragma once

#include <cstdint>
#include <vector>

#include "framework/base/export.h"
#include "framework/networks/network.h"
#include "solver/flatzinc/model.h"

namespace kiv::flatzinc {

// The values that a text allows a variable, before a kind of domain holds them. May be empty.
class KIV_EXPORT Domain {
 public:
  // All integers.
  Domain() = default;
  static Domain FromRange(std::int64_t lower, std::int64_t upper);
  static Domain FromSet(const IntegerSet& set, const Model& model);

  void Intersect(const Domain& other);

  bool IsEmpty() const noexcept { return lower_ > upper_; }
  bool IsBounded() const noexcept { return lower_ != -kUnbounded || upper_ != kUnbounded; }
  // The bounds; infinities are beyond all integers of a text.
  std::int64_t GetLower() const noexcept { return lower_; }
  std::int64_t GetUpper() const noexcept { return upper_; }
  // Whether all integers between the bounds are allowed.
  bool IsRange() const noexcept { return values_.empty(); }
  // Those of a domain that is no range, ascending, each once.
  const std::vector<std::int64_t>& GetValues() const noexcept { return values_; }
  std::uint64_t Count() const noexcept;
  bool Contains(std::int64_t value) const noexcept;

 private:
  static constexpr std::int64_t kUnbounded = std::int64_t{1} << 60;

  static Domain FromValues(std::vector<std::int64_t> values);

  std::int64_t lower_ = -kUnbounded;
  std::int64_t upper_ = kUnbounded;
  std::vector<std::int64_t> values_;
};

}  // namespace kiv::flatzinc
