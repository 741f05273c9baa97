#include "tools/kiv/statement_cursor.h"

#include <algorithm>
#include <iterator>

namespace kiv {
namespace {

bool IsBlank(char c) { return c == ' ' || ('\t' <= c && c <= '\r'); }
bool IsDigit(char c) { return '0' <= c && c <= '9'; }
char ToLower(char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool IsWordCharacter(char c) {
  return IsDigit(c) || ('a' <= ToLower(c) && ToLower(c) <= 'z') || c == '_';
}

}  // namespace

bool IsValueWord(std::string_view word) {
  constexpr std::string_view kWords[] = {"any", "nil", "min", "max", "inf"};
  std::string lower(word);
  std::ranges::transform(lower, lower.begin(), ToLower);
  return std::ranges::find(kWords, lower) != std::end(kWords);
}

SourceRange StatementCursor::RangeFrom(std::size_t begin) const {
  return {static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(position_)};
}

SourceRange StatementCursor::RangeOfRest() const {
  return {static_cast<std::uint32_t>(position_), static_cast<std::uint32_t>(text_.size())};
}

void StatementCursor::Expect(const std::string& what) {
  SkipBlanks();
  throw StatementError{RangeFrom(position_), "expected " + what, {}};
}

char StatementCursor::Peek(std::size_t ahead) const {
  return position_ + ahead < text_.size() ? text_[position_ + ahead] : '\0';
}

void StatementCursor::SkipBlanks() {
  while (IsBlank(Peek())) ++position_;
}

bool StatementCursor::AtEnd() {
  SkipBlanks();
  return position_ == text_.size();
}

bool StatementCursor::Take(char c) {
  SkipBlanks();
  if (Peek() != c) return false;
  ++position_;
  return true;
}

std::string_view StatementCursor::PeekWord() {
  SkipBlanks();
  std::size_t length = 0;
  while (IsWordCharacter(Peek(length))) ++length;
  return text_.substr(position_, length);
}

std::string_view StatementCursor::TakeWord() {
  const std::string_view word = PeekWord();
  position_ += word.size();
  return word;
}

bool StatementCursor::IsNameAhead() {
  const std::string_view word = PeekWord();
  return !word.empty() && !IsDigit(word[0]);
}

const DomainOperator* StatementCursor::TakeOperator(
    const std::function<bool(const DomainOperator&)>& is_meant) {
  const std::string_view word = PeekWord();
  const DomainOperator* longest = nullptr;
  for (const DomainOperator& op : GetDomainOperators()) {
    const bool is_ahead =
        word.empty() ? text_.substr(position_).starts_with(op.symbol) : word == op.symbol;
    if (is_ahead && is_meant(op) &&
        (longest == nullptr || op.symbol.size() > longest->symbol.size())) {
      longest = &op;
    }
  }
  if (longest != nullptr) position_ += longest->symbol.size();
  return longest;
}

bool StatementCursor::IsSignedNumberAhead() {
  SkipBlanks();
  if (Peek() != '-' && Peek() != '+') return false;
  StatementCursor number = *this;
  ++number.position_;
  if (IsBlank(number.Peek())) return false;
  const std::string_view word = number.PeekWord();
  return !word.empty() && (IsDigit(word[0]) || IsValueWord(word));
}

bool StatementCursor::IsValueAhead() {
  const std::string_view word = PeekWord();
  if (!word.empty()) return IsDigit(word[0]) || IsValueWord(word);
  return Peek() == '{' || Peek() == '[' || IsSignedNumberAhead();
}

SourceRange StatementCursor::TakeValue() {
  SkipBlanks();
  const std::size_t begin = position_;
  if (Peek() == '{' || Peek() == '[') {
    const std::size_t end = text_.find(Peek() == '{' ? '}' : ']', begin);
    if (end == std::string_view::npos) {
      ++position_;
      throw StatementError{RangeFrom(begin), "this bracket is never closed", {}};
    }
    position_ = end + 1;
    return RangeFrom(begin);
  }
  if (IsSignedNumberAhead()) ++position_;
  if (TakeWord().empty()) Expect("a value");
  return RangeFrom(begin);
}

}  // namespace kiv
