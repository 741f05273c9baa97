#include "solver/language/source_text.h"

#include <algorithm>
#include <utility>

namespace kiv {
namespace {

bool IsContinuationByte(char c) { return (static_cast<unsigned char>(c) & 0xC0u) == 0x80u; }

bool IsBlank(char c) { return c == ' ' || ('\t' <= c && c <= '\r'); }

}  // namespace

SourceText::SourceText(std::string name, std::string text)
    : name_(std::move(name)), text_(std::move(text)), line_starts_{0} {
  for (std::size_t i = 0; i < text_.size(); ++i) {
    if (text_[i] == '\n') line_starts_.push_back(i + 1);
  }
}

std::size_t SourceText::GetLineStart(std::size_t offset) const {
  offset = std::min(offset, text_.size());
  return *std::prev(std::upper_bound(line_starts_.begin(), line_starts_.end(), offset));
}

SourcePosition SourceText::Locate(std::size_t offset) const {
  offset = std::min(offset, text_.size());
  const auto next = std::upper_bound(line_starts_.begin(), line_starts_.end(), offset);
  const std::size_t start = *std::prev(next);
  return {static_cast<std::size_t>(next - line_starts_.begin()),
          CountCharacters(GetText().substr(start, offset - start)) + 1};
}

std::string SourceText::DescribePosition(std::size_t offset) const {
  const SourcePosition position = Locate(offset);
  return name_ + ':' + std::to_string(position.line) + ':' + std::to_string(position.column);
}

std::string_view SourceText::GetLine(std::size_t offset) const {
  const std::string_view rest = GetText().substr(GetLineStart(offset));
  std::string_view line = rest.substr(0, rest.find('\n'));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::string SourceText::Quote(SourceRange range) const {
  constexpr std::size_t kLongest = 120;
  std::string quote;
  bool blank = false;
  for (const char c : GetText().substr(range.begin, range.end - range.begin)) {
    if (IsBlank(c)) {
      blank = true;
      continue;
    }
    // Cut between characters, never inside one.
    if (quote.size() >= kLongest && !IsContinuationByte(c)) return Printable(quote) + " ...";
    if (std::exchange(blank, false) && !quote.empty()) quote += ' ';
    quote += c;
  }
  return Printable(quote);
}

std::string Printable(std::string_view text) {
  std::string printable(text);
  for (char& c : printable) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte < 0x20 && c != '\t') || byte == 0x7F) c = '?';
  }
  return printable;
}

std::size_t CountCharacters(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuationByte(c); }));
}

}  // namespace kiv
