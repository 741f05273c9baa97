#include "tools/kiv/progress_line.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>
#include <string>

#include "tools/kiv/duration.h"

namespace kiv {
namespace {

constexpr auto kPause = std::chrono::milliseconds(200);
// Back to the beginning of the line, and empties it.
constexpr const char* kErase = "\r\033[K";

std::size_t GetWidth() {
  struct winsize size = {};
  const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : 80;
}

std::string Describe(const SearchProgress& progress, std::chrono::nanoseconds time) {
  const SearchStatistics& statistics = progress.statistics;
  std::string text = DescribeDuration(time) + "  nodes " + std::to_string(statistics.nodes) +
                     "  failures " + std::to_string(statistics.failures) + "  restarts " +
                     std::to_string(statistics.restarts) + "  depth " +
                     std::to_string(progress.depth) + "  solutions " +
                     std::to_string(statistics.solutions);
  if (progress.best) text += "  best " + std::to_string(*progress.best);
  return text;
}

}  // namespace

bool ProgressLine::IsPossible() { return isatty(STDERR_FILENO) == 1; }

void ProgressLine::Show(const SearchProgress& progress) {
  const Clock::time_point now = Clock::now();
  if (now < next_) return;
  next_ = now + kPause;
  // A line that is wrapped could not be erased.
  const std::string text = Describe(progress, now - start_).substr(0, GetWidth() - 1);
  std::cerr << kErase + text << std::flush;
  visible_ = true;
}

void ProgressLine::Clear() {
  if (visible_) std::cerr << kErase << std::flush;
  visible_ = false;
}

}  // namespace kiv
