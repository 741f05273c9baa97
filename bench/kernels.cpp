// The set kernels of the enumerated domain against the literal versions, and against what a
// programmer would write first, side by side. Prints ratios.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/ratio_table.h"
#include "bench/set_shapes.h"
#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/module/init_module.h"
#include "framework/intervals/sub_int_base.h"
#include "tests/reference/enum_set.h"

namespace {

using kiv::bench::kDensities;
using kiv::bench::RandomHalf;
using kiv::bench::RandomSet;
using kiv::bench::Shape;
using kiv::reference::EnumSet;

// So many that no branch predictor learns them by heart.
constexpr int kInstances = 64;

// A target z that a kernel narrows by x and y. Every contender narrows a copy of z, whose room is
// there from the call before.
template <class Set>
struct Operands {
  Set z, x, y;
  Set narrowed;
};

// The same operands for contenders of either kind.
struct Instance {
  Operands<EnumSet> sets;
  Operands<KivOmbEnumInteger> domains;
};

KivOmbEnumInteger ToDomain(const EnumSet& set) {
  KivOmbEnumInteger domain;
  if (set.IsAny()) return domain;
  domain.Nil();
  for (const std::int32_t v : set.values) domain.Insert(v);
  return domain;
}

EnumSet NarrowedSet(const Instance& instance) { return instance.sets.narrowed; }

EnumSet NarrowedDomain(const Instance& instance) {
  const KivOmbEnumInteger& domain = instance.domains.narrowed;
  EnumSet set{{}, domain.CheckAny()};
  for (unsigned i = 0; i < domain.Count(); ++i) set.values.push_back(domain.GetValue(i));
  return set;
}

int LiteralSum(Instance& instance) {
  Operands<EnumSet>& o = instance.sets;
  o.narrowed = o.z;
  return kiv::reference::Sum(o.narrowed, o.x, o.y);
}

int ModuleSum(Instance& instance) {
  Operands<KivOmbEnumInteger>& o = instance.domains;
  o.narrowed = o.z;
  return o.narrowed.CalcSumValue(o.x, o.y);
}

// Inserts the candidates one by one, each by a binary search.
int InsertionSum(Instance& instance) {
  Operands<KivOmbEnumInteger>& o = instance.domains;
  KivOmbEnumInteger sums;
  sums.Nil();
  for (unsigned i = 0; i < o.x.Count() && sums.CheckAny() == 0; ++i) {
    for (unsigned j = 0; j < o.y.Count(); ++j) {
      if (sums.Insert(base_plus(o.x.GetValue(i), o.y.GetValue(j)).GetValue()) == 0) break;
    }
  }
  o.narrowed = o.z;
  return o.narrowed.Intersect(sums);
}

int LiteralIntersect(Instance& instance) {
  Operands<EnumSet>& o = instance.sets;
  o.narrowed = o.z;
  return kiv::reference::Intersect(o.narrowed, o.x);
}

int ModuleIntersect(Instance& instance) {
  Operands<KivOmbEnumInteger>& o = instance.domains;
  o.narrowed = o.z;
  return o.narrowed.Intersect(o.x);
}

// Merges with the standard library. It writes the result at once, so it needs no copy of z.
int MergeIntersect(Instance& instance) {
  Operands<EnumSet>& o = instance.sets;
  o.narrowed.values.clear();
  std::set_intersection(o.z.values.begin(), o.z.values.end(), o.x.values.begin(), o.x.values.end(),
                        std::back_inserter(o.narrowed.values));
  return o.narrowed.values.size() == o.z.values.size() ? 0 : 1;
}

// z holds about half of the sums, as far as a domain can hold them all, and some values beside.
void MakeSumOperands(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  o.x.values = RandomSet(shape, 0, random);
  o.y.values = RandomSet(shape, static_cast<std::int32_t>(random() % 1000), random);
  EnumSet sums{{}, 1};
  kiv::reference::Sum(sums, o.x, o.y);
  o.z.values = RandomHalf(sums.values, random);
  for (const std::int32_t v : RandomSet(shape, 0, random)) kiv::reference::Insert(o.z, v);
}

// x shares about half of z, so that there are common values in sparse sets too.
void MakeIntersectOperands(const Shape& shape, std::mt19937& random, Operands<EnumSet>& o) {
  o.z.values = RandomSet(shape, 0, random);
  o.x.values = RandomHalf(o.z.values, random);
  const auto half = static_cast<std::int32_t>(shape.size / 2);
  Shape rest = shape;
  rest.size -= static_cast<std::size_t>(half);
  for (const std::int32_t v : RandomSet(rest, half, random)) kiv::reference::Insert(o.x, v);
}

struct Contender {
  const char* name;
  int (*narrow)(Instance&);  // gives the result code
  EnumSet (*narrowed)(const Instance&);
};

struct Kernel {
  const char* name;
  void (*make)(const Shape&, std::mt19937&, Operands<EnumSet>&);
  std::vector<Contender> contenders;  // the first tells what is right
};

const std::vector<Kernel>& Kernels() {
  static const std::vector<Kernel> kernels = {
      {"CalcSumValue",
       MakeSumOperands,
       {{"literal", LiteralSum, NarrowedSet},
        {"module", ModuleSum, NarrowedDomain},
        {"insertion", InsertionSum, NarrowedDomain}}},
      {"Intersect",
       MakeIntersectOperands,
       {{"literal", LiteralIntersect, NarrowedSet},
        {"module", ModuleIntersect, NarrowedDomain},
        {"merge", MergeIntersect, NarrowedSet}}},
  };
  return kernels;
}

// A kernel over sets of one shape.
class Case {
 public:
  Case(const Kernel& kernel, const Shape& shape) : kernel_(kernel), shape_(shape) {}

