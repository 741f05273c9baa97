#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <string>

#include "framework/utilities/text_stream.h"

namespace {

char ReadCharacter(Kivistrstream& in) {
  char character = '?';
  in >> character;
  return character;
}

std::int32_t ReadInteger(Kivistrstream& in) {
  std::int32_t value = 77;
  in >> value;
  return value;
}

void ExpectInteger(const std::string& text, std::int32_t value, std::size_t consumed) {
  Kivistrstream in(text);
  EXPECT_EQ(ReadInteger(in), value) << text;
  EXPECT_EQ(in.State(), 0) << text;
  EXPECT_EQ(in.Position(), consumed) << text;
}

void ExpectNoInteger(const std::string& text) {
  Kivistrstream in(text);
  EXPECT_EQ(ReadInteger(in), 0) << text;
  EXPECT_EQ(in.State(), 2) << text;
  EXPECT_EQ(in.Position(), 0U) << text;
}

TEST(StreamState, IsMadeOfBits) {
  EXPECT_EQ(Kivpstream::kGood, 0);
  EXPECT_EQ(Kivpstream::kEnd, 1);
  EXPECT_EQ(Kivpstream::kFailure, 2);
  EXPECT_EQ(Kivpstream::kBad, 4);
}

TEST(StreamState, IsSetByClearToItsArgument) {
  Kivistrstream in("");
  in.Clear(5);
  EXPECT_EQ(in.State(), 5);
  in.Clear(2);
  EXPECT_EQ(in.State(), 2);
  in.Clear();
  EXPECT_EQ(in.State(), 0);
}

TEST(InputTextStream, GivesCharactersBlanksIncluded) {
  Kivistrstream in("a \n");
  EXPECT_EQ(ReadCharacter(in), 'a');
  EXPECT_EQ(ReadCharacter(in), ' ');
  EXPECT_EQ(ReadCharacter(in), '\n');
  EXPECT_EQ(in.State(), 0) << "the end is not met before it is asked for";
}

TEST(InputTextStream, GivesNulAtTheEndAndSetsTwoBits) {
  Kivistrstream in("");
  EXPECT_EQ(ReadCharacter(in), '\0');
  EXPECT_EQ(in.State(), Kivpstream::kEnd | Kivpstream::kFailure);
  in.Clear(Kivpstream::kBad);
  EXPECT_EQ(ReadCharacter(in), '\0');
  EXPECT_EQ(in.State(), 7) << "the two are added";
}

TEST(InputTextStream, TellsANulOfTheTextFromTheEnd) {
  Kivistrstream in(std::string("\0x", 2));
  EXPECT_EQ(ReadCharacter(in), '\0');
  EXPECT_EQ(in.State(), 0);
  EXPECT_EQ(ReadCharacter(in), 'x');
}

TEST(InputTextStream, SkipsBlanksOnlyWhenAsked) {
  Kivistrstream in(" \t\n\v\f\r x");
  in >> ws;
  EXPECT_EQ(in.Position(), 7U);
  in >> ws;
  EXPECT_EQ(in.Position(), 7U) << "what is no blank stays";
  EXPECT_EQ(ReadCharacter(in), 'x');
  in >> ws;
  EXPECT_EQ(in.State(), 0) << "skipping at the end is no failure";
}

TEST(InputTextStream, ReadsADecimalIntegerWithAnOptionalSign) {
  ExpectInteger("0", 0, 1);
  ExpectInteger("42", 42, 2);
  ExpectInteger("+42", 42, 3);
  ExpectInteger("-42", -42, 3);
  ExpectInteger("-0", 0, 2);
  ExpectInteger(" \n 7", 7, 4);
  ExpectInteger("000000000000000007", 7, 18);
}

TEST(InputTextStream, EndsAnIntegerWhereItsDigitsEnd) {
  ExpectInteger("12,", 12, 2);
  ExpectInteger("12abc", 12, 2);
  ExpectInteger("1-2", 1, 1);
  ExpectInteger("0x10", 0, 1);
  ExpectInteger("1.5", 1, 1);
}

TEST(InputTextStream, ReadsIntegersUpToTheEndsOf32Bits) {
  ExpectInteger("2147483647", 2147483647, 10);
  ExpectInteger("-2147483647", -2147483647, 11);
  ExpectInteger("-2147483648", -2147483647 - 1, 11);
}

TEST(InputTextStream, FailsOnAnIntegerThatDoesNotFit) {
  ExpectNoInteger("2147483648");
  ExpectNoInteger("-2147483649");
  ExpectNoInteger("4294967296");
  ExpectNoInteger("+99999999999999999999999999999999999999");
}

TEST(InputTextStream, FailsOnWhatIsNoInteger) {
  for (const char* text :
       {"", " ", "x", "-", "+", "--1", "+-1", "-+1", "- 1", "+ 1", ",", "Max", "\xff"}) {
    ExpectNoInteger(text);
  }
}

TEST(InputTextStream, SetsTheStateOfAFailedIntegerToFailureAlone) {
  Kivistrstream in("x");
  in.Clear(Kivpstream::kEnd | Kivpstream::kBad);
  ReadInteger(in);
  EXPECT_EQ(in.State(), Kivpstream::kFailure);
}

TEST(InputTextStream, GoesOnReadingWhateverItsState) {
  Kivistrstream in("12 x 34");
  in.Clear(7);
  EXPECT_EQ(ReadInteger(in), 12);
  EXPECT_EQ(in.State(), 7) << "success clears nothing";
  EXPECT_EQ(ReadInteger(in), 0);
  EXPECT_EQ(in.State(), 2);
  in >> ws;
  EXPECT_EQ(ReadCharacter(in), 'x');
  EXPECT_EQ(ReadInteger(in), 34);
  EXPECT_EQ(in.State(), 2);
}

TEST(InputTextStream, AsksNoLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  // Whether or not the machine has this locale, the result is the same.
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  ExpectInteger("1234567", 1234567, 7);
  ExpectInteger("1.234", 1, 1);
  ExpectNoInteger(
      "\xc2\xa0"
      "1");
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
