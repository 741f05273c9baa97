#include "framework/calculator/operator_table.h"

#include <gtest/gtest.h>

#include <string>

#include "framework/abstract_types/constraints/arithmetic.h"
#include "framework/abstract_types/operator_factories.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

std::string RowFor(const char* symbol, const std::vector<const char*>& kinds) {
  std::vector<const KivOmbiObjectDescriptor*> operands;
  for (const char* name : kinds) operands.push_back(OpenModules().FindKind(name));
  const auto* row = OpenModules().operators.Resolve(symbol, operands);
  if (row == nullptr) return "none";
  Kivostrstream out;
  row->PrintOn(out);
  return out.Str();
}

TEST(OperatorTable, TheRowOfTheExactKindsWins) {
  EXPECT_EQ(RowFor("+", {"enum int", "enum int"}), "+(enum int, enum int) -> enum int");
  EXPECT_EQ(RowFor("+", {"int", "enum int"}), "+(int, enum int) -> enum int");
  EXPECT_EQ(RowFor("+", {"int", "int"}), "+(int, int) -> int");
  EXPECT_EQ(RowFor("=", {"interval int", "enum int"}), "=(interval int, enum int) -> enum int");
}

TEST(OperatorTable, ARowWithOneExactKindComesBeforeOneWithNone) {
  EXPECT_EQ(RowFor("+", {"interval int", "enum int"}), "+(integer, enum int) -> enum int");
}

TEST(OperatorTable, EveryMixOfIntegersHasARow) {
  EXPECT_EQ(RowFor("^", {"interval int", "enum int"}), "^(integer, integer) -> interval int");
  EXPECT_EQ(RowFor("<", {"enum int", "interval int"}), "<(integer, integer) -> interval int");
  EXPECT_EQ(RowFor("+", {"int", "interval int"}), "+(integer, integer) -> interval int");
}

TEST(OperatorTable, OperandsThatNoRowServesHaveNone) {
  EXPECT_EQ(RowFor("+", {"bool", "enum int"}), "none");
  EXPECT_EQ(RowFor("@", {"int", "int"}), "none");
  EXPECT_EQ(RowFor("+", {"int"}), "none");
}

TEST(OperatorTable, UnaryAndBinaryRowsOfASymbolAreApart) {
  EXPECT_EQ(RowFor("-", {"enum int"}), "-(enum int) -> enum int");
  EXPECT_EQ(RowFor("-", {"enum int", "int"}), "-(enum int, int) -> enum int");
  EXPECT_EQ(OpenModules().operators.FindRows("prev", 1).size(), 4u);
  EXPECT_TRUE(OpenModules().operators.FindRows("prev", 2).empty());
}

TEST(OperatorTable, AnExactKindCountsMoreThanSpecificKinds) {
  const auto* kind = OpenModules().FindKind("int");
  const auto* any = KivOmbiAny::sDescriptor;
  const auto* integer = KivOmbiInteger::sDescriptor;
  const auto* sum = KivOmbiAdditionConstraint::sDescriptor;
  KivOmbiModule module("Test");
  module.AddObjectDescriptor(KivOmbiCreateBinaryOperator("o", integer, integer, integer, sum));
  module.AddObjectDescriptor(KivOmbiCreateBinaryOperator("o", any, kind, integer, sum));
  KivOmbiOperatorTable table;
  table.Add(module);
  EXPECT_EQ(table.Resolve("o", {kind, kind}), table.GetRows()[1]);
  for (const auto* row : table.GetRows()) delete row;
}

TEST(OperatorTable, AmongEqualsTheMoreSpecificKindsWinThenTheEarlierRow) {
  const auto* any = KivOmbiAny::sDescriptor;
  const auto* number = KivOmbiNumber::sDescriptor;
  const auto* integer = KivOmbiInteger::sDescriptor;
  const auto* sum = KivOmbiAdditionConstraint::sDescriptor;
  KivOmbiModule module("Test");
  module.AddObjectDescriptor(KivOmbiCreateBinaryOperator("o", any, number, any, sum));
  module.AddObjectDescriptor(KivOmbiCreateBinaryOperator("o", number, number, number, sum));
  module.AddObjectDescriptor(KivOmbiCreateBinaryOperator("o", number, number, integer, sum));
  KivOmbiOperatorTable table;
  table.Add(module);
  const auto* kind = OpenModules().FindKind("int");
  EXPECT_EQ(table.Resolve("o", {kind, kind}), table.GetRows()[1]);
  for (const auto* row : table.GetRows()) delete row;
}

}  // namespace
}  // namespace kiv::test
