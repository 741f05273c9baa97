#include "bench/search/process.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace kiv::bench {
namespace {

[[noreturn]] void Fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

[[noreturn]] void BecomeProgram(const std::vector<std::string>& command, int output,
                                std::chrono::seconds limit) {
  const rlimit seconds{static_cast<rlim_t>(limit.count()), static_cast<rlim_t>(limit.count())};
  setrlimit(RLIMIT_CPU, &seconds);
  dup2(output, STDOUT_FILENO);
  std::vector<char*> arguments;
  for (const std::string& argument : command)
    arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  execvp(arguments.front(), arguments.data());
  _exit(127);
}

std::string ReadAll(int descriptor) {
  std::string text;
  std::array<char, 1 << 16> buffer;
  while (true) {
    const ssize_t size = read(descriptor, buffer.data(), buffer.size());
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return text;
    text.append(buffer.data(), static_cast<std::size_t>(size));
  }
}

double SecondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

}  // namespace

Run RunProgram(const std::vector<std::string>& command, std::chrono::seconds limit) {
  std::array<int, 2> pipe_ends;
  if (pipe(pipe_ends.data()) != 0) Fail("pipe");
  const pid_t child = fork();
  if (child < 0) Fail("fork");
  if (child == 0) {
    close(pipe_ends[0]);
    BecomeProgram(command, pipe_ends[1], limit);
  }
  close(pipe_ends[1]);
  Run run;
  run.output = ReadAll(pipe_ends[0]);
  close(pipe_ends[0]);
  int status = 0;
  rusage usage{};
  while (wait4(child, &status, 0, &usage) < 0) {
    if (errno != EINTR) Fail("wait4");
  }
  run.succeeded = WIFEXITED(status) && WEXITSTATUS(status) == 0;
  run.seconds = SecondsOf(usage.ru_utime) + SecondsOf(usage.ru_stime);
  run.megabytes = static_cast<double>(usage.ru_maxrss) / 1024;
  return run;
}

}  // namespace kiv::bench
