#include "solver/constraints/extremum.h"

#include <algorithm>
#include <optional>

#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/supports.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

enum Argument : unsigned { kM, kFirst };

const KivOmbiConstraintDescriptor descriptor("kiv::Extremum", 0, 0, true);

// The arguments as they are for the greatest, or negated for the least, which is the greatest of
// the negated then. The range of integers is symmetric, so that every bound can be negated.
class View {
 public:
  View(const KivOmbiObjectEnvironment& environment, Extremum::Which which)
      : environment_(environment), negated_(which == Extremum::kLeast) {}

  std::int32_t Lower(unsigned i) const {
    return negated_ ? -environment_.Summary(i).upper : environment_.Summary(i).lower;
  }
  std::int32_t Upper(unsigned i) const {
    return negated_ ? -environment_.Summary(i).lower : environment_.Summary(i).upper;
  }
  KivOmbiFilterResult RaiseLower(unsigned i, std::int32_t bound) const {
    return negated_ ? TightenUpper(environment_, i, -std::int64_t{bound})
                    : TightenLower(environment_, i, bound);
  }
  KivOmbiFilterResult ReduceUpper(unsigned i, std::int32_t bound) const {
    return negated_ ? TightenLower(environment_, i, -std::int64_t{bound})
                    : TightenUpper(environment_, i, bound);
  }
  std::optional<std::int32_t> LowestCommon(unsigned i, unsigned j) const {
    return Viewed(negated_ ? GreatestCommon(environment_, i, j) : LeastCommon(environment_, i, j));
  }
  std::optional<std::int32_t> HighestCommon(unsigned i, unsigned j) const {
    return Viewed(negated_ ? LeastCommon(environment_, i, j) : GreatestCommon(environment_, i, j));
  }
  // A number of the domains as one of the view, and the other way round.
  std::int32_t Viewed(std::int32_t value) const { return negated_ ? -value : value; }

 private:
  std::optional<std::int32_t> Viewed(std::optional<std::int32_t> value) const {
    return value ? std::optional(Viewed(*value)) : value;
  }

  const KivOmbiObjectEnvironment& environment_;
  bool negated_;
};

// m, of which nothing is known, takes the values of the others from `lowest` on, if they can be
// listed.
void TakeUnion(const KivOmbiObjectEnvironment& environment, const View& view, std::int32_t lowest) {
  for (unsigned i = kFirst; i < environment.Count(); ++i) {
    if (!IsListable(environment.Summary(i))) return;
  }
  TakeValues(environment, kM, [&](auto&& add) {
    for (unsigned i = kFirst; i < environment.Count(); ++i) {
      ForEachValue(environment.Integer(i), environment.Summary(i), [&](std::int32_t value) {
        if (view.Viewed(value) >= lowest) add(value);
      });
    }
  });
}

// m keeps the values that some argument may have.
KivOmbiFilterResult KeepUnion(const KivOmbiObjectEnvironment& environment) {
  return KeepIf(environment, kM, [&](std::int32_t value) {
    for (unsigned i = kFirst; i < environment.Count(); ++i) {
      if (environment.Integer(i).MayBe(value)) return true;
    }
    return false;
  });
}

// m is known, one argument has its value and none can go beyond it.
bool IsEntailed(const KivOmbiObjectEnvironment& environment, const View& view) {
  if (!environment.Summary(kM).IsFixed()) return false;
  bool is_reached = false;
  for (unsigned i = kFirst; i < environment.Count(); ++i) {
    if (view.Upper(i) > view.Upper(kM)) return false;
    is_reached |= environment.Summary(i).IsFixed() && view.Upper(i) == view.Upper(kM);
  }
  return is_reached;
}

}  // namespace

Extremum::Extremum(Which which) : KivOmbiConstraint(&descriptor), which_(which) {}

// A value v of m is possible while some x may have it and no x must exceed it; a value v of some x
// while m may be v, or while m may have a value of v or more by another x. So of all x, at most one
// has values that only it can give m: those above what m shares with the others.
std::int64_t Extremum::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const View view(environment, which_);
  std::int32_t floor = SubIntBase::kMin;
  for (unsigned i = kFirst; i < environment.Count(); ++i) floor = std::max(floor, view.Lower(i));
  if (const auto result = view.RaiseLower(kM, floor)) return result;

  std::optional<std::int32_t> lowest;
  std::optional<std::int32_t> highest;
  std::optional<std::int32_t> highest_of_others;
  unsigned holder = kM;  // which shares `highest` with m
  for (unsigned i = kFirst; i < environment.Count(); ++i) {
    const auto common = view.HighestCommon(kM, i);
    if (!common) continue;
    const std::int32_t low = *view.LowestCommon(kM, i);
    lowest = lowest ? std::min(*lowest, low) : low;
    if (!highest || *common > *highest) {
      highest_of_others = highest;
      highest = common;
      holder = i;
    } else if (!highest_of_others || *common > *highest_of_others) {
      highest_of_others = common;
    }
  }
  if (!highest) return Empty(environment, kM);

  if (const auto result = view.RaiseLower(kM, *lowest)) return result;
  if (const auto result = view.ReduceUpper(kM, *highest)) return result;
  for (unsigned i = kFirst; i < environment.Count(); ++i) {
    if (const auto result = view.ReduceUpper(i, *highest)) return result;
  }
  if (environment.Summary(kM).IsAny()) {
    TakeUnion(environment, view, floor);
  } else if (IsListable(environment.Summary(kM))) {
    if (const auto result = KeepUnion(environment)) return result;
  }
  if (!highest_of_others) {
    if (const auto result = Equate(environment, holder, kM)) return result;
  } else if (*highest_of_others < *highest && IsListable(environment.Summary(holder))) {
    const auto result = KeepIf(environment, holder, [&](std::int32_t value) {
      return view.Viewed(value) <= *highest_of_others || environment.Integer(kM).MayBe(value);
    });
    if (result != 0) return result;
  }
  return IsEntailed(environment, view) ? kKivEntailed : 0;
}

KivOmbiConstraint::Cost Extremum::GetCost() const { return kLinear; }

bool Extremum::Holds(std::span<const std::int64_t> values) const {
  const auto elements = values.subspan(kFirst);
  if (elements.empty()) return false;
  return values[kM] == (which_ == kLeast ? std::ranges::min(elements) : std::ranges::max(elements));
}

}  // namespace kiv
