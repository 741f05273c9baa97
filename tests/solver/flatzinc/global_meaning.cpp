#include "tests/solver/flatzinc/global_meaning.h"

#include <algorithm>
#include <map>
#include <set>

namespace kiv::test {
namespace {

using Integers = GroundArguments::Integers;
using Arguments = GroundArguments;

std::int64_t CountOf(const Integers& x, std::int64_t value) { return std::ranges::count(x, value); }

bool Contains(const Integers& x, std::int64_t value) { return CountOf(x, value) > 0; }

bool AllDifferent(const Arguments& a) {
  return std::set(a.Get(0).begin(), a.Get(0).end()).size() == a.Get(0).size();
}

bool NumberOfValues(const Arguments& a) {
  const std::set values(a.Get(1).begin(), a.Get(1).end());
  return static_cast<std::int64_t>(values.size()) == a.GetOne(0);
}

bool Count(const Arguments& a) { return CountOf(a.Get(0), a.GetOne(1)) == a.GetOne(2); }

bool Among(const Arguments& a) {
  const auto members = std::ranges::count_if(
      a.Get(1), [&](std::int64_t value) { return Contains(a.Get(2), value); });
  return members == a.GetOne(0);
}

bool Cardinality(const Arguments& a) {
  for (std::size_t i = 0; i < a.Get(1).size(); ++i) {
    if (CountOf(a.Get(0), a.Get(1)[i]) != a.Get(2)[i]) return false;
  }
  return true;
}

bool LimitedCardinality(const Arguments& a) {
  for (std::size_t i = 0; i < a.Get(1).size(); ++i) {
    const std::int64_t count = CountOf(a.Get(0), a.Get(1)[i]);
    if (count < a.Get(2)[i] || count > a.Get(3)[i]) return false;
  }
  return true;
}

bool IsCovered(const Arguments& a) {
  return std::ranges::all_of(a.Get(0),
                             [&](std::int64_t value) { return Contains(a.Get(1), value); });
}

bool ClosedCardinality(const Arguments& a) { return IsCovered(a) && Cardinality(a); }

bool ClosedLimitedCardinality(const Arguments& a) { return IsCovered(a) && LimitedCardinality(a); }

// How many places are passed from `start` on until it comes again; 0 if it does not.
std::size_t CircleLength(const Integers& x, std::int64_t first, std::size_t start) {
  std::size_t place = start;
  for (std::size_t length = 1; length <= x.size(); ++length) {
    const std::int64_t next = x[place] - first;
    if (next < 0 || next >= static_cast<std::int64_t>(x.size())) return 0;
    place = static_cast<std::size_t>(next);
    if (place == start) return length;
  }
  return 0;
}

bool Circuit(const Arguments& a) {
  return a.Get(1).empty() || CircleLength(a.Get(1), a.GetOne(0), 0) == a.Get(1).size();
}

// All places on circles, and the places on circles of more than one as many as one circle has.
bool Subcircuit(const Arguments& a) {
  std::size_t longest = 1;
  std::size_t moving = 0;
  for (std::size_t i = 0; i < a.Get(1).size(); ++i) {
    const std::size_t length = CircleLength(a.Get(1), a.GetOne(0), i);
    if (length == 0) return false;
    if (length > 1) ++moving;
    longest = std::max(longest, length);
  }
  return moving == 0 || moving == longest;
}

bool Inverse(const Arguments& a) {
  const Integers& f = a.Get(0);
  const Integers& g = a.Get(2);
  const auto leads_back = [](const Integers& from, std::int64_t from_first, const Integers& to,
                             std::int64_t to_first) {
    for (std::size_t i = 0; i < from.size(); ++i) {
      const std::int64_t j = from[i] - to_first;
      if (j < 0 || j >= static_cast<std::int64_t>(to.size())) return false;
      if (to[static_cast<std::size_t>(j)] != from_first + static_cast<std::int64_t>(i)) {
        return false;
      }
    }
    return true;
  };
  return leads_back(f, a.GetOne(1), g, a.GetOne(3)) && leads_back(g, a.GetOne(3), f, a.GetOne(1));
}

bool LexLess(const Arguments& a) { return a.Get(0) < a.Get(1); }
bool LexLessEq(const Arguments& a) { return a.Get(0) <= a.Get(1); }

bool Cumulative(const Arguments& a) {
  const Integers& starts = a.Get(0);
  if (starts.empty()) return true;
  std::int64_t end = 0;
  for (std::size_t i = 0; i < starts.size(); ++i) {
    if (a.Get(1)[i] < 0 || a.Get(2)[i] < 0) return false;
    end = std::max(end, starts[i] + a.Get(1)[i]);
  }
  for (std::int64_t time = *std::ranges::min_element(starts); time <= end; ++time) {
    std::int64_t in_use = 0;
    for (std::size_t i = 0; i < starts.size(); ++i) {
      if (starts[i] <= time && time < starts[i] + a.Get(1)[i]) in_use += a.Get(2)[i];
    }
    if (in_use > a.GetOne(3)) return false;
  }
  return true;
}

bool Disjunctive(const Arguments& a) {
  const Integers& s = a.Get(0);
  const Integers& d = a.Get(1);
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (d[i] < 0) return false;
    for (std::size_t j = 0; j < i; ++j) {
      const bool apart = s[i] + d[i] <= s[j] || s[j] + d[j] <= s[i];
      if (d[i] != 0 && d[j] != 0 && !apart) return false;
    }
  }
  return true;
}

bool Table(const Arguments& a) {
  const Integers& x = a.Get(0);
  for (std::size_t row = 0; !x.empty() && row < a.Get(1).size(); row += x.size()) {
    if (std::equal(x.begin(), x.end(), a.Get(1).begin() + static_cast<std::ptrdiff_t>(row))) {
      return true;
    }
  }
  return false;
}

// word, states, symbols, following, start, accepting; `follow` tells the states that follow.
template <class Follow>
bool Accepts(const Arguments& a, Follow&& follow) {
  std::set<std::int64_t> states{a.GetOne(4)};
  for (const std::int64_t read : a.Get(0)) {
    std::set<std::int64_t> next;
    for (std::size_t symbol = 0; symbol < a.Get(2).size(); ++symbol) {
      if (a.Get(2)[symbol] != read) continue;
      for (const std::int64_t state : states) {
        const Integers following =
            follow(static_cast<std::size_t>(state - 1) * a.Get(2).size() + symbol);
        next.insert(following.begin(), following.end());
      }
    }
    states = std::move(next);
  }
  return std::ranges::any_of(states, [&](std::int64_t state) { return Contains(a.Get(5), state); });
}

bool RegularWord(const Arguments& a) {
  return Accepts(
      a, [&](std::size_t i) { return a.Get(3)[i] == 0 ? Integers{} : Integers{a.Get(3)[i]}; });
}

bool NondeterministicWord(const Arguments& a) {
  return Accepts(a, [&](std::size_t i) { return a.GetSets(3)[i]; });
}

bool BinPackingLoad(const Arguments& a) {
  Integers loads(a.Get(0).size(), 0);
  for (std::size_t i = 0; i < a.Get(2).size(); ++i) {
    const std::int64_t bin = a.Get(2)[i] - a.GetOne(1);
    if (bin < 0 || bin >= static_cast<std::int64_t>(loads.size())) return false;
    loads[static_cast<std::size_t>(bin)] += a.Get(3)[i];
  }
  return loads == a.Get(0);
}

bool IndexedElement(const Arguments& a) {
  const std::int64_t place = a.GetOne(0) - a.GetOne(1);
  if (place < 0 || place >= static_cast<std::int64_t>(a.Get(2).size())) return false;
  return a.Get(2)[static_cast<std::size_t>(place)] == a.GetOne(3);
}

Integers PickIntegers(Generator& random, int count, int lower, int upper) {
  Integers integers;
  for (int i = 0; i < count; ++i) integers.push_back(Pick(random, lower, upper));
  return integers;
}

// Values to count: mostly different ones, and now and then one beyond what variables hold.
Integers PickCover(Generator& random) {
  Integers cover = PickIntegers(random, Pick(random, 0, 3), -1, 4);
  if (OneIn(random, 20)) cover.push_back(1000000000000);
  return cover;
}

void MakeCardinality(GlobalCall& call) {
  Generator& random = call.GetRandom();
  const Integers cover = PickCover(random);
  call.AddIntegers(Pick(random, 0, 4), 0, 3);
  call.AddConstants(cover);
  call.AddIntegers(static_cast<int>(cover.size()), -1, 4);
}

void MakeLimitedCardinality(GlobalCall& call) {
  Generator& random = call.GetRandom();
  const Integers cover = PickCover(random);
  const auto count = static_cast<int>(cover.size());
  call.AddIntegers(Pick(random, 0, 5), 0, 3);
  call.AddConstants(cover);
  call.AddConstants(PickIntegers(random, count, -1, 2));
  call.AddConstants(OneIn(random, 3) ? Integers(cover.size(), 1)
                                     : PickIntegers(random, count, -1, 7));
}

void MakeSuccessors(GlobalCall& call) {
  Generator& random = call.GetRandom();
  const int first = Pick(random, -2, 2);
  const int places = Pick(random, 0, 5);
  call.AddConstant(first);
  call.AddIntegers(places, first - (OneIn(random, 4) ? 1 : 0), first + places);
}

template <void (*make)(GlobalCall&)>
void MakeReified(GlobalCall& call) {
  make(call);
  call.AddBoolean();
}

// The truth is the last argument.
template <bool (*holds)(const Arguments&)>
bool Reified(const Arguments& a) {
  return holds(a) == (a.GetOne(a.Count() - 1) != 0);
}

void MakeTable(GlobalCall& call) {
  Generator& random = call.GetRandom();
  const int arity = Pick(random, 0, 3);
  call.AddIntegers(arity, -1, 4);
  Integers cells = PickIntegers(random, arity * Pick(random, 0, 8), -1, 4);
  if (!cells.empty() && OneIn(random, 10)) cells[0] = -1000000000000;
  call.AddConstants(std::move(cells));
}

void MakeBooleanTable(GlobalCall& call) {
  const int arity = Pick(call.GetRandom(), 0, 4);
  call.AddBooleans(arity);
  call.AddBooleanConstants(arity * Pick(call.GetRandom(), 0, 6));
}

void MakeOrder(GlobalCall& call) {
  call.AddIntegers(Pick(call.GetRandom(), 0, 3), 0, 2);
  call.AddIntegers(Pick(call.GetRandom(), 0, 3), 0, 2);
}

void MakeBooleanOrder(GlobalCall& call) {
  call.AddBooleans(Pick(call.GetRandom(), 0, 4));
  call.AddBooleans(Pick(call.GetRandom(), 0, 4));
}

template <bool is_deterministic>
void MakeAutomatonWord(GlobalCall& call) {
  Generator& random = call.GetRandom();
  const int states = Pick(random, 1, 3);
  const Integers symbols = OneIn(random, 4) ? Integers{-1, 2, 1000000000000} : Integers{1, 2, 3};
  call.AddIntegers(Pick(random, 0, 4), -1, 4);
  call.AddConstant(states);
  call.AddConstants(symbols);
  if (is_deterministic) {
    call.AddConstants(PickIntegers(random, 3 * states, 0, states));
  } else {
    call.AddSets(3 * states, 1, states);
  }
  call.AddConstant(Pick(random, 1, states));
  call.AddSet(1, states);
}

}  // namespace

