#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "tests/support/constraint_case.h"
#include "tests/support/modules.h"
#include "tests/support/random_variables.h"
#include "tests/support/seed.h"

namespace kiv::test {

// The variables and arguments of a random case, argument by argument.
class RandomCase {
 public:
  explicit RandomCase(Generator& random) : random_(random) {}

  // A new variable as the next argument.
  void Add(Declared declared);
  // A new integer with at most `most` values of the pool, or, once in `repeat_one_in` (0: never),
  // an integer that was added before.
  void AddInteger(const Values& pool, std::size_t most, int repeat_one_in = 12);
  // Likewise, but more often of a kind that can have holes, and now and then unknown at the start.
  void AddTerm(const Values& pool, std::size_t most, int repeat_one_in);
  // One that starts unknown; enumeration tries the pool.
  void AddUnknown(const Values& pool);
  void AddBoolean(int repeat_one_in = 12);
  // A boolean, or an integer of any kind that has no other values than 0 and 1.
  void AddTruth();

  std::size_t CountArguments() const { return case_.arguments.size(); }
  // Whether some variable is named twice.
  bool Repeats() const { return case_.arguments.size() > case_.variables.size(); }
  // Whether all variables are known and of kinds that can lose inner values.
  bool AreSets() const;

  ConstraintCase Finish(
      std::string name, Strength strength,
      std::function<void(KivOmbNetwork&, std::span<const KivOmbNetwork::VariableId>)> post,
      std::function<bool(const Assignment&)> holds);

 private:
  bool AddRepeated(bool boolean, int one_in);

  Generator& random_;
  ConstraintCase case_;
};

// Checks what `make(random)` makes from each of `times` seeds, until one fails.
template <class Make>
void CheckRandomCases(std::uint64_t times, Make&& make) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(times); ++seed) {
    Generator random(seed);
    CheckConstraint(make(random), seed);
    if (testing::Test::HasFailure()) return;
  }
}

inline const KivOmbiObjectDescriptor* Kind(const char* name) {
  return OpenModulesAndForeign().FindKind(name);
}

}  // namespace kiv::test
