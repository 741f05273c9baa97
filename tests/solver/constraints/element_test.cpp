#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

#include "solver/constraints/element_of_constants.h"
#include "solver/constraints/element_of_variables.h"
#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

void PostElementOfConstants(KivOmbNetwork& network, VariableId x, VariableId z,
                            const Values& elements, std::int32_t first) {
  const VariableId arguments[] = {x, z};
  network.Emplace<ElementOfConstants>(arguments, elements, first);
}

ConstraintCase ConstantsCase(RandomCase& random_case, const Values& elements, std::int32_t first) {
  return random_case.Finish(
      "element of constants", Strength::kDomain,
      [=](KivOmbNetwork& network, auto arguments) {
        network.Emplace<ElementOfConstants>(arguments, elements, first);
      },
      [=](const Assignment& values) {
        const std::int64_t position = values[0] - first;
        return position >= 0 && position < static_cast<std::int64_t>(elements.size()) &&
               elements[static_cast<std::size_t>(position)] == values[1];
      });
}

TEST(ElementOfConstants, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const Values pool = OneIn(random, 5)
                            ? Values{-2147483646, -2147483645, 0, 2147483645, 2147483646}
                            : Range(-5, 6);
    Values elements;
    for (int count = Pick(random, 0, 9); count > 0; --count) {
      elements.push_back(PickOf(random, pool));
    }
    const int first = Pick(random, -4, 3);
    RandomCase random_case(random);
    if (OneIn(random, 8)) {
      random_case.AddUnknown(Range(-6, 14));
    } else {
      random_case.AddInteger(Range(-6, 12), 8);
    }
    if (OneIn(random, 8)) {
      random_case.AddUnknown(pool);
    } else {
      random_case.AddInteger(pool, 8);
    }
    return ConstantsCase(random_case, elements, first);
  });
}

TEST(ElementOfConstants, NothingIsAnElementOfAnEmptyArray) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("enum int"), {0, 1}});
  const auto z = Declare(network, {Kind("enum int"), {0, 1}});
  PostElementOfConstants(network, x, z, {}, 0);
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

TEST(ElementOfConstants, AnUnknownIndexIsCutToTheArray) {
  for (const char* kind : kIntegerKinds) {
    KivOmbNetwork network;
    const auto x = Declare(network, {Kind(kind), {}});
    const auto z = Declare(network, {Kind(kind), {}});
    PostElementOfConstants(network, x, z, {5, 9, 5}, 7);
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
    const std::string_view name = kind;
    EXPECT_EQ(Text(network, x), name == "enum int"       ? "{ 7, 8, 9 }"
                                : name == "interval int" ? "[7, 9]"
                                                         : "Any");
    EXPECT_EQ(Text(network, z), name == "enum int"       ? "{ 5, 9 }"
                                : name == "interval int" ? "[5, 9]"
                                                         : "Any");
  }
}

TEST(ElementOfConstants, AnArrayLongerThanAKindHoldsIsReadByItsBounds) {
  Values elements;
  for (int i = 0; i < 20000; ++i) elements.push_back(i / 2);
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("interval int"), {0, 1000000}});
  const auto z = Declare(network, {Kind("interval int"), {300, 2147483646}});
  const auto unknown = Declare(network, {Kind("enum int"), {}});
  PostElementOfConstants(network, x, z, elements, 1);
  PostElementOfConstants(network, unknown, z, elements, 1);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, x), "[601, 20000]");
  EXPECT_EQ(Text(network, z), "[300, 9999]");
  EXPECT_EQ(Text(network, unknown), "Any");
}

TEST(ElementOfConstants, TheIndexIsTheElementItself) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("enum int"), Range(0, 9)});
  PostElementOfConstants(network, x, x, {3, 1, 0, 3, 5, 9}, 0);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, x), "{ 1, 3 }");
}

TEST(ElementOfConstants, RefusesWhatNoVariableCanBe) {
  EXPECT_THROW(ElementOfConstants({2147483647}), std::invalid_argument);
  EXPECT_THROW(ElementOfConstants({-2147483647}), std::invalid_argument);
  EXPECT_THROW(ElementOfConstants({1, 2}, 2147483646), std::invalid_argument);
  EXPECT_NO_THROW(ElementOfConstants({1}, 2147483646));
  EXPECT_FALSE(ElementOfConstants({7}).Holds(std::array<std::int64_t, 2>{1, 7}));
}

