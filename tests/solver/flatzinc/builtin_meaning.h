#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kiv::test {

// The arguments of a constraint once its variables have values: an array or a set element by
// element, anything else as one element. A boolean is 0 or 1.
using BuiltinArguments = std::vector<std::vector<std::int64_t>>;

// What a builtin constraint of FlatZinc means, as plainly as that can be said.
class BuiltinMeaning {
 public:
  using Predicate = bool (*)(const BuiltinArguments& arguments);

  // Of this name; none for a name that has no meaning here. "name_reif" and "name_imp" mean that
  // the last argument is true if and only if, or only if, "name" holds of the others.
  static std::optional<BuiltinMeaning> Find(std::string_view name);

  bool Holds(BuiltinArguments arguments) const;

 private:
  enum class Form { kPlain, kReified, kImplied };

  BuiltinMeaning(Predicate holds, Form form) : holds_(holds), form_(form) {}

  Predicate holds_;
  Form form_;
};

}  // namespace kiv::test
