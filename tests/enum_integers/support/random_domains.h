#pragma once

#include <cstdint>
#include <ostream>
#include <random>

#include "enum_integers/domain/enum_integer.h"
#include "tests/reference/enum_set.h"

// Random domains for differential tests: each is made as a plain reference value, which is turned
// into the module's object and read back from it.
namespace kiv::test {

// The source of randomness of a test. Its seed is that of the environment variable KIV_SEED, else a
// new one, and is printed when it is made, so that a failure can be repeated.
class Random {
 public:
  Random();

  // One of `low` .. `high`.
  std::int32_t Between(std::int64_t low, std::int64_t high);
  bool OneIn(int n) { return Between(1, n) == 1; }

 private:
  std::mt19937_64 engine_;
};

// Any, Nil, and sets of either leftover flag: small, dense, sparse, with infinities, about as large
// as the cap.
reference::EnumSet RandomSet(Random& random);
// One of few small values, so that it meets others.
reference::EnumSet RandomSmallSet(Random& random);
reference::Single RandomSingle(Random& random);
reference::Interval RandomInterval(Random& random);

KivOmbEnumInteger Made(const reference::EnumSet& set);
KivOmbSingleInteger Made(const reference::Single& single);
KivOmbIntervalInteger Made(const reference::Interval& interval);

reference::EnumSet Read(const KivOmbEnumInteger& domain);
reference::Single Read(const KivOmbSingleInteger& single);
reference::Interval Read(const KivOmbIntervalInteger& interval);

}  // namespace kiv::test

namespace kiv::reference {

void PrintTo(const EnumSet& set, std::ostream* out);
void PrintTo(const Single& single, std::ostream* out);
void PrintTo(const Interval& interval, std::ostream* out);

}  // namespace kiv::reference
