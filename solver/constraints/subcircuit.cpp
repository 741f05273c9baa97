#include "solver/constraints/subcircuit.h"

#include <algorithm>
#include <array>

#include "solver/constraints/post_all_different.h"
#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::Subcircuit", 0, 0, true);

}  // namespace

Subcircuit::Subcircuit(std::int32_t first) : KivOmbiConstraint(&descriptor), first_(first) {}

std::int32_t Subcircuit::ValueOf(unsigned place) const {
  return static_cast<std::int32_t>(std::int64_t{first_} + place);
}

bool Subcircuit::MustBeIn(const KivOmbiObjectEnvironment& environment, unsigned place) const {
  return !environment.Integer(place).MayBe(ValueOf(place));
}

// Once a circle is closed, the places that lead on are all on it.
KivOmbiFilterResult Subcircuit::LeaveOutOthers(const KivOmbiObjectEnvironment& environment) const {
  for (unsigned i = 0; i < environment.Count(); ++i) {
    if (chains_.LeadsOn(i)) continue;
    if (const auto result = FixTo(environment, i, ValueOf(i))) return result;
  }
  return kKivEntailed;
}

std::int64_t Subcircuit::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned places = environment.Count();
  if (places == 0) return kKivAtFixpoint | kKivEntailed;
  // A place whose number no variable can hold leads nowhere.
  if (!IsValue(first_) || !IsValue(std::int64_t{first_} + places - 1)) return kKivContradiction;
  const bool all_fixed = environment.AllFixed();
  unsigned must_be_in = 0;
  for (unsigned i = 0; i < places; ++i) {
    const auto result = KeepRange(environment, i, first_, ValueOf(places - 1));
    if (result != 0) return result;
    must_be_in += MustBeIn(environment, i) ? 1 : 0;
  }

  if (!chains_.Build(environment, first_)) return kKivContradiction;
  SuccessorChains::Chain chain;
  bool is_chain = false;
  for (unsigned start = 0; start < places; ++start) {
    if (!chains_.FindChain(start, chain)) continue;
    is_chain = true;
    // The end, too, is led to by another place and cannot be left out.
    const std::array left_out{ValueOf(chain.end)};
    const bool was_in = MustBeIn(environment, chain.end);
    if (const auto result = RemoveValues(environment, chain.end, left_out)) return result;
    if (!was_in) ++must_be_in;
    if (chain.length >= must_be_in) continue;
    const std::array back{ValueOf(start)};
    if (const auto result = RemoveValues(environment, chain.end, back)) return result;
  }
  if (chains_.FindCircle(chain)) {
    return is_chain || chain.length < must_be_in ? kKivContradiction : LeaveOutOthers(environment);
  }
  return all_fixed ? kKivEntailed : 0;
}

KivOmbiConstraint::Cost Subcircuit::GetCost() const { return kLinear; }

std::int64_t Subcircuit::GetWakingEvents(unsigned, unsigned) const { return kKivValues; }

bool Subcircuit::Holds(std::span<const std::int64_t> values) const {
  const auto places = static_cast<std::int64_t>(values.size());
  std::vector<bool> led_to(values.size(), false);
  std::int64_t place = -1;  // one that is not left out
  std::int64_t length = 0;
  for (std::int64_t i = 0; i < places; ++i) {
    const std::int64_t next = values[static_cast<std::size_t>(i)] - first_;
    if (next < 0 || next >= places || led_to[static_cast<std::size_t>(next)]) return false;
    led_to[static_cast<std::size_t>(next)] = true;
    if (next == i) continue;
    place = i;
    ++length;
  }
  const std::int64_t start = place;
  for (std::int64_t step = 1; step < length; ++step) {
    place = values[static_cast<std::size_t>(place)] - first_;
    if (place == start) return false;
  }
  return true;
}

std::vector<KivOmbNetwork::ConstraintId> PostSubcircuit(
    KivOmbNetwork& network, std::span<const KivOmbNetwork::VariableId> successors,
    std::int32_t first) {
  const auto places = static_cast<std::int64_t>(successors.size());
  auto posted = PostAllDifferent(network, successors, ChooseStrength(places, places));
  posted.push_back(network.Emplace<Subcircuit>(successors, first));
  return posted;
}

}  // namespace kiv
