#include "tests/reference/text_form.h"

namespace kiv::reference {
namespace {

// A stream that only knows characters.
struct Input {
  const std::string& text;
  std::size_t position = 0;
  int state = 0;

  char Peek(std::size_t ahead = 0) const {
    return position + ahead < text.size() ? text[position + ahead] : '\0';
  }

  char Take() {
    if (position == text.size()) {
      state |= 1 | 2;
      return '\0';
    }
    return text[position++];
  }

  void SkipBlanks() {
    while (position < text.size() && std::string(" \t\n\v\f\r").find(Peek()) != std::string::npos) {
      ++position;
    }
  }

  static bool IsLetterDigitOrUnderscore(char c) {
    return ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z') || ('0' <= c && c <= '9') || c == '_';
  }

  // Takes `word`, in small letters, when it stands here as a whole word in any letter case.
  bool TakeWord(const std::string& word) {
    for (std::size_t i = 0; i < word.size(); ++i) {
      char c = Peek(i);
      if ('A' <= c && c <= 'Z') c = static_cast<char>(c + 32);
      if (c != word[i]) return false;
    }
    if (IsLetterDigitOrUnderscore(Peek(word.size()))) return false;
    position += word.size();
    return true;
  }

  // A number after blanks; without one nothing is taken, not even the blanks.
  std::int32_t TakeNumber() {
    const std::size_t start = position;
    SkipBlanks();
    const bool negative = Peek() == '-';
    if (Peek() == '-' || Peek() == '+') ++position;
    std::int64_t magnitude = 0;
    int digits = 0;
    for (; '0' <= Peek() && Peek() <= '9'; ++position, ++digits) {
      if (magnitude < 10000000000) magnitude = 10 * magnitude + (Peek() - '0');
    }
    if (digits == 0 || magnitude > (negative ? 2147483648 : 2147483647)) {
      position = start;
      state = 2;
      return 0;
    }
    return static_cast<std::int32_t>(negative ? -magnitude : magnitude);
  }

  bool TakeLeast() { return TakeWord("min") || TakeWord("-inf"); }
  bool TakeGreatest() { return TakeWord("max") || TakeWord("inf") || TakeWord("+inf"); }

  // A number or a saturation word, after blanks.
  std::int32_t TakeValue() {
    const std::size_t start = position;
    SkipBlanks();
    if (TakeLeast()) return kMin;
    if (TakeGreatest()) return kMax;
    position = start;
    return TakeNumber();
  }
};

std::int64_t Clamped(std::int64_t v) { return v < kMin ? kMin : v; }

void AddUnique(EnumSet& d, std::int64_t v) {
  const auto value = static_cast<std::int32_t>(Clamped(v));
  auto place = d.values.begin();
  while (place != d.values.end() && *place < value) ++place;
  if (place == d.values.end() || *place != value) d.values.insert(place, value);
}

void ReadInterval(Input& in, EnumSet& d) {
  const std::int64_t a = in.TakeValue();
  in.SkipBlanks();
  if (in.Take() != ',') in.state = 2;
  const std::int64_t b = in.TakeValue();
  in.SkipBlanks();
  if (in.Take() != ']') in.state = 2;
  if (a > b) return;
  const std::int64_t n = (b - a + 1) % 4294967296;
  if (n >= static_cast<std::int64_t>(kCap)) return MakeAny(d);
  if (n == 0) return;
  for (std::int64_t v = a; v <= b; ++v) AddUnique(d, v);
}

void ReadSet(Input& in, EnumSet& d) {
  char c = ',';
  while (c == ',') {
    const std::int32_t v = in.TakeValue();
    if (d.values.size() >= kCap) return MakeAny(d);
    AddUnique(d, v);
    in.SkipBlanks();
    c = in.Take();
  }
  if (c == '}') return;
  in.state = 2;
  MakeNil(d);
}

}  // namespace

Reading ReadText(const std::string& text) {
  Input in{text};
  EnumSet d;
  in.SkipBlanks();
  if (in.Peek() == '[') {
    in.Take();
    ReadInterval(in, d);
  } else if (in.Peek() == '{') {
    in.Take();
    ReadSet(in, d);
  } else if (in.TakeLeast()) {
    AddUnique(d, kMin);
  } else if (in.TakeGreatest()) {
    AddUnique(d, kMax);
  } else if (in.TakeWord("any")) {
    MakeAny(d);
  } else if (!in.TakeWord("nil")) {
    AddUnique(d, in.TakeNumber());
  }
  return {d, in.state, in.position};
}

std::string PrintText(const EnumSet& set) {
  if (set.values.empty()) return set.IsAny() ? "Any" : "Nil";
  std::string text;
  for (const std::int32_t v : set.values) {
    if (!text.empty()) text += ", ";
    text += v == kMin ? " Min" : v == kMax ? " Max" : std::to_string(v);
  }
  return set.values.size() == 1 ? text : "{ " + text + " }";
}

}  // namespace kiv::reference
