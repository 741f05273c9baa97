#include "tests/support/random_variables.h"

#include <algorithm>

#include "framework/intervals/sub_int_base.h"
#include "tests/support/kind_shape.h"
#include "tests/support/modules.h"

namespace kiv::test {

namespace {

constexpr std::int32_t kGreatest = SubIntBase::kMax - 1;
constexpr std::size_t kMostValues = 6;

}  // namespace

const std::vector<const KivOmbiObjectDescriptor*>& IntegerKinds() {
  static const std::vector<const KivOmbiObjectDescriptor*> kinds = [] {
    std::vector<const KivOmbiObjectDescriptor*> integers;
    for (const auto* kind : OpenModulesAndForeign().kinds) {
      if (ShapeOf(*kind) != KindShape::kTruth) integers.push_back(kind);
    }
    return integers;
  }();
  return kinds;
}

Flavour RandomFlavour(Generator& random) {
  static constexpr Flavour kFlavours[] = {Flavour::kSmall,    Flavour::kSmall,   Flavour::kHoles,
                                          Flavour::kHoles,    Flavour::kHoles,   Flavour::kNegative,
                                          Flavour::kNegative, Flavour::kExtreme, Flavour::kSingle};
  return PickOf(random, kFlavours);
}

Values RandomValues(Generator& random, const KivOmbiObjectDescriptor& kind, Flavour flavour) {
  static const Values around_zero = Range(-5, 8);
  static const Values below_zero = Range(-20, -3);
  static const Values ends = {-kGreatest,    -kGreatest + 1, -kGreatest + 2, -kGreatest + 5, -1, 0,
                              kGreatest - 4, kGreatest - 2,  kGreatest - 1,  kGreatest};
  switch (flavour) {
    case Flavour::kSmall: {
      const int lower = Pick(random, -4, 3);
      const Values range = Range(lower, lower + Pick(random, 0, kMostValues - 1));
      const KindShape shape = ShapeOf(kind);
      const bool holds_range = shape == KindShape::kInterval || shape == KindShape::kSet;
      return holds_range ? range : RandomValues(random, kind, range, kMostValues);
    }
    case Flavour::kHoles:
      return RandomValues(random, kind, around_zero, kMostValues);
    case Flavour::kNegative:
      return RandomValues(random, kind, below_zero, kMostValues);
    case Flavour::kExtreme:
      return RandomValues(random, kind, ends, kMostValues);
    case Flavour::kSingle:
      break;
  }
  return RandomValues(random, kind, around_zero, 1);
}

Values RandomValues(Generator& random, const KivOmbiObjectDescriptor& kind, const Values& pool,
                    std::size_t most) {
  const int count = Pick(random, 1, static_cast<int>(most));
  switch (ShapeOf(kind)) {
    case KindShape::kTruth:
      return most > 1 && !OneIn(random, 3) ? Values{0, 1} : Values{Pick(random, 0, 1)};
    case KindShape::kOneValue:
      return {PickOf(random, pool)};
    case KindShape::kInterval: {
      const std::int32_t lower = PickOf(random, pool);
      const std::int64_t upper =
          std::min<std::int64_t>(lower + std::int64_t{count} - 1, pool.back());
      return Range(lower, static_cast<std::int32_t>(upper));
    }
    case KindShape::kSet:
      break;
  }
  Values chosen;
  for (int i = 0; i < count; ++i) chosen.push_back(PickOf(random, pool));
  std::ranges::sort(chosen);
  chosen.erase(std::ranges::unique(chosen).begin(), chosen.end());
  return chosen;
}

Declared RandomVariable(Generator& random, const char* kind, const Values& pool, std::size_t most) {
  const KivOmbiObjectDescriptor* descriptor = OpenModules().FindKind(kind);
  return {descriptor, RandomValues(random, *descriptor, pool, most)};
}

Declared RandomVariable(Generator& random, Flavour flavour) {
  const KivOmbiObjectDescriptor* kind = PickOf(random, IntegerKinds());
  return {kind, RandomValues(random, *kind, flavour)};
}

Declared RandomVariable(Generator& random) { return RandomVariable(random, RandomFlavour(random)); }

}  // namespace kiv::test
