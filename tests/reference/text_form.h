#pragma once

#include <cstddef>
#include <string>

#include "tests/reference/enum_set.h"

// The text form of the enumerated domain, character by character.
namespace kiv::reference {

// What came of reading a text.
struct Reading {
  EnumSet set;
  int state = 0;             // of the stream: 1 end, 2 failure
  std::size_t position = 0;  // how many characters were consumed

  friend bool operator==(const Reading&, const Reading&) = default;
};

Reading ReadText(const std::string& text);
std::string PrintText(const EnumSet& set);

}  // namespace kiv::reference
