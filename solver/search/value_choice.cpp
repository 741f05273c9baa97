#include "solver/search/value_choice.h"

#include <cassert>

#include "framework/abstract_types/integer.h"

namespace kiv {

namespace {

using VariableId = KivOmbNetwork::VariableId;

// The value of a domain that is nearest to `wanted`, which lies between its bounds.
std::int32_t NearestValue(const KivOmbNetwork& network, VariableId variable, std::int32_t wanted) {
  const auto& domain = static_cast<const KivOmbiInteger&>(network.GetDomain(variable));
  if (domain.MayBe(wanted)) return wanted;
  const std::int32_t below = domain.GetPrevExactValue(wanted);
  const std::int32_t above = domain.GetNextExactValue(wanted);
  return std::int64_t{wanted} - below <= std::int64_t{above} - wanted ? below : above;
}

// The half of a domain at this end, as its kind bisects a copy of it.
KivOmbiDomainSummary HalfOf(KivOmbNetwork& network, VariableId variable,
                            KivOmbiAny::ValueSelection half) {
  const KivOmbiObjectDescriptor& kind = network.GetKind(variable);
  auto& copy = static_cast<KivOmbiAny&>(network.Scratch(kind, 0));
  KivOmbiObject& part = network.Scratch(kind, 1);
  copy.Assign(network.GetDomain(variable));
  copy.Bisect(part, half);
  return kind.Summarize(part);
}

// Whether some integer between the bounds of a domain is not possible.
bool HasGaps(const KivOmbiDomainSummary& summary) {
  return std::int64_t{summary.upper} - summary.lower >= summary.cardinality;
}

// The last value before the first gap of a domain that has one.
std::int32_t FirstRangeEnd(const KivOmbiInteger& domain, const KivOmbiDomainSummary& summary) {
  std::int32_t value = summary.lower;
  while (domain.MayBe(value + 1)) ++value;
  return value;
}

std::int32_t MedianOf(const KivOmbiInteger& domain, const KivOmbiDomainSummary& summary) {
  std::int32_t value = summary.lower;
  for (std::uint32_t below = (summary.cardinality - 1) / 2; below > 0; --below) {
    value = domain.GetNextExactValue(value);
  }
  return value;
}

// The choice among two values, whatever the kind.
std::int32_t ChooseOfTwo(const KivOmbiDomainSummary& summary, ValueChoice choice,
                         std::mt19937_64& random) {
  switch (choice) {
    case ValueChoice::kGreatest:
    case ValueChoice::kUpperHalf:
    case ValueChoice::kBeyondMiddle:
    case ValueChoice::kButSmallest:
      return summary.upper;
    case ValueChoice::kRandom:
      return random() % 2 == 0 ? summary.lower : summary.upper;
    default:
      return summary.lower;
  }
}

Literal Choose(KivOmbNetwork& network, VariableId variable, ValueChoice choice,
               std::mt19937_64& random) {
  const KivOmbiDomainSummary& summary = network.GetSummary(variable);
  if (summary.cardinality == 2) {
    return Literal::Equal(variable, ChooseOfTwo(summary, choice, random));
  }
  if (choice == ValueChoice::kFromBelow) {
    constexpr std::uint32_t kMostTriedOneByOne = 64;
    choice = summary.cardinality <= kMostTriedOneByOne ? ValueChoice::kSmallest
                                                       : ValueChoice::kLowerHalf;
  }
  const std::int64_t width = std::int64_t{summary.upper} - summary.lower;
  const auto nearest = [&](std::int64_t offset) {
    const auto wanted = static_cast<std::int32_t>(summary.lower + offset);
    return Literal::Equal(variable, NearestValue(network, variable, wanted));
  };
  const auto middle = static_cast<std::int32_t>(summary.lower + width / 2);
  const auto& domain = static_cast<const KivOmbiInteger&>(network.GetDomain(variable));
  switch (choice) {
    case ValueChoice::kSmallest:
      return Literal::Equal(variable, summary.lower);
    case ValueChoice::kGreatest:
      return Literal::Equal(variable, summary.upper);
    case ValueChoice::kButSmallest:
      return Literal::AtLeast(variable, summary.lower + 1);
    case ValueChoice::kButGreatest:
      return Literal::AtMost(variable, summary.upper - 1);
    case ValueChoice::kLowerHalf:
      return Literal::AtMost(variable, HalfOf(network, variable, KivOmbiAny::kLowerHalf).upper);
    case ValueChoice::kUpperHalf:
      return Literal::AtLeast(variable, HalfOf(network, variable, KivOmbiAny::kUpperHalf).lower);
    case ValueChoice::kUpToMiddle:
      return Literal::AtMost(variable, middle);
    case ValueChoice::kBeyondMiddle:
      return Literal::AtLeast(variable, middle + 1);
    case ValueChoice::kUpToFirstGap:
      return Literal::AtMost(variable, HasGaps(summary) ? FirstRangeEnd(domain, summary) : middle);
    case ValueChoice::kMiddle:
      return nearest(width / 2);
    case ValueChoice::kMedian:
      return Literal::Equal(variable, HasGaps(summary) ? MedianOf(domain, summary) : middle);
    default:
      break;
  }
  // A random value. Not a distribution of the library's, whose values differ from one library to
  // another.
  return nearest(static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(width + 1)));
}

}  // namespace

Literal ChooseValue(KivOmbNetwork& network, VariableId variable, ValueChoice choice,
                    std::mt19937_64& random) {
  const Literal literal = Choose(network, variable, choice, random);
  assert(!IsEntailed(network, literal) && !IsImpossible(network, literal));
  return literal;
}

}  // namespace kiv
