#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "solver/constraints/linear_posting.h"
#include "solver/flatzinc/builder.h"

namespace kiv::flatzinc {

// How the truth of a constraint is tied to its last argument.
enum class TruthForm {
  kPlain,    // not at all: the constraint holds
  kReified,  // that is true if and only if the constraint holds
  kImplied,  // if that is true, the constraint holds
};

// One constraint of the text while it is being posted: its arguments, of the types that the poster
// declared. An argument that may be a variable may always be a constant too.
class KIV_EXPORT Posting {
 public:
  using VariableId = KivOmbNetwork::VariableId;

  Posting(Builder& builder, const Constraint& constraint)
      : builder_(builder), constraint_(constraint) {}

  Builder& GetBuilder() const noexcept { return builder_; }
  KivOmbNetwork& GetNetwork() const noexcept { return builder_.GetNetwork(); }
  const std::string& GetName() const { return builder_.GetModel().names[constraint_.name]; }
  std::size_t CountArguments() const noexcept { return constraint_.arguments; }
  Expression GetArgument(std::size_t i) const {
    return builder_.GetModel().GetArguments(constraint_)[i];
  }

  // Whether the constraint carries an annotation of this name.
  bool HasAnnotation(std::string_view name) const;
  // How much the annotations ask for, by the names that `domain_propagation` and
  // `bounds_propagation` have in FlatZinc.
  Strength GetStrength() const;

  // Whether a boolean or integer argument, or an element of an array, is written as a constant.
  static bool IsConstant(Expression value);
  bool IsConstant(std::size_t i) const { return IsConstant(GetArgument(i)); }
  // A constant; a boolean is 0 or 1.
  std::int64_t GetInteger(std::size_t i) const { return GetArgument(i).GetValue(); }
  // The variable of the network for an argument or an element; a constant is a fixed variable.
  VariableId GetVariable(Expression value) const;
  VariableId GetVariable(std::size_t i) const { return GetVariable(GetArgument(i)); }

  // Of an array.
  std::span<const Expression> GetElements(std::size_t i) const;
  std::vector<std::int64_t> GetIntegers(std::size_t i) const;
  std::vector<VariableId> GetVariables(std::size_t i) const;

  // An integer or boolean, or coefficients times such, exactly.
  LinearExpression GetExpression(Expression value) const;
  LinearExpression GetExpression(std::size_t i) const { return GetExpression(GetArgument(i)); }
  LinearExpression GetSum(std::size_t coefficients, std::size_t variables) const;

  // The last argument, which the constraint is tied to; none for a plain constraint.
  std::optional<LinearTruth> GetTruth(TruthForm form) const;

  // Of a constant set.
  Domain GetSet(Expression value) const;
  Domain GetSet(std::size_t i) const { return GetSet(GetArgument(i)); }

  // A constant as a value of a variable, refused where it is beyond those.
  std::int32_t NarrowConstant(std::int64_t value) const;
  std::uint32_t GetOffset() const noexcept { return constraint_.offset; }
  // Throws Error: "'name' text".
  [[noreturn]] void Refuse(const std::string& text) const;
  // Posts `left relation right`, tied as `form` says, as strong as annotated.
  void Relate(const LinearExpression& left, LinearRelation relation, const LinearExpression& right,
              TruthForm form) const;
  // Posts a constraint of which it is known whether it holds.
  void Decide(bool holds, TruthForm form) const;
  // Posts a constraint of class T, made from `parameters`, over `arguments`.
  template <class T, class... Parameters>
  void Emplace(TruthForm form, std::vector<VariableId> arguments,
               Parameters&&... parameters) const {
    if (form == TruthForm::kPlain) {
      GetNetwork().Emplace<T>(arguments, std::forward<Parameters>(parameters)...);
    } else {
      Tie({std::make_unique<T>(std::forward<Parameters>(parameters)...), std::move(arguments)},
          form);
    }
  }
  // Posts a relation tied as `form`, which is not plain, says.
  void Tie(Builder::Relation relation, TruthForm form) const;
  // Posts that there is no solution.
  void PostContradiction() const;

 private:
  Builder& builder_;
  const Constraint& constraint_;
};

// How constraints of one name are posted.
struct Poster {
  std::string_view name;
  // The type of each argument, a letter each: b and i a boolean and an integer, s a set of
  // integers; a capital an array of such; a letter after '=' must be constant. So "=IIi" is an
  // array of constant integers, an array of integers and an integer. Sets are always constant. A
  // '|' stands between the types for different numbers of arguments.
  std::string_view types;
  void (*post)(const Posting& posting);
};

}  // namespace kiv::flatzinc
