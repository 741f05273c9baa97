#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

#include "tests/framework/numbers/domain.h"
#include "tests/support/seed.h"

// Random small domains of all three kinds of integers, and the frame of tests that narrow them.
namespace kiv::test {

using Values = std::vector<std::int32_t>;

// Single, interval and enumerated integer. Samples name one of these very strings.
extern const char* const kKinds[3];

// A domain to be, as kind and values; no values at all in `values` is Nil, none known is Any.
struct Sample {
  const char* kind;
  std::optional<Values> values;

  DomainPointer Make() const { return values ? MakeInteger(kind, *values) : MakeAny(kind); }
  std::string Print() const { return std::string(kind) + " " + Text(*Make()); }
};

// One to five values between -6 and 6, ascending, or Nil or Any, of one of the kinds.
Sample RandomSample(std::mt19937_64& random, std::initializer_list<const char*> kinds);

// The values of a domain between -end and end.
Values ValuesOf(const KivOmbiInteger& domain, int end);

inline bool IsAny(const DomainPointer& domain) { return domain->IsUndefined() != 0; }

// Runs `narrow(target)` on `sample` and compares; a second run must change nothing, unless it is
// said to be able to.
template <class Narrow>
void Check(const char* name, const Sample& sample, const std::string& expected, Narrow&& narrow,
           bool narrows_once = true) {
  SCOPED_TRACE(name);
  const DomainPointer target = sample.Make();
  const std::string before = Text(*target);
  const std::string wanted = before == "Nil" ? "Nil" : expected;
  EXPECT_EQ(narrow(AsInteger(target)), before != wanted);
  EXPECT_EQ(Text(*target), wanted);
  if (!narrows_once) return;
  EXPECT_EQ(narrow(AsInteger(target)), 0) << "a second time";
  EXPECT_EQ(Text(*target), wanted);
}

template <class Test>
void ForRandomSeeds(std::uint64_t count, Test&& test) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + count; ++seed) {
    SCOPED_TRACE(Replay(seed));
    std::mt19937_64 random(seed);
    test(random);
    if (testing::Test::HasFailure()) return;
  }
}

}  // namespace kiv::test
