#include "solver/flatzinc/reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/solver/flatzinc/print_model.h"

namespace kiv::test {
namespace {

// The items of a text as they were understood, but for the solve item.
std::string Read(const std::string& items) {
  const std::string text = Print(flatzinc::ReadModel(items + "solve satisfy;"));
  return text.substr(0, text.size() - std::string_view("solve satisfy;\n").size());
}

// What the constraint c(argument) was understood to say, after these items.
std::string ReadArgument(const std::string& argument, const std::string& items = {}) {
  const flatzinc::Model model =
      flatzinc::ReadModel(items + "constraint c(" + argument + "); solve satisfy;");
  const auto arguments = model.GetArguments(model.constraints.at(0));
  EXPECT_EQ(arguments.size(), 1u);
  return Print(arguments[0], model);
}

TEST(FlatZincReader, VariablesOfEveryType) {
  const std::string items =
      "var bool: b;\n"
      "var int: i;\n"
      "var -3..5: r;\n"
      "var {1,3,7}: v;\n"
      "var float: f;\n"
      "var -1.5..2e+06: g;\n"
      "var {1.0,2.5}: h;\n"
      "var set of int: s;\n"
      "var set of 1..4: t;\n"
      "var set of {1,3}: u;\n"
      "var set of float: w;\n";
  EXPECT_EQ(Read(items), items);
}

TEST(FlatZincReader, AnnotationsNest) {
  const std::string items =
      "var bool: b :: a :: c(1,true,\"x\",2.5,{1,3},1..4,[d,e(f([]))],b2,g());\n"
      "array [1..2] of var bool: x :: output_array([1..2]) = [b,false];\n"
      "constraint c(b,[b,true]) :: defines_var(b) :: domain;\n";
  EXPECT_EQ(Read(items), items);
}

TEST(FlatZincReader, NamesStandForWhatTheyWereDeclaredAs) {
  const std::string items =
      "int: n = 3; array [1..2] of int: p = [4, n]; var int: x; array [1..2] of var int: a = [x, "
      "7];";
  EXPECT_EQ(ReadArgument("n", items), "3");
  EXPECT_EQ(ReadArgument("p", items), "[4,3]");
  EXPECT_EQ(ReadArgument("p[2]", items), "3");
  EXPECT_EQ(ReadArgument("a", items), "[x,7]");
  EXPECT_EQ(ReadArgument("[a[1],a[2],p[1],x]", items), "[x,7,4,x]");
}

}  // namespace
}  // namespace kiv::test
