#pragma once

namespace kiv {

// How the command ends; docs/exit_codes.md tells users the same.
enum ExitCode : int {
  kSolved = 0,         // a solution was found, or what was asked for was done
  kNoSolution = 1,     // there is none
  kBadInput = 2,       // the command line, the model or a module is wrong
  kUnknown = 3,        // only possibilities with unknown variables were found, or an overflow
  kFailure = 4,        // an internal error, or the output could not be written
  kInterrupted = 130,  // by SIGINT or SIGTERM
};

}  // namespace kiv
