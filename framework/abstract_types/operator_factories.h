#pragma once

#include "framework/base/export.h"
#include "framework/base/kiv_string.h"
#include "framework/calculator/descriptor.h"

// The seven ways to declare an operator. Each returns a new row, for a module to add: its symbol,
// the kinds of the operands as written, then the result's kind where it stands apart, last the
// carrier, the kind in which the constraint computes (and the result's kind, where none stands
// apart). They differ in how operands and result become arguments of the constraint:
//
//   factory                      kinds                           the constraint's arguments
//   Unary                        operand, result                 operand, result
//   InverseUnary                 operand, result, carrier        result, operand
//   Binary                       left, right, result             left, right, result
//   SymmetricBinary              left, right, result             right, left, result
//   FirstInverseBinary           left, right, result, carrier    result, right, left
//   SecondInverseBinary          left, right, result, carrier    left, right, result
//   SecondInverseSymmetricBinary left, right, result, carrier    right, left, result
using KivOmbiKind = const KivOmbiObjectDescriptor*;
using KivOmbiOperator = const KivOmbiCompoundObjectDescriptor*;

KIV_EXPORT KivOmbiOperator KivOmbiCreateUnaryOperator(const KivString& symbol, KivOmbiKind operand,
                                                      KivOmbiKind result, KivOmbiKind constraint);
KIV_EXPORT KivOmbiOperator KivOmbiCreateInverseUnaryOperator(const KivString& symbol,
                                                             KivOmbiKind operand,
                                                             KivOmbiKind result,
                                                             KivOmbiKind carrier,
                                                             KivOmbiKind constraint);
KIV_EXPORT KivOmbiOperator KivOmbiCreateBinaryOperator(const KivString& symbol, KivOmbiKind left,
                                                       KivOmbiKind right, KivOmbiKind result,
                                                       KivOmbiKind constraint);
KIV_EXPORT KivOmbiOperator KivOmbiCreateSymmetricBinaryOperator(const KivString& symbol,
                                                                KivOmbiKind left, KivOmbiKind right,
                                                                KivOmbiKind result,
                                                                KivOmbiKind constraint);
KIV_EXPORT KivOmbiOperator KivOmbiCreateFirstInverseBinaryOperator(
    const KivString& symbol, KivOmbiKind left, KivOmbiKind right, KivOmbiKind result,
    KivOmbiKind carrier, KivOmbiKind constraint);
KIV_EXPORT KivOmbiOperator KivOmbiCreateSecondInverseBinaryOperator(
    const KivString& symbol, KivOmbiKind left, KivOmbiKind right, KivOmbiKind result,
    KivOmbiKind carrier, KivOmbiKind constraint);
KIV_EXPORT KivOmbiOperator KivOmbiCreateSecondInverseSymmetricBinaryOperator(
    const KivString& symbol, KivOmbiKind left, KivOmbiKind right, KivOmbiKind result,
    KivOmbiKind carrier, KivOmbiKind constraint);
