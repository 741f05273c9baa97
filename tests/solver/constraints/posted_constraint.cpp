#include "tests/solver/constraints/posted_constraint.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "framework/abstract_types/integer.h"

namespace kiv::test {

namespace {

using VariableId = KivOmbNetwork::VariableId;

std::vector<Assignment> Enumerate(const Posted& posted) {
  std::vector<Values> domains;
  for (const Declared& variable : posted.variables) domains.push_back(variable.values);
  return EnumerateSolutions(domains, [&](const Assignment& values) {
    Assignment argument_values;
    for (const VariableId argument : posted.arguments) argument_values.push_back(values[argument]);
    return posted.holds(argument_values);
  });
}

// `values` and a few around them.
Values Widened(const Values& values) {
  Values wider = values;
  for (const std::int32_t value : values) {
    if (value > -1000000 && value < 1000000) wider.insert(wider.end(), {value - 2, value + 1});
  }
  std::ranges::sort(wider);
  wider.erase(std::ranges::unique(wider).begin(), wider.end());
  return wider;
}

}  // namespace

void Restrict(KivOmbNetwork& network, VariableId variable, const Values& values) {
  KivOmbNetwork other;
  const VariableId copy = Declare(other, {&network.GetKind(variable), values});
  network.Update(variable, [&](KivOmbiAny& domain) { domain.Intersect(other.GetDomain(copy)); });
}

std::string Text(const KivOmbNetwork& network, VariableId variable) {
  Kivostrstream out;
  network.GetDomain(variable).PrintOn(out);
  return out.Str();
}

Values Range(std::int32_t lower, std::int32_t upper) {
  Values values;
  for (std::int64_t value = lower; value <= upper; ++value) {
    values.push_back(static_cast<std::int32_t>(value));
  }
  return values;
}

Declared RandomVariable(std::mt19937_64& random, const char* kind, const Values& values,
                        std::size_t most) {
  const auto pick = [&] {
    return static_cast<std::size_t>(Pick(random, 0, static_cast<int>(values.size()) - 1));
  };
  const std::string_view name = kind;
  const auto* descriptor = OpenModules().FindKind(name);
  if (name == "int") return {descriptor, {values[pick()]}};
  if (name == "interval int") {
    const std::int32_t lower = values[pick()];
    const std::int64_t width = Pick(random, 0, static_cast<int>(most) - 1);
    return {descriptor, Range(lower, static_cast<std::int32_t>(
                                         std::min<std::int64_t>(lower + width, values.back())))};
  }
  Values chosen;
  for (int count = Pick(random, 1, static_cast<int>(most)); count > 0; --count) {
    chosen.push_back(values[pick()]);
  }
  std::ranges::sort(chosen);
  chosen.erase(std::ranges::unique(chosen).begin(), chosen.end());
  return {descriptor, chosen};
}

void ExpectSolutionsOfEnumeration(const Posted& posted) {
  SCOPED_TRACE(Print(posted.variables));
  const auto expected = Enumerate(posted);
  {
    SCOPED_TRACE("posted last");
    KivOmbNetwork network;
    for (const Declared& variable : posted.variables) Declare(network, variable);
    posted.post(network, posted.arguments);
    EXPECT_EQ(SearchSolutions(network), expected);
  }
  {
    SCOPED_TRACE("posted while nothing is known");
    KivOmbNetwork network;
    for (const Declared& variable : posted.variables) Declare(network, {variable.kind, {}});
    posted.post(network, posted.arguments);
    ASSERT_NE(network.Propagate(), KivOmbNetwork::Outcome::kContradiction);
    for (VariableId id = 0; id < posted.variables.size(); ++id) {
      Restrict(network, id, posted.variables[id].values);
    }
    EXPECT_EQ(SearchSolutions(network), expected);
  }
  {
    SCOPED_TRACE("posted over wider domains");
    KivOmbNetwork network;
    for (const Declared& variable : posted.variables) {
      // One value is all that some kinds hold.
      const bool one = variable.kind->GetName() == "int";
      Declare(network, {variable.kind, one ? variable.values : Widened(variable.values)});
    }
    posted.post(network, posted.arguments);
    network.Propagate();
    network.PushLevel();
    for (VariableId id = 0; id < posted.variables.size(); ++id) {
      if (network.GetSummary(id).IsNil()) continue;
      Restrict(network, id, posted.variables[id].values);
      network.Propagate();
    }
    EXPECT_EQ(SearchSolutions(network), expected);
  }
}

}  // namespace kiv::test
