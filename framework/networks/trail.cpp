#include "framework/networks/trail.h"

#include <new>
#include <numeric>

namespace {

// States stand side by side, each where any plain type may stand.
std::size_t Aligned(std::size_t size) {
  constexpr std::size_t kAlignment = alignof(std::max_align_t);
  return (size + kAlignment - 1) / kAlignment * kAlignment;
}

}  // namespace

void KivOmbiTrail::PushLevel() {
  last_stamp_ += 2;
  levels_.push_back({domains_.size(), losses_.size(), entailed_.size(), states_.size(),
                     words_.size(), last_stamp_});
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

std::size_t KivOmbiTrail::SaveLoss(std::uint32_t number, KivOmbiVariable& variable,
                                   std::span<const std::int32_t> values) {
  const auto count = static_cast<std::int32_t>(values.size());
  const bool is_run = count > 2 && std::int64_t{values.back()} - values.front() == count - 1;
  const std::size_t before = lost_.size();
  if (is_run) {
    lost_.insert(lost_.end(), {values.front(), values.back()});
  } else {
    lost_.insert(lost_.end(), values.begin(), values.end());
  }
  losses_.push_back({variable.saved_at, number, is_run ? -count : count});
  variable.saved_at = LossMark(levels_.back());
  return (lost_.size() - before) * sizeof(std::int32_t);
}

void KivOmbiTrail::RestoreDomain(const Domain& saved, KivOmbiVariable& variable) {
  if (variable.kind->RestoreState(*variable.domain, states_.data() + saved.state) == 0) {
    throw std::bad_alloc();
  }
  variable.summary = saved.summary;
  variable.saved_at = saved.saved_at;
}

std::span<const std::int32_t> KivOmbiTrail::ValuesOf(const Loss& loss) {
  if (loss.count >= 0) return std::span(lost_).last(static_cast<std::size_t>(loss.count));
  run_.resize(std::max(run_.size(), static_cast<std::size_t>(-loss.count)));
  const auto values = std::span(run_).first(static_cast<std::size_t>(-loss.count));
  std::iota(values.begin(), values.end(), lost_[lost_.size() - 2]);
  return values;
}

void KivOmbiTrail::RestoreLoss(const Loss& loss, KivOmbiVariable& variable,
                               std::uint64_t loss_mark) {
  if (variable.kind->Regain(*variable.domain, ValuesOf(loss)) == 0) throw std::bad_alloc();
  lost_.resize(lost_.size() - static_cast<std::size_t>(loss.count < 0 ? 2 : loss.count));
  // The domain is now what it was when the level was opened.
  if (loss.saved_at < loss_mark) variable.summary = variable.kind->Summarize(*variable.domain);
  variable.saved_at = loss.saved_at;
}
