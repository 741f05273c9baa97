#include "solver/language/declaration_compiler.h"

#include <algorithm>
#include <array>
#include <utility>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "solver/constraints/membership.h"
#include "solver/language/near_name.h"
#include "solver/language/shape_compiler.h"

namespace kiv {
namespace {

bool IsInteger(const KivOmbiObjectDescriptor& kind) {
  return KivOmbiInteger::sDescriptor->IsMatched(&kind) != 0;
}
bool IsBoolean(const KivOmbiObjectDescriptor& kind) {
  return KivOmbiBoolean::sDescriptor->IsMatched(&kind) != 0;
}

}  // namespace

DeclarationCompiler::DeclarationCompiler(CompiledModel& model, const Vocabulary& vocabulary,
                                         ExpressionCompiler& expressions, Scope& scope,
                                         ExpansionBudget& budget, Diagnostics& diagnostics)
    : model_(model),
      vocabulary_(vocabulary),
      expressions_(expressions),
      scope_(scope),
      budget_(budget),
      diagnostics_(diagnostics) {}

void DeclarationCompiler::CompileDeclaration(const Declaration& declaration) {
  const KivOmbiObjectDescriptor* kind = FindKind(declaration.kind);
  const std::optional<Values> values =
      kind != nullptr ? CompileDomain(declaration.domain.get(), *kind) : std::nullopt;
  for (const Declarator& declarator : declaration.declarators) {
    if (values) {
      CompileDeclarator(declarator, *kind, *values);
    } else {
      DeclareName(scope_, declarator.name, Scope::Broken{}, diagnostics_);
    }
  }
}

void DeclarationCompiler::CompileDeclarator(const Declarator& declarator,
                                            const KivOmbiObjectDescriptor& kind,
                                            const Values& values) {
  const Word& name = declarator.name;
  const auto shape = CompileShape(declarator, expressions_, budget_.GetLimits(), diagnostics_);
  if (!shape) {
    DeclareName(scope_, name, Scope::Broken{}, diagnostics_);
    return;
  }
  const auto count = static_cast<std::uint32_t>(CountElements(*shape));
  const auto first = static_cast<KivOmbNetwork::VariableId>(model_.GetNetwork().CountVariables());
  bool complete = true;
  for (std::uint32_t i = 0; i < count && complete; ++i) {
    complete = AddVariable(kind, values, name.range);
  }
  // A name never stands for variables that there was no room for.
  Scope::Meaning meaning = Scope::Broken{};
  if (complete && !shape->empty()) meaning = Scope::Array{*shape, first};
  if (complete && shape->empty()) meaning = Scope::Scalar{first};
  if (DeclareName(scope_, name, std::move(meaning), diagnostics_) && complete) {
    model_.AddVariable({name.text, *shape, first, count});
  }
}

bool DeclarationCompiler::AddVariable(const KivOmbiObjectDescriptor& kind, const Values& values,
                                      SourceRange name) {
  const auto variable = expressions_.GetBuilder().AddVariable(kind, name);
  if (!variable) return false;
  KivOmbNetwork& network = model_.GetNetwork();
  if (const bool* truth = std::get_if<bool>(&values.form)) {
    network.Update(*variable, [truth](KivOmbiAny& target) {
      static_cast<KivOmbiBoolean&>(target).CalcTruthValue(*truth);
    });
  } else if (const auto* declared = std::get_if<DeclaredDomain>(&values.form)) {
    network.Update(*variable, [declared](KivOmbiAny& target) {
      declared->BuildIn(static_cast<KivOmbiInteger&>(target));
    });
    if (declared->Judge(network.GetSummary(*variable)) == DeclaredDomain::Fit::kWidened) {
      if (!budget_.Spend(1, values.range, diagnostics_)) return false;
      const std::array arguments = {*variable};
      model_.AddOrigin(network.Emplace<Membership>(arguments, declared->GetValues()), values.range);
    }
  }
  return true;
}

const KivOmbiObjectDescriptor* DeclarationCompiler::FindKind(const Word& kind) {
  const KivOmbiObjectDescriptor* found = vocabulary_.FindKind(kind.text);
  if (found == nullptr) {
    const std::vector<std::string> names = vocabulary_.GetKindNames();
    diagnostics_.Add(kind.range,
                     "unknown kind '" + kind.text + '\'' + SuggestNearName(kind.text, names),
                     {"kinds: " + ListNames(names)});
  }
  return found;
}

std::optional<DeclarationCompiler::Values> DeclarationCompiler::CompileDomain(
    const Expression* domain, const KivOmbiObjectDescriptor& kind) {
  if (domain == nullptr) return Values{};
  if (IsBoolean(kind)) return CompileTruth(*domain);
  if (!IsInteger(kind)) {
    diagnostics_.Add(domain->range,
                     "variables of kind '" + kind.GetName() + "' can only be declared as Any");
    return std::nullopt;
  }
  const std::optional<DeclaredDomain> integers = CompileIntegers(*domain);
  if (!integers) return std::nullopt;
  if (integers->JudgeKind(kind) == DeclaredDomain::Fit::kLost) {
    ReportLost(*integers, kind, domain->range);
    return std::nullopt;
  }
  return Values{*integers, domain->range};
}

std::optional<DeclarationCompiler::Values> DeclarationCompiler::CompileTruth(
    const Expression& domain) {
  const bool is_set = std::holds_alternative<SetLiteral>(domain.form) ||
                      std::holds_alternative<RangeLiteral>(domain.form);
  if (!is_set) {
    const std::optional<Operand> operand = expressions_.Compile(domain);
    if (!operand) return std::nullopt;
    if (const auto truth = expressions_.GetBuilder().GetConstantTruth(*operand)) {
      return Values{*truth, domain.range};
    }
  }
  diagnostics_.Add(domain.range, "the domain of a 'bool' is true, false or Any");
  return std::nullopt;
}

std::optional<DeclaredDomain> DeclarationCompiler::CompileIntegers(const Expression& domain) {
  const std::optional<IntegerSet> set = expressions_.GetGenerators().CompileSet(domain, true);
  if (!set) return std::nullopt;
  if (set->IsEmpty()) {
    diagnostics_.Add(domain.range, "the domain is empty");
    return std::nullopt;
  }
  for (const std::int64_t end : {set->GetFirst(), set->GetLast()}) {
    if (IsModelInteger(end)) continue;
    const auto* range = std::get_if<RangeLiteral>(&domain.form);
    const Expression* place = range == nullptr         ? &domain
                              : end == set->GetFirst() ? range->first.get()
                                                       : range->last.get();
    diagnostics_.Add(place->range,
                     "the value " + std::to_string(end) + " is outside " + DescribeModelIntegers());
    return std::nullopt;
  }
  if (set->IsRange()) {
    return DeclaredDomain::FromInterval(static_cast<std::int32_t>(set->GetFirst()),
                                        static_cast<std::int32_t>(set->GetLast()));
  }
  std::vector<std::int32_t> values;
  for (const std::int64_t value : set->GetValues()) {
    values.push_back(static_cast<std::int32_t>(value));
  }
  return DeclaredDomain::FromValues(std::move(values));
}

void DeclarationCompiler::ReportLost(const DeclaredDomain& domain,
                                     const KivOmbiObjectDescriptor& kind, SourceRange range) {
  std::string able;
  for (const KivOmbiObjectDescriptor* other : vocabulary_.GetKinds()) {
    if (IsInteger(*other) && domain.JudgeKind(*other) != DeclaredDomain::Fit::kLost) {
      able += (able.empty() ? "; use '" : " or '") + other->GetName() + '\'';
    }
  }
  diagnostics_.Add(range, '\'' + kind.GetName() + "' cannot hold the " +
                              std::to_string(domain.Count()) + " values " + domain.Describe() +
                              able);
}

}  // namespace kiv
