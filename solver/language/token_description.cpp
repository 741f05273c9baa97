#include "solver/language/token_description.h"

namespace kiv {
namespace {

bool IsWordCharacter(char c) {
  return ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z') || ('0' <= c && c <= '9') || c == '_';
}

}  // namespace

std::string QuoteWord(std::string_view word) {
  constexpr std::size_t kLongest = 60;
  const bool is_long = word.size() > kLongest;
  return '\'' + std::string(word.substr(0, kLongest)) + (is_long ? "...'" : "'");
}

TokenDescription DescribeToken(std::string_view text) {
  if (text.empty()) return {"the end of the model", 0};
  std::size_t length = 0;
  while (length < text.size() && IsWordCharacter(text[length])) ++length;
  if (length > 0) return {QuoteWord(text.substr(0, length)), length};
  const auto byte = static_cast<unsigned char>(text.front());
  if (0x20 < byte && byte < 0x7F) return {QuoteWord(text.substr(0, 1)), 1};
  constexpr char kDigits[] = "0123456789ABCDEF";
  return {std::string("the byte 0x") + kDigits[byte / 16] + kDigits[byte % 16], 1};
}

}  // namespace kiv
