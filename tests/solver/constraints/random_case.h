#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

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
  void Add(Declared declared) {
    case_.arguments.push_back(static_cast<KivOmbNetwork::VariableId>(case_.variables.size()));
    case_.variables.push_back(std::move(declared));
  }
  // A new integer with at most `most` values of the pool, or, once in `repeat_one_in`, an integer
  // that was added before.
  void AddInteger(const Values& pool, std::size_t most, int repeat_one_in = 12) {
    if (AddRepeated(false, repeat_one_in)) return;
    const auto* kind = PickOf(random_, IntegerKinds());
    Add({kind, RandomValues(random_, *kind, pool, most)});
  }
  // One that starts unknown; enumeration tries the pool.
  void AddUnknown(const Values& pool) { Add({PickOf(random_, IntegerKinds()), pool, true}); }
  void AddBoolean(int repeat_one_in = 12) {
    if (AddRepeated(true, repeat_one_in)) return;
    const auto* kind = OpenModules().FindKind("bool");
    Add({kind, RandomValues(random_, *kind, Flavour::kSmall)});
  }

  ConstraintCase Finish(
      std::string name, Strength strength,
      std::function<void(KivOmbNetwork&, std::span<const KivOmbNetwork::VariableId>)> post,
      std::function<bool(const Assignment&)> holds) {
    case_.name = std::move(name);
    case_.strength = strength;
    case_.post = std::move(post);
    case_.holds = std::move(holds);
    return std::move(case_);
  }

 private:
  bool AddRepeated(bool boolean, int one_in) {
    if (!OneIn(random_, one_in)) return false;
    std::vector<KivOmbNetwork::VariableId> earlier;
    for (KivOmbNetwork::VariableId id = 0; id < case_.variables.size(); ++id) {
      const bool is_boolean = case_.variables[id].kind->GetName() == "bool";
      if (is_boolean == boolean) earlier.push_back(id);
    }
    if (earlier.empty()) return false;
    case_.arguments.push_back(PickOf(random_, earlier));
    return true;
  }

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
  return OpenModules().FindKind(name);
}

}  // namespace kiv::test
