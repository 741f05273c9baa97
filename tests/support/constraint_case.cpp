#include "tests/support/constraint_case.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <exception>
#include <stdexcept>

#include "tests/support/descent.h"
#include "tests/support/kind_shape.h"
#include "tests/support/posting_orders.h"
#include "tests/support/random.h"
#include "tests/support/seed.h"
#include "tests/support/shrink.h"

namespace kiv::test {

namespace {

using VariableId = KivOmbNetwork::VariableId;

constexpr int kDescents = 3;

// What enumeration tries for the variables: the values that their kinds make of the declared ones.
std::vector<Values> TriedValues(const std::vector<Declared>& variables) {
  std::vector<Values> tried;
  KivOmbNetwork network;
  for (const Declared& variable : variables) {
    const VariableId id = Declare(network, variable);
    if (!network.GetSummary(id).IsAny()) {
      tried.push_back(ValuesOf(network, id));
    } else {
      tried.push_back(variable.values.empty() ? Range(-200, 200) : variable.values);
    }
  }
  return tried;
}

std::vector<Assignment> Enumerate(const ConstraintCase& constraint) {
  const std::vector<Values> tried = TriedValues(constraint.variables);
  double assignments = 1;
  for (const Values& values : tried) assignments *= static_cast<double>(values.size());
  if (assignments > 4e6) throw std::invalid_argument("too many assignments to enumerate");
  Assignment argument_values(constraint.arguments.size());
  return EnumerateSolutions(tried, [&](const Assignment& values) {
    std::ranges::transform(constraint.arguments, argument_values.begin(),
                           [&](VariableId argument) { return values[argument]; });
    return constraint.holds(argument_values);
  });
}

// Without variable `id`; `instead`, an earlier one, takes its places.
ConstraintCase Without(const ConstraintCase& constraint, VariableId id, VariableId instead) {
  ConstraintCase smaller = constraint;
  smaller.variables.erase(smaller.variables.begin() + id);
  for (VariableId& argument : smaller.arguments) {
    if (argument == id) argument = instead;
    if (argument > id) --argument;
  }
  return smaller;
}

}  // namespace

std::optional<std::string> FindFailure(const ConstraintCase& constraint, std::uint64_t seed) {
  try {
    const std::vector<Assignment> solutions = Enumerate(constraint);
    if (auto failure = FindDifference(constraint, solutions)) return failure;
    Generator random(seed);
    for (int i = 0; i < kDescents; ++i) {
      if (auto failure = FindFailureOnDescent(constraint, solutions, random)) return failure;
    }
  } catch (const std::exception& error) {
    return error.what();
  }
  return std::nullopt;
}

std::vector<ConstraintCase> SmallerCases(const ConstraintCase& constraint) {
  std::vector<ConstraintCase> cases;
  for (VariableId id = 0; id < constraint.variables.size(); ++id) {
    const Declared& variable = constraint.variables[id];
    if (std::ranges::find(constraint.arguments, id) == constraint.arguments.end()) {
      cases.push_back(Without(constraint, id, id));
      continue;
    }
    for (VariableId other = 0; other < id; ++other) {
      if (!variable.unknown && constraint.variables[other].kind == variable.kind) {
        cases.push_back(Without(constraint, id, other));
      }
    }
    if (variable.unknown || variable.values.size() < 2) continue;
    const auto with_values = [&](Values values) {
      cases.push_back(constraint);
      cases.back().variables[id].values = std::move(values);
    };
    const std::size_t count = variable.values.size();
    for (const std::int32_t value : variable.values) with_values({value});
    // An interval has no holes to lose a value in the middle.
    const bool ends_only = ShapeOf(*variable.kind) == KindShape::kInterval;
    for (std::size_t i = 0; i < count; i += ends_only ? count - 1 : 1) {
      Values values = variable.values;
      values.erase(values.begin() + static_cast<std::ptrdiff_t>(i));
      with_values(std::move(values));
    }
  }
  return cases;
}

std::string Print(const ConstraintCase& constraint) {
  std::string text = constraint.name + " (";
  for (std::size_t i = 0; i < constraint.arguments.size(); ++i) {
    text += (i == 0 ? "x" : ", x") + std::to_string(constraint.arguments[i]);
  }
  text += ")";
  for (std::size_t i = 0; i < constraint.variables.size(); ++i) {
    text += "\n  x" + std::to_string(i) + ": " + Print(constraint.variables[i]);
  }
  return text;
}

void CheckConstraint(const ConstraintCase& constraint, std::uint64_t seed) {
  const auto failure = FindFailure(constraint, seed);
  if (!failure) return;
  const auto [smallest, shortest] = Shrink(constraint, *failure, seed, SmallerCases, FindFailure);
  ADD_FAILURE() << Print(constraint) << "\n"
                << *failure << "\n"
                << Replay(seed) << "\nsmallest case that fails: " << Print(smallest) << "\n"
                << shortest;
}

}  // namespace kiv::test
