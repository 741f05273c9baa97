#include <utility>
#include <vector>

#include "solver/constraints/extremum.h"
#include "solver/constraints/truncated_power.h"
#include "solver/flatzinc/poster_table.h"

// Functions of one and two integers, the result last. Where a function has no value, or one that no
// variable holds, the constraint does not hold.
namespace kiv::flatzinc {
namespace {

using enum TruthForm;
using VariableId = Posting::VariableId;

// The operators of the framework that mean the same.
enum class Operator { kTimes, kDivide, kRemainder, kLeast, kGreatest };

constexpr std::string_view SymbolOf(Operator op) {
  switch (op) {
    case Operator::kTimes:
      return "*";
    case Operator::kDivide:
      return "div";
    case Operator::kRemainder:
      return "mod";
    case Operator::kLeast:
      return "/\\";
    case Operator::kGreatest:
      break;
  }
  return "\\/";
}

void PostOperator(const Posting& posting, std::string_view symbol, TruthForm form) {
  Builder& builder = posting.GetBuilder();
  const VariableId left = posting.GetVariable(0);
  const VariableId right = posting.GetVariable(1);
  const VariableId result = posting.GetVariable(2);
  const Strength strength = posting.GetStrength();
  if (form == kPlain) return builder.PostOperator(symbol, left, right, result, strength);
  posting.Tie(builder.MakeOperator(symbol, left, right, result, strength), form);
}

template <Operator op, TruthForm form>
void Operate(const Posting& posting) {
  PostOperator(posting, SymbolOf(op), form);
}

// Over sets the class for any number of operands leaves no value without support, and sooner than
// the operator.
template <Extremum::Which which, TruthForm form>
void TakeExtremum(const Posting& posting) {
  std::vector variables = {posting.GetVariable(2), posting.GetVariable(0), posting.GetVariable(1)};
  if (posting.GetBuilder().IsOverSets(variables, posting.GetStrength())) {
    return posting.Emplace<Extremum>(form, std::move(variables), which);
  }
  Operate<which == Extremum::kLeast ? Operator::kLeast : Operator::kGreatest, form>(posting);
}

template <TruthForm form>
void Absolute(const Posting& posting) {
  Builder& builder = posting.GetBuilder();
  const VariableId operand = posting.GetVariable(0);
  const VariableId result = posting.GetVariable(1);
  const Strength strength = posting.GetStrength();
  if (form == kPlain) return builder.PostOperator("abs", operand, result, strength);
  posting.Tie(builder.MakeOperator("abs", operand, result, strength), form);
}

// z = x + sign * y
template <int sign, TruthForm form>
void Add(const Posting& posting) {
  LinearExpression sum = posting.GetExpression(0);
  LinearExpression right = posting.GetExpression(1);
  if (!right.Scale(sign) || !sum.Add(right)) posting.Refuse("has numbers that do not fit 64 bits");
  posting.Relate(sum, LinearRelation::kEqual, posting.GetExpression(2), form);
}

// The framework's power has no value for most negative exponents.
template <TruthForm form>
void Raise(const Posting& posting) {
  const VariableId exponent = posting.GetVariable(1);
  if (posting.GetNetwork().GetSummary(exponent).lower >= 0) return PostOperator(posting, "^", form);
  posting.Emplace<TruncatedPower>(form, {posting.GetVariable(0), exponent, posting.GetVariable(2)});
}

constexpr Poster kPosters[] = {
    {"int_abs", "ii", Absolute<kPlain>},
    {"int_abs_reif", "iib", Absolute<kReified>},
    {"int_abs_imp", "iib", Absolute<kImplied>},

    {"int_plus", "iii", Add<1, kPlain>},
    {"int_plus_reif", "iiib", Add<1, kReified>},
    {"int_plus_imp", "iiib", Add<1, kImplied>},
    {"int_minus", "iii", Add<-1, kPlain>},
    {"int_minus_reif", "iiib", Add<-1, kReified>},
    {"int_minus_imp", "iiib", Add<-1, kImplied>},

    {"int_times", "iii", Operate<Operator::kTimes, kPlain>},
    {"int_times_reif", "iiib", Operate<Operator::kTimes, kReified>},
    {"int_times_imp", "iiib", Operate<Operator::kTimes, kImplied>},
    {"int_div", "iii", Operate<Operator::kDivide, kPlain>},
    {"int_div_reif", "iiib", Operate<Operator::kDivide, kReified>},
    {"int_div_imp", "iiib", Operate<Operator::kDivide, kImplied>},
    {"int_mod", "iii", Operate<Operator::kRemainder, kPlain>},
    {"int_mod_reif", "iiib", Operate<Operator::kRemainder, kReified>},
    {"int_mod_imp", "iiib", Operate<Operator::kRemainder, kImplied>},
    {"int_min", "iii", TakeExtremum<Extremum::kLeast, kPlain>},
    {"int_min_reif", "iiib", TakeExtremum<Extremum::kLeast, kReified>},
    {"int_min_imp", "iiib", TakeExtremum<Extremum::kLeast, kImplied>},
    {"int_max", "iii", TakeExtremum<Extremum::kGreatest, kPlain>},
    {"int_max_reif", "iiib", TakeExtremum<Extremum::kGreatest, kReified>},
    {"int_max_imp", "iiib", TakeExtremum<Extremum::kGreatest, kImplied>},

    {"int_pow", "iii", Raise<kPlain>},
    {"int_pow_reif", "iiib", Raise<kReified>},
    {"int_pow_imp", "iiib", Raise<kImplied>},
    {"int_pow_fixed", "i=ii", Raise<kPlain>},
    {"int_pow_fixed_reif", "i=iib", Raise<kReified>},
    {"int_pow_fixed_imp", "i=iib", Raise<kImplied>},
};

}  // namespace

std::span<const Poster> ArithmeticPosters() { return kPosters; }

}  // namespace kiv::flatzinc
