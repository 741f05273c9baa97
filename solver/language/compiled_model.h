#pragma once

#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "framework/base/export.h"
#include "framework/networks/network.h"
#include "solver/language/array_shape.h"
#include "solver/language/source_text.h"

namespace kiv {

// A model turned into a network: the variables that it declares and where each constraint comes
// from.
class KIV_EXPORT CompiledModel {
 public:
  // One declared name: a variable, or an array of `count` variables that are numbered from `first`
  // on, row by row.
  struct Variable {
    std::string name;
    ArrayShape shape;  // none for a single variable
    KivOmbNetwork::VariableId first;
    std::uint32_t count;
  };

  // `source` must outlive this.
  explicit CompiledModel(const SourceText& source) : source_(source) {}

  KivOmbNetwork& GetNetwork() noexcept { return network_; }
  const KivOmbNetwork& GetNetwork() const noexcept { return network_; }
  // In order of declaration; other variables of the network are values of expressions.
  const std::vector<Variable>& GetVariables() const noexcept { return variables_; }
  const SourceText& GetSource() const noexcept { return source_; }
  // The network's variables that were declared, in order.
  std::vector<KivOmbNetwork::VariableId> GetDeclared() const;
  // How the model calls a declared variable of the network: "x" or "q[3]"; empty for any other.
  std::string NameOf(KivOmbNetwork::VariableId variable) const;

  // The expression that a constraint comes from, with its place: "file:line:column: x < y".
  std::string Describe(KivOmbNetwork::ConstraintId constraint) const;

  // What the network holds now: a line "name = domain" or "name = [domain, domain]" for each
  // declared name, in the text form of the domains.
  void PrintOn(std::ostream& out) const;

  // For the compiler.
  void AddVariable(Variable variable) { variables_.push_back(std::move(variable)); }
  // Notes where the constraint that was just added to the network comes from.
  void AddOrigin(KivOmbNetwork::ConstraintId constraint, SourceRange origin);

 private:
  const SourceText& source_;
  KivOmbNetwork network_;
  std::vector<Variable> variables_;
  std::vector<SourceRange> origins_;  // by constraint
};

}  // namespace kiv
