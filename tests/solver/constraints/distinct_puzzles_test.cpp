// Numbers of solutions that are known, found by search, and what a search allocates.

#include <gtest/gtest.h>

#include <functional>

#include "solver/constraints/among.h"
#include "solver/constraints/circuit.h"
#include "solver/constraints/count.h"
#include "solver/constraints/global_cardinality.h"
#include "solver/constraints/inverse.h"
#include "solver/constraints/number_of_values.h"
#include "solver/constraints/post_all_different.h"
#include "solver/constraints/subcircuit.h"
#include "tests/support/counted_memory.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;

std::vector<VariableId> DeclareMany(KivOmbNetwork& network, int count, const Values& values,
                                    const char* kind = "enum int") {
  std::vector<VariableId> variables;
  for (int i = 0; i < count; ++i) {
    variables.push_back(Declare(network, {OpenModules().FindKind(kind), values}));
  }
  return variables;
}

class Puzzles : public testing::TestWithParam<AllDifferentStrength> {};

TEST_P(Puzzles, EightQueensStandIn92Ways) {
  for (const char* kind : {"enum int", "interval int"}) {
    KivOmbNetwork network;
    const auto rows = DeclareMany(network, 8, Range(1, 8), kind);
    TermOffsets up;
    TermOffsets down;
    for (std::int32_t column = 0; column < 8; ++column) {
      up.push_back(column);
      down.push_back(-column);
    }
    PostAllDifferent(network, rows, GetParam());
    PostAllDifferent(network, rows, GetParam(), up);
    PostAllDifferent(network, rows, GetParam(), down);
    EXPECT_EQ(SearchSolutions(network).size(), 92u);
  }
}

TEST_P(Puzzles, ThereAre576LatinSquaresOfOrderFour) {
  KivOmbNetwork network;
  const auto cells = DeclareMany(network, 16, Range(1, 4));
  for (std::size_t line = 0; line < 4; ++line) {
    std::vector<VariableId> row;
    std::vector<VariableId> column;
    for (std::size_t i = 0; i < 4; ++i) {
      row.push_back(cells[4 * line + i]);
      column.push_back(cells[4 * i + line]);
    }
    PostAllDifferent(network, row, GetParam());
    PostAllDifferent(network, column, GetParam());
  }
  EXPECT_EQ(SearchSolutions(network).size(), 576u);
}

INSTANTIATE_TEST_SUITE_P(Strengths, Puzzles,
                         testing::Values(AllDifferentStrength::kValues,
                                         AllDifferentStrength::kBounds,
                                         AllDifferentStrength::kDomain,
                                         AllDifferentStrength::kAutomatic));

// As many as there are ways to order the four places after the first.
TEST(CircuitPuzzles, FivePlacesHave24Circuits) {
  KivOmbNetwork network;
  PostCircuit(network, DeclareMany(network, 5, Range(1, 5)), 1);
  EXPECT_EQ(SearchSolutions(network).size(), 24u);
}

// None, and those of two, three, four places: 1 + 6 * 1 + 4 * 2 + 6.
TEST(CircuitPuzzles, FourPlacesHave21Subcircuits) {
  KivOmbNetwork network;
  PostSubcircuit(network, DeclareMany(network, 4, Range(0, 3)), 0);
  EXPECT_EQ(SearchSolutions(network).size(), 21u);
}

// A sequence whose element i says how often i is in it: of length 4 there are two.
TEST(CountingPuzzles, MagicSequencesCountThemselves) {
  for (const auto& [length, sequences] : {std::pair{3, 0u}, {4, 2u}, {5, 1u}, {6, 0u}, {7, 1u}}) {
    KivOmbNetwork network;
    const auto elements = DeclareMany(network, length, Range(0, length));
    std::vector<VariableId> arguments = elements;
    arguments.insert(arguments.end(), elements.begin(), elements.end());
    network.Emplace<GlobalCardinality>(arguments, Range(0, length - 1),
                                       GlobalCardinality::Cover::kClosed);
    EXPECT_EQ(SearchSolutions(network).size(), sequences) << length;
  }
}

