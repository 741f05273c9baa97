#include "solver/constraints/element_of_variables.h"

#include <algorithm>

#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/supports.h"
#include "solver/constraints/value_sets.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

enum Argument : unsigned { kX, kZ, kElements };

const KivOmbiConstraintDescriptor descriptor("kiv::ElementOfVariables", 0, 0, true);

std::int64_t Last(const KivOmbiObjectEnvironment& environment, std::int64_t first) {
  return first + environment.Count() - kElements - 1;
}

}  // namespace

ElementOfVariables::ElementOfVariables(std::int32_t first)
    : KivOmbiConstraint(&descriptor), first_(first) {}

unsigned ElementOfVariables::ElementAt(std::int64_t index) const {
  return static_cast<unsigned>(kElements + (index - first_));
}

template <class Use>
bool ElementOfVariables::FindElement(const KivOmbiObjectEnvironment& environment, Use&& use) const {
  const KivOmbiDomainSummary& summary = environment.Summary(kX);
  const std::int64_t lower = std::max<std::int64_t>(summary.lower, first_);
  const std::int64_t upper = std::min<std::int64_t>(summary.upper, Last(environment, first_));
  for (std::int64_t index = lower; index <= upper; ++index) {
    if (!environment.Integer(kX).MayBe(static_cast<std::int32_t>(index))) continue;
    if (use(ElementAt(index))) return true;
  }
  return false;
}

void ElementOfVariables::Activate(KivOmbiNetwork* network) {
  std::ranges::fill(changed_, ~BitWord{0});
  KivOmbiConstraint::Activate(network);
}

void ElementOfVariables::ActivateByArgument(unsigned index, std::int64_t events,
                                            KivOmbiNetwork* network) {
  if (index == kZ) std::ranges::fill(changed_, ~BitWord{0});
  if (index >= kElements && !open_.empty()) {
    const unsigned place = index - kElements;
    if (!HasBit(open_, place)) return;
    changed_[place / kBitsPerWord] |= BitOf(place);
  }
  KivOmbiConstraint::ActivateByArgument(index, events, network);
}

// Before the first run no index is ruled out.
void ElementOfVariables::Prepare(const KivOmbiObjectEnvironment& environment) {
  const unsigned elements = environment.Count() - kElements;
  open_.assign(CountWords(elements), ~BitWord{0});
  changed_ = indices_ = open_;
  repeats_ = environment.IsSame(kX, kZ);
  for (unsigned i = kElements; i < environment.Count(); ++i) {
    repeats_ |= environment.IsSame(i, kX) || environment.IsSame(i, kZ);
  }
}

std::int64_t ElementOfVariables::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (environment.Count() == kElements) return Empty(environment, kX);
  if (open_.empty()) Prepare(environment);
  if (const auto result = TightenLower(environment, kX, first_)) return result;
  if (const auto result = TightenUpper(environment, kX, Last(environment, first_))) return result;
  if (environment.Summary(kX).IsFixed()) return EquateChosen(environment);
  const bool by_bits = FitsBits(environment);
  if (const auto result = by_bits ? NarrowByBits(environment) : NarrowByBounds(environment)) {
    return result;
  }
  if (environment.Summary(kX).IsFixed()) return EquateChosen(environment);
  CloseIndices(environment);
  return by_bits && !repeats_ ? kKivAtFixpoint : 0;
}

bool ElementOfVariables::FitsBits(const KivOmbiObjectEnvironment& environment) {
  const KivOmbiDomainSummary& x = environment.Summary(kX);
  const KivOmbiDomainSummary& z = environment.Summary(kZ);
  return !x.IsAny() && IsListable(z) && std::int64_t{z.upper} - z.lower < kWidestBitWindow;
}

// From now on elements at other indices than indices_ are of no interest: they stay without support
// even where the kind of x keeps them.
void ElementOfVariables::CloseIndices(const KivOmbiObjectEnvironment& environment) {
  for (std::size_t w = 0; w < open_.size(); ++w) environment.SetWord(open_[w], indices_[w]);
}

KivOmbiFilterResult ElementOfVariables::EquateChosen(const KivOmbiObjectEnvironment& environment) {
  TakeBits(environment, kX, first_, indices_);
  CloseIndices(environment);
  const unsigned element = ElementAt(environment.Summary(kX).lower);
  if (const auto result = Equate(environment, element, kZ)) return result;
  const bool fixed = environment.Summary(kZ).IsFixed() && environment.Summary(element).IsFixed();
  return fixed || environment.IsSame(element, kZ) ? kKivEntailed : 0;
}

// An index stays while its element and z have a value in common, which an element that did not
// change still has once all were looked at, unless z changed.
template <class IsCommon>
KivOmbiFilterResult ElementOfVariables::KeepIndices(const KivOmbiObjectEnvironment& environment,
                                                    bool only_changed, IsCommon&& is_common) {
  TakeBits(environment, kX, first_, indices_);
  lost_.clear();
  ForEachBit(indices_, [&](std::size_t index) {
    if (HasBit(open_, index)) {
      if (only_changed && !HasBit(changed_, index)) return;
      if (is_common(static_cast<unsigned>(kElements + index))) return;
    }
    indices_[index / kBitsPerWord] &= ~BitOf(index);
    lost_.push_back(static_cast<std::int32_t>(first_ + static_cast<std::int64_t>(index)));
  });
  return RemoveValues(environment, kX, lost_);
}

