#include "enum_integers/module/operator_table.h"

#include "enum_integers/domain/enum_integer.h"
#include "framework/abstract_types/constraints/arithmetic.h"
#include "framework/abstract_types/constraints/boolean_relations.h"
#include "framework/abstract_types/constraints/relations.h"
#include "framework/abstract_types/constraints/unary.h"
#include "framework/numbers/interval_integer.h"
#include "framework/numbers/single_boolean.h"
#include "framework/numbers/single_integer.h"

namespace kiv {
namespace {

using enum OperandKind;
using enum OperatorForm;

constexpr auto kAddition = &KivOmbiAdditionConstraint::sDescriptor;
constexpr auto kMultiplication = &KivOmbiMultiplicationConstraint::sDescriptor;
constexpr auto kPower = &KivOmbiPowerConstraint::sDescriptor;
constexpr auto kEqualTernary = &KivOmbiEqualTernaryConstraint::sDescriptor;
constexpr auto kUnequalTernary = &KivOmbiUnequalTernaryConstraint::sDescriptor;
constexpr auto kLessOrEqualTernary = &KivOmbiLessOrEqualTernaryConstraint::sDescriptor;
constexpr auto kMinimum = &KivOmbiMinimumConstraint::sDescriptor;
constexpr auto kMaximum = &KivOmbiMaximumConstraint::sDescriptor;
constexpr auto kLessTernary = &KivOmbiLessTernaryConstraint::sDescriptor;
constexpr auto kNumberNegation = &KivOmbiNumberNegationConstraint::sDescriptor;
constexpr auto kSignum = &KivOmbiSignumConstraint::sDescriptor;
constexpr auto kAbsolute = &KivOmbiAbsoluteConstraint::sDescriptor;
constexpr auto kNext = &KivOmbiNextConstraint::sDescriptor;
constexpr auto kEqual = &KivOmbiEqualConstraint::sDescriptor;
constexpr auto kBooleanEqual = &KivOmbiBooleanEqualConstraint::sDescriptor;
constexpr auto kBooleanLess = &KivOmbiBooleanLessConstraint::sDescriptor;
constexpr auto kBooleanLessOrEqual = &KivOmbiBooleanLessOrEqualConstraint::sDescriptor;
constexpr auto kRemainder = &KivOmbiRemainderConstraint::sDescriptor;

constexpr OperatorRow kOperators[] = {
    {"+", kBinary, {kSingle, kEnum, kEnum}, kAddition},
    {"+", kBinary, {kEnum, kSingle, kEnum}, kAddition},
    {"+", kBinary, {kEnum, kEnum, kEnum}, kAddition},
    {"+", kBinary, {kEnum, kInteger, kEnum}, kAddition},
    {"+", kBinary, {kInteger, kEnum, kEnum}, kAddition},
    {"*", kBinary, {kSingle, kEnum, kEnum}, kMultiplication},
    {"*", kBinary, {kEnum, kSingle, kEnum}, kMultiplication},
    {"*", kBinary, {kEnum, kEnum, kEnum}, kMultiplication},
    {"*", kBinary, {kEnum, kInteger, kEnum}, kMultiplication},
    {"*", kBinary, {kInteger, kEnum, kEnum}, kMultiplication},
    {"^", kBinary, {kSingle, kEnum, kEnum}, kPower},
    {"^", kBinary, {kEnum, kSingle, kEnum}, kPower},
    {"^", kBinary, {kEnum, kEnum, kEnum}, kPower},
    {"=", kBinary, {kSingle, kEnum, kEnum}, kEqualTernary},
    {"=", kBinary, {kEnum, kSingle, kEnum}, kEqualTernary},
    {"=", kBinary, {kEnum, kEnum, kEnum}, kEqualTernary},
    {"=", kBinary, {kEnum, kInteger, kEnum}, kEqualTernary},
    {"=", kBinary, {kInteger, kEnum, kEnum}, kEqualTernary},
    {"<>", kBinary, {kSingle, kEnum, kEnum}, kUnequalTernary},
    {"<>", kBinary, {kEnum, kSingle, kEnum}, kUnequalTernary},
    {"<>", kBinary, {kEnum, kEnum, kEnum}, kUnequalTernary},
    {"<>", kBinary, {kEnum, kInteger, kEnum}, kUnequalTernary},
    {"<>", kBinary, {kInteger, kEnum, kEnum}, kUnequalTernary},
    {">=", kBinary, {kSingle, kEnum, kEnum}, kLessOrEqualTernary},
    {">=", kBinary, {kEnum, kSingle, kEnum}, kLessOrEqualTernary},
    {">=", kBinary, {kEnum, kEnum, kEnum}, kLessOrEqualTernary},
    {">=", kBinary, {kEnum, kInteger, kEnum}, kLessOrEqualTernary},
    {">=", kBinary, {kInteger, kEnum, kEnum}, kLessOrEqualTernary},
    {"/\\", kBinary, {kSingle, kEnum, kEnum}, kMinimum},
    {"/\\", kBinary, {kEnum, kSingle, kEnum}, kMinimum},
    {"/\\", kBinary, {kEnum, kEnum, kEnum}, kMinimum},
    {"/\\", kBinary, {kEnum, kInteger, kEnum}, kMinimum},
    {"/\\", kBinary, {kInteger, kEnum, kEnum}, kMinimum},
    {"\\/", kBinary, {kSingle, kEnum, kEnum}, kMaximum},
    {"\\/", kBinary, {kEnum, kSingle, kEnum}, kMaximum},
    {"\\/", kBinary, {kEnum, kEnum, kEnum}, kMaximum},
    {"\\/", kBinary, {kEnum, kInteger, kEnum}, kMaximum},
    {"\\/", kBinary, {kInteger, kEnum, kEnum}, kMaximum},
    {">", kBinary, {kSingle, kEnum, kEnum}, kLessTernary},
    {">", kBinary, {kEnum, kSingle, kEnum}, kLessTernary},
    {">", kBinary, {kEnum, kEnum, kEnum}, kLessTernary},
    {">", kBinary, {kEnum, kInteger, kEnum}, kLessTernary},
    {">", kBinary, {kInteger, kEnum, kEnum}, kLessTernary},
    {"=", kBinary, {kInterval, kEnum, kEnum}, kEqualTernary},
    {"=", kBinary, {kEnum, kInterval, kEnum}, kEqualTernary},
    {"<=", kSymmetricBinary, {kSingle, kEnum, kEnum}, kLessOrEqualTernary},
    {"<=", kSymmetricBinary, {kEnum, kSingle, kEnum}, kLessOrEqualTernary},
    {"<=", kSymmetricBinary, {kEnum, kEnum, kEnum}, kLessOrEqualTernary},
    {"<", kSymmetricBinary, {kSingle, kEnum, kEnum}, kLessTernary},
    {"<", kSymmetricBinary, {kEnum, kSingle, kEnum}, kLessTernary},
    {"<", kSymmetricBinary, {kEnum, kEnum, kEnum}, kLessTernary},
    {"-", kFirstInverse, {kSingle, kEnum, kEnum, kEnum}, kAddition},
    {"-", kFirstInverse, {kEnum, kSingle, kEnum, kEnum}, kAddition},
    {"-", kFirstInverse, {kEnum, kEnum, kEnum, kEnum}, kAddition},
    {"/", kFirstInverse, {kSingle, kEnum, kEnum, kEnum}, kMultiplication},
    {"/", kFirstInverse, {kEnum, kSingle, kEnum, kEnum}, kMultiplication},
    {"/", kFirstInverse, {kEnum, kEnum, kEnum, kEnum}, kMultiplication},
    {"-", kUnary, {kEnum, kEnum}, kNumberNegation},
    {"sign", kInverseUnary, {kEnum, kEnum, kEnum}, kSignum},
    {"abs", kUnary, {kEnum, kEnum}, kAbsolute},
    {"next", kUnary, {kEnum, kEnum}, kNext},
    {"(interval int)", kUnary, {kInterval, kEnum}, kEqual},
    {"prev", kInverseUnary, {kEnum, kEnum, kEnum}, kNext},
    {"==", kSecondInverse, {kSingle, kEnum, kBoolean, kEnum}, kBooleanEqual},
    {"==", kSecondInverse, {kEnum, kSingle, kBoolean, kEnum}, kBooleanEqual},
    {"==", kSecondInverse, {kInterval, kEnum, kBoolean, kEnum}, kBooleanEqual},
    {"==", kSecondInverse, {kEnum, kInterval, kBoolean, kEnum}, kBooleanEqual},
    {"==", kSecondInverse, {kEnum, kEnum, kBoolean, kEnum}, kBooleanEqual},
    {">>", kSecondInverse, {kSingle, kEnum, kBoolean, kEnum}, kBooleanLess},
    {">>", kSecondInverse, {kEnum, kSingle, kBoolean, kEnum}, kBooleanLess},
    {">>", kSecondInverse, {kInterval, kEnum, kBoolean, kEnum}, kBooleanLess},
    {">>", kSecondInverse, {kEnum, kInterval, kBoolean, kEnum}, kBooleanLess},
    {">>", kSecondInverse, {kEnum, kEnum, kBoolean, kEnum}, kBooleanLess},
    {">==", kSecondInverse, {kSingle, kEnum, kBoolean, kEnum}, kBooleanLessOrEqual},
    {">==", kSecondInverse, {kEnum, kSingle, kBoolean, kEnum}, kBooleanLessOrEqual},
    {">==", kSecondInverse, {kInterval, kEnum, kBoolean, kEnum}, kBooleanLessOrEqual},
    {">==", kSecondInverse, {kEnum, kInterval, kBoolean, kEnum}, kBooleanLessOrEqual},
    {">==", kSecondInverse, {kEnum, kEnum, kBoolean, kEnum}, kBooleanLessOrEqual},
    {"<<", kSecondInverseSymmetric, {kSingle, kEnum, kBoolean, kEnum}, kBooleanLess},
    {"<<", kSecondInverseSymmetric, {kEnum, kSingle, kBoolean, kEnum}, kBooleanLess},
    {"<<", kSecondInverseSymmetric, {kInterval, kEnum, kBoolean, kEnum}, kBooleanLess},
    {"<<", kSecondInverseSymmetric, {kEnum, kInterval, kBoolean, kEnum}, kBooleanLess},
    {"<<", kSecondInverseSymmetric, {kEnum, kEnum, kBoolean, kEnum}, kBooleanLess},
    {"<==", kSecondInverseSymmetric, {kSingle, kEnum, kBoolean, kEnum}, kBooleanLessOrEqual},
    {"<==", kSecondInverseSymmetric, {kEnum, kSingle, kBoolean, kEnum}, kBooleanLessOrEqual},
    {"<==", kSecondInverseSymmetric, {kInterval, kEnum, kBoolean, kEnum}, kBooleanLessOrEqual},
    {"<==", kSecondInverseSymmetric, {kEnum, kInterval, kBoolean, kEnum}, kBooleanLessOrEqual},
    {"<==", kSecondInverseSymmetric, {kEnum, kEnum, kBoolean, kEnum}, kBooleanLessOrEqual},
    {"mod", kBinary, {kSingle, kEnum, kEnum}, kRemainder},
    {"mod", kBinary, {kEnum, kSingle, kEnum}, kRemainder},
    {"mod", kBinary, {kEnum, kEnum, kEnum}, kRemainder},
    {"mod", kBinary, {kEnum, kInteger, kEnum}, kRemainder},
    {"mod", kBinary, {kInteger, kEnum, kEnum}, kRemainder},
};

const KivOmbiObjectDescriptor* DescriptorOf(OperandKind kind) {
  switch (kind) {
    case kEnum:
      return KivOmbEnumInteger::sDescriptor;
    case kSingle:
      return KivOmbSingleInteger::sDescriptor;
    case kInterval:
      return KivOmbIntervalInteger::sDescriptor;
    case kInteger:
      return KivOmbiInteger::sDescriptor;
    case kBoolean:
      return KivOmbSingleBoolean::sDescriptor;
    case kNone:
      break;
  }
  return nullptr;
}

}  // namespace

std::span<const OperatorRow> OperatorTable() { return kOperators; }

const KivOmbiCompoundObjectDescriptor* CreateOperator(const OperatorRow& row) {
  const KivString symbol(row.symbol);
  const KivOmbiObjectDescriptor* const first = DescriptorOf(row.kinds[0]);
  const KivOmbiObjectDescriptor* const second = DescriptorOf(row.kinds[1]);
  const KivOmbiObjectDescriptor* const third = DescriptorOf(row.kinds[2]);
  const KivOmbiObjectDescriptor* const fourth = DescriptorOf(row.kinds[3]);
  const KivOmbiObjectDescriptor* const constraint = *row.constraint;
  switch (row.form) {
    case kUnary:
      return KivOmbiCreateUnaryOperator(symbol, first, second, constraint);
    case kInverseUnary:
      return KivOmbiCreateInverseUnaryOperator(symbol, first, second, third, constraint);
    case kBinary:
      return KivOmbiCreateBinaryOperator(symbol, first, second, third, constraint);
    case kSymmetricBinary:
      return KivOmbiCreateSymmetricBinaryOperator(symbol, first, second, third, constraint);
    case kFirstInverse:
      return KivOmbiCreateFirstInverseBinaryOperator(symbol, first, second, third, fourth,
                                                     constraint);
    case kSecondInverse:
      return KivOmbiCreateSecondInverseBinaryOperator(symbol, first, second, third, fourth,
                                                      constraint);
    case kSecondInverseSymmetric:
      return KivOmbiCreateSecondInverseSymmetricBinaryOperator(symbol, first, second, third, fourth,
                                                               constraint);
  }
  return nullptr;
}

}  // namespace kiv
