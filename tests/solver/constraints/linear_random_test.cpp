// Linear constraints of random shapes under brute force.

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <map>
#include <optional>
#include <span>

#include "solver/constraints/linear_posting.h"
#include "tests/support/constraint_case.h"
#include "tests/support/modules.h"
#include "tests/support/random_variables.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;
using Coefficients = std::vector<std::int64_t>;

constexpr std::int32_t kMost = 2147483646;

struct Relation {
  const char* name;
  LinearRelation relation;
  bool (*holds)(__int128 sum, __int128 constant);
};

constexpr Relation kRelations[] = {
    {"=", LinearRelation::kEqual, [](__int128 a, __int128 b) { return a == b; }},
    {"<>", LinearRelation::kUnequal, [](__int128 a, __int128 b) { return a != b; }},
    {"<", LinearRelation::kLess, [](__int128 a, __int128 b) { return a < b; }},
    {"<=", LinearRelation::kLessOrEqual, [](__int128 a, __int128 b) { return a <= b; }},
    {">", LinearRelation::kGreater, [](__int128 a, __int128 b) { return a > b; }},
    {">=", LinearRelation::kGreaterOrEqual, [](__int128 a, __int128 b) { return a >= b; }},
};

__int128 SumOf(const Coefficients& coefficients, const Assignment& values) {
  __int128 sum = 0;
  for (std::size_t i = 0; i < coefficients.size(); ++i) {
    sum += static_cast<__int128>(coefficients[i]) * values[i];
  }
  return sum;
}

// What is put between the terms and a truth value, or on its own.
struct Shape {
  Relation relation;
  std::optional<Reification> reification;

  bool Holds(__int128 sum, __int128 constant, std::int64_t truth) const {
    const bool holds = relation.holds(sum, constant);
    if (!reification) return holds;
    return *reification == Reification::kImplication ? truth == 0 || holds : (truth != 0) == holds;
  }
};

// The coefficients by variable, as far as they are not 0.
std::map<VariableId, std::int64_t> Merged(const Coefficients& coefficients,
                                          const std::vector<VariableId>& arguments) {
  std::map<VariableId, std::int64_t> merged;
  for (std::size_t i = 0; i < coefficients.size(); ++i) merged[arguments[i]] += coefficients[i];
  std::erase_if(merged, [](const auto& term) { return term.second == 0; });
  return merged;
}

Strength StrengthOf(const Shape& shape, const Coefficients& coefficients,
                    const std::vector<VariableId>& arguments) {
  const bool is_equation = shape.relation.relation == LinearRelation::kEqual;
  const bool is_unequal = shape.relation.relation == LinearRelation::kUnequal;
  const auto merged = Merged(coefficients, arguments);
  if (merged.size() <= 3 || (!is_equation && !is_unequal)) return Strength::kDomain;
  if (shape.reification) return Strength::kWeaker;
  if (is_unequal) return Strength::kDomain;
  const bool has_units = std::ranges::all_of(
      merged, [](const auto& term) { return term.second == 1 || term.second == -1; });
  return has_units ? Strength::kHull : Strength::kWeaker;
}

ConstraintCase CaseOf(const Shape& shape, std::vector<Declared> variables,
                      std::vector<VariableId> arguments, const Coefficients& coefficients,
                      std::int64_t constant) {
  const Strength strength = StrengthOf(shape, coefficients, arguments);
  std::string name;
  for (std::size_t i = 0; i < coefficients.size(); ++i) {
    name += std::to_string(coefficients[i]) + " * x" + std::to_string(arguments[i]) + " + ";
  }
  name += "0 " + std::string(shape.relation.name) + " " + std::to_string(constant);
  if (shape.reification) {
    name += *shape.reification == Reification::kImplication ? " if the last" : " iff the last";
  }
  return {std::move(name),
          std::move(variables),
          std::move(arguments),
          [=](KivOmbNetwork& network, std::span<const VariableId> posted_over) {
            std::vector<LinearTerm> terms;
            for (std::size_t i = 0; i < coefficients.size(); ++i) {
              terms.push_back({coefficients[i], posted_over[i]});
            }
            std::optional<LinearTruth> truth;
            if (shape.reification) truth = {posted_over.back(), *shape.reification};
            PostLinear(network, terms, shape.relation.relation, constant, truth);
          },
          [=](const Assignment& values) {
            const std::int64_t truth = values.empty() ? 0 : values.back();
            return shape.Holds(SumOf(coefficients, values), constant, truth);
          },
          strength};
}

