// The text form against the plain reader and writer, on soups of tokens and on random domains.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/random_domains.h"
#include "tests/reference/text_form.h"

namespace {

using namespace kiv::test;
using kiv::reference::EnumSet;
using kiv::reference::Reading;

Reading ReadBack(const std::string& text, KivOmbEnumInteger& domain) {
  Kivistrstream in(text);
  domain.InputValue(in);
  return {Read(domain), in.State(), in.Position()};
}

std::string RandomNumber(Random& random) {
  switch (random.Between(0, 9)) {
    case 0:
      return std::to_string(random.Between(-2147483648LL, 2147483647));
    case 1:
      return std::to_string(random.Between(-2147483648LL, -2147483644LL));
    case 2:
      return std::to_string(random.Between(2147483643, 2147483647));
    case 3:
      return std::to_string(random.Between(1020, 1027));
    case 4:
      return "99999999999";
    default:
      return std::to_string(random.Between(-12, 12));
  }
}

std::string RandomToken(Random& random) {
  static const std::vector<std::string> tokens = {
      "[",     "]",   "{",   "}",    ",",    ",",   ",",    ", ",  " ",     "\t", "\n", ";",
      "Min",   "max", "Inf", "-Inf", "+inf", "Any", "nil",  "aNy", "Nilly", "_",  "-",  "+",
      "Maxim", "x",   "0",   "00",   "+7",   "",    "\x80", "(",   "{ ",    "[ ", " }", " ]"};
  if (random.OneIn(3)) return RandomNumber(random);
  return tokens[static_cast<std::size_t>(
      random.Between(0, static_cast<std::int64_t>(tokens.size()) - 1))];
}

std::string Soup(Random& random) {
  std::string text;
  for (std::int32_t n = random.Between(0, 12); n > 0; --n) text += RandomToken(random);
  return text;
}

// A text in form, up to a fault here and there.
std::string NearlyValid(Random& random) {
  const auto separator = [&](const std::string& right) {
    return random.OneIn(40) ? RandomToken(random) : right;
  };
  const auto value = [&] { return random.OneIn(40) ? RandomToken(random) : RandomNumber(random); };
  const auto blank = [&] { return std::string(random.OneIn(2) ? " " : ""); };
  if (random.OneIn(3)) {
    return blank() + "[" + blank() + value() + separator(",") + blank() + value() + blank() +
           separator("]");
  }
  std::string text = "{";
  // Rarely as many as the cap.
  const bool is_long = random.OneIn(100);
  const std::int32_t count = is_long ? random.Between(1022, 1026) : random.Between(1, 12);
  for (std::int32_t i = 0; i < count; ++i) {
    if (i > 0) text += separator(",");
    text += blank();
    text += is_long && !random.OneIn(500) ? std::to_string(2 * i) : value();
  }
  return text + blank() + separator("}");
}

TEST(TextFormDifferential, AnyTextIsReadAsThePlainReaderDoes) {
  Random random;
  for (int i = 0; i < 100000; ++i) {
    const std::string text = random.OneIn(2) ? Soup(random) : NearlyValid(random);
    KivOmbEnumInteger domain = Made(RandomSmallSet(random));
    const Reading expected = kiv::reference::ReadText(text);
    const Reading actual = ReadBack(text, domain);
    ASSERT_EQ(actual.set, expected.set) << text;
    ASSERT_EQ(actual.state, expected.state) << text;
    ASSERT_EQ(actual.position, expected.position) << text;
  }
}

// The leftover flag is no part of the text; a set that was read has that of Nil.
TEST(TextFormDifferential, EachDomainPrintsAsThePlainOneAndReadsBackAsItWas) {
  Random random;
  for (int i = 0; i < 20000; ++i) {
    EnumSet set = RandomSet(random);
    Kivostrstream out;
    Made(set).PrintOn(out);
    ASSERT_EQ(out.Str(), kiv::reference::PrintText(set));
    KivOmbEnumInteger domain = Made(RandomSmallSet(random));
    if (!set.IsAny()) set.flag = 0;
    ASSERT_EQ(ReadBack(out.Str(), domain), (Reading{set, 0, out.Str().size()})) << out.Str();
  }
}

}  // namespace
