#include "tools/fzn-kiv/watchdog.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <limits>
#include <system_error>
#include <utility>

namespace kiv::fzn {
namespace {

// How long who looks at the flag may take to conclude.
constexpr std::chrono::milliseconds kGrace{300};

int Check(int result, const char* what) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), what);
  return result;
}

sigset_t StopSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  return signals;
}

int OpenSignals() {
  const sigset_t signals = StopSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  return Check(signalfd(-1, &signals, SFD_CLOEXEC), "signalfd");
}

// The time from now on as poll takes it: in milliseconds, rounded up; -1 for no end.
int TimeoutUntil(std::optional<Watchdog::Clock::time_point> time) {
  if (!time) return -1;
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(*time - Watchdog::Clock::now());
  return static_cast<int>(
      std::clamp<std::int64_t>(rest.count(), 0, std::numeric_limits<int>::max()));
}

}  // namespace

Watchdog::Watchdog(std::optional<Clock::time_point> deadline, std::function<void()> conclude)
    : conclude_(std::move(conclude)),
      signals_(OpenSignals()),
      done_(Check(eventfd(0, EFD_CLOEXEC), "eventfd")),
      thread_([this, deadline] { Watch(deadline); }) {}

Watchdog::~Watchdog() {
  eventfd_write(done_, 1);
  thread_.join();
  close(done_);
  close(signals_);
}

void Watchdog::Watch(std::optional<Clock::time_point> deadline) {
  if (WaitUntil(deadline) == Event::kDone) return;
  stop_ = true;
  if (WaitUntil(Clock::now() + kGrace) == Event::kDone) return;
  // From here on a signal ends the process at once, should the conclusion take long as well.
  const sigset_t signals = StopSignals();
  pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
  conclude_();
}

Watchdog::Event Watchdog::WaitUntil(std::optional<Clock::time_point> time) const {
  while (true) {
    std::array<pollfd, 2> files = {pollfd{done_, POLLIN, 0}, pollfd{signals_, POLLIN, 0}};
    const int ready = poll(files.data(), files.size(), TimeoutUntil(time));
    if (ready < 0) continue;  // interrupted
    if (files[0].revents != 0) return Event::kDone;
    if (files[1].revents != 0) {
      signalfd_siginfo signal;
      [[maybe_unused]] const ssize_t size = read(signals_, &signal, sizeof signal);
      return Event::kSignal;
    }
    if (time && Clock::now() >= *time) return Event::kTime;
  }
}

}  // namespace kiv::fzn
