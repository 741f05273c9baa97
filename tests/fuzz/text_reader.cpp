// Reads a text by operations in any order. The first byte tells how many bytes choose operations;
// the rest is the text. When the choices end, the text is read to its end as a reader of values
// would.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

#include "framework/utilities/text_stream.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

void ReadCharacter(Kivistrstream& in, std::size_t length) {
  const std::size_t before = in.Position();
  char character = '?';
  in >> character;
  if (before < length) {
    Require(in.Position() == before + 1);
  } else {
    Require(character == '\0' && in.Position() == length);
    Require((in.State() & 3) == (Kivpstream::kEnd | Kivpstream::kFailure));
  }
}

// Runs a reading of a number, which fails without a trace in the text, or succeeds without one in
// the state.
template <class Read>
void ReadNumber(Kivistrstream& in, Read read) {
  const std::size_t before = in.Position();
  const int state = in.State();
  const std::int32_t value = read();
  if (in.Position() == before) {
    Require(value == 0 && in.State() == Kivpstream::kFailure);
  } else {
    Require(in.Position() > before && in.State() == state);
  }
}

void ReadToken(Kivistrstream& in) {
  const int state = in.State();
  const int token = CheckNumString(in);
  Require(kKivNumber <= token && token <= kKivSet && in.State() == state);
}

void Apply(unsigned operation, Kivistrstream& in, std::size_t length) {
  switch (operation % 6) {
    case 0:
      return ReadCharacter(in, length);
    case 1:
      return ReadNumber(in, [&] {
        std::int32_t value = 77;
        in >> value;
        return value;
      });
    case 2:
      return ReadNumber(in, [&] { return GetSIValue(in); });
    case 3:
      return ReadToken(in);
    case 4:
      in >> ws;
      return;
    default:
      return in.Clear(static_cast<int>(operation / 6 % 8));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> input(data, size);
  if (input.empty()) return 0;
  const std::size_t choices = std::min<std::size_t>(input[0], input.size() - 1);
  const auto text = input.subspan(1 + choices);
  Kivistrstream in(std::string(text.begin(), text.end()));
  for (const std::uint8_t operation : input.subspan(1, choices)) {
    const std::size_t before = in.Position();
    Apply(operation, in, text.size());
    Require(before <= in.Position() && in.Position() <= text.size());
  }
  in.Clear();
  for (std::size_t rounds = 0; (in.State() & Kivpstream::kEnd) == 0; ++rounds) {
    Require(rounds <= text.size());
    ReadToken(in);
    ReadNumber(in, [&] { return GetSIValue(in); });
    in >> ws;
    ReadCharacter(in, text.size());
  }
  return 0;
}
