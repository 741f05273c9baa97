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

EnumSet NarrowedLiteral(const Instance& instance) { return instance.literal.narrowed.set; }

EnumSet NarrowedModule(const Instance& instance) {
  const KivOmbEnumInteger& domain = instance.module.narrowed;
  EnumSet set{{}, domain.CheckAny()};
  for (unsigned i = 0; i < domain.Count(); ++i) set.values.push_back(domain.GetValue(i));
  return set;
}

void CopyLiteral(Instance& instance) {
  instance.literal.narrowed.set = instance.literal.target.set;
}

void CopyModule(Instance& instance) { instance.module.narrowed = instance.module.target; }

// One loop for each contender, so that no call is timed but its own.
template <auto kNarrow>
int NarrowAll(std::span<Instance> instances) {
  int sum = 0;
  for (Instance& instance : instances) sum += kNarrow(instance);
  return sum;
}

// The operations, as virtual ones of the abstract types.

using Number = KivOmbiNumber;

int Sum(Number& z, const Number& x, const Number& y) { return z.CalcSumValue(x, y); }
int Difference(Number& x, const Number& z, const Number& y) {
  return z.CalcFirstInverseSumValue(x, y);
}
int Product(Number& z, const Number& x, const Number& y) { return z.CalcProdValue(x, y); }
int Quotient(Number& x, const Number& z, const Number& y) {
  return z.CalcFirstInverseProdValue(x, y);
}
int Remainder(Number& z, const Number& x, const Number& y) { return z.CalcModValue(x, y); }
int Dividend(Number& x, const Number& z, const Number& y) {
  return z.CalcFirstInverseModValue(x, y);
}
int Modulus(Number& y, const Number& z, const Number& x) {
  return z.CalcSecondInverseModValue(x, y);
}
int Minimum(Number& z, const Number& x, const Number& y) { return z.CalcMinValue(x, y); }
int Intersection(Number& z, const Number& x, const Number&) { return z.CalcEqualValue(x); }
int Union(Number& z, const Number& x, const Number&) {
  z.Unite(x);
  return 0;
}
int BoundCut(Number& z, const Number& x, const Number&) { return z.CalcLessOrEqualValue(x); }
int Negation(Number& z, const Number& x, const Number&) { return z.CalcNegativeValue(x); }
int Absolute(Number& z, const Number& x, const Number&) { return z.CalcAbsoluteValue(x); }
int Successor(Number& z, const Number& x, const Number&) { return z.CalcNextValue(x); }

// The domain as one of which the compiler does not know the kind, so that it calls every operation
// by its slot, whatever it could see of the contender.
Number& OfSomeKind(Number& domain) {
  Number* some = &domain;
  asm("" : "+r"(some));
  return *some;
}

template <auto kOperation, auto kDomains>
int Call(Instance& instance) {
  auto& o = instance.*kDomains;
  return kOperation(OfSomeKind(o.narrowed), OfSomeKind(o.a), OfSomeKind(o.b));
}

template <auto kOperation>
std::vector<Contender> LiteralAndModule() {
  return {
      {"literal", CopyLiteral, NarrowAll<Call<kOperation, &Instance::literal>>, NarrowedLiteral},
      {"module", CopyModule, NarrowAll<Call<kOperation, &Instance::module>>, NarrowedModule}};
}

// What a programmer would write first.

// Inserts the candidates one by one, each by a binary search.
template <auto kCombine>
int Insertion(Instance& instance) {
  Operands<KivOmbEnumInteger>& o = instance.module;
  KivOmbEnumInteger candidates;
  candidates.Nil();
  for (unsigned i = 0; i < o.a.Count() && candidates.CheckAny() == 0; ++i) {
    for (unsigned j = 0; j < o.b.Count(); ++j) {
      const std::int32_t v = kCombine(o.a.GetValue(i), o.b.GetValue(j)).GetValue();
      if (candidates.Insert(v) == 0) break;
    }
  }
  return o.narrowed.Intersect(candidates);
}

// Merges with the standard library.
int MergeIntersection(Instance& instance) {
  std::vector<std::int32_t>& mine = instance.literal.narrowed.set.values;
  const std::vector<std::int32_t>& others = instance.literal.a.set.values;
  static std::vector<std::int32_t> common;
  common.clear();
  std::set_intersection(mine.begin(), mine.end(), others.begin(), others.end(),
                        std::back_inserter(common));
  if (common.size() == mine.size()) return 0;
  mine = common;
  return 1;
}

int MergeUnion(Instance& instance) {
  std::vector<std::int32_t>& mine = instance.literal.narrowed.set.values;
  const std::vector<std::int32_t>& others = instance.literal.a.set.values;
  static std::vector<std::int32_t> both;
  both.clear();
  std::set_union(mine.begin(), mine.end(), others.begin(), others.end(), std::back_inserter(both));
  if (both.size() != mine.size()) mine = both;
  return 0;
}

// Membership of the values of b, which are in no order; nothing is narrowed, and the result is how
// many are found.

