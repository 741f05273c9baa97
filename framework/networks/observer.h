#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "framework/base/export.h"

class KivOmbNetwork;

// Watches how the domains of a network are narrowed, as a trace does. It is told before and after
// each step that may narrow, with the constraint that runs, none when the change comes from outside
// (a decision of a search, a bound of an objective), and the variables that may change. Some may be
// named twice. After a step that came to a contradiction the constraint is the network's culprit.
// What backtracking restores is not told.
class KIV_EXPORT KivOmbiNetworkObserver {
 public:
  virtual ~KivOmbiNetworkObserver();

  virtual void BeforeStep(const KivOmbNetwork& network, std::optional<std::uint32_t> constraint,
                          std::span<const std::uint32_t> variables) = 0;
  virtual void AfterStep(const KivOmbNetwork& network, std::optional<std::uint32_t> constraint,
                         std::span<const std::uint32_t> variables) = 0;
};
