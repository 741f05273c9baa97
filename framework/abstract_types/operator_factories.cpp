#include "framework/abstract_types/operator_factories.h"

#include <utility>
#include <vector>

namespace {

constexpr KivOmbiArgumentOrder kAsWritten{0, 1, 2};
constexpr KivOmbiArgumentOrder kExchanged{1, 0, 2};
// x = z op y is read off z = x op' y.
constexpr KivOmbiArgumentOrder kFirstInverse{2, 1, 0};

KivOmbiOperator CreateUnary(const KivString& symbol, const char* factory,
                            std::vector<KivOmbiKind> kinds, KivOmbiArgumentOrder order,
                            KivOmbiKind constraint) {
  return new KivOmbiCompoundObjectDescriptor(symbol, factory, std::move(kinds), 1, 1, order,
                                             constraint);
}

KivOmbiOperator CreateBinary(const KivString& symbol, const char* factory,
                             std::vector<KivOmbiKind> kinds, KivOmbiArgumentOrder order,
                             KivOmbiKind constraint) {
  return new KivOmbiCompoundObjectDescriptor(symbol, factory, std::move(kinds), 2, 2, order,
                                             constraint);
}

}  // namespace

KivOmbiOperator KivOmbiCreateUnaryOperator(const KivString& symbol, KivOmbiKind operand,
                                           KivOmbiKind result, KivOmbiKind constraint) {
  return CreateUnary(symbol, __func__, {operand, result}, {0, KivOmbiArgumentOrder::kNone, 1},
                     constraint);
}

KivOmbiOperator KivOmbiCreateInverseUnaryOperator(const KivString& symbol, KivOmbiKind operand,
                                                  KivOmbiKind result, KivOmbiKind carrier,
                                                  KivOmbiKind constraint) {
  return CreateUnary(symbol, __func__, {operand, result, carrier},
                     {1, KivOmbiArgumentOrder::kNone, 0}, constraint);
}

KivOmbiOperator KivOmbiCreateBinaryOperator(const KivString& symbol, KivOmbiKind left,
                                            KivOmbiKind right, KivOmbiKind result,
                                            KivOmbiKind constraint) {
  return CreateBinary(symbol, __func__, {left, right, result}, kAsWritten, constraint);
}

KivOmbiOperator KivOmbiCreateSymmetricBinaryOperator(const KivString& symbol, KivOmbiKind left,
                                                     KivOmbiKind right, KivOmbiKind result,
                                                     KivOmbiKind constraint) {
  return CreateBinary(symbol, __func__, {left, right, result}, kExchanged, constraint);
}

KivOmbiOperator KivOmbiCreateFirstInverseBinaryOperator(const KivString& symbol, KivOmbiKind left,
                                                        KivOmbiKind right, KivOmbiKind result,
                                                        KivOmbiKind carrier,
                                                        KivOmbiKind constraint) {
  return CreateBinary(symbol, __func__, {left, right, result, carrier}, kFirstInverse, constraint);
}

KivOmbiOperator KivOmbiCreateSecondInverseBinaryOperator(const KivString& symbol, KivOmbiKind left,
                                                         KivOmbiKind right, KivOmbiKind result,
                                                         KivOmbiKind carrier,
                                                         KivOmbiKind constraint) {
  return CreateBinary(symbol, __func__, {left, right, result, carrier}, kAsWritten, constraint);
}

KivOmbiOperator KivOmbiCreateSecondInverseSymmetricBinaryOperator(
    const KivString& symbol, KivOmbiKind left, KivOmbiKind right, KivOmbiKind result,
    KivOmbiKind carrier, KivOmbiKind constraint) {
  return CreateBinary(symbol, __func__, {left, right, result, carrier}, kExchanged, constraint);
}
