#include <optional>
#include <vector>

#include "solver/constraints/linear_posting.h"
#include "solver/flatzinc/poster_table.h"

namespace kiv::flatzinc {
namespace {

// coefficients, variables, constant
void Post(const Posting& posting, LinearRelation relation, std::optional<LinearTruth> truth) {
  const auto coefficients = posting.GetElements(0);
  const auto variables = posting.GetElements(1);
  if (coefficients.size() != variables.size()) {
    posting.Refuse("takes as many coefficients as variables");
  }
  LinearExpression sum;
  for (std::size_t i = 0; i < variables.size(); ++i) {
    LinearExpression term =
        Posting::IsConstant(variables[i])
            ? LinearExpression(variables[i].GetValue())
            : LinearExpression(LinearTerm{1, posting.GetVariable(variables[i])});
    if (!term.Scale(coefficients[i].GetValue()) || !sum.Add(term)) {
      posting.Refuse("has numbers that do not fit 64 bits");
    }
  }
  PostLinear(posting.GetNetwork(), sum, relation, LinearExpression(posting.GetInteger(2)), truth);
}

template <LinearRelation relation>
void PostPlain(const Posting& posting) {
  Post(posting, relation, std::nullopt);
}

template <LinearRelation relation, Reification reification>
void PostReified(const Posting& posting) {
  Post(posting, relation, LinearTruth{posting.GetVariable(3), reification});
}

using enum LinearRelation;
using enum Reification;

constexpr Poster kPosters[] = {
    {"int_lin_eq", "=II=i", PostPlain<kEqual>},
    {"int_lin_ne", "=II=i", PostPlain<kUnequal>},
    {"int_lin_le", "=II=i", PostPlain<kLessOrEqual>},
    {"int_lin_eq_reif", "=II=ib", PostReified<kEqual, kEquivalence>},
    {"int_lin_ne_reif", "=II=ib", PostReified<kUnequal, kEquivalence>},
    {"int_lin_le_reif", "=II=ib", PostReified<kLessOrEqual, kEquivalence>},
    {"int_lin_eq_imp", "=II=ib", PostReified<kEqual, kImplication>},
    {"int_lin_ne_imp", "=II=ib", PostReified<kUnequal, kImplication>},
    {"int_lin_le_imp", "=II=ib", PostReified<kLessOrEqual, kImplication>},
};

}  // namespace

std::span<const Poster> LinearPosters() { return kPosters; }

}  // namespace kiv::flatzinc
