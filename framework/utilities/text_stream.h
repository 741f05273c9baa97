#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "framework/base/export.h"

// The state that all streams share: a set of bits, 0 when all is well. State bits never stop an
// operation; they tell what happened.
class KIV_EXPORT Kivpstream {
 public:
  enum StateBit { kGood = 0, kEnd = 1, kFailure = 2, kBad = 4 };

  int State() const noexcept { return state_; }
  // Sets the state to `state`.
  void Clear(int state = kGood) noexcept { state_ = state; }

 protected:
  Kivpstream() = default;
  ~Kivpstream() = default;
  Kivpstream(const Kivpstream&) = default;
  Kivpstream& operator=(const Kivpstream&) = default;

  void Raise(int bits) noexcept { state_ |= bits; }

 private:
  int state_ = kGood;
};

// Collects text.
class KIV_EXPORT Kivostrstream : public Kivpstream {
 public:
  Kivostrstream& operator<<(const char* text);
  Kivostrstream& operator<<(const std::string& text);
  Kivostrstream& operator<<(std::int32_t value);

  const std::string& Str() const noexcept { return text_; }

 private:
  std::string text_;
};

// Reads text from a string. Reading always ends and can go on after any failure: a character at the
// end is '\0' and adds the bits kEnd and kFailure; a number that fails is 0, consumes nothing and
// sets the state to kFailure. Blanks are the six of the C locale; no other locale has a say.
class KIV_EXPORT Kivistrstream : public Kivpstream {
 public:
  explicit Kivistrstream(std::string text);

  // The next character, blanks included.
  Kivistrstream& operator>>(char& character);
  // A decimal integer with an optional sign, after any blanks. It ends where its digits end; one
  // that does not fit 32 bits fails.
  Kivistrstream& operator>>(std::int32_t& value);
  Kivistrstream& operator>>(Kivistrstream& (*manipulator)(Kivistrstream&)) {
    return manipulator(*this);
  }

  // How many characters have been consumed.
  std::size_t Position() const noexcept { return position_; }

 private:
  std::string_view Rest() const noexcept { return std::string_view(text_).substr(position_); }

  friend KIV_EXPORT Kivistrstream& ws(Kivistrstream& in);
  friend KIV_EXPORT int CheckNumString(Kivistrstream& in);
  friend KIV_EXPORT std::int32_t GetSIValue(Kivistrstream& in);

  std::string text_;
  std::size_t position_ = 0;
};

// Skips blanks.
KIV_EXPORT Kivistrstream& ws(Kivistrstream& in);

// What CheckNumString finds.
enum KivNumToken {
  kKivNumber = 0,         // anything else; nothing is consumed
  kKivInterval = 1,       // "[", consumed
  kKivMin = 2,            // "Min", consumed
  kKivMax = 3,            // "Max", consumed
  kKivAny = 4,            // "Any", consumed
  kKivNil = 5,            // "Nil", consumed
  kKivMinusInfinity = 6,  // "-Inf", consumed
  kKivPlusInfinity = 7,   // "Inf" or "+Inf", consumed
  kKivSet = 8,            // "{", consumed
};

// Skips blanks and classifies the next item as one of KivNumToken. Keywords may be in any letter
// case and are whole words (of letters, digits and underscores): "Maximum" is no keyword.
KIV_EXPORT int CheckNumString(Kivistrstream& in);

// Reads a decimal integer with an optional sign, or a saturation word ("Min", "-Inf", "Max", "Inf",
// "+Inf"; the ends of the range of SubIntBase), after any blanks. What is no integer, or does not
// fit 32 bits, sets the stream's state to kFailure, consumes nothing and gives 0.
KIV_EXPORT std::int32_t GetSIValue(Kivistrstream& in);
