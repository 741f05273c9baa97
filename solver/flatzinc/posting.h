#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "solver/flatzinc/builder.h"

namespace kiv::flatzinc {

// One constraint of the text while it is being posted: its arguments, of the types that the poster
// declared. An argument that may be a variable may always be a constant too.
class KIV_EXPORT Posting {
 public:
  using VariableId = KivOmbNetwork::VariableId;

  Posting(Builder& builder, const Constraint& constraint)
      : builder_(builder), constraint_(constraint) {}

  Builder& GetBuilder() const noexcept { return builder_; }
  KivOmbNetwork& GetNetwork() const noexcept { return builder_.GetNetwork(); }
  const std::string& GetName() const { return builder_.GetModel().names[constraint_.name]; }
  std::size_t CountArguments() const noexcept { return constraint_.arguments; }
  Expression GetArgument(std::size_t i) const {
    return builder_.GetModel().GetArguments(constraint_)[i];
  }

  // Whether a boolean or integer argument, or an element of an array, is written as a constant.
  static bool IsConstant(Expression value);
  bool IsConstant(std::size_t i) const { return IsConstant(GetArgument(i)); }
  // A constant; a boolean is 0 or 1.
  std::int64_t GetInteger(std::size_t i) const { return GetArgument(i).GetValue(); }
  // The variable of the network for an argument or an element; a constant is a fixed variable.
  VariableId GetVariable(Expression value) const;
  VariableId GetVariable(std::size_t i) const { return GetVariable(GetArgument(i)); }

  // Of an array.
  std::span<const Expression> GetElements(std::size_t i) const;
  std::vector<std::int64_t> GetIntegers(std::size_t i) const;
  std::vector<VariableId> GetVariables(std::size_t i) const;

  // Of a constant set.
  Domain GetSet(Expression value) const;
  Domain GetSet(std::size_t i) const { return GetSet(GetArgument(i)); }

  // A constant as a value of a variable, refused where it is beyond those.
  std::int32_t NarrowConstant(std::int64_t value) const;
  std::uint32_t GetOffset() const noexcept { return constraint_.offset; }
  // Throws Error: "'name' text".
  [[noreturn]] void Refuse(const std::string& text) const;
  // Posts that there is no solution.
  void PostContradiction() const;

 private:
  Builder& builder_;
  const Constraint& constraint_;
};

// How constraints of one name are posted.
struct Poster {
  std::string_view name;
  // The type of each argument, a letter each: b and i a boolean and an integer, s a set of
  // integers; a capital an array of such; a letter after '=' must be constant. So "=IIi" is an
  // array of constant integers, an array of integers and an integer. Sets are always constant.
  std::string_view types;
  void (*post)(const Posting& posting);
};

}  // namespace kiv::flatzinc
