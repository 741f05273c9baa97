#include "solver/flatzinc/poster_table.h"

namespace kiv::flatzinc {

std::span<const Poster> BooleanPosters() { return {}; }

}  // namespace kiv::flatzinc
