#include "solver/language/parser.h"

#include <gtest/gtest.h>

#include <sstream>

namespace kiv {
namespace {

// The structure of an expression, with parentheses around each application.
std::string Structure(const Expression& expression) {
  const auto list = [](const std::vector<Expression>& expressions) {
    std::string text;
    for (const Expression& each : expressions) text += (text.empty() ? "" : ",") + Structure(each);
    return text;
  };
  if (const auto* integer = std::get_if<IntegerLiteral>(&expression.form)) {
    return std::to_string(integer->value);
  }
  if (const auto* truth = std::get_if<BooleanLiteral>(&expression.form)) {
    return truth->value ? "true" : "false";
  }
  if (const auto* reference = std::get_if<Reference>(&expression.form)) {
    std::string indices;
    for (const ExpressionPointer& index : reference->indices) {
      indices += (indices.empty() ? "" : ",") + (index != nullptr ? Structure(*index) : "*");
    }
    return reference->name + (indices.empty() ? "" : '[' + indices + ']');
  }
  if (const auto* unary = std::get_if<UnaryApplication>(&expression.form)) {
    return '(' + unary->symbol.text + ' ' + Structure(*unary->operand) + ')';
  }
  if (const auto* call = std::get_if<Call>(&expression.form)) {
    return call->name.text + '(' + list(call->arguments) + ')';
  }
  const auto generators = [](const std::vector<Generator>& all) {
    std::string text;
    for (const Generator& each : all) {
      text += (text.empty() ? "" : ",") + each.name.text + " in " + Structure(*each.values);
      if (each.condition != nullptr) text += " where " + Structure(*each.condition);
    }
    return text;
  };
  if (const auto* range = std::get_if<RangeLiteral>(&expression.form)) {
    return '(' + Structure(*range->first) + ".." + Structure(*range->last) + ')';
  }
  if (const auto* set = std::get_if<SetLiteral>(&expression.form)) {
    return '{' + list(set->elements) + '}';
  }
  if (const auto* literal = std::get_if<ListLiteral>(&expression.form)) {
    return '[' + list(literal->elements) + ']';
  }
  if (const auto* comprehension = std::get_if<Comprehension>(&expression.form)) {
    const std::string inner =
        Structure(*comprehension->element) + " | " + generators(comprehension->generators);
    return comprehension->is_set ? '{' + inner + '}' : '[' + inner + ']';
  }
  if (const auto* aggregate = std::get_if<Aggregate>(&expression.form)) {
    return aggregate->name.text + '(' + generators(aggregate->generators) + ")(" +
           Structure(*aggregate->body) + ')';
  }
  if (const auto* test = std::get_if<MembershipTest>(&expression.form)) {
    return '(' + Structure(*test->element) + " in " + Structure(*test->set) + ')';
  }
  if (const auto* conditional = std::get_if<ConditionalExpression>(&expression.form)) {
    return "(if " + Structure(*conditional->condition) + " then " + Structure(*conditional->first) +
           " else " + Structure(*conditional->second) + ')';
  }
  const auto& chain = std::get<Chain>(expression.form);
  std::string text = '(' + Structure(chain.operands[0]);
  for (std::size_t i = 0; i < chain.operators.size(); ++i) {
    text += ' ' + chain.operators[i].text + ' ' + Structure(chain.operands[i + 1]);
  }
  return text + ')';
}

std::optional<SyntaxTree> Parse(const SourceText& source) {
  Diagnostics diagnostics(source);
  auto tree = ParseModel(source, diagnostics);
  std::ostringstream errors;
  diagnostics.PrintOn(errors);
  EXPECT_EQ(errors.str(), "");
  EXPECT_TRUE(tree);
  return tree;
}

// The structure of the expression that is the only statement before `solve;`.
std::string Read(const std::string& expression) {
  const SourceText source("m.kiv", expression + "; solve;");
  const auto tree = Parse(source);
  return tree ? Structure(std::get<Constraint>(tree->statements.at(0).form).expression) : "";
}

TEST(Parser, AppliesTighterOperatorsFirst) {
  EXPECT_EQ(Read("a + b * c ^ d"), "(a + (b * (c ^ d)))");
  EXPECT_EQ(Read("a ^ b * c + d"), "(((a ^ b) * c) + d)");
  EXPECT_EQ(Read("a \\/ b /\\ c + d mod e"), "(a \\/ (b /\\ (c + (d mod e))))");
  EXPECT_EQ(Read("a mod b + c /\\ d \\/ e"), "((((a mod b) + c) /\\ d) \\/ e)");
  EXPECT_EQ(Read("t = x == y + 1"), "(t = (x == (y + 1)))");
  EXPECT_EQ(Read("x + 1 >== y = t"), "(((x + 1) >== y) = t)");
  EXPECT_EQ(Read("a * b + c * d - e * f = 0"), "(((a * b) + (c * d) - (e * f)) = 0)");
}

TEST(Parser, PutsConnectivesBetweenAssertionsAndQuestions) {
  EXPECT_EQ(Read("a => b or c xor d and e"), "(a => (b or (c xor (d and e))))");
  EXPECT_EQ(Read("a and b xor c or d => e"), "((((a and b) xor c) or d) => e)");
  EXPECT_EQ(Read("t = a and b"), "(t = (a and b))");
  EXPECT_EQ(Read("t = a => b = c"), "(t = (a => b) = c)");
  EXPECT_EQ(Read("x == y and 1 << z"), "((x == y) and (1 << z))");
  EXPECT_EQ(Read("a and b and c or d or e"), "((a and b and c) or d or e)");
  EXPECT_EQ(Read("a => b => c"), "(a => b => c)");
  EXPECT_EQ(Read("(a) and (b) or (c) xor (d) div e"), "((a and b) or (c xor (d div e)))");
}

TEST(Parser, NegatesQuestionsButNotConnectives) {
  EXPECT_EQ(Read("not a and b"), "((not a) and b)");
  EXPECT_EQ(Read("not x + 1 == y or b"), "((not ((x + 1) == y)) or b)");
  EXPECT_EQ(Read("a xor not not b => c"), "((a xor (not (not b))) => c)");
  EXPECT_EQ(Read("t = not x << y"), "(t = (not (x << y)))");
  EXPECT_EQ(Read("not a <= b"), "((not a) <= b)");
  EXPECT_EQ(Read("a == not b == c"), "(a == (not (b == c)))");
  EXPECT_EQ(Read("not (a and b)"), "(not (a and b))");
  EXPECT_EQ(Read("not not_a"), "(not not_a)");
}

TEST(Parser, AppliesOperatorsOfOneLevelFromTheLeft) {
  EXPECT_EQ(Read("a - b + c - d"), "(a - b + c - d)");
  EXPECT_EQ(Read("a * b / c mod d div e"), "(a * b / c mod d div e)");
  EXPECT_EQ(Read("a - (b + c) - d"), "(a - (b + c) - d)");
  EXPECT_EQ(Read("0 <= x < y <> z"), "(0 <= x < y <> z)");
}

TEST(Parser, AppliesPowersFromTheRight) {
  EXPECT_EQ(Read("a ^ b ^ c"), "(a ^ (b ^ c))");
  EXPECT_EQ(Read("(a ^ b) ^ c"), "((a ^ b) ^ c)");
  EXPECT_EQ(Read("a ^ -b"), "(a ^ (- b))");
}

TEST(Parser, PutsSignsAboveProductsAndBelowPowers) {
  EXPECT_EQ(Read("-x ^ 2 * y"), "((- (x ^ 2)) * y)");
  EXPECT_EQ(Read("- - x"), "(- (- x))");
  EXPECT_EQ(Read("a - -b"), "(a - (- b))");
  EXPECT_EQ(Read("abs x + 1"), "((abs x) + 1)");
  EXPECT_EQ(Read("abs x ^ 2"), "(abs (x ^ 2))");
  EXPECT_EQ(Read("next prev sign x"), "(next (prev (sign x)))");
}

TEST(Parser, BindsFunctionsAsParenthesesDo) {
  EXPECT_EQ(Read("abs(x) ^ 2"), "(abs(x) ^ 2)");
  EXPECT_EQ(Read("abs (x) - 1"), "(abs(x) - 1)");
  EXPECT_EQ(Read("f()"), "f()");
  EXPECT_EQ(Read("f(a, b + 1, c[2])"), "f(a,(b + 1),c[2])");
}

TEST(Parser, ReadsConversions) {
  EXPECT_EQ(Read("(interval int) x + 1"), "(((interval int) x) + 1)");
  EXPECT_EQ(Read("(  interval # a comment\n int )x"), "((interval int) x)");
  EXPECT_EQ(Read("(interval int) -x"), "((interval int) (- x))");
  EXPECT_EQ(Read("(int) x"), "((int) x)");
  // One word in parentheses is a name wherever an expression can go on.
  EXPECT_EQ(Read("(x) - y"), "(x - y)");
  EXPECT_EQ(Read("(x) mod y"), "(x mod y)");
  EXPECT_EQ(Read("(x) or y"), "(x or y)");
  EXPECT_EQ(Read("(x)"), "x");
}

TEST(Parser, TellsLongOperatorsFromShortOnes) {
  EXPECT_EQ(Read("a<==b"), "(a <== b)");
  EXPECT_EQ(Read("a>==b"), "(a >== b)");
  EXPECT_EQ(Read("a<=-b"), "(a <= (- b))");
  EXPECT_EQ(Read("a<>b"), "(a <> b)");
  EXPECT_EQ(Read("a<<b"), "(a << b)");
  EXPECT_EQ(Read("a/\\b"), "(a /\\ b)");
  EXPECT_EQ(Read("a/b"), "(a / b)");
  EXPECT_EQ(Read("a=>b"), "(a => b)");
  EXPECT_EQ(Read("a>=b"), "(a >= b)");
  EXPECT_EQ(Read("modulus mod model"), "(modulus mod model)");
  EXPECT_EQ(Read("order or android and notes"), "(order or (android and notes))");
  EXPECT_EQ(Read("true1 = true"), "(true1 = true)");
}

TEST(Parser, ReadsStatements) {
  const SourceText source("m.kiv",
                          "\xEF\xBB\xBF# a byte order mark is no mistake\r\n"
                          "param n : int = 2*4;\n"
                          "x, c[n+1] : enum   int = { 1, 2 };\n"
                          "y : interval int = [0, 9]; z : bool;\n"
                          "for i in 1..n, j in i+1..n { x = 1; for k in 1..2 { } }\n"
                          "solve; # done");
  const auto tree = Parse(source);
  ASSERT_TRUE(tree);
  ASSERT_EQ(tree->statements.size(), 6u);

  const auto& parameter = std::get<Parameter>(tree->statements[0].form);
  EXPECT_EQ(parameter.declarator.name.text, "n");
  EXPECT_TRUE(parameter.declarator.dimensions.empty());
  EXPECT_EQ(parameter.kind.text, "int");
  EXPECT_EQ(Structure(*parameter.value), "(2 * 4)");

  const auto& set = std::get<Declaration>(tree->statements[1].form);
  ASSERT_EQ(set.declarators.size(), 2u);
  EXPECT_EQ(set.declarators[0].name.text, "x");
  EXPECT_TRUE(set.declarators[0].dimensions.empty());
  EXPECT_EQ(set.declarators[1].name.text, "c");
  EXPECT_EQ(Structure(*set.declarators[1].dimensions.at(0)), "(n + 1)");
  EXPECT_EQ(set.kind.text, "enum int");
  EXPECT_EQ(Structure(*set.domain), "{1,2}");
  EXPECT_EQ(source.Quote(set.domain->range), "{ 1, 2 }");

  EXPECT_EQ(Structure(*std::get<Declaration>(tree->statements[2].form).domain), "(0..9)");
  EXPECT_EQ(std::get<Declaration>(tree->statements[3].form).domain, nullptr);

  const auto& loop = std::get<Loop>(tree->statements[4].form);
  ASSERT_EQ(loop.generators.size(), 2u);
  EXPECT_EQ(loop.generators[1].name.text, "j");
  EXPECT_EQ(Structure(*loop.generators[1].values), "((i + 1)..n)");
  ASSERT_EQ(loop.body.size(), 2u);
  EXPECT_TRUE(std::holds_alternative<Loop>(loop.body[1].form));
  EXPECT_TRUE(std::holds_alternative<Goal>(tree->statements[5].form));
  EXPECT_EQ(source.Quote(tree->statements[5].range), "solve;");
}

TEST(Parser, ReadsArraysOfTwoDimensions) {
  EXPECT_EQ(Read("g[i, j + 1] = g[0, 0]"), "(g[i,(j + 1)] = g[0,0])");
  EXPECT_EQ(Read("f(g[i, *], g[*, 2 * j], q[*])"), "f(g[i,*],g[*,(2 * j)],q[*])");
  const SourceText source(
      "m.kiv", "g[1..9, n], q[0..n-1] : int; param w[] : int; param a[2, ] : set; solve;");
  const auto tree = Parse(source);
  ASSERT_TRUE(tree);
  const auto& grid = std::get<Declaration>(tree->statements[0].form);
  ASSERT_EQ(grid.declarators.at(0).dimensions.size(), 2u);
  EXPECT_EQ(Structure(*grid.declarators[0].dimensions[0]), "(1..9)");
  EXPECT_EQ(Structure(*grid.declarators.at(1).dimensions.at(0)), "(0..(n - 1))");
  const auto& open = std::get<Parameter>(tree->statements[1].form);
  ASSERT_EQ(open.declarator.dimensions.size(), 1u);
  EXPECT_EQ(open.declarator.dimensions[0], nullptr);
  EXPECT_EQ(open.value, nullptr);
  const auto& half = std::get<Parameter>(tree->statements[2].form);
  ASSERT_EQ(half.declarator.dimensions.size(), 2u);
  EXPECT_NE(half.declarator.dimensions[0], nullptr);
  EXPECT_EQ(half.declarator.dimensions[1], nullptr);
}

TEST(Parser, ReadsListsSetsAndMemberships) {
  EXPECT_EQ(Read("table([x, y], [[1, 2], [3, -4]], [])"), "table([x,y],[[1,2],[3,(- 4)]],[])");
  EXPECT_EQ(Read("f([q[i] + 1 | i in 1..n, j in s where i < j])"),
            "f([(q[i] + 1) | i in (1..n),j in s where (i << j)])");
  EXPECT_EQ(Read("t = x in { 1, 2 } and not y + 1 in 1..n-1"),
            "(t = ((x in {1,2}) and (not ((y + 1) in (1..(n - 1))))))");
  EXPECT_EQ(Read("x in { i*i | i in s }"), "(x in {(i * i) | i in s})");
  EXPECT_EQ(Read("(x) in s"), "(x in s)");
}

TEST(Parser, ReadsAggregates) {
  EXPECT_EQ(Read("sum(i in 1..n, j in i..n where i + j = 9)(g[i, j]) <= 3"),
            "(sum(i in (1..n),j in (i..n) where ((i + j) == 9))(g[i,j]) <= 3)");
  EXPECT_EQ(Read("forall(i in s)(exists(j in s)(x == j))"),
            "forall(i in s)(exists(j in s)((x == j)))");
  EXPECT_EQ(Read("count((x in s))"), "count((x in s))");
}

TEST(Parser, RelationsOfConditionsAsk) {
  EXPECT_EQ(Read("x = if i = 1 and j <> 2 or i <= j then (x < y) else 3"),
            "(x = (if (((i == 1) and (not (j == 2))) or (i <== j)) then (x < y) else 3))");
  EXPECT_EQ(Read("f([i | i in s where (i < 2) = b])"), "f([i | i in s where ((i << 2) == b)])");
  EXPECT_EQ(Read("x = if a then if b then 1 else 2 else 3"),
            "(x = (if a then (if b then 1 else 2) else 3))");
}

TEST(Parser, ReadsConditionsAndAnnotations) {
  const SourceText source(
      "m.kiv",
      "if n > 1 { x = 1; for i in s { } } else if b { } else { y = 2; z = 3; }\n"
      "all_different(q) with bounds, decomposed; solve;");
  const auto tree = Parse(source);
  ASSERT_TRUE(tree);
  const auto& outer = std::get<ConditionalStatement>(tree->statements[0].form);
  EXPECT_EQ(Structure(outer.condition), "(n >> 1)");
  EXPECT_EQ(outer.first.size(), 2u);
  ASSERT_EQ(outer.second.size(), 1u);
  const auto& inner = std::get<ConditionalStatement>(outer.second[0].form);
  EXPECT_EQ(Structure(inner.condition), "b");
  EXPECT_EQ(inner.first.size(), 0u);
  EXPECT_EQ(inner.second.size(), 2u);
  const auto& constraint = std::get<Constraint>(tree->statements[1].form);
  ASSERT_EQ(constraint.annotations.size(), 2u);
  EXPECT_EQ(constraint.annotations[1].text, "decomposed");
}

TEST(Parser, ReadsGoalsAndWhatGoesWithThem) {
  const SourceText source(
      "m.kiv",
      "branch on x, g[1, *] by first_fail, smallest; branch on all by largest;\n"
      "minimize x + 1; show \"a\\n\\t\\\"\\\\#\", x < y, on;");
  const auto tree = Parse(source);
  ASSERT_TRUE(tree);
  const auto& branch = std::get<BranchStatement>(tree->statements[0].form);
  EXPECT_EQ(branch.variables.size(), 2u);
  EXPECT_EQ(branch.variable_choice.text, "first_fail");
  EXPECT_EQ(branch.value_choice.text, "smallest");
  EXPECT_EQ(std::get<BranchStatement>(tree->statements[1].form).value_choice.text, "");
  const auto& goal = std::get<Goal>(tree->statements[2].form);
  EXPECT_EQ(goal.kind, GoalKind::kMinimize);
  EXPECT_EQ(Structure(*goal.objective), "(x + 1)");
  const auto& show = std::get<ShowStatement>(tree->statements[3].form);
  ASSERT_EQ(show.items.size(), 3u);
  EXPECT_EQ(std::get<TextLiteral>(show.items[0]).text, "a\n\t\"\\#");
  EXPECT_EQ(Structure(std::get<Expression>(show.items[1])), "(x << y)");
}

TEST(Parser, RangesCoverWhatIsWritten) {
  const SourceText source("m.kiv", "  (x + 1) * y = z ; solve;");
  const auto tree = Parse(source);
  ASSERT_TRUE(tree);
  const auto& relation = std::get<Constraint>(tree->statements[0].form).expression;
  EXPECT_EQ(source.Quote(relation.range), "(x + 1) * y = z");
  const auto& product = std::get<Chain>(relation.form).operands[0];
  EXPECT_EQ(source.Quote(product.range), "(x + 1) * y");
  EXPECT_EQ(source.Quote(std::get<Chain>(product.form).operands[0].range), "(x + 1)");
}

TEST(Parser, ReadsLongModels) {
  std::string text = "x = 0";
  for (int i = 0; i < 20000; ++i) text += " + 1";
  text += ';';
  for (int i = 0; i < 20000; ++i) text += "\nx = y;";
  const SourceText source("m.kiv", text + "solve;");
  const auto tree = Parse(source);
  ASSERT_TRUE(tree);
  EXPECT_EQ(tree->statements.size(), 20002u);
}

std::string Repeat(const std::string& text, std::size_t count) {
  std::string repeated;
  for (std::size_t i = 0; i < count; ++i) repeated += text;
  return repeated;
}

TEST(Parser, NestsToTheDepthThatIsPromised) {
  // The innermost operand is one level itself.
  const std::size_t most = kDeepestNesting - 1;
  EXPECT_EQ(Read(Repeat("(", most) + 'x' + Repeat(")", most)), "x");
  EXPECT_EQ(Read(Repeat("f(", most) + 'x' + Repeat(")", most)),
            Repeat("f(", most) + 'x' + Repeat(")", most));
  EXPECT_EQ(Read(Repeat("not ", most) + 'x'), Repeat("(not ", most) + 'x' + Repeat(")", most));
}

TEST(Parser, RefusesToNestDeeper) {
  for (const std::string open :
       {"(", "f(", "c[", "-", "abs ", "not ", "a == not ", "2^", "(int) ", "for i in 1..2 {", "[",
        "{", "if ", "if b {", "if b { } else ", "sum(i in ", "[1 | i in ", "(if a then ", "not "}) {
    const SourceText source("m.kiv", Repeat(open, 100000));
    Diagnostics diagnostics(source);
    EXPECT_FALSE(ParseModel(source, diagnostics));
    ASSERT_EQ(diagnostics.Count(), 1u) << open;
    const std::string& text = diagnostics.GetAll()[0].text;
    EXPECT_EQ(text, "nested more than 200 levels deep");
  }
}

TEST(Parser, TakesAnyBytes) {
  for (int byte = 0; byte < 256; ++byte) {
    for (const std::string prefix :
         {"", "x ", "x = ", "x : ", "for ", "c[1", "12", "x = 1; ", "g[1,", "[x |", "show \"",
          "show \"\\", "if ", "branch on x by "}) {
      const SourceText source("m.kiv", prefix + static_cast<char>(byte));
      Diagnostics diagnostics(source);
      EXPECT_FALSE(ParseModel(source, diagnostics));
      EXPECT_FALSE(diagnostics.IsEmpty());
    }
  }
}

}  // namespace
}  // namespace kiv
