#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include "framework/base/export.h"
#include "framework/networks/network.h"
#include "solver/language/source_text.h"

namespace kiv {

// What the names of a model stand for while it is compiled.
class KIV_EXPORT Scope {
 public:
  // A parameter, or the variable of a loop in its body.
  struct Constant {
    std::int64_t value;
  };
  struct Scalar {
    KivOmbNetwork::VariableId variable;
  };
  // Variables numbered one after the other; the first has index 1.
  struct Array {
    KivOmbNetwork::VariableId first;
    std::uint32_t size;
  };
  // A name whose declaration is wrong: its uses are no further mistakes.
  struct Broken {};
  using Meaning = std::variant<Constant, Scalar, Array, Broken>;

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

}  // namespace kiv
