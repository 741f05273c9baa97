#pragma once

#include <cstdint>
#include <optional>

#include "framework/networks/network.h"

namespace kiv {

// An integer variable to be made as small or as large as possible.
struct Objective {
  enum class Sense { kMinimize, kMaximize };

  KivOmbNetwork::VariableId variable = 0;
  Sense sense = Sense::kMinimize;
};

// The bound that the best solution so far sets to all that follow: theirs must be better. It stands
// outside the network and is imposed at each node, so that taking levels back cannot lose it.
class KIV_EXPORT ObjectiveBound {
 public:
  explicit ObjectiveBound(const Objective& objective) : objective_(objective) {}

  // Takes the value of the objective, which must be fixed, as the best.
  void Record(const KivOmbNetwork& network);
  std::optional<std::int32_t> GetBest() const noexcept { return best_; }

  // Whether the objective has no better value as the network stands.
  bool Excludes(const KivOmbNetwork& network) const;

  // Narrows the objective to better values. An objective of which nothing is known may stay so
  // until more is. Returns whether anything changed; an objective that cannot be better is emptied.
  bool Impose(KivOmbNetwork& network) const;

 private:
  Objective objective_;
  std::optional<std::int32_t> best_;
};

}  // namespace kiv
