#include "solver/flatzinc/poster_table.h"

namespace kiv::flatzinc {

std::span<const Poster> ArithmeticPosters() { return {}; }

}  // namespace kiv::flatzinc
