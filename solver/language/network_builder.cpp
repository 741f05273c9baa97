#include "solver/language/network_builder.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "solver/language/truth_posting.h"

namespace kiv {

NetworkBuilder::NetworkBuilder(CompiledModel& model, const Vocabulary& vocabulary,
                               ExpansionBudget& budget, Diagnostics& diagnostics)
    : model_(model),
      vocabulary_(vocabulary),
      budget_(budget),
      diagnostics_(diagnostics),
      constant_kind_(*vocabulary.FindKind("int")),
      widths_(model.GetNetwork()) {
  for (const KivOmbiObjectDescriptor* kind : vocabulary.GetKinds()) {
    if (KivOmbiInteger::sDescriptor->IsMatched(kind) != 0) integer_kinds_.push_back(kind);
  }
  const auto keeps_inner_values = [](const KivOmbiObjectDescriptor* kind) {
    return DeclaredDomain::FromValues({0, 2}).JudgeKind(*kind) == DeclaredDomain::Fit::kExact;
  };
  std::stable_partition(integer_kinds_.begin(), integer_kinds_.end(), keeps_inner_values);
}

std::optional<NetworkBuilder::VariableId> NetworkBuilder::AddVariable(
    const KivOmbiObjectDescriptor& kind, SourceRange range) {
  if (!budget_.Spend(1, range, diagnostics_)) return std::nullopt;
  return model_.GetNetwork().AddVariable(kind);
}

std::optional<NetworkBuilder::VariableId> NetworkBuilder::AddInteger(const DeclaredDomain& domain,
                                                                     SourceRange range) {
  using Fit = DeclaredDomain::Fit;
  const KivOmbiObjectDescriptor* best = &constant_kind_;
  Fit best_fit = Fit::kLost;
  for (const KivOmbiObjectDescriptor* kind : integer_kinds_) {
    const Fit fit = domain.JudgeKind(*kind);
    if (best_fit == Fit::kExact || fit == Fit::kLost || fit == best_fit) continue;
    best = kind;
    best_fit = fit;
  }
  const auto variable = AddVariable(*best, range);
  if (variable && best_fit != Fit::kLost) {
    model_.GetNetwork().Update(*variable, [&domain](KivOmbiAny& target) {
      domain.BuildIn(static_cast<KivOmbiInteger&>(target));
    });
  }
  return variable;
}

std::optional<NetworkBuilder::VariableId> NetworkBuilder::AddResult(
    const KivOmbiObjectDescriptor& kind, const ValueWidth& width, SourceRange range) {
  const auto variable = AddVariable(ChooseKind(kind, width), range);
  if (variable) widths_.Note(*variable, width);
  return variable;
}

const KivOmbiObjectDescriptor& NetworkBuilder::ChooseKind(const KivOmbiObjectDescriptor& kind,
                                                          const ValueWidth& width) const {
  // Few values fit a kind that lists them, however far apart they are.
  constexpr std::uint64_t kFew = 1024;
  const Hull& hull = width.hull;
  const bool is_open = hull.lower <= -Hull::kUnbounded || hull.upper >= Hull::kUnbounded;
  if (width.count <= kFew || is_open || hull.IsEmpty()) return kind;
  const auto clamp = [](std::int64_t bound) {
    return static_cast<std::int32_t>(std::clamp(bound, kLeastInteger, kGreatestInteger));
  };
  const auto domain = DeclaredDomain::FromInterval(clamp(hull.lower), clamp(hull.upper));
  const auto holds = [&domain](const KivOmbiObjectDescriptor& candidate) {
    return domain.JudgeKind(candidate) == DeclaredDomain::Fit::kExact;
  };
  if (holds(kind)) return kind;
  const auto found = std::ranges::find_if(
      integer_kinds_, [&](const KivOmbiObjectDescriptor* candidate) { return holds(*candidate); });
  return found != integer_kinds_.end() ? **found : kind;
}

std::optional<NetworkBuilder::VariableId> NetworkBuilder::GetVariable(const Operand& operand) {
  if (operand.constant) return GetInteger(*operand.constant, operand.range);
  if (operand.kind == nullptr) return operand.variable;
  const auto variable = operand.IsSum()
                            ? AddResult(*operand.kind, widths_.Of(operand), operand.range)
                            : AddVariable(*operand.kind, operand.range);
  if (!variable) return std::nullopt;
  const bool posted = operand.IsSum()
                          ? PostSum(operand.sum, LinearRelation::kEqual,
                                    LinearExpression(LinearTerm{1, *variable}), operand.range)
                          : PostEquivalence(operand, *variable, *this);
  return posted ? variable : std::nullopt;
}

std::optional<std::vector<NetworkBuilder::VariableId>> NetworkBuilder::GetVariables(
    std::span<const Operand> operands) {
  std::vector<VariableId> variables;
  variables.reserve(operands.size());
  for (const Operand& operand : operands) {
    const auto variable = GetVariable(operand);
    if (!variable) return std::nullopt;
    variables.push_back(*variable);
  }
  return variables;
}

std::optional<NetworkBuilder::VariableId> NetworkBuilder::GetInteger(std::int64_t value,
                                                                     SourceRange range) {
  if (!IsModelInteger(value)) {
    diagnostics_.Add(
        range, "the constant " + std::to_string(value) + " is outside " + DescribeModelIntegers());
    return std::nullopt;
  }
  const auto narrow = static_cast<std::int32_t>(value);
  if (const auto found = fixed_integers_.find(narrow); found != fixed_integers_.end()) {
    return found->second;
  }
  const auto variable = AddVariable(constant_kind_, range);
  if (!variable) return std::nullopt;
  model_.GetNetwork().Update(*variable, [narrow](KivOmbiAny& domain) {
    domain.SetNilValue();
    static_cast<KivOmbiInteger&>(domain).InsertExactValue(narrow);
  });
  fixed_integers_.emplace(narrow, *variable);
  return variable;
}

const KivOmbiObjectDescriptor* NetworkBuilder::FindTruthKind(SourceRange range) {
  const KivOmbiObjectDescriptor* kind = vocabulary_.FindKind("bool");
  if (kind == nullptr) diagnostics_.Add(range, "no module that is loaded has the kind 'bool'");
  return kind;
}

std::optional<Operand> NetworkBuilder::GetTruth(bool value, SourceRange range) {
  auto& fixed = fixed_truths_[value ? 1 : 0];
  if (!fixed) {
    const KivOmbiObjectDescriptor* kind = FindTruthKind(range);
    if (kind == nullptr) return std::nullopt;
    fixed = AddVariable(*kind, range);
    if (!fixed) return std::nullopt;
    model_.GetNetwork().Update(*fixed, [value](KivOmbiAny& domain) {
      static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(value);
    });
  }
  return Operand{std::nullopt, *fixed, range};
}

std::optional<bool> NetworkBuilder::GetConstantTruth(const Operand& operand) const {
  if (operand.constant || operand.kind != nullptr) return std::nullopt;
  for (const bool value : {false, true}) {
    if (fixed_truths_[value ? 1 : 0] == operand.variable) return value;
  }
  return std::nullopt;
}

const KivOmbiObjectDescriptor& NetworkBuilder::GetKind(const Operand& operand) const {
  if (operand.kind != nullptr) return *operand.kind;
  return operand.constant ? constant_kind_ : model_.GetNetwork().GetKind(operand.variable);
}

bool NetworkBuilder::IsTruth(const Operand& operand) const {
  return KivOmbiBoolean::sDescriptor->IsMatched(&GetKind(operand)) != 0;
}

bool NetworkBuilder::IsInteger(const Operand& operand) const {
  return KivOmbiInteger::sDescriptor->IsMatched(&GetKind(operand)) != 0;
}

LinearExpression NetworkBuilder::ToSum(Operand operand) {
  if (operand.constant) return LinearExpression(*operand.constant);
  if (operand.kind == nullptr) return LinearExpression(LinearTerm{1, operand.variable});
  return std::move(operand.sum);
}

bool NetworkBuilder::PostRow(const KivOmbiCompoundObjectDescriptor& row, VariableId left,
                             VariableId right, VariableId result, SourceRange range) {
  return PostAll(1, range, [&](KivOmbNetwork& network) { network.Post(row, left, right, result); });
}

bool NetworkBuilder::PostSum(const LinearExpression& left, LinearRelation relation,
                             const LinearExpression& right, SourceRange range,
                             std::optional<LinearTruth> truth) {
  try {
    return PostAll(1, range, [&](KivOmbNetwork& network) {
      PostLinear(network, left, relation, right, truth);
    });
  } catch (const std::overflow_error&) {
    diagnostics_.Add(range, "a coefficient of this sum does not fit 64 bits");
    return false;
  }
}

}  // namespace kiv
