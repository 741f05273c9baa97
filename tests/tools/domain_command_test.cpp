#include <gtest/gtest.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/seed.h"
#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

using Json = nlohmann::json;

CommandResult Calculate(const std::string& statement) {
  return RunKiv({"domain", "--", statement});
}

std::string Output(const std::string& statement) {
  const CommandResult result = Calculate(statement);
  EXPECT_EQ(result.exit_code, 0) << statement << '\n' << result.errors;
  EXPECT_EQ(result.errors, "") << statement;
  return result.output;
}

Json OutputJson(const std::string& statement) {
  const CommandResult result = RunKiv({"domain", "--json", statement});
  EXPECT_EQ(result.exit_code, 0) << statement << '\n' << result.errors;
  return Json::parse(result.output, nullptr, false);
}

// Who is called and what is narrowed, as "z.CalcSumValue(x,y)>z".
std::vector<std::string> Calls(const std::string& statement) {
  std::vector<std::string> calls;
  const Json output = OutputJson(statement);
  for (const Json& call : output["operations"]) {
    std::string text =
        call["receiver"].get<std::string>() + '.' + call["operation"].get<std::string>() + '(';
    for (const Json& argument : call["arguments"]) {
      text += (text.back() == '(' ? "" : ",") + argument.get<std::string>();
    }
    calls.push_back(text + ")>" + call["target"].get<std::string>());
  }
  return calls;
}

using List = std::vector<std::string>;

std::vector<std::string> BinaryCalls(const std::string& symbol) {
  return Calls("z in Any, x in { 1, 2 }, y in 3: z = x " + symbol + " y");
}

TEST(DomainCommand, CallsEachDirectionOfEachBinaryOperator) {
  const auto commutative = [](const std::string& name) {
    return List{"z.Calc" + name + "Value(x,y)>z", "z.CalcFirstInverse" + name + "Value(x,y)>x",
                "z.CalcFirstInverse" + name + "Value(y,x)>y"};
  };
  EXPECT_EQ(BinaryCalls("+"), commutative("Sum"));
  EXPECT_EQ(BinaryCalls("*"), commutative("Prod"));
  EXPECT_EQ(BinaryCalls("/\\"), commutative("Min"));
  EXPECT_EQ(BinaryCalls("\\/"), commutative("Max"));
  for (const auto& [symbol, name] : {std::pair("mod", "Mod"), std::pair("^", "Power")}) {
    const std::string value = std::string(name) + "Value(x,y)>";
    EXPECT_EQ(BinaryCalls(symbol), (List{"z.Calc" + value + "z", "z.CalcFirstInverse" + value + "x",
                                         "z.CalcSecondInverse" + value + "y"}));
  }
}

TEST(DomainCommand, ReadsADifferenceAndAQuotientFromTheLeftOperand) {
  for (const auto& [symbol, name] : {std::pair("-", "Sum"), std::pair("/", "Prod")}) {
    const std::string inverse = "x.CalcFirstInverse" + std::string(name) + "Value(";
    EXPECT_EQ(BinaryCalls(symbol),
              (List{inverse + "z,y)>z", "x.Calc" + std::string(name) + "Value(z,y)>x",
                    inverse + "y,z)>y"}));
  }
}

TEST(DomainCommand, CallsEachDirectionOfEachUnaryOperator) {
  const auto calls = [](const std::string& symbol) {
    return Calls("z in Any, x in { 1, 2 }: z = " + symbol + " x");
  };
  EXPECT_EQ(calls("-"), (List{"z.CalcNegativeValue(x)>z", "z.CalcInverseNegativeValue(x)>x"}));
  EXPECT_EQ(calls("abs"), (List{"z.CalcAbsoluteValue(x)>z", "z.CalcInverseAbsoluteValue(x)>x"}));
  EXPECT_EQ(calls("next"), (List{"z.CalcNextValue(x)>z", "z.CalcInverseNextValue(x)>x"}));
  EXPECT_EQ(calls("prev"), (List{"x.CalcInverseNextValue(z)>z", "x.CalcNextValue(z)>x"}));
  EXPECT_EQ(calls("sign"), (List{"x.CalcSignumValue(z)>z", "x.CalcInverseSignumValue(z)>x"}));
}

TEST(DomainCommand, CallsBothDirectionsOfEachRelation) {
  for (const auto& [symbol, name] :
       {std::pair("=", "Equal"), std::pair("<>", "Unequal"), std::pair("<=", "LessOrEqual"),
        std::pair("<", "Less"), std::pair(">=", "NotLess"), std::pair(">", "NotLessAndUnequal")}) {
    const std::string value = std::string(name) + "Value(y)>";
    EXPECT_EQ(Calls("x in { 1, 2 }, y in { 1, 2 }: x " + std::string(symbol) + " y"),
              (List{"x.Calc" + value + "x", "x.CalcInverse" + value + "y"}));
  }
}

