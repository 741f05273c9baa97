#include "tools/kiv/text_input.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <utility>

#include "tools/kiv/output.h"

namespace kiv {

std::string ReadText(const std::string& file) {
  std::ostringstream text;
  if (file == "-") {
    text << std::cin.rdbuf();
    return std::move(text).str();
  }
  std::error_code error;
  if (std::filesystem::is_directory(file, error)) throw InputError(file + ": is a directory");
  errno = 0;
  std::ifstream in(file, std::ios::binary);
  if (in && in.peek() != std::ifstream::traits_type::eof()) text << in.rdbuf();
  if (in.bad() || !in.is_open()) throw InputError(file + ": " + std::strerror(errno));
  return std::move(text).str();
}

}  // namespace kiv
