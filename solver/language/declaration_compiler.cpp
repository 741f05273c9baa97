#include "solver/language/declaration_compiler.h"

#include <algorithm>
#include <array>
#include <utility>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "solver/constraints/membership.h"
#include "solver/language/near_name.h"

namespace kiv {
namespace {

bool IsInteger(const KivOmbiObjectDescriptor& kind) {
  return KivOmbiInteger::sDescriptor->IsMatched(&kind) != 0;
}
bool IsBoolean(const KivOmbiObjectDescriptor& kind) {
  return KivOmbiBoolean::sDescriptor->IsMatched(&kind) != 0;
}

std::string Range() {
  return std::to_string(kLeastInteger) + ".." + std::to_string(kGreatestInteger);
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

bool DeclarationCompiler::Declare(const Word& name, Scope::Meaning meaning) {
  if (scope_.Declare(name.text, meaning, name.range)) return true;
  diagnostics_.Add(
      name.range, "the name '" + name.text + "' is declared already",
      {"first at " + model_.GetSource().DescribePosition(scope_.Find(name.text)->declared.begin)});
  return false;
}

bool DeclarationCompiler::HasParameter(const std::string& name) const {
  return std::find(parameters_.begin(), parameters_.end(), name) != parameters_.end();
}

void DeclarationCompiler::CompileParameter(const Parameter& parameter,
                                           const std::map<std::string, std::int64_t>& values) {
  parameters_.push_back(parameter.name.text);
  if (parameter.kind.text != "int") {
    diagnostics_.Add(parameter.kind.range, "a parameter is an 'int'");
  }
  // The declared value is checked even when another takes its place.
  std::optional<std::int64_t> value =
      expressions_.CompileConstant(parameter.value, "the value of a parameter");
  if (value && !IsModelInteger(*value)) {
    diagnostics_.Add(parameter.value.range,
                     "the value " + std::to_string(*value) + " is outside " + Range());
  }
  const auto given = values.find(parameter.name.text);
  if (given != values.end()) {
    value = given->second;
    if (!IsModelInteger(*value)) {
      diagnostics_.Add(parameter.name.range, "the value " + std::to_string(*value) +
                                                 " given for '" + parameter.name.text +
                                                 "' is outside " + Range());
    }
  }
  Declare(parameter.name,
          value ? Scope::Meaning(Scope::Constant{*value}) : Scope::Meaning(Scope::Broken{}));
}

void DeclarationCompiler::CompileDeclaration(const Declaration& declaration) {
  const KivOmbiObjectDescriptor* kind = FindKind(declaration.kind);
  const std::optional<Values> values =
      kind != nullptr ? CompileDomain(declaration.domain, *kind) : std::nullopt;
  for (const Declarator& declarator : declaration.declarators) {
    if (values) {
      CompileDeclarator(declarator, *kind, *values, declaration.domain.range);
    } else {
      Declare(declarator.name, Scope::Broken{});
    }
  }
}

void DeclarationCompiler::CompileDeclarator(const Declarator& declarator,
                                            const KivOmbiObjectDescriptor& kind,
                                            const Values& values, SourceRange domain) {
  const Word& name = declarator.name;
  const bool is_array = declarator.size != nullptr;
  std::uint32_t count = 1;
  if (is_array) {
    const std::uint32_t most = budget_.GetLimits().array_size;
    const auto size = expressions_.CompileConstant(*declarator.size, "the size of an array");
    if (size && (*size < 0 || *size > most)) {
      diagnostics_.Add(declarator.size->range, "the size " + std::to_string(*size) +
                                                   " of an array is outside 0.." +
                                                   std::to_string(most));
    }
    if (!size || *size < 0 || *size > most) {
      Declare(name, Scope::Broken{});
      return;
    }
    count = static_cast<std::uint32_t>(*size);
  }
  const auto first = static_cast<KivOmbNetwork::VariableId>(model_.GetNetwork().CountVariables());
  bool complete = true;
  for (std::uint32_t i = 0; i < count && complete; ++i) {
    complete = AddVariable(kind, values, name.range, domain);
  }
  // A name never stands for variables that there was no room for.
  Scope::Meaning meaning = Scope::Broken{};
  if (complete && is_array) meaning = Scope::Array{first, count};
  if (complete && !is_array) meaning = Scope::Scalar{first};
  if (Declare(name, meaning) && complete) model_.AddVariable({name.text, is_array, first, count});
}

bool DeclarationCompiler::AddVariable(const KivOmbiObjectDescriptor& kind, const Values& values,
                                      SourceRange name, SourceRange domain) {
  const auto variable = expressions_.AddVariable(kind, name);
  if (!variable) return false;
  KivOmbNetwork& network = model_.GetNetwork();
  if (const bool* truth = std::get_if<bool>(&values)) {
    network.Update(*variable, [truth](KivOmbiAny& target) {
      static_cast<KivOmbiBoolean&>(target).CalcTruthValue(*truth);
    });
  } else if (const auto* declared = std::get_if<DeclaredDomain>(&values)) {
    network.Update(*variable, [declared](KivOmbiAny& target) {
      declared->BuildIn(static_cast<KivOmbiInteger&>(target));
    });
    if (declared->Judge(network.GetSummary(*variable)) == DeclaredDomain::Fit::kWidened) {
      if (!budget_.Spend(1, domain, diagnostics_)) return false;
      const std::array arguments = {*variable};
      model_.AddOrigin(network.Emplace<Membership>(arguments, declared->GetValues()), domain);
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
    const Domain& domain, const KivOmbiObjectDescriptor& kind) {
  if (domain.form == Domain::Form::kAny) return Values{};
  if (IsBoolean(kind)) return CompileTruth(domain);
  if (!IsInteger(kind)) {
    diagnostics_.Add(domain.range,
                     "variables of kind '" + kind.GetName() + "' can only be declared as Any");
    return std::nullopt;
  }
  const std::optional<DeclaredDomain> integers = CompileIntegers(domain);
  if (!integers) return std::nullopt;
  if (integers->JudgeKind(kind) == DeclaredDomain::Fit::kLost) {
    ReportLost(*integers, kind, domain.range);
    return std::nullopt;
  }
  return *integers;
}

std::optional<DeclarationCompiler::Values> DeclarationCompiler::CompileTruth(const Domain& domain) {
  if (domain.form == Domain::Form::kValues && domain.elements.size() == 1) {
    if (const auto* truth = std::get_if<BooleanLiteral>(&domain.elements.front().form)) {
      return truth->value;
    }
  }
  diagnostics_.Add(domain.range, "the domain of a 'bool' is true, false or Any");
  return std::nullopt;
}

std::optional<DeclaredDomain> DeclarationCompiler::CompileIntegers(const Domain& domain) {
  std::vector<std::int32_t> values;
  for (const Expression& element : domain.elements) {
    if (const auto value = CompileInteger(element)) values.push_back(*value);
  }
  if (values.size() != domain.elements.size()) return std::nullopt;
  const bool is_interval = domain.form == Domain::Form::kInterval;
  if (values.empty() || (is_interval && values[0] > values[1])) {
    diagnostics_.Add(domain.range, "the domain is empty");
    return std::nullopt;
  }
  return is_interval ? DeclaredDomain::FromInterval(values[0], values[1])
                     : DeclaredDomain::FromValues(std::move(values));
}

std::optional<std::int32_t> DeclarationCompiler::CompileInteger(const Expression& expression) {
  const auto value = expressions_.CompileConstant(expression, "a value of a domain");
  if (!value) return std::nullopt;
  if (!IsModelInteger(*value)) {
    diagnostics_.Add(expression.range,
                     "the value " + std::to_string(*value) + " is outside " + Range());
    return std::nullopt;
  }
  return static_cast<std::int32_t>(*value);
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
