#pragma once

#include <cstdint>
#include <span>

#include "framework/abstract_types/any.h"
#include "framework/abstract_types/integer.h"
#include "framework/calculator/descriptor.h"
#include "framework/calculator/domain_summary.h"
#include "framework/calculator/network.h"
#include "framework/intervals/sub_int_base.h"

// A variable of a network.
struct KivOmbiVariable {
  KivOmbiAny* domain = nullptr;
  const KivOmbiObjectDescriptor* kind = nullptr;
  KivOmbiDomainSummary summary;  // of `domain`, always up to date while constraints run
  std::uint64_t saved_at = 0;    // the mark of what the trail saved of `domain` last
  bool is_boolean = false;       // whether `domain` is a KivOmbiBoolean
};

// The arguments of a running constraint, by position. Reading a summary costs no virtual call.
class KivOmbiObjectEnvironment {
 public:
  KivOmbiObjectEnvironment(KivOmbiNetwork& network, KivOmbiVariable* variables,
                           const std::uint32_t* arguments, unsigned count) noexcept
      : network_(network), variables_(variables), arguments_(arguments), count_(count) {}

  // The first `count` arguments alone.
  KivOmbiObjectEnvironment First(unsigned count) const noexcept {
    return {network_, variables_, arguments_, count};
  }

  unsigned Count() const noexcept { return count_; }
  const KivOmbiDomainSummary& Summary(unsigned i) const { return At(i).summary; }
  const KivOmbiObjectDescriptor* Kind(unsigned i) const { return At(i).kind; }
  const KivOmbiAny& Domain(unsigned i) const { return *At(i).domain; }
  bool IsBoolean(unsigned i) const { return At(i).is_boolean; }
  // For an argument that is known to be an integer.
  const KivOmbiInteger& Integer(unsigned i) const {
    return static_cast<const KivOmbiInteger&>(Domain(i));
  }
  // The values of an argument whose kind lists them, ascending; valid until it is narrowed. None
  // for other kinds and for an argument without values.
  std::span<const SubIntBase> Values(unsigned i) const {
    return At(i).kind->GetValues(*At(i).domain);
  }
  // Whether two arguments are one variable.
  bool IsSame(unsigned i, unsigned j) const { return arguments_[i] == arguments_[j]; }
  bool AllFixed() const {
    for (unsigned i = 0; i < count_; ++i) {
      if (!Summary(i).IsFixed()) return false;
    }
    return true;
  }

  // Lets `narrow` work on the domain of argument i and tells the network when it answers that it
  // changed something. False when no value is left.
  template <class Narrow>
  bool NarrowAny(unsigned i, Narrow&& narrow) const {
    if (narrow(*At(i).domain) != 0) network_.Refresh(arguments_[i]);
    return !Summary(i).IsNil();
  }
  template <class Narrow>
  bool NarrowInteger(unsigned i, Narrow&& narrow) const {
    return NarrowAny(
        i, [&](KivOmbiAny& domain) { return narrow(static_cast<KivOmbiInteger&>(domain)); });
  }

  // Changes a word of the running constraint's own state, which backtracking restores. What a
  // constraint keeps elsewhere stays as it is when a level is taken back.
  void SetWord(std::uint64_t& word, std::uint64_t value) const {
    if (word == value) return;
    network_.SaveWord(word);
    word = value;
  }

  // A domain of `kind` to compute with, made Any; valid until the next call with the same index.
  KivOmbiAny& Scratch(const KivOmbiObjectDescriptor& kind, unsigned index) const {
    auto& domain = static_cast<KivOmbiAny&>(network_.Scratch(kind, index));
    domain.SetUndefinedValue();
    return domain;
  }
  // The same domain again, as its last user left it.
  KivOmbiAny& LastScratch(const KivOmbiObjectDescriptor& kind, unsigned index) const {
    return static_cast<KivOmbiAny&>(network_.Scratch(kind, index));
  }

 private:
  KivOmbiVariable& At(unsigned i) const { return variables_[arguments_[i]]; }

  KivOmbiNetwork& network_;
  KivOmbiVariable* variables_;
  const std::uint32_t* arguments_;
  unsigned count_;
};
