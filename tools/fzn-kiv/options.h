#pragma once

#include <CLI/App.hpp>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace kiv::fzn {

// What the command line asks for.
struct Options {
  std::string file;           // "-" for standard input
  bool all = false;           // every solution; of an optimisation, every one that is better
  bool intermediate = false;  // of an optimisation, every solution that is better
  std::optional<std::int64_t> wanted;  // so many solutions at most
  bool free = false;
  bool statistics = false;
  bool verbose = false;
  std::int64_t threads = 1;
  std::int64_t seed = 0;
  std::optional<std::int64_t> time_limit;  // in milliseconds, from the start

  void AddTo(CLI::App& app);
};

}  // namespace kiv::fzn
