#include "framework/abstract_types/any.h"
#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/constraints/arithmetic.h"
#include "framework/abstract_types/constraints/boolean_relations.h"
#include "framework/abstract_types/constraints/connectives.h"
#include "framework/abstract_types/constraints/relations.h"
#include "framework/abstract_types/constraints/truncating_division.h"
#include "framework/abstract_types/constraints/unary.h"
#include "framework/abstract_types/integer.h"
#include "framework/calculator/module_manager.h"

// The module "KivOmbAbstractTypes" offers the abstract kinds and the constraint classes.
extern "C" KIV_EXPORT int InitModule(KivOmbiModule* module, KivOmbiModuleManager* manager) {
  if (module == nullptr || manager == nullptr) return 0;
  for (const KivOmbiObjectDescriptor* descriptor : {
           KivOmbiAny::sDescriptor,
           KivOmbiScalar::sDescriptor,
           KivOmbiNumber::sDescriptor,
           KivOmbiInteger::sDescriptor,
           KivOmbiBoolean::sDescriptor,
           KivOmbiAdditionConstraint::sDescriptor,
           KivOmbiMultiplicationConstraint::sDescriptor,
           KivOmbiPowerConstraint::sDescriptor,
           KivOmbiRemainderConstraint::sDescriptor,
           KivOmbiEqualTernaryConstraint::sDescriptor,
           KivOmbiUnequalTernaryConstraint::sDescriptor,
           KivOmbiLessOrEqualTernaryConstraint::sDescriptor,
           KivOmbiLessTernaryConstraint::sDescriptor,
           KivOmbiMinimumConstraint::sDescriptor,
           KivOmbiMaximumConstraint::sDescriptor,
           KivOmbiNumberNegationConstraint::sDescriptor,
           KivOmbiSignumConstraint::sDescriptor,
           KivOmbiAbsoluteConstraint::sDescriptor,
           KivOmbiNextConstraint::sDescriptor,
           KivOmbiEqualConstraint::sDescriptor,
           KivOmbiBooleanEqualConstraint::sDescriptor,
           KivOmbiBooleanLessConstraint::sDescriptor,
           KivOmbiBooleanLessOrEqualConstraint::sDescriptor,
           KivOmbiConjunctionConstraint::sDescriptor,
           KivOmbiDisjunctionConstraint::sDescriptor,
           KivOmbiImplicationConstraint::sDescriptor,
           KivOmbiExclusiveOrConstraint::sDescriptor,
           KivOmbiBooleanNegationConstraint::sDescriptor,
           KivOmbiTruncatingDivisionConstraint::sDescriptor,
       }) {
    module->AddObjectDescriptor(descriptor);
  }
  return 1;
}
