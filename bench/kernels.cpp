// The set kernels of the enumerated domain against the literal versions, and against what a
// programmer would write first, side by side. Prints ratios and the goals for them.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <memory>
#include <numeric>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "bench/ratio_table.h"
#include "bench/set_kernels.h"
#include "bench/set_shapes.h"
#include "enum_integers/module/init_module.h"

namespace {

using namespace kiv::bench;
using kiv::reference::EnumSet;

constexpr std::size_t kSizes[] = {2, 5, 10, 16, 30, 100, 300};

using Clock = std::chrono::steady_clock;

// So many operations are timed by two looks at the clock: they are far longer than these, and what
// they read fits into the caches nearest to the processor.
constexpr std::size_t kBatch = 64;

// What the two looks take themselves.
Clock::duration ClockTime() {
  static const Clock::duration least = [] {
    Clock::duration time = Clock::duration::max();
    for (int i = 0; i < 10000; ++i) {
      const auto start = Clock::now();
      time = std::min(time, Clock::now() - start);
    }
    return time;
  }();
  return least;
}

// The copies of the targets are made before: they are no part of an operation.
Clock::duration TimeOf(const Contender& contender, std::span<Instance> batch) {
  std::ranges::for_each(batch, contender.copy);
  const auto start = Clock::now();
  benchmark::DoNotOptimize(contender.narrow(batch));
  return Clock::now() - start - ClockTime();
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
      state.SetIterationTime(std::chrono::duration<double>(LeastTime(contender)).count());
    }
  }

 private:
  // Not before the case is measured: a filter may leave it out.
  void Prepare() {
    std::mt19937 random(static_cast<unsigned>(shape_.size));
    instances_.resize(static_cast<std::size_t>(kernel_.instances));
    for (auto& [literal, module] : instances_) {
      Operands<EnumSet> sets;
      kernel_.make(shape_, random, sets);
      literal = {LiteralDomain(sets.target), LiteralDomain(sets.a), LiteralDomain(sets.b), {}};
      module = {ToDomain(sets.target), ToDomain(sets.a), ToDomain(sets.b), {}};
    }
    agree_ = std::all_of(instances_.begin(), instances_.end(),
                         [&](Instance& instance) { return Agree(instance); });
  }

  // Whether all contenders give the same code and the same set.
  bool Agree(Instance& instance) const {
    std::vector<std::pair<int, EnumSet>> results;
    for (const Contender& contender : kernel_.contenders) {
      contender.copy(instance);
      const int code = contender.narrow({&instance, 1});
      results.emplace_back(code, contender.narrowed(instance));
    }
    return std::ranges::adjacent_find(results, std::not_equal_to()) == results.end();
  }

  // Of all instances. Of the times of each batch the least counts, which other work on the machine
  // disturbed least; batches take turns, so that none is learned by heart.
  Clock::duration LeastTime(const Contender& contender) {
    constexpr Clock::duration kLong = std::chrono::milliseconds(2);
    std::vector<Clock::duration> least(instances_.size() / kBatch, Clock::duration::max());
    for (int rounds = 1;; ++rounds) {
      for (std::size_t i = 0; i < least.size(); ++i) {
        const auto batch = std::span(instances_).subspan(i * kBatch, kBatch);
        least[i] = std::min(least[i], TimeOf(contender, batch));
      }
      const auto sum = std::accumulate(least.begin(), least.end(), Clock::duration::zero());
      if (rounds * sum > kLong) return sum;
    }
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
              ->UseManualTime()
              ->Iterations(1)
              ->Repetitions(9);
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
