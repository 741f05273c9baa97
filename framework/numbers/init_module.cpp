#include "framework/abstract_types/constraints/arithmetic.h"
#include "framework/abstract_types/constraints/boolean_relations.h"
#include "framework/abstract_types/constraints/connectives.h"
#include "framework/abstract_types/constraints/relations.h"
#include "framework/abstract_types/constraints/truncating_division.h"
#include "framework/abstract_types/constraints/unary.h"
#include "framework/abstract_types/operator_factories.h"
#include "framework/calculator/module_manager.h"
#include "framework/numbers/interval_integer.h"
#include "framework/numbers/single_boolean.h"
#include "framework/numbers/single_integer.h"

namespace {

// The kind of both operands, and the carrier, which is also the kind of an integer result.
struct Kinds {
  KivOmbiKind operand;
  KivOmbiKind carrier;
};

using BinaryFactory = KivOmbiOperator (&)(const KivString&, KivOmbiKind, KivOmbiKind, KivOmbiKind,
                                          KivOmbiKind);
using InverseFactory = KivOmbiOperator (&)(const KivString&, KivOmbiKind, KivOmbiKind, KivOmbiKind,
                                           KivOmbiKind, KivOmbiKind);

void AddOperators(KivOmbiModule& module, const Kinds& kinds) {
  const KivOmbiKind operand = kinds.operand;
  const KivOmbiKind carrier = kinds.carrier;
  const auto binary = [&](BinaryFactory create, const char* symbol, KivOmbiKind constraint) {
    module.AddObjectDescriptor(create(symbol, operand, operand, carrier, constraint));
  };
  const auto inverse = [&](InverseFactory create, const char* symbol, KivOmbiKind result,
                           KivOmbiKind constraint) {
    module.AddObjectDescriptor(create(symbol, operand, operand, result, carrier, constraint));
  };
  const auto unary = [&](const char* symbol, KivOmbiKind constraint) {
    module.AddObjectDescriptor(KivOmbiCreateUnaryOperator(symbol, operand, carrier, constraint));
  };
  const auto inverse_unary = [&](const char* symbol, KivOmbiKind constraint) {
    module.AddObjectDescriptor(
        KivOmbiCreateInverseUnaryOperator(symbol, operand, carrier, carrier, constraint));
  };
  auto& plain = KivOmbiCreateBinaryOperator;
  auto& symmetric = KivOmbiCreateSymmetricBinaryOperator;
  auto& first_inverse = KivOmbiCreateFirstInverseBinaryOperator;
  auto& truth = KivOmbiCreateSecondInverseBinaryOperator;
  auto& symmetric_truth = KivOmbiCreateSecondInverseSymmetricBinaryOperator;
  const KivOmbiKind boolean = KivOmbSingleBoolean::sDescriptor;

  binary(plain, "+", KivOmbiAdditionConstraint::sDescriptor);
  binary(plain, "*", KivOmbiMultiplicationConstraint::sDescriptor);
  binary(plain, "^", KivOmbiPowerConstraint::sDescriptor);
  binary(plain, "mod", KivOmbiRemainderConstraint::sDescriptor);
  binary(plain, "div", KivOmbiTruncatingDivisionConstraint::sDescriptor);
  binary(plain, "/\\", KivOmbiMinimumConstraint::sDescriptor);
  binary(plain, "\\/", KivOmbiMaximumConstraint::sDescriptor);
  inverse(first_inverse, "-", carrier, KivOmbiAdditionConstraint::sDescriptor);
  inverse(first_inverse, "/", carrier, KivOmbiMultiplicationConstraint::sDescriptor);
  unary("-", KivOmbiNumberNegationConstraint::sDescriptor);
  unary("abs", KivOmbiAbsoluteConstraint::sDescriptor);
  unary("next", KivOmbiNextConstraint::sDescriptor);
  inverse_unary("prev", KivOmbiNextConstraint::sDescriptor);
  inverse_unary("sign", KivOmbiSignumConstraint::sDescriptor);

  binary(plain, "=", KivOmbiEqualTernaryConstraint::sDescriptor);
  binary(plain, "<>", KivOmbiUnequalTernaryConstraint::sDescriptor);
  binary(plain, ">=", KivOmbiLessOrEqualTernaryConstraint::sDescriptor);
  binary(plain, ">", KivOmbiLessTernaryConstraint::sDescriptor);
  binary(symmetric, "<=", KivOmbiLessOrEqualTernaryConstraint::sDescriptor);
  binary(symmetric, "<", KivOmbiLessTernaryConstraint::sDescriptor);

  inverse(truth, "==", boolean, KivOmbiBooleanEqualConstraint::sDescriptor);
  inverse(truth, ">>", boolean, KivOmbiBooleanLessConstraint::sDescriptor);
  inverse(truth, ">==", boolean, KivOmbiBooleanLessOrEqualConstraint::sDescriptor);
  inverse(symmetric_truth, "<<", boolean, KivOmbiBooleanLessConstraint::sDescriptor);
  inverse(symmetric_truth, "<==", boolean, KivOmbiBooleanLessOrEqualConstraint::sDescriptor);
}

void AddTruthOperators(KivOmbiModule& module, KivOmbiKind boolean) {
  const auto binary = [&](const char* symbol, KivOmbiKind constraint) {
    module.AddObjectDescriptor(
        KivOmbiCreateBinaryOperator(symbol, boolean, boolean, boolean, constraint));
  };
  binary("=", KivOmbiEqualTernaryConstraint::sDescriptor);
  binary("<>", KivOmbiUnequalTernaryConstraint::sDescriptor);
  module.AddObjectDescriptor(KivOmbiCreateSecondInverseBinaryOperator(
      "==", boolean, boolean, boolean, boolean, KivOmbiBooleanEqualConstraint::sDescriptor));
  binary("and", KivOmbiConjunctionConstraint::sDescriptor);
  binary("or", KivOmbiDisjunctionConstraint::sDescriptor);
  binary("=>", KivOmbiImplicationConstraint::sDescriptor);
  binary("xor", KivOmbiExclusiveOrConstraint::sDescriptor);
  module.AddObjectDescriptor(KivOmbiCreateUnaryOperator(
      "not", boolean, boolean, KivOmbiBooleanNegationConstraint::sDescriptor));
}

}  // namespace

// The module "KivOmbNumbers" offers the kinds int, interval int and bool and the operators between
// them; the last rows, over any two integers, serve every mix that no other row names.
extern "C" KIV_EXPORT int InitModule(KivOmbiModule* module, KivOmbiModuleManager* manager) {
  if (module == nullptr || manager == nullptr) return 0;
  KivOmbiModule* abstract_types = manager->OpenModule("KivOmbAbstractTypes");
  if (abstract_types == nullptr) return 0;
  module->AddLoadedModule(abstract_types);

  const KivOmbiKind single = KivOmbSingleInteger::sDescriptor;
  const KivOmbiKind interval = KivOmbIntervalInteger::sDescriptor;
  const KivOmbiKind boolean = KivOmbSingleBoolean::sDescriptor;
  for (const KivOmbiKind kind : {single, interval, boolean}) module->AddObjectDescriptor(kind);
  AddOperators(*module, {single, single});
  AddOperators(*module, {interval, interval});
  AddOperators(*module, {KivOmbiInteger::sDescriptor, interval});
  AddTruthOperators(*module, boolean);
  return 1;
}
