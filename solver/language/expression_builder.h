#pragma once

#include <string>
#include <vector>

#include "solver/language/diagnostics.h"
#include "solver/language/operator_precedence.h"
#include "solver/language/parse_node.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

// Makes the expressions of a syntax tree from the nodes of a parse. Recursive, as deep as
// ParseModel lets them nest.
class ExpressionBuilder {
 public:
  // Both must outlive this.
  ExpressionBuilder(const SourceText& source, Diagnostics& diagnostics)
      : source_(source), diagnostics_(diagnostics) {}

  Expression Build(const ParseNode& node);
  ExpressionPointer BuildPointer(const ParseNode& node);
  // With relations that ask instead of asserting.
  Expression BuildQuestion(const ParseNode& node);
  // What a name with brackets, parentheses or nothing behind it stands for.
  Expression BuildPrimary(const ParseNode& node);
  Generator BuildGenerator(const ParseNode& node);
  // The words of a kind as its display name has them.
  static std::string JoinWords(const ParseNode& node);

 private:
  Expression BuildOperand(const ParseNode& node);
  Expression BuildNegation(const ParseNode& node);
  Expression BuildUnary(const ParseNode& node);
  Expression BuildElements(const ParseNode& node, bool is_set);
  Expression BuildConditional(const ParseNode& node);
  Expression BuildAggregate(Word name, const ParseNode& rest, SourceRange range);
  Expression BuildCall(Word name, const ParseNode& arguments, SourceRange range);
  Expression BuildElement(Word name, const ParseNode& index, SourceRange range);
  IntegerLiteral BuildNumber(const ParseNode& digits);

  const SourceText& source_;
  Diagnostics& diagnostics_;
  Reading reading_ = Reading::kAsserting;
};

}  // namespace kiv
