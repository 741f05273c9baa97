// Whole networks against brute force: variables of every kind under several constraints of all
// rows, repeated variables and relations without a value included, and results that are unknown
// until their operands are found. A network counts as one constraint, so that it is posted in every
// order, searched, and walked down and up again like one; see tests/support/constraint_case.h.
//
// KIV_NETWORKS=<count> tries that many networks instead of 10000, KIV_SEED=<n> starts from seed n.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <set>

#include "tests/support/constraint_case.h"
#include "tests/support/kind_shape.h"
#include "tests/support/modules.h"
#include "tests/support/posted_row.h"
#include "tests/support/random_variables.h"
#include "tests/support/seed.h"
#include "tests/support/shrink.h"

namespace kiv::test {
namespace {

using Type = OperatorMeaning::Type;
using VariableId = KivOmbNetwork::VariableId;

constexpr std::size_t kMostVariables = 6;

struct NetworkCase {
  std::vector<PostedRow> rows;
  ConstraintCase constraint;  // all of the rows, over all variables
};

NetworkCase Build(std::vector<PostedRow> rows, std::vector<Declared> variables,
                  std::vector<VariableId> arguments) {
  std::string name = "network";
  for (const PostedRow& posted : rows) name += "\n  " + Print(posted);
  ConstraintCase constraint{.name = name + "\n  over",
                            .variables = std::move(variables),
                            .arguments = std::move(arguments),
                            .post =
                                [rows](KivOmbNetwork& network, auto posted_over) {
                                  for (const PostedRow& posted : rows)
                                    posted.Post(network, posted_over);
                                },
                            .holds =
                                [rows](const Assignment& values) {
                                  return std::ranges::all_of(rows, [&](const PostedRow& posted) {
                                    return posted.Holds(values);
                                  });
                                },
                            .determines = true,
                            .propagates_unknown = false};
  return {std::move(rows), std::move(constraint)};
}

// With one row less, or smaller variables.
std::vector<NetworkCase> SmallerNetworks(const NetworkCase& network) {
  std::vector<NetworkCase> smaller;
  const ConstraintCase& constraint = network.constraint;
  for (std::size_t i = 0; i < network.rows.size(); ++i) {
    std::vector<PostedRow> rows = network.rows;
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(i));
    std::vector<Declared> variables = constraint.variables;
    // A result that was unknown would never be found out without its row.
    const std::size_t result = network.rows[i].result;
    if (result != PostedRow::kNone) {
      Declared& variable = variables[constraint.arguments[result]];
      if (variable.unknown) variable = {variable.kind, {variable.values.front()}};
    }
    smaller.push_back(Build(std::move(rows), std::move(variables), constraint.arguments));
  }
  for (ConstraintCase& variables : SmallerCases(constraint)) {
    smaller.push_back({network.rows, std::move(variables)});
  }
  return smaller;
}

std::optional<std::string> FindNetworkFailure(const NetworkCase& network, std::uint64_t seed) {
  return FindFailure(network.constraint, seed);
}

class NetworkGenerator {
 public:
  explicit NetworkGenerator(std::uint64_t seed) : random_(seed) {}

  NetworkCase Generate() {
    const int count = Pick(random_, 3, static_cast<int>(kMostVariables));
    const int known = count - Pick(random_, 0, 1);
    while (static_cast<int>(variables_.size()) < known) AddVariable();
    while (static_cast<int>(variables_.size()) < count) {
      if (!AddUnknownResult()) AddVariable();
    }
    const std::size_t rows = static_cast<std::size_t>(Pick(random_, 2, 8));
    for (int attempt = 0; rows_.size() < rows && attempt < 400; ++attempt) AddRow();
    std::vector<VariableId> arguments(variables_.size());
    std::iota(arguments.begin(), arguments.end(), VariableId{0});
    return Build(std::move(rows_), std::move(variables_), std::move(arguments));
  }

 private:
  void AddVariable() {
    const KivOmbiObjectDescriptor* kind = PickOf(random_, OpenModulesAndForeign().kinds);
    const Values values = RandomValues(random_, *kind, RandomFlavour(random_));
    variables_.push_back({kind, values});
    planted_.push_back(PickOf(random_, values));
  }

  std::size_t PickVariable() {
    return static_cast<std::size_t>(Pick(random_, 0, static_cast<int>(variables_.size()) - 1));
  }

  // A row over random operands that resolves to it, its result left out; null when none does.
  PostedRow PickRow() {
    const auto& operators = OpenModulesAndForeign().operators;
    const auto* any_row = PickOf(random_, operators.GetRows());
    PostedRow posted{nullptr, PickVariable(), PostedRow::kNone, PostedRow::kNone};
    std::vector<const KivOmbiObjectDescriptor*> kinds{variables_[posted.left].kind};
    if (any_row->GetOperandCount() == 2) {
      posted.right = PickVariable();
      kinds.push_back(variables_[posted.right].kind);
    }
    posted.row = operators.Resolve(any_row->GetSymbol(), kinds);
    return posted;
  }

