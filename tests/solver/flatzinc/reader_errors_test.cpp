#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "solver/flatzinc/error.h"
#include "solver/flatzinc/reader.h"

namespace kiv::test {
namespace {

// That reading `text` fails with this message at the place marked by '@', which is no part of it.
void ExpectError(std::string text, const std::string& message) {
  SCOPED_TRACE(text);
  const std::size_t offset = text.find('@');
  ASSERT_NE(offset, std::string::npos);
  text.erase(offset, 1);
  try {
    flatzinc::ReadModel(text);
    ADD_FAILURE() << "no error";
  } catch (const flatzinc::Error& error) {
    EXPECT_EQ(error.what(), message);
    EXPECT_EQ(error.GetOffset(), offset);
  }
}

// The same with a solve item behind the text.
void ExpectItemError(const std::string& items, const std::string& message) {
  ExpectError(items + "\nsolve satisfy;", message);
}

// The same for an argument of a constraint behind some declarations.
void ExpectArgumentError(const std::string& argument, const std::string& message) {
  ExpectItemError(
      "int: n = 3; var int: x; var bool: b; array [1..2] of int: p = [1, 2];"
      "array [1..1] of var int: a = [x]; array [1..0] of int: e = []; constraint c(" +
          argument + ");",
      message);
}

TEST(FlatZincReaderErrors, TheSolveItemIsMissing) {
  const std::string expected = "expected a declaration, 'constraint' or 'solve', found ";
  ExpectError("@", expected + "the end of the model");
  ExpectError("var int: x;@ % comment\n", expected + "the end of the model");
  ExpectError("var int: x; @y", expected + "'y'");
  ExpectError("@1..5: x = 3;", expected + "'1'");
  ExpectError("@variable int: x;", expected + "'variable'");
}

TEST(FlatZincReaderErrors, TheSolveItemIsTheLast) {
  ExpectError("solve satisfy; @constraint c();",
              "expected the end of the model after the solve item, found 'constraint'");
  ExpectError("solve satisfy; @solve satisfy;",
              "expected the end of the model after the solve item, found 'solve'");
}

TEST(FlatZincReaderErrors, PartsOfTheSolveItem) {
  ExpectError("solve@", "expected 'satisfy', 'minimize' or 'maximize', found the end of the model");
  ExpectError("solve @sat;", "expected 'satisfy', 'minimize' or 'maximize', found 'sat'");
  ExpectError("solve :: @satisfy;", "expected an annotation, found 'satisfy'");
  ExpectError("solve satisfy@", "expected ';' after the solve item, found the end of the model");
  ExpectError("solve minimize @;", "expected a variable, found ';'");
  ExpectError("solve minimize @x;", "the name 'x' is not declared");
  ExpectError("var bool: b; solve minimize @b;",
              "the objective is a boolean variable, not a number");
  ExpectError("var set of 1..2: s; solve minimize @s;",
              "the objective is a variable set of integers, not a number");
}

TEST(FlatZincReaderErrors, ItemsEndWithSemicolons) {
  ExpectItemError("constraint c(1) @constraint d(2);",
                  "expected ';' after the constraint, found 'constraint'");
  // At the end of the line where it is missing.
  ExpectItemError("constraint c(1)@ % comment\nconstraint d(2);",
                  "expected ';' after the constraint, found 'constraint'");
  ExpectItemError("predicate p()@\n", "expected ';' after the predicate, found 'solve'");
  ExpectItemError("var int: x@\n", "expected '=' and a value, or ';', found 'solve'");
  ExpectItemError("var int: x = 3@\n", "expected ';' after the declaration, found 'solve'");
  ExpectItemError("int: x = 3@\n", "expected ';' after the declaration, found 'solve'");
  ExpectItemError("array [1..1] of int: x = [1]@\n",
                  "expected ';' after the declaration, found 'solve'");
}

TEST(FlatZincReaderErrors, PartsOfDeclarations) {
  ExpectItemError("int @= 3;", "expected ':' and a name, found '='");
  ExpectItemError("int: @3;", "expected a name, found '3'");
  ExpectItemError("int: @var;", "expected a name, found 'var'");
  ExpectItemError("int: n@;", "expected '=' and a value, found ';'");
  ExpectItemError("int: n = @;", "expected a value, found ';'");
  ExpectItemError("int: n = @[1];", "expected a value, found '['");
  ExpectItemError("var@: x;", "expected a type, found ':'");
  ExpectItemError("var @real: x;", "expected a type, found 'real'");
  ExpectItemError("var 1 @to 5: x;", "expected '..', found 'to'");
  ExpectItemError("var 1..@n: x;", "expected the upper end of the range, found 'n'");
  ExpectItemError("var int: x = @[1];", "expected a value, found '['");
  ExpectItemError("set @int: s = {};", "expected 'of', found 'int'");
  ExpectItemError("set of @bool: s = {};", "expected 'int', 'float' or a range, found 'bool'");
}

TEST(FlatZincReaderErrors, PartsOfArrays) {
  ExpectItemError("array @1..2 of int: a = [1,2];", "expected '[', found '1'");
  ExpectItemError("array [@int] of int: a = [1,2];", "expected the indices 1..n, found 'int'");
  ExpectItemError("array [1@] of int: a = [1,2];", "expected '..', found ']'");
  ExpectItemError("array [1..@n] of int: a = [1,2];", "expected the last index, found 'n'");
  ExpectItemError("array [1..2@, 1..1] of int: a = [1,2];", "expected ']', found ','");
  ExpectItemError("array [1..2] @int: a = [1,2];", "expected 'of', found 'int'");
  ExpectItemError("array [1..2] of @array: a = [1,2];", "expected a type, found 'array'");
  ExpectItemError("array [1..2] of var int: a@;", "expected '=' and a value, found ';'");
  ExpectItemError("array [1..2] of int: a = @3;", "expected '[' and the elements, found '3'");
  ExpectItemError("array [1..2] of int: a = [1 @2];", "expected ',' or ']', found '2'");
  ExpectItemError("array [1..2] of int: a = [1,@;", "expected a value or ']', found ';'");
}

TEST(FlatZincReaderErrors, PartsOfPredicates) {
  ExpectItemError("predicate @1();", "expected a name, found '1'");
  ExpectItemError("predicate p@;", "expected '(', found ';'");
  ExpectItemError("predicate p(@x);", "expected a type or ')', found 'x'");
  ExpectItemError("predicate p(int @x);", "expected ':' and a name, found 'x'");
  ExpectItemError("predicate p(int: @1);", "expected a name, found '1'");
  ExpectItemError("predicate p(int: x @int: y);", "expected ',' or ')', found 'int'");
  ExpectItemError("predicate p(array [@bool] of int: x);",
                  "expected 'int' or a range, found 'bool'");
}

TEST(FlatZincReaderErrors, PartsOfConstraints) {
  ExpectItemError("constraint @;", "expected the name of a constraint, found ';'");
  ExpectItemError("constraint @true();", "expected the name of a constraint, found 'true'");
  ExpectItemError("constraint c@;", "expected '(', found ';'");
  ExpectItemError("constraint c(@;", "expected an argument or ')', found ';'");
  ExpectItemError("constraint c(1,@,2);", "expected an argument or ')', found ','");
  ExpectItemError("constraint c(1 @2);", "expected ',' or ')', found '2'");
  ExpectItemError("constraint c(1@;", "expected ',' or ')', found ';'");
  ExpectItemError("constraint c(@\"text\");", "expected an argument or ')', found '\"'");
  ExpectItemError("constraint c([1,@[2]]);", "expected a value or ']', found '['");
  ExpectItemError("constraint c({1,@true});", "expected a number or '}', found 'true'");
  ExpectItemError("constraint c({1@;2});", "expected ',' or '}', found ';'");
}

TEST(FlatZincReaderErrors, PartsOfAnnotations) {
  ExpectItemError("constraint c() :: @1;", "expected an annotation, found '1'");
  ExpectItemError("constraint c() :: a(@;", "expected an annotation, a value or ')', found ';'");
  ExpectItemError("constraint c() :: a([b,@;", "expected an annotation, a value or ']', found ';'");
  ExpectItemError("constraint c() :: a(1 @2);", "expected ',' or ')', found '2'");
  ExpectItemError("constraint c() @: a;", "expected ';' after the constraint, found ':'");
  ExpectItemError("constraint c() :: a(\"text@\n);",
                  "expected '\"' before the end of the line, found ')'");
  ExpectError("constraint c() :: a(\"text@",
              "expected '\"' before the end of the line, found the end of the model");
  ExpectError("constraint c() :: a(\"text@\\",
              "expected '\"' before the end of the line, found '\\'");
}

TEST(FlatZincReaderErrors, BytesThatBeginNothing) {
  ExpectItemError("constraint c(@$);", "expected an argument or ')', found '$'");
  ExpectItemError("constraint c(@\xC3\xA4);", "expected an argument or ')', found the byte 0xC3");
  ExpectItemError(std::string("constraint c(@\0);", 17),
                  "expected an argument or ')', found the byte 0x00");
  ExpectItemError("constraint c(@-x);", "expected an argument or ')', found '-'");
  ExpectItemError("constraint c(1@.);", "expected ',' or ')', found '.'");
  ExpectItemError("constraint c(1.5@.2);", "expected ',' or ')', found '.'");
  ExpectItemError("constraint c(0@xg);", "expected ',' or ')', found 'xg'");
  ExpectItemError("constraint c(1@e);", "expected ',' or ')', found 'e'");
}

TEST(FlatZincReaderErrors, NamesMustBeDeclaredBefore) {
  ExpectArgumentError("@y", "the name 'y' is not declared");
  ExpectArgumentError("[x, @y]", "the name 'y' is not declared");
  ExpectArgumentError("@y[1]", "the name 'y' is not declared");
  ExpectArgumentError("@c", "the name 'c' is not declared");
  ExpectItemError("var int: x = @x;", "the name 'x' is not declared");
  ExpectItemError("array [1..1] of var int: a = [@a];", "the name 'a' is not declared");
  ExpectItemError("constraint c() :: a(@y[1]);", "the name 'y' is not declared");
  ExpectItemError("constraint c(@x); var int: x;", "the name 'x' is not declared");
}

TEST(FlatZincReaderErrors, NamesAreDeclaredOnce) {
  ExpectItemError("int: x = 1; int: @x = 1;", "the name 'x' is declared twice");
  ExpectItemError("int: x = 1; var bool: @x;", "the name 'x' is declared twice");
  ExpectItemError("var int: x; array [1..1] of int: @x = [1];", "the name 'x' is declared twice");
  ExpectItemError("array [1..1] of var int: x = [1]; var int: @x;",
                  "the name 'x' is declared twice");
}

TEST(FlatZincReaderErrors, Subscripts) {
  ExpectArgumentError("p[@3]", "the array 'p' has 2 elements: index 3 is outside 1..2");
  ExpectArgumentError("p[@0]", "the array 'p' has 2 elements: index 0 is outside 1..2");
  ExpectArgumentError("p[@-1]", "the array 'p' has 2 elements: index -1 is outside 1..2");
  ExpectArgumentError("p[@4294967297]",
                      "the array 'p' has 2 elements: index 4294967297 is outside 1..2");
  ExpectArgumentError("a[@2]", "the array 'a' has 1 element: index 2 is outside 1..1");
  ExpectArgumentError("e[@1]", "the array 'e' has 0 elements: index 1 is outside 1..0");
  ExpectArgumentError("p[@1.5]", "an index is an integer, not a float");
  ExpectArgumentError("p[@n]", "expected an index, found 'n'");
  ExpectArgumentError("p[1@,2]", "expected ']', found ','");
  ExpectArgumentError("@x[1]", "'x' is not an array");
  ExpectArgumentError("@n[1]", "'n' is not an array");
  ExpectItemError("array [1..1] of int: p = [1]; constraint c() :: f(p[@2]);",
                  "the array 'p' has 1 element: index 2 is outside 1..1");
}

TEST(FlatZincReaderErrors, ArraysInArrays) {
  ExpectArgumentError("[1, @p]", "an array cannot be an element of an array");
}

TEST(FlatZincReaderErrors, ValuesOfParameters) {
  ExpectItemError("bool: t = @1;", "the value of 't' is an integer, not a boolean");
  ExpectItemError("int: n = @true;", "the value of 'n' is a boolean, not an integer");
  ExpectItemError("int: n = @1.5;", "the value of 'n' is a float, not an integer");
  ExpectItemError("float: f = @1;", "the value of 'f' is an integer, not a float");
  ExpectItemError("int: n = @1..2;", "the value of 'n' is a set of integers, not an integer");
  ExpectItemError("set of int: s = @3;", "the value of 's' is an integer, not a set of integers");
  ExpectItemError("set of int: s = @{1.5};",
                  "the value of 's' is a set of floats, not a set of integers");
  ExpectItemError("set of float: s = @{1};",
                  "the value of 's' is a set of integers, not a set of floats");
  ExpectItemError("var int: x; int: n = @x;", "the value of 'n' is a variable, not a constant");
  ExpectItemError("array [1..1] of int: p = [1]; int: n = @p;",
                  "the value of 'n' is an array, not an integer");
  ExpectItemError("array [1..2] of int: p = [1, @true];",
                  "element 2 of 'p' is a boolean, not an integer");
  ExpectItemError("var int: x; array [1..1] of int: p = [@x];",
                  "element 1 of 'p' is a variable, not a constant");
}

TEST(FlatZincReaderErrors, ValuesOfVariables) {
  ExpectItemError("var int: x = @true;", "the value of 'x' is a boolean, not an integer");
  ExpectItemError("var bool: b; var int: x = @b;",
                  "the value of 'x' is a boolean variable, not an integer");
  ExpectItemError("var 1..5: x = @{1};", "the value of 'x' is a set of integers, not an integer");
  ExpectItemError("var bool: b; array [1..2] of var int: a = [1, @b];",
                  "element 2 of 'a' is a boolean variable, not an integer");
  // The element of an earlier array is not meant.
  ExpectItemError("array [1..1] of int: a = [1]; var int: x = @true;",
                  "the value of 'x' is a boolean, not an integer");
}

TEST(FlatZincReaderErrors, SizesOfArrays) {
  ExpectItemError("array [1..3] of int: a = @[1, 2];",
                  "the array 'a' has 2 elements, but 1..3 is declared");
  ExpectItemError("array [1..0] of var int: a = @[1];",
                  "the array 'a' has 1 element, but 1..0 is declared");
  ExpectItemError("array [1..4294967296] of int: a = @[];",
                  "the array 'a' has 0 elements, but 1..4294967296 is declared");
  ExpectItemError("array [@0..2] of int: a = [1, 2, 3];", "the indices of an array begin with 1");
  ExpectItemError("array [@1.0..2] of int: a = [1, 2];", "the indices of an array begin with 1");
  ExpectItemError("array [1..@-1] of int: a = [];",
                  "the last index of an array is an integer from 0 on");
}

TEST(FlatZincReaderErrors, SetsOutsideTheirBounds) {
  const std::string excluded = "the value of 's' has elements that its type excludes";
  ExpectItemError("set of 1..5: s = @{0,5};", excluded);
  ExpectItemError("set of 1..5: s = @3..6;", excluded);
  ExpectItemError("set of {1,3,5}: s = @{1,4};", excluded);
  ExpectItemError("set of {1,3,5}: s = @1..3;", excluded);
  ExpectItemError("set of {1,3,5}: s = @4..4;", excluded);
  ExpectItemError("set of 1..0: s = @{1};", excluded);
  ExpectItemError("array [1..2] of set of 1..5: s = [{}, @{6}];",
                  "element 2 of 's' has elements that its type excludes");
  ExpectItemError("var set of @1.5..2.5: s;", "the elements of a set are bounded by integers only");
}

TEST(FlatZincReaderErrors, IntegersAndFloatsTogether) {
  ExpectArgumentError("@1..2.5", "the ends of a range are both integers or both floats");
  ExpectArgumentError("@1.5..2", "the ends of a range are both integers or both floats");
  ExpectArgumentError("{1, @2.5}", "the elements of a set are all integers or all floats");
  ExpectArgumentError("{1.5, @2}", "the elements of a set are all integers or all floats");
}

TEST(FlatZincReaderErrors, NumbersOutOfRange) {
  const std::string range = " is outside -576460752303423487..576460752303423487";
  ExpectArgumentError("@576460752303423488", "the integer '576460752303423488'" + range);
  ExpectArgumentError("@-576460752303423488", "the integer '-576460752303423488'" + range);
  ExpectArgumentError("@9999999999999999999999", "the integer '9999999999999999999999'" + range);
  ExpectArgumentError("@0x800000000000000", "the integer '0x800000000000000'" + range);
  ExpectArgumentError("@0xfffffffffffffffff", "the integer '0xfffffffffffffffff'" + range);
  ExpectArgumentError("@-0o40000000000000000000", "the integer '-0o40000000000000000000'" + range);
  ExpectArgumentError("@1e999", "the number '1e999' is too great or too small for a float");
  ExpectArgumentError("@1e-999", "the number '1e-999' is too great or too small for a float");
}

}  // namespace
}  // namespace kiv::test