const std::vector<Global>& AllGlobals() {
  static const std::vector<Global> globals{
      {"kiv_all_different", AllDifferent,
       [](GlobalCall& call) { call.AddIntegers(Pick(call.GetRandom(), 0, 5), -1, 4); }},
      {"kiv_nvalue", NumberOfValues,
       [](GlobalCall& call) {
         call.AddInteger(-1, 5);
         call.AddIntegers(Pick(call.GetRandom(), 0, 4), -1, 4);
       }},
      {"kiv_count", Count,
       [](GlobalCall& call) {
         call.AddIntegers(Pick(call.GetRandom(), 0, 4), 0, 3);
         if (OneIn(call.GetRandom(), 20)) {
           call.AddConstant(1000000000000);
         } else {
           call.AddInteger(-1, 4);
         }
         call.AddInteger(-1, 5);
       }},
      {"kiv_among", Among,
       [](GlobalCall& call) {
         call.AddInteger(-1, 5);
         call.AddIntegers(Pick(call.GetRandom(), 0, 4), 0, 5);
         call.AddSet(-2, 7);
       }},
      {"kiv_global_cardinality", Cardinality, MakeCardinality},
      {"kiv_global_cardinality_closed", ClosedCardinality, MakeCardinality},
      {"kiv_global_cardinality_low_up", LimitedCardinality, MakeLimitedCardinality},
      {"kiv_global_cardinality_low_up_closed", ClosedLimitedCardinality, MakeLimitedCardinality},
      {"kiv_circuit", Circuit, MakeSuccessors},
      {"kiv_subcircuit", Subcircuit, MakeSuccessors},
      {"kiv_circuit_reif", Reified<Circuit>, MakeReified<MakeSuccessors>},
      {"kiv_subcircuit_reif", Reified<Subcircuit>, MakeReified<MakeSuccessors>},
      {"kiv_inverse", Inverse,
       [](GlobalCall& call) {
         Generator& random = call.GetRandom();
         const int places = Pick(random, 0, 3);
         const int f_first = Pick(random, -1, 1);
         const int g_first = Pick(random, -1, 1);
         call.AddIntegers(places, g_first, g_first + places);
         call.AddConstant(f_first);
         call.AddIntegers(OneIn(random, 10) ? 2 : places, f_first, f_first + places);
         call.AddConstant(g_first);
       }},
      {"kiv_lex_less_int", LexLess, MakeOrder},
      {"kiv_lex_less_bool", LexLess, MakeBooleanOrder},
      {"kiv_lex_lesseq_int", LexLessEq, MakeOrder},
      {"kiv_lex_lesseq_bool", LexLessEq, MakeBooleanOrder},
      {"kiv_cumulative", Cumulative,
       [](GlobalCall& call) {
         const int tasks = Pick(call.GetRandom(), 0, 3);
         call.AddIntegers(tasks, -1, 5);
         if (OneIn(call.GetRandom(), 2)) {
           call.AddConstants(PickIntegers(call.GetRandom(), tasks, 0, 4));
           call.AddConstants(PickIntegers(call.GetRandom(), tasks, 0, 3));
         } else {
           call.AddIntegers(tasks, -1, 3);
           call.AddIntegers(tasks, -1, 3);
         }
         call.AddInteger(-1, 4);
       }},
      {"kiv_disjunctive", Disjunctive,
       [](GlobalCall& call) {
         const int tasks = Pick(call.GetRandom(), 0, 4);
         call.AddIntegers(tasks, 0, 7);
         call.AddConstants(PickIntegers(call.GetRandom(), tasks, 0, 3));
       }},
      {"kiv_table_int", Table, MakeTable},
      {"kiv_table_int_reif", Reified<Table>, MakeReified<MakeTable>},
      {"kiv_table_bool", Table, MakeBooleanTable},
      {"kiv_table_bool_reif", Reified<Table>, MakeReified<MakeBooleanTable>},
      {"kiv_regular", RegularWord, MakeAutomatonWord<true>},
      {"kiv_regular_reif", Reified<RegularWord>, MakeReified<MakeAutomatonWord<true>>},
      {"kiv_regular_nfa", NondeterministicWord, MakeAutomatonWord<false>},
      {"kiv_regular_nfa_reif", Reified<NondeterministicWord>,
       MakeReified<MakeAutomatonWord<false>>},
      {"kiv_element_int", IndexedElement,
       [](GlobalCall& call) {
         const int first = Pick(call.GetRandom(), -2, 2);
         call.AddInteger(first - 2, first + 5);
         call.AddConstant(first);
         call.AddIntegers(Pick(call.GetRandom(), 0, 4), -1, 4);
         call.AddInteger(-1, 4);
       }},
      {"kiv_element_bool", IndexedElement,
       [](GlobalCall& call) {
         const int first = Pick(call.GetRandom(), -2, 2);
         call.AddInteger(first - 2, first + 5);
         call.AddConstant(first);
         call.AddBooleans(Pick(call.GetRandom(), 0, 5));
         call.AddBoolean();
       }},
      {"kiv_bin_packing_load", BinPackingLoad,
       [](GlobalCall& call) {
         Generator& random = call.GetRandom();
         const int bins = Pick(random, 0, 2);
         const int items = Pick(random, 0, 4);
         const int first = Pick(random, -1, 1);
         call.AddIntegers(bins, -1, 9);
         call.AddConstant(first);
         call.AddIntegers(items, first - 1, first + bins);
         call.AddConstants(PickIntegers(random, items, 0, 4));
       }},
  };
  return globals;
}

}  // namespace kiv::test
