// Linear equations as one constraint, against chains of products and sums for the same equation and
// against propagation of other strength, side by side in full enumerations. Prints the nodes of the
// search trees and the ratios of times.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/ratio_table.h"
#include "framework/abstract_types/integer.h"
#include "framework/calculator/module_manager.h"
#include "solver/constraints/all_different.h"
#include "solver/constraints/linear_posting.h"
#include "solver/language/vocabulary.h"
#include "solver/search/bisection_search.h"

namespace {

using VariableId = KivOmbNetwork::VariableId;
using Terms = std::vector<kiv::LinearTerm>;

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

VariableId Add(KivOmbNetwork& network, const char* kind, const std::vector<std::int32_t>& values) {
  const VariableId variable = network.AddVariable(*Vocabulary().FindKind(kind));
  network.Update(variable, [&](KivOmbiAny& domain) {
    domain.SetNilValue();
    for (const auto value : values) static_cast<KivOmbiInteger&>(domain).InsertExactValue(value);
  });
  return variable;
}

// The numbers 0, step, 2 * step, ...
std::vector<std::int32_t> Multiples(std::int32_t step, int count) {
  std::vector<std::int32_t> values;
  for (int i = 0; i < count; ++i) values.push_back(i * step);
  return values;
}

void PostZero(KivOmbNetwork& network, const Terms& terms) {
  kiv::PostLinear(network, terms, kiv::LinearRelation::kEqual, 0);
}

// left + right, by the operator of the modules.
VariableId AddSum(KivOmbNetwork& network, VariableId left, VariableId right) {
  const auto* row =
      Vocabulary().GetOperators().Resolve("+", {&network.GetKind(left), &network.GetKind(right)});
  const VariableId sum = network.AddVariable(*row->GetResult());
  network.Post(*row, left, right, sum);
  return sum;
}

// The ways to post that the sum of the terms is 0.

void PostWhole(KivOmbNetwork& network, const Terms& terms) { PostZero(network, terms); }

// A variable of its own for each product and each partial sum.
void PostChain(KivOmbNetwork& network, const Terms& terms) {
  VariableId sum = KivOmbNetwork::kNone;
  for (const auto& [coefficient, variable] : terms) {
    const VariableId product = network.AddVariable(*Vocabulary().FindKind("interval int"));
    PostZero(network, {{coefficient, variable}, {-1, product}});
    sum = sum == KivOmbNetwork::kNone ? product : AddSum(network, sum, product);
  }
  PostZero(network, {{1, sum}});
}

// x + y = z by the operator's constraint, for the terms x, y, -z.
void PostOperator(KivOmbNetwork& network, const Terms& terms) {
  const VariableId sum = AddSum(network, terms[0].variable, terms[1].variable);
  PostZero(network, {{1, sum}, {-1, terms[2].variable}});
}

// A fourth term, so that nobody looks at values.
void PostBounds(KivOmbNetwork& network, const Terms& terms) {
  Terms more = terms;
  more.push_back({1, Add(network, "int", {0})});
  PostZero(network, more);
}

struct Contender {
  const char* name;
  void (*post)(KivOmbNetwork&, const Terms&);
};

// An equation with its variables and whatever else holds for them.
struct Model {
  const char* name;
  Terms (*make)(KivOmbNetwork&);
  std::vector<Contender> contenders;
};

Terms SendMoreMoney(KivOmbNetwork& network) {
  Terms terms;
  std::vector<VariableId> letters;
  for (const int coefficient : {1000, 91, -90, 1, -9000, -900, 10, -1}) {
    const bool leads = coefficient == 1000 || coefficient == -9000;
    std::vector<std::int32_t> digits = Multiples(1, 10);
    if (leads) digits.erase(digits.begin());
    letters.push_back(Add(network, "enum int", digits));
    terms.push_back({coefficient, letters.back()});
  }
  network.Emplace<kiv::AllDifferent>(letters);
  return terms;
}

Terms Coins(KivOmbNetwork& network) {
  Terms terms;
  for (const int coin : {50, 20, 10, 5, 2, 1}) {
    terms.push_back({coin, Add(network, "interval int", Multiples(1, 87))});
  }
  terms.push_back({-1, Add(network, "int", {87})});
  return terms;
}

// x + y = z over `kCount` values each, far apart.
template <int kCount>
Terms SparseSum(KivOmbNetwork& network) {
  return {{1, Add(network, "enum int", Multiples(7, kCount))},
          {1, Add(network, "enum int", Multiples(11, kCount))},
          {-1, Add(network, "enum int", Multiples(13, kCount))}};
}

const std::vector<Model>& Models() {
  const std::vector<Contender> whole_or_chain = {{"linear", PostWhole}, {"chain", PostChain}};
  const std::vector<Contender> strengths = {
      {"linear", PostWhole}, {"bounds", PostBounds}, {"operator", PostOperator}};
  static const std::vector<Model> models = {
      {"send_more_money", SendMoreMoney, whole_or_chain},
      {"coins", Coins, whole_or_chain},
      {"sparse_sum_16", SparseSum<16>, strengths},
      {"sparse_sum_32", SparseSum<32>, strengths},
      {"sparse_sum_64", SparseSum<64>, strengths},
  };
  return models;
}

// A model as one contender posts it. A search leaves it as it was.
class Enumeration {
 public:
  Enumeration(const Model& model, const Contender& contender) {
    const Terms terms = model.make(network_);
    for (const auto& term : terms) decisions_.push_back(term.variable);
    contender.post(network_, terms);
  }

