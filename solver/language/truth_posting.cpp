#include "solver/language/truth_posting.h"

#include <array>
#include <memory>
#include <span>
#include <utility>

#include "solver/constraints/clause.h"
#include "solver/constraints/membership.h"
#include "solver/constraints/parity.h"
#include "solver/language/network_builder.h"

namespace kiv {
namespace {

using VariableId = KivOmbNetwork::VariableId;

Operand MakeOperand(Formula formula, const KivOmbiObjectDescriptor& kind, SourceRange range) {
  Operand operand;
  operand.range = range;
  operand.kind = &kind;
  operand.formula = std::make_shared<const Formula>(std::move(formula));
  return operand;
}

template <class Form>
const Form* As(const Operand& truth) {
  return truth.formula != nullptr ? std::get_if<Form>(&truth.formula->form) : nullptr;
}

// Not both: `premise` is a literal that is negated and `question` a relation that follows from it,
// in either order.
bool PostImplication(const Operand& premise, const Operand& question, bool value, SourceRange range,
                     NetworkBuilder& builder) {
  const auto& [left, relation, right] = *As<Formula::Question>(question);
  const auto variable = builder.GetVariable(premise);
  return variable && builder.PostSum(left, value ? relation : NegationOf(relation), right, range,
                                     LinearTruth{*variable, Reification::kImplication});
}

// At least one of the parts has this value.
bool PostClause(std::span<const Operand> parts, bool value, SourceRange range,
                NetworkBuilder& builder) {
  // A premise whose opposite stands next to a question decides that one alone.
  if (parts.size() == 2) {
    for (const std::size_t i : {0u, 1u}) {
      const auto* negation = As<Formula::Negation>(parts[i]);
      const Operand* premise = value ? (negation != nullptr ? &negation->part : nullptr)
                                     : (negation == nullptr ? &parts[i] : nullptr);
      if (premise != nullptr && As<Formula::Question>(*premise) == nullptr &&
          As<Formula::Question>(parts[1 - i]) != nullptr) {
        return PostImplication(*premise, parts[1 - i], value, range, builder);
      }
    }
  }
  std::vector<VariableId> literals;
  std::vector<VariableId> negative;
  for (const Operand& part : parts) {
    const auto* negation = As<Formula::Negation>(part);
    const auto variable = builder.GetVariable(negation != nullptr ? negation->part : part);
    if (!variable) return false;
    (value == (negation == nullptr) ? literals : negative).push_back(*variable);
  }
  const auto positive = static_cast<unsigned>(literals.size());
  literals.insert(literals.end(), negative.begin(), negative.end());
  return builder.Post<Clause>(literals, range, positive);
}

bool AssertElement(const Formula::Element& element, bool value, SourceRange range,
                   NetworkBuilder& builder) {
  const auto integer = builder.GetVariable(element.integer);
  if (!integer) return false;
  if (value && !element.values.empty()) {
    return builder.Post<Membership>(std::array{*integer}, range, element.values);
  }
  const auto truth = builder.GetTruth(value, range);
  return truth && builder.Post<ReifiedMembership>(std::array{*integer, truth->variable}, range,
                                                  element.values);
}

}  // namespace

bool AssertTruth(const Operand& truth, bool value, NetworkBuilder& builder) {
  const SourceRange range = truth.range;
  if (const auto constant = builder.GetConstantTruth(truth)) {
    return *constant == value || builder.Post<Clause>({}, range, 0u);
  }
  if (const auto* question = As<Formula::Question>(truth)) {
    return builder.PostSum(question->left,
                           value ? question->relation : NegationOf(question->relation),
                           question->right, range);
  }
  if (const auto* element = As<Formula::Element>(truth)) {
    return AssertElement(*element, value, range, builder);
  }
  if (const auto* negation = As<Formula::Negation>(truth)) {
    return AssertTruth(negation->part, !value, builder);
  }
  const auto* connection = As<Formula::Connection>(truth);
  if (connection == nullptr) {
    return builder.Post<Clause>(std::array{truth.variable}, range, value ? 1u : 0u);
  }
  if (value != (connection->which == Junction::kAll)) {
    return PostClause(connection->parts, value, range, builder);
  }
  bool posted = true;
  for (const Operand& part : connection->parts) posted &= AssertTruth(part, value, builder);
  return posted;
}

bool PostEquivalence(const Operand& truth, VariableId variable, NetworkBuilder& builder) {
  const SourceRange range = truth.range;
  if (const auto* question = As<Formula::Question>(truth)) {
    return builder.PostSum(question->left, question->relation, question->right, range,
                           LinearTruth{variable});
  }
  if (const auto* element = As<Formula::Element>(truth)) {
    const auto integer = builder.GetVariable(element->integer);
    return integer &&
           builder.Post<ReifiedMembership>(std::array{*integer, variable}, range, element->values);
  }
  if (const auto* negation = As<Formula::Negation>(truth)) {
    const auto part = builder.GetVariable(negation->part);
    return part && builder.Post<Parity>(std::array{variable, *part}, range, Parity::kOdd);
  }
  const auto& [which, parts] = std::get<Formula::Connection>(truth.formula->form);
  auto variables = builder.GetVariables(parts);
  if (!variables) return false;
  variables->insert(variables->begin(), variable);
  return builder.Post<Junction>(*variables, range, which);
}

std::optional<Operand> Negate(const Operand& truth, SourceRange range, NetworkBuilder& builder) {
  if (const auto constant = builder.GetConstantTruth(truth)) {
    return builder.GetTruth(!*constant, range);
  }
  const KivOmbiObjectDescriptor& kind = builder.GetKind(truth);
  if (const auto* question = As<Formula::Question>(truth)) {
    return MakeOperand(
        {Formula::Question{question->left, NegationOf(question->relation), question->right}}, kind,
        range);
  }
  if (const auto* negation = As<Formula::Negation>(truth)) return negation->part;
  return MakeOperand({Formula::Negation{truth}}, kind, range);
}

std::optional<Operand> Connect(Junction::Which which, std::vector<Operand> parts,
                               const KivOmbiObjectDescriptor& kind, SourceRange range,
                               NetworkBuilder& builder) {
  const bool neutral = which == Junction::kAll;
  std::vector<Operand> open;
  for (Operand& part : parts) {
    const auto constant = builder.GetConstantTruth(part);
    if (constant && *constant != neutral) return builder.GetTruth(!neutral, range);
    if (!constant) open.push_back(std::move(part));
  }
  if (open.empty()) return builder.GetTruth(neutral, range);
  if (open.size() == 1) return std::move(open.front());
  return MakeOperand({Formula::Connection{which, std::move(open)}}, kind, range);
}

}  // namespace kiv
