#include "solver/constraints/parity.h"

#include <algorithm>

#include "solver/constraints/truth.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::Parity", 0, 0, true);

}  // namespace

Parity::Parity(Which which) : KivOmbiConstraint(&descriptor), which_(which) {}

void Parity::ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) {
  if (index == watched_[0] || index == watched_[1]) {
    KivOmbiConstraint::ActivateByArgument(index, events, network);
  }
}

std::int64_t Parity::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  std::array<unsigned, 2> open{};
  unsigned size = 0;
  bool wanted = which_ == kOdd;  // of those that are open together
  for (unsigned i = 0; i < environment.Count() && size < 2; ++i) {
    if (environment.Summary(i).IsFixed()) {
      wanted ^= environment.Summary(i).lower != 0;
    } else {
      open[size++] = i;
    }
  }
  if (size == 2) {
    watched_ = open;
    return kKivAtFixpoint;
  }
  if (size == 0) return wanted ? kKivContradiction : kKivEntailed;
  const auto result = SetTruth(environment, open[0], wanted);
  return result != 0 ? result : kKivEntailed;
}

KivOmbiConstraint::Cost Parity::GetCost() const { return kLinear; }

std::int64_t Parity::GetWakingEvents(unsigned, unsigned) const { return kKivFixed; }

bool Parity::Holds(std::span<const std::int64_t> values) const {
  const auto true_ones = std::ranges::count_if(values, [](std::int64_t v) { return v != 0; });
  return (true_ones % 2 != 0) == (which_ == kOdd);
}

}  // namespace kiv
