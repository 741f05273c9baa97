#include <algorithm>
#include <vector>

#include "solver/constraints/regular.h"
#include "solver/constraints/table.h"
#include "solver/flatzinc/poster_table.h"
#include "solver/language/declared_domain.h"

namespace kiv::flatzinc {
namespace {

// variables, the rows of the table one after the other
void PostTable(const Posting& posting) {
  const auto variables = posting.GetVariables(0);
  const auto cells = posting.GetElements(1);
  const std::size_t arity = variables.size();
  if (arity == 0 ? !cells.empty() : cells.size() % arity != 0) {
    posting.Refuse("takes rows with a value for each of its variables");
  }
  if (cells.size() > TupleIndex::kMostCells) {
    posting.Refuse("takes at most " + std::to_string(TupleIndex::kMostCells) + " values in rows");
  }
  std::vector<std::int32_t> possible;
  for (std::size_t row = 0; row < cells.size(); row += arity) {
    const auto values = cells.subspan(row, arity);
    const bool is_possible = std::ranges::all_of(
        values, [](Expression value) { return IsModelInteger(value.GetValue()); });
    if (!is_possible) continue;
    for (const Expression value : values) {
      possible.push_back(static_cast<std::int32_t>(value.GetValue()));
    }
  }
  if (possible.empty()) return posting.PostContradiction();
  const std::size_t count = possible.size() / arity;
  posting.GetNetwork().Emplace<Table>(variables, static_cast<unsigned>(arity), count,
                                      std::move(possible));
}

// The states of an automaton: numbers from 1 on in the text, from 0 on in the constraint.
unsigned CountStates(const Posting& posting) {
  const std::int32_t states = posting.NarrowConstant(posting.GetInteger(1));
  if (states < 1) posting.Refuse("takes an automaton of at least one state");
  return static_cast<unsigned>(states);
}

unsigned GetState(const Posting& posting, std::int64_t state) {
  if (state < 1 || state > posting.GetInteger(1)) {
    posting.Refuse("names a state that it does not have");
  }
  return static_cast<unsigned>(state - 1);
}

// word, number of states, symbols, what follows each state by each symbol, start, accepting states.
// `add(following, from, symbol)` adds the arcs for an element of the fourth argument.
template <class Add>
void PostAutomaton(const Posting& posting, const std::vector<Regular::Arc>& arcs, Add&& add) {
  const unsigned states = CountStates(posting);
  const auto symbols = posting.GetIntegers(2);
  const auto following = posting.GetElements(3);
  if (following.size() != states * symbols.size()) {
    posting.Refuse("takes what follows for each pair of a state and a symbol");
  }
  for (std::size_t i = 0; i < following.size(); ++i) {
    const std::int64_t symbol = symbols[i % symbols.size()];
    if (!IsModelInteger(symbol)) continue;  // no variable can have it
    add(following[i], static_cast<unsigned>(i / symbols.size()), static_cast<std::int32_t>(symbol));
  }
  std::vector<unsigned> accepting;
  const Domain accepted = posting.GetSet(5);
  for (unsigned state = 0; state < states; ++state) {
    if (accepted.Contains(std::int64_t{state} + 1)) accepting.push_back(state);
  }
  posting.GetNetwork().Emplace<Regular>(posting.GetVariables(0), states, arcs,
                                        GetState(posting, posting.GetInteger(4)), accepting);
}

// One state follows, or none: 0.
void PostRegular(const Posting& posting) {
  std::vector<Regular::Arc> arcs;
  PostAutomaton(posting, arcs, [&](Expression to, unsigned from, std::int32_t symbol) {
    if (to.GetValue() != 0) arcs.push_back({from, symbol, GetState(posting, to.GetValue())});
  });
}

// A set of states follows.
void PostNondeterministicRegular(const Posting& posting) {
  std::vector<Regular::Arc> arcs;
  const unsigned states = CountStates(posting);
  PostAutomaton(posting, arcs, [&](Expression following, unsigned from, std::int32_t symbol) {
    const Domain set = posting.GetSet(following);
    for (unsigned to = 0; to < states; ++to) {
      if (set.Contains(std::int64_t{to} + 1)) arcs.push_back({from, symbol, to});
    }
  });
}

constexpr Poster kPosters[] = {
    {"kiv_table_int", "I=I", PostTable},
    {"kiv_table_bool", "B=B", PostTable},
    {"kiv_regular", "I=i=I=I=is", PostRegular},
    {"kiv_regular_nfa", "I=i=IS=is", PostNondeterministicRegular},
};

}  // namespace

std::span<const Poster> ExtensionalPosters() { return kPosters; }

}  // namespace kiv::flatzinc