TEST(DomainCommand, AsksEachTruth) {
  for (const auto& [symbol, call] :
       {std::pair("==", "x.CalcIsEqual(y,t)>t"), std::pair("<==", "x.CalcIsLessOrEqual(y,t)>t"),
        std::pair(">==", "y.CalcIsLessOrEqual(x,t)>t"), std::pair("<<", "x.CalcIsLess(y,t)>t"),
        std::pair(">>", "y.CalcIsLess(x,t)>t")}) {
    EXPECT_EQ(Calls("t : bool in Any, x in 1, y in 2: t = x " + std::string(symbol) + " y"),
              List{call});
  }
  EXPECT_EQ(Output("{ 1, 2 } << 3"), "{ 1, 2 }.CalcIsLess(3, result) = 1\n  result = true\n");
  EXPECT_EQ(Output("{ 1, 2 } >> 3"), "3.CalcIsLess({ 1, 2 }, result) = 1\n  result = false\n");
  EXPECT_EQ(Output("{ 1, 3 } == 3"), "{ 1, 3 }.CalcIsEqual(3, result) = 0\n  result = Any\n");
}

TEST(DomainCommand, NarrowsOnlyWhatHasAName) {
  EXPECT_EQ(Output("x in { 1, 5, 9 }: { 5, 6 } <= x"),
            "{ 5, 6 }.CalcInverseLessOrEqualValue(x) = 1\n  x = { 5, 9 }\n");
  EXPECT_EQ(Output("y in { 1, 2, 3 }: { 4, 5 } + y = 6"),
            "6.CalcFirstInverseSumValue(y, { 4, 5 }) = 1\n  y = { 1, 2 }\n");
}

TEST(DomainCommand, StartsEachOperationFromTheDomainsAsGiven) {
  EXPECT_EQ(Output("x in { 1, 2, 3 }, y in { 2, 3, 4 }: x = y"),
            "x.CalcEqualValue(y) = 1\n  x = { 2, 3 }\n"
            "x.CalcInverseEqualValue(y) = 1\n  y = { 2, 3 }\n");
}

TEST(DomainCommand, HandsOverOneObjectForANameThatRepeats) {
  EXPECT_EQ(Output("x in { 1, 2, 3 }, y in { 1, 2 }: x = x + y"),
            "x.CalcSumValue(x, y) = 1\n  x = { 2, 3 }\n"
            "x.CalcFirstInverseSumValue(x, y) = 1\n  x = { 1, 2 }\n"
            "x.CalcFirstInverseSumValue(y, x) = 0\n  y = { 1, 2 }\n");
}

TEST(DomainCommand, KnowsTheThreeStatesAndTheInfinities) {
  EXPECT_EQ(Output("Any + 1"), "result.CalcSumValue(Any, 1) = 0\n  result = Any\n");
  EXPECT_EQ(Output("Nil + 1"), "result.CalcSumValue(Nil, 1) = 1\n  result = Nil\n");
  EXPECT_EQ(Output("Max + 1"), "result.CalcSumValue(Max, 1) = 1\n  result =  Max\n");
  EXPECT_EQ(Output("{ Min, 5 } + -1"),
            "result.CalcSumValue({ Min, 5 }, -1) = 1\n  result = {  Min, 4 }\n");
  EXPECT_EQ(Output("x in { 3 }: x = { 4 }"), "x.CalcEqualValue({ 4 }) = 1\n  x = Nil\n");
}

TEST(DomainCommand, TellsASignFromAnOperator) {
  EXPECT_EQ(Output("-5 + -3"), "result.CalcSumValue(-5, -3) = 1\n  result = -8\n");
  EXPECT_EQ(Output("x in -5:x<-5"), "x.CalcLessValue(-5) = 1\n  x = Nil\n");
  EXPECT_EQ(Output("1 -3"), "1.CalcFirstInverseSumValue(result, 3) = 1\n  result = -2\n");
  EXPECT_EQ(Output("1+3"), "result.CalcSumValue(1, 3) = 1\n  result = 4\n");
}

TEST(DomainCommand, TakesKindsByTheirNames) {
  EXPECT_EQ(Output("x : interval  int in [1, 9]: x <> (int) 9"),
            "x.CalcUnequalValue(9) = 1\n  x = [1, 8]\n");
  EXPECT_EQ(Output("x : int in Any: x = { 5 }"), "x.CalcEqualValue({ 5 }) = 1\n  x = 5\n");
  setenv("KIV_MODULE_PATH", FOREIGN_MODULES, 1);
  const CommandResult foreign =
      RunKiv({"--load", "KivForeign", "domain", "x in { 1, 5, 9 }: x = (range int) [2, 9]"});
  unsetenv("KIV_MODULE_PATH");
  EXPECT_EQ(foreign.exit_code, 0) << foreign.errors;
  EXPECT_TRUE(foreign.output.starts_with("x.CalcEqualValue([2, 9]) = ")) << foreign.output;
}

