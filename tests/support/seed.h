#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

namespace kiv::test {

// What a random test starts from: the environment variable KIV_SEED, or `otherwise`.
inline std::uint64_t Seed(std::uint64_t otherwise) {
  const char* text = std::getenv("KIV_SEED");
  return text != nullptr ? std::strtoull(text, nullptr, 10) : otherwise;
}

// The command that replays a failure, for the trace of a test.
inline std::string Replay(std::uint64_t seed) {
  return "replay with KIV_SEED=" + std::to_string(seed);
}

}  // namespace kiv::test
