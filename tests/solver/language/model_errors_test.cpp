#include <gtest/gtest.h>

#include <string>

#include "tests/solver/language/read_model.h"

namespace kiv::test {
namespace {

// The first line of what is printed about a model: place and text.
std::string FirstLine(const std::string& model) {
  const std::string errors = ErrorsOf(model);
  return errors.substr(0, errors.find('\n'));
}

// Each place with its text, without the excerpts.
std::string Lines(const std::string& model) {
  const std::string errors = ErrorsOf(model);
  std::string lines;
  for (std::size_t at = 0; at < errors.size();) {
    const std::size_t end = errors.find('\n', at);
    const std::string line = errors.substr(at, end - at);
    if (line.starts_with("m.kiv")) lines += line + '\n';
    at = end + 1;
  }
  return lines;
}

TEST(SyntaxErrors, SayWhatWasExpectedAndWhatIsThere) {
  EXPECT_EQ(ErrorsOf("x : enum int = [1, 3];\nx = * 3;\nsolve;\n"),
            "m.kiv:2:5: error: expected an operand, found '*'\n"
            "  x = * 3;\n"
            "      ^\n");
  EXPECT_EQ(FirstLine("x = 1 y = 2; solve;"),
            "m.kiv:1:7: error: expected an operator or ';', found 'y'");
  EXPECT_EQ(FirstLine("x : enum int [1, 3]; solve;"),
            "m.kiv:1:14: error: expected '=' and a domain, or ';', found '['");
  EXPECT_EQ(
      FirstLine("x : enum int = ; solve;"),
      "m.kiv:1:16: error: expected a domain: a value, a..b, { ... }, [ ... ] or Any, found ';'");
  EXPECT_EQ(FirstLine("x : ; solve;"),
            "m.kiv:1:5: error: expected a kind such as 'enum int', found ';'");
  EXPECT_EQ(FirstLine("x, y = 1; solve;"), "m.kiv:1:6: error: expected ':', found '='");
  EXPECT_EQ(FirstLine("x : int = [1 3]; solve;"),
            "m.kiv:1:14: error: expected an operator or ',', found '3'");
  EXPECT_EQ(FirstLine("x : int = {1 3}; solve;"),
            "m.kiv:1:14: error: expected an operator, ',' or '}', found '3'");
  EXPECT_EQ(FirstLine("x = (1 + 2; solve;"),
            "m.kiv:1:11: error: expected an operator or ')', found ';'");
  EXPECT_EQ(FirstLine("x = c[1; solve;"),
            "m.kiv:1:8: error: expected an operator, ',' or ']', found ';'");
  EXPECT_EQ(FirstLine("f(1; solve;"),
            "m.kiv:1:4: error: expected an operator, ',' or ')', found ';'");
  EXPECT_EQ(FirstLine("param n = 3; solve;"), "m.kiv:1:9: error: expected ':', found '='");
  EXPECT_EQ(FirstLine("param for : int = 3; solve;"),
            "m.kiv:1:7: error: expected a name, found 'for'");
  EXPECT_EQ(FirstLine("for i = 1..3 { } solve;"), "m.kiv:1:7: error: expected 'in', found '='");
  EXPECT_EQ(FirstLine("for i in 1, 3 { } solve;"),
            "m.kiv:1:13: error: expected a variable and its values such as 'i in 1..n', found '3'");
  EXPECT_EQ(FirstLine("for i in 1..3 x = 1; solve;"),
            "m.kiv:1:15: error: expected an operator, ',' or '{', found 'x'");
  EXPECT_EQ(FirstLine("for i in 1..3 { solve; }"),
            "m.kiv:1:17: error: expected a constraint, 'for', 'if' or '}', found 'solve'");
  EXPECT_EQ(FirstLine("a or not; solve;"), "m.kiv:1:9: error: expected an operand, found ';'");
  EXPECT_EQ(FirstLine("-not a; solve;"), "m.kiv:1:2: error: expected an operand, found 'not'");
  EXPECT_EQ(FirstLine("xor : bool; solve;"), "m.kiv:1:1: error: expected a statement, found 'xor'");
  EXPECT_EQ(FirstLine("12ab = x; solve;"),
            "m.kiv:1:3: error: expected an operator after the number, found 'ab'");
  EXPECT_EQ(FirstLine("} solve;"), "m.kiv:1:1: error: expected a statement, found '}'");
  EXPECT_EQ(FirstLine("x = \xFF; solve;"),
            "m.kiv:1:5: error: expected an operand, found the byte 0xFF");
}

TEST(SyntaxErrors, SayWhatLaterStatementsExpect) {
  EXPECT_EQ(FirstLine("for i in s where ; solve;"),
            "m.kiv:1:18: error: expected a condition, found ';'");
  EXPECT_EQ(FirstLine("if n > 1 x = 1; solve;"),
            "m.kiv:1:10: error: expected an operator or '{', found 'x'");
  EXPECT_EQ(FirstLine("if b { } else x = 1; solve;"),
            "m.kiv:1:15: error: expected '{' or 'if', found 'x'");
  EXPECT_EQ(FirstLine("x = if b 1 else 2; solve;"),
            "m.kiv:1:10: error: expected an operator or 'then', found '1'");
  EXPECT_EQ(FirstLine("x = if b then 1; solve;"),
            "m.kiv:1:16: error: expected an operator or 'else', found ';'");
  EXPECT_EQ(FirstLine("x = sum(i in s); solve;"), "m.kiv:1:16: error: expected '(', found ';'");
  EXPECT_EQ(FirstLine("x = g[1, ]; solve;"),
            "m.kiv:1:10: error: expected an expression or '*', found ']'");
  EXPECT_EQ(FirstLine("f(x) with; solve;"), "m.kiv:1:10: error: expected a name, found ';'");
  EXPECT_EQ(FirstLine("param w[] : int [1]; solve;"),
            "m.kiv:1:17: error: expected '=' and a value, or ';', found '['");
  EXPECT_EQ(FirstLine("branch x by smallest; solve;"),
            "m.kiv:1:8: error: expected 'on', found 'x'");
  EXPECT_EQ(FirstLine("branch on x, y; solve;"),
            "m.kiv:1:15: error: expected an operator, ',' or 'by', found ';'");
  EXPECT_EQ(FirstLine("solve al;"), "m.kiv:1:7: error: expected ';' or 'all', found 'al'");
  EXPECT_EQ(FirstLine("solve; show \"a\nb\";"),
            "m.kiv:1:15: error: expected '\"' on the same line, found 'b'");
  EXPECT_EQ(FirstLine("solve; show \"a\\q\";"),
            "m.kiv:1:16: error: expected one of the escapes \\n, \\t, \\\" and \\\\, found 'q'");
  EXPECT_EQ(FirstLine("solve; show ;"),
            "m.kiv:1:13: error: expected a text or an expression, found ';'");
}

TEST(SyntaxErrors, AreMarkedWhereSomethingIsMissing) {
  EXPECT_EQ(ErrorsOf("x = 1  # one\ny = 2;\nsolve;"),
            "m.kiv:1:6: error: expected an operator or ';', found 'y'\n"
            "  x = 1  # one\n"
            "       ^\n");
  EXPECT_EQ(FirstLine("x = 1;\nsolve"),
            "m.kiv:2:6: error: expected ';' or 'all', found the end of the model");
  EXPECT_EQ(FirstLine("x = \n\n"),
            "m.kiv:1:4: error: expected an operand, found the end of the model");
}

TEST(SyntaxErrors, AModelEndsWithSolve) {
  EXPECT_EQ(ErrorsOf(""), "m.kiv: error: the model is empty; it must end with 'solve;'\n");
  EXPECT_EQ(FirstLine("x = 1;\n\n"),
            "m.kiv:1:7: error: the model must end with 'solve;', 'solve all;', 'minimize ...;' or "
            "'maximize ...;'");
  EXPECT_EQ(FirstLine("solve; x = 1; solve;"),
            "m.kiv:1:1: error: a model has one goal, and nothing but 'show' stands behind it");
}

TEST(SyntaxErrors, DeclarationsNameVariablesOutsideOfLoops) {
  const std::string refusal =
      "error: a declaration names variables, as in 'x, y : enum int = [0, 9];'\n";
  EXPECT_EQ(Lines("x + 1, f(2), z : enum int; (y) : enum int; 3 : int; solve;"),
            "m.kiv:1:1: " + refusal + "m.kiv:1:8: " + refusal + "m.kiv:1:28: " + refusal +
                "m.kiv:1:44: " + refusal);
  EXPECT_EQ(FirstLine("x, 2 : enum int; solve;"), "m.kiv:1:4: error: expected a name, found '2'");
  EXPECT_EQ(FirstLine("for i in 1..3 { x : enum int; } solve;"),
            "m.kiv:1:17: error: variables are declared outside of loops and conditions; an "
            "array holds one for each value of a loop's variable");
  EXPECT_EQ(FirstLine("x == y << z; solve;"),
            "m.kiv:1:8: error: relations with a truth value do not chain; write parentheses");
  EXPECT_EQ(FirstLine("x = 9223372036854775808; solve;"),
            "m.kiv:1:5: error: the number is too large: it does not fit 64 bits");
}

constexpr const char* kVariables =
    "x, y : enum int = [1, 9]; c[3] : enum int = [1, 9]; t : bool;\n";

std::string LinesWithVariables(const std::string& statements) {
  return Lines(kVariables + statements + "\nsolve;");
}

TEST(NameErrors, SuggestWhatWasMeant) {
  EXPECT_EQ(ErrorsOf("width : enum int = [1, 9];\nwidht > 2;\nsolve;\n"),
            "m.kiv:2:1: error: unknown name 'widht'; did you mean 'width'?\n"
            "  widht > 2;\n"
            "  ^~~~~\n");
  EXPECT_EQ(ErrorsOf("x : enun int = [1, 9]; x = 1; solve;"),
            "m.kiv:1:5: error: unknown kind 'enun int'; did you mean 'enum int'?\n"
            "  x : enun int = [1, 9]; x = 1; solve;\n"
            "      ^~~~~~~~\n"
            "  kinds: 'int', 'interval int', 'bool', 'enum int'\n");
  EXPECT_EQ(LinesWithVariables("all_diferent(x, y);"),
            "m.kiv:2:1: error: unknown function 'all_diferent'; did you mean 'all_different'?\n");
  EXPECT_EQ(LinesWithVariables("slove;"),
            "m.kiv:2:1: error: unknown name 'slove'; did you mean 'solve'?\n");
}

TEST(NameErrors, ANameMeansOneThing) {
  EXPECT_EQ(ErrorsOf("x : int;\nparam y : int = 1;\ny, x[2] : int;\nsolve;"),
            "m.kiv:3:1: error: the name 'y' is declared already\n"
            "  y, x[2] : int;\n"
            "  ^\n"
            "  first at m.kiv:2:7\n"
            "m.kiv:3:4: error: the name 'x' is declared already\n"
            "  y, x[2] : int;\n"
            "     ^\n"
            "  first at m.kiv:1:1\n");
  EXPECT_EQ(LinesWithVariables("for x in 1..2 { y = 1; }"),
            "m.kiv:2:5: error: the name 'x' is declared already\n");
  EXPECT_EQ(LinesWithVariables("for i in 1..2, i in 1..2 { y = 1; }"),
            "m.kiv:2:16: error: the name 'i' is declared already\n");
  EXPECT_EQ(LinesWithVariables("for i in 1..2 { y > 1; } x = i;"),
            "m.kiv:2:30: error: unknown name 'i'\n");
}

TEST(NameErrors, ArraysAreUsedByTheirElements) {
  EXPECT_EQ(LinesWithVariables("c = 1; c[4] = 1; c[0] = 1; c[t] = 1; x[1] = 1; c[d] = 1;"),
            "m.kiv:2:1: error: 'c' is an array with indices 1..3; write 'c[...]'\n"
            "m.kiv:2:10: error: the index 4 of 'c' is outside 1..3\n"
            "m.kiv:2:20: error: the index 0 of 'c' is outside 1..3\n"
            "m.kiv:2:30: error: an index is an integer, not 'bool'\n"
            "m.kiv:2:38: error: 'x' is no array\n"
            "m.kiv:2:50: error: unknown name 'd'\n");
}

TEST(NameErrors, AWrongDeclarationIsOneMistake) {
  EXPECT_EQ(Lines("x : enun int; y : enum int = {}; z[-1] : int;\nx = y; z[1] = x; solve;"),
            "m.kiv:1:5: error: unknown kind 'enun int'; did you mean 'enum int'?\n"
            "m.kiv:1:30: error: the domain is empty\n"
            "m.kiv:1:36: error: the size -1 of an array is outside 0..1000000\n");
}

TEST(DomainErrors, RefuseWhatAKindCannotHold) {
  EXPECT_EQ(ErrorsOf("x : enum int = [1, 1025];\nsolve;\n"),
            "m.kiv:1:16: error: 'enum int' cannot hold the 1025 values [1, 1025]; use "
            "'interval int'\n"
            "  x : enum int = [1, 1025];\n"
            "                 ^~~~~~~~~\n");
  EXPECT_EQ(FirstLine("x : int = { 4, 2 }; solve;"),
            "m.kiv:1:11: error: 'int' cannot hold the 2 values { 2, 4 }; use 'interval int' or "
            "'enum int'");
  EXPECT_EQ(FirstLine("x : int = [3, 1]; solve;"), "m.kiv:1:11: error: the domain is empty");
  EXPECT_EQ(FirstLine("t : bool = 1; solve;"),
            "m.kiv:1:12: error: the domain of a 'bool' is true, false or Any");
  EXPECT_EQ(FirstLine("t : bool = { true, false }; solve;"),
            "m.kiv:1:12: error: the domain of a 'bool' is true, false or Any");
  EXPECT_EQ(FirstLine("x : int = true; solve;"),
            "m.kiv:1:11: error: a value of a domain must be made of numbers, parameters and loop "
            "variables");
}

TEST(DomainErrors, RefuseInfinities) {
  EXPECT_EQ(ErrorsOf("x : interval int = [-2147483646, 2147483646]; solve;"), "");
  EXPECT_EQ(FirstLine("x : interval int = [0, 2147483647]; solve;"),
            "m.kiv:1:24: error: the value 2147483647 is outside -2147483646..2147483646");
  EXPECT_EQ(FirstLine("x : int = -2147483647; solve;"),
            "m.kiv:1:11: error: the value -2147483647 is outside -2147483646..2147483646");
}

TEST(ConstantErrors, NameTheOperatorOrTheNumber) {
  EXPECT_EQ(
      LinesWithVariables("x = 10 / 4; x = 1 div 0; x = 1 mod 0; x = 2^63; x = y ^ 2147483647; "
                         "x = y * 2^40 * 2^40; x = 2^62*y + 2^62*y + 2^62*y;"),
      "m.kiv:2:8: error: the division 10 / 4 is not exact\n"
      "m.kiv:2:19: error: division by zero\n"
      "m.kiv:2:32: error: remainder of a division by zero\n"
      "m.kiv:2:44: error: the constant does not fit 64 bits\n"
      "m.kiv:2:57: error: the constant 2147483647 is outside -2147483646..2147483646\n"
      "m.kiv:2:73: error: a coefficient of this sum does not fit 64 bits\n"
      "m.kiv:2:90: error: a coefficient of this sum does not fit 64 bits\n");
  EXPECT_EQ(Lines("param n : int = 2147483647; param m : bool = 1; param k : int = n*x; solve;"),
            "m.kiv:1:17: error: the value of 'n' is 2147483647; expected an integer of "
            "-2147483646..2147483646\n"
            "m.kiv:1:46: error: the value of 'm' is 1; expected true or false\n"
            "m.kiv:1:67: error: unknown name 'x'\n");
  EXPECT_EQ(LinesWithVariables("for i in 1..x { y = i; } d[y] : int;"),
            "m.kiv:2:13: error: the end of a range must be made of numbers, parameters and "
            "loop variables\n"
            "m.kiv:2:28: error: the size of an array must be made of numbers, parameters and loop "
            "variables\n");
}

TEST(OperatorErrors, ListTheRowsThatExist) {
  EXPECT_EQ(ErrorsOf("x : interval int = 1; t : bool;\n(interval int) t = x; solve;"),
            "m.kiv:2:1: error: operator '(interval int)' is not known for bool\n"
            "  (interval int) t = x; solve;\n"
            "  ^~~~~~~~~~~~~~\n"
            "  '(interval int)' is known for:\n"
            "  interval int -> enum int\n");
  EXPECT_EQ(LinesWithVariables("x + t = 2; t = x;"),
            "m.kiv:2:3: error: operator '+' is not known for enum int, bool\n"
            "m.kiv:2:14: error: operator '=' is not known for bool, enum int\n");
  EXPECT_EQ(LinesWithVariables("(text) x = y;"),
            "m.kiv:2:1: error: no module that is loaded has an operator '(text)' with 1 operand\n");
  EXPECT_EQ(LinesWithVariables("abs(x, y, x) = 1;"),
            "m.kiv:2:1: error: 'abs' does not take 3 arguments\n");
}

TEST(StatementErrors, AStatementMustAssertSomething) {
  EXPECT_EQ(
      LinesWithVariables("x == y; x << y; x + y; (t == t); x; 3; (x < y) + 1;"),
      "m.kiv:2:3: error: this asserts nothing: '==' only has a truth value; did you mean "
      "'='?\n"
      "m.kiv:2:11: error: this asserts nothing: '<<' only has a truth value; did you mean "
      "'<'?\n"
      "m.kiv:2:17: error: this asserts nothing; a constraint is a relation such as 'x = y', a "
      "truth "
      "value such as 't or x == y', or 'all_different(...)'\n"
      "m.kiv:2:27: error: this asserts nothing: '==' only has a truth value; did you mean '='?\n"
      "m.kiv:2:34: error: this asserts nothing; a constraint is a relation such as 'x = y', a "
      "truth "
      "value such as 't or x == y', or 'all_different(...)'\n"
      "m.kiv:2:37: error: this asserts nothing; a constraint is a relation such as 'x = y', a "
      "truth "
      "value such as 't or x == y', or 'all_different(...)'\n"
      "m.kiv:2:40: error: this asserts nothing; a constraint is a relation such as 'x = y', a "
      "truth "
      "value such as 't or x == y', or 'all_different(...)'\n");
}

TEST(StatementErrors, ConnectivesNeedTruthValues) {
  EXPECT_EQ(LinesWithVariables("(x = 1) or t; t and (x <= y <> 1); not (x >= 1); t => (t = t);"),
            "m.kiv:2:4: error: '=' asserts, but 'or' needs a truth value; did you mean '=='?\n"
            "m.kiv:2:29: error: '<>' asserts, but 'and' needs a truth value; did you mean 'not ... "
            "== ...'?\n"
            "m.kiv:2:43: error: '>=' asserts, but 'not' needs a truth value; did you mean '>=='?\n"
            "m.kiv:2:58: error: '=' asserts, but '=>' needs a truth value; did you mean '=='?\n");
  EXPECT_EQ(ErrorsOf("x, y : enum int = [1, 3];\nx = 1 or y = 2;\nsolve;\n"),
            "m.kiv:2:7: error: operator 'or' is not known for int, enum int\n"
            "  x = 1 or y = 2;\n"
            "        ^~\n"
            "  'or' is known for:\n"
            "  bool, bool -> bool\n"
            "  'x == 1' has a truth value; 'x = 1' asserts and binds looser\n");
  EXPECT_EQ(ErrorsOf("x : enum int = [1, 3];\nx => 2;\nsolve;\n"),
            "m.kiv:2:3: error: operator '=>' is not known for enum int, int\n"
            "  x => 2;\n"
            "    ^~\n"
            "  '=>' is known for:\n"
            "  bool, bool -> bool\n"
            "  'x == 1' has a truth value; 'x = 1' asserts and binds looser\n"
            "  greater or equal is written '>='\n");
  // A constant truth value does not hide that the other operand is none.
  EXPECT_EQ(LinesWithVariables("true or x; not 1;"),
            "m.kiv:2:6: error: operator 'or' is not known for bool, enum int\n"
            "m.kiv:2:12: error: operator 'not' is not known for int\n");
}

TEST(NameErrors, IndicesFitTheDimensions) {
  EXPECT_EQ(Lines("g[1..2, 0..1] : int; q[0..3] : int;\n"
                  "g = 1; g[1] = 1; g[1, 2] = 1; g[1, *] = 1; q[1, 1] = 1; q[4] = 1; solve;"),
            "m.kiv:2:1: error: 'g' is an array with indices 1..2, 0..1; write 'g[..., ...]'\n"
            "m.kiv:2:8: error: 'g' has 2 indices, 1..2, 0..1, not 1\n"
            "m.kiv:2:23: error: the index 2 of 'g' is outside 0..1\n"
            "m.kiv:2:31: error: a row or column of 'g' stands only where a list can: as an "
            "argument of a call\n"
            "m.kiv:2:44: error: 'q' has 1 index, 0..3, not 2\n"
            "m.kiv:2:59: error: the index 4 of 'q' is outside 0..3\n");
  EXPECT_EQ(Lines("a[1, 2, 3] : int; b[2000, 2000] : int; c[-9999999999..1] : int; solve;"),
            "m.kiv:1:1: error: an array has one or two dimensions, not 3\n"
            "m.kiv:1:19: error: the array has 4000000 elements, more than 1000000\n"
            "m.kiv:1:42: error: the indices of an array are outside -2147483646..2147483646\n");
}

TEST(ParameterErrors, SayWhatWasExpected) {
  EXPECT_EQ(Lines("param n : int; param w[3] : int = [1, 2]; param a[2, 2] : int = [[1, 2], 3];"
                  "param b : bool = [true]; param s : set = 5; param t[2] : set = { 1 };"
                  "param k : interval int = 1; x : int; param v : int = x; solve;"),
            "m.kiv:1:7: error: the parameter 'n' has no value; give it one with -D 'n=...' or in a "
            "file with --data\n"
            "m.kiv:1:35: error: the value of 'w' is a list of 2; expected 3 elements with indices "
            "1..3\n"
            "m.kiv:1:65: error: element 2 of the value of 'a' is 3; expected a list\n"
            "m.kiv:1:94: error: the value of 'b' is a list of 1; expected true or false\n"
            "m.kiv:1:118: error: expected a range such as 1..9, a set such as { 1, 3 }, or a "
            "parameter that is a set or an array\n"
            "m.kiv:1:134: error: an array of sets is no parameter\n"
            "m.kiv:1:156: error: a parameter is an 'int', a 'bool' or a 'set'\n"
            "m.kiv:1:199: error: the value of a parameter must be made of numbers, parameters and "
            "loop variables\n");
}

TEST(ConditionErrors, ConditionsAreConstantTruthValues) {
  EXPECT_EQ(LinesWithVariables("if x > 1 { } if 3 { } if t { } for i in 1..2 where c[i] = 1 { }"
                               "if 1 < 2 < 3 { } for i in x { } for i in 1..2..3 { }"),
            "m.kiv:2:73: error: relations that ask do not chain; write 'and' between two of them\n"
            "m.kiv:2:109: error: a range has two ends\n");
  EXPECT_EQ(LinesWithVariables("if x > 1 { } if 3 { } if t { } for i in 1..2 where c[i] = 1 { }"
                               "for i in x { }"),
            "m.kiv:2:4: error: a condition must be made of numbers, parameters and loop variables\n"
            "m.kiv:2:17: error: a condition is a truth value such as 'i < j'\n"
            "m.kiv:2:26: error: a condition must be made of numbers, parameters and loop "
            "variables\n"
            "m.kiv:2:52: error: a condition must be made of numbers, parameters and loop "
            "variables\n"
            "m.kiv:2:73: error: expected a range such as 1..9, a set such as { 1, 3 }, or a "
            "parameter that is a set or an array\n");
}

TEST(ConditionErrors, RangesSetsAndListsAreNoValues) {
  EXPECT_EQ(LinesWithVariables("x = 1..2; x = { 1 }; x = [y]; x = [i | i in 1..2];"),
            "m.kiv:2:5: error: a range is no value; it stands behind 'in' or as a domain\n"
            "m.kiv:2:15: error: a set is no value; it stands behind 'in' or as a domain\n"
            "m.kiv:2:26: error: a list is no value; it stands as an argument of a call\n"
            "m.kiv:2:35: error: a list is no value; it stands as an argument of a call\n");
}

TEST(StatementErrors, ChoicesOfASearchHaveNames) {
  EXPECT_EQ(LinesWithVariables("branch on x by first_fial, lower; branch on 3 by smallest;"),
            "m.kiv:2:16: error: unknown choice of variables 'first_fial'; did you mean "
            "'first_fail'?\n"
            "m.kiv:2:28: error: unknown choice of values 'lower'\n"
            "m.kiv:2:45: error: 'branch' takes variables, not constants\n");
  EXPECT_EQ(
      Lines("t : bool; minimize t;"),
      "m.kiv:1:20: error: an integer can be as small or as great as possible, not a 'bool'\n");
}

TEST(StatementErrors, AllDifferentIsAStatementOverIntegers) {
  EXPECT_EQ(LinesWithVariables("all_different(x, t); x = all_different(x);"),
            "m.kiv:2:18: error: 'all_different' takes integers, not 'bool'\n"
            "m.kiv:2:26: error: 'all_different' is a constraint of its own, not part of an "
            "expression\n");
}

TEST(StatementErrors, AMistakeInALoopIsReportedOnce) {
  EXPECT_EQ(LinesWithVariables("for i in 1..1000000 { c[i] > 1; z > i; }"),
            "m.kiv:2:33: error: unknown name 'z'\n");
  EXPECT_EQ(LinesWithVariables("for i in 1..1000000 { c[i] > 1; }"),
            "m.kiv:2:25: error: the index 4 of 'c' is outside 1..3\n");
}

TEST(StatementErrors, AreReportedTogetherUpToTwenty) {
  std::string text;
  for (int i = 0; i < 30; ++i) text += "nothing" + std::to_string(100 + i) + " = 1;\n";
  const std::string errors = ErrorsOf(text + "solve;");
  EXPECT_NE(errors.find("m.kiv:20:1: "), std::string::npos);
  EXPECT_EQ(errors.find("m.kiv:21:1: "), std::string::npos);
  EXPECT_TRUE(errors.ends_with("m.kiv: stopped after 20 errors\n"));
}

TEST(LimitErrors, LoopsNestAsDeepAsParentheses) {
  std::string ranges = "for i in 1..1";
  for (int i = 1; i < 200; ++i) ranges += ", i" + std::to_string(i) + " in 1..1";
  EXPECT_EQ(ErrorsOf("x : int = 1; " + ranges + " { x = 1; } solve;"), "");
  const std::string deeper = FirstLine("x : int = 1; " + ranges + ", j in 1..1 { x = 1; } solve;");
  EXPECT_TRUE(deeper.ends_with("error: loops run within each other more than 200 deep")) << deeper;
}

TEST(LimitErrors, KeepModelsWithinTheMachine) {
  CompileOptions options;
  options.limits.steps = 1000;
  options.limits.array_size = 100;
  const auto first_line = [&options](const std::string& text) {
    const std::string errors = ErrorsOf(text, options);
    return errors.substr(0, errors.find('\n'));
  };
  const std::string large =
      "error: the model is too large: it asks for more than 1000 variables, constraints and loop "
      "steps";
  EXPECT_EQ(first_line("for i in 1..1000 { } solve;"), "");
  EXPECT_EQ(first_line("for i in 1..1001 { } solve;"), "m.kiv:1:5: " + large);
  EXPECT_EQ(first_line("for i in 1..9223372036854775807, j in 1..0 { } solve;"),
            "m.kiv:1:5: " + large);
  EXPECT_EQ(first_line("x : int; for i in 1..900 { x = i; } solve;"), "m.kiv:1:14: " + large);
  EXPECT_EQ(first_line("c[100] : int; for i in 1..100 { all_different(c, c, c); } solve;"),
            "m.kiv:1:53: " + large);
  // A name for which there was no room has no variables that its uses could reach.
  EXPECT_EQ(first_line("for i in 1..990 { } c[100] : int; c[100] = 1; solve;"),
            "m.kiv:1:21: " + large);
  EXPECT_EQ(first_line("c[101] : int; solve;"),
            "m.kiv:1:3: error: the size 101 of an array is outside 0..100");
  EXPECT_EQ(first_line("a[100], b[100], c[100], d[100], e[100], f[100], g[100], h[100], i[100], "
                       "j[100], k[1] : int; solve;"),
            "m.kiv:1:81: " + large);
}

}  // namespace
}  // namespace kiv::test
