#include "solver/constraints/inverse.h"

#include <numeric>

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/post_all_different.h"
#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::Inverse", 0, 0, true);

}  // namespace

Inverse::Inverse(unsigned f_places, std::int32_t f_index, std::int32_t g_index)
    : KivOmbiConstraint(&descriptor),
      places_(static_cast<std::int32_t>(f_places)),
      f_index_(f_index),
      g_index_(g_index) {}

void Inverse::Activate(KivOmbiNetwork* network) {
  all_changed_ = true;
  KivOmbiConstraint::Activate(network);
}

void Inverse::ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) {
  if (!all_changed_) Await(index);
  KivOmbiConstraint::ActivateByArgument(index, events, network);
}

void Inverse::Await(unsigned argument) {
  if (is_changed_[argument] != 0) return;
  is_changed_[argument] = 1;
  changed_.push_back(argument);
}

// Makes `argument` and all of the other side agree about each other.
KivOmbiFilterResult Inverse::Channel(const KivOmbiObjectEnvironment& environment,
                                     unsigned argument) {
  const auto places = static_cast<unsigned>(places_);
  const bool is_f = argument < places;
  const unsigned others = is_f ? places : 0;
  const std::int32_t other_index = is_f ? g_index_ : f_index_;
  const auto place = static_cast<std::int32_t>(is_f ? argument : argument - places);
  const std::int32_t me = place + (is_f ? f_index_ : g_index_);
  if (const auto result =
          KeepRange(environment, argument, other_index, other_index + places_ - 1)) {
    return result;
  }
  if (environment.Summary(argument).IsFixed()) {
    const auto j = static_cast<unsigned>(environment.Summary(argument).lower - other_index);
    if (const auto result = FixTo(environment, others + j, me)) return result;
  }
  for (std::int32_t j = 0; j < places_; ++j) {
    const unsigned other = others + static_cast<unsigned>(j);
    const bool mine = environment.Integer(argument).MayBe(other_index + j);
    const bool theirs = environment.Integer(other).MayBe(me);
    if (mine == theirs) continue;
    const auto result = mine ? RemoveValue(environment, argument, other_index + j)
                             : RemoveValue(environment, other, me);
    if (result != 0) return result;
  }
  return 0;
}

// Whatever a step narrows is awaited anew, its own argument included: the bound that an interval
// loses can uncover a value that it could not lose before.
std::int64_t Inverse::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned count = environment.Count();
  if (count != 2 * static_cast<unsigned>(places_)) return kKivContradiction;
  if (count == 0) return kKivAtFixpoint | kKivEntailed;
  // A place whose number no variable can hold is nobody's.
  for (const std::int64_t index : {f_index_, g_index_}) {
    if (!IsValue(index) || !IsValue(index + places_ - 1)) return kKivContradiction;
  }
  if (all_changed_) {
    is_changed_.assign(count, 1);
    changed_.resize(count);
    std::iota(changed_.begin(), changed_.end(), 0u);
    all_changed_ = false;
  }
  while (!changed_.empty()) {
    const unsigned argument = changed_.back();
    changed_.pop_back();
    is_changed_[argument] = 0;
    if (const auto result = Channel(environment, argument)) return result;
  }
  return environment.AllFixed() ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

KivOmbiConstraint::Cost Inverse::GetCost() const { return kQuadratic; }

std::int64_t Inverse::GetWakingEvents(unsigned, unsigned) const { return kKivValues; }

bool Inverse::Holds(std::span<const std::int64_t> values) const {
  const auto places = static_cast<std::size_t>(places_);
  if (values.size() != 2 * places) return false;
  const auto f = values.first(places);
  const auto g = values.last(places);
  const auto is_back = [places](auto from, std::int64_t from_index, auto to,
                                std::int64_t to_index) {
    for (std::size_t i = 0; i < places; ++i) {
      const std::int64_t j = from[i] - to_index;
      if (j < 0 || j >= static_cast<std::int64_t>(places)) return false;
      if (to[static_cast<std::size_t>(j)] != static_cast<std::int64_t>(i) + from_index)
        return false;
    }
    return true;
  };
  return is_back(f, f_index_, g, g_index_) && is_back(g, g_index_, f, f_index_);
}

std::vector<KivOmbNetwork::ConstraintId> PostInverse(KivOmbNetwork& network,
                                                     std::span<const KivOmbNetwork::VariableId> f,
                                                     std::span<const KivOmbNetwork::VariableId> g,
                                                     std::int32_t f_index, std::int32_t g_index) {
  std::vector<KivOmbNetwork::VariableId> arguments(f.begin(), f.end());
  arguments.insert(arguments.end(), g.begin(), g.end());
  const auto inverse =
      network.Emplace<Inverse>(arguments, static_cast<unsigned>(f.size()), f_index, g_index);
  const auto places = static_cast<std::int64_t>(f.size());
  auto posted = PostAllDifferent(network, f, ChooseStrength(places, places));
  posted.push_back(inverse);
  return posted;
}

}  // namespace kiv
