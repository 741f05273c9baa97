#include "solver/constraints/circuit.h"

#include "solver/constraints/post_all_different.h"
#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::Circuit", 0, 0, true);

}  // namespace

Circuit::Circuit(std::int32_t first) : KivOmbiConstraint(&descriptor), first_(first) {}

void Circuit::ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) {
  if (stuck_.MustWake(index, events)) KivOmbiConstraint::ActivateByArgument(index, events, network);
}

std::int64_t Circuit::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned places = environment.Count();
  if (places == 0) return kKivAtFixpoint | kKivEntailed;
  // A place whose number no variable can hold leads nowhere.
  if (!IsValue(first_) || !IsValue(std::int64_t{first_} + places - 1)) return kKivContradiction;
  const auto value_of = [&](unsigned place) {
    return static_cast<std::int32_t>(std::int64_t{first_} + place);
  };
  const bool all_fixed = environment.AllFixed();
  stuck_.Resize(places);
  for (unsigned i = 0; i < places; ++i) {
    const auto result = KeepRange(environment, i, first_, value_of(places - 1));
    if (result != 0) return result;
    if (places == 1) continue;
    if (const auto lost = stuck_.Remove(environment, i, value_of(i))) return lost;
  }

  if (!chains_.Build(environment, first_)) return kKivContradiction;
  SuccessorChains::Chain chain;
  for (unsigned start = 0; start < places; ++start) {
    if (!chains_.FindChain(start, chain)) continue;
    const auto result = chain.length < places
                            ? stuck_.Remove(environment, chain.end, value_of(start))
                            : FixTo(environment, chain.end, value_of(start));
    if (result != 0) return result;
  }
  if (chains_.FindCircle(chain) && chain.length < places) return kKivContradiction;
  return all_fixed ? kKivEntailed : 0;
}

KivOmbiConstraint::Cost Circuit::GetCost() const { return kLinear; }

std::int64_t Circuit::GetWakingEvents(unsigned, unsigned) const {
  return StuckValues::kWakingEvents;
}

bool Circuit::Holds(std::span<const std::int64_t> values) const {
  const auto places = static_cast<std::int64_t>(values.size());
  std::vector<bool> passed(values.size(), false);
  std::int64_t place = 0;
  for (std::int64_t step = 0; step < places; ++step) {
    if (place < 0 || place >= places || passed[static_cast<std::size_t>(place)]) return false;
    passed[static_cast<std::size_t>(place)] = true;
    place = values[static_cast<std::size_t>(place)] - first_;
  }
  return place == 0;
}

std::vector<KivOmbNetwork::ConstraintId> PostCircuit(
    KivOmbNetwork& network, std::span<const KivOmbNetwork::VariableId> successors,
    std::int32_t first) {
  const auto places = static_cast<std::int64_t>(successors.size());
  auto posted = PostAllDifferent(network, successors, ChooseStrength(places, places));
  posted.push_back(network.Emplace<Circuit>(successors, first));
  return posted;
}

}  // namespace kiv
