#pragma once

#include <cstdint>

// The arithmetic of integers whose ends kMin and kMax stand for the infinities, written for
// plainness.
namespace kiv::reference {

// Set when an operation had no meaning; stays set until it is cleared by hand.
extern bool arithmetic_error;

std::int32_t Plus(std::int32_t a, std::int32_t b);
std::int32_t Times(std::int32_t a, std::int32_t b);
// Truncated toward zero.
std::int32_t Quotient(std::int32_t a, std::int32_t b);
// With the sign of a.
std::int32_t Remainder(std::int32_t a, std::int32_t b);

// base ^ exponent by repeated multiplication.
struct Power {
  enum State { kNone, kValue, kUnknown };
  State state;
  std::int32_t value;
};
Power PowerOf(std::int32_t base, std::int32_t exponent);

}  // namespace kiv::reference
