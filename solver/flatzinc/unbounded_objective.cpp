#include "solver/flatzinc/unbounded_objective.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "framework/intervals/sub_int_base.h"

namespace kiv::flatzinc {
namespace {

using Kind = Expression::Kind;

class Question {
 public:
  Question(const Objective& objective, const Builder& builder)
      : objective_(objective), builder_(builder), model_(builder.GetModel()) {}

  bool AllConstraintsLetItImprove() const {
    return std::ranges::all_of(model_.constraints, [&](const Constraint& constraint) {
      return builder_.IsDone(constraint) || !Mentions(model_.GetArguments(constraint)) ||
             IsEverMoreSatisfied(constraint);
    });
  }

 private:
  bool IsObjective(Expression value) const {
    return value.Is(Kind::kVariable) &&
           builder_.GetVariable(value.GetPlace()) == objective_.variable;
  }

  std::span<const Expression> ElementsOf(Expression array) const {
    return model_.Get(model_.arrays[array.GetPlace()]);
  }

  bool Mentions(std::span<const Expression> arguments) const {
    return std::ranges::any_of(arguments, [&](Expression argument) {
      return IsObjective(argument) || (argument.Is(Kind::kArray) &&
                                       std::ranges::any_of(ElementsOf(argument), [&](Expression e) {
                                         return IsObjective(e);
                                       }));
    });
  }

  // Whether the constraint is an inequality in which a better objective makes the lesser side less
  // or the greater side greater.
  bool IsEverMoreSatisfied(const Constraint& constraint) const {
    const std::string_view name = model_.names[constraint.name];
    const auto arguments = model_.GetArguments(constraint);
    const bool maximize = objective_.sense == Objective::Sense::kMaximize;
    if (name == "int_le" || name == "int_lt") {
      return !IsObjective(arguments[maximize ? 0 : 1]);
    }
    if (name != "int_lin_le") return false;
    const auto coefficients = ElementsOf(arguments[0]);
    const auto variables = ElementsOf(arguments[1]);
    for (std::size_t i = 0; i < variables.size(); ++i) {
      if (!IsObjective(variables[i])) continue;
      const std::int64_t coefficient = coefficients[i].GetValue();
      if (maximize ? coefficient > 0 : coefficient < 0) return false;
    }
    return true;
  }

  const Objective& objective_;
  const Builder& builder_;
  const Model& model_;
};

}  // namespace

bool IsUnbounded(const Objective& objective, const Builder& builder, const KivOmbNetwork& network) {
  const KivOmbiDomainSummary& summary = network.GetSummary(objective.variable);
  const bool has_no_bound = objective.sense == Objective::Sense::kMaximize
                                ? summary.upper == SubIntBase::kMax
                                : summary.lower == SubIntBase::kMin;
  return !summary.IsNil() && has_no_bound &&
         Question(objective, builder).AllConstraintsLetItImprove();
}

}  // namespace kiv::flatzinc
