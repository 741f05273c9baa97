#include "solver/flatzinc/reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/solver/flatzinc/print_model.h"

namespace kiv::test {
namespace {

using flatzinc::Expression;
using flatzinc::Model;
using flatzinc::ReadModel;

// The items of a text as they were understood, but for the solve item.
std::string Read(const std::string& items) {
  const std::string text = Print(ReadModel(items + "solve satisfy;"));
  return text.substr(0, text.size() - std::string_view("solve satisfy;\n").size());
}

// What the constraint c(argument) was understood to say, after these items.
std::string ReadArgument(const std::string& argument, const std::string& items = {}) {
  const Model model = ReadModel(items + "constraint c(" + argument + "); solve satisfy;");
  const auto arguments = model.GetArguments(model.constraints.at(0));
  EXPECT_EQ(arguments.size(), 1u);
  return Print(arguments[0], model);
}

std::string ReadAnnotation(const std::string& annotation, const std::string& items = {}) {
  const Model model = ReadModel(items + "constraint c() :: " + annotation + "; solve satisfy;");
  const auto annotations = model.GetAnnotations(model.constraints.at(0));
  EXPECT_EQ(annotations.size(), 1u);
  return Print(annotations[0], model);
}

constexpr const char* kDeclarations =
    "bool: t = true; int: n = 3; float: h = 0.5; set of int: s = {1, 5}; set of float: g = {2.5};\n"
    "array [1..2] of int: p = [4, n]; array [1..2] of set of int: q = [s, 1..2];\n"
    "var int: x; var bool: b; array [1..3] of var int: a = [x, 7, p[1]];\n";

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

TEST(FlatZincReader, InitialValuesOfVariables) {
  const std::string items =
      "var bool: b = true;\n"
      "var 1..5: i = 3;\n"
      "var int: j = i;\n"
      "var float: f = -1.5;\n"
      "var set of 1..9: s = {2,4};\n"
      "var 1..5: outside = 9;\n"
      "array [1..2] of var int: a = [i,4];\n";
  EXPECT_EQ(Read(items), items);
  EXPECT_EQ(
      Read("int: n = 3; array [1..1] of int: p = [5]; var int: x = n; var int: y = p[1];"
           "array [1..1] of var int: a = [x]; var int: z = a[1];"),
      "var int: x = 3;\nvar int: y = 5;\nvar int: z = x;\narray [1..1] of var int: a = [x];\n");
}

TEST(FlatZincReader, ArraysOfVariablesOfEveryType) {
  EXPECT_EQ(Read("var bool: b; var 1..3: x; var float: f; var set of 1..2: s;"
                 "array [1..2] of var bool: bs = [b, false];"
                 "array [1..2] of var 1..3: xs = [x, 2];"
                 "array [1..2] of var float: fs = [f, 1.5];"
                 "array [1..2] of var set of 1..2: ss = [s, {1}];"
                 "array [1..0] of var int: none = [];"),
            "var bool: b;\nvar 1..3: x;\nvar float: f;\nvar set of 1..2: s;\n"
            "array [1..2] of var bool: bs = [b,false];\n"
            "array [1..2] of var int: xs = [x,2];\n"
            "array [1..2] of var float: fs = [f,1.5];\n"
            "array [1..2] of var set of int: ss = [s,1..1];\n"
            "array [1..0] of var int: none = [];\n");
}

TEST(FlatZincReader, ParametersOfEveryType) {
  EXPECT_EQ(ReadArgument("t", kDeclarations), "true");
  EXPECT_EQ(ReadArgument("n", kDeclarations), "3");
  EXPECT_EQ(ReadArgument("h", kDeclarations), "0.5");
  EXPECT_EQ(ReadArgument("s", kDeclarations), "{1,5}");
  EXPECT_EQ(ReadArgument("g", kDeclarations), "{2.5}");
  EXPECT_EQ(ReadArgument("p", kDeclarations), "[4,3]");
  EXPECT_EQ(ReadArgument("q", kDeclarations), "[{1,5},1..2]");
  EXPECT_EQ(ReadArgument("d", "set of 1..5: d = {1,5};"), "{1,5}");
  EXPECT_EQ(ReadArgument("d", "set of {1,3,5}: d = {1,5};"), "{1,5}");
  EXPECT_EQ(ReadArgument("d", "set of {1,2,3,5}: d = 1..3;"), "1..3");
  EXPECT_EQ(ReadArgument("d", "set of 1..5: d = 9..8;"), "9..8");
  EXPECT_EQ(ReadArgument("d", "set of float: d = {};"), "0..-1");
  EXPECT_EQ(ReadArgument("d", "array [1..2] of float: d = [1.5,2.5];"), "[1.5,2.5]");
  EXPECT_EQ(ReadArgument("d", "array [1..2] of bool: d :: note = [true,false];"), "[true,false]");
}

TEST(FlatZincReader, NamesStandForWhatTheyWereDeclaredAs) {
  EXPECT_EQ(ReadArgument("a", kDeclarations), "[x,7,4]");
  EXPECT_EQ(ReadArgument("p[2]", kDeclarations), "3");
  EXPECT_EQ(ReadArgument("a [ 1 ]", kDeclarations), "x");
  EXPECT_EQ(ReadArgument("q[1]", kDeclarations), "{1,5}");
  EXPECT_EQ(ReadArgument("[a[1],a[2],a[3],n,b,t]", kDeclarations), "[x,7,4,3,b,true]");
}

TEST(FlatZincReader, Integers) {
  EXPECT_EQ(ReadArgument("0"), "0");
  EXPECT_EQ(ReadArgument("-0"), "0");
  EXPECT_EQ(ReadArgument("007"), "7");
  EXPECT_EQ(ReadArgument("-12"), "-12");
  EXPECT_EQ(ReadArgument("0x1fA"), "506");
  EXPECT_EQ(ReadArgument("-0x10"), "-16");
  EXPECT_EQ(ReadArgument("0o17"), "15");
  EXPECT_EQ(ReadArgument("-0o7"), "-7");
  EXPECT_EQ(ReadArgument("576460752303423487"), "576460752303423487");
  EXPECT_EQ(ReadArgument("-576460752303423487"), "-576460752303423487");
  EXPECT_EQ(ReadArgument("0x7ffffffffffffff"), "576460752303423487");
}

TEST(FlatZincReader, Floats) {
  EXPECT_EQ(ReadArgument("0.5"), "0.5");
  EXPECT_EQ(ReadArgument("-0.25"), "-0.25");
  EXPECT_EQ(ReadArgument("1e3"), "1000.0");
  EXPECT_EQ(ReadArgument("1.5E-7"), "1.5e-07");
  EXPECT_EQ(ReadArgument("-2e+1"), "-20.0");
  EXPECT_EQ(ReadArgument("1.7976931348623157e308"), "1.7976931348623157e+308");
}

TEST(FlatZincReader, Sets) {
  EXPECT_EQ(ReadArgument("1..5"), "1..5");
  EXPECT_EQ(ReadArgument("-5 .. -1"), "-5..-1");
  EXPECT_EQ(ReadArgument("1..0"), "1..0");
  EXPECT_EQ(ReadArgument("{}"), "0..-1");
  EXPECT_EQ(ReadArgument("{ 7 , 1, 7, -3, }"), "{-3,1,7}");
  EXPECT_EQ(ReadArgument("{3,1,2,2}"), "1..3");
  EXPECT_EQ(ReadArgument("{9}"), "9..9");
  EXPECT_EQ(ReadArgument("0.5..1.5"), "0.5..1.5");
  EXPECT_EQ(ReadArgument("{2.5,0.5,2.5}"), "{0.5,2.5}");
  EXPECT_EQ(ReadArgument("[1..2,{1,3},{}]"), "[1..2,{1,3},0..-1]");
}

TEST(FlatZincReader, Arrays) {
  EXPECT_EQ(ReadArgument("[]"), "[]");
  EXPECT_EQ(ReadArgument("[ 1 , 2, ]"), "[1,2]");
  EXPECT_EQ(ReadArgument("[true,2.5,3]"), "[true,2.5,3]");
}

TEST(FlatZincReader, ConstraintsOfAnyNumberOfArguments) {
  const std::string items =
      "var int: x;\nconstraint none();\nconstraint x(x,[x,1],true) :: a :: b(x);\n";
  EXPECT_EQ(Read(items), items);
}

TEST(FlatZincReader, AnnotationsNest) {
  const std::string items =
      "var bool: b :: a :: c(1,true,\"x\",2.5,{1,3},1..4,[d,e(f([]))],b2,g());\n"
      "array [1..2] of var bool: x :: output_array([1..2]) = [b,false];\n"
      "constraint c(b,[b,true]) :: defines_var(b) :: domain;\n";
  EXPECT_EQ(Read(items), items);
}

TEST(FlatZincReader, NamesInAnnotations) {
  EXPECT_EQ(ReadAnnotation("f(x,n,p,a,s,t,b)", kDeclarations), "f(x,3,[4,3],[x,7,4],{1,5},true,b)");
  EXPECT_EQ(ReadAnnotation("f(a[1],p[2],[a,a[2]])", kDeclarations), "f(x,3,[[x,7,4],7])");
  EXPECT_EQ(ReadAnnotation("f(other,x(n))", kDeclarations), "f(other,x(3))");
  // An annotation itself is no value, whatever its name.
  EXPECT_EQ(ReadAnnotation("n", kDeclarations), "n");
  EXPECT_EQ(ReadAnnotation("x(x)", kDeclarations), "x(x)");
}

TEST(FlatZincReader, TextsInAnnotations) {
  EXPECT_EQ(ReadAnnotation("f(\"\")"), "f(\"\")");
  const std::string escapes = R"x(f("a % b :: \"(c)\"\\\n\t"))x";
  EXPECT_EQ(ReadAnnotation(escapes), escapes);
  const Model model = ReadModel(R"x(solve :: f("\"\\\n\t\x\)") satisfy;)x");
  ASSERT_EQ(model.strings.size(), 1u);
  EXPECT_EQ(model.strings[0], "\"\\\n\t\\x\\)");
}

