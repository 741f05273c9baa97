#pragma once

#include <string_view>

#include "tests/solver/flatzinc/global_call.h"

namespace kiv::test {

// A global constraint of Kiv's MiniZinc library: what it means, as plainly as that can be said, and
// how to make a random one.
struct Global {
  std::string_view name;
  bool (*holds)(const GroundArguments& arguments);
  void (*make)(GlobalCall& call);
};

const std::vector<Global>& AllGlobals();

}  // namespace kiv::test
