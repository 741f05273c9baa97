#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "framework/abstract_types/environment.h"
#include "framework/base/export.h"
#include "framework/networks/state_stack.h"

// What it takes to go back: for each open level the domains that were written in it, as they were
// before, or the values that they lost, the constraints that were found entailed, and the words of
// their own that constraints changed. A domain is saved once a level at most, and after that no
// loss of it is, so a level costs what it changed. Losses are saved while they are few and small
// beside the domain. Room once made is kept: in the steady state of a search nothing is allocated.
class KIV_EXPORT KivOmbiTrail {
 public:
  std::size_t GetLevel() const noexcept { return levels_.size(); }
  // The stamp of the current level, greater than that of each level that ever was; 0 outside all
  // levels, where nothing needs to be saved. It marks the variables whose domain is saved.
  std::uint64_t GetStamp() const noexcept { return levels_.empty() ? 0 : levels_.back().stamp; }

  void PushLevel();
  // Saves the domain of a variable; returns the number of bytes.
  std::size_t SaveDomain(std::uint32_t number, KivOmbiVariable& variable);
  // Saves the values, ascending, that the domain of a variable is to lose and can regain, or the
  // domain. Neither is for a variable that bears the stamp of the level.
  std::size_t SaveLoss(std::uint32_t number, KivOmbiVariable& variable,
                       std::span<const std::int32_t> values);
  // Do nothing outside all levels.
  void SaveEntailment(std::uint32_t constraint) {
    if (!levels_.empty()) entailed_.push_back(constraint);
  }
  // Saves a word of memory that outlives the level.
  void SaveWord(std::uint64_t& word) {
    if (!levels_.empty()) words_.push_back({&word, word});
  }
  // Calls `visit(number)` once for each variable of whose domain anything was saved at the current
  // level.
  template <class Visit>
  void VisitSavedDomains(Visit&& visit) const {
    if (levels_.empty()) return;
    const Level& level = levels_.back();
    const auto visit_first = [&](const auto& saved) {
      if (IsBefore(saved.saved_at, level)) visit(saved.variable);
    };
    std::for_each(domains_.begin() + Offset(level.domains), domains_.end(), visit_first);
    std::for_each(losses_.begin() + Offset(level.losses), losses_.end(), visit_first);
  }
  // Restores the domains of the last level, latest first, and calls `revive(constraint)` for each
  // entailment. Throws std::bad_alloc when a domain finds no memory.
  template <class Revive>
  void PopLevel(std::vector<KivOmbiVariable>& variables, Revive&& revive) {
    const Level level = levels_.back();
    for (; domains_.size() > level.domains; domains_.pop_back()) {
      RestoreDomain(domains_.back(), variables[domains_.back().variable]);
    }
    // A domain lost values before it was saved, if it did.
    for (; losses_.size() > level.losses; losses_.pop_back()) {
      RestoreLoss(losses_.back(), variables[losses_.back().variable], level);
    }
    for (; entailed_.size() > level.entailed; entailed_.pop_back()) revive(entailed_.back());
    for (; words_.size() > level.words; words_.pop_back()) {
      *words_.back().address = words_.back().value;
    }
    states_.Shrink(level.states);
    levels_.pop_back();
  }

 private:
  struct Level {
    std::size_t domains;
    std::size_t losses;
    std::size_t entailed;
    std::size_t states;
    std::size_t words;
    std::uint64_t stamp;
  };
  struct Domain {
    KivOmbiDomainSummary summary;
    std::uint64_t saved_at;  // the variable's, before
    std::size_t state;       // where in states_
    std::uint32_t variable;
  };
  struct Loss {
    std::uint64_t saved_at;  // the variable's, before
    std::uint32_t variable;
    std::int32_t count;  // of values, which are the last of lost_ by then; negative for a run
                         // of integers, of which lost_ has the two ends
  };
  struct Word {
    std::uint64_t* address;
    std::uint64_t value;  // before
  };

  // A variable whose domain is saved bears the stamp of the level. The marks before it count losses
  // that were saved at the level.
  static constexpr std::uint64_t kMarks = 8;
  static bool IsBefore(std::uint64_t mark, const Level& level) noexcept {
    return mark + kMarks <= level.stamp;
  }
  bool IsLossCheaper(const KivOmbiVariable& variable, std::size_t values) const;
  static std::ptrdiff_t Offset(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }
  void RestoreDomain(const Domain& saved, KivOmbiVariable& variable);
  void RestoreLoss(const Loss& loss, KivOmbiVariable& variable, const Level& level);
  std::span<const std::int32_t> ValuesOf(const Loss& loss);

  std::vector<Level> levels_;
  std::vector<Domain> domains_;
  std::vector<Loss> losses_;
  std::vector<std::int32_t> lost_;
  std::vector<std::int32_t> run_;  // the values of a run, to hand them out
  std::vector<std::uint32_t> entailed_;
  KivOmbiStateStack states_;
  std::vector<Word> words_;
  std::uint64_t last_stamp_ = 0;
};