TEST(FlatZincReader, PredicatesAreIgnored) {
  EXPECT_EQ(Read("predicate none();"
                 "predicate p(bool: a, int: b, float: c, set of int: d, set of 1..3: e, 1..3: f,"
                 "{1,2}: g, 1.0..2.0: h, var bool: i, var 1..3: j, var set of {1,2}: k,"
                 "array [int] of var int: l, array [1..3] of set of int: x,"
                 "array [int] of var set of int: n, array [int] of 1..2: o,);"
                 "var int: x;"),
            "var int: x;\n");
}

TEST(FlatZincReader, Goals) {
  const auto goal = [](const std::string& solve) {
    const std::string printed = Print(ReadModel(kDeclarations + solve));
    return printed.substr(printed.find("solve"));
  };
  EXPECT_EQ(goal("solve satisfy;"), "solve satisfy;\n");
  EXPECT_EQ(goal("solve :: int_search([x],first_fail,indomain_min) :: b satisfy;"),
            "solve :: int_search([x],first_fail,indomain_min) :: b satisfy;\n");
  EXPECT_EQ(goal("solve minimize x;"), "solve minimize x;\n");
  EXPECT_EQ(goal("solve maximize a[1];"), "solve maximize x;\n");
  EXPECT_EQ(goal("solve :: f maximize p[1];"), "solve :: f maximize 4;\n");
}

