#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "solver/language/goal_kind.h"
#include "solver/language/source_text.h"

// A model as it is written, before names and operators have a meaning. Plain data: a parser makes
// it, a compiler walks it. Its depth is limited by the nesting that ParseModel admits, also for
// long sums.
namespace kiv {

struct Expression;
using ExpressionPointer = std::unique_ptr<Expression>;

// A name, a symbol or a kind as it stands in the text.
struct Word {
  std::string text;
  SourceRange range;
};

struct IntegerLiteral {
  std::int64_t value;
};

struct BooleanLiteral {
  bool value;
};

// `name`, `name[i]` or `name[i, j]`. A null index is the `*` of a row `name[i, *]` or a column
// `name[*, j]`.
struct Reference {
  std::string name;
  std::vector<ExpressionPointer> indices;
};

// `-e`, `abs e`, `not e`, `(interval int) e`: the symbol is that of the operator's row.
struct UnaryApplication {
  Word symbol;
  ExpressionPointer operand;
};

// `a + b - c`: operators of one level of precedence, applied from left to right, but `=>` from
// right to left. There is one more operand than operators. A chain of relations has this form, too,
// and so has `a ^ b`.
struct Chain {
  std::vector<Expression> operands;
  std::vector<Word> operators;
};

// `name(a, b, c)`. An argument may be a list.
struct Call {
  Word name;
  std::vector<Expression> arguments;
};

// `first..last`, and `[first, last]` where a domain is declared. No value: it stands behind `in`,
// as a domain or as the size of an array.
struct RangeLiteral {
  ExpressionPointer first;
  ExpressionPointer last;
};

// `{ a, b, c }`.
struct SetLiteral {
  std::vector<Expression> elements;
};

// `[a, b, c]`; a list of lists is written row by row.
struct ListLiteral {
  std::vector<Expression> elements;
};

// `name in values where condition`. The values are a range, a set or a name; a relation of the
// condition asks and never asserts.
struct Generator {
  Word name;
  ExpressionPointer values;
  ExpressionPointer condition;  // may be null
};

// `[element | generators]` or `{ element | generators }`.
struct Comprehension {
  bool is_set;
  ExpressionPointer element;
  std::vector<Generator> generators;
};

// `name(generators)(body)`, such as a sum.
struct Aggregate {
  Word name;
  std::vector<Generator> generators;
  ExpressionPointer body;
};

// `element in set`, a truth value.
struct MembershipTest {
  ExpressionPointer element;
  Word symbol;
  ExpressionPointer set;
};

// `if condition then first else second`; a relation of the condition asks and never asserts.
struct ConditionalExpression {
  ExpressionPointer condition;
  ExpressionPointer first;
  ExpressionPointer second;
};

struct Expression {
  SourceRange range;  // with the parentheses around it
  std::variant<IntegerLiteral, BooleanLiteral, Reference, UnaryApplication, Chain, Call,
               RangeLiteral, SetLiteral, ListLiteral, Comprehension, Aggregate, MembershipTest,
               ConditionalExpression>
      form;
};

// `name`, `name[n]` or `name[first..last, n]`.
struct Declarator {
  Word name;
  // Each a number of elements or a range of indices; none for a single value. A null one, of a
  // parameter alone, is as large as its value.
  std::vector<ExpressionPointer> dimensions;
};

// `a, b[n] : kind = domain;`
struct Declaration {
  std::vector<Declarator> declarators;
  Word kind;
  ExpressionPointer domain;  // a value, a range or a set; null for Any
};

// `param name[n] : kind = value;`
struct Parameter {
  Declarator declarator;
  Word kind;
  ExpressionPointer value;  // null when it must be given
};

// `expression with annotation, annotation;`
struct Constraint {
  Expression expression;
  std::vector<Word> annotations;
};

struct Statement;

// `for generators { body }`
struct Loop {
  std::vector<Generator> generators;
  std::vector<Statement> body;  // constraints, loops and conditions
};

// `if condition { first } else { second }`
struct ConditionalStatement {
  Expression condition;
  std::vector<Statement> first;
  std::vector<Statement> second;
};

// `solve;`, `solve all;`, `minimize e;` or `maximize e;`
struct Goal {
  GoalKind kind = GoalKind::kSatisfy;
  ExpressionPointer objective;  // null unless the kind has one
};

// `branch on x, q by variable_choice, value_choice;`
struct BranchStatement {
  std::vector<Expression> variables;
  Word variable_choice;
  Word value_choice;  // empty when it is left out
};

// A text between quotes, without its escapes.
struct TextLiteral {
  std::string text;
};

// `show "x is ", x;`
struct ShowStatement {
  std::vector<std::variant<TextLiteral, Expression>> items;
};

struct Statement {
  SourceRange range;
  std::variant<Parameter, Declaration, Constraint, Loop, ConditionalStatement, Goal,
               BranchStatement, ShowStatement>
      form;
};

// There is exactly one Goal; only ShowStatements follow it.
struct SyntaxTree {
  std::vector<Statement> statements;
};

}  // namespace kiv
