#pragma once

#include <vector>

#include "framework/networks/network.h"

namespace kiv {

// Which of several open variables is split next. Among equals the first in order.
enum class VariableChoice {
  kInputOrder,       // the first
  kFirstFail,        // fewest values
  kAntiFirstFail,    // most values
  kSmallest,         // least lower bound
  kLargest,          // greatest upper bound
  kMostConstrained,  // fewest values, then most constraints
  kMaxRegret,        // widest gap between its two smallest values
  kDomWDeg,          // fewest values for the weight of its constraints
  kActivity,         // most active for its number of values
};

// How the domain of a chosen variable is split in two: the part that is tried first, and the rest.
enum class ValueChoice {
  kSmallest,   // the smallest value
  kGreatest,   // the greatest value
  kLowerHalf,  // the lower half of the values
  kUpperHalf,  // the upper half
  kMiddle,     // the value nearest to the middle
  kRandom,     // some value
};

// Variables that are split while any of them can be, and how.
struct StrategyBlock {
  std::vector<KivOmbNetwork::VariableId> variables;
  VariableChoice variable_choice = VariableChoice::kInputOrder;
  ValueChoice value_choice = ValueChoice::kSmallest;
};

}  // namespace kiv
