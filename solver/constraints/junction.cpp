#include "solver/constraints/junction.h"

#include <limits>

#include "solver/constraints/truth.h"

namespace kiv {

namespace {

enum Argument : unsigned { kTruth, kFirst };

const KivOmbiConstraintDescriptor descriptor("kiv::Junction", 0, 0, true);

}  // namespace

Junction::Junction(Which which) : Junction(which, std::numeric_limits<unsigned>::max()) {}

Junction::Junction(Which which, unsigned positive)
    : KivOmbiConstraint(&descriptor), which_(which), positive_(positive) {}

// One value decides both: a true literal makes "any" true, a false one makes "all" false. So t has
// that value if and only if some literal has it.
std::int64_t Junction::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const bool deciding = which_ == kAny;
  unsigned open = kTruth;  // the first literal that is open; kTruth for none
  bool is_single = true;   // no other literal is open
  for (unsigned i = kFirst; i < environment.Count(); ++i) {
    const KivOmbiDomainSummary& x = environment.Summary(i);
    if (IsKnown(x, deciding == Wanted(i))) {
      const auto result = SetTruth(environment, kTruth, deciding);
      return result != 0 ? result : kKivEntailed;
    }
    if (x.IsFixed()) continue;
    if (open == kTruth) {
      open = i;
    } else {
      is_single = is_single && environment.IsSame(open, i) && Wanted(open) == Wanted(i);
    }
  }
  if (open == kTruth) {
    const auto result = SetTruth(environment, kTruth, !deciding);
    return result != 0 ? result : kKivEntailed;
  }
  const KivOmbiDomainSummary& truth = environment.Summary(kTruth);
  if (IsKnown(truth, !deciding)) {
    for (unsigned i = open; i < environment.Count(); ++i) {
      if (const auto result = SetTruth(environment, i, deciding != Wanted(i))) return result;
    }
    return kKivEntailed;
  }
  if (is_single && IsKnown(truth, deciding)) {
    const auto result = SetTruth(environment, open, deciding == Wanted(open));
    return result != 0 ? result : kKivEntailed;
  }
  return kKivAtFixpoint;
}

KivOmbiConstraint::Cost Junction::GetCost() const { return kLinear; }

std::int64_t Junction::GetWakingEvents(unsigned, unsigned) const { return kKivFixed; }

bool Junction::Holds(std::span<const std::int64_t> values) const {
  std::size_t true_ones = 0;
  for (unsigned i = kFirst; i < values.size(); ++i) {
    true_ones += (values[i] != 0) == Wanted(i) ? 1 : 0;
  }
  const bool truth = which_ == kAll ? true_ones + kFirst == values.size() : true_ones > 0;
  return (values[kTruth] != 0) == truth;
}

}  // namespace kiv
