#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "framework/abstract_types/integer.h"
#include "framework/base/export.h"
#include "framework/calculator/descriptor.h"
#include "framework/calculator/domain_summary.h"

namespace kiv {

// The integers that a model can speak of: those between the two infinities.
inline constexpr std::int64_t kLeastInteger = -2147483646;
inline constexpr std::int64_t kGreatestInteger = 2147483646;
inline bool IsModelInteger(std::int64_t value) {
  return kLeastInteger <= value && value <= kGreatestInteger;
}
// "-2147483646..2147483646".
inline std::string DescribeModelIntegers() {
  return std::to_string(kLeastInteger) + ".." + std::to_string(kGreatestInteger);
}

// The values that a model allows an integer variable, before any kind holds them. Never empty.
class KIV_EXPORT DeclaredDomain {
 public:
  // How well a kind holds the declared values.
  enum class Fit {
    kExact,
    kWidened,  // it holds others between them as well: a membership constraint must exclude those
    kLost,     // it does not hold them
  };

  // All integers from `lower` up to `upper`, not below it.
  static DeclaredDomain FromInterval(std::int32_t lower, std::int32_t upper);
  // Any order, with duplicates or without; at least one.
  static DeclaredDomain FromValues(std::vector<std::int32_t> values);

  std::uint64_t Count() const noexcept;
  // Ascending, without duplicates; only for a domain made from values.
  const std::vector<std::int32_t>& GetValues() const noexcept { return values_; }

  // Builds the domain in `target` from Nil by insertion.
  void BuildIn(KivOmbiInteger& target) const;
  // Judges by its summary what was built.
  Fit Judge(const KivOmbiDomainSummary& built) const;
  // What Judge would say of a variable of this kind of integer. Builds it in a network of its own.
  Fit JudgeKind(const KivOmbiObjectDescriptor& kind) const;

  // "[1, 9]" or "{ 1, 3 }", the latter cut short when there are many.
  std::string Describe() const;

 private:
  DeclaredDomain() = default;

  std::int32_t lower_ = 0;
  std::int32_t upper_ = 0;
  std::vector<std::int32_t> values_;  // none for an interval
};

}  // namespace kiv
