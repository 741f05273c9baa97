#include "solver/search/restart_policy.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace kiv {

namespace {

constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();

std::uint64_t Times(std::uint64_t a, std::uint64_t b) { return a > kMost / b ? kMost : a * b; }

// Number `i` of Luby's sequence, from 1: at 2^k - 1 it is 2^(k - 1), and behind that number all
// before are repeated.
std::uint64_t Luby(std::uint64_t i) {
  while (!std::has_single_bit(i + 1)) i -= std::bit_floor(i) - 1;
  return (i + 1) / 2;
}

}  // namespace

std::optional<std::uint64_t> RestartSequence::Next() {
  const std::uint64_t scale = std::max<std::uint64_t>(policy_.scale, 1);
  ++step_;
  switch (policy_.kind) {
    case RestartPolicy::Kind::kNone:
      return std::nullopt;
    case RestartPolicy::Kind::kConstant:
      return scale;
    case RestartPolicy::Kind::kLinear:
      return Times(scale, step_);
    case RestartPolicy::Kind::kLuby:
      return Times(scale, Luby(step_));
    case RestartPolicy::Kind::kGeometric:
      break;
  }
  const double failures = static_cast<double>(scale) * growth_;
  growth_ *= std::max(policy_.factor, 1.0);
  // The largest double below 2^64 is less than kMost.
  return failures < 0x1p64 ? static_cast<std::uint64_t>(failures) : kMost;
}

}  // namespace kiv