TEST(DomainCommand, ReadsASetBeyondTheCapAsAny) {
  std::string set = "{ 0";
  for (int v = 1; v < 1024; ++v) set += ", " + std::to_string(v);
  EXPECT_EQ(OutputJson("x in " + set + " }: x = x")["operations"][0]["before"]["cardinality"],
            1024);
  EXPECT_EQ(OutputJson("x in " + set + ", 5 }: x = x")["operations"][0]["before"]["state"], "any");
}

TEST(DomainCommand, WritesOneObjectOfJson) {
  EXPECT_EQ(OutputJson("z in { 6, 7 }: z = { 1, 2 } + 4"), Json::parse(R"({
    "operator": "+",
    "operations": [{
      "operation": "CalcSumValue", "receiver": "z", "arguments": ["{ 1, 2 }", "4"],
      "target": "z", "result": 1,
      "before": {"kind": "enum int", "state": "values", "text": "{ 6, 7 }",
                 "lower": 6, "upper": 7, "cardinality": 2, "values": [6, 7]},
      "after": {"kind": "enum int", "state": "values", "text": "6",
                "lower": 6, "upper": 6, "cardinality": 1, "values": [6]}
    }]
  })"));
}

TEST(DomainCommand, DescribesEachStateInJson) {
  const auto after = [](const std::string& statement) {
    return OutputJson(statement)["operations"][0]["after"];
  };
  EXPECT_EQ(after("Any + 1"), (Json{{"kind", "enum int"}, {"state", "any"}, {"text", "Any"}}));
  EXPECT_EQ(after("Nil + 1"), (Json{{"kind", "enum int"}, {"state", "nil"}, {"text", "Nil"}}));
  EXPECT_EQ(after("1 == 2"),
            (Json{{"kind", "bool"}, {"state", "values"}, {"text", "false"}, {"values", {false}}}));
  // A wide interval has bounds alone.
  EXPECT_EQ(after("x : interval int in [0, 1024]: x = x"), (Json{{"kind", "interval int"},
                                                                 {"state", "values"},
                                                                 {"text", "[0, 1024]"},
                                                                 {"lower", 0},
                                                                 {"upper", 1024},
                                                                 {"cardinality", 1025}}));
}

struct Mistake {
  std::string statement;
  std::string error;  // the first line behind the name of the text
};

TEST(DomainCommand, SaysWhatIsWrongAndWhere) {
  const std::vector<Mistake> mistakes = {
      {"", "1:1: error: expected a name or a value"},
      {"5", "1:2: error: expected an operator"},
      {"x", "1:1: error: unknown name 'x'"},
      {"x in", "1:5: error: expected a value"},
      {"x in 5", "1:7: error: expected ',' and a declaration, or ':' and an operation"},
      {"x in 5, : x", "1:9: error: expected a name"},
      {"x in 5, y: x = y", "1:12: error: unknown kind 'x'"},
      {"x in 5, y : int 3: x = y", "1:13: error: unknown kind 'int 3'"},
      {"x : int = 5: x = 3", "1:9: error: expected 'in' and a value"},
      {"x : in 5: x = 3", "1:5: error: expected a kind"},
      {"x : integer in 5: x = 3", "1:5: error: unknown kind 'integer'"},
      {"x in 5, x in 6: x = 3", "1:9: error: 'x' is declared already"},
      {"mod in 5: mod = 3", "1:1: error: 'mod' cannot be a name"},
      {"in in 5: 2 + 3", "1:1: error: 'in' cannot be a name"},
      {"result in 5: 2 + 3", "1:1: error: 'result' cannot be a name"},
      {"size in 5: sise < 3", "1:12: error: unknown name 'sise'; did you mean 'size'?"},
      {"x in { 1; 2 }: x < 3", "1:6: error: this is no value of enum int"},
      {"x in {}: x < 3", "1:6: error: this is no value of enum int"},
      {"x in 99999999999: x < 3", "1:6: error: this is no value of enum int"},
      {"x in 5x: x < 3", "1:6: error: this is no value of enum int"},
      {"(int) { 1, 2 } + 3", "1:7: error: this is no value of int"},
      {"(int 5) + 3", "1:2: error: unknown kind 'int 5'"},
      {"(int + 5", "1:6: error: expected ')'"},
      {"x in { 1, 2: x < 3", "1:6: error: this bracket is never closed"},
      {"1 + ", "1:5: error: expected a name or a value"},
      {"1 + + 2", "1:5: error: expected a name or a value"},
      {"1 $ 2", "1:3: error: expected an operator"},
      {"1 + 2 + 3", "1:7: error: one operation at a time"},
      {"1 + 2 3", "1:7: error: expected the end: one operation at a time"},
      {"x in 5: x < 3 < 4", "1:15: error: expected the end: one operation at a time"},
      {"x in 5: x + 1 = x + 2", "1:15: error: one operation at a time"},
      {"x in 5: x < abs 3", "1:11: error: one operation at a time"},
      {"1 < 2", "1:1: error: there is nothing to narrow"},
      {"x in 5: 3 = 1 + 2", "1:9: error: there is nothing to narrow"},
      {"b : bool in true: b = 1 + 2", "1:19: error: this is bool, but '+' works on integers"},
      {"x in 5: x = 1 == 2", "1:9: error: this is enum int, but '==' gives a truth"},
      {"x in 5:\n  x <", "2:6: error: expected a name or a value"},
  };
  for (const Mistake& mistake : mistakes) {
    const CommandResult result = Calculate(mistake.statement);
    EXPECT_EQ(result.exit_code, 2) << mistake.statement;
    EXPECT_EQ(result.output, "") << mistake.statement;
    const std::string line = result.errors.substr(0, result.errors.find('\n'));
    EXPECT_TRUE(line.starts_with("<statement>:" + mistake.error)) << mistake.statement << '\n'
                                                                  << line << '\n'
                                                                  << mistake.error;
  }
}

