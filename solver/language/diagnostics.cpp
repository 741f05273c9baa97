#include "solver/language/diagnostics.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace kiv {

void Diagnostics::Add(SourceRange range, std::string text, std::vector<std::string> notes) {
  const auto same_place = [range](const Diagnostic& other) {
    return other.range && other.range->begin == range.begin;
  };
  if (IsFull() || std::any_of(list_.begin(), list_.end(), same_place)) return;
  list_.push_back({range, std::move(text), std::move(notes)});
}

void Diagnostics::Add(std::string text, std::vector<std::string> notes) {
  if (!IsFull()) list_.push_back({std::nullopt, std::move(text), std::move(notes)});
}

void Diagnostics::PrintOn(std::ostream& out) const {
  for (const Diagnostic& diagnostic : list_) {
    out << (diagnostic.range ? source_.DescribePosition(diagnostic.range->begin)
                             : source_.GetName())
        << ": error: " << diagnostic.text << '\n';
    if (diagnostic.range) PrintExcerpt(out, *diagnostic.range);
    for (const std::string& note : diagnostic.notes) out << "  " << note << '\n';
  }
  if (IsFull()) out << source_.GetName() << ": stopped after " << kMost << " errors\n";
}

void Diagnostics::PrintExcerpt(std::ostream& out, SourceRange range) const {
  // Of a line too long to be read, a window around the place is shown.
  constexpr std::size_t kLongestLine = 160;
  constexpr std::size_t kBefore = 60;

  std::string_view line = source_.GetLine(range.begin);
  std::size_t column = std::min(range.begin - source_.GetLineStart(range.begin), line.size());
  std::size_t length = std::max<std::size_t>(1, range.end - range.begin);
  if (line.size() > kLongestLine) {
    const std::size_t cut = column > kBefore ? column - kBefore : 0;
    line = line.substr(cut, kLongestLine);
    column -= cut;
  }
  length = std::min(length, std::max<std::size_t>(1, line.size() - column));

  // Tabs are kept in front of the caret, so that it stands below its character.
  std::string indent;
  for (const char c : line.substr(0, column)) {
    if (c == '\t') {
      indent += '\t';
    } else if (CountCharacters({&c, 1}) != 0) {
      indent += ' ';
    }
  }
  const std::size_t characters =
      std::max<std::size_t>(1, CountCharacters(line.substr(column, length)));
  out << "  " << Printable(line) << "\n  " << indent << '^' << std::string(characters - 1, '~')
      << '\n';
}

}  // namespace kiv
