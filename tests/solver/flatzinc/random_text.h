#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/solver/flatzinc/builtin_meaning.h"
#include "tests/support/enumeration.h"
#include "tests/support/random.h"

namespace kiv::test {

// A random FlatZinc model: a few variables with few values each, of all shapes of domains, and
// builtin constraints over them, with constants and repeated variables among their arguments, and
// with annotations, which must not matter for the solutions.
class RandomText {
 public:
  explicit RandomText(Generator& random);

  // Adds a constraint of this name, which has a poster and a meaning.
  void AddConstraint(std::string_view name);

  std::string Write() const;
  // The values of each variable that enumeration has to try.
  std::vector<Values> GetDomains() const;
  bool Holds(const Assignment& values) const;

 private:
  struct Term {
    std::int64_t constant;
    std::optional<std::size_t> variable = std::nullopt;
  };
  struct Argument {
    bool is_boolean = false;
    bool is_array = false;
    bool is_set = false;
    std::vector<Term> terms = {};
  };
  struct Variable {
    std::string declaration;  // up to its name
    bool is_boolean;
    Values values;
    std::optional<Term> initialiser = std::nullopt;
  };
  struct Constraint {
    std::string name;
    BuiltinMeaning meaning;
    std::vector<Argument> arguments;
    std::string annotation;
  };

  void AddInteger();
  void AddBoolean();
  void AddRelation(std::string_view name, std::vector<Argument> arguments);
  std::optional<Term> PickInitialiser(bool is_boolean);
  Term PickTerm(bool is_boolean, bool is_constant, bool may_be_huge);
  Argument PickSet(bool may_be_huge);
  std::optional<std::size_t> PickVariable(bool is_boolean);
  std::string Write(const Term& term, bool is_boolean) const;
  std::string Write(const Argument& argument) const;

  Generator& random_;
  std::vector<Variable> variables_;
  std::vector<Constraint> constraints_;
};

}  // namespace kiv::test