  std::string Name() const {
    return std::string(kernel_.name) + "/" + shape_.density.name + "/" +
           std::to_string(shape_.size);
  }

  // Measures the contender, unless the contenders disagree: then there is nothing to measure.
  void Measure(benchmark::State& state, const Contender& contender) {
    if (instances_.empty()) Prepare();
    if (!agree_) {
      state.SkipWithError("the contenders disagree");
      return;
    }
    for (auto _ : state) {
      for (Instance& instance : instances_) benchmark::DoNotOptimize(contender.narrow(instance));
    }
  }

 private:
  // Not before the case is measured: a filter may leave it out.
  void Prepare() {
    std::mt19937 random(static_cast<unsigned>(shape_.size));
    instances_.resize(kInstances);
    for (auto& [sets, domains] : instances_) {
      kernel_.make(shape_, random, sets);
      domains = {ToDomain(sets.z), ToDomain(sets.x), ToDomain(sets.y), {}};
    }
    agree_ = std::all_of(instances_.begin(), instances_.end(),
                         [&](Instance& instance) { return Agree(instance); });
  }

  // Whether all contenders give the same code and the same set.
  bool Agree(Instance& instance) const {
    const Contender& first = kernel_.contenders.front();
    const int code = first.narrow(instance);
    const EnumSet set = first.narrowed(instance);
    return std::all_of(
        kernel_.contenders.begin(), kernel_.contenders.end(), [&](const Contender& contender) {
          return contender.narrow(instance) == code && contender.narrowed(instance) == set;
        });
  }

  const Kernel& kernel_;
  Shape shape_;
  std::vector<Instance> instances_;
  bool agree_ = false;
};

// Returns the names of all cases.
std::vector<std::string> RegisterAll() {
  std::vector<std::string> names;
  for (const Kernel& kernel : Kernels()) {
    for (const auto& density : kDensities) {
      for (const std::size_t size : {2U, 16U, 256U}) {
        const auto measured = std::make_shared<Case>(kernel, Shape{density, size});
        names.push_back(measured->Name());
        for (const Contender& contender : kernel.contenders) {
          benchmark::RegisterBenchmark(
              (names.back() + "/" + contender.name).c_str(),
              [=](benchmark::State& state) { measured->Measure(state, contender); })
              ->MinTime(0.01)
              ->Repetitions(5);
        }
      }
    }
  }
  return names;
}

}  // namespace

int main(int argc, char** argv) {
  InitEnumIntegers();
  // Contenders take turns, so that a slow moment of the machine hits all of them.
  std::string take_turns = "--benchmark_enable_random_interleaving=true";
  std::vector<char*> arguments(argv, argv + argc);
  arguments.insert(arguments.begin() + 1, take_turns.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return EXIT_FAILURE;
  kiv::bench::RatioTable table(RegisterAll(), "module");
  benchmark::RunSpecifiedBenchmarks(&table);
  return table.Succeeded() ? EXIT_SUCCESS : EXIT_FAILURE;
}
