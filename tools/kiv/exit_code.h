#pragma once

namespace kiv {

// How the command ends; docs/exit_codes.md tells users the same.
enum ExitCode : int {
  kSolved = 0,         // what was asked for was found or done
  kNoSolution = 1,     // there is none
  kBadInput = 2,       // the command line, the model or a module is wrong
  kUnknown = 3,        // it stays open: a limit, variables that stay unknown, or an overflow
  kFailure = 4,        // an internal error, or the output could not be written
  kInterrupted = 130,  // by SIGINT or SIGTERM
};

}  // namespace kiv
