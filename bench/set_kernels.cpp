#include "bench/set_kernels.h"

#include <algorithm>
#include <iterator>

#include "framework/intervals/sub_int_base.h"

namespace kiv::bench {

using reference::EnumSet;

KivOmbEnumInteger ToDomain(const EnumSet& set) {
  KivOmbEnumInteger domain;
  if (set.IsAny()) return domain;
  domain.Nil();
  for (const std::int32_t v : set.values) domain.Insert(v);
  return domain;
}

namespace {

EnumSet NarrowedSet(const Instance& instance) { return instance.sets.narrowed; }

EnumSet NarrowedDomain(const Instance& instance) {
  const KivOmbEnumInteger& domain = instance.domains.narrowed;
  EnumSet set{{}, domain.CheckAny()};
  for (unsigned i = 0; i < domain.Count(); ++i) set.values.push_back(domain.GetValue(i));
  return set;
}

// The literal versions: of the target and one or two known sets.

template <auto kNarrow>
int Literal(Instance& instance) {
  Operands<EnumSet>& o = instance.sets;
  o.narrowed = o.target;
  if constexpr (requires { kNarrow(o.narrowed, o.a, o.b); }) {
    return kNarrow(o.narrowed, o.a, o.b);
  } else {
    return kNarrow(o.narrowed, o.a);
  }
}

int LiteralSum(EnumSet& z, const EnumSet& x, const EnumSet& y) { return reference::Sum(z, x, y); }
int LiteralDifference(EnumSet& x, const EnumSet& z, const EnumSet& y) {
  return reference::FirstInverseSum(z, x, y);
}
int LiteralProduct(EnumSet& z, const EnumSet& x, const EnumSet& y) {
  return reference::Product(z, x, y);
}
int LiteralQuotient(EnumSet& x, const EnumSet& z, const EnumSet& y) {
  return reference::FirstInverseProduct(z, x, y);
}
int LiteralRemainder(EnumSet& z, const EnumSet& x, const EnumSet& y) {
  return reference::Mod(z, x, y);
}
int LiteralDividend(EnumSet& x, const EnumSet& z, const EnumSet& y) {
  return reference::FirstInverseMod(z, x, y);
}
int LiteralModulus(EnumSet& y, const EnumSet& z, const EnumSet& x) {
  return reference::SecondInverseMod(z, x, y);
}
int LiteralMinimum(EnumSet& z, const EnumSet& x, const EnumSet& y) {
  return reference::Min(z, x, y);
}
int LiteralIntersection(EnumSet& z, const EnumSet& x) { return reference::Intersect(z, x); }
int LiteralUnion(EnumSet& z, const EnumSet& x) {
  reference::Unite(z, x);
  return 0;
}
int LiteralBoundCut(EnumSet& z, const EnumSet& x) { return reference::LessOrEqual(z, x); }
int LiteralNegation(EnumSet& z, const EnumSet& x) { return reference::Negative(z, x); }
int LiteralAbsolute(EnumSet& z, const EnumSet& x) { return reference::Absolute(z, x); }
int LiteralSuccessor(EnumSet& z, const EnumSet& x) { return reference::Next(z, x); }

// The module, through the virtual operations that the framework calls.

template <auto kNarrow>
int Module(Instance& instance) {
  Operands<KivOmbEnumInteger>& o = instance.domains;
  o.narrowed = o.target;
  return kNarrow(o.narrowed, o.a, o.b);
}

using Number = KivOmbiNumber;
using Scalar = KivOmbiScalar;

int ModuleSum(Number& z, const Number& x, const Number& y) { return z.CalcSumValue(x, y); }
int ModuleDifference(Number& x, const Number& z, const Number& y) {
  return z.CalcFirstInverseSumValue(x, y);
}
int ModuleProduct(Number& z, const Number& x, const Number& y) { return z.CalcProdValue(x, y); }
int ModuleQuotient(Number& x, const Number& z, const Number& y) {
  return z.CalcFirstInverseProdValue(x, y);
}
int ModuleRemainder(Number& z, const Number& x, const Number& y) { return z.CalcModValue(x, y); }
int ModuleDividend(Number& x, const Number& z, const Number& y) {
  return z.CalcFirstInverseModValue(x, y);
}
int ModuleModulus(Number& y, const Number& z, const Number& x) {
  return z.CalcSecondInverseModValue(x, y);
}
int ModuleMinimum(KivOmbiAny& z, const KivOmbiAny& x, const KivOmbiAny& y) {
  return z.CalcMinValue(x, y);
}
int ModuleIntersection(KivOmbiAny& z, const KivOmbiAny& x, const KivOmbiAny&) {
  return z.CalcEqualValue(x);
}
int ModuleUnion(KivOmbiAny& z, const KivOmbiAny& x, const KivOmbiAny&) {
  z.Unite(x);
  return 0;
}
int ModuleBoundCut(KivOmbiAny& z, const KivOmbiAny& x, const KivOmbiAny&) {
  return z.CalcLessOrEqualValue(x);
}
int ModuleNegation(Number& z, const Number& x, const Number&) { return z.CalcNegativeValue(x); }
int ModuleAbsolute(Number& z, const Number& x, const Number&) { return z.CalcAbsoluteValue(x); }
int ModuleSuccessor(Scalar& z, const Scalar& x, const Scalar&) { return z.CalcNextValue(x); }

// What a programmer would write first.

// Inserts the candidates one by one, each by a binary search.
template <auto kCombine>
int Insertion(Instance& instance) {
  Operands<KivOmbEnumInteger>& o = instance.domains;
  KivOmbEnumInteger candidates;
  candidates.Nil();
  for (unsigned i = 0; i < o.a.Count() && candidates.CheckAny() == 0; ++i) {
    for (unsigned j = 0; j < o.b.Count(); ++j) {
      const std::int32_t v = kCombine(o.a.GetValue(i), o.b.GetValue(j)).GetValue();
      if (candidates.Insert(v) == 0) break;
    }
  }
  o.narrowed = o.target;
  return o.narrowed.Intersect(candidates);
}

// Merges with the standard library.
int MergeIntersection(Instance& instance) {
  Operands<EnumSet>& o = instance.sets;
  static std::vector<std::int32_t> common;
  o.narrowed = o.target;
  common.clear();
  std::set_intersection(o.narrowed.values.begin(), o.narrowed.values.end(), o.a.values.begin(),
                        o.a.values.end(), std::back_inserter(common));
  if (common.size() == o.narrowed.values.size()) return 0;
  o.narrowed.values = common;
  return 1;
}

int MergeUnion(Instance& instance) {
  Operands<EnumSet>& o = instance.sets;
  static std::vector<std::int32_t> both;
  o.narrowed = o.target;
  both.clear();
  std::set_union(o.narrowed.values.begin(), o.narrowed.values.end(), o.a.values.begin(),
                 o.a.values.end(), std::back_inserter(both));
  if (both.size() != o.narrowed.values.size()) o.narrowed.values = both;
  return 0;
}

// Membership of the values of b, which are in no order; nothing is narrowed, and the result is how
// many are found.

template <class Contains>
int CountFound(const Instance& instance, Contains contains) {
  int found = 0;
  for (const std::int32_t v : instance.sets.b.values) found += contains(v) ? 1 : 0;
  return found;
}

int LiteralMembership(Instance& instance) {
  return CountFound(instance, [&](std::int32_t v) { return instance.sets.target.Contains(v); });
}

int ModuleMembership(Instance& instance) {
  return CountFound(instance,
                    [&](std::int32_t v) { return instance.domains.target.Contains(v) != 0; });
}

// A bisection that stops when it meets the value.
int BisectionMembership(Instance& instance) {
  const auto contains = [&values = instance.sets.target.values](std::int32_t v) {
    std::size_t low = 0;
    std::size_t high = values.size();
    while (low < high) {
      const std::size_t middle = (low + high) / 2;
      if (values[middle] == v) return true;
      if (values[middle] < v) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    return false;
  };
  return CountFound(instance, contains);
}

// Operands.

// The target holds about one in `kPart` of what the kernel would leave of Any, as far as a domain
// can hold that, and some values beside.
template <auto kNarrow, int kPart>
void MakeTarget(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  EnumSet all{{}, 1};
  if constexpr (requires { kNarrow(all, o.a, o.b); }) {
    kNarrow(all, o.a, o.b);
  } else {
    kNarrow(all, o.a);
  }
  o.target.values = RandomPart(all.values, kPart, random);
  for (const std::int32_t v : RandomSet(shape, 0, random)) reference::Insert(o.target, v);
}

template <auto kNarrow>
void MakeCollecting(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  o.a.values = RandomSet(shape, static_cast<std::int32_t>(random() % 1000), random);
  o.b.values = RandomSet(shape, 1, random);
  MakeTarget<kNarrow, 2>(shape, random, o);
}

// The dividends and the moduli are sets of the shape; few of the results are left.
void MakeInverseRemainder(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  o.target.values = RandomSet(shape, 1, random);
  o.b.values = RandomSet(shape, 1, random);
  EnumSet results{{}, 1};
  reference::Mod(results, o.target, o.b);
  o.a.values = RandomPart(results.values, 16, random);
  if (o.a.values.empty()) o.a.values = {0};
}

// a shares about half of the target, so that there are common values in sparse sets too.
void MakeOverlapping(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  o.target.values = RandomSet(shape, 0, random);
  o.a.values = RandomPart(o.target.values, 2, random);
  const auto half = static_cast<std::int32_t>(shape.size / 2);
  Shape rest = shape;
  rest.size -= static_cast<std::size_t>(half);
  for (const std::int32_t v : RandomSet(rest, half, random)) reference::Insert(o.a, v);
  o.b = o.a;
}

void MakeQueries(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  MakeOverlapping(shape, random, o);
  std::shuffle(o.b.values.begin(), o.b.values.end(), random);
}

// About one in eight of the values is cut off.
void MakeCut(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  o.target.values = RandomSet(shape, 0, random);
  o.a.values = {o.target.values[o.target.values.size() * 7 / 8]};
  o.b = o.a;
}

// Both signs.
template <auto kNarrow>
void MakeImage(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  o.a.values = RandomSet(shape, -static_cast<std::int32_t>(shape.size / 3), random);
  o.b = o.a;
  MakeTarget<kNarrow, 2>(shape, random, o);
}

template <auto kLiteral, auto kModule>
std::vector<Contender> LiteralAndModule() {
  return {{"literal", Literal<kLiteral>, NarrowedSet}, {"module", Module<kModule>, NarrowedDomain}};
}

std::vector<Contender> With(std::vector<Contender> contenders, const Contender& more) {
  contenders.push_back(more);
  return contenders;
}

// Of the kernels that look at each value once.
constexpr int kMany = 512;

}  // namespace

const std::vector<Kernel>& GetKernels() {
  static const std::vector<Kernel> kernels = {
      {"CalcSumValue", MakeCollecting<LiteralSum>,
       With(LiteralAndModule<LiteralSum, ModuleSum>(),
            {"insertion", Insertion<base_plus>, NarrowedDomain}),
       SumGoal},
      {"CalcFirstInverseSumValue", MakeCollecting<LiteralDifference>,
       With(LiteralAndModule<LiteralDifference, ModuleDifference>(),
            {"insertion", Insertion<base_minus>, NarrowedDomain}),
       SumGoal},
      {"CalcProdValue", MakeCollecting<LiteralProduct>,
       With(LiteralAndModule<LiteralProduct, ModuleProduct>(),
            {"insertion", Insertion<base_mult>, NarrowedDomain}),
       ProductGoal},
      {"CalcFirstInverseProdValue", MakeCollecting<LiteralQuotient>,
       LiteralAndModule<LiteralQuotient, ModuleQuotient>(), QuotientGoal},
      {"CalcModValue", MakeCollecting<LiteralRemainder>,
       LiteralAndModule<LiteralRemainder, ModuleRemainder>(), RemainderGoal},
      {"CalcFirstInverseModValue", MakeInverseRemainder,
       LiteralAndModule<LiteralDividend, ModuleDividend>(), RemainderInverseGoal},
      {"CalcSecondInverseModValue", MakeInverseRemainder,
       LiteralAndModule<LiteralModulus, ModuleModulus>(), RemainderInverseGoal},
      {"CalcEqualValue", MakeOverlapping,
       With(LiteralAndModule<LiteralIntersection, ModuleIntersection>(),
            {"merge", MergeIntersection, NarrowedSet}),
       IntersectionGoal, kMany},
      {"Unite", MakeOverlapping,
       With(LiteralAndModule<LiteralUnion, ModuleUnion>(), {"merge", MergeUnion, NarrowedSet}),
       UnionGoal, kMany},
      {"Contains",
       MakeQueries,
       {{"literal", LiteralMembership, NarrowedSet},
        {"module", ModuleMembership, NarrowedSet},
        {"bisection", BisectionMembership, NarrowedSet}},
       MembershipGoal,
       kMany},
      {"CalcLessOrEqualValue", MakeCut, LiteralAndModule<LiteralBoundCut, ModuleBoundCut>(),
       BoundCutGoal, kMany},
      {"CalcMinValue", MakeOverlapping, LiteralAndModule<LiteralMinimum, ModuleMinimum>(),
       NotSlowerGoal, kMany},
      {"CalcNegativeValue", MakeImage<LiteralNegation>,
       LiteralAndModule<LiteralNegation, ModuleNegation>(), NotSlowerGoal, kMany},
      {"CalcAbsoluteValue", MakeImage<LiteralAbsolute>,
       LiteralAndModule<LiteralAbsolute, ModuleAbsolute>(), NotSlowerGoal, kMany},
      {"CalcNextValue", MakeImage<LiteralSuccessor>,
       LiteralAndModule<LiteralSuccessor, ModuleSuccessor>(), NotSlowerGoal, kMany},
  };
  return kernels;
}

}  // namespace kiv::bench
