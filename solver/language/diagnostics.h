#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/source_text.h"

namespace kiv {

// One thing that is wrong with a model.
struct Diagnostic {
  std::optional<SourceRange> range;  // none when it concerns no part of the text
  std::string text;
  std::vector<std::string> notes;  // lines that tell more, such as what would have been right
};

// What is wrong with a model, in the order in which it was found. Each place is reported once and
// no more than kMost places, so that a mistake in a loop does not drown the others.
class KIV_EXPORT Diagnostics {
 public:
  static constexpr std::size_t kMost = 20;

  // `source` must outlive this.
  explicit Diagnostics(const SourceText& source) : source_(source) {}

  void Add(SourceRange range, std::string text, std::vector<std::string> notes = {});
  // About the model as a whole.
  void Add(std::string text, std::vector<std::string> notes = {});

  bool IsEmpty() const noexcept { return list_.empty(); }
  bool IsFull() const noexcept { return list_.size() >= kMost; }
  // How many were reported so far, for telling whether something added to them.
  std::size_t Count() const noexcept { return list_.size(); }
  // The text that the ranges are parts of.
  const SourceText& GetSource() const noexcept { return source_; }
  const std::vector<Diagnostic>& GetAll() const noexcept { return list_; }

  // Each as "name:line:column: error: text", the line of the model, a caret line under the range
  // and the notes.
  void PrintOn(std::ostream& out) const;

 private:
  void PrintExcerpt(std::ostream& out, SourceRange range) const;

  const SourceText& source_;
  std::vector<Diagnostic> list_;
};

}  // namespace kiv
