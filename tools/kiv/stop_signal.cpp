#include "tools/kiv/stop_signal.h"

#include <csignal>
#include <cstdlib>

#include "tools/kiv/exit_code.h"

namespace kiv {
namespace {

std::atomic<bool> stop_requested = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler writes it");

extern "C" void HandleStopSignal(int) {
  if (stop_requested.exchange(true)) std::_Exit(kInterrupted);
}

}  // namespace

const std::atomic<bool>& CatchStopSignals() {
  struct sigaction action = {};
  action.sa_handler = HandleStopSignal;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;  // output that is under way is not cut
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
  return stop_requested;
}

}  // namespace kiv