  kiv::SearchResult Run() {
    return kiv::BisectionSearch(network_, decisions_).Run([](const kiv::SearchLeaf&) {
      return true;
    });
  }

 private:
  KivOmbNetwork network_;
  std::vector<VariableId> decisions_;
};

// Returns a line for every case. Prints the sizes of the trees; false in `agree` when they do not
// have the same solutions, which leaves nothing to measure.
std::vector<kiv::bench::RatioTable::Line> RegisterAll(bool& agree) {
  std::vector<kiv::bench::RatioTable::Line> lines;
  std::cout << "Nodes of the search trees:\n";
  for (const Model& model : Models()) {
    std::cout << std::left << std::setw(32) << model.name << std::right;
    lines.push_back({model.name});
    std::uint64_t solutions = 0;
    for (const Contender& contender : model.contenders) {
      const auto enumeration = std::make_shared<Enumeration>(model, contender);
      const kiv::SearchResult result = enumeration->Run();
      std::cout << std::setw(12) << contender.name << std::setw(9) << result.statistics.nodes;
      if (&contender == &model.contenders.front()) solutions = result.statistics.solutions;
      agree = agree && result.statistics.solutions == solutions && result.statistics.unknowns == 0;
      benchmark::RegisterBenchmark((lines.back().measured + "/" + contender.name).c_str(),
                                   [enumeration](benchmark::State& state) {
                                     for (auto _ : state) {
                                       benchmark::DoNotOptimize(enumeration->Run());
                                     }
                                   })
          ->MinTime(0.01)
          ->Repetitions(5);
    }
    std::cout << '\n';
  }
  return lines;
}

}  // namespace

int main(int argc, char** argv) {
  // Contenders take turns, so that a slow moment of the machine hits all of them.
  std::string take_turns = "--benchmark_enable_random_interleaving=true";
  std::vector<char*> arguments(argv, argv + argc);
  arguments.insert(arguments.begin() + 1, take_turns.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return EXIT_FAILURE;
  bool agree = true;
  kiv::bench::RatioTable table(RegisterAll(agree), "linear");
  if (!agree) {
    std::cerr << "the contenders disagree\n";
    return EXIT_FAILURE;
  }
  benchmark::RunSpecifiedBenchmarks(&table);
  return table.Succeeded() ? EXIT_SUCCESS : EXIT_FAILURE;
}
