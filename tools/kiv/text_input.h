#pragma once

#include <string>

namespace kiv {

// The text of a file, or of standard input when its name is "-". Throws InputError for one that
// cannot be read.
std::string ReadText(const std::string& file);

}  // namespace kiv
