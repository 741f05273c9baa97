#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "solver/language/source_text.h"

// A model as it is written, before names and operators have a meaning. Plain data: a parser makes
// it, a compiler walks it. Its depth is limited by the nesting that ParseModel admits, also for
// long sums.
namespace kiv {

struct Expression;

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

// `name`, or `name[index]`.
struct Reference {
  std::string name;
  std::unique_ptr<Expression> index;  // may be null
};

// `-e`, `abs e`, `not e`, `(interval int) e`: the symbol is that of the operator's row.
struct UnaryApplication {
  Word symbol;
  std::unique_ptr<Expression> operand;
};

// `a + b - c`: operators of one level of precedence, applied from left to right, but `=>` from
// right to left. There is one more operand than operators. A chain of relations has this form, too,
// and so has `a ^ b`.
struct Chain {
  std::vector<Expression> operands;
  std::vector<Word> operators;
};

// `name(a, b, c)`.
struct Call {
  Word name;
  std::vector<Expression> arguments;
};

struct Expression {
  SourceRange range;  // with the parentheses around it
  std::variant<IntegerLiteral, BooleanLiteral, Reference, UnaryApplication, Chain, Call> form;
};

struct Domain {
  enum class Form {
    kAny,       // nothing is said
    kValues,    // the values of `elements`
    kInterval,  // from the first of two elements to the second
  };
  Form form = Form::kAny;
  SourceRange range;
  std::vector<Expression> elements;
};

struct Declarator {
  Word name;
  std::unique_ptr<Expression> size;  // null for a single variable
};

// `a, b[n] : kind = domain;`
struct Declaration {
  std::vector<Declarator> declarators;
  Word kind;
  Domain domain;
};

// `param name : kind = value;`
struct Parameter {
  Word name;
  Word kind;
  Expression value;
};

// `expression;`
struct Constraint {
  Expression expression;
};

struct Statement;

// `for i in first..last, j in ... { body }`
struct Loop {
  struct Range {
    Word name;
    Expression first;
    Expression last;
  };
  std::vector<Range> ranges;
  std::vector<Statement> body;  // constraints and loops
};

// `solve;`
struct Solve {};

struct Statement {
  SourceRange range;
  std::variant<Parameter, Declaration, Constraint, Loop, Solve> form;
};

// The last statement, and only that, is a Solve.
struct SyntaxTree {
  std::vector<Statement> statements;
};

}  // namespace kiv
