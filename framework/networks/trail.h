#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "framework/abstract_types/environment.h"
#include "framework/base/export.h"

// What it takes to go back: for each open level the domains that were written in it, as they were
// before, the constraints that were found entailed, and the words of their own that constraints
// changed. A domain is saved at its first write of a level only, so a level costs what it
// changed. Room once made is kept: in the steady state of a search nothing is allocated.
class KIV_EXPORT KivOmbiTrail {
 public:
  std::size_t GetLevel() const noexcept { return levels_.size(); }
  // The stamp of the current level, different for each level that ever was; 0 outside all levels,
  // where nothing needs to be saved.
  std::uint64_t GetStamp() const noexcept { return levels_.empty() ? 0 : levels_.back().stamp; }

  void PushLevel();
  // Saves the domain of a variable; returns the number of bytes.
  std::size_t SaveDomain(std::uint32_t number, KivOmbiVariable& variable);
  // Do nothing outside all levels.
  void SaveEntailment(std::uint32_t constraint) {
    if (!levels_.empty()) entailed_.push_back(constraint);
  }
  // Saves a word of memory that outlives the level.
  void SaveWord(std::uint64_t& word) {
    if (!levels_.empty()) words_.push_back({&word, word});
  }
  // Calls `visit(number)` for each variable whose domain was saved at the current level.
  template <class Visit>
  void VisitSavedDomains(Visit&& visit) const {
    if (levels_.empty()) return;
    for (std::size_t i = levels_.back().domains; i < domains_.size(); ++i) {
      visit(domains_[i].variable);
    }
  }
  // Restores the domains of the last level, latest first, and calls `revive(constraint)` for each
  // entailment. Throws std::bad_alloc when a domain finds no memory.
  template <class Revive>
  void PopLevel(std::vector<KivOmbiVariable>& variables, Revive&& revive) {
    const Level level = levels_.back();
    for (; domains_.size() > level.domains; domains_.pop_back()) {
      RestoreDomain(domains_.back(), variables[domains_.back().variable]);
    }
    for (; entailed_.size() > level.entailed; entailed_.pop_back()) revive(entailed_.back());
    for (; words_.size() > level.words; words_.pop_back()) {
      *words_.back().address = words_.back().value;
    }
    states_.resize(level.states);
    levels_.pop_back();
  }

 private:
  struct Level {
    std::size_t domains;
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
  struct Word {
    std::uint64_t* address;
    std::uint64_t value;  // before
  };

  void RestoreDomain(const Domain& saved, KivOmbiVariable& variable);

  std::vector<Level> levels_;
  std::vector<Domain> domains_;
  std::vector<std::uint32_t> entailed_;
  std::vector<std::byte> states_;
  std::vector<Word> words_;
  std::uint64_t last_stamp_ = 0;
};
