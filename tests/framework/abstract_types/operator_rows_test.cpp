// Every row of every module stands under brute force, over random small domains of every mix of
// kinds that the row admits: with a variable on both sides, with an operand as the result, with a
// result that is unknown at first, and relations without a value. A row without a meaning and a
// class without a promised strength fail.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <numeric>
#include <set>
#include <string_view>

#include "tests/support/kind_shape.h"
#include "tests/support/modules.h"
#include "tests/support/posted_row.h"
#include "tests/support/random_variables.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Kind = const KivOmbiObjectDescriptor*;
using Row = const KivOmbiCompoundObjectDescriptor*;
using Type = OperatorMeaning::Type;
using VariableId = KivOmbNetwork::VariableId;

// What a constraint class promises where the carrier and all arguments hold sets, and where not.
struct Promise {
  Strength over_sets;
  Strength otherwise;
};

const std::map<std::string_view, Promise> kPromises = {
    {"KivOmbiAdditionConstraint", {Strength::kDomain, Strength::kHull}},
    {"KivOmbiMultiplicationConstraint", {Strength::kDomain, Strength::kWeaker}},
    {"KivOmbiPowerConstraint", {Strength::kDomain, Strength::kWeaker}},
    {"KivOmbiRemainderConstraint", {Strength::kDomain, Strength::kWeaker}},
    {"KivOmbiMinimumConstraint", {Strength::kHull, Strength::kHull}},
    {"KivOmbiMaximumConstraint", {Strength::kHull, Strength::kHull}},
    {"KivOmbiNumberNegationConstraint", {Strength::kDomain, Strength::kBounds}},
    {"KivOmbiAbsoluteConstraint", {Strength::kDomain, Strength::kHull}},
    {"KivOmbiNextConstraint", {Strength::kDomain, Strength::kBounds}},
    {"KivOmbiSignumConstraint", {Strength::kDomain, Strength::kBounds}},
    {"KivOmbiEqualConstraint", {Strength::kDomain, Strength::kBounds}},
    {"KivOmbiEqualTernaryConstraint", {Strength::kDomain, Strength::kBounds}},
    {"KivOmbiUnequalTernaryConstraint", {Strength::kDomain, Strength::kBounds}},
    {"KivOmbiLessOrEqualTernaryConstraint", {Strength::kDomain, Strength::kBounds}},
    {"KivOmbiLessTernaryConstraint", {Strength::kDomain, Strength::kBounds}},
    {"KivOmbiTruncatingDivisionConstraint", {Strength::kDomain, Strength::kHull}},
    {"KivOmbiConjunctionConstraint", {Strength::kDomain, Strength::kDomain}},
    {"KivOmbiDisjunctionConstraint", {Strength::kDomain, Strength::kDomain}},
    {"KivOmbiImplicationConstraint", {Strength::kDomain, Strength::kDomain}},
    {"KivOmbiExclusiveOrConstraint", {Strength::kDomain, Strength::kDomain}},
    {"KivOmbiBooleanNegationConstraint", {Strength::kDomain, Strength::kDomain}},
    {"KivOmbiBooleanEqualConstraint", {Strength::kHull, Strength::kHull}},
    {"KivOmbiBooleanLessConstraint", {Strength::kHull, Strength::kHull}},
    {"KivOmbiBooleanLessOrEqualConstraint", {Strength::kHull, Strength::kHull}},
};

Strength StrengthOf(Row row, const std::vector<Declared>& variables) {
  const auto promise = kPromises.find(row->GetConstraint()->GetName());
  if (promise == kPromises.end()) return Strength::kDomain;
  const bool over_sets = ShapeOf(*row->GetCarrier()) == KindShape::kSet &&
                         std::ranges::all_of(variables, [](const Declared& variable) {
                           const KindShape shape = ShapeOf(*variable.kind);
                           return shape == KindShape::kSet || shape == KindShape::kTruth;
                         });
  return over_sets ? promise->second.over_sets : promise->second.otherwise;
}

// The kinds that an operand of a row may have: all below an abstract one.
std::vector<Kind> ConcreteKinds(Kind wanted) {
  std::vector<Kind> kinds;
  for (const Kind kind : OpenModulesAndForeign().kinds) {
    if (wanted->IsMatched(kind) != 0) kinds.push_back(kind);
  }
  return kinds;
}

std::vector<std::vector<Kind>> OperandMixes(Row row) {
  std::vector<std::vector<Kind>> mixes{{}};
  for (unsigned i = 0; i < row->GetOperandCount(); ++i) {
    std::vector<std::vector<Kind>> longer;
    for (const auto& mix : mixes) {
      for (const Kind kind : ConcreteKinds(row->GetOperand(i))) {
        longer.push_back(mix);
        longer.back().push_back(kind);
      }
    }
    mixes = std::move(longer);
  }
  return mixes;
}

// The row over variables of its own for the operands, as written, and at last the result.
ConstraintCase CaseOf(Row row, std::vector<Declared> variables) {
  const bool binary = row->GetOperandCount() == 2;
  const PostedRow posted{row, 0, binary ? 1 : PostedRow::kNone, binary ? 2u : 1u};
  std::vector<VariableId> arguments(variables.size());
  std::iota(arguments.begin(), arguments.end(), VariableId{0});
  const Strength strength = StrengthOf(row, variables);
  return {.name = Print(posted),
          .variables = std::move(variables),
          .arguments = std::move(arguments),
          .post = [posted](KivOmbNetwork& network,
                           auto posted_over) { posted.Post(network, posted_over); },
          .holds = [posted](const Assignment& values) { return posted.Holds(values); },
          .strength = strength};
}

