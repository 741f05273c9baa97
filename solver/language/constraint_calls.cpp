#include "solver/language/constraint_calls.h"

#include <algorithm>
#include <string>
#include <utility>

#include "solver/constraints/circuit.h"
#include "solver/constraints/cumulative.h"
#include "solver/constraints/global_cardinality.h"
#include "solver/constraints/inverse.h"
#include "solver/constraints/lexicographic_order.h"
#include "solver/constraints/post_all_different.h"
#include "solver/constraints/subcircuit.h"
#include "solver/constraints/table.h"
#include "solver/language/declared_domain.h"
#include "solver/language/network_builder.h"

namespace kiv {
namespace {

using Variables = std::vector<KivOmbNetwork::VariableId>;

bool Report(const CallSite& site, SourceRange range, const std::string& text) {
  site.builder.GetDiagnostics().Add(range, '\'' + site.name.text + "' " + text);
  return false;
}

// The variables of all arguments, one after the other.
std::optional<Variables> JoinVariables(const CallSite& site) {
  Variables joined;
  for (const CallArgument& argument : site.arguments) {
    const auto variables = site.builder.GetVariables(argument.operands);
    if (!variables) return std::nullopt;
    joined.insert(joined.end(), variables->begin(), variables->end());
  }
  return joined;
}

// Reports lists that ought to be equally long.
bool CheckLengths(const CallSite& site, std::size_t lists) {
  const std::size_t length = site.arguments.front().operands.size();
  for (std::size_t i = 1; i < lists; ++i) {
    const std::size_t other = site.arguments[i].operands.size();
    if (other == length) continue;
    return Report(site, site.arguments[i].range,
                  "takes lists of one length; this one has " + std::to_string(other) +
                      " elements, the first one " + std::to_string(length));
  }
  return true;
}

bool HasAnnotation(const CallSite& site, std::string_view name) {
  return std::ranges::find(site.annotations, name, &Word::text) != site.annotations.end();
}

AllDifferentStrength StrengthOf(const CallSite& site) {
  if (HasAnnotation(site, "domain")) return AllDifferentStrength::kDomain;
  if (HasAnnotation(site, "bounds")) return AllDifferentStrength::kBounds;
  if (HasAnnotation(site, "values")) return AllDifferentStrength::kValues;
  return AllDifferentStrength::kAutomatic;
}

template <class Post>
bool PostSuccessors(const CallSite& site, Post post) {
  const CallArgument& successors = site.arguments.front();
  const auto variables = site.builder.GetVariables(successors.operands);
  if (!variables) return false;
  return site.builder.PostAll(variables->size() + 1, site.range, [&](KivOmbNetwork& network) {
    post(network, *variables, static_cast<std::int32_t>(successors.first));
  });
}

bool PostOrder(const CallSite& site, LexicographicOrder::Equality equality) {
  const auto variables = JoinVariables(site);
  const auto length = static_cast<unsigned>(site.arguments.front().operands.size());
  return variables &&
         site.builder.Post<LexicographicOrder>(*variables, site.range, length, equality);
}

}  // namespace

bool PostAllDifferentCall(const CallSite& site) {
  Variables variables;
  TermOffsets offsets;
  for (const Operand& operand : site.arguments.front().operands) {
    auto shift = FindShift(operand);
    if (shift && !IsModelInteger(shift->constant)) shift.reset();
    const auto variable = shift ? shift->variable : site.builder.GetVariable(operand);
    if (!variable) return false;
    variables.push_back(*variable);
    offsets.push_back(shift ? static_cast<std::int32_t>(shift->constant) : 0);
  }
  if (std::ranges::all_of(offsets, [](std::int32_t offset) { return offset == 0; })) {
    offsets.clear();
  }
  return site.builder.PostAll(variables.size() + 1, site.range, [&](KivOmbNetwork& network) {
    PostAllDifferent(network, variables, StrengthOf(site), offsets);
  });
}

bool PostCircuitCall(const CallSite& site) { return PostSuccessors(site, &PostCircuit); }

bool PostSubcircuitCall(const CallSite& site) { return PostSuccessors(site, &PostSubcircuit); }

bool PostInverseCall(const CallSite& site) {
  const CallArgument& f = site.arguments[0];
  const CallArgument& g = site.arguments[1];
  if (!CheckLengths(site, 2)) return false;
  const auto f_variables = site.builder.GetVariables(f.operands);
  const auto g_variables = site.builder.GetVariables(g.operands);
  if (!f_variables || !g_variables) return false;
  return site.builder.PostAll(2 * f_variables->size() + 1, site.range, [&](KivOmbNetwork& network) {
    PostInverse(network, *f_variables, *g_variables, static_cast<std::int32_t>(f.first),
                static_cast<std::int32_t>(g.first));
  });
}

bool PostCumulative(const CallSite& site) {
  if (!CheckLengths(site, 3)) return false;
  const auto variables = JoinVariables(site);
  const auto tasks = static_cast<unsigned>(site.arguments.front().operands.size());
  return variables && site.builder.Post<Cumulative>(*variables, site.range, tasks);
}

// One machine, of which each task demands all.
bool PostDisjunctive(const CallSite& site) {
  if (!CheckLengths(site, 2)) return false;
  auto variables = JoinVariables(site);
  const auto one = site.builder.GetVariable(Operand{1, KivOmbNetwork::kNone, site.range});
  if (!variables || !one) return false;
  const auto tasks = static_cast<unsigned>(site.arguments.front().operands.size());
  variables->insert(variables->end(), tasks + 1, *one);
  return site.builder.Post<Cumulative>(*variables, site.range, tasks);
}

bool PostGlobalCardinality(const CallSite& site) {
  const CallArgument& values = site.arguments[1];
  const CallArgument& counts = site.arguments[2];
  if (values.constants.size() != counts.operands.size()) {
    return Report(site, counts.range,
                  "takes a count for each of the values; there are " +
                      std::to_string(values.constants.size()) + " values and " +
                      std::to_string(counts.operands.size()) + " counts");
  }
  std::vector<std::int32_t> sorted = values.constants;
  std::ranges::sort(sorted);
  if (const auto twin = std::ranges::adjacent_find(sorted); twin != sorted.end()) {
    return Report(site, values.range, "counts the value " + std::to_string(*twin) + " twice");
  }
  const auto variables = JoinVariables(site);
  const auto cover = HasAnnotation(site, "closed") ? GlobalCardinality::Cover::kClosed
                                                   : GlobalCardinality::Cover::kOpen;
  return variables &&
         site.builder.Post<GlobalCardinality>(*variables, site.range, values.constants, cover);
}

bool PostLexLess(const CallSite& site) { return PostOrder(site, LexicographicOrder::kExcluded); }

bool PostLexLessOrEqual(const CallSite& site) {
  return PostOrder(site, LexicographicOrder::kAllowed);
}

bool PostTable(const CallSite& site) {
  const CallArgument& rows = site.arguments[1];
  const auto variables = site.builder.GetVariables(site.arguments[0].operands);
  if (!variables) return false;
  if (variables->empty()) {
    return Report(site, site.arguments[0].range, "takes at least one integer");
  }
  const std::size_t length = rows.row_length.value_or(variables->size());
  if (length != variables->size() || rows.constants.size() % length != 0) {
    return Report(site, rows.range,
                  "takes rows with a value for each of the " + std::to_string(variables->size()) +
                      " integers" +
                      (rows.row_length ? "; these have " + std::to_string(length) : ""));
  }
  if (rows.constants.size() > TupleIndex::kMostCells) {
    return Report(site, rows.range,
                  "takes at most " + std::to_string(TupleIndex::kMostCells) + " values in rows");
  }
  const std::size_t count = rows.constants.size() / variables->size();
  return site.builder.Post<Table>(*variables, site.range, static_cast<unsigned>(variables->size()),
                                  count, rows.constants);
}

}  // namespace kiv
