#include "framework/networks/trail.h"

#include <new>

namespace {

// States stand side by side, each where any plain type may stand.
std::size_t Aligned(std::size_t size) {
  constexpr std::size_t kAlignment = alignof(std::max_align_t);
  return (size + kAlignment - 1) / kAlignment * kAlignment;
}

}  // namespace

void KivOmbiTrail::PushLevel() {
  levels_.push_back(
      {domains_.size(), entailed_.size(), states_.size(), words_.size(), ++last_stamp_});
}

std::size_t KivOmbiTrail::SaveDomain(std::uint32_t number, KivOmbiVariable& variable) {
  const std::size_t size = variable.kind->GetStateSize(*variable.domain);
  const std::size_t state = states_.size();
  states_.resize(state + Aligned(size));
  variable.kind->SaveState(*variable.domain, states_.data() + state);
  domains_.push_back({variable.summary, variable.saved_at, state, number});
  variable.saved_at = GetStamp();
  return size;
}

void KivOmbiTrail::RestoreDomain(const Domain& saved, KivOmbiVariable& variable) {
  if (variable.kind->RestoreState(*variable.domain, states_.data() + saved.state) == 0) {
    throw std::bad_alloc();
  }
  variable.summary = saved.summary;
  variable.saved_at = saved.saved_at;
}
