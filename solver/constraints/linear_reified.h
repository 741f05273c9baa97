#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/linear_relation.h"
#include "solver/constraints/linear_sum.h"
#include "solver/constraints/reification.h"
#include "solver/constraints/unit_sum.h"

namespace kiv {

// A relation between the sum of coefficient[i] * argument i, over different integers of any kinds,
// and a constant, tied to a boolean, the last argument.
//
// While the boolean is open, it becomes known (of an implication: to be false) when the bounds of
// the sum decide the relation; an equation of up to three terms also when no values satisfy it, as
// far as LinearEquation looks at values. Once it is known, the relation or its opposite narrows as
// LinearEquation, LinearInequality and LinearDisequality do. So every value left is part of a
// solution for an order relation, and for an equation or its opposite where LinearEquation says so.
class KIV_EXPORT LinearReified final : public KivOmbiConstraint {
 public:
  // What LinearSum says of the coefficients holds here; the relation is =, <> or <=.
  LinearReified(std::vector<std::int64_t> coefficients, LinearRelation relation, Int128 constant,
                Reification reification);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  // Whether the relation holds, as far as the domains decide it.
  std::optional<bool> Decide(const KivOmbiObjectEnvironment& environment);
  std::optional<bool> DecideEqual(const KivOmbiObjectEnvironment& environment);
  // Narrows to where the relation holds, or to where it does not.
  KivOmbiFilterResult Impose(const KivOmbiObjectEnvironment& environment, bool holds);

  LinearSum sum_;
  LinearRelation relation_;
  Int128 constant_;
  // sum = constant, of an order relation sum <= constant; and the opposite of that.
  LinearSum::Limits limits_;
  LinearSum::Limits opposite_;
  UnitSum unit_sum_;
  Reification reification_;
};

}  // namespace kiv