TEST(DomainCommand, PointsAtTheMistake) {
  EXPECT_EQ(
      Calculate("x in { 1, 2 }: x < { 3; 4 }").errors,
      "<statement>:1:20: error: this is no value of enum int\n"
      "  x in { 1, 2 }: x < { 3; 4 }\n"
      "                     ^~~~~~~~\n"
      "  a value is Any, Nil, a number, Min or Max; for kinds that hold several also [1, 9] or "
      "{ 1, 2 }\n");
}

TEST(DomainCommand, HasHelpWithExamplesThatRun) {
  const CommandResult help = RunKiv({"domain", "--help"});
  EXPECT_EQ(help.exit_code, 0);
  std::istringstream lines(help.output);
  int examples = 0;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t begin = line.find('\'');
    if (!line.starts_with("  kiv domain ") || begin == std::string::npos) continue;
    ++examples;
    Output(line.substr(begin + 1, line.rfind('\'') - begin - 1));
  }
  EXPECT_EQ(examples, 4);
}

// A statement in form, with up to three faults.
std::string NearlyValid(std::mt19937_64& random) {
  static const std::vector<std::string> statements = {
      "{ 1, 2 } + [1, 3]", "x in { 1, 5 }, y : int in 3: x < y", "z in Any: z = abs { -1, 2 }",
      "b : bool in Any: b = 1 <== 2", "(interval int) [1, 9] mod 4"};
  static const std::vector<std::string> tokens = {
      "x",  "in",  ":",   ",",   "{",   "}",    "[",    "]",  "(", ")",  "-2",   "5",
      "+",  "-",   "/",   "^",   "mod", "abs",  "prev", "=",  "<", "<=", "<<",   "<>",
      "==", "Any", "Nil", "Min", "int", "bool", "$",    "\n", " ", "_",  "\xff", "99999999999"};
  std::string statement = statements[random() % statements.size()];
  for (std::uint64_t faults = random() % 4; faults > 0; --faults) {
    const std::size_t at = random() % (statement.size() + 1);
    if (random() % 2 == 0) {
      statement.erase(at, random() % 3);
    } else {
      statement.insert(at, tokens[random() % tokens.size()]);
    }
  }
  return statement;
}

TEST(DomainCommand, EndsWithAnAnswerOrAnErrorWhateverIsWritten) {
  const std::uint64_t seed = Seed(3);
  SCOPED_TRACE(Replay(seed));
  std::mt19937_64 random(seed);
  int answers = 0;
  int errors = 0;
  for (int i = 0; i < 120; ++i) {
    const std::string statement = NearlyValid(random);
    const CommandResult result = Calculate(statement);
    ASSERT_TRUE(result.exit_code == 0 || result.exit_code == 2) << statement << result.errors;
    ASSERT_EQ(result.errors.empty(), result.exit_code == 0) << statement;
    ASSERT_EQ(result.output.empty(), result.exit_code == 2) << statement;
    ++(result.exit_code == 0 ? answers : errors);
  }
  EXPECT_GT(answers, 0);
  EXPECT_GT(errors, 0);
}

}  // namespace
}  // namespace kiv::test
