#include "framework/networks/trail.h"

#include <new>

void KivOmbiTrail::PushLevel() {
  last_stamp_ += kMarks;
  levels_.push_back({domains_.size(), losses_.size(), entailed_.size(), states_.GetSize(),
                     words_.size(), last_stamp_});
}

std::size_t KivOmbiTrail::SaveDomain(std::uint32_t number, KivOmbiVariable& variable) {
  std::size_t size = variable.kind->SaveState(*variable.domain, states_.GetRoom());
  if (size > states_.GetRoom().size()) {
    states_.MakeRoom(size);
    size = variable.kind->SaveState(*variable.domain, states_.GetRoom());
  }
  const std::size_t state = states_.GetSize();
  states_.Add(size);
  domains_.push_back({variable.summary, variable.saved_at, state, number});
  variable.saved_at = GetStamp();
  return size;
}

// Copying a domain takes no longer than saving and restoring a few losses one by one, unless it is
// large. Between its bounds without a gap it may be saved as briefly as a loss.
bool KivOmbiTrail::IsLossCheaper(const KivOmbiVariable& variable, std::size_t values) const {
  constexpr std::uint32_t kValuesForALoss = 128;
  constexpr std::uint32_t kFewOf = 16;
  const Level& level = levels_.back();
  const KivOmbiDomainSummary& domain = variable.summary;
  const std::uint64_t losses =
      IsBefore(variable.saved_at, level) ? 0 : variable.saved_at + kMarks - level.stamp;
  const bool is_gapless = std::int64_t{domain.upper} - domain.lower + 1 == domain.cardinality;
  return losses + 1 < kMarks && domain.cardinality / kValuesForALoss > losses &&
         values * kFewOf <= domain.cardinality && !is_gapless;
}

std::size_t KivOmbiTrail::SaveLoss(std::uint32_t number, KivOmbiVariable& variable,
                                   std::span<const std::int32_t> values) {
  const auto count = static_cast<std::int32_t>(values.size());
  const bool is_run = count > 2 && std::int64_t{values.back()} - values.front() == count - 1;
  const std::size_t stored = is_run ? 2 : values.size();
  if (!IsLossCheaper(variable, stored)) return SaveDomain(number, variable);
  if (is_run) {
    lost_.insert(lost_.end(), {values.front(), values.back()});
  } else {
    lost_.insert(lost_.end(), values.begin(), values.end());
  }
  losses_.push_back({variable.saved_at, number, is_run ? -count : count});
  const Level& level = levels_.back();
  const bool is_first = IsBefore(variable.saved_at, level);
  variable.saved_at = is_first ? level.stamp - kMarks + 1 : variable.saved_at + 1;
  return stored * sizeof(std::int32_t);
}

void KivOmbiTrail::RestoreDomain(const Domain& saved, KivOmbiVariable& variable) {
  if (variable.kind->RestoreState(*variable.domain, states_.At(saved.state)) == 0) {
    throw std::bad_alloc();
  }
  variable.summary = saved.summary;
  variable.saved_at = saved.saved_at;
}

std::span<const std::int32_t> KivOmbiTrail::ValuesOf(const Loss& loss) {
  if (loss.count >= 0) return std::span(lost_).last(static_cast<std::size_t>(loss.count));
  run_.resize(std::max(run_.size(), static_cast<std::size_t>(-loss.count)));
  const auto values = std::span(run_).first(static_cast<std::size_t>(-loss.count));
  const std::int32_t first = lost_[lost_.size() - 2];
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = first + static_cast<std::int32_t>(i);
  }
  return values;
}

void KivOmbiTrail::RestoreLoss(const Loss& loss, KivOmbiVariable& variable, const Level& level) {
  if (variable.kind->Regain(*variable.domain, ValuesOf(loss)) == 0) throw std::bad_alloc();
  lost_.resize(lost_.size() - static_cast<std::size_t>(loss.count < 0 ? 2 : loss.count));
  // The domain is now what it was when the level was opened.
  if (IsBefore(loss.saved_at, level)) variable.summary = variable.kind->Summarize(*variable.domain);
  variable.saved_at = loss.saved_at;
}
