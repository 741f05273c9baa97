#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

#include "framework/intervals/sub_int_base.h"
#include "framework/utilities/text_stream.h"

namespace {

void ExpectToken(const std::string& text, int token, std::size_t consumed) {
  Kivistrstream in(text);
  EXPECT_EQ(CheckNumString(in), token) << '"' << text << '"';
  EXPECT_EQ(in.Position(), consumed) << '"' << text << '"';
  EXPECT_EQ(in.State(), 0) << '"' << text << '"';
}

void ExpectValue(const std::string& text, std::int32_t value, std::size_t consumed) {
  Kivistrstream in(text);
  EXPECT_EQ(GetSIValue(in), value) << '"' << text << '"';
  EXPECT_EQ(in.Position(), consumed) << '"' << text << '"';
  EXPECT_EQ(in.State(), 0) << '"' << text << '"';
}

void ExpectNoValue(const std::string& text) {
  Kivistrstream in(text);
  EXPECT_EQ(GetSIValue(in), 0) << '"' << text << '"';
  EXPECT_EQ(in.Position(), 0U) << '"' << text << '"';
  EXPECT_EQ(in.State(), 2) << '"' << text << '"';
}

TEST(NumToken, IsAnOpeningBracketWhichIsConsumed) {
  ExpectToken("[1, 2]", 1, 1);
  ExpectToken("{1, 2}", 8, 1);
  ExpectToken("[[", 1, 1);
}

TEST(NumToken, IsAKeywordWhichIsConsumedWhole) {
  ExpectToken("Min", 2, 3);
  ExpectToken("-Inf", 6, 4);
  ExpectToken("Max", 3, 3);
  ExpectToken("Inf", 7, 3);
  ExpectToken("+Inf", 7, 4);
  ExpectToken("Any", 4, 3);
  ExpectToken("Nil", 5, 3);
}

TEST(NumToken, MayBeInAnyLetterCase) {
  ExpectToken("MIN", 2, 3);
  ExpectToken("min", 2, 3);
  ExpectToken("-INF", 6, 4);
  ExpectToken("mAX", 3, 3);
  ExpectToken("+inf", 7, 4);
  ExpectToken("aNy", 4, 3);
  ExpectToken("nIL", 5, 3);
}

TEST(NumToken, ComesAfterAnyBlanks) {
  ExpectToken(" \t\n[", 1, 4);
  ExpectToken("  {", 8, 3);
  ExpectToken("\r\n Max", 3, 6);
  ExpectToken("   ", 0, 3);
}

TEST(NumToken, MayEndAtAnyCharacterThatBelongsToNoWord) {
  for (const char* after : {",", "]", "}", " ", "-", "\n", "("}) {
    ExpectToken(std::string("Max") + after, 3, 3);
    ExpectToken(std::string("-Inf") + after, 6, 4);
  }
}

TEST(NumToken, IsNoKeywordInALongerWord) {
  for (const char* text : {"Maximum", "Minimum", "Infinity", "+Infinity", "-Infinity", "Anything",
                           "Nile", "Max1", "Max_", "_Max", "xMax", "InfInf"}) {
    ExpectToken(text, 0, 0);
  }
}

TEST(NumToken, IsANumberOtherwiseAndNothingIsConsumed) {
  for (const char* text : {"", "5", "-5", "+5", "x", "Ma", "In", "- Inf", "+Max", "-Min", "-", "+",
                           "]", "}", ",", "(", "--Inf"}) {
    ExpectToken(text, 0, 0);
  }
}

TEST(SIValue, IsADecimalIntegerWithAnOptionalSign) {
  ExpectValue("17", 17, 2);
  ExpectValue("+17", 17, 3);
  ExpectValue(" -17,", -17, 4);
  ExpectValue("2147483647", 2147483647, 10);
  ExpectValue("-2147483648", -2147483647 - 1, 11);
}

TEST(SIValue, IsASaturationWord) {
  ExpectValue("Min", SubIntBase::kMin, 3);
  ExpectValue(" min,", SubIntBase::kMin, 4);
  ExpectValue("-Inf", SubIntBase::kMin, 4);
  ExpectValue("Max", SubIntBase::kMax, 3);
  ExpectValue("Inf", SubIntBase::kMax, 3);
  ExpectValue("+INF]", SubIntBase::kMax, 4);
}

TEST(SIValue, ThatIsNoIntegerIsZeroAndAFailure) {
  for (const char* text : {"", " ", "x", "-", "[", " [1", "{", "Any", "Nil", " nil", "Maximum",
                           "+Max", "]", "}", ","}) {
    ExpectNoValue(text);
  }
}

TEST(SIValue, ThatDoesNotFitIsZeroAndAFailure) {
  ExpectNoValue("2147483648");
  ExpectNoValue("-2147483649");
  ExpectNoValue(" 123456789012345678901234567890");
}

TEST(SIValue, ThatFailsSetsTheStateToFailureAlone) {
  Kivistrstream in("x");
  in.Clear(Kivpstream::kEnd | Kivpstream::kBad);
  GetSIValue(in);
  EXPECT_EQ(in.State(), Kivpstream::kFailure);
}

TEST(SIValue, LeavesTheStateAloneOtherwise) {
  Kivistrstream in("1 Max");
  in.Clear(Kivpstream::kBad);
  EXPECT_EQ(GetSIValue(in), 1);
  EXPECT_EQ(GetSIValue(in), SubIntBase::kMax);
  EXPECT_EQ(in.State(), Kivpstream::kBad);
}

TEST(TextReading, GoesOnAfterAWrongSeparator) {
  Kivistrstream in("{ 1; Max }");
  EXPECT_EQ(CheckNumString(in), kKivSet);
  EXPECT_EQ(GetSIValue(in), 1);
  char separator = ' ';
  in >> ws >> separator;
  EXPECT_EQ(separator, ';');
  in.Clear(Kivpstream::kFailure);
  EXPECT_EQ(GetSIValue(in), SubIntBase::kMax);
  in >> ws >> separator;
  EXPECT_EQ(separator, '}');
  EXPECT_EQ(in.State(), Kivpstream::kFailure);
}

// A reader that takes a character in every round comes to the end, whatever else it does and
// whatever the text is.
TEST(TextReading, AlwaysEnds) {
  constexpr std::array<const char*, 14> kPieces = {
      "[", "{", "Max", "-Inf", "Nil", "Maxi", ",", "}", "-1", "2147483648", "+", " ", "x", "Any"};
  std::mt19937 random(20240229);
  for (int round = 0; round < 1000; ++round) {
    std::string text;
    for (auto i = random() % 12; i > 0; --i) text += kPieces[random() % kPieces.size()];
    Kivistrstream in(text);
    std::size_t characters = 0;
    for (char character = ' '; (in.State() & Kivpstream::kEnd) == 0; ++characters) {
      ASSERT_LE(characters, text.size()) << text;
      const std::size_t before = in.Position();
      CheckNumString(in);
      GetSIValue(in);
      ASSERT_GE(in.Position(), before) << text;
      in >> ws >> character;
    }
    ASSERT_EQ(in.Position(), text.size()) << text;
  }
}

}  // namespace
