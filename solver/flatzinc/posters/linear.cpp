#include <algorithm>
#include <utility>

#include "solver/constraints/boolean_count.h"
#include "solver/flatzinc/poster_table.h"

// Sums of integers or booleans with constant coefficients: coefficients, variables, right side. The
// right side of a sum of booleans may be a variable.
namespace kiv::flatzinc {
namespace {

using enum LinearRelation;
using enum TruthForm;

template <LinearRelation relation, TruthForm form>
void Sum(const Posting& posting) {
  posting.Relate(posting.GetSum(0, 1), relation, posting.GetExpression(2), form);
}

// That many booleans are true has a class of its own.
void BooleanSum(const Posting& posting) {
  const auto coefficients = posting.GetIntegers(0);
  const auto booleans = posting.GetElements(1);
  const bool counts = coefficients.size() == booleans.size() && !posting.IsConstant(2) &&
                      std::ranges::all_of(coefficients, [](auto factor) { return factor == 1; });
  if (!counts) return Sum<kEqual, kPlain>(posting);
  auto arguments = posting.GetVariables(1);
  arguments.push_back(posting.GetVariable(2));
  posting.Emplace<BooleanCount>(kPlain, std::move(arguments));
}

constexpr Poster kPosters[] = {
    {"int_lin_eq", "=II=i", Sum<kEqual, kPlain>},
    {"int_lin_ne", "=II=i", Sum<kUnequal, kPlain>},
    {"int_lin_le", "=II=i", Sum<kLessOrEqual, kPlain>},
    {"int_lin_lt", "=II=i", Sum<kLess, kPlain>},
    {"int_lin_eq_reif", "=II=ib", Sum<kEqual, kReified>},
    {"int_lin_ne_reif", "=II=ib", Sum<kUnequal, kReified>},
    {"int_lin_le_reif", "=II=ib", Sum<kLessOrEqual, kReified>},
    {"int_lin_lt_reif", "=II=ib", Sum<kLess, kReified>},
    {"int_lin_eq_imp", "=II=ib", Sum<kEqual, kImplied>},
    {"int_lin_ne_imp", "=II=ib", Sum<kUnequal, kImplied>},
    {"int_lin_le_imp", "=II=ib", Sum<kLessOrEqual, kImplied>},
    {"int_lin_lt_imp", "=II=ib", Sum<kLess, kImplied>},

    {"bool_lin_eq", "=IBi", BooleanSum},
    {"bool_lin_ne", "=IBi", Sum<kUnequal, kPlain>},
    {"bool_lin_le", "=IBi", Sum<kLessOrEqual, kPlain>},
    {"bool_lin_lt", "=IBi", Sum<kLess, kPlain>},
    {"bool_lin_eq_reif", "=IBib", Sum<kEqual, kReified>},
    {"bool_lin_ne_reif", "=IBib", Sum<kUnequal, kReified>},
    {"bool_lin_le_reif", "=IBib", Sum<kLessOrEqual, kReified>},
    {"bool_lin_lt_reif", "=IBib", Sum<kLess, kReified>},
    {"bool_lin_eq_imp", "=IBib", Sum<kEqual, kImplied>},
    {"bool_lin_ne_imp", "=IBib", Sum<kUnequal, kImplied>},
    {"bool_lin_le_imp", "=IBib", Sum<kLessOrEqual, kImplied>},
    {"bool_lin_lt_imp", "=IBib", Sum<kLess, kImplied>},
};

}  // namespace

std::span<const Poster> LinearPosters() { return kPosters; }

}  // namespace kiv::flatzinc