ConstraintCase VariablesCase(RandomCase& random_case, std::int32_t first) {
  return random_case.Finish(
      "element of variables", Strength::kDomain,
      [=](KivOmbNetwork& network, auto arguments) {
        network.Emplace<ElementOfVariables>(arguments, first);
      },
      [=](const Assignment& values) {
        const std::int64_t position = values[0] - first + 2;
        return position >= 2 && position < static_cast<std::int64_t>(values.size()) &&
               values[static_cast<std::size_t>(position)] == values[1];
      });
}

TEST(ElementOfVariables, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const Values ends{-2147483646, -2147483645, 0, 2147483645, 2147483646};
    // Values that fill words of bits, and such that lie too far apart for them.
    const Values words{-70, -64, -63, -1, 0, 1, 2, 63, 64, 65, 127, 128, 900, 960};
    const Values pool = OneIn(random, 6) ? ends : OneIn(random, 4) ? words : Range(-4, 5);
    const int elements = Pick(random, 0, 4);
    const int first = Pick(random, -2, 2);
    RandomCase random_case(random);
    if (OneIn(random, 8)) {
      random_case.AddUnknown(Range(-3, 8));
    } else {
      random_case.AddInteger(Range(-3, 7), 6);
    }
    for (int i = 0; i <= elements; ++i) {
      if (OneIn(random, 20)) {
        random_case.AddUnknown(pool);
      } else {
        random_case.AddInteger(pool, 4);
      }
    }
    return VariablesCase(random_case, first);
  });
}

TEST(ElementOfVariables, AnUnknownElementTakesTheUnionOfThoseThatMayBeMeant) {
  KivOmbNetwork network;
  const VariableId arguments[] = {
      Declare(network, {Kind("enum int"), {1, 3}}), Declare(network, {Kind("enum int"), {}}),
      Declare(network, {Kind("enum int"), {1, 7}}), Declare(network, {Kind("enum int"), {4}}),
      Declare(network, {Kind("interval int"), Range(5, 7)})};
  network.Emplace<ElementOfVariables>(arguments, 1);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 1), "{ 1, 5, 6, 7 }");
}

TEST(ElementOfVariables, SleepsWhileOnlyElementsAtOtherIndicesChange) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("enum int"), {0, 1}});
  const auto z = Declare(network, {Kind("enum int"), Range(0, 9)});
  std::vector<VariableId> arguments{x, z};
  for (int i = 0; i < 3; ++i) {
    arguments.push_back(Declare(network, {Kind("enum int"), Range(0, 9)}));
  }
  network.Emplace<ElementOfVariables>(arguments, 0);
  network.Propagate();
  const auto runs_after = [&](VariableId variable, const Values& values) {
    const auto runs = network.GetStatistics().runs;
    Restrict(network, variable, values);
    EXPECT_EQ(network.Propagate(), Outcome::kFixpoint);
    return network.GetStatistics().runs - runs;
  };
  EXPECT_EQ(runs_after(arguments[4], Range(3, 8)), 0u);
  network.PushLevel();
  EXPECT_GT(runs_after(x, {0}), 0u);
  EXPECT_EQ(runs_after(arguments[3], Range(2, 8)), 0u);
  network.PopLevel();
  EXPECT_GT(runs_after(arguments[3], Range(2, 8)), 0u);
}

TEST(ElementOfVariables, WideIntervalsMeetByTheirBounds) {
  KivOmbNetwork network;
  const VariableId arguments[] = {Declare(network, {Kind("enum int"), {0, 1, 2}}),
                                  Declare(network, {Kind("interval int"), {0, 1000000}}),
                                  Declare(network, {Kind("interval int"), {-9000000, -1}}),
                                  Declare(network, {Kind("interval int"), {500, 9000000}}),
                                  Declare(network, {Kind("enum int"), {-5, 70, 2000000}})};
  network.Emplace<ElementOfVariables>(arguments, 0);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 0), "{ 1, 2 }");
  EXPECT_EQ(Text(network, 1), "[70, 1000000]");
}

}  // namespace
}  // namespace kiv::test
