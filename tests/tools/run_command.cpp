#include "tests/tools/run_command.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace kiv::test {
namespace {

int Check(int result, const char* what) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), what);
  return result;
}

struct Pipe {
  int read = -1;
  int write = -1;

  // A pseudo terminal is a pipe, too, whose end for writing is a terminal.
  explicit Pipe(bool terminal = false) {
    if (terminal) {
      Check(openpty(&read, &write, nullptr, nullptr, nullptr), "openpty");
      Check(fcntl(read, F_SETFD, FD_CLOEXEC), "fcntl");
      Check(fcntl(write, F_SETFD, FD_CLOEXEC), "fcntl");
      return;
    }
    std::array<int, 2> ends;
    Check(pipe2(ends.data(), O_CLOEXEC), "pipe");
    read = ends[0];
    write = ends[1];
  }
  ~Pipe() {
    CloseRead();
    CloseWrite();
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  void CloseRead() { Close(read); }
  void CloseWrite() { Close(write); }

 private:
  static void Close(int& end) {
    if (end >= 0) close(end);
    end = -1;
  }
};

[[noreturn]] void BecomeProgram(const std::vector<std::string>& arguments,
                                const CommandSettings& settings, int in, int out, int err) {
  // A run that does not end fails its test instead of filling the memory.
  alarm(settings.seconds);
  std::string program = settings.program.empty() ? KIV_COMMAND : settings.program;
  std::vector<char*> list = {program.data()};
  for (const std::string& argument : arguments) list.push_back(const_cast<char*>(argument.c_str()));
  list.push_back(nullptr);
  if (!settings.output_file.empty()) out = open(settings.output_file.c_str(), O_WRONLY);
  if (dup2(in, STDIN_FILENO) < 0 || dup2(out, STDOUT_FILENO) < 0 || dup2(err, STDERR_FILENO) < 0 ||
      chdir(settings.folder.c_str()) != 0) {
    _exit(126);
  }
  execv(program.c_str(), list.data());
  _exit(127);
}

}  // namespace

bool HasTerminals() {
  int read = -1;
  int write = -1;
  if (openpty(&read, &write, nullptr, nullptr, nullptr) != 0) return false;
  close(read);
  close(write);
  return true;
}

CommandResult RunKiv(const std::vector<std::string>& arguments, const CommandSettings& settings) {
  std::signal(SIGPIPE, SIG_IGN);
  Pipe in, out, err(settings.terminal);
  const pid_t child = Check(fork(), "fork");
  if (child == 0) {
    std::signal(SIGPIPE, SIG_DFL);
    out.CloseRead();
    BecomeProgram(arguments, settings, in.read, out.write, err.write);
  }
  in.CloseRead();
  out.CloseWrite();
  err.CloseWrite();
  if (settings.close_output) out.CloseRead();

  CommandResult result;
  std::size_t written = 0;
  bool signalled = settings.stop_signal == 0;
  if (settings.input.empty()) in.CloseWrite();
  while (out.read >= 0 || err.read >= 0) {
    std::array<pollfd, 3> ends = {pollfd{in.write, POLLOUT, 0}, pollfd{out.read, POLLIN, 0},
                                  pollfd{err.read, POLLIN, 0}};
    Check(poll(ends.data(), ends.size(), -1), "poll");
    if (ends[0].revents != 0) {
      const ssize_t count =
          write(in.write, settings.input.data() + written, settings.input.size() - written);
      written += count > 0 ? static_cast<std::size_t>(count) : 0;
      if (count < 0 || written == settings.input.size()) in.CloseWrite();
    }
    const auto collect = [](const pollfd& end, Pipe& pipe, std::string& text) {
      if (end.revents == 0) return;
      std::array<char, 4096> buffer;
      const ssize_t count = read(pipe.read, buffer.data(), buffer.size());
      if (count <= 0) {
        pipe.CloseRead();
      } else {
        text.append(buffer.data(), static_cast<std::size_t>(count));
      }
    };
    collect(ends[1], out, result.output);
    collect(ends[2], err, result.errors);
    if (!signalled && !result.output.empty()) {
      signalled = true;
      Check(kill(child, settings.stop_signal), "kill");
    }
  }
  int status = 0;
  Check(waitpid(child, &status, 0), "waitpid");
  result.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  return result;
}

CommandResult RunKivOn(const std::string& model, std::vector<std::string> arguments) {
  CommandSettings settings;
  settings.input = model;
  arguments.push_back("-");
  return RunKiv(arguments, settings);
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string ReadSourceFile(const std::string& path) {
  std::ifstream in(std::string(KIV_SOURCE_DIR) + '/' + path);
  if (!in) throw std::runtime_error("cannot read " + path);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace kiv::test
