#include "solver/flatzinc/poster_table.h"

namespace kiv::flatzinc {

std::span<const Poster> MembershipPosters() { return {}; }

}  // namespace kiv::flatzinc
