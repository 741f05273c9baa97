#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

#include "framework/base/export.h"
#include "solver/constraints/linear_posting.h"
#include "solver/language/compiled_model.h"
#include "solver/language/declared_domain.h"
#include "solver/language/diagnostics.h"
#include "solver/language/expansion_budget.h"
#include "solver/language/operand.h"
#include "solver/language/value_widths.h"
#include "solver/language/vocabulary.h"

namespace kiv {

// Adds variables and constraints to the network of a model, each with the part of the text that it
// comes from, as long as the budget lasts.
//
// Every operation that returns nothing, or false, has reported why.
class KIV_EXPORT NetworkBuilder {
 public:
  using VariableId = KivOmbNetwork::VariableId;
  using ConstraintId = KivOmbNetwork::ConstraintId;

  // All of them must outlive this. The kind "int" must be in the vocabulary.
  NetworkBuilder(CompiledModel& model, const Vocabulary& vocabulary, ExpansionBudget& budget,
                 Diagnostics& diagnostics);

  const KivOmbNetwork& GetNetwork() const { return model_.GetNetwork(); }
  const Vocabulary& GetVocabulary() const noexcept { return vocabulary_; }
  Diagnostics& GetDiagnostics() noexcept { return diagnostics_; }

  // A new variable, Any.
  std::optional<VariableId> AddVariable(const KivOmbiObjectDescriptor& kind, SourceRange range);
  // A new integer that has at least these values: of a kind that holds them and can lose any of
  // them, if there is one, else of one that holds them, else of one that holds their bounds.
  std::optional<VariableId> AddInteger(const DeclaredDomain& domain, SourceRange range);
  // A new variable for the value of an expression of this width, Any: of the kind `kind` unless
  // the values may be more than that holds, then of a kind that holds the bounds.
  std::optional<VariableId> AddResult(const KivOmbiObjectDescriptor& kind, const ValueWidth& width,
                                      SourceRange range);
  const KivOmbiObjectDescriptor& ChooseKind(const KivOmbiObjectDescriptor& kind,
                                            const ValueWidth& width) const;
  ValueWidths& GetWidths() noexcept { return widths_; }
  // The variable that holds the operand: for a constant, a fixed one that all its uses share, for a
  // sum or formula a new one.
  std::optional<VariableId> GetVariable(const Operand& operand);
  // Those of all operands.
  std::optional<std::vector<VariableId>> GetVariables(std::span<const Operand> operands);
  // The kind of truth values; null, reported, when there is none.
  const KivOmbiObjectDescriptor* FindTruthKind(SourceRange range);
  // The constant true or false.
  std::optional<Operand> GetTruth(bool value, SourceRange range);
  // The constant that a boolean operand is, where it is one.
  std::optional<bool> GetConstantTruth(const Operand& operand) const;

  const KivOmbiObjectDescriptor& GetKind(const Operand& operand) const;
  const KivOmbiObjectDescriptor& GetConstantKind() const noexcept { return constant_kind_; }
  bool IsTruth(const Operand& operand) const;
  bool IsInteger(const Operand& operand) const;
  // An integer operand as a sum, which may have a single term or none.
  static LinearExpression ToSum(Operand operand);

  bool PostRow(const KivOmbiCompoundObjectDescriptor& row, VariableId left, VariableId right,
               VariableId result, SourceRange range);
  bool PostSum(const LinearExpression& left, LinearRelation relation, const LinearExpression& right,
               SourceRange range, std::optional<LinearTruth> truth = {});
  // A constraint of class T over `arguments`, constructed from `parameters`.
  template <class T, class... Parameters>
  bool Post(std::span<const VariableId> arguments, SourceRange range, Parameters&&... parameters) {
    return PostAll(arguments.size() + 1, range, [&](KivOmbNetwork& network) {
      network.Emplace<T>(arguments, std::forward<Parameters>(parameters)...);
    });
  }
  // All that `post(network)` posts, at a cost of `steps` to the budget.
  template <class Post>
  bool PostAll(std::uint64_t steps, SourceRange range, Post&& post) {
    if (!budget_.Spend(steps, range, diagnostics_)) return false;
    KivOmbNetwork& network = model_.GetNetwork();
    auto next = static_cast<ConstraintId>(network.CountConstraints());
    post(network);
    for (; next < network.CountConstraints(); ++next) model_.AddOrigin(next, range);
    return true;
  }

 private:
  std::optional<VariableId> GetInteger(std::int64_t value, SourceRange range);

  CompiledModel& model_;
  const Vocabulary& vocabulary_;
  ExpansionBudget& budget_;
  Diagnostics& diagnostics_;
  const KivOmbiObjectDescriptor& constant_kind_;
  // Those of integers, those that keep inner values first.
  std::vector<const KivOmbiObjectDescriptor*> integer_kinds_;
  ValueWidths widths_;
  std::unordered_map<std::int32_t, VariableId> fixed_integers_;
  std::optional<VariableId> fixed_truths_[2];
};

}  // namespace kiv
