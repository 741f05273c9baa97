#pragma once

#include <cstdint>
#include <string>

// The bytes of a stream, put together by hand.

inline std::string Word(std::uint32_t value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(value >> shift & 0xff);
  return bytes;
}

inline std::string Text(const std::string& text) {
  return Word(static_cast<std::uint32_t>(text.size())) + text;
}

inline std::string NullPointer() { return Word(0); }

// The head of an object that comes for the first time.
inline std::string NewObject(const std::string& class_name) { return Word(1) + Text(class_name); }

inline std::string Reference(std::uint32_t number) { return Word(2) + Word(number); }
