#pragma once

namespace kiv {

// How much a constraint is asked to narrow.
enum class Strength {
  kAutomatic,  // what pays as a rule
  kBounds,     // bounds alone, even where domains hold values
  kDomain,     // every value of domains that hold values, however long that takes
};

}  // namespace kiv
