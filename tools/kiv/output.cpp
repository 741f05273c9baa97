#include "tools/kiv/output.h"

#include <cerrno>
#include <cstring>
#include <iostream>

namespace kiv {

void FlushOutput() {
  errno = 0;
  std::cout.flush();
  if (std::cout) return;
  // A write that failed before this call left no reason behind.
  const std::string reason = errno != 0 ? std::string(": ") + std::strerror(errno) : "";
  throw OutputError("cannot write to standard output" + reason);
}

std::string Count(std::uint64_t number, const std::string& noun) {
  return std::to_string(number) + ' ' + noun + (number == 1 ? "" : "s");
}

}  // namespace kiv
