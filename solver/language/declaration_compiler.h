#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/declared_domain.h"
#include "solver/language/expression_compiler.h"

namespace kiv {

// Turns declarations of parameters and variables into names of a scope and variables of a network
// with their domains.
class KIV_EXPORT DeclarationCompiler {
 public:
  // All of them must outlive this.
  DeclarationCompiler(CompiledModel& model, const Vocabulary& vocabulary,
                      ExpressionCompiler& expressions, Scope& scope, ExpansionBudget& budget,
                      Diagnostics& diagnostics);

  // A value of that name in `values` takes the place of the declared one.
  void CompileParameter(const Parameter& parameter,
                        const std::map<std::string, std::int64_t>& values);
  void CompileDeclaration(const Declaration& declaration);
  // Gives a name its meaning; false, reported, when it has one already.
  bool Declare(const Word& name, Scope::Meaning meaning);

  bool HasParameter(const std::string& name) const;
  const std::vector<std::string>& GetParameters() const noexcept { return parameters_; }

 private:
  // What a declaration allows its variables: nothing said, integers, or one truth value.
  using Values = std::variant<std::monostate, DeclaredDomain, bool>;

  void CompileDeclarator(const Declarator& declarator, const KivOmbiObjectDescriptor& kind,
                         const Values& values, SourceRange domain);
  const KivOmbiObjectDescriptor* FindKind(const Word& kind);
  std::optional<Values> CompileDomain(const Domain& domain, const KivOmbiObjectDescriptor& kind);
  std::optional<Values> CompileTruth(const Domain& domain);
  std::optional<DeclaredDomain> CompileIntegers(const Domain& domain);
  std::optional<std::int32_t> CompileInteger(const Expression& expression);
  // Reports a kind that cannot hold the domain, naming those that can.
  void ReportLost(const DeclaredDomain& domain, const KivOmbiObjectDescriptor& kind,
                  SourceRange range);
  // False when the budget is spent.
  bool AddVariable(const KivOmbiObjectDescriptor& kind, const Values& values, SourceRange name,
                   SourceRange domain);

  CompiledModel& model_;
  const Vocabulary& vocabulary_;
  ExpressionCompiler& expressions_;
  Scope& scope_;
  ExpansionBudget& budget_;
  Diagnostics& diagnostics_;
  std::vector<std::string> parameters_;
};

}  // namespace kiv