// A sum over up to `most` variables, some of them repeated, with a constant near one of its values.
ConstraintCase RandomCase(Generator& random, const Shape& shape, int most, const Values& values,
                          const Coefficients& choice) {
  std::vector<Declared> variables;
  std::vector<VariableId> arguments;
  Coefficients coefficients;
  Assignment chosen;
  for (int count = Pick(random, 0, most); count > 0; --count) {
    if (!variables.empty() && OneIn(random, 6)) {
      arguments.push_back(arguments[0]);
      chosen.push_back(chosen[0]);
    } else {
      arguments.push_back(static_cast<VariableId>(variables.size()));
      const auto* kind = PickOf(random, IntegerKinds());
      variables.push_back({kind, RandomValues(random, *kind, values, most > 3 ? 3 : 6)});
      chosen.push_back(PickOf(random, variables.back().values));
    }
    coefficients.push_back(PickOf(random, choice));
  }
  constexpr std::int64_t kFarthest = std::numeric_limits<std::int64_t>::max();
  const auto constant = static_cast<std::int64_t>(
      std::clamp<__int128>(SumOf(coefficients, chosen), -kFarthest, kFarthest - 3));
  if (shape.reification) {
    const Values truths[] = {{0, 1}, {1}, {0}};
    arguments.push_back(static_cast<VariableId>(variables.size()));
    variables.push_back({OpenModules().FindKind("bool"), truths[Pick(random, 0, 2)]});
  }
  return CaseOf(shape, std::move(variables), std::move(arguments), coefficients,
                constant + Pick(random, 0, 3) * Pick(random, 0, 1));
}

const Coefficients kSmall = {1, -1, 1, -1, 2, -2, 3, -5, 7, 0};
const Coefficients kUnits = {1, -1};
const Coefficients kHuge = {1,
                            -1,
                            3,
                            1000000007,
                            -1000000007,
                            std::int64_t{1} << 31,
                            -(std::int64_t{1} << 31),
                            1000000000000,
                            -999999999989};

class LinearRandom : public testing::TestWithParam<Shape> {};

TEST_P(LinearRandom, FewTerms) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(400); ++seed) {
    Generator random(seed);
    CheckConstraint(RandomCase(random, GetParam(), 3, Range(-6, 6), kSmall), seed);
    if (HasFailure()) return;
  }
}

// One of the variables starts unknown, and what is known of it comes from the others alone.
TEST_P(LinearRandom, AnUnknownTerm) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(200); ++seed) {
    Generator random(seed);
    ConstraintCase constraint = RandomCase(random, GetParam(), 3, Range(-6, 6), kSmall);
    const auto terms = std::span(constraint.arguments)
                           .first(constraint.arguments.size() - (GetParam().reification ? 1 : 0));
    if (terms.empty()) continue;
    Declared& unknown = constraint.variables[PickOf(random, terms)];
    unknown = {unknown.kind, Range(-40, 40), true};
    CheckConstraint(constraint, seed);
    if (HasFailure()) return;
  }
}

TEST_P(LinearRandom, ManyTerms) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(300); ++seed) {
    Generator random(seed);
    const Coefficients& choice = OneIn(random, 2) ? kUnits : kSmall;
    CheckConstraint(RandomCase(random, GetParam(), 6, Range(-4, 4), choice), seed);
    if (HasFailure()) return;
  }
}

TEST_P(LinearRandom, ValuesAtTheEndsOfTheIntegersAndHugeCoefficients) {
  const Values ends = {-kMost, -kMost + 1, -kMost + 2, -kMost / 2, -1,   0,
                       1,      kMost / 2,  kMost - 2,  kMost - 1,  kMost};
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(400); ++seed) {
    Generator random(seed);
    CheckConstraint(RandomCase(random, GetParam(), 4, ends, kHuge), seed);
    if (HasFailure()) return;
  }
}

std::vector<Shape> AllShapes() {
  std::vector<Shape> shapes;
  for (const Relation& relation : kRelations) {
    shapes.push_back({relation, std::nullopt});
    shapes.push_back({relation, Reification::kEquivalence});
    shapes.push_back({relation, Reification::kImplication});
  }
  return shapes;
}

std::string NameOf(const testing::TestParamInfo<Shape>& shape) {
  static constexpr const char* kNames[] = {"Equal",       "Unequal", "Less",
                                           "LessOrEqual", "Greater", "GreaterOrEqual"};
  const std::string name = kNames[static_cast<int>(shape.param.relation.relation)];
  if (!shape.param.reification) return name;
  return name + (*shape.param.reification == Reification::kImplication ? "Implied" : "Reified");
}

INSTANTIATE_TEST_SUITE_P(Shapes, LinearRandom, testing::ValuesIn(AllShapes()), NameOf);

}  // namespace
}  // namespace kiv::test
