#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include "framework/base/export.h"
#include "framework/networks/network.h"
#include "solver/language/array_shape.h"
#include "solver/language/diagnostics.h"
#include "solver/language/integer_set.h"
#include "solver/language/source_text.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

// What the names of a model stand for while it is compiled.
class KIV_EXPORT Scope {
 public:
  // A parameter, or the variable of a loop in its body.
  struct Constant {
    std::int64_t value;
  };
  struct Truth {
    bool value;
  };
  struct Set {
    std::shared_ptr<const IntegerSet> values;
  };
  // A parameter of several values, row by row; truth values are 0 and 1.
  struct ConstantArray {
    ArrayShape shape;
    bool are_truths;
    std::shared_ptr<const std::vector<std::int64_t>> values;
  };
  struct Scalar {
    KivOmbNetwork::VariableId variable;
  };
  // Variables numbered one after the other, row by row.
  struct Array {
    ArrayShape shape;
    KivOmbNetwork::VariableId first;
  };
  // A name whose declaration is wrong: its uses are no further mistakes.
  struct Broken {};
  using Meaning = std::variant<Constant, Truth, Set, ConstantArray, Scalar, Array, Broken>;

  struct Entry {
    Meaning meaning;
    SourceRange declared;
  };

  // Null when the name stands for nothing.
  const Entry* Find(const std::string& name) const;
  // False, and nothing is changed, when the name stands for something already.
  bool Declare(const std::string& name, Meaning meaning, SourceRange declared);
  void Remove(const std::string& name);
  std::vector<std::string> GetNames() const;

 private:
  std::unordered_map<std::string, Entry> entries_;
};

// Gives a name its meaning; false, reported, when it has one already.
KIV_EXPORT bool DeclareName(Scope& scope, const Word& name, Scope::Meaning meaning,
                            Diagnostics& diagnostics);

}  // namespace kiv
