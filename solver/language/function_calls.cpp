#include "solver/language/function_calls.h"

#include <string>
#include <utility>

#include "solver/constraints/among.h"
#include "solver/constraints/count.h"
#include "solver/constraints/number_of_values.h"
#include "solver/language/network_builder.h"
#include "solver/language/operator_compiler.h"
#include "solver/language/truth_count.h"

namespace kiv {
namespace {

// A number of the terms of the first argument, told by a constraint of class T over them, `others`
// and itself.
template <class T, class... Parameters>
std::optional<Operand> CountTerms(const CallSite& site, std::span<const Operand> others,
                                  Parameters&&... parameters) {
  const std::vector<Operand>& terms = site.arguments.front().operands;
  auto variables = site.builder.GetVariables(terms);
  const auto added = site.builder.GetVariables(others);
  const auto most = static_cast<std::int32_t>(terms.size());
  const auto count = site.builder.AddInteger(DeclaredDomain::FromInterval(0, most), site.range);
  if (!variables || !added || !count) return std::nullopt;
  variables->insert(variables->end(), added->begin(), added->end());
  variables->push_back(*count);
  if (!site.builder.Post<T>(*variables, site.range, std::forward<Parameters>(parameters)...)) {
    return std::nullopt;
  }
  return Operand{std::nullopt, *count, site.range};
}

std::optional<Operand> ApplyExtremum(const CallSite& site, const char* symbol) {
  const std::vector<Operand>& operands = site.arguments.front().operands;
  if (operands.empty()) {
    site.builder.GetDiagnostics().Add(site.name.range,
                                      '\'' + site.name.text + "' has no values here");
    return std::nullopt;
  }
  return site.operators.ApplyExtremum({symbol, site.name.range}, operands, site.range);
}

}  // namespace

std::optional<Operand> ApplyAmong(const CallSite& site) {
  return CountTerms<Among>(site, {}, site.arguments[1].constants);
}

std::optional<Operand> ApplyCountOf(const CallSite& site) {
  return CountTerms<Count>(site, site.arguments[1].operands);
}

std::optional<Operand> ApplyGreatest(const CallSite& site) { return ApplyExtremum(site, "\\/"); }

std::optional<Operand> ApplyInt(const CallSite& site) {
  return CountTruths(site.name, site.arguments.front().operands, site.range, site.builder);
}

std::optional<Operand> ApplyLeast(const CallSite& site) { return ApplyExtremum(site, "/\\"); }

std::optional<Operand> ApplyNumberOfValues(const CallSite& site) {
  return CountTerms<NumberOfValues>(site, {});
}

std::optional<Operand> ApplySum(const CallSite& site) {
  std::optional<Operand> sum = Operand{0, KivOmbNetwork::kNone, site.range};
  for (const Operand& operand : site.arguments.front().operands) {
    if (!sum) break;
    sum = site.operators.ApplyBinary({"+", site.name.range}, *std::move(sum), operand);
  }
  return sum;
}

}  // namespace kiv
