#include "solver/flatzinc/error.h"

namespace kiv::flatzinc {

Error::Error(std::uint32_t offset, const std::string& text)
    : std::runtime_error(text), offset_(offset) {}

Error::~Error() = default;

}  // namespace kiv::flatzinc
