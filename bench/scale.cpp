// What a network costs as it grows: memory for each variable, constraint and level, and whether the
// time of a run of a constraint, and of setting up, stays the same from 10^3 to 10^6 variables.
// Times are printed as ratios to the first of their column or table.

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <iomanip>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "framework/abstract_types/integer.h"
#include "framework/calculator/module_manager.h"
#include "solver/constraints/clause.h"
#include "solver/constraints/element_of_variables.h"
#include "solver/constraints/linear_posting.h"
#include "solver/constraints/post_all_different.h"
#include "solver/language/vocabulary.h"
#include "solver/search/literal.h"

namespace {

using VariableId = KivOmbNetwork::VariableId;
using Variables = std::vector<VariableId>;
using Clock = std::chrono::steady_clock;

const kiv::Vocabulary& Vocabulary() {
  static KivOmbiModuleManager manager;
  static const kiv::Vocabulary vocabulary = [] {
    if (manager.OpenModule("KivOmbEnumIntegers") == nullptr) {
      throw std::runtime_error(manager.GetError());
    }
    return kiv::Vocabulary(manager.GetModules());
  }();
  return vocabulary;
}

// A variable with the values from 0 to `greatest`.
VariableId Add(KivOmbNetwork& network, const char* kind, std::int32_t greatest) {
  const VariableId variable = network.AddVariable(*Vocabulary().FindKind(kind));
  if (network.IsBoolean(variable)) return variable;
  network.Update(variable, [&](KivOmbiAny& domain) {
    domain.SetNilValue();
    for (std::int32_t value = 0; value <= greatest; ++value) {
      static_cast<KivOmbiInteger&>(domain).InsertExactValue(value);
    }
  });
  return variable;
}

Variables AddMany(KivOmbNetwork& network, const char* kind, std::int32_t greatest, int count) {
  Variables variables;
  for (int i = 0; i < count; ++i) variables.push_back(Add(network, kind, greatest));
  return variables;
}

void Relate(KivOmbNetwork& network, const char* symbol, VariableId left, VariableId right) {
  const auto* row = Vocabulary().GetOperators().Resolve(
      symbol, {&network.GetKind(left), &network.GetKind(right)});
  network.Post(*row, left, right, KivOmbNetwork::kNone);
}

void Operate(KivOmbNetwork& network, const char* symbol, VariableId left, VariableId right,
             VariableId result) {
  const auto* row = Vocabulary().GetOperators().Resolve(
      symbol, {&network.GetKind(left), &network.GetKind(right)});
  network.Post(*row, left, right, result);
}

// Bytes that the heap of this process has given out, with its own overhead.
std::size_t BytesInUse() {
  const auto heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
}

void PrintMemory(const std::string& of, std::size_t bytes, int count) {
  std::cout << std::left << std::setw(36) << of << std::right << std::setw(9)
            << bytes / static_cast<std::size_t>(count) << '\n';
}

void MeasureVariables() {
  constexpr int kCount = 20'000;
  const struct {
    const char* name;
    const char* kind;
    std::int32_t greatest;
  } cases[] = {{"enum int, 10 values", "enum int", 9},
               {"enum int, 1000 values", "enum int", 999},
               {"interval int, 0 or 1", "interval int", 1},
               {"interval int, 1000 values", "interval int", 999},
               {"int", "int", 0},
               {"bool", "bool", 1}};
  for (const auto& [name, kind, greatest] : cases) {
    KivOmbNetwork network;
    const std::size_t before = BytesInUse();
    for (int i = 0; i < kCount; ++i) Add(network, kind, greatest);
    PrintMemory(name, BytesInUse() - before, kCount);
  }
}

// The ways to put a constraint over ten variables, or over the first of them.
struct ConstraintCase {
  const char* name;
  const char* kind;
  std::int32_t greatest;
  std::function<void(KivOmbNetwork&, const Variables&)> post;
};

void PostSum(KivOmbNetwork& network, const Variables& variables, std::size_t terms,
             kiv::LinearRelation relation) {
  std::vector<kiv::LinearTerm> sum;
  for (std::size_t i = 0; i < terms; ++i) {
    sum.push_back({i % 2 == 0 ? std::int64_t{1} : std::int64_t{-1}, variables[i]});
  }
  kiv::PostLinear(network, sum, relation, 0);
}

const std::vector<ConstraintCase>& ConstraintCases() {
  using enum kiv::LinearRelation;
  static const std::vector<ConstraintCase> cases{
      {"x <= y", "interval int", 99,
       [](KivOmbNetwork& n, const Variables& v) { Relate(n, "<=", v[0], v[1]); }},
      {"x <> y, enum int", "enum int", 9,
       [](KivOmbNetwork& n, const Variables& v) { Relate(n, "<>", v[0], v[1]); }},
      {"sum of 3 = 0, interval int", "interval int", 99,
       [](KivOmbNetwork& n, const Variables& v) { PostSum(n, v, 3, kEqual); }},
      {"sum of 3 = 0, enum int", "enum int", 29,
       [](KivOmbNetwork& n, const Variables& v) { PostSum(n, v, 3, kEqual); }},
      {"sum of 10 = 0, interval int", "interval int", 99,
       [](KivOmbNetwork& n, const Variables& v) { PostSum(n, v, 10, kEqual); }},
      {"sum of 10 <= 0, interval int", "interval int", 99,
       [](KivOmbNetwork& n, const Variables& v) { PostSum(n, v, 10, kLessOrEqual); }},
      {"x * y = z, interval int", "interval int", 99,
       [](KivOmbNetwork& n, const Variables& v) { Operate(n, "*", v[0], v[1], v[2]); }},
      {"x * y = z, enum int", "enum int", 29,
       [](KivOmbNetwork& n, const Variables& v) { Operate(n, "*", v[0], v[1], v[2]); }},
      {"x mod y = z, interval int", "interval int", 99,
       [](KivOmbNetwork& n, const Variables& v) { Operate(n, "mod", v[0], v[1], v[2]); }},
      {"x mod y = z, enum int", "enum int", 29,
       [](KivOmbNetwork& n, const Variables& v) { Operate(n, "mod", v[0], v[1], v[2]); }},
      {"element of 8, enum int", "enum int", 9,
       [](KivOmbNetwork& n, const Variables& v) { n.Emplace<kiv::ElementOfVariables>(v); }},
      {"clause of 10, bool", "bool", 1,
       [](KivOmbNetwork& n, const Variables& v) { n.Emplace<kiv::Clause>(v, 5u); }},
      {"clause of 10, 0 or 1", "interval int", 1,
       [](KivOmbNetwork& n, const Variables& v) { n.Emplace<kiv::Clause>(v, 5u); }},
      {"all_different of 10 by values", "enum int", 9,
       [](KivOmbNetwork& n, const Variables& v) {
         kiv::PostAllDifferent(n, v, kiv::AllDifferentStrength::kValues);
       }},
      {"all_different of 10 by bounds", "enum int", 9,
       [](KivOmbNetwork& n, const Variables& v) {
         kiv::PostAllDifferent(n, v, kiv::AllDifferentStrength::kBounds);
       }},
      {"all_different of 10 by domains", "enum int", 9,
       [](KivOmbNetwork& n, const Variables& v) {
         kiv::PostAllDifferent(n, v, kiv::AllDifferentStrength::kDomain);
       }},
  };
  return cases;
}

void MeasureConstraints() {
  constexpr int kCount = 20'000;
  for (const ConstraintCase& constraint : ConstraintCases()) {
    KivOmbNetwork network;
    const Variables variables = AddMany(network, constraint.kind, constraint.greatest, 10);
    const std::size_t before = BytesInUse();
    for (int i = 0; i < kCount; ++i) constraint.post(network, variables);
    PrintMemory(constraint.name, BytesInUse() - before, kCount);
  }
}

// A level in which one variable of 1001 values changes: its lower bound, or one value within.
void MeasureLevels() {
  constexpr int kCount = 1'000;
  const struct {
    const char* name;
    const char* kind;
    bool cuts;
  } cases[] = {{"level, a bound of interval int", "interval int", true},
               {"level, a bound of enum int", "enum int", true},
               {"level, an inner value of enum int", "enum int", false}};
  for (const auto& [name, kind, cuts] : cases) {
    KivOmbNetwork network;
    const VariableId variable = Add(network, kind, kCount);
    const std::size_t before = BytesInUse();
    for (std::int32_t level = 1; level < kCount; ++level) {
      network.PushLevel();
      kiv::Impose(network, cuts ? kiv::Literal::AtLeast(variable, level)
                                : kiv::Negated(kiv::Literal::Equal(variable, level)));
    }
    PrintMemory(name, BytesInUse() - before, kCount);
  }
}

double SecondsOf(const std::function<void()>& work) {
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

double FastestOf(int rounds, const std::function<double()>& measure) {
  double fastest = measure();
  for (int round = 1; round < rounds; ++round) fastest = std::min(fastest, measure());
  return fastest;
}

// Chains of ten variables, x[0] <= x[1] <= ... <= x[9], without a connection among them.
constexpr int kChain = 10;

Variables PostChains(KivOmbNetwork& network, int variables) {
  const Variables all = AddMany(network, "interval int", 1000, variables);
  for (std::size_t i = 0; i + 1 < all.size(); ++i) {
    if ((i + 1) % kChain != 0) Relate(network, "<=", all[i], all[i + 1]);
  }
  return all;
}

// Seconds for a run of a constraint, in one and the same chain, on the way down and up again.
double SecondsPerRun(KivOmbNetwork& network, VariableId first) {
  constexpr int kDescents = 300;
  constexpr int kDepth = 50;
  const std::uint64_t before = network.GetStatistics().runs;
  const double seconds = SecondsOf([&] {
    for (int descent = 0; descent < kDescents; ++descent) {
      for (int level = 1; level <= kDepth; ++level) {
        network.PushLevel();
        kiv::Impose(network, kiv::Literal::AtLeast(first, level));
        network.Propagate();
      }
      while (network.GetLevel() > 0) network.PopLevel();
    }
  });
  return seconds / static_cast<double>(network.GetStatistics().runs - before);
}

void MeasureGrowth() {
  std::cout << "\nvariables   a run   setting up, for each variable   bytes, for each variable\n"
            << std::fixed << std::setprecision(2);
  double first_run = 0;
  double first_setup = 0;
  for (const int count : {1'000, 10'000, 100'000, 1'000'000}) {
    const std::size_t before = BytesInUse();
    auto network = std::make_unique<KivOmbNetwork>();
    Variables variables;
    const double setup = FastestOf(count <= 10'000 ? 5 : 1, [&] {
      network = std::make_unique<KivOmbNetwork>();
      return SecondsOf([&] {
               variables = PostChains(*network, count);
               network->Propagate();
             }) /
             count;
    });
    const std::size_t bytes = BytesInUse() - before;
    const double run =
        FastestOf(5, [&] { return SecondsPerRun(*network, variables[variables.size() / 2]); });
    if (first_run == 0) {
      first_run = run;
      first_setup = setup;
    }
    std::cout << std::setw(9) << count << std::setw(8) << run / first_run << std::setw(32)
              << setup / first_setup << std::setw(27) << bytes / static_cast<std::size_t>(count)
              << '\n';
  }
}

// Fixes one variable after the other to what is its least value by then.
double SecondsPerRunOf(const ConstraintCase& constraint) {
  constexpr int kDescents = 300;
  KivOmbNetwork network;
  const Variables variables = AddMany(network, constraint.kind, constraint.greatest, 10);
  constraint.post(network, variables);
  network.Propagate();
  return FastestOf(7, [&] {
    const std::uint64_t before = network.GetStatistics().runs;
    const double seconds = SecondsOf([&] {
      for (int descent = 0; descent < kDescents; ++descent) {
        for (const VariableId variable : variables) {
          network.PushLevel();
          const std::int32_t least = std::max(network.GetSummary(variable).lower, 0);
          kiv::Impose(network, kiv::Literal::AtMost(variable, least));
          if (network.Propagate() != KivOmbNetwork::Outcome::kFixpoint) break;
        }
        while (network.GetLevel() > 0) network.PopLevel();
      }
    });
    return seconds / static_cast<double>(network.GetStatistics().runs - before);
  });
}

void MeasureKindsOfConstraints() {
  std::cout << "\na descent, for each run of the constraint\n";
  double first = 0;
  for (const ConstraintCase& constraint : ConstraintCases()) {
    const double seconds = SecondsPerRunOf(constraint);
    if (first == 0) first = seconds;
    std::cout << std::left << std::setw(36) << constraint.name << std::right << std::setw(9)
              << seconds / first << '\n';
  }
}

}  // namespace

int main() {
  std::cout << "bytes for each\n";
  MeasureVariables();
  MeasureConstraints();
  MeasureLevels();
  MeasureGrowth();
  MeasureKindsOfConstraints();
}
