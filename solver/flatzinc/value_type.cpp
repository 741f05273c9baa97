#include "solver/flatzinc/value_type.h"

#include "solver/language/token_description.h"

namespace kiv::flatzinc {
namespace {

using Kind = Expression::Kind;

bool IsEmptySet(const IntegerSet& set) { return set.values.size == 0 && set.lower > set.upper; }

std::string DescribeVariable(BaseType type) {
  switch (type) {
    case BaseType::kSetOfInt:
      return "a variable set of integers";
    case BaseType::kSetOfFloat:
      return "a variable set of floats";
    default:
      return Describe(type) + " variable";
  }
}

}  // namespace

bool IsOfType(Expression value, BaseType type, const Model& model) {
  switch (value.GetKind()) {
    case Kind::kBool:
      return type == BaseType::kBool;
    case Kind::kInt:
      return type == BaseType::kInt;
    case Kind::kFloat:
      return type == BaseType::kFloat;
    case Kind::kSet:
      return type == BaseType::kSetOfInt ||
             (type == BaseType::kSetOfFloat && IsEmptySet(model.sets[value.GetPlace()]));
    case Kind::kFloatSet:
      return type == BaseType::kSetOfFloat;
    case Kind::kVariable:
      return type == model.variables[value.GetPlace()].type;
    default:
      return false;
  }
}

std::string Describe(Expression value, const Model& model) {
  switch (value.GetKind()) {
    case Kind::kBool:
      return Describe(BaseType::kBool);
    case Kind::kInt:
      return Describe(BaseType::kInt);
    case Kind::kFloat:
      return Describe(BaseType::kFloat);
    case Kind::kSet:
      return Describe(BaseType::kSetOfInt);
    case Kind::kFloatSet:
      return Describe(BaseType::kSetOfFloat);
    case Kind::kString:
      return "a text";
    case Kind::kArray:
      return "an array";
    case Kind::kVariable:
      return DescribeVariable(model.variables[value.GetPlace()].type);
    case Kind::kName:
      return "the name " + QuoteWord(model.names[value.GetPlace()]);
    case Kind::kCall:
      return "an annotation";
  }
  return {};
}

std::string Describe(BaseType type) {
  switch (type) {
    case BaseType::kBool:
      return "a boolean";
    case BaseType::kInt:
      return "an integer";
    case BaseType::kFloat:
      return "a float";
    case BaseType::kSetOfInt:
      return "a set of integers";
    case BaseType::kSetOfFloat:
      return "a set of floats";
  }
  return {};
}

std::string CountElements(std::uint32_t count) {
  return count == 1 ? "1 element" : std::to_string(count) + " elements";
}

}  // namespace kiv::flatzinc
