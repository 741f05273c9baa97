#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "framework/base/export.h"
#include "framework/intervals/hull.h"
#include "framework/networks/network.h"
#include "solver/language/operand.h"

namespace kiv {

// Where the values of an expression lie, and at most how many there are.
struct ValueWidth {
  // From this count on there may be more than any kind lists.
  static constexpr std::uint64_t kMostCounted = std::uint64_t{1} << 31;

  Hull hull;
  std::uint64_t count;
};

// How wide the values of integer expressions are, by the domains of a network before it is
// propagated; a variable that holds the value of an expression is as wide as that.
class KIV_EXPORT ValueWidths {
 public:
  // It must outlive this.
  explicit ValueWidths(const KivOmbNetwork& network) : network_(network) {}

  ValueWidth Of(const Operand& operand) const;
  // Of what an operator makes of two values, or of `left` alone when it is unary. An unknown one
  // may make anything.
  static ValueWidth Apply(std::string_view symbol, const ValueWidth& left, const ValueWidth* right);
  // The variable is the value of an expression of this width.
  void Note(KivOmbNetwork::VariableId variable, const ValueWidth& width);

 private:
  ValueWidth Of(KivOmbNetwork::VariableId variable) const;

  const KivOmbNetwork& network_;
  std::unordered_map<KivOmbNetwork::VariableId, ValueWidth> noted_;
};

}  // namespace kiv
