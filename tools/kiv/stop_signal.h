#pragma once

#include <atomic>

namespace kiv {

// From now on SIGINT and SIGTERM raise the flag that is returned; a second one ends the process at
// once.
const std::atomic<bool>& CatchStopSignals();

}  // namespace kiv
