#include "tools/kiv/duration.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <utility>

namespace kiv {
namespace {

constexpr std::array<std::pair<std::string_view, double>, 5> kUnits = {
    {{"", 1}, {"ms", 1e-3}, {"s", 1}, {"m", 60}, {"h", 3600}}};
constexpr double kMostSeconds = 100000.0 * 3600;

}  // namespace

std::optional<std::chrono::nanoseconds> ParseDuration(std::string_view text) {
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
  if (error != std::errc{}) return std::nullopt;
  for (const auto& [unit, factor] : kUnits) {
    if (std::string_view(rest, end) != unit) continue;
    const double seconds = number * factor;
    // Written so that what is no number at all is refused, too.
    if (!(seconds >= 0 && seconds <= kMostSeconds)) return std::nullopt;
    return std::chrono::nanoseconds(static_cast<std::int64_t>(seconds * 1e9));
  }
  return std::nullopt;
}

std::string DescribeDuration(std::chrono::nanoseconds duration) {
  const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(duration).count();
  std::array<char, 64> text;
  if (milliseconds < 1000) {
    std::snprintf(text.data(), text.size(), "%d ms", static_cast<int>(milliseconds));
  } else if (milliseconds < 60000) {
    std::snprintf(text.data(), text.size(), "%.2f s", static_cast<double>(milliseconds) / 1000);
  } else {
    std::snprintf(text.data(), text.size(), "%lld min %02d s",
                  static_cast<long long>(milliseconds / 60000),
                  static_cast<int>(milliseconds / 1000 % 60));
  }
  return text.data();
}

}  // namespace kiv
