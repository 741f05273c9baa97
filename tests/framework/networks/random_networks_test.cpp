// Whole networks against brute force: random variables of every kind under several random
// constraints of every row, constants and repeated variables included.

#include <gtest/gtest.h>

#include <random>

#include "tests/support/enumeration.h"
#include "tests/support/modules.h"
#include "tests/support/operator_meaning.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Random = std::mt19937_64;

int Pick(Random& random, int lower, int upper) {
  return std::uniform_int_distribution<int>(lower, upper)(random);
}

Declared RandomVariable(Random& random) {
  const auto& kinds = OpenModulesAndForeign().kinds;
  const auto* kind =
      kinds[static_cast<std::size_t>(Pick(random, 0, static_cast<int>(kinds.size()) - 1))];
  if (kind->GetName() == "bool") return {kind, {0, 1}};
  if (kind->GetName() == "int") return {kind, {Pick(random, -3, 5)}};
  Values values;
  const int count = Pick(random, 1, 5);
  for (int value = Pick(random, -4, 3); static_cast<int>(values.size()) < count; ++value) {
    if (kind->GetName() != "enum int" || Pick(random, 0, 2) != 0) values.push_back(value);
  }
  return {kind, values};
}

struct Posted {
  const KivOmbiCompoundObjectDescriptor* row;
  std::size_t left, right, result;
};

// A row and variables whose kinds it resolves to; the result must have the row's own result kind.
bool RandomConstraint(Random& random, const std::vector<Declared>& variables, Posted& posted) {
  const auto pick = [&] {
    return static_cast<std::size_t>(Pick(random, 0, static_cast<int>(variables.size()) - 1));
  };
  const auto& rows = OpenModulesAndForeign().operators.GetRows();
  for (int attempt = 0; attempt < 200; ++attempt) {
    const auto* any_row =
        rows[static_cast<std::size_t>(Pick(random, 0, static_cast<int>(rows.size()) - 1))];
    posted = {nullptr, pick(), pick(), pick()};
    std::vector<const KivOmbiObjectDescriptor*> operands{variables[posted.left].kind};
    if (any_row->GetOperandCount() == 2) operands.push_back(variables[posted.right].kind);
    posted.row = OpenModulesAndForeign().operators.Resolve(any_row->GetSymbol(), operands);
    if (posted.row != nullptr && posted.row->GetResult() == variables[posted.result].kind) {
      return true;
    }
  }
  return false;
}

TEST(RandomNetworks, SearchFindsTheSolutionsOfEnumeration) {
  const std::uint64_t first = Seed(100);
  const std::uint64_t networks = std::getenv("KIV_SEED") != nullptr ? 1 : 10000;
  std::size_t with_solutions = 0;
  for (std::uint64_t seed = first; seed < first + networks; ++seed) {
    SCOPED_TRACE(Replay(seed));
    Random random(seed);
    std::vector<Declared> variables;
    std::vector<Values> domains;
    for (int count = Pick(random, 3, 5); count > 0; --count) {
      variables.push_back(RandomVariable(random));
      domains.push_back(variables.back().values);
    }
    std::vector<Posted> constraints;
    for (int count = Pick(random, 1, 5); count > 0; --count) {
      Posted posted;
      if (RandomConstraint(random, variables, posted)) constraints.push_back(posted);
    }
    SCOPED_TRACE(Print(variables));

    KivOmbNetwork network;
    for (const Declared& variable : variables) Declare(network, variable);
    for (const Posted& posted : constraints) {
      network.Post(*posted.row, static_cast<KivOmbNetwork::VariableId>(posted.left),
                   static_cast<KivOmbNetwork::VariableId>(posted.right),
                   static_cast<KivOmbNetwork::VariableId>(posted.result));
    }
    const auto expected = EnumerateSolutions(domains, [&](const Assignment& values) {
      for (const Posted& posted : constraints) {
        const auto* meaning = FindMeaning(posted.row->GetSymbol(), posted.row->GetOperandCount());
        if (!meaning->holds(values[posted.left], values[posted.right], values[posted.result])) {
          return false;
        }
      }
      return true;
    });
    ASSERT_EQ(SearchSolutions(network), expected);
    ASSERT_FALSE(testing::Test::HasFailure());
    with_solutions += !expected.empty();
  }
  // Networks without a solution alone would prove little.
  if (networks > 1) {
    EXPECT_GT(with_solutions, networks / 20);
  }
}

}  // namespace
}  // namespace kiv::test
