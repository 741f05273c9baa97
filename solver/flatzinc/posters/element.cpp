#include "solver/flatzinc/poster_table.h"

namespace kiv::flatzinc {

std::span<const Poster> ElementPosters() { return {}; }

}  // namespace kiv::flatzinc
