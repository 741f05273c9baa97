// The operators over booleans, tried exhaustively: every domain of every argument, every way in
// which arguments can be one variable, and posting before or after the variables are narrowed.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "framework/abstract_types/boolean.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"
#include "tests/support/operator_meaning.h"

namespace kiv::test {
namespace {

using Row = KivOmbiCompoundObjectDescriptor;
using VariableId = KivOmbNetwork::VariableId;

const Values kDomains[] = {{0}, {1}, {0, 1}};

std::vector<const Row*> TruthRows() {
  std::vector<const Row*> rows;
  for (const Row* row : OpenModules().operators.GetRows()) {
    const KivOmbiObjectDescriptor* boolean = OpenModules().FindKind("bool");
    bool all = true;
    for (unsigned i = 0; i < row->GetOperandCount(); ++i) all &= row->GetOperand(i) == boolean;
    if (all) rows.push_back(row);
  }
  return rows;
}

// An operator with its operands and result, each one of the variables 0, 1 and 2.
struct Application {
  const Row* row;
  std::vector<VariableId> arguments;  // operands as written, then the result
  std::vector<Values> domains;        // of the variables

  bool Holds(const Assignment& values) const {
    const OperatorMeaning* meaning = FindMeaning(row->GetSymbol(), row->GetOperandCount());
    const std::int64_t left = values[arguments.front()];
    const std::int64_t right = arguments.size() == 3 ? values[arguments[1]] : 0;
    return meaning->holds(left, right, values[arguments.back()]);
  }
  std::vector<Assignment> Solutions(const std::vector<Values>& among) const {
    return EnumerateSolutions(among, [&](const Assignment& values) { return Holds(values); });
  }
  void Post(KivOmbNetwork& network) const {
    const auto right = arguments.size() == 3 ? arguments[1] : KivOmbNetwork::kNone;
    network.Post(*row, arguments.front(), right, arguments.back());
  }
  void AddVariables(KivOmbNetwork& network) const {
    const KivOmbiObjectDescriptor* boolean = OpenModules().FindKind("bool");
    for (std::size_t i = 0; i < domains.size(); ++i) Declare(network, {boolean, {0, 1}});
  }
  void Narrow(KivOmbNetwork& network) const {
    for (VariableId i = 0; i < domains.size(); ++i) {
      if (domains[i].size() == 1) Fix(network, i, domains[i][0]);
    }
  }
  static void Fix(KivOmbNetwork& network, VariableId variable, std::int32_t value) {
    network.Update(variable, [value](KivOmbiAny& domain) {
      static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(value != 0);
    });
  }
  std::vector<Values> DomainsOf(const KivOmbNetwork& network) const {
    std::vector<Values> left;
    for (VariableId i = 0; i < domains.size(); ++i) left.push_back(ValuesOf(network, i));
    return left;
  }
  std::string Describe() const {
    std::string text = row->GetSymbol() + " over";
    for (const VariableId argument : arguments) text += ' ' + std::to_string(argument);
    return text + ": " +
           Print({{row->GetResult(), domains[0]},
                  {row->GetResult(), domains[1]},
                  {row->GetResult(), domains[2]}});
  }
};

void ForEachApplication(const std::function<void(const Application&)>& test) {
  for (const Row* row : TruthRows()) {
    const unsigned count = row->GetOperandCount() + 1;
    unsigned aliasings = 1;
    for (unsigned i = 0; i < count; ++i) aliasings *= 3;
    for (unsigned aliasing = 0; aliasing < aliasings; ++aliasing) {
      std::vector<VariableId> arguments;
      for (unsigned i = 0, rest = aliasing; i < count; ++i, rest /= 3) {
        arguments.push_back(rest % 3);
      }
      for (unsigned choice = 0; choice < 27; ++choice) {
        const Application application{
            row, arguments, {kDomains[choice % 3], kDomains[choice / 3 % 3], kDomains[choice / 9]}};
        SCOPED_TRACE(application.Describe());
        test(application);
        if (testing::Test::HasFailure()) return;
      }
    }
  }
}

TEST(TruthOperators, AreRegistered) {
  std::vector<std::string> symbols;
  for (const Row* row : TruthRows()) symbols.push_back(row->GetSymbol());
  EXPECT_EQ(symbols, (std::vector<std::string>{"=", "<>", "==", "and", "or", "=>", "xor", "not"}));
}

TEST(TruthOperators, KeepTheSolutionsOfEnumeration) {
  ForEachApplication([](const Application& application) {
    const std::vector<Assignment> expected = application.Solutions(application.domains);
    KivOmbNetwork last;
    application.AddVariables(last);
    application.Narrow(last);
    application.Post(last);
    EXPECT_EQ(SearchSolutions(last), expected);

    KivOmbNetwork first;
    application.AddVariables(first);
    application.Post(first);
    first.Propagate();
    application.Narrow(first);
    EXPECT_EQ(SearchSolutions(first), expected);
  });
}

TEST(TruthOperators, ConnectivesKeepOnlyWhatIsPartOfASolutionAndRestOnceEntailed) {
  ForEachApplication([](const Application& application) {
    const std::string& symbol = application.row->GetSymbol();
    if (symbol == "=" || symbol == "<>" || symbol == "==") return;
    KivOmbNetwork network;
    application.AddVariables(network);
    application.Narrow(network);
    application.Post(network);
    const std::vector<Assignment> solutions = application.Solutions(application.domains);
    const auto outcome = network.Propagate();
    if (solutions.empty()) {
      EXPECT_EQ(outcome, KivOmbNetwork::Outcome::kContradiction);
      return;
    }
    ASSERT_EQ(outcome, KivOmbNetwork::Outcome::kFixpoint);
    const std::vector<Values> left = application.DomainsOf(network);
    for (std::size_t variable = 0; variable < left.size(); ++variable) {
      for (const std::int32_t value : left[variable]) {
        EXPECT_TRUE(std::ranges::any_of(
            solutions, [&](const Assignment& solution) { return solution[variable] == value; }))
            << "variable " << variable << " keeps " << value;
      }
    }

    const std::size_t choices = std::accumulate(
        left.begin(), left.end(), std::size_t{1},
        [](std::size_t product, const Values& values) { return product * values.size(); });
    if (application.Solutions(left).size() < choices) return;
    const auto runs = network.GetStatistics().runs;
    for (VariableId i = 0; i < left.size(); ++i) Application::Fix(network, i, left[i].back());
    EXPECT_EQ(network.Propagate(), KivOmbNetwork::Outcome::kFixpoint);
    EXPECT_EQ(network.GetStatistics().runs, runs);
  });
}

}  // namespace
}  // namespace kiv::test
