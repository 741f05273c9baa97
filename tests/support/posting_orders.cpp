#include "tests/support/posting_orders.h"

#include <algorithm>

#include "tests/support/kind_shape.h"

namespace kiv::test {

namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

// `values` and a few around them, where that keeps them integers that a network holds.
Values Widened(const Values& values) {
  Values wider = values;
  for (const std::int32_t value : values) {
    if (value > -1000000 && value < 1000000) wider.insert(wider.end(), {value - 2, value + 1});
  }
  std::ranges::sort(wider);
  wider.erase(std::ranges::unique(wider).begin(), wider.end());
  return wider;
}

Declared Widened(const Declared& declared) {
  if (declared.unknown || declared.values.empty()) return declared;
  switch (ShapeOf(*declared.kind)) {
    case KindShape::kTruth:
      return {declared.kind, {0, 1}};
    case KindShape::kOneValue:
      return declared;
    case KindShape::kInterval:
    case KindShape::kSet:
      break;
  }
  return {declared.kind, declared.is_truth ? Values{0, 1} : Widened(declared.values)};
}

class Comparison {
 public:
  Comparison(const ConstraintCase& constraint, const std::vector<Assignment>& expected)
      : constraint_(constraint), expected_(expected) {}

  std::optional<std::string> PostedLast() const {
    KivOmbNetwork network;
    for (const Declared& variable : constraint_.variables) Declare(network, variable);
    Post(network);
    return Compare(network);
  }

  std::optional<std::string> PostedWhileNothingIsKnown() const {
    KivOmbNetwork network;
    for (const Declared& variable : constraint_.variables) Declare(network, {variable.kind, {}});
    Post(network);
    if (constraint_.propagates_unknown && network.Propagate() != Outcome::kFixpoint &&
        !expected_.empty()) {
      return "contradiction or overflow before anything is known";
    }
    for (VariableId id = 0; id < constraint_.variables.size(); ++id)
      RestrictToDeclared(network, id);
    return network.Propagate() == Outcome::kOverflow && expected_.empty() ? std::nullopt
                                                                          : Compare(network);
  }

  std::optional<std::string> PostedOverWiderDomains() const {
    KivOmbNetwork network;
    for (const Declared& variable : constraint_.variables) Declare(network, Widened(variable));
    Post(network);
    network.Propagate();
    network.PushLevel();
    for (VariableId id = 0; id < constraint_.variables.size(); ++id) {
      if (network.GetSummary(id).IsNil()) continue;
      RestrictToDeclared(network, id);
      network.Propagate();
    }
    return Compare(network);
  }

  std::optional<std::string> PostedAtALevelTakenBack() const {
    KivOmbNetwork network;
    for (const Declared& variable : constraint_.variables) Declare(network, variable);
    network.PushLevel();
    Post(network);
    network.Propagate();
    network.PopLevel();
    return Compare(network);
  }

 private:
  void Post(KivOmbNetwork& network) const { constraint_.post(network, constraint_.arguments); }

  void RestrictToDeclared(KivOmbNetwork& network, VariableId id) const {
    const Declared& declared = constraint_.variables[id];
    if (!declared.unknown && !declared.values.empty()) Restrict(network, id, declared.values);
  }

  std::optional<std::string> Compare(KivOmbNetwork& network) const {
    const FoundSolutions found = Search(network);
    const bool exhaustive = !found.open && !found.overflow;
    const bool has_unknown = std::ranges::any_of(
        constraint_.variables,
        [](const Declared& variable) { return variable.unknown || variable.values.empty(); });
    if (!exhaustive && (constraint_.determines || !has_unknown)) {
      return found.open ? "search leaves a variable unknown" : "search ends with an overflow";
    }
    for (const Assignment& solution : found.solutions) {
      if (!IsExpected(solution)) return "wrong solution" + Text(solution);
    }
    if (!exhaustive) return std::nullopt;
    for (const Assignment& solution : expected_) {
      if (!std::ranges::binary_search(found.solutions, solution)) {
        return "lost solution" + Text(solution);
      }
    }
    if (std::ranges::adjacent_find(found.solutions) != found.solutions.end()) {
      return "a solution found twice";
    }
    return std::nullopt;
  }

  // Enumeration cannot try all values of an unknown variable; the relation itself judges them.
  bool IsExpected(const Assignment& solution) const {
    if (std::ranges::binary_search(expected_, solution)) return true;
    if (constraint_.determines) return false;
    for (std::size_t i = 0; i < solution.size(); ++i) {
      const Declared& declared = constraint_.variables[i];
      if (declared.unknown || declared.values.empty()) continue;
      if (std::ranges::find(declared.values, solution[i]) == declared.values.end()) return false;
    }
    Assignment values;
    for (const VariableId argument : constraint_.arguments) values.push_back(solution[argument]);
    return constraint_.holds(values);
  }

  static std::string Text(const Assignment& assignment) {
    std::string text;
    for (const std::int64_t value : assignment) text += " " + std::to_string(value);
    return text;
  }

  const ConstraintCase& constraint_;
  const std::vector<Assignment>& expected_;
};

}  // namespace

std::optional<std::string> FindDifference(const ConstraintCase& constraint,
                                          const std::vector<Assignment>& expected) {
  const Comparison comparison(constraint, expected);
  if (const auto failure = comparison.PostedLast()) return "posted last: " + *failure;
  if (const auto failure = comparison.PostedWhileNothingIsKnown()) {
    return "posted while nothing is known: " + *failure;
  }
  if (const auto failure = comparison.PostedOverWiderDomains()) {
    return "posted over wider domains: " + *failure;
  }
  if (const auto failure = comparison.PostedAtALevelTakenBack()) {
    return "posted at a level taken back: " + *failure;
  }
  return std::nullopt;
}

}  // namespace kiv::test
