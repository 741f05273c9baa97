#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "framework/base/export.h"

namespace kiv {

// A part of a text, by byte offsets: from `begin` up to, not including, `end`.
struct SourceRange {
  std::uint32_t begin = 0;
  std::uint32_t end = 0;

  friend bool operator==(const SourceRange&, const SourceRange&) = default;
};

// The smallest range that holds both.
inline SourceRange Join(SourceRange a, SourceRange b) {
  return {a.begin < b.begin ? a.begin : b.begin, a.end > b.end ? a.end : b.end};
}

// A place in a text as people count: both from 1, columns in characters.
struct SourcePosition {
  std::size_t line = 1;
  std::size_t column = 1;
};

// The text of a model together with the name under which messages speak of it.
class KIV_EXPORT SourceText {
 public:
  // Longer texts are refused by ParseModel, so that an offset always fits a SourceRange.
  static constexpr std::size_t kMaxSize = std::size_t{1} << 30;

  SourceText(std::string name, std::string text);

  const std::string& GetName() const noexcept { return name_; }
  std::string_view GetText() const noexcept { return text_; }

  // Where the byte at `offset` stands; an offset behind the end means the end. Logarithmic in the
  // number of lines.
  SourcePosition Locate(std::size_t offset) const;
  // "name:line:column".
  std::string DescribePosition(std::size_t offset) const;
  // The line that holds `offset`, without its end.
  std::string_view GetLine(std::size_t offset) const;
  // The offset at which that line begins.
  std::size_t GetLineStart(std::size_t offset) const;
  // The text of `range` on one line, cut short when it is long: for messages.
  std::string Quote(SourceRange range) const;

 private:
  std::string name_;
  std::string text_;
  std::vector<std::size_t> line_starts_;
};

// `text` fit for a terminal: control characters become '?'.
KIV_EXPORT std::string Printable(std::string_view text);

// The number of characters of UTF-8 text; a stray byte counts as part of the character before it.
KIV_EXPORT std::size_t CountCharacters(std::string_view text);

}  // namespace kiv
