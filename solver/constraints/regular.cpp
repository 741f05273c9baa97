#include "solver/constraints/regular.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <utility>

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::Regular", 0, 0, true);

constexpr std::size_t kWordBits = 64;

bool Has(const std::uint64_t* set, unsigned state) {
  return (set[state / kWordBits] >> (state % kWordBits) & 1) != 0;
}

void Add(std::vector<std::uint64_t>& set, unsigned state) {
  set[state / kWordBits] |= std::uint64_t{1} << (state % kWordBits);
}

}  // namespace

Regular::Regular(unsigned states, std::vector<Arc> arcs, unsigned start,
                 const std::vector<unsigned>& accepting)
    : KivOmbiConstraint(&descriptor),
      states_(states),
      start_(start),
      arcs_(std::move(arcs)),
      words_((states + kWordBits - 1) / kWordBits) {
  const auto is_state = [&](unsigned state) { return state < states_; };
  const bool is_valid =
      is_state(start) && std::ranges::all_of(accepting, is_state) &&
      std::ranges::all_of(arcs_, [&](const Arc& a) { return is_state(a.from) && is_state(a.to); });
  if (!is_valid) throw std::invalid_argument("an automaton that names a state it does not have");

  accepting_.resize(words_, 0);
  reached_.resize(words_, 0);
  for (const unsigned state : accepting) Add(accepting_, state);
  // What no variable can hold is read by no arc that matters.
  std::erase_if(arcs_, [](const Arc& arc) { return !IsValue(arc.symbol); });
  std::ranges::stable_sort(arcs_, {}, &Arc::symbol);
  for (std::size_t i = 0; i < arcs_.size(); ++i) {
    if (i > 0 && arcs_[i].symbol == arcs_[i - 1].symbol) continue;
    symbols_.push_back(arcs_[i].symbol);
    first_arcs_.push_back(i);
  }
  first_arcs_.push_back(arcs_.size());
}

void Regular::Activate(KivOmbiNetwork* network) {
  std::ranges::fill(is_changed_, char{1});
  KivOmbiConstraint::Activate(network);
}

// A mark that outlives the level of the change costs a look, no more.
void Regular::ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) {
  if (!is_changed_.empty()) is_changed_[index] = 1;
  KivOmbiConstraint::ActivateByArgument(index, events, network);
}

void Regular::Prepare(const KivOmbiObjectEnvironment& environment) {
  const unsigned count = environment.Count();
  is_changed_.assign(count, 1);
  alive_.assign((std::size_t{count} + 1) * words_, ~std::uint64_t{0});
  std::fill_n(StatesBefore(0), words_, std::uint64_t{0});
  StatesBefore(0)[start_ / kWordBits] = std::uint64_t{1} << (start_ % kWordBits);
  std::ranges::copy(accepting_, StatesBefore(count));
  for (unsigned i = 1; i < count && !repeats_; ++i) {
    for (unsigned j = 0; j < i && !repeats_; ++j) repeats_ = environment.IsSame(i, j);
  }
}

// The states before integer i are only those that were reached. False when none is left.
bool Regular::KeepStates(const KivOmbiObjectEnvironment& environment, std::size_t i) {
  std::uint64_t* alive = StatesBefore(i);
  bool some = false;
  for (std::size_t word = 0; word < words_; ++word) {
    const std::uint64_t left = alive[word] & reached_[word];
    some |= left != 0;
    if (left == alive[word]) continue;
    environment.SetWord(alive[word], left);
    if (i > 0) is_changed_[i - 1] = 1;
    if (i < is_changed_.size()) is_changed_[i] = 1;
  }
  return some;
}

// Calls use(arc) for the arcs between states alive whose symbol is left for integer i, by ascending
// symbols.
template <class Use>
void Regular::ForEachArc(const KivOmbiObjectEnvironment& environment, unsigned i, Use&& use) const {
  const std::uint64_t* before = &alive_[i * words_];
  const std::uint64_t* after = before + words_;
  const KivOmbiInteger& domain = environment.Integer(i);
  const ValueSet near = Between(symbols_, environment.Summary(i));
  auto position = static_cast<std::size_t>(near.data() - symbols_.data());
  for (const std::int32_t symbol : near) {
    const std::size_t begin = first_arcs_[position++];
    if (!domain.MayBe(symbol)) continue;
    for (std::size_t k = begin; k < first_arcs_[position]; ++k) {
      if (Has(before, arcs_[k].from) && Has(after, arcs_[k].to)) use(arcs_[k]);
    }
  }
}

// Drops the states that no path from the start reaches. False when none is left somewhere.
bool Regular::PassForward(const KivOmbiObjectEnvironment& environment) {
  for (unsigned i = 0; i < environment.Count(); ++i) {
    if (is_changed_[i] == 0) continue;
    std::ranges::fill(reached_, std::uint64_t{0});
    ForEachArc(environment, i, [&](const Arc& arc) { Add(reached_, arc.to); });
    if (!KeepStates(environment, i + 1)) return false;
  }
  return true;
}

// Drops the states from which no path leads to the end, and the values that no path left has.
KivOmbiFilterResult Regular::PassBackward(const KivOmbiObjectEnvironment& environment) {
  for (unsigned i = environment.Count(); i-- > 0;) {
    if (is_changed_[i] == 0) continue;
    std::ranges::fill(reached_, std::uint64_t{0});
    supported_.clear();
    ForEachArc(environment, i, [&](const Arc& arc) {
      Add(reached_, arc.from);
      if (supported_.empty() || supported_.back() != arc.symbol) supported_.push_back(arc.symbol);
    });
    if (!KeepStates(environment, i)) return kKivContradiction;
    const KivOmbiDomainSummary& summary = environment.Summary(i);
    if (!summary.IsAny() && summary.cardinality == supported_.size()) continue;
    if (const auto result = KeepValues(environment, i, supported_)) return result;
  }
  return 0;
}

std::int64_t Regular::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned count = environment.Count();
  if (count == 0) return Has(accepting_.data(), start_) ? kKivEntailed : kKivContradiction;
  if (alive_.empty()) Prepare(environment);
  if (!PassForward(environment)) return kKivContradiction;
  if (const auto result = PassBackward(environment)) return result;
  if (repeats_) {
    // What left a variable at one place can matter at another that was passed before.
    std::ranges::fill(is_changed_, char{1});
    return Settle(environment);
  }
  std::ranges::fill(is_changed_, char{0});
  return environment.AllFixed() ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

KivOmbiConstraint::Cost Regular::GetCost() const { return kQuadratic; }

std::int64_t Regular::GetWakingEvents(unsigned, unsigned) const { return kKivValues; }

bool Regular::Holds(std::span<const std::int64_t> values) const {
  std::set<unsigned> states{start_};
  for (const std::int64_t value : values) {
    std::set<unsigned> next;
    for (const Arc& arc : arcs_) {
      if (arc.symbol == value && states.contains(arc.from)) next.insert(arc.to);
    }
    states = std::move(next);
  }
  return std::ranges::any_of(states, [&](unsigned state) { return Has(accepting_.data(), state); });
}

}  // namespace kiv