// The one value of a fixed z is lost with the last index; one of several, when no element at an
// index that stays has it.
KivOmbiFilterResult ElementOfVariables::NarrowByBits(const KivOmbiObjectEnvironment& environment) {
  const bool only_changed = !repeats_ && looked_at_all_ != 0;
  const KivOmbiDomainSummary& z = environment.Summary(kZ);
  const auto result = z.IsFixed() ? KeepIndices(environment, only_changed,
                                                [&, value = z.lower](unsigned element) {
                                                  return MayBe(environment, element, value);
                                                })
                                  : NarrowBoth(environment, only_changed);
  if (result != 0) return result;
  // What z lost now no element had.
  std::ranges::fill(changed_, 0);
  environment.SetWord(looked_at_all_, 1);
  return 0;
}

KivOmbiFilterResult ElementOfVariables::NarrowBoth(const KivOmbiObjectEnvironment& environment,
                                                   bool only_changed) {
  const std::int64_t base = environment.Summary(kZ).lower;
  const std::size_t words = CountWords(environment.Summary(kZ).upper - base + 1);
  wanted_.resize(words);
  element_.resize(words);
  found_.assign(words, 0);
  TakeBits(environment, kZ, base, wanted_);
  const auto look_at = [&](unsigned element) {
    TakeBits(environment, element, base, element_);
    for (std::size_t w = 0; w < words; ++w) found_[w] |= element_[w];
    return Meet(element_, wanted_);
  };
  if (const auto result = KeepIndices(environment, only_changed, look_at)) return result;
  if (only_changed) {
    ForEachBit(indices_, [&](std::size_t index) {
      if (HasBit(changed_, index) || IsAllFound()) return;
      look_at(static_cast<unsigned>(kElements + index));
    });
  }
  return RemoveUnfound(environment, base);
}

bool ElementOfVariables::IsAllFound() const {
  for (std::size_t w = 0; w < wanted_.size(); ++w) {
    if ((wanted_[w] & ~found_[w]) != 0) return false;
  }
  return true;
}

// Removes the values of z that no element was found to have.
KivOmbiFilterResult ElementOfVariables::RemoveUnfound(const KivOmbiObjectEnvironment& environment,
                                                      std::int64_t base) {
  lost_.clear();
  for (std::size_t w = 0; w < wanted_.size(); ++w) {
    ForEachBit(wanted_[w] & ~found_[w], w * kBitsPerWord, [&](std::size_t place) {
      lost_.push_back(static_cast<std::int32_t>(base + static_cast<std::int64_t>(place)));
    });
  }
  return RemoveValues(environment, kZ, lost_);
}

KivOmbiFilterResult ElementOfVariables::NarrowByBounds(
    const KivOmbiObjectEnvironment& environment) {
  const auto narrowed =
      KeepIfBetween(environment, kX, first_, Last(environment, first_), [&](std::int32_t index) {
        return LeastCommon(environment, ElementAt(index), kZ).has_value();
      });
  if (narrowed != 0 || environment.Summary(kX).IsFixed()) return narrowed;
  TakeBits(environment, kX, first_, indices_);
  return NarrowValue(environment);
}

KivOmbiFilterResult ElementOfVariables::NarrowValue(
    const KivOmbiObjectEnvironment& environment) const {
  std::int32_t least = SubIntBase::kMax;
  std::int32_t greatest = SubIntBase::kMin;
  FindElement(environment, [&](unsigned element) {
    if (const auto common = LeastCommon(environment, element, kZ)) {
      least = std::min(least, *common);
      greatest = std::max(greatest, *GreatestCommon(environment, element, kZ));
    }
    return false;
  });
  if (least > greatest) return Empty(environment, kZ);
  if (const auto result = TightenLower(environment, kZ, least)) return result;
  if (const auto result = TightenUpper(environment, kZ, greatest)) return result;
  if (environment.Summary(kZ).IsAny()) return TakeUnion(environment);
  if (!IsListable(environment.Summary(kZ))) return 0;

  // Neighbouring values are mostly found in the same element.
  unsigned last_found = kZ;
  return KeepIf(environment, kZ, [&](std::int32_t value) {
    if (last_found != kZ && environment.Integer(last_found).MayBe(value)) return true;
    return FindElement(environment, [&](unsigned element) {
      if (!environment.Integer(element).MayBe(value)) return false;
      last_found = element;
      return true;
    });
  });
}

KivOmbiFilterResult ElementOfVariables::TakeUnion(
    const KivOmbiObjectEnvironment& environment) const {
  const bool has_unlisted = FindElement(
      environment, [&](unsigned element) { return !IsListable(environment.Summary(element)); });
  if (has_unlisted) return 0;
  TakeValues(environment, kZ, [&](auto&& add) {
    FindElement(environment, [&](unsigned element) {
      ForEachValue(environment.Integer(element), environment.Summary(element), add);
      return false;
    });
  });
  return 0;
}

KivOmbiConstraint::Cost ElementOfVariables::GetCost() const { return kQuadratic; }

bool ElementOfVariables::Holds(std::span<const std::int64_t> values) const {
  const std::int64_t position = values[kX] - first_;
  const auto elements = static_cast<std::int64_t>(values.size()) - kElements;
  if (position < 0 || position >= elements) return false;
  return values[kElements + static_cast<std::size_t>(position)] == values[kZ];
}

}  // namespace kiv
