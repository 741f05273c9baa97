#pragma once

#include <ostream>

#include "framework/intervals/hull.h"

namespace kiv {

// How a failed test shows a hull.
inline void PrintTo(const Hull& hull, std::ostream* out) {
  *out << "[" << hull.lower << ", " << hull.upper << "]";
}

}  // namespace kiv