  // Adds a row whose result is a new variable that starts unknown. Only where enumeration can try
  // all that the result may be.
  bool AddUnknownResult() {
    for (int attempt = 0; attempt < 20; ++attempt) {
      PostedRow posted = PickRow();
      if (posted.row == nullptr || !posted.row->GetConstraint()->CanPropagate()) continue;
      const Type type = MeaningOf(*posted.row)->type;
      if (type == Type::kQuotient || type == Type::kTruth) continue;
      if (ShapeOf(*posted.row->GetResult()) == KindShape::kTruth) continue;
      const Values results = ResultsOf(posted);
      if (results.empty()) continue;
      posted.result = variables_.size();
      variables_.push_back({posted.row->GetResult(), results, true});
      planted_.push_back(PickOf(random_, results));
      rows_.push_back(posted);
      return true;
    }
    return false;
  }

  // What the result may be by the values of the operands; nothing when some of them have no small
  // result.
  Values ResultsOf(const PostedRow& posted) const {
    static const Values tried = Range(-200, 200);
    const OperatorMeaning& meaning = *MeaningOf(*posted.row);
    if (meaning.type == Type::kRelation) return variables_[posted.right].values;
    const Values rights =
        posted.right == PostedRow::kNone ? Values{0} : variables_[posted.right].values;
    std::set<std::int32_t> results;
    for (const std::int32_t left : variables_[posted.left].values) {
      for (const std::int32_t right : rights) {
        const auto result = std::ranges::find_if(
            tried, [&](std::int32_t value) { return meaning.holds(left, right, value); });
        if (result == tried.end()) return {};
        results.insert(*result);
      }
    }
    return {results.begin(), results.end()};
  }

  // Most rows hold for the planted values, or few networks would have a solution.
  void AddRow() {
    PostedRow posted = PickRow();
    if (posted.row == nullptr) return;
    const bool needs_result = MeaningOf(*posted.row)->type != Type::kRelation;
    if (needs_result || OneIn(random_, 2)) {
      posted.result = PickVariable();
      if (variables_[posted.result].kind != posted.row->GetResult()) return;
    }
    if (!posted.Holds(planted_) && !OneIn(random_, 60)) return;
    rows_.push_back(posted);
  }

  Generator random_;
  std::vector<Declared> variables_;
  Assignment planted_;
  std::vector<PostedRow> rows_;
};

TEST(RandomNetworks, StandUnderBruteForce) {
  const char* count = std::getenv("KIV_NETWORKS");
  const std::uint64_t networks =
      count != nullptr ? std::strtoull(count, nullptr, 10) : Times(10000);
  const std::uint64_t first = Seed(100);
  std::uint64_t with_solutions = 0;
  std::uint64_t with_unknowns = 0;
  std::uint64_t rows = 0;
  for (std::uint64_t seed = first; seed < first + networks; ++seed) {
    const NetworkCase network = NetworkGenerator(seed).Generate();
    if (const auto failure = FindNetworkFailure(network, seed)) {
      const auto [smallest, shortest] =
          Shrink(network, *failure, seed, SmallerNetworks, FindNetworkFailure);
      FAIL() << Print(network.constraint) << "\n"
             << *failure << "\n"
             << Replay(seed) << "\nsmallest network that fails: " << Print(smallest.constraint)
             << "\n"
             << shortest;
    }
    KivOmbNetwork posted;
    for (const Declared& variable : network.constraint.variables) Declare(posted, variable);
    network.constraint.post(posted, network.constraint.arguments);
    with_solutions += !SearchSolutions(posted).empty();
    with_unknowns += std::ranges::any_of(network.constraint.variables, &Declared::unknown);
    rows += network.rows.size();
  }
  RecordProperty("with_solutions", std::to_string(with_solutions));
  RecordProperty("with_unknowns", std::to_string(with_unknowns));
  // Networks without a solution, or of a constraint or two, would prove little.
  if (networks >= 1000) {
    EXPECT_GT(with_solutions, networks / 3);
    EXPECT_GT(with_unknowns, networks / 10);
    EXPECT_GT(rows, networks * 3);
  }
}

// What the test relies on when it fails: a wrong network becomes a small one.
TEST(RandomNetworks, ShrinkToTheRowThatIsWrong) {
  const auto* set = OpenModules().FindKind("enum int");
  const auto row = [&](std::string_view symbol) {
    return OpenModules().operators.Resolve(symbol, {set, set});
  };
  const NetworkCase sound =
      Build({{row("+"), 0, 1, 2}, {row("<"), 0, 1, PostedRow::kNone}, {row("<>"), 1, 2, 1}},
            {{set, {1, 2, 3}}, {set, {1, 2, 4}}, {set, {}, true}}, {0, 1, 2});
  const auto finds = [](const NetworkCase& network, std::uint64_t) {
    const bool has_order = std::ranges::any_of(
        network.rows, [](const PostedRow& posted) { return posted.row->GetSymbol() == "<"; });
    return has_order ? std::optional<std::string>("an order") : std::nullopt;
  };
  NetworkCase declared = sound;
  declared.constraint.variables[2].values = {2, 3, 4, 5, 6, 7};
  const auto shrunk = Shrink(declared, "an order", 1, SmallerNetworks, finds);
  EXPECT_EQ(shrunk.smallest.rows.size(), 1u);
  EXPECT_EQ(Print(shrunk.smallest.constraint.variables), "enum int { 1 }");
}

}  // namespace
}  // namespace kiv::test
