#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "solver/constraints/regular.h"
#include "solver/constraints/table.h"
#include "solver/constraints/values.h"
#include "solver/flatzinc/poster_table.h"
#include "solver/language/declared_domain.h"

namespace kiv::flatzinc {
namespace {

// The most tuples that a table with a truth value is spelt out for.
constexpr std::uint64_t kMostSpelt = 4096;

// The rows of the table that variables can have, one after the other.
std::vector<std::int32_t> GetPossibleRows(const Posting& posting, std::size_t arity) {
  const auto cells = posting.GetElements(1);
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
  return possible;
}

// variables, the rows of the table one after the other
template <TruthForm form>
void PostTable(const Posting& posting) {
  auto variables = posting.GetVariables(0);
  const std::size_t arity = variables.size();
  auto rows = GetPossibleRows(posting, arity);
  if (rows.empty()) return posting.Decide(false, form);
  const std::size_t count = rows.size() / arity;
  posting.Emplace<Table>(form, std::move(variables), static_cast<unsigned>(arity), count,
                         std::move(rows));
}

// The values of each of the variables, if there are few choices of one for each.
std::optional<std::vector<std::vector<std::int32_t>>> ListFewValues(
    const Posting& posting, const std::vector<Posting::VariableId>& variables) {
  std::vector<std::vector<std::int32_t>> lists;
  std::uint64_t choices = 1;
  for (const Posting::VariableId variable : variables) {
    const KivOmbiDomainSummary& summary = posting.GetNetwork().GetSummary(variable);
    if (!IsListable(summary)) return std::nullopt;
    choices *= summary.cardinality;
    if (choices > kMostSpelt) return std::nullopt;
    const auto& domain =
        static_cast<const KivOmbiInteger&>(posting.GetNetwork().GetDomain(variable));
    ForEachValue(domain, summary,
                 [&, &list = lists.emplace_back()](std::int32_t value) { list.push_back(value); });
  }
  return lists;
}

// Where there are few choices of values, a table that has each of them with its truth tells more
// than asking for the truth.
void PostReifiedTable(const Posting& posting) {
  auto variables = posting.GetVariables(0);
  const std::size_t arity = variables.size();
  const auto rows = GetPossibleRows(posting, arity);
  const auto lists = ListFewValues(posting, variables);
  if (rows.empty() || !lists) return PostTable<TruthForm::kReified>(posting);
  std::set<std::vector<std::int32_t>> members;
  for (auto row = rows.begin(); row != rows.end(); row += static_cast<std::ptrdiff_t>(arity)) {
    members.emplace(row, row + static_cast<std::ptrdiff_t>(arity));
  }
  std::vector<std::int32_t> cells;
  std::vector<std::size_t> choice(arity, 0);  // positions in lists, counted up like a number
  std::vector<std::int32_t> tuple(arity);
  for (std::size_t digit = 0; digit < arity;) {
    for (std::size_t i = 0; i < arity; ++i) tuple[i] = (*lists)[i][choice[i]];
    cells.insert(cells.end(), tuple.begin(), tuple.end());
    cells.push_back(members.contains(tuple) ? 1 : 0);
    for (digit = 0; digit < arity && ++choice[digit] == (*lists)[digit].size(); ++digit) {
      choice[digit] = 0;
    }
  }
  variables.push_back(posting.GetVariable(2));
  const std::size_t count = cells.size() / (arity + 1);
  posting.GetNetwork().Emplace<Table>(variables, static_cast<unsigned>(arity + 1), count,
                                      std::move(cells));
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
void PostAutomaton(const Posting& posting, TruthForm form, const std::vector<Regular::Arc>& arcs,
                   Add&& add) {
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
  posting.Emplace<Regular>(form, posting.GetVariables(0), states, arcs,
                           GetState(posting, posting.GetInteger(4)), accepting);
}

// One state follows, or none: 0.
template <TruthForm form>
void PostRegular(const Posting& posting) {
  std::vector<Regular::Arc> arcs;
  PostAutomaton(posting, form, arcs, [&](Expression to, unsigned from, std::int32_t symbol) {
    if (to.GetValue() != 0) arcs.push_back({from, symbol, GetState(posting, to.GetValue())});
  });
}

// A set of states follows.
template <TruthForm form>
void PostNondeterministicRegular(const Posting& posting) {
  std::vector<Regular::Arc> arcs;
  const unsigned states = CountStates(posting);
  PostAutomaton(posting, form, arcs, [&](Expression following, unsigned from, std::int32_t symbol) {
    const Domain set = posting.GetSet(following);
    for (unsigned to = 0; to < states; ++to) {
      if (set.Contains(std::int64_t{to} + 1)) arcs.push_back({from, symbol, to});
    }
  });
}

using enum TruthForm;

constexpr Poster kPosters[] = {
    {"kiv_table_int", "I=I", PostTable<kPlain>},
    {"kiv_table_bool", "B=B", PostTable<kPlain>},
    {"kiv_table_int_reif", "I=Ib", PostReifiedTable},
    {"kiv_table_bool_reif", "B=Bb", PostReifiedTable},
    {"kiv_regular", "I=i=I=I=is", PostRegular<kPlain>},
    {"kiv_regular_reif", "I=i=I=I=isb", PostRegular<kReified>},
    {"kiv_regular_nfa", "I=i=IS=is", PostNondeterministicRegular<kPlain>},
    {"kiv_regular_nfa_reif", "I=i=IS=isb", PostNondeterministicRegular<kReified>},
};

}  // namespace

std::span<const Poster> ExtensionalPosters() { return kPosters; }

}  // namespace kiv::flatzinc