TEST(FlatZincReader, BlanksAndComments) {
  EXPECT_EQ(Read("\xEF\xBB\xBF% first\n%\nvar\t1 % lower\r\n..%\n5:x%x\n::%y\na%\n(%\n1%\n)%\n;\n"
                 "constraint\fc(\nx%;\n,%)\n[x%]\n]\v)\n; % last\n"),
            "var 1..5: x :: a(1);\nconstraint c(x,[x]);\n");
  EXPECT_EQ(Print(ReadModel("solve satisfy;% no end of line")), "solve satisfy;\n");
}

TEST(FlatZincReader, WordsAreWhole) {
  EXPECT_EQ(Read("var bool:variable;var int:_set1;constraint trueish(variable,_set1)::intern;"),
            "var bool: variable;\nvar int: _set1;\n"
            "constraint trueish(variable,_set1) :: intern;\n");
}

TEST(FlatZincReader, EveryNameIsKeptOnce) {
  const Model model =
      ReadModel("var int: x; constraint c(x); constraint c(x) :: x; solve satisfy;");
  EXPECT_EQ(model.names, (std::vector<std::string>{"x", "c"}));
}

TEST(FlatZincReader, ManyNamesAreToldApart) {
  std::string items;
  std::string uses;
  for (int i = 0; i < 20000; ++i) {
    items += "var int: x" + std::to_string(i) + ";\n";
    uses += "constraint c(x" + std::to_string(i) + ");\n";
  }
  EXPECT_EQ(Read(items + uses), items + uses);
}

TEST(FlatZincReader, TellsWhereItemsStand) {
  const std::string text =
      "var int: x; array [1..1] of var int: a = [x]; constraint c(x); solve satisfy;";
  const Model model = ReadModel(text);
  EXPECT_EQ(model.variables[0].offset, text.find("x;"));
  EXPECT_EQ(model.variable_arrays[0].offset, text.find("a ="));
  EXPECT_EQ(model.constraints[0].offset, text.find("c(x)"));
  EXPECT_EQ(model.solve.offset, text.find("solve"));
}

}  // namespace
}  // namespace kiv::test
