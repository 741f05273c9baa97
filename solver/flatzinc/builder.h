#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "framework/base/export.h"
#include "framework/networks/network.h"
#include "solver/constraints/strength.h"
#include "solver/flatzinc/domain.h"
#include "solver/flatzinc/model.h"
#include "solver/language/vocabulary.h"

namespace kiv::flatzinc {

// Turns the variables of a model into variables of a network, and gives the posters of constraints
// what they need to post.
//
// Every variable of the network is an integer: a boolean is 0 or 1, held by its two bounds, and so
// is any integer of two neighbouring values; other domains of at most 1024 values are enumerated,
// greater ones are intervals, with a constraint for their holes. Variables that the text says to be
// equal (bool2int, int_eq, bool_eq, an initialiser) are one variable.
class KIV_EXPORT Builder {
 public:
  using VariableId = KivOmbNetwork::VariableId;

  // All of them must outlive this. Declares all variables; throws Error for one that Kiv does not
  // support.
  Builder(const Model& model, const Vocabulary& vocabulary, KivOmbNetwork& network);

  const Model& GetModel() const noexcept { return model_; }
  KivOmbNetwork& GetNetwork() noexcept { return network_; }

  // The variable of the network for Model::variables[place].
  VariableId GetVariable(std::uint32_t place) const { return variables_[place]; }
  // Whether a constraint of the text is a mere equality of variables that are one already.
  bool IsDone(const Constraint& constraint) const;

  // The fixed variable of this value; all uses share it.
  VariableId GetConstant(std::int64_t value, std::uint32_t offset);
  // A new variable that the text does not know. Its value must follow from those of others, or a
  // solution would be found more than once.
  VariableId AddVariable(const Domain& domain, std::uint32_t offset);

  // Says that the constraints posted since this was last said come from `offset` of the text.
  void NoteOrigin(std::uint32_t offset);
  // Where in the text a constraint of the network comes from.
  std::uint32_t GetOrigin(KivOmbNetwork::ConstraintId constraint) const {
    return origins_[constraint];
  }

  // Whether to compute with the sets of values of the variables, not with their bounds alone, as
  // `strength` says. If it leaves that open, where all have at most 1024 values as they are.
  bool IsOverSets(std::span<const VariableId> variables, Strength strength) const;

  // Posts `left symbol right = result` by a row of the operator: over sets or over bounds.
  void PostOperator(std::string_view symbol, VariableId left, VariableId right, VariableId result,
                    Strength strength);
  // The same for an operator with one operand.
  void PostOperator(std::string_view symbol, VariableId operand, VariableId result,
                    Strength strength);

  // A constraint that is not posted, and the arguments that it is meant for.
  struct Relation {
    std::unique_ptr<KivOmbiConstraint> constraint;
    std::vector<VariableId> arguments;
  };
  // What PostOperator would post.
  Relation MakeOperator(std::string_view symbol, VariableId left, VariableId right,
                        VariableId result, Strength strength) const;
  Relation MakeOperator(std::string_view symbol, VariableId operand, VariableId result,
                        Strength strength) const;

 private:
  void UniteEqualVariables();
  void DeclareVariables();
  std::uint32_t FindRepresentative(std::uint32_t place);
  // A variable that has this enumerated range as its domain, if there is one; else `variable` is
  // noted as the one that will.
  std::optional<VariableId> FindLike(const Domain& domain, bool is_enumerated, VariableId variable);
  const KivOmbiCompoundObjectDescriptor& FindRow(std::string_view symbol, std::size_t operands,
                                                 std::span<const VariableId> variables,
                                                 Strength strength) const;

  const Model& model_;
  const Vocabulary& vocabulary_;
  KivOmbNetwork& network_;
  const KivOmbiObjectDescriptor& enumerated_;
  const KivOmbiObjectDescriptor& interval_;
  std::vector<std::uint32_t> representative_;  // by variable of the model
  std::vector<VariableId> variables_;          // by variable of the model
  std::unordered_map<std::int64_t, VariableId> constants_;
  // By their bounds: variables whose domains were built as enumerated ranges.
  std::map<std::pair<std::int64_t, std::int64_t>, VariableId> built_ranges_;
  std::vector<std::uint32_t> origins_;  // by constraint of the network
};

}  // namespace kiv::flatzinc
