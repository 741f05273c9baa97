// The set kernels of the enumerated domain against the literal versions, and against what a
// programmer would write first, side by side. Prints ratios and the goals for them.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/ratio_table.h"
#include "bench/set_kernels.h"
#include "bench/set_shapes.h"
#include "enum_integers/module/init_module.h"

namespace {

using namespace kiv::bench;

constexpr std::size_t kSizes[] = {2, 5, 10, 16, 30, 100, 300};

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
    instances_.resize(static_cast<std::size_t>(kernel_.instances));
    for (auto& [sets, domains] : instances_) {
      kernel_.make(shape_, random, sets);
      domains = {ToDomain(sets.target), ToDomain(sets.a), ToDomain(sets.b), {}};
    }
    agree_ = std::all_of(instances_.begin(), instances_.end(),
                         [&](Instance& instance) { return Agree(instance); });
  }

  // Whether all contenders give the same code and the same set.
  bool Agree(Instance& instance) const {
    const Contender& first = kernel_.contenders.front();
    const int code = first.narrow(instance);
    const auto set = first.narrowed(instance);
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

std::vector<RatioTable::Line> RegisterAll() {
  std::vector<RatioTable::Line> lines;
  for (const Kernel& kernel : GetKernels()) {
    for (const auto& density : kDensities) {
      for (const std::size_t size : kSizes) {
        const Shape shape{density, size};
        const auto measured = std::make_shared<Case>(kernel, shape);
        const Goal goal = kernel.goal(shape);
        lines.push_back({measured->Name(), goal.rival, goal.ratio});
        for (const Contender& contender : kernel.contenders) {
          benchmark::RegisterBenchmark(
              (lines.back().measured + "/" + contender.name).c_str(),
              [=](benchmark::State& state) { measured->Measure(state, contender); })
              ->MinTime(0.01)
              ->Repetitions(3);
        }
      }
    }
  }
  return lines;
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
  RatioTable table(RegisterAll(), "module");
  benchmark::RunSpecifiedBenchmarks(&table);
  return table.Succeeded() ? EXIT_SUCCESS : EXIT_FAILURE;
}
