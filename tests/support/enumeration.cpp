#include "tests/support/enumeration.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "solver/search/bisection_search.h"

namespace kiv::test {

namespace {

std::string Print(const KivOmbiObject& object) {
  Kivostrstream out;
  object.PrintOn(out);
  return out.Str();
}

}  // namespace

KivOmbNetwork::VariableId Declare(KivOmbNetwork& network, const Declared& declared) {
  const auto variable = network.AddVariable(*declared.kind);
  if (declared.values.empty()) return variable;
  network.Update(variable, [&](KivOmbiAny& domain) {
    if (auto* truth = KivCast<KivOmbiBoolean>(&domain)) {
      if (declared.values.size() == 1) truth->CalcTruthValue(declared.values[0] != 0);
      return;
    }
    auto& integer = static_cast<KivOmbiInteger&>(domain);
    integer.SetNilValue();
    for (const std::int32_t value : declared.values) integer.InsertExactValue(value);
  });
  return variable;
}

Values ValuesOf(const KivOmbNetwork& network, KivOmbNetwork::VariableId variable) {
  const KivOmbiDomainSummary& summary = network.GetSummary(variable);
  const KivOmbiAny& domain = network.GetDomain(variable);
  if (summary.IsAny()) throw std::runtime_error("the variable is Any");
  Values values;
  for (std::int32_t value = summary.lower; value <= summary.upper; ++value) {
    const auto* integer = KivCast<KivOmbiInteger>(&domain);
    if (integer == nullptr || integer->MayBe(value)) values.push_back(value);
  }
  return values;
}

std::vector<Assignment> EnumerateSolutions(const std::vector<Values>& domains,
                                           const std::function<bool(const Assignment&)>& holds) {
  std::vector<Assignment> solutions;
  Assignment assignment(domains.size());
  const std::function<void(std::size_t)> assign = [&](std::size_t i) {
    if (i == domains.size()) {
      if (holds(assignment)) solutions.push_back(assignment);
      return;
    }
    for (const std::int32_t value : domains[i]) {
      assignment[i] = value;
      assign(i + 1);
    }
  };
  assign(0);
  return solutions;
}

std::vector<Assignment> SearchSolutions(KivOmbNetwork& network) {
  std::vector<KivOmbNetwork::VariableId> all(network.CountVariables());
  for (KivOmbNetwork::VariableId i = 0; i < all.size(); ++i) all[i] = i;
  std::vector<Assignment> solutions;
  const SearchResult result = BisectionSearch(network, all).Run([&](const SearchLeaf& leaf) {
    EXPECT_TRUE(leaf.complete) << "a variable stays unknown";
    Assignment& solution = solutions.emplace_back();
    for (const auto variable : all) solution.push_back(network.GetSummary(variable).lower);
    return true;
  });
  EXPECT_EQ(result.end, SearchEnd::kExhausted)
      << (result.culprit ? Print(network.GetConstraint(*result.culprit)) : "");
  std::ranges::sort(solutions);
  return solutions;
}

std::string Print(const std::vector<Declared>& declared) {
  std::string text;
  for (const Declared& variable : declared) {
    text += (text.empty() ? "" : "; ") + variable.kind->GetName() + " {";
    for (const std::int32_t value : variable.values) text += " " + std::to_string(value);
    text += " }";
  }
  return text;
}

}  // namespace kiv::test
