#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <thread>

namespace kiv::fzn {

// Waits in a thread of its own for SIGINT, SIGTERM or the end of the time, and then raises a flag
// that ends the search. Who does not look at the flag soon enough, because a text is still being
// read or one constraint takes long, is overtaken: the watchdog itself concludes.
//
// Must be made before any other thread, which would take the signals.
class Watchdog {
 public:
  using Clock = std::chrono::steady_clock;

  // `conclude` is called in the watchdog's thread when the flag has not led to an end in time, or
  // when a second signal comes; it must end the process.
  Watchdog(std::optional<Clock::time_point> deadline, std::function<void()> conclude);
  // Stops watching.
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  const std::atomic<bool>& GetStopFlag() const noexcept { return stop_; }

 private:
  enum class Event { kSignal, kTime, kDone };

  void Watch(std::optional<Clock::time_point> deadline);
  // The next event; never kTime without a time.
  Event WaitUntil(std::optional<Clock::time_point> time) const;

  std::function<void()> conclude_;
  std::atomic<bool> stop_ = false;
  int signals_;  // a file that can be read when a signal has come
  int done_;     // one that can be read when the watching is to stop
  std::thread thread_;
};

}  // namespace kiv::fzn
