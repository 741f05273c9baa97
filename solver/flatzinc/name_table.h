#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "solver/flatzinc/expression.h"

namespace kiv::flatzinc {

// The names of a text, each once in the order of their first occurrence, and what they stand for.
// Finding a name takes time in proportion to its length and allocates nothing.
class NameTable {
 public:
  // Adds new names to `names`, which must outlive this and change by nobody else.
  explicit NameTable(std::vector<std::string>& names);

  // The place of `name` in `names`.
  std::uint32_t Find(std::string_view name);

  // What was declared for a name; before that, the name itself.
  Expression GetMeaning(std::uint32_t name) const { return meanings_[name]; }
  bool IsDeclared(std::uint32_t name) const { return !meanings_[name].Is(Expression::Kind::kName); }
  void Declare(std::uint32_t name, Expression meaning) { meanings_[name] = meaning; }

 private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t name = kFree;
  };
  static constexpr std::uint32_t kFree = UINT32_MAX;

  void Grow();

  std::vector<std::string>& names_;
  std::vector<Expression> meanings_;
  std::vector<Slot> slots_;  // a power of two, at most half of them taken; probed one by one
};

}  // namespace kiv::flatzinc
