#pragma once

namespace kiv::fzn {

// How fzn-kiv ends; docs/exit_codes.md tells users the same.
enum ExitCode : int {
  kNormal = 0,    // the status lines tell the rest
  kBadInput = 1,  // the command line or the text is wrong, or not supported
  kFailure = 2,   // an internal error, no memory left, or output that could not be written
};

}  // namespace kiv::fzn
