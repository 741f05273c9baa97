#pragma once

#include <optional>
#include <variant>

#include "framework/base/export.h"
#include "solver/language/declared_domain.h"
#include "solver/language/expression_compiler.h"

namespace kiv {

// Turns declarations into names of a scope and variables of a network with their domains.
class KIV_EXPORT DeclarationCompiler {
 public:
  // All of them must outlive this.
  DeclarationCompiler(CompiledModel& model, const Vocabulary& vocabulary,
                      ExpressionCompiler& expressions, Scope& scope, ExpansionBudget& budget,
                      Diagnostics& diagnostics);

  void CompileDeclaration(const Declaration& declaration);

 private:
  // What a declaration allows its variables: nothing said, integers, or one truth value.
  struct Values {
    std::variant<std::monostate, DeclaredDomain, bool> form;
    SourceRange range;
  };

  void CompileDeclarator(const Declarator& declarator, const KivOmbiObjectDescriptor& kind,
                         const Values& values);
  const KivOmbiObjectDescriptor* FindKind(const Word& kind);
  std::optional<Values> CompileDomain(const Expression* domain,
                                      const KivOmbiObjectDescriptor& kind);
  std::optional<Values> CompileTruth(const Expression& domain);
  std::optional<DeclaredDomain> CompileIntegers(const Expression& domain);
  // Reports a kind that cannot hold the domain, naming those that can.
  void ReportLost(const DeclaredDomain& domain, const KivOmbiObjectDescriptor& kind,
                  SourceRange range);
  // False when the budget is spent.
  bool AddVariable(const KivOmbiObjectDescriptor& kind, const Values& values, SourceRange name);

  CompiledModel& model_;
  const Vocabulary& vocabulary_;
  ExpressionCompiler& expressions_;
  Scope& scope_;
  ExpansionBudget& budget_;
  Diagnostics& diagnostics_;
};

}  // namespace kiv
