#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "solver/language/source_text.h"
#include "tools/kiv/domain_operator.h"

namespace kiv {

// Ends the reading of a statement: the text is wrong at this place.
struct StatementError {
  SourceRange range;
  std::string text;
  std::vector<std::string> notes;
};

// The words that are values wherever an operand may stand: "Any", "Min" and the like, in any letter
// case.
bool IsValueWord(std::string_view word);

// A place in the text of a statement, which moves forward by words, symbols and values. Each
// operation skips blanks first. A copy looks ahead.
class StatementCursor {
 public:
  // At the beginning of `text`, which must outlive the cursor.
  explicit StatementCursor(std::string_view text) : text_(text) {}

  std::size_t Position() const noexcept { return position_; }
  // From `begin` to here.
  SourceRange RangeFrom(std::size_t begin) const;
  SourceRange RangeOfRest() const;
  // Throws the error that `what` is missing here.
  [[noreturn]] void Expect(const std::string& what);

  void SkipBlanks();
  bool AtEnd();
  // Whether `c` is next; consumed if so.
  bool Take(char c);

  // The word ahead of letters, digits and underscores; empty when there is none.
  std::string_view PeekWord();
  std::string_view TakeWord();
  // A word that does not begin with a digit.
  bool IsNameAhead();

  // The operator ahead of the longest symbol among those that `is_meant` accepts, or null; consumed
  // if there is one.
  const DomainOperator* TakeOperator(const std::function<bool(const DomainOperator&)>& is_meant);

  // A number or a saturation word with a sign right before it.
  bool IsSignedNumberAhead();
  // What cannot be anything but a value: a bracket, a number or one of the value words.
  bool IsValueAhead();
  // The text of a value: up to the closing bracket, or a word with or without a sign. Throws
  // StatementError when there is none.
  SourceRange TakeValue();

 private:
  // The character ahead; '\\0' behind the end.
  char Peek(std::size_t ahead = 0) const;

  std::string_view text_;
  std::size_t position_ = 0;
};

}  // namespace kiv
