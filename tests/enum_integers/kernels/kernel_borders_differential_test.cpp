// The operators where one technique of the kernels gives way to another: window sizes, magnitudes
// near saturation, collections about as large as the cap, operands of one sign and of both.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "tests/enum_integers/support/operation.h"

namespace {

using namespace kiv::test;
namespace reference = kiv::reference;
using reference::EnumSet;
using reference::kMax;
using reference::kMin;

KivOmbEnumInteger& Set(KivOmbiAny* object) { return *KivOmbEnumInteger::DynamicCast(object); }
EnumSet& Set(Operand& value) { return std::get<EnumSet>(value); }

// `count` values, or a few less, in a window of `width` integers from `low` on.
EnumSet SetInWindow(Random& random, int count, std::int64_t low, std::int64_t width) {
  EnumSet set{{}, random.Between(0, 1)};
  const std::int64_t last = std::min<std::int64_t>(low + width - 1, kMax);
  if (width == count) {
    for (std::int64_t v = low; v <= last; ++v) set.values.push_back(static_cast<std::int32_t>(v));
    return set;
  }
  for (int i = 0; i < count; ++i) {
    set.values.push_back(random.Between(std::max<std::int64_t>(low, kMin), last));
  }
  std::sort(set.values.begin(), set.values.end());
  set.values.erase(std::unique(set.values.begin(), set.values.end()), set.values.end());
  return set;
}

// Sets of any shape: intervals, windows with holes of all widths, far apart; below, about and above
// zero, or at an end of the range.
EnumSet SetOfAnyShape(Random& random, int most) {
  const int count = random.Between(1, most);
  static constexpr std::int64_t kSpreads[] = {1, 1, 2, 3, 8, 64, 600, 5000, 1000000};
  const std::int64_t width =
      std::min<std::int64_t>(count * kSpreads[random.Between(0, std::ssize(kSpreads) - 1)], kMax);
  switch (random.Between(0, 5)) {
    case 0:
      return SetInWindow(random, count, -width / 2, width);
    case 1:
      return SetInWindow(random, count, -width - random.Between(0, 50), width);
    case 2:
      return random.OneIn(2)
                 ? SetInWindow(random, count, kMax - width - 3 + random.Between(0, 4), width)
                 : SetInWindow(random, count, kMin + random.Between(0, 3), width);
    default:
      return SetInWindow(random, count, random.Between(0, 40), width);
  }
}

// An Any target takes everything that is collected; a set loses what is not.
EnumSet Target(Random& random) {
  if (random.OneIn(2)) return {{}, 1};
  return SetOfAnyShape(random, 60);
}

Operands AnyShapes(Random& random) {
  const int most = random.OneIn(4) ? 90 : 24;
  return {Target(random), SetOfAnyShape(random, most), SetOfAnyShape(random, most)};
}

// Windows with few holes, of which sums and products come to about the cap.
Operands DenseAboutTheCap(Random& random) {
  const int first = random.Between(3, 700);
  const int second = 1024 - first + random.Between(-2, 2);
  EnumSet x = SetInWindow(random, first, random.Between(-5, 5), first);
  EnumSet y = SetInWindow(random, second, random.Between(0, 3), second);
  for (EnumSet* set : {&x, &y}) {
    if (random.OneIn(2)) set->values.erase(set->values.begin() + std::ssize(set->values) / 2);
  }
  return {EnumSet{{}, 1}, std::move(x), std::move(y)};
}

// Some values of either sign, often with an end of the range or 0 among them.
EnumSet SetOfBothSigns(Random& random, int count, std::int64_t reach) {
  EnumSet set = SetInWindow(random, count, -reach, 2 * reach + 1);
  if (random.OneIn(3)) {
    set = random.OneIn(2) ? SetInWindow(random, count, 1, reach)
                          : SetInWindow(random, count, -reach, reach);
  }
  if (random.OneIn(8)) set.values.insert(set.values.begin(), kMin);
  if (random.OneIn(8)) set.values.push_back(kMax);
  return set;
}

// Few results of many dividends and moduli: dividends are looked up by most moduli and divided by
// the others.
Operands FewRemainders(Random& random) {
  static constexpr std::int64_t kReaches[] = {30, 200, 3000, 100000, 50000000, kMax / 2};
  const std::int64_t reach = kReaches[random.Between(0, std::ssize(kReaches) - 1)];
  EnumSet z = SetOfBothSigns(random, random.Between(1, 5), random.OneIn(2) ? 4 : reach);
  EnumSet x = SetOfBothSigns(random, random.Between(10, 80), reach);
  EnumSet y = SetOfBothSigns(random, random.Between(1, 60), random.OneIn(4) ? 40 : reach);
  // Dividends with a remainder among the results are rare otherwise.
  for (int i = random.Between(0, 10); i > 0; --i) {
    const std::int64_t m = y.values[random.Between(0, std::ssize(y.values) - 1)];
    const std::int64_t r = z.values[random.Between(0, std::ssize(z.values) - 1)];
    const std::int64_t v = m * random.Between(-5, 5) + r;
    if (std::abs(v) < kMax) x.values.push_back(static_cast<std::int32_t>(v));
  }
  std::sort(x.values.begin(), x.values.end());
  x.values.erase(std::unique(x.values.begin(), x.values.end()), x.values.end());
  return {std::move(z), std::move(x), std::move(y)};
}

// The target of an inverse comes second.
Operands Exchanged(Operands operands) {
  std::swap(operands[0], operands[1]);
  return operands;
}

std::vector<Operation> Operators(Operands (*make)(Random&)) {
  const auto forward = [make](Random& random) { return make(random); };
  const auto inverse = [make](Random& random) { return Exchanged(make(random)); };
  const auto second = [make](Random& random) {
    Operands operands = make(random);
    std::swap(operands[0], operands[2]);
    return operands;
  };
  return {
      {"sum", 0, forward,
       [](const Objects& o) { return Set(o[0]).CalcSumValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::Sum(Set(v[0]), Set(v[1]), Set(v[2])); }},
      {"difference", 1, inverse,
       [](const Objects& o) { return Set(o[0]).CalcFirstInverseSumValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::FirstInverseSum(Set(v[0]), Set(v[1]), Set(v[2])); }},
      {"product", 0, forward,
       [](const Objects& o) { return Set(o[0]).CalcProdValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::Product(Set(v[0]), Set(v[1]), Set(v[2])); }},
      {"quotient", 1, inverse,
       [](const Objects& o) { return Set(o[0]).CalcFirstInverseProdValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::FirstInverseProduct(Set(v[0]), Set(v[1]), Set(v[2])); }},
      {"remainder", 0, forward,
       [](const Objects& o) { return Set(o[0]).CalcModValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::Mod(Set(v[0]), Set(v[1]), Set(v[2])); }},
      {"dividend", 1, inverse,
       [](const Objects& o) { return Set(o[0]).CalcFirstInverseModValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::FirstInverseMod(Set(v[0]), Set(v[1]), Set(v[2])); }},
      {"modulus", 2, second,
       [](const Objects& o) { return Set(o[0]).CalcSecondInverseModValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::SecondInverseMod(Set(v[0]), Set(v[1]), Set(v[2])); }},
  };
}

// Random cases an operation; fewer where checks and sanitizers make each of them dear.
#ifdef NDEBUG
constexpr int kShapeCases = 1500;
constexpr int kCapCases = 12;
#else
constexpr int kShapeCases = 150;
constexpr int kCapCases = 2;
#endif

TEST(KernelBordersDifferential, SetsOfAnyShape) {
  Random random;
  for (const Operation& operation : Operators(AnyShapes)) {
    Compare(operation, random, kShapeCases);
    if (HasFatalFailure()) return;
  }
}

TEST(KernelBordersDifferential, FewRemainders) {
  const Operation operations[] = {
      {"dividend", 1, FewRemainders,
       [](const Objects& o) { return Set(o[0]).CalcFirstInverseModValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::FirstInverseMod(Set(v[0]), Set(v[1]), Set(v[2])); }},
      {"modulus", 2, FewRemainders,
       [](const Objects& o) { return Set(o[0]).CalcSecondInverseModValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::SecondInverseMod(Set(v[0]), Set(v[1]), Set(v[2])); }},
  };
  Random random;
  for (const Operation& operation : operations) {
    Compare(operation, random, 2 * kShapeCases);
    if (HasFatalFailure()) return;
  }
}

TEST(KernelBordersDifferential, DenseCollectionsAboutTheCap) {
  Random random;
  for (const Operation& operation : Operators(DenseAboutTheCap)) {
    Compare(operation, random, kCapCases);
    if (HasFatalFailure()) return;
  }
}

// Merges of all sizes: words, blocks with every remainder, very unequal sizes.
TEST(KernelBordersDifferential, Merges) {
  const auto make = [](Random& random) {
    return Operands{SetOfAnyShape(random, random.OneIn(2) ? 20 : 200),
                    SetOfAnyShape(random, random.OneIn(2) ? 20 : 200)};
  };
  const Operation operations[] = {
      {"intersection", 0, make, [](const Objects& o) { return Set(o[0]).Intersect(Set(o[1])); },
       [](Operands& v) { return reference::Intersect(Set(v[0]), Set(v[1])); }},
      {"union", 0, make,
       [](const Objects& o) {
         Set(o[0]).Unite(Set(o[1]));
         return 0;
       },
       [](Operands& v) {
         reference::Unite(Set(v[0]), Set(v[1]));
         return 0;
       }},
  };
  Random random;
  for (const Operation& operation : operations) {
    Compare(operation, random, 4 * kShapeCases);
    if (HasFatalFailure()) return;
  }
}

// Cuts of all sizes, from nothing to everything: a few values are looked at one by one, the others
// searched. The known domain holds one value, mostly within the target's window.
TEST(KernelBordersDifferential, BoundCuts) {
  const auto make = [](Random& random) {
    EnumSet target = SetOfAnyShape(random, random.OneIn(2) ? 12 : 200);
    const std::int64_t last = std::ssize(target.values) - 1;
    const std::int64_t from_end = random.Between(0, std::min<std::int64_t>(last, 6));
    const std::int64_t at = random.OneIn(3)   ? random.Between(0, last)
                            : random.OneIn(2) ? from_end
                                              : last - from_end;
    const std::int64_t bound = std::clamp<std::int64_t>(
        std::int64_t{target.values[static_cast<std::size_t>(at)]} + random.Between(-1, 1), kMin,
        kMax);
    return Operands{std::move(target), EnumSet{{static_cast<std::int32_t>(bound)}, 0}};
  };
  const Operation operations[] = {
      {"less or equal", 0, make,
       [](const Objects& o) { return Set(o[0]).CalcLessOrEqualValue(*o[1]); },
       [](Operands& v) { return reference::LessOrEqual(Set(v[0]), Set(v[1])); }},
      {"not less", 0, make, [](const Objects& o) { return Set(o[0]).CalcNotLessValue(Set(o[1])); },
       [](Operands& v) { return reference::NotLess(Set(v[0]), Set(v[1])); }},
      {"inverse less or equal", 0, make,
       [](const Objects& o) { return Set(o[1]).CalcInverseLessOrEqualValue(*o[0]); },
       [](Operands& v) { return reference::InverseLessOrEqual(Set(v[1]), Set(v[0])); }},
      {"inverse not less", 0, make,
       [](const Objects& o) { return Set(o[1]).CalcInverseNotLessValue(Set(o[0])); },
       [](Operands& v) { return reference::InverseNotLess(Set(v[1]), Set(v[0])); }},
  };
  Random random;
  for (const Operation& operation : operations) {
    Compare(operation, random, 2 * kShapeCases);
    if (HasFatalFailure()) return;
  }
}

// Dividends and moduli so few that all are divided, and a few more; results of all kinds.
TEST(KernelBordersDifferential, FewDivisions) {
  const auto make = [](Random& random) {
    return Operands{SetOfAnyShape(random, random.OneIn(2) ? 4 : 30), SetOfAnyShape(random, 18),
                    SetOfAnyShape(random, 10)};
  };
  const Operation operations[] = {
      {"dividend", 1, make,
       [](const Objects& o) { return Set(o[0]).CalcFirstInverseModValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::FirstInverseMod(Set(v[0]), Set(v[1]), Set(v[2])); }},
      {"modulus", 1, make,
       [](const Objects& o) { return Set(o[0]).CalcSecondInverseModValue(Set(o[2]), Set(o[1])); },
       [](Operands& v) { return reference::SecondInverseMod(Set(v[0]), Set(v[2]), Set(v[1])); }},
  };
  Random random;
  for (const Operation& operation : operations) {
    Compare(operation, random, 2 * kShapeCases);
    if (HasFatalFailure()) return;
  }
}

// Quotients of a window with holes by moduli of all sizes, many of them larger than the window:
// below zero, above it, about it, and with ends at multiples of a modulus.
TEST(KernelBordersDifferential, QuotientsOfWindows) {
  const auto make = [](Random& random) {
    const int count = random.Between(2, 60);
    const int width = count * random.Between(1, 4);
    static constexpr std::int64_t kReaches[] = {1, 10, 300, 1000000};
    const std::int64_t reach = kReaches[random.Between(0, std::ssize(kReaches) - 1)];
    const std::int64_t low = random.Between(-2, 1) * width * reach;
    EnumSet z =
        SetInWindow(random, count, std::clamp<std::int64_t>(low, kMin, kMax - width), width);
    EnumSet y = SetInWindow(random, random.Between(1, 12), -width, 2 * width + 3);
    return Operands{std::move(z), Target(random), std::move(y)};
  };
  const Operation quotient = {
      "quotient", 1, make,
      [](const Objects& o) { return Set(o[0]).CalcFirstInverseProdValue(Set(o[1]), Set(o[2])); },
      [](Operands& v) { return reference::FirstInverseProduct(Set(v[0]), Set(v[1]), Set(v[2])); }};
  Random random;
  Compare(quotient, random, 8 * kShapeCases);
}

}  // namespace
