#pragma once

#include <string>
#include <vector>

namespace kiv::test {

// How a run of the command ended.
struct CommandResult {
  int exit_code = -1;  // minus the number of the signal that ended it
  std::string output;  // standard output
  std::string errors;  // standard error
};

// What is special about a run.
struct CommandSettings {
  std::string input;          // on standard input
  std::string output_file;    // where standard output goes instead; it is not collected then
  std::string folder = ".";   // the working directory
  int stop_signal = 0;        // sent as soon as the first output has arrived
  bool close_output = false;  // nobody reads standard output
  bool terminal = false;      // standard error is a terminal
  unsigned seconds = 60;      // a run that takes longer is ended, and so fails its test
  std::string program;        // run instead of `kiv`, when it is not empty
};

// Whether this machine has pseudo terminals to offer; some containers have none.
bool HasTerminals();

// Runs the built `kiv` with these arguments and waits for its end. Throws std::system_error when it
// cannot be started.
CommandResult RunKiv(const std::vector<std::string>& arguments,
                     const CommandSettings& settings = {});

// Runs `kiv` with these arguments and behind them "-" for `model` on standard input.
CommandResult RunKivOn(const std::string& model, std::vector<std::string> arguments);

// The lines of a text, without their ends.
std::vector<std::string> Lines(const std::string& text);

// The text of a file of the source tree.
std::string ReadSourceFile(const std::string& path);

}  // namespace kiv::test
