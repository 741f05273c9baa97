#pragma once

#include <cstdint>
#include <optional>

#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/environment.h"
#include "framework/base/export.h"

namespace kiv {

// constant + of_x * x + of_y * y + of_product * x * y, which fits 63 bits for all values of
// domains.
struct Bilinear {
  std::int64_t constant = 0;
  std::int64_t of_x = 0;
  std::int64_t of_y = 0;
  std::int64_t of_product = 0;
};

// z = form(x, y) for three different arguments whose bounds are at rest: leaves each the values
// that are part of a solution over the domains left, as far as its kind can lose the others. For
// each value of one operand those of the other are looked at that take z between its bounds, which
// finds what supports all three in one go; running again would change nothing. None, with nothing
// done, where an operand has too many values or one of the arguments is not known.
KIV_EXPORT std::optional<KivOmbiFilterResult> NarrowBilinear(
    const KivOmbiObjectEnvironment& environment, unsigned x, unsigned y, unsigned z, Bilinear form);

}  // namespace kiv
