// What linear constraints do in 64 bits is what they do in 128.

#include <gtest/gtest.h>

#include "solver/constraints/linear_equation.h"
#include "solver/constraints/linear_inequality.h"
#include "tests/support/random_variables.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Coefficients = std::vector<std::int64_t>;
using VariableId = KivOmbNetwork::VariableId;

// Makes a sum too wide for 64 bits and says the same.
constexpr std::int64_t kFactor = std::int64_t{1} << 50;

Coefficients Widened(Coefficients coefficients) {
  for (std::int64_t& coefficient : coefficients) coefficient *= kFactor;
  return coefficients;
}

// One constraint over one set of variables, in two networks.
class Twins {
 public:
  Twins(const std::vector<Declared>& variables, const Coefficients& coefficients,
        std::int64_t constant, bool is_equation) {
    std::vector<VariableId> arguments;
    for (const Declared& variable : variables) {
      arguments.push_back(Declare(narrow_, variable));
      Declare(wide_, variable);
    }
    const Int128 wide_constant = static_cast<Int128>(constant) * kFactor;
    if (is_equation) {
      narrow_.Emplace<LinearEquation>(arguments, coefficients, constant);
      wide_.Emplace<LinearEquation>(arguments, Widened(coefficients), wide_constant);
    } else {
      narrow_.Emplace<LinearInequality>(arguments, coefficients, constant);
      wide_.Emplace<LinearInequality>(arguments, Widened(coefficients), wide_constant);
    }
  }

  // Whether the domains are equal and the search can go on.
  bool Propagate() {
    const auto outcome = narrow_.Propagate();
    EXPECT_EQ(outcome, wide_.Propagate());
    if (outcome != KivOmbNetwork::Outcome::kFixpoint) return false;
    EXPECT_EQ(Text(narrow_), Text(wide_));
    return !testing::Test::HasFailure();
  }
  // Takes a half of the values of a variable, on a level of its own.
  void Descend(Generator& random) {
    const auto variable =
        static_cast<VariableId>(Pick(random, 0, static_cast<int>(narrow_.CountVariables()) - 1));
    const KivOmbiDomainSummary& summary = narrow_.GetSummary(variable);
    if (summary.IsFixed() || summary.cardinality > 1000) return;
    Values kept = ValuesOf(narrow_, variable);
    const auto middle = kept.begin() + static_cast<std::ptrdiff_t>(kept.size() / 2);
    OneIn(random, 2) ? kept.erase(middle, kept.end()) : kept.erase(kept.begin(), middle);
    for (KivOmbNetwork* network : {&narrow_, &wide_}) {
      network->PushLevel();
      Restrict(*network, variable, kept);
    }
  }
  void Ascend(std::size_t level) {
    for (KivOmbNetwork* network : {&narrow_, &wide_}) {
      while (network->GetLevel() > level) network->PopLevel();
    }
  }
  std::size_t GetLevel() const { return narrow_.GetLevel(); }

 private:
  KivOmbNetwork narrow_;
  KivOmbNetwork wide_;
};

Twins RandomTwins(Generator& random) {
  const Coefficients choice = {1, -1, 1, -1, 2, -3, 7, -12};
  std::vector<Declared> variables;
  Coefficients coefficients;
  std::int64_t constant = Pick(random, -2, 2);
  for (int count = Pick(random, 1, 9); count > 0; --count) {
    const auto* kind = PickOf(random, IntegerKinds());
    const bool is_unknown = OneIn(random, 20);
    const Values values = RandomValues(random, *kind, Range(-8, 8), 9);
    variables.push_back({kind, values, is_unknown});
    coefficients.push_back(PickOf(random, choice));
    constant += coefficients.back() * PickOf(random, values);
  }
  return {variables, coefficients, constant, OneIn(random, 2)};
}

TEST(LinearSum, InAWordDoesWhatAWideOneDoes) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(3000); ++seed) {
    SCOPED_TRACE(Replay(seed));
    Generator random(seed);
    Twins twins = RandomTwins(random);
    for (int step = 0; step < 20; ++step) {
      if (!twins.Propagate()) {
        if (HasFailure()) return;
        if (twins.GetLevel() == 0) break;
        twins.Ascend(
            static_cast<std::size_t>(Pick(random, 0, static_cast<int>(twins.GetLevel()) - 1)));
      }
      twins.Descend(random);
    }
  }
}

}  // namespace
}  // namespace kiv::test