// The involutions among the permutations of four.
TEST(InversePuzzles, TenPermutationsOfFourAreTheirOwnInverse) {
  KivOmbNetwork network;
  const auto f = DeclareMany(network, 4, Range(0, 3));
  PostInverse(network, f, f, 0, 0);
  EXPECT_EQ(SearchSolutions(network).size(), 10u);
}

struct Posting {
  const char* name;
  void (*post)(KivOmbNetwork&, const std::vector<VariableId>&);
};

class SteadyState : public testing::TestWithParam<Posting> {};

TEST_P(SteadyState, DescendingAndBacktrackingAgainAllocatesNothing) {
#ifndef NDEBUG
  GTEST_SKIP() << "assertions ask for the ground truth, which takes memory";
#endif
  KivOmbNetwork network;
  const auto variables = DeclareMany(network, 8, Range(0, 7));
  GetParam().post(network, variables);
  ASSERT_EQ(network.Propagate(), KivOmbNetwork::Outcome::kFixpoint);
  const auto descend = [&](std::uint32_t way) {
    unsigned depth = 0;
    for (; depth < 30; ++depth) {
      const auto variable = variables[(way + depth) % variables.size()];
      if (network.GetSummary(variable).IsFixed()) continue;
      network.PushLevel();
      network.Update(variable, [&](KivOmbiAny& domain) {
        auto& integer = static_cast<KivOmbiInteger&>(domain);
        integer.RemoveExactValue((way + depth) % 3 == 0 ? integer.GetLowerBound()
                                                        : integer.GetUpperBound());
      });
      if (network.Propagate() != KivOmbNetwork::Outcome::kFixpoint) break;
    }
    while (network.GetLevel() > 0) network.PopLevel();
  };
  for (std::uint32_t way = 0; way < 48; ++way) descend(way);
  const std::size_t before = CountAllocations();
  const auto runs = network.GetStatistics().runs;
  for (std::uint32_t way = 0; way < 48; ++way) descend(way);
  EXPECT_EQ(CountAllocations(), before);
  EXPECT_GT(network.GetStatistics().runs, runs + 48);
}

const Posting kPostings[] = {
    {"AllDifferentBounds",
     [](KivOmbNetwork& network, const std::vector<VariableId>& variables) {
       PostAllDifferent(network, variables, AllDifferentStrength::kBounds);
     }},
    {"AllDifferentDomain",
     [](KivOmbNetwork& network, const std::vector<VariableId>& variables) {
       PostAllDifferent(network, variables, AllDifferentStrength::kDomain);
     }},
    {"Among",
     [](KivOmbNetwork& network, const std::vector<VariableId>& variables) {
       network.Emplace<Among>(variables, Values{1, 2, 5});
     }},
    {"Count", [](KivOmbNetwork& network,
                 const std::vector<VariableId>& variables) { network.Emplace<Count>(variables); }},
    {"NumberOfValues",
     [](KivOmbNetwork& network, const std::vector<VariableId>& variables) {
       network.Emplace<NumberOfValues>(variables);
     }},
    {"GlobalCardinality",
     [](KivOmbNetwork& network, const std::vector<VariableId>& variables) {
       network.Emplace<GlobalCardinality>(variables, Values{5, 2},
                                          std::vector<GlobalCardinality::Limits>{{1, 3}, {2, 4}},
                                          GlobalCardinality::Cover::kOpen);
     }},
    {"Inverse",
     [](KivOmbNetwork& network, const std::vector<VariableId>& variables) {
       PostInverse(network, variables, variables, 0, 0);
     }},
    {"Circuit",
     [](KivOmbNetwork& network, const std::vector<VariableId>& variables) {
       PostCircuit(network, variables, 0);
     }},
    {"Subcircuit",
     [](KivOmbNetwork& network, const std::vector<VariableId>& variables) {
       PostSubcircuit(network, variables, 0);
     }},
};

INSTANTIATE_TEST_SUITE_P(Postings, SteadyState, testing::ValuesIn(kPostings),
                         [](const auto& posting) { return std::string(posting.param.name); });

}  // namespace
}  // namespace kiv::test
