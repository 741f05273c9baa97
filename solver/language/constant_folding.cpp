#include "solver/language/constant_folding.h"

#include <algorithm>
#include <limits>

namespace kiv {
namespace {

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

FoldedConstant Value(std::int64_t value) { return {value, {}}; }
FoldedConstant Error(std::string text) { return {std::nullopt, std::move(text)}; }
FoldedConstant Overflow() { return Error("the constant does not fit 64 bits"); }

FoldedConstant Power(std::int64_t base, std::int64_t exponent) {
  if (exponent < 0) {
    if (base == 1 || (base == -1 && exponent % 2 == 0)) return Value(1);
    if (base == -1) return Value(-1);
    return Error("a negative power of " + std::to_string(base) + " is no integer");
  }
  if (base == 0 || base == 1) return Value(exponent == 0 ? 1 : base);
  if (base == -1) return Value(exponent % 2 == 0 ? 1 : -1);
  // Every other base overflows after at most 63 steps.
  std::int64_t power = 1;
  for (; exponent > 0; --exponent) {
    if (__builtin_mul_overflow(power, base, &power)) return Overflow();
  }
  return Value(power);
}

FoldedConstant TruncatedQuotient(std::int64_t left, std::int64_t right) {
  if (right == 0) return Error("division by zero");
  if (right == -1) return left == kLeast ? Overflow() : Value(-left);
  return Value(left / right);
}

FoldedConstant ExactQuotient(std::int64_t left, std::int64_t right) {
  const FoldedConstant quotient = TruncatedQuotient(left, right);
  if (!quotient.value || *quotient.value * right == left) return quotient;
  return Error("the division " + std::to_string(left) + " / " + std::to_string(right) +
               " is not exact");
}

FoldedConstant Remainder(std::int64_t left, std::int64_t right) {
  if (right == 0) return Error("remainder of a division by zero");
  return Value(right == -1 ? 0 : left % right);
}

}  // namespace

FoldedConstant FoldUnary(std::string_view symbol, std::int64_t operand) {
  if (symbol == "-") return FoldBinary("-", 0, operand);
  if (symbol == "abs") return operand < 0 ? FoldBinary("-", 0, operand) : Value(operand);
  if (symbol == "next") return FoldBinary("+", operand, 1);
  if (symbol == "prev") return FoldBinary("-", operand, 1);
  if (symbol == "sign") return Value(operand > 0 ? 1 : operand < 0 ? -1 : 0);
  return {};
}

FoldedConstant FoldBinary(std::string_view symbol, std::int64_t left, std::int64_t right) {
  std::int64_t value = 0;
  if (symbol == "+") return __builtin_add_overflow(left, right, &value) ? Overflow() : Value(value);
  if (symbol == "-") return __builtin_sub_overflow(left, right, &value) ? Overflow() : Value(value);
  if (symbol == "*") return __builtin_mul_overflow(left, right, &value) ? Overflow() : Value(value);
  if (symbol == "/") return ExactQuotient(left, right);
  if (symbol == "div") return TruncatedQuotient(left, right);
  if (symbol == "mod") return Remainder(left, right);
  if (symbol == "^") return Power(left, right);
  if (symbol == "/\\") return Value(std::min(left, right));
  if (symbol == "\\/") return Value(std::max(left, right));
  return {};
}

std::optional<bool> FoldQuestion(std::string_view symbol, std::int64_t left, std::int64_t right) {
  if (symbol == "==") return left == right;
  if (symbol == "<<") return left < right;
  if (symbol == "<==") return left <= right;
  if (symbol == ">>") return left > right;
  if (symbol == ">==") return left >= right;
  return std::nullopt;
}

std::optional<bool> FoldConnective(std::string_view symbol, bool left, bool right) {
  if (symbol == "and") return left && right;
  if (symbol == "or") return left || right;
  if (symbol == "xor") return left != right;
  if (symbol == "=>") return !left || right;
  if (symbol == "==") return left == right;
  return std::nullopt;
}

}  // namespace kiv
