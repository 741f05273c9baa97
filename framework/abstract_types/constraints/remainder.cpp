#include <array>

#include "framework/abstract_types/constraints/arithmetic.h"
#include "framework/abstract_types/constraints/ground_truth.h"
#include "framework/abstract_types/constraints/hull_narrowing.h"
#include "framework/abstract_types/constraints/narrowing.h"

namespace {

enum Argument : unsigned { kX, kY, kZ, kArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiRemainderConstraint> remainder(
    "KivOmbiRemainderConstraint", kArguments, 0, true);

// Whether each operation leaves exactly the values that are part of a solution: where all arguments
// list theirs, and there are so few pairs that the kind can collect all remainders. What one
// operation removes was no reason for another to keep anything then.
bool AreExact(const KivOmbiObjectEnvironment& environment) {
  constexpr std::uint64_t kMostCollected = 1024;
  const std::uint64_t pairs =
      std::uint64_t{environment.Summary(kX).cardinality} * environment.Summary(kY).cardinality;
  return pairs <= kMostCollected && !environment.Values(kX).empty() &&
         !environment.Values(kY).empty() && !environment.Values(kZ).empty();
}

// A fixed modulus is right as soon as there are dividends left for it, which are exact then.
void NarrowBounds(std::array<kiv::Hull, kArguments>& hulls) {
  auto& [z, x, y] = hulls;
  z = kiv::Intersection(z, kiv::Remainder(x, y));
  if (x.IsFixed() && y.IsFixed()) return;
  x = kiv::Dividend(x, y, z);
  if (!y.IsFixed()) y = kiv::Modulus(x, y, z);
}

KivOmbiFilterResult NarrowToBounds(const KivOmbiObjectEnvironment& environment) {
  if (const auto& y = environment.Summary(kY); y.IsFixed()) {
    const auto settle = [modulus = y.lower](std::array<kiv::Hull, 2>& hulls) {
      auto& [z, x] = hulls;
      kiv::SettleRemainder(x, modulus, z);
    };
    return kiv::NarrowHulls(environment, std::array<unsigned, 2>{kZ, kX}, settle);
  }
  return kiv::NarrowHulls(
      environment, std::array<unsigned, kArguments>{kZ, kX, kY},
      [](std::array<kiv::Hull, kArguments>& hulls) { kiv::SettleHulls(hulls, NarrowBounds); });
}

KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment,
                           const KivOmbiObjectDescriptor& carrier) {
  const auto hull = [&](unsigned i) { return kiv::HullOf(environment, i); };
  const bool is_modulus_known = !environment.Summary(kY).IsAny();
  // With 0 among the moduli a kind that keeps values would say nothing of the rest.
  if (const auto result = kiv::RemoveValue(environment, kY, 0)) return result;
  // A remainder is less than its modulus.
  if (environment.IsSame(kY, kZ)) return kiv::Empty(environment, kY);
  if (environment.IsSame(kX, kY)) return kiv::Assign(environment, kZ, 0);
  if (const auto result = NarrowToBounds(environment)) return result;
  // A modulus that was unknown may have got a 0 since it was removed.
  if (!carrier.HoldsGaps() || environment.AllFixed()) return is_modulus_known ? kKivAtFixpoint : 0;
  const bool is_exact = is_modulus_known && AreExact(environment);
  // The bounds are at rest: only an unknown argument has to hear more than its own.
  const auto candidates = [&](unsigned i, auto&& compute) {
    return environment.Summary(i).IsAny() ? compute() : hull(i);
  };
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kZ,
          candidates(kZ, [&] { return kiv::Remainder(hull(kX), hull(kY)); }),
          [](KivOmbiInteger& z, const KivOmbiInteger& x, const KivOmbiInteger& y) {
            return z.CalcModValue(x, y);
          },
          kX, kY)) {
    return result;
  }
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kX,
          candidates(kX, [&] { return kiv::Dividend(hull(kX), hull(kY), hull(kZ)); }),
          [](KivOmbiInteger& x, const KivOmbiInteger& z, const KivOmbiInteger& y) {
            return z.CalcFirstInverseModValue(x, y);
          },
          kZ, kY)) {
    return result;
  }
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kY,
          candidates(kY, [&] { return kiv::Modulus(hull(kX), hull(kY), hull(kZ)); }),
          [](KivOmbiInteger& y, const KivOmbiInteger& z, const KivOmbiInteger& x) {
            return z.CalcSecondInverseModValue(x, y);
          },
          kZ, kX)) {
    return result;
  }
  return is_exact ? kKivAtFixpoint : 0;
}

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiRemainderConstraint::sDescriptor = &remainder;

KivOmbiRemainderConstraint::KivOmbiRemainderConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiRemainderConstraint::~KivOmbiRemainderConstraint() = default;

std::int64_t KivOmbiRemainderConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                std::int64_t) {
  const auto result = Narrow(environment, GetCarrier());
  return kiv::IsEnd(result) ? result : result | Settle(environment);
}

std::int64_t KivOmbiRemainderConstraint::GetWakingEvents(unsigned, unsigned) const {
  return GetCarrier().HoldsGaps() ? kKivAnyEvent : kKivBounds;
}

bool KivOmbiRemainderConstraint::Holds(std::span<const std::int64_t> values) const {
  return kiv::ground_truth::IsRemainder(values[kX], values[kY], values[kZ]);
}
