#include "solver/constraints/linear_expression.h"

#include <algorithm>
#include <limits>

namespace kiv {

namespace {

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

}  // namespace

bool LinearExpression::Add(const LinearExpression& other) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(constant_, other.constant_, &sum)) return false;
  constant_ = sum;
  // `other` may be this expression, whose terms move while they are appended to.
  const std::size_t count = other.terms_.size();
  for (std::size_t i = 0; i < count; ++i) terms_.push_back(other.terms_[i]);
  return true;
}

bool LinearExpression::Subtract(const LinearExpression& other) {
  std::int64_t difference = 0;
  if (__builtin_sub_overflow(constant_, other.constant_, &difference)) return false;
  // The least number of all has no opposite.
  if (std::ranges::find(other.terms_, kLeast, &LinearTerm::coefficient) != other.terms_.end()) {
    return false;
  }
  constant_ = difference;
  const std::size_t count = other.terms_.size();
  for (std::size_t i = 0; i < count; ++i) {
    terms_.push_back({-other.terms_[i].coefficient, other.terms_[i].variable});
  }
  return true;
}

bool LinearExpression::Scale(std::int64_t factor) {
  std::int64_t product = 0;
  if (__builtin_mul_overflow(constant_, factor, &product)) return false;
  const bool fits = std::ranges::all_of(terms_, [&](const LinearTerm& term) {
    std::int64_t unused = 0;
    return !__builtin_mul_overflow(term.coefficient, factor, &unused);
  });
  if (!fits) return false;
  constant_ = product;
  for (LinearTerm& term : terms_) term.coefficient *= factor;
  return true;
}

}  // namespace kiv
