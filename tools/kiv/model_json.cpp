#include "tools/kiv/model_json.h"

#include "framework/abstract_types/boolean.h"

namespace kiv {
namespace {

Json DescribeVariable(const KivOmbNetwork& network, KivOmbNetwork::VariableId variable) {
  const KivOmbiDomainSummary& summary = network.GetSummary(variable);
  const KivOmbiAny& domain = network.GetDomain(variable);
  if (!summary.IsFixed()) return DescribeDomain(network.GetKind(variable).GetName(), domain);
  if (KivCast<KivOmbiBoolean>(&domain) != nullptr) return summary.lower != 0;
  return summary.lower;
}

Json DescribeRow(const KivOmbNetwork& network, KivOmbNetwork::VariableId first,
                 std::uint64_t count) {
  Json row = Json::array();
  for (std::uint64_t i = 0; i < count; ++i) {
    row.push_back(DescribeVariable(network, first + static_cast<KivOmbNetwork::VariableId>(i)));
  }
  return row;
}

Json DescribeArray(const KivOmbNetwork& network, const CompiledModel::Variable& variable) {
  if (variable.shape.size() < 2) return DescribeRow(network, variable.first, variable.count);
  const std::uint64_t columns = variable.shape[1].Count();
  Json rows = Json::array();
  for (std::uint64_t row = 0; row < variable.shape[0].Count(); ++row) {
    const auto first = static_cast<KivOmbNetwork::VariableId>(row * columns);
    rows.push_back(DescribeRow(network, variable.first + first, columns));
  }
  return rows;
}

}  // namespace

Json DescribeVariables(const CompiledModel& model) {
  const KivOmbNetwork& network = model.GetNetwork();
  Json json = Json::object();
  for (const CompiledModel::Variable& variable : model.GetVariables()) {
    json[variable.name] = variable.shape.empty() ? DescribeVariable(network, variable.first)
                                                 : DescribeArray(network, variable);
  }
  return json;
}

Json DescribeOrigin(const CompiledModel& model, KivOmbNetwork::ConstraintId constraint) {
  const SourceRange origin = model.GetOrigin(constraint);
  return {{"place", model.GetSource().DescribePosition(origin.begin)},
          {"expression", model.GetSource().Quote(origin)}};
}

}  // namespace kiv
