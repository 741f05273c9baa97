#include "tests/support/enumeration.h"

#include <algorithm>
#include <stdexcept>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "solver/search/bisection_search.h"

namespace kiv::test {

namespace {

using VariableId = KivOmbNetwork::VariableId;

std::string Print(const KivOmbiObject& object) {
  Kivostrstream out;
  object.PrintOn(out);
  return out.Str();
}

}  // namespace

Values Range(std::int32_t lower, std::int32_t upper) {
  Values values;
  for (std::int64_t value = lower; value <= upper; ++value) {
    values.push_back(static_cast<std::int32_t>(value));
  }
  return values;
}

VariableId Declare(KivOmbNetwork& network, const Declared& declared) {
  const auto variable = network.AddVariable(*declared.kind);
  if (declared.unknown || declared.values.empty()) return variable;
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

void Restrict(KivOmbNetwork& network, VariableId variable, const Values& values) {
  KivOmbNetwork other;
  const VariableId copy = Declare(other, {&network.GetKind(variable), values});
  network.Update(variable, [&](KivOmbiAny& domain) { domain.Intersect(other.GetDomain(copy)); });
}

Values ValuesOf(const KivOmbNetwork& network, VariableId variable) {
  const KivOmbiDomainSummary& summary = network.GetSummary(variable);
  if (summary.IsAny()) throw std::runtime_error("the variable is Any");
  const auto* integer = KivCast<KivOmbiInteger>(&network.GetDomain(variable));
  if (integer == nullptr) return Range(summary.lower, summary.upper);
  // Above the upper bound kinds answer with values that they do not hold.
  Values values;
  for (std::int32_t value = summary.lower; value < summary.upper;
       value = integer->GetNextExactValue(value)) {
    values.push_back(value);
  }
  if (!summary.IsNil()) values.push_back(summary.upper);
  return values;
}

bool IsPossible(const KivOmbNetwork& network, VariableId variable, std::int64_t value) {
  const KivOmbiAny& domain = network.GetDomain(variable);
  if (const auto* truth = KivCast<KivOmbiBoolean>(&domain)) return truth->CanBe(value != 0) != 0;
  return static_cast<const KivOmbiInteger&>(domain).MayBe(static_cast<std::int32_t>(value));
}

std::vector<Assignment> EnumerateSolutions(const std::vector<Values>& domains,
                                           const std::function<bool(const Assignment&)>& holds) {
  std::vector<Assignment> solutions;
  if (std::ranges::any_of(domains, &Values::empty)) return solutions;
  std::vector<std::size_t> chosen(domains.size(), 0);
  Assignment assignment(domains.size());
  for (std::size_t i = 0; i < domains.size(); ++i) assignment[i] = domains[i][0];
  while (true) {
    if (holds(assignment)) solutions.push_back(assignment);
    // The next one in order: the last position that has a further value takes it.
    std::size_t i = domains.size();
    while (i > 0 && chosen[i - 1] + 1 == domains[i - 1].size()) {
      --i;
      chosen[i] = 0;
      assignment[i] = domains[i][0];
    }
    if (i == 0) return solutions;
    --i;
    assignment[i] = domains[i][++chosen[i]];
  }
}

FoundSolutions Search(KivOmbNetwork& network) {
  std::vector<VariableId> all(network.CountVariables());
  for (VariableId i = 0; i < all.size(); ++i) all[i] = i;
  FoundSolutions found;
  const SearchResult result = BisectionSearch(network, all).Run([&](const SearchLeaf& leaf) {
    if (!leaf.complete) {
      found.open = true;
      return true;
    }
    Assignment& solution = found.solutions.emplace_back();
    for (const auto variable : all) solution.push_back(network.GetSummary(variable).lower);
    return true;
  });
  if (result.end == SearchEnd::kViolated) {
    throw std::runtime_error("what search found violates " +
                             Print(network.GetConstraint(*result.culprit)));
  }
  found.overflow = result.end == SearchEnd::kOverflow;
  std::ranges::sort(found.solutions);
  return found;
}

std::vector<Assignment> SearchSolutions(KivOmbNetwork& network) {
  FoundSolutions found = Search(network);
  if (found.open) throw std::runtime_error("search leaves a variable unknown");
  if (found.overflow) throw std::runtime_error("search ends with an overflow");
  return std::move(found.solutions);
}

std::string Text(const KivOmbNetwork& network, VariableId variable) {
  return Print(network.GetDomain(variable));
}

std::string Text(const KivOmbNetwork& network) {
  std::string text;
  for (VariableId i = 0; i < network.CountVariables(); ++i) {
    text += (i == 0 ? "" : "; ") + Text(network, i);
  }
  return text;
}

std::string Print(const Declared& declared) {
  std::string text = declared.kind->GetName();
  if (declared.unknown || declared.values.empty()) return text + " unknown";
  text += " {";
  for (const std::int32_t value : declared.values) text += " " + std::to_string(value);
  return text + " }";
}

std::string Print(const std::vector<Declared>& declared) {
  std::string text;
  for (const Declared& variable : declared) text += (text.empty() ? "" : "; ") + Print(variable);
  return text;
}

}  // namespace kiv::test
