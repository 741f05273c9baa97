#include "solver/constraints/bit_matching.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "solver/constraints/value_matching.h"
#include "tests/support/random.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

struct Graph {
  std::size_t words;
  std::vector<BitWords> rows;  // by term
};

// Terms that have few values each, near each other, so that most graphs have groups of terms with
// as many values as terms.
Graph RandomGraph(Generator& random) {
  Graph graph{static_cast<std::size_t>(Pick(random, 1, 4)), {}};
  const int last = static_cast<int>(graph.words * kBitsPerWord) - 1;
  const int step = Pick(random, 1, last / 12);
  const int start = Pick(random, 0, last - 11 * step);
  const int most = Pick(random, 1, 5);
  for (int terms = Pick(random, 1, 11); terms > 0; --terms) {
    BitWords& row = graph.rows.emplace_back(graph.words, 0);
    const int near = Pick(random, 0, 11);
    for (int values = Pick(random, 1, most); values > 0; --values) {
      const int place = start + step * ((near + Pick(random, 0, 3)) % 12);
      row[static_cast<std::size_t>(place) / kBitsPerWord] |= BitOf(static_cast<std::size_t>(place));
    }
  }
  return graph;
}

// One object for all graphs. Half of the terms name a value that they would like.
TEST(BitMatching, ClassifiesAsValueMatchingDoes) {
  const std::uint64_t first = Seed(1);
  std::size_t with_matching = 0;
  std::size_t with_impossible = 0;
  BitMatching bits;
  for (std::uint64_t seed = first; seed < first + Times(20000); ++seed) {
    Generator random(seed);
    const Graph graph = RandomGraph(random);
    const auto terms = static_cast<unsigned>(graph.rows.size());
    ValueMatching plain;
    plain.Start(terms);
    bits.Start(terms, graph.words);
    for (unsigned term = 0; term < terms; ++term) {
      plain.AddTerm(term);
      ForEachBit(graph.rows[term],
                 [&](std::size_t place) { plain.AddValue(static_cast<std::int64_t>(place)); });
      std::ranges::copy(graph.rows[term], bits.Row(term).begin());
      if (OneIn(random, 2)) bits.Prefer(term, static_cast<unsigned>(Pick(random, 0, 299)));
    }
    const bool possible = plain.Match();
    ASSERT_EQ(bits.Match(), possible) << Replay(seed);
    if (!possible) continue;
    ++with_matching;
    BitWords taken(graph.words, 0);
    for (unsigned term = 0; term < terms; ++term) {
      const unsigned place = bits.PlaceOf(term);
      ASSERT_TRUE(HasBit(graph.rows[term], place)) << Replay(seed);
      ASSERT_FALSE(HasBit(taken, place)) << Replay(seed);
      taken[place / kBitsPerWord] |= BitOf(place);
    }
    plain.Classify();
    bits.Classify();
    std::vector<std::int64_t> always;
    ForEachBit(bits.AlwaysTaken(),
               [&](std::size_t place) { always.push_back(static_cast<std::int64_t>(place)); });
    ASSERT_TRUE(std::ranges::equal(plain.AlwaysTaken(), always)) << Replay(seed);
    for (unsigned term = 0; term < terms; ++term) {
      BitWords impossible(graph.words, 0);
      for (const auto& edge : plain.Edges(term)) {
        const auto place = static_cast<std::size_t>(edge.value);
        if (!edge.possible) impossible[place / kBitsPerWord] |= BitOf(place);
      }
      ASSERT_TRUE(std::ranges::equal(bits.Row(term), impossible)) << Replay(seed);
      with_impossible += std::ranges::count(impossible, BitWord{0}) != std::ssize(impossible);
    }
  }
  EXPECT_GT(with_matching, Times(20000) / 10);
  EXPECT_GT(with_impossible, Times(20000) / 10);
}

// Each term takes the first of its two values, until the last one wants the first of all.
TEST(BitMatching, AChainMovesUpAsAWhole) {
  constexpr unsigned kTerms = 1000;
  BitMatching matching;
  matching.Start(kTerms + 1, CountWords(kTerms + 1));
  for (unsigned term = 0; term <= kTerms; ++term) {
    const auto row = matching.Row(term);
    std::ranges::fill(row, 0);
    const unsigned place = term < kTerms ? term : 0;
    row[place / kBitsPerWord] |= BitOf(place);
    if (term < kTerms) row[(place + 1) / kBitsPerWord] |= BitOf(place + 1);
  }
  ASSERT_TRUE(matching.Match());
  matching.Classify();
  for (unsigned term = 0; term < kTerms; ++term) {
    ASSERT_EQ(matching.PlaceOf(term), term + 1);
    ASSERT_TRUE(HasBit(matching.Row(term), term));
    ASSERT_FALSE(HasBit(matching.Row(term), term + 1));
  }
}

}  // namespace
}  // namespace kiv::test
