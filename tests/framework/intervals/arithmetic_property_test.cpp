// The arithmetic of SubIntBase against 128-bit arithmetic in which an infinity is a number so large
// that every result that leaves the range clamps to the right end. Set KIV_SEED to repeat a run.

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "framework/intervals/sub_int_base.h"
#include "tests/support/seed.h"

namespace {

using Wide = __int128;

constexpr std::int32_t kMin = SubIntBase::kMin;
constexpr std::int32_t kMax = SubIntBase::kMax;
// Divided by a finite number it is still beyond the range, squared it still fits.
constexpr Wide kInfinity = Wide{1} << 62;

struct Outcome {
  Wide value;
  bool error = false;
};

Wide Widen(std::int32_t value) {
  return value == kMax ? kInfinity : value == kMin ? -kInfinity : Wide{value};
}

bool IsInfinite(Wide value) { return value == kInfinity || value == -kInfinity; }

Outcome Plus(Wide a, Wide b) { return {a + b, IsInfinite(a) && a == -b}; }

Outcome Minus(Wide a, Wide b) { return Plus(a, -b); }

Outcome Mult(Wide a, Wide b) { return {a * b}; }

Outcome Div(Wide a, Wide b) {
  if (b == 0) return {a * kInfinity, true};
  if (IsInfinite(a) && IsInfinite(b)) return {0, true};
  return {a / b};
}

std::int32_t Clamped(Wide value) {
  return static_cast<std::int32_t>(value < kMin ? Wide{kMin} : value > kMax ? Wide{kMax} : value);
}

struct Operation {
  const char* name;
  SubIntBase (*tested)(SubIntBase, SubIntBase);
  Outcome (*exact)(Wide, Wide);
};

constexpr std::array<Operation, 4> kOperations = {{{"base_plus", base_plus, Plus},
                                                   {"base_minus", base_minus, Minus},
                                                   {"base_mult", base_mult, Mult},
                                                   {"base_div", base_div, Div}}};

void ExpectExact(std::int32_t a, std::int32_t b) {
  for (const Operation& operation : kOperations) {
    SDClearError();
    const std::int32_t result = operation.tested(a, b).GetValue();
    const bool error = SDCheckError() != 0;
    const Outcome exact = operation.exact(Widen(a), Widen(b));
    ASSERT_EQ(result, Clamped(exact.value)) << operation.name << "(" << a << ", " << b << ")";
    ASSERT_EQ(error, exact.error) << operation.name << "(" << a << ", " << b << ")";
  }
  SDClearError();
}

// An operand of any size, so that exact and clamped results of every operation are common.
std::int32_t RandomOperand(std::mt19937_64& random) {
  const int bits = static_cast<int>(random() % 32);
  const auto magnitude = static_cast<std::int32_t>(random() & ((std::uint64_t{1} << bits) - 1));
  return random() % 2 == 0 ? magnitude : -magnitude;
}

TEST(ArithmeticProperty, AgreesWithWideArithmeticOnExtremeOperands) {
  std::vector<std::int32_t> operands;
  for (const std::int32_t centre : {0, 46340, 65536, 1 << 30, (kMax - 1) / 2}) {
    for (std::int32_t offset = -3; offset <= 3; ++offset) {
      operands.push_back(centre + offset);
      operands.push_back(-centre + offset);
    }
  }
  for (std::int32_t offset = 0; offset <= 4; ++offset) {
    operands.push_back(kMax - offset);
    operands.push_back(kMin + offset);
  }
  for (const std::int32_t a : operands) {
    for (const std::int32_t b : operands) ASSERT_NO_FATAL_FAILURE(ExpectExact(a, b));
  }
}

TEST(ArithmeticProperty, AgreesWithWideArithmeticOnRandomOperands) {
  const std::uint64_t seed = kiv::test::Seed(std::random_device()());
  SCOPED_TRACE(kiv::test::Replay(seed));
  std::mt19937_64 random(seed);
  for (int i = 0; i < 200000; ++i) {
    const std::int32_t a = RandomOperand(random);
    const std::int32_t b = RandomOperand(random);
    ASSERT_NO_FATAL_FAILURE(ExpectExact(a, b));
  }
}

}  // namespace
