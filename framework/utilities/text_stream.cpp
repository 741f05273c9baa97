#include "framework/utilities/text_stream.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>
#include <utility>

#include "framework/intervals/sub_int_base.h"

namespace {

// The functions of <cctype> would ask the locale.
bool IsBlank(char c) noexcept { return c == ' ' || ('\t' <= c && c <= '\r'); }
bool IsDigit(char c) noexcept { return '0' <= c && c <= '9'; }
char ToLower(char c) noexcept {
  return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
bool IsWordCharacter(char c) noexcept {
  return IsDigit(c) || ('a' <= ToLower(c) && ToLower(c) <= 'z') || c == '_';
}

std::size_t CountBlanks(std::string_view text) noexcept {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsBlank) -
                                  text.begin());
}

// The length of the 32-bit integer with which `text` begins, or 0 when it begins with none; then
// `value` is left alone.
std::size_t ScanNumber(std::string_view text, std::int32_t& value) noexcept {
  // from_chars knows "-" but not "+".
  const bool plus = text.starts_with('+');
  if (plus && (text.size() == 1 || !IsDigit(text[1]))) return 0;
  const char* const begin = text.data();
  const auto [end, error] = std::from_chars(begin + plus, begin + text.size(), value);
  return error == std::errc() ? static_cast<std::size_t>(end - begin) : 0;
}

struct Keyword {
  std::string_view text;  // in small letters
  KivNumToken token;
};

constexpr std::array<Keyword, 9> kKeywords = {{{"[", kKivInterval},
                                               {"{", kKivSet},
                                               {"min", kKivMin},
                                               {"-inf", kKivMinusInfinity},
                                               {"max", kKivMax},
                                               {"inf", kKivPlusInfinity},
                                               {"+inf", kKivPlusInfinity},
                                               {"any", kKivAny},
                                               {"nil", kKivNil}}};

bool StartsWith(std::string_view text, const Keyword& keyword) noexcept {
  const std::size_t length = keyword.text.size();
  const std::string_view head = text.substr(0, length);
  if (!std::equal(head.begin(), head.end(), keyword.text.begin(), keyword.text.end(),
                  [](char c, char k) { return ToLower(c) == k; })) {
    return false;
  }
  const bool is_word = IsWordCharacter(keyword.text.back());
  return !is_word || text.size() == length || !IsWordCharacter(text[length]);
}

}  // namespace

Kivostrstream& Kivostrstream::operator<<(const char* text) {
  text_ += text;
  return *this;
}

Kivostrstream& Kivostrstream::operator<<(const std::string& text) {
  text_ += text;
  return *this;
}

Kivostrstream& Kivostrstream::operator<<(std::int32_t value) {
  text_ += std::to_string(value);
  return *this;
}

Kivistrstream::Kivistrstream(std::string text) : text_(std::move(text)) {}

Kivistrstream& Kivistrstream::operator>>(char& character) {
  if (position_ < text_.size()) {
    character = text_[position_++];
  } else {
    character = '\0';
    Raise(kEnd | kFailure);
  }
  return *this;
}

Kivistrstream& Kivistrstream::operator>>(std::int32_t& value) {
  const std::string_view rest = Rest();
  const std::size_t blanks = CountBlanks(rest);
  value = 0;
  if (const std::size_t length = ScanNumber(rest.substr(blanks), value); length > 0) {
    position_ += blanks + length;
  } else {
    Clear(kFailure);
  }
  return *this;
}

Kivistrstream& ws(Kivistrstream& in) {
  in.position_ += CountBlanks(in.Rest());
  return in;
}

int CheckNumString(Kivistrstream& in) {
  const std::string_view rest = ws(in).Rest();
  const auto found = std::find_if(kKeywords.begin(), kKeywords.end(), [&](const Keyword& keyword) {
    return StartsWith(rest, keyword);
  });
  if (found == kKeywords.end()) return kKivNumber;
  in.position_ += found->text.size();
  return found->token;
}

std::int32_t GetSIValue(Kivistrstream& in) {
  const std::size_t start = in.position_;
  switch (CheckNumString(in)) {
    case kKivMin:
    case kKivMinusInfinity:
      return SubIntBase::kMin;
    case kKivMax:
    case kKivPlusInfinity:
      return SubIntBase::kMax;
    default:
      break;
  }
  // A bracket or a word of another meaning is no integer: it stays for whoever reads on.
  in.position_ = start;
  std::int32_t value = 0;
  in >> value;
  return value;
}
