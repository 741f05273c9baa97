#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace kiv {

// A length of time as people write it: a decimal number, and ms, s, m or h behind it (seconds
// without): "10", "1.5", "500ms", "2m". None for any other text, and for more than 100000 hours.
std::optional<std::chrono::nanoseconds> ParseDuration(std::string_view text);

// "90 ms", "1.25 s", "2 min 05 s": short, for people.
std::string DescribeDuration(std::chrono::nanoseconds duration);

}  // namespace kiv
