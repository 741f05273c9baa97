#include "tools/kiv/text_input.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <new>
#include <sstream>
#include <utility>

#include "tools/kiv/output.h"

namespace kiv {

namespace {

// A stream keeps what its buffer throws to itself.
std::string TakeText(std::ostringstream&& text) {
  if (text.bad()) throw std::bad_alloc();
  return std::move(text).str();
}

}  // namespace

std::string ReadText(const std::string& file) {
  std::ostringstream text;
  if (file == "-") {
    text << std::cin.rdbuf();
    return TakeText(std::move(text));
  }
  std::error_code error;
  if (std::filesystem::is_directory(file, error)) throw InputError(file + ": is a directory");
  errno = 0;
  std::ifstream in(file, std::ios::binary);
  if (in && in.peek() != std::ifstream::traits_type::eof()) text << in.rdbuf();
  if (in.bad() || !in.is_open()) throw InputError(file + ": " + std::strerror(errno));
  return TakeText(std::move(text));
}

}  // namespace kiv
