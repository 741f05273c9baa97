#include "tests/solver/search/random_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "solver/constraints/all_different.h"
#include "solver/constraints/linear_posting.h"
#include "tests/support/modules.h"
#include "tests/support/operator_meaning.h"

namespace kiv::test {

namespace {

using VariableId = KivOmbNetwork::VariableId;

class Generator {
 public:
  Generator(RandomModel& model, std::uint64_t seed) : model_(model), random_(seed) {}

  void Generate() {
    for (int count = Pick(3, 5); count > 0; --count) AddVariable();
    for (int count = Pick(1, 4); count > 0; --count) {
      switch (Pick(0, 3)) {
        case 0:
          AddAllDifferent();
          break;
        case 1:
          AddScaling();
          break;
        default:
          AddRelation();
      }
    }
  }

 private:
  int Pick(int lower, int upper) {
    return std::uniform_int_distribution<int>(lower, upper)(random_);
  }
  VariableId PickVariable() {
    return static_cast<VariableId>(Pick(0, static_cast<int>(model_.variables.size()) - 1));
  }
  bool IsInteger(VariableId variable) const {
    return model_.variables[variable].kind->GetName() != "bool";
  }

  void AddVariable() {
    constexpr const char* kKinds[] = {"enum int", "enum int", "interval int", "range int", "bool"};
    const std::string_view name = kKinds[Pick(0, 4)];
    Values values;
    if (name == "bool") {
      values = {0, 1};
    } else {
      const int count = Pick(1, 6);
      for (int value = Pick(-4, 3); static_cast<int>(values.size()) < count; ++value) {
        if (name != "enum int" || Pick(0, 2) != 0) values.push_back(value);
      }
    }
    model_.variables.push_back({OpenModulesAndForeign().FindKind(name), values});
    model_.domains.push_back(values);
  }

  void AddAllDifferent() {
    std::vector<VariableId> variables;
    for (VariableId id = 0; id < model_.variables.size(); ++id) {
      if (IsInteger(id) && Pick(0, 2) != 0) variables.push_back(id);
    }
    model_.posts.push_back(
        [variables](KivOmbNetwork& network) { network.Emplace<AllDifferent>(variables); });
    model_.meanings.push_back([variables](const Assignment& values) {
      Assignment taken;
      for (const VariableId variable : variables) taken.push_back(values[variable]);
      std::ranges::sort(taken);
      return std::ranges::adjacent_find(taken) == taken.end();
    });
  }

  // z = coefficient * x, where z is a variable that is there or a new one that starts Any.
  void AddScaling() {
    const VariableId x = PickVariable();
    if (!IsInteger(x)) return;
    const std::int32_t coefficient = Pick(-2, 3);
    VariableId z = PickVariable();
    if (!IsInteger(z) || Pick(0, 1) == 0) {
      z = static_cast<VariableId>(model_.variables.size());
      Values products;
      for (const std::int32_t value : model_.domains[x]) products.push_back(coefficient * value);
      std::ranges::sort(products);
      products.erase(std::ranges::unique(products).begin(), products.end());
      model_.variables.push_back({OpenModulesAndForeign().FindKind("enum int"), {}});
      model_.domains.push_back(products);
    }
    model_.posts.push_back([=](KivOmbNetwork& network) {
      const LinearTerm terms[] = {{coefficient, x}, {-1, z}};
      PostLinear(network, terms, LinearRelation::kEqual, 0);
    });
    model_.meanings.push_back(
        [=](const Assignment& values) { return values[z] == coefficient * values[x]; });
  }

  void AddRelation() {
    constexpr const char* kSymbols[] = {"<>", "<", "<=", "+"};
    const std::string_view symbol = kSymbols[Pick(0, 3)];
    const VariableId left = PickVariable();
    const VariableId right = PickVariable();
    const VariableId result = PickVariable();
    if (!IsInteger(left) || !IsInteger(right)) return;
    const auto* row = OpenModulesAndForeign().operators.Resolve(
        symbol, {model_.variables[left].kind, model_.variables[right].kind});
    const bool is_function = symbol == "+";
    if (is_function && row->GetResult() != model_.variables[result].kind) return;
    model_.posts.push_back([=](KivOmbNetwork& network) {
      network.Post(*row, left, right, is_function ? result : KivOmbNetwork::kNone);
    });
    const OperatorMeaning& meaning = *FindMeaning(symbol, 2);
    model_.meanings.push_back([=](const Assignment& values) {
      return meaning.holds(values[left], values[right], values[is_function ? result : right]);
    });
  }

  RandomModel& model_;
  std::mt19937_64 random_;
};

}  // namespace

RandomModel::RandomModel(std::uint64_t seed) { Generator(*this, seed).Generate(); }

void RandomModel::Build(KivOmbNetwork& network) const {
  for (const Declared& variable : variables) Declare(network, variable);
  for (const auto& post : posts) post(network);
}

std::vector<Assignment> RandomModel::Solve() const {
  return EnumerateSolutions(domains, [&](const Assignment& values) {
    return std::ranges::all_of(meanings, [&](const auto& holds) { return holds(values); });
  });
}

void ForEachSearch(const std::vector<KivOmbNetwork::VariableId>& decisions,
                   const std::function<void(const SearchOptions&)>& check) {
  for (const VariableChoice variable_choice : kVariableChoices) {
    for (const ValueChoice value_choice : kValueChoices) {
      for (const RestartPolicy& restarts : kRestartPolicies) {
        SCOPED_TRACE("variable choice " + std::to_string(static_cast<int>(variable_choice)) +
                     ", value choice " + std::to_string(static_cast<int>(value_choice)) +
                     ", restarts " + std::to_string(static_cast<int>(restarts.kind)));
        SearchOptions options;
        options.strategy = {{decisions, variable_choice, value_choice}};
        options.restarts = restarts;
        options.seed = 7;
        check(options);
      }
    }
  }
}

Assignment ValuesNow(const KivOmbNetwork& network) {
  Assignment values;
  for (VariableId id = 0; id < network.CountVariables(); ++id) {
    values.push_back(network.GetSummary(id).lower);
  }
  return values;
}

}  // namespace kiv::test
