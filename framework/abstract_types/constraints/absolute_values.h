#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/environment.h"

namespace kiv {

// z = |a| for arguments a and z whose kinds list their values: one walk over both lists finds what
// either has to lose, and nothing is built or copied when that is nothing.
class AbsoluteValues {
 public:
  // Whether both arguments have lists, of finite values.
  static bool Suit(const KivOmbiObjectEnvironment& environment, unsigned a, unsigned z);
  KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment, unsigned a, unsigned z);

 private:
  std::vector<std::int32_t> lost_;
};

}  // namespace kiv
