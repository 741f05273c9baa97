#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "framework/base/export.h"
#include "framework/networks/network.h"

namespace kiv {

// coefficient * variable
struct LinearTerm {
  std::int64_t coefficient;
  KivOmbNetwork::VariableId variable;

  friend bool operator==(const LinearTerm&, const LinearTerm&) = default;
};

// A constant and terms, collected piece by piece as a sum is written: a variable may stand in
// several terms, a coefficient may be 0. An operation whose result has a number beyond 64 bits
// changes nothing and returns false.
class KIV_EXPORT LinearExpression {
 public:
  LinearExpression() = default;
  explicit LinearExpression(std::int64_t constant) : constant_(constant) {}
  explicit LinearExpression(const LinearTerm& term) : terms_{term} {}

  std::span<const LinearTerm> GetTerms() const noexcept { return terms_; }
  std::int64_t GetConstant() const noexcept { return constant_; }
  bool IsConstant() const noexcept { return terms_.empty(); }

  // Linear in the size of `other`, which may be this expression; many in turn, too.
  [[nodiscard]] bool Add(const LinearExpression& other);
  [[nodiscard]] bool Subtract(const LinearExpression& other);
  // Linear in the size of this expression.
  [[nodiscard]] bool Scale(std::int64_t factor);

 private:
  std::vector<LinearTerm> terms_;
  std::int64_t constant_ = 0;
};

}  // namespace kiv
