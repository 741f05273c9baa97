#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace kiv {

// Standard output does not take what is written to it: a full disk, a pipe that nobody reads.
struct OutputError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The command line, a file or a module is not what it must be.
struct InputError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Flushes standard output. Throws OutputError when what was written so far did not arrive.
void FlushOutput();

// "1 solution", "92 solutions".
std::string Count(std::uint64_t number, const std::string& noun);

}  // namespace kiv