// The relation of a case of CaseOf alone, without its value.
ConstraintCase WithoutValue(Row row, ConstraintCase relation) {
  const PostedRow posted{row, 0, 1, PostedRow::kNone};
  relation.name = Print(posted);
  relation.variables.pop_back();
  relation.arguments.pop_back();
  relation.post = [posted](KivOmbNetwork& network, auto arguments) {
    posted.Post(network, arguments);
  };
  relation.holds = [posted](const Assignment& values) { return posted.Holds(values); };
  return relation;
}

// Calls `check(row, mix of operand kinds, random, seed)` for every mix, `rounds` times.
void ForEachMix(
    std::uint64_t rounds,
    const std::function<void(Row, const std::vector<Kind>&, Generator&, std::uint64_t)>& check) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + rounds; ++seed) {
    for (const Row row : OpenModulesAndForeign().operators.GetRows()) {
      for (const auto& mix : OperandMixes(row)) {
        Generator random(seed);
        check(row, mix, random, seed);
        if (testing::Test::HasFailure()) return;
      }
    }
  }
}

std::vector<Declared> RandomVariables(Generator& random, Row row, const std::vector<Kind>& mix,
                                      Flavour flavour) {
  std::vector<Declared> variables;
  for (const Kind kind : mix) variables.push_back({kind, RandomValues(random, *kind, flavour)});
  const Kind result = row->GetResult();
  // A result is seldom among random values, but mostly near the operands.
  const Flavour near = flavour == Flavour::kNegative ? Flavour::kHoles : flavour;
  variables.push_back({result, RandomValues(random, *result, near)});
  return variables;
}

TEST(OperatorRows, EveryRowHasAMeaningAndEveryClassARowAndAPromise) {
  std::set<std::string> served;
  for (const Row row : OpenModulesAndForeign().operators.GetRows()) {
    EXPECT_NE(MeaningOf(*row), nullptr) << Print(*row);
    EXPECT_FALSE(OperandMixes(row).empty()) << Print(*row);
    EXPECT_TRUE(kPromises.contains(row->GetConstraint()->GetName()))
        << row->GetConstraint()->GetName();
    served.insert(row->GetConstraint()->GetName());
  }
  for (const KivOmbiModule* module : OpenModulesAndForeign().manager.GetModules()) {
    for (const auto* descriptor : module->GetObjectDescriptors()) {
      if (dynamic_cast<const KivOmbiConstraintDescriptor*>(descriptor) == nullptr) continue;
      EXPECT_TRUE(served.contains(descriptor->GetName())) << descriptor->GetName();
    }
  }
  for (const auto& [name, promise] : kPromises) {
    EXPECT_TRUE(served.contains(std::string(name))) << name;
  }
}

TEST(OperatorRows, StandUnderBruteForce) {
  ForEachMix(Times(32), [](Row row, const auto& mix, Generator& random, std::uint64_t seed) {
    CheckConstraint(CaseOf(row, RandomVariables(random, row, mix, RandomFlavour(random))), seed);
  });
}

TEST(OperatorRows, FindOutAnUnknownResult) {
  static const Values pool = Range(-3, 3);  // whose results are all among what enumeration tries
  ForEachMix(Times(16), [](Row row, const auto& mix, Generator& random, std::uint64_t seed) {
    if (ShapeOf(*row->GetResult()) == KindShape::kTruth) return;
    const Type type = MeaningOf(*row)->type;
    std::vector<Declared> variables;
    for (const Kind kind : mix) variables.push_back({kind, RandomValues(random, *kind, pool, 4)});
    variables.push_back({row->GetResult(), {}});
    ConstraintCase unknown = CaseOf(row, std::move(variables));
    unknown.determines = row->GetConstraint()->CanPropagate() && type != Type::kQuotient;
    CheckConstraint(unknown, seed);
  });
}

// What is beyond the range of integers may end in an overflow, but in nothing wrong.
TEST(OperatorRows, LoseNothingToUnknownArguments) {
  ForEachMix(Times(8), [](Row row, const auto& mix, Generator& random, std::uint64_t seed) {
    ConstraintCase unknown = CaseOf(row, RandomVariables(random, row, mix, RandomFlavour(random)));
    const auto chosen =
        static_cast<std::size_t>(Pick(random, 0, static_cast<int>(unknown.variables.size()) - 1));
    if (ShapeOf(*unknown.variables[chosen].kind) == KindShape::kTruth) return;
    unknown.variables[chosen].values.clear();
    CheckConstraint(unknown, seed);
  });
}

TEST(OperatorRows, TakeAVariableTwice) {
  ForEachMix(Times(8), [](Row row, const auto& mix, Generator& random, std::uint64_t seed) {
    const ConstraintCase apart =
        CaseOf(row, RandomVariables(random, row, mix, RandomFlavour(random)));
    for (VariableId second = 1; second < apart.variables.size(); ++second) {
      for (VariableId first = 0; first < second; ++first) {
        if (apart.variables[first].kind != apart.variables[second].kind) continue;
        ConstraintCase twice = apart;
        twice.arguments[second] = first;
        CheckConstraint(twice, seed);
      }
    }
  });
}

TEST(OperatorRows, RelationsHoldWithoutAValue) {
  ForEachMix(Times(8), [](Row row, const auto& mix, Generator& random, std::uint64_t seed) {
    if (MeaningOf(*row)->type != Type::kRelation) return;
    const ConstraintCase relation =
        WithoutValue(row, CaseOf(row, RandomVariables(random, row, mix, RandomFlavour(random))));
    CheckConstraint(relation, seed);
    if (relation.variables[0].kind != relation.variables[1].kind) return;
    ConstraintCase twice = relation;
    twice.arguments[1] = 0;
    CheckConstraint(twice, seed);
  });
}

}  // namespace
}  // namespace kiv::test
