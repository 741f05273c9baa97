#include "solver/constraints/junction.h"

#include <algorithm>

#include "solver/constraints/truth.h"

namespace kiv {

namespace {

enum Argument : unsigned { kTruth, kFirst };

const KivOmbiConstraintDescriptor descriptor("kiv::Junction", 0, 0, true);

}  // namespace

Junction::Junction(Which which) : KivOmbiConstraint(&descriptor), which_(which) {}

// One value decides both: a true x makes "any" true, a false one makes "all" false. So t has that
// value if and only if some x has it.
std::int64_t Junction::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const bool deciding = which_ == kAny;
  unsigned open = kTruth;  // the first x that is open; kTruth for none
  bool is_single = true;   // no other variable is open
  for (unsigned i = kFirst; i < environment.Count(); ++i) {
    const KivOmbiDomainSummary& x = environment.Summary(i);
    if (IsKnown(x, deciding)) {
      const auto result = SetTruth(environment, kTruth, deciding);
      return result != 0 ? result : kKivEntailed;
    }
    if (x.IsFixed()) continue;
    if (open == kTruth) {
      open = i;
    } else {
      is_single = is_single && environment.IsSame(open, i);
    }
  }
  if (open == kTruth) {
    const auto result = SetTruth(environment, kTruth, !deciding);
    return result != 0 ? result : kKivEntailed;
  }
  const KivOmbiDomainSummary& truth = environment.Summary(kTruth);
  if (IsKnown(truth, !deciding)) {
    for (unsigned i = open; i < environment.Count(); ++i) {
      if (const auto result = SetTruth(environment, i, !deciding)) return result;
    }
    return kKivEntailed;
  }
  if (is_single && IsKnown(truth, deciding)) {
    const auto result = SetTruth(environment, open, deciding);
    return result != 0 ? result : kKivEntailed;
  }
  return kKivAtFixpoint;
}

KivOmbiConstraint::Cost Junction::GetCost() const { return kLinear; }

std::int64_t Junction::GetWakingEvents(unsigned, unsigned) const { return kKivFixed; }

bool Junction::Holds(std::span<const std::int64_t> values) const {
  const auto is_true = [](std::int64_t value) { return value != 0; };
  const auto elements = values.subspan(kFirst);
  const bool truth = which_ == kAll ? std::ranges::all_of(elements, is_true)
                                    : std::ranges::any_of(elements, is_true);
  return (values[kTruth] != 0) == truth;
}

}  // namespace kiv
