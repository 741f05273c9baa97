#include "solver/constraints/successor_chains.h"

namespace kiv {

bool SuccessorChains::Build(const KivOmbiObjectEnvironment& environment, std::int32_t first) {
  const unsigned places = environment.Count();
  next_.assign(places, kNone);
  is_led_to_.assign(places, 0);
  is_told_.assign(places, 0);
  for (unsigned i = 0; i < places; ++i) {
    if (!environment.Summary(i).IsFixed()) continue;
    const std::int64_t next = std::int64_t{environment.Summary(i).lower} - first;
    next_[i] = static_cast<unsigned>(next);
    if (is_led_to_[next_[i]] != 0) return false;
    is_led_to_[next_[i]] = 1;
  }
  return true;
}

SuccessorChains::Chain SuccessorChains::Follow(unsigned start) {
  Chain chain{start, start, 0};
  do {
    is_told_[chain.end] = 1;
    ++chain.length;
    if (!LeadsOn(chain.end)) return chain;
    chain.end = next_[chain.end];
  } while (chain.end != start);
  return chain;
}

bool SuccessorChains::FindChain(unsigned start, Chain& chain) {
  if (!LeadsOn(start) || is_led_to_[start] != 0) return false;
  chain = Follow(start);
  return true;
}

bool SuccessorChains::FindCircle(Chain& chain) {
  for (unsigned place = 0; place < next_.size(); ++place) {
    if (!LeadsOn(place) || is_told_[place] != 0) continue;
    chain = Follow(place);
    return true;
  }
  return false;
}

}  // namespace kiv
