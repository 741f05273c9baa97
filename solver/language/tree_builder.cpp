#include "solver/language/tree_builder.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "solver/language/grammar.h"

namespace kiv {

namespace g = grammar;

namespace {

// The text that escapes between quotes stand for.
std::string WithoutEscapes(std::string_view quoted) {
  std::string text;
  for (std::size_t i = 0; i < quoted.size(); ++i) {
    if (quoted[i] != '\\') {
      text += quoted[i];
      continue;
    }
    const char escaped = quoted[++i];
    text += escaped == 'n' ? '\n' : escaped == 't' ? '\t' : escaped;
  }
  return text;
}

}  // namespace

SyntaxTree TreeBuilder::BuildModel(const ParseNode& root) {
  SyntaxTree tree;
  for (const auto& child : root.children) tree.statements.push_back(BuildStatement(*child));
  CheckGoal(tree);
  return tree;
}

// The range of a node without the blanks that its first token skipped.
SourceRange TreeBuilder::TightRangeOf(const ParseNode& node) const {
  SourceRange range = RangeOf(node, source_);
  tao::pegtl::memory_input<tao::pegtl::tracking_mode::lazy> in(
      source_.GetText().substr(range.begin, range.end - range.begin), "");
  tao::pegtl::parse<g::blanks>(in);
  range.begin += static_cast<std::uint32_t>(in.byte());
  return range;
}

Statement TreeBuilder::BuildStatement(const ParseNode& node) {
  Statement statement{TightRangeOf(node), Goal{}};
  if (node.is_type<g::parameter>()) {
    statement.form = BuildParameter(node);
  } else if (node.is_type<g::loop>()) {
    statement.form = BuildLoop(node);
  } else if (node.is_type<g::conditional_statement>()) {
    statement.form = BuildConditional(node);
  } else if (node.is_type<g::branch>()) {
    statement.form = BuildBranch(node);
  } else if (node.is_type<g::show>()) {
    statement.form = BuildShow(node);
  } else if (node.is_type<g::solve>()) {
    statement.form = Goal{node.children.empty() ? GoalKind::kSatisfy : GoalKind::kAll, nullptr};
  } else if (node.is_type<g::optimum>()) {
    statement.form = BuildOptimum(node);
  } else if (node.children.size() == 1 || node.children.back()->is_type<g::annotations>()) {
    statement.form = BuildConstraint(node);
  } else {
    statement.form = BuildDeclaration(node);
  }
  return statement;
}

Parameter TreeBuilder::BuildParameter(const ParseNode& node) {
  Parameter parameter;
  for (const auto& child : node.children) {
    if (child->is_type<g::identifier>()) {
      parameter.declarator.name = WordOf(*child, source_);
    } else if (child->is_type<g::kind>()) {
      parameter.kind = BuildKind(*child);
    } else if (child->is_type<g::expression>()) {
      parameter.value = expressions_.BuildPointer(*child);
    } else {
      for (const auto& size : child->children) {
        const bool open = size->is_type<g::open_dimension>();
        parameter.declarator.dimensions.push_back(open ? nullptr
                                                       : expressions_.BuildPointer(*size));
      }
    }
  }
  return parameter;
}

Constraint TreeBuilder::BuildConstraint(const ParseNode& node) {
  Constraint constraint{expressions_.Build(*node.children.front()), {}};
  if (node.children.size() > 1) {
    for (const auto& name : node.children.back()->children) {
      constraint.annotations.push_back(WordOf(*name, source_));
    }
  }
  return constraint;
}

Declaration TreeBuilder::BuildDeclaration(const ParseNode& node) {
  Declaration declaration;
  AddDeclarator(expressions_.Build(*node.children.front()), declaration);
  for (auto child = node.children.begin() + 1; child != node.children.end(); ++child) {
    if ((*child)->is_type<g::reference>()) {
      AddDeclarator(expressions_.BuildPrimary(**child), declaration);
    } else if ((*child)->is_type<g::kind>()) {
      declaration.kind = BuildKind(**child);
    } else {
      declaration.domain = BuildDomain(**child);
    }
  }
  return declaration;
}

void TreeBuilder::AddDeclarator(Expression expression, Declaration& declaration) {
  auto* reference = std::get_if<Reference>(&expression.form);
  const auto has_star = [](const std::vector<ExpressionPointer>& indices) {
    return std::find(indices.begin(), indices.end(), nullptr) != indices.end();
  };
  if (reference == nullptr || source_.GetText()[expression.range.begin] == '(' ||
      has_star(reference->indices)) {
    diagnostics_.Add(expression.range,
                     "a declaration names variables, as in 'x, y : enum int = [0, 9];'");
    return;
  }
  const SourceRange name{
      expression.range.begin,
      expression.range.begin + static_cast<std::uint32_t>(reference->name.size())};
  declaration.declarators.push_back(
      {{std::move(reference->name), name}, std::move(reference->indices)});
}

Word TreeBuilder::BuildKind(const ParseNode& node) const {
  return {ExpressionBuilder::JoinWords(node),
          Join(RangeOf(*node.children.front(), source_), RangeOf(*node.children.back(), source_))};
}

ExpressionPointer TreeBuilder::BuildDomain(const ParseNode& node) {
  if (node.is_type<g::any_domain>()) return nullptr;
  if (node.is_type<g::expression>()) return expressions_.BuildPointer(node);
  return std::make_unique<Expression>(
      Expression{TightRangeOf(node), RangeLiteral{expressions_.BuildPointer(*node.children[0]),
                                                  expressions_.BuildPointer(*node.children[1])}});
}

Loop TreeBuilder::BuildLoop(const ParseNode& node) {
  Loop loop;
  for (const auto& child : node.children) {
    if (child->is_type<g::generator>()) {
      loop.generators.push_back(expressions_.BuildGenerator(*child));
    } else {
      loop.body = BuildBlock(*child);
    }
  }
  return loop;
}

ConditionalStatement TreeBuilder::BuildConditional(const ParseNode& node) {
  ConditionalStatement conditional{
      expressions_.BuildQuestion(*node.children[0]), BuildBlock(*node.children[1]), {}};
  if (node.children.size() > 2) {
    const ParseNode& otherwise = *node.children[2];
    if (otherwise.is_type<g::block>()) {
      conditional.second = BuildBlock(otherwise);
    } else {
      conditional.second.push_back(BuildStatement(otherwise));
    }
  }
  return conditional;
}

std::vector<Statement> TreeBuilder::BuildBlock(const ParseNode& node) {
  std::vector<Statement> body;
  for (const auto& child : node.children) {
    Statement statement = BuildStatement(*child);
    const auto* declaration = std::get_if<Declaration>(&statement.form);
    if (declaration == nullptr) {
      body.push_back(std::move(statement));
      continue;
    }
    diagnostics_.Add(declaration->declarators.empty() ? statement.range
                                                      : declaration->declarators.front().name.range,
                     "variables are declared outside of loops and conditions; an array holds one "
                     "for each value of a loop's variable");
  }
  return body;
}

Goal TreeBuilder::BuildOptimum(const ParseNode& node) {
  const bool least = node.children[0]->string_view() == "minimize";
  return {least ? GoalKind::kMinimize : GoalKind::kMaximize,
          std::make_unique<Expression>(expressions_.BuildQuestion(*node.children[1]))};
}

BranchStatement TreeBuilder::BuildBranch(const ParseNode& node) {
  BranchStatement branch;
  for (const auto& child : node.children) {
    if (child->is_type<g::expression>()) {
      branch.variables.push_back(expressions_.BuildQuestion(*child));
    } else if (branch.variable_choice.text.empty()) {
      branch.variable_choice = WordOf(*child, source_);
    } else {
      branch.value_choice = WordOf(*child, source_);
    }
  }
  return branch;
}

ShowStatement TreeBuilder::BuildShow(const ParseNode& node) {
  ShowStatement show;
  for (const auto& child : node.children) {
    if (child->is_type<g::expression>()) {
      show.items.emplace_back(expressions_.BuildQuestion(*child));
    } else {
      show.items.emplace_back(TextLiteral{WithoutEscapes(child->string_view())});
    }
  }
  return show;
}

void TreeBuilder::CheckGoal(const SyntaxTree& tree) {
  if (tree.statements.empty()) {
    diagnostics_.Add("the model is empty; it must end with 'solve;'");
    return;
  }
  const auto last = std::find_if(tree.statements.rbegin(), tree.statements.rend(),
                                 [](const Statement& statement) {
                                   return !std::holds_alternative<ShowStatement>(statement.form);
                                 });
  for (const Statement& statement : tree.statements) {
    if (std::holds_alternative<Goal>(statement.form) && &statement != &*last) {
      diagnostics_.Add(statement.range,
                       "a model has one goal, and nothing but 'show' stands behind it");
    }
  }
  if (last == tree.statements.rend() || !std::holds_alternative<Goal>(last->form)) {
    const std::uint32_t end = tree.statements.back().range.end;
    diagnostics_.Add(
        SourceRange{end, end},
        "the model must end with 'solve;', 'solve all;', 'minimize ...;' or 'maximize ...;'");
  }
}

}  // namespace kiv
