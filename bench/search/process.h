#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace kiv::bench {

// A program that ran to its end.
struct Run {
  bool succeeded = false;  // it ended by itself, with exit code 0, and in time
  std::string output;      // standard output; standard error is not collected
  double seconds = 0;      // of the processor, in user and system mode
  double megabytes = 0;    // of memory at its peak
};

// Runs a program, looked for in PATH, and ends it after `limit` seconds of processor time. Throws
// std::system_error when no process can be started.
Run RunProgram(const std::vector<std::string>& command, std::chrono::seconds limit);

}  // namespace kiv::bench
