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
  levels_.push_back({entries_.size(), states_.size(), words_.size(), ++last_stamp_});
}

std::size_t KivOmbiTrail::SaveDomain(std::uint32_t number, KivOmbiVariable& variable) {
  const std::size_t size = variable.kind->GetStateSize(*variable.domain);
  const std::size_t state = states_.size();
  states_.resize(state + Aligned(size));
  variable.kind->SaveState(*variable.domain, states_.data() + state);
  entries_.push_back({number, true, variable.summary, variable.saved_at, state});
  variable.saved_at = GetStamp();
  return size;
}

void KivOmbiTrail::SaveEntailment(std::uint32_t constraint) {
  entries_.push_back({constraint, false, {}, 0, 0});
}

void KivOmbiTrail::SaveWord(std::uint64_t& word) {
  if (!levels_.empty()) words_.push_back({&word, word});
}

void KivOmbiTrail::RestoreDomain(const Entry& entry, KivOmbiVariable& variable) {
  if (variable.kind->RestoreState(*variable.domain, states_.data() + entry.state) == 0) {
    throw std::bad_alloc();
  }
  variable.summary = entry.summary;
  variable.saved_at = entry.saved_at;
}