void CopyNothing(Instance&) {}

template <class Contains>
int CountFound(const Instance& instance, Contains contains) {
  int found = 0;
  for (const std::int32_t v : instance.literal.b.set.values) found += contains(v) ? 1 : 0;
  return found;
}

int LiteralMembership(Instance& instance) {
  return CountFound(instance,
                    [&](std::int32_t v) { return instance.literal.target.set.Contains(v); });
}

int ModuleMembership(Instance& instance) {
  return CountFound(instance,
                    [&](std::int32_t v) { return instance.module.target.Contains(v) != 0; });
}

// A bisection that stops when it meets the value.
int BisectionMembership(Instance& instance) {
  const auto contains = [&values = instance.literal.target.set.values](std::int32_t v) {
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

EnumSet Result(auto operation, const Operands<EnumSet>& o) {
  LiteralDomain all(EnumSet{{}, 1});
  operation(all, LiteralDomain(o.a), LiteralDomain(o.b));
  return all.set;
}

// The target holds about half of what the operation would leave of Any, as far as a domain can hold
// that, and some values beside.
template <auto kOperation>
void MakeTarget(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  o.target.values = RandomPart(Result(kOperation, o).values, 2, random);
  for (const std::int32_t v : RandomSet(shape, 0, random)) reference::Insert(o.target, v);
}

template <auto kOperation>
void MakeCollecting(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  o.a.values = RandomSet(shape, static_cast<std::int32_t>(random() % 1000), random);
  o.b.values = RandomSet(shape, 1, random);
  MakeTarget<kOperation>(shape, random, o);
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

// Up to a quarter of the values is cut off, never the same part: a loop that always ended at the
// same position would be learned.
void MakeCut(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  o.target.values = RandomSet(shape, 0, random);
  o.a.values = {o.target.values[shape.size - 1 - random() % (shape.size / 4 + 1)]};
  o.b = o.a;
}

// Both signs.
template <auto kOperation>
void MakeImage(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  o.a.values = RandomSet(shape, -static_cast<std::int32_t>(shape.size / 3), random);
  o.b = o.a;
  MakeTarget<kOperation>(shape, random, o);
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
      {"CalcSumValue", MakeCollecting<Sum>,
       With(LiteralAndModule<Sum>(),
            {"insertion", CopyModule, NarrowAll<Insertion<base_plus>>, NarrowedModule}),
       SumGoal},
      {"CalcFirstInverseSumValue", MakeCollecting<Difference>,
       With(LiteralAndModule<Difference>(),
            {"insertion", CopyModule, NarrowAll<Insertion<base_minus>>, NarrowedModule}),
       SumGoal},
      {"CalcProdValue", MakeCollecting<Product>,
       With(LiteralAndModule<Product>(),
            {"insertion", CopyModule, NarrowAll<Insertion<base_mult>>, NarrowedModule}),
       ProductGoal},
      {"CalcFirstInverseProdValue", MakeCollecting<Quotient>, LiteralAndModule<Quotient>(),
       QuotientGoal},
      {"CalcModValue", MakeCollecting<Remainder>, LiteralAndModule<Remainder>(), RemainderGoal},
      {"CalcFirstInverseModValue", MakeInverseRemainder, LiteralAndModule<Dividend>(),
       RemainderInverseGoal},
      {"CalcSecondInverseModValue", MakeInverseRemainder, LiteralAndModule<Modulus>(),
       RemainderInverseGoal},
      {"CalcEqualValue", MakeOverlapping,
       With(LiteralAndModule<Intersection>(),
            {"merge", CopyLiteral, NarrowAll<MergeIntersection>, NarrowedLiteral}),
       IntersectionGoal, kMany},
      {"Unite", MakeOverlapping,
       With(LiteralAndModule<Union>(),
            {"merge", CopyLiteral, NarrowAll<MergeUnion>, NarrowedLiteral}),
       UnionGoal, kMany},
      {"Contains",
       MakeQueries,
       {{"literal", CopyNothing, NarrowAll<LiteralMembership>, NarrowedLiteral},
        {"module", CopyNothing, NarrowAll<ModuleMembership>, NarrowedLiteral},
        {"bisection", CopyNothing, NarrowAll<BisectionMembership>, NarrowedLiteral}},
       MembershipGoal,
       kMany},
      {"CalcLessOrEqualValue", MakeCut, LiteralAndModule<BoundCut>(), BoundCutGoal, kMany},
      {"CalcMinValue", MakeOverlapping, LiteralAndModule<Minimum>(), NotSlowerGoal, kMany},
      {"CalcNegativeValue", MakeImage<Negation>, LiteralAndModule<Negation>(), NotSlowerGoal,
       kMany},
      {"CalcAbsoluteValue", MakeImage<Absolute>, LiteralAndModule<Absolute>(), NotSlowerGoal,
       kMany},
      {"CalcNextValue", MakeImage<Successor>, LiteralAndModule<Successor>(), NotSlowerGoal, kMany},
  };
  return kernels;
}

}  // namespace kiv::bench
