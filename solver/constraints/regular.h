#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"

namespace kiv {

// Its integers, in order, are a word that a finite automaton accepts. The automaton may leave a
// state by several arcs of one symbol; a word is accepted if some path for it, from the start, ends
// in an accepting state. The word of no integers is accepted if the start is.
//
// Domain consistent where the kinds can have holes and hold few values and no variable is repeated:
// before each integer stand the states that some path of values left runs through there, and a
// value stays while an arc of it joins such states. After G. Pesant, "A regular language membership
// constraint for finite sequences of variables" (CP 2004). The states are kept along the search, so
// that a run looks only at arcs beside an integer or a set of states that changed.
class KIV_EXPORT Regular final : public KivOmbiConstraint {
 public:
  struct Arc {
    unsigned from;
    std::int32_t symbol;
    unsigned to;
  };
  // States are numbers below `states`. Throws std::invalid_argument when another is named.
  Regular(unsigned states, std::vector<Arc> arcs, unsigned start,
          const std::vector<unsigned>& accepting);

  void Activate(KivOmbiNetwork* network) override;
  void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) override;
  // At worst linear in the number of integers times that of arcs.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  void Prepare(const KivOmbiObjectEnvironment& environment);
  bool PassForward(const KivOmbiObjectEnvironment& environment);
  KivOmbiFilterResult PassBackward(const KivOmbiObjectEnvironment& environment);
  // The states before integer i, or after the last one.
  std::uint64_t* StatesBefore(std::size_t i) { return &alive_[i * words_]; }
  bool KeepStates(const KivOmbiObjectEnvironment& environment, std::size_t i);
  template <class Use>
  void ForEachArc(const KivOmbiObjectEnvironment& environment, unsigned i, Use&& use) const;

  unsigned states_;
  unsigned start_;
  std::vector<std::uint64_t> accepting_;
  std::vector<std::int32_t> symbols_;    // ascending
  std::vector<Arc> arcs_;                // by symbol
  std::vector<std::size_t> first_arcs_;  // by position in symbols_, and the end
  std::size_t words_;                    // of a set of states
  std::vector<std::uint64_t> alive_;     // sets of states, one before each integer and the last
  std::vector<char> is_changed_;         // by integer: it, or the states beside it
  bool repeats_ = false;                 // some variable stands twice
  std::vector<std::uint64_t> reached_;   // states, to collect in
  std::vector<std::int32_t> supported_;  // values, to collect in
};

}  // namespace kiv
