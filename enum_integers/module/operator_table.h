#pragma once

#include <array>
#include <span>

#include "framework/abstract_types/operator_factories.h"

namespace kiv {

// The kinds that the module's operators take and give.
enum class OperandKind { kNone, kEnum, kSingle, kInterval, kInteger, kBoolean };

// The framework's ways to declare an operator, named as its factories are.
enum class OperatorForm {
  kUnary,
  kInverseUnary,
  kBinary,
  kSymmetricBinary,
  kFirstInverse,
  kSecondInverse,
  kSecondInverseSymmetric,
};

struct OperatorRow {
  const char* symbol;
  OperatorForm form;
  std::array<OperandKind, 4> kinds;  // in the order of the factory; the rest is kNone
  const KivOmbiObjectDescriptor* const* constraint;
};

// The operators of the module, in order of registration.
std::span<const OperatorRow> OperatorTable();

// The descriptor of an operator. The kinds' descriptors are looked up when it is made.
const KivOmbiCompoundObjectDescriptor* CreateOperator(const OperatorRow& row);

}  // namespace kiv
