#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace kiv::test {

// What a random test starts from: the environment variable KIV_SEED, or `otherwise`.
inline std::uint64_t Seed(std::uint64_t otherwise) {
  const char* text = std::getenv("KIV_SEED");
  return text != nullptr ? std::strtoull(text, nullptr, 10) : otherwise;
}

// How often a random test tries that tries `in_release` times in a release: less often where
// assertions and sanitizers make each time dear.
constexpr std::uint64_t Times(std::uint64_t in_release) {
#ifdef NDEBUG
  return in_release;
#else
  return (in_release + 15) / 16;
#endif
}

// The command that replays a failure of the running test, for its trace.
inline std::string Replay(std::uint64_t seed) {
  std::string command = "replay with KIV_SEED=" + std::to_string(seed) + " " +
                        std::filesystem::read_symlink("/proc/self/exe").string();
  if (const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info()) {
    command += std::string(" --gtest_filter=") + test->test_suite_name() + "." + test->name();
  }
  return command;
}

}  // namespace kiv::test
