#include "tests/support/operator_meaning.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kiv::test {

namespace {

using Int = std::int64_t;
using Type = OperatorMeaning::Type;

struct Entry {
  std::string_view symbol;
  unsigned operands;
  OperatorMeaning meaning;
};

// A power that an integer can equal is exact as a double, the others are too large for any.
bool IsPower(Int base, Int exponent, Int power) {
  if (exponent < 0) {
    return (base == 1 && power == 1) || (base == -1 && power == (exponent % 2 == 0 ? 1 : -1));
  }
  const double value =
      exponent == 0 ? 1.0 : std::pow(static_cast<double>(base), static_cast<double>(exponent));
  return value == static_cast<double>(power);
}

const Entry kEntries[] = {
    {"+", 2, {Type::kFunction, [](Int a, Int b, Int z) { return z == a + b; }}},
    {"-", 2, {Type::kFunction, [](Int a, Int b, Int z) { return z == a - b; }}},
    {"*", 2, {Type::kFunction, [](Int a, Int b, Int z) { return z == a * b; }}},
    {"/", 2, {Type::kQuotient, [](Int a, Int b, Int z) { return a == z * b; }}},
    {"^", 2, {Type::kFunction, IsPower}},
    {"mod",
     2,
     {Type::kFunction,
      [](Int a, Int b, Int z) {
        return b != 0 && std::llabs(z) < std::llabs(b) && (a - z) % b == 0 &&
               (z == 0 || (z < 0) == (a < 0));
      }}},
    {"div",
     2,
     {Type::kFunction,
      [](Int a, Int b, Int z) {
        // What |b| * |z| leaves of |a| is less than |b|.
        const Int rest = std::llabs(a) - std::llabs(b) * std::llabs(z);
        const bool sign_fits = z == 0 || (z < 0) == ((a < 0) != (b < 0));
        return 0 <= rest && rest < std::llabs(b) && sign_fits;
      }}},
    {"/\\", 2, {Type::kFunction, [](Int a, Int b, Int z) { return z == (a < b ? a : b); }}},
    {"\\/", 2, {Type::kFunction, [](Int a, Int b, Int z) { return z == (a < b ? b : a); }}},
    {"=", 2, {Type::kRelation, [](Int a, Int b, Int z) { return a == b && z == b; }}},
    {"<>", 2, {Type::kRelation, [](Int a, Int b, Int z) { return a != b && z == b; }}},
    {"<", 2, {Type::kRelation, [](Int a, Int b, Int z) { return a < b && z == b; }}},
    {"<=", 2, {Type::kRelation, [](Int a, Int b, Int z) { return a <= b && z == b; }}},
    {">", 2, {Type::kRelation, [](Int a, Int b, Int z) { return a > b && z == b; }}},
    {">=", 2, {Type::kRelation, [](Int a, Int b, Int z) { return a >= b && z == b; }}},
    {"==", 2, {Type::kTruth, [](Int a, Int b, Int z) { return (a == b) == (z == 1); }}},
    {"<<", 2, {Type::kTruth, [](Int a, Int b, Int z) { return (a < b) == (z == 1); }}},
    {"<==", 2, {Type::kTruth, [](Int a, Int b, Int z) { return (a <= b) == (z == 1); }}},
    {">>", 2, {Type::kTruth, [](Int a, Int b, Int z) { return (a > b) == (z == 1); }}},
    {">==", 2, {Type::kTruth, [](Int a, Int b, Int z) { return (a >= b) == (z == 1); }}},
    {"and", 2, {Type::kTruth, [](Int a, Int b, Int z) { return z == a * b; }}},
    {"or", 2, {Type::kTruth, [](Int a, Int b, Int z) { return z == (a + b > 0 ? 1 : 0); }}},
    {"=>", 2, {Type::kTruth, [](Int a, Int b, Int z) { return z == (a <= b ? 1 : 0); }}},
    {"xor", 2, {Type::kTruth, [](Int a, Int b, Int z) { return z == (a + b == 1 ? 1 : 0); }}},
    {"not", 1, {Type::kTruth, [](Int a, Int, Int z) { return z == 1 - a; }}},
    {"-", 1, {Type::kFunction, [](Int a, Int, Int z) { return z == -a; }}},
    {"abs", 1, {Type::kFunction, [](Int a, Int, Int z) { return z == (a < 0 ? -a : a); }}},
    {"sign",
     1,
     {Type::kFunction, [](Int a, Int, Int z) { return z == (a < 0   ? -1
                                                            : a > 0 ? 1
                                                                    : 0); }}},
    {"next", 1, {Type::kFunction, [](Int a, Int, Int z) { return z == a + 1; }}},
    {"prev", 1, {Type::kFunction, [](Int a, Int, Int z) { return z == a - 1; }}},
    {"(interval int)", 1, {Type::kFunction, [](Int a, Int, Int z) { return z == a; }}},
};

}  // namespace

const OperatorMeaning* FindMeaning(std::string_view symbol, unsigned operands) {
  const auto* found = std::ranges::find_if(kEntries, [&](const Entry& entry) {
    return entry.symbol == symbol && entry.operands == operands;
  });
  return found != std::end(kEntries) ? &found->meaning : nullptr;
}

}  // namespace kiv::test
