#pragma once

#include "framework/calculator/descriptor.h"

namespace kiv::test {

// Which sets of values a kind of domain can hold, besides Any and Nil.
enum class KindShape {
  kTruth,     // truth values
  kOneValue,  // one integer
  kInterval,  // all integers between two bounds
  kSet,       // any few integers
};

// Found by trying, so that a kind of a new module needs no entry anywhere.
KindShape ShapeOf(const KivOmbiObjectDescriptor& kind);

}  // namespace kiv::test
