// However an example is searched, it has the same answer: every choice of variables with every
// choice of values, with and without restarts.

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "solver/language/model_compiler.h"
#include "solver/search/default_search.h"
#include "solver/search/strategy_names.h"
#include "solver/search/tree_search.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

// An example, small enough for the worst of strategies.
struct Example {
  const char* name;
  std::map<std::string, ParameterValue> parameters;
  std::int64_t answer;  // how many solutions there are, or the optimum
};

void PrintTo(const Example& example, std::ostream* out) { *out << example.name; }

ParameterValue List(const std::vector<std::int64_t>& values) {
  return ParameterList(values.begin(), values.end());
}

ParameterValue Rows(const std::vector<std::vector<std::int64_t>>& rows) {
  ParameterList list;
  for (const auto& row : rows) list.push_back(List(row));
  return list;
}

std::vector<Example> SmallExamples() {
  return {
      {"send_more_money.kiv", {}, 1},
      {"send_more_money_equation.kiv", {}, 1},
      {"race.kiv", {}, 1},
      {"zebra.kiv", {}, 1},
      {"change.kiv", {}, 1},
      {"queens.kiv", {{"n", 6}}, 4},
      {"magic_square.kiv", {}, 8},
      {"magic_square_n.kiv", {{"n", 3}}, 1},
      {"quasigroup.kiv",
       {{"given", Rows({{1, 2, 3, 4}, {2, 0, 0, 0}, {3, 0, 0, 0}, {4, 0, 0, 0}})}},
       4},
      {"pythagorean_triples.kiv", {{"longest", 30}}, 11},
      {"taxi_number.kiv", {{"greatest", 14}}, 1729},
      {"map_colouring.kiv",
       {{"n", 5}, {"border", Rows({{1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 1}})}},
       3},
      {"golomb_ruler.kiv", {{"n", 5}, {"longest", 14}}, 11},
      {"knapsack.kiv",
       {{"limit", 20},
        {"weight", List({3, 7, 9})},
        {"worth", List({4, 10, 13})},
        {"stock", List({3, 2, 2})}},
       28},
      {"tour.kiv", {{"x", List({1, 8, 3, 6, 2, 9})}, {"y", List({2, 7, 9, 1, 5, 4})}}, 32},
      {"job_shop.kiv",
       {{"machine", Rows({{1, 2, 3}, {2, 1, 3}, {3, 1, 2}})},
        {"duration", Rows({{3, 2, 2}, {2, 1, 4}, {4, 3, 1}})}},
       10},
  };
}

class Strategies : public testing::TestWithParam<Example> {
 protected:
  void SetUp() override {
    const std::string path = std::string(KIV_SOURCE_DIR) + "/examples/" + GetParam().name;
    std::ifstream in(path);
    if (!in) throw std::runtime_error("cannot read " + path);
    std::ostringstream text;
    text << in.rdbuf();
    source_ = std::make_unique<SourceText>(GetParam().name, text.str());
  }

  std::unique_ptr<CompiledModel> Compile() const {
    static const Vocabulary vocabulary(OpenModules().manager.GetModules());
    CompileOptions options;
    options.parameters = GetParam().parameters;
    Diagnostics diagnostics(*source_);
    auto model = ReadModel(*source_, vocabulary, options, diagnostics);
    if (model == nullptr) {
      std::ostringstream errors;
      diagnostics.PrintOn(errors);
      throw std::runtime_error(errors.str());
    }
    return model;
  }

  // Searches everything in this way and compares the answer with the expected one, and the
  // solutions with those that were found before.
  void Check(const SearchOptions& options) {
    const auto model = Compile();
    SearchOptions search = options;
    const CompiledModel::Goal goal = model->GetGoal();
    if (goal.objective != KivOmbNetwork::kNone) {
      const bool least = goal.kind == GoalKind::kMinimize;
      search.objective = Objective{
          goal.objective, least ? Objective::Sense::kMinimize : Objective::Sense::kMaximize};
    }
    std::multiset<std::string> solutions;
    const SearchResult result =
        TreeSearch(model->GetNetwork(), search).Run([&](const SearchLeaf& leaf) {
          EXPECT_TRUE(leaf.complete);
          std::ostringstream text;
          model->PrintOn(text);
          solutions.insert(text.str());
          return true;
        });
    EXPECT_EQ(result.end, SearchEnd::kExhausted);
    if (search.objective) {
      EXPECT_EQ(result.best, GetParam().answer);
      return;
    }
    EXPECT_EQ(static_cast<std::int64_t>(solutions.size()), GetParam().answer);
    if (found_.empty()) found_ = solutions;
    EXPECT_EQ(solutions, found_);
  }

  std::unique_ptr<SourceText> source_;
  std::multiset<std::string> found_;
};

TEST_P(Strategies, AgreeOnTheAnswer) {
  const auto declared = Compile()->GetDeclared();
  Check(DefaultSearch(declared));
  for (const std::string& variables : GetVariableChoiceNames()) {
    for (const std::string& values : GetValueChoiceNames()) {
      for (const RestartPolicy::Kind restarts :
           {RestartPolicy::Kind::kNone, RestartPolicy::Kind::kLuby}) {
        SCOPED_TRACE(variables + ',' + values +
                     (restarts == RestartPolicy::Kind::kNone ? "" : " with restarts"));
        SearchOptions options;
        options.strategy = {{declared, *FindVariableChoice(variables), *FindValueChoice(values)}};
        options.restarts = {restarts, 5};
        Check(options);
        if (HasFailure()) return;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Examples, Strategies, testing::ValuesIn(SmallExamples()),
                         [](const testing::TestParamInfo<Example>& example) {
                           const std::string name = example.param.name;
                           return name.substr(0, name.find('.'));
                         });

}  // namespace
}  // namespace kiv::test
