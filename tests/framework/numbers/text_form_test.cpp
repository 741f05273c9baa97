// What the kinds print and read.

#include <gtest/gtest.h>

#include <random>

#include "tests/framework/numbers/domain.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

constexpr int kFailure = Kivpstream::kFailure;

// The domain of a kind read from `text`, with the stream's state behind it unless that is good.
template <class Kind>
std::string Reading(const std::string& text) {
  Kind domain;
  domain.SetNilValue();
  Kivistrstream in(text);
  domain.InputValue(in);
  return in.State() == 0 ? Text(domain) : "state " + std::to_string(in.State());
}

const auto kFailed = "state " + std::to_string(kFailure);

TEST(TextForm, AnIntegerPrintsAsItsNumberOrAsTheWordForItsState) {
  EXPECT_EQ(Text(KivOmbSingleInteger(-17)), "-17");
  EXPECT_EQ(Text(KivOmbSingleInteger()), "Any");
  EXPECT_EQ(Text(Interval(1, 0)), "Nil");
  EXPECT_EQ(Text(Interval(4, 4)), "4");
  EXPECT_EQ(Text(Interval(-4, 4)), "[-4, 4]");
  EXPECT_EQ(Text(Interval(kMin, 4)), "[Min, 4]");
  EXPECT_EQ(Text(Interval(4, kMax)), "[4, Max]");
  EXPECT_EQ(Text(KivOmbSingleInteger(kMax)), "Max");
  EXPECT_EQ(Text(KivOmbSingleInteger(kMin)), "Min");
  EXPECT_EQ(Text(KivOmbSingleInteger(kMax - 1)), "2147483646");
  EXPECT_EQ(Text(KivOmbSingleInteger(kMin + 1)), "-2147483646");
}

template <class Kind>
class NumberReading : public testing::Test {};
using NumberKinds = testing::Types<KivOmbSingleInteger, KivOmbIntervalInteger>;
TYPED_TEST_SUITE(NumberReading, NumberKinds);

TYPED_TEST(NumberReading, ReadsNumbersAndWords) {
  EXPECT_EQ(Reading<TypeParam>("5"), "5");
  EXPECT_EQ(Reading<TypeParam>("  -5 rest"), "-5");
  EXPECT_EQ(Reading<TypeParam>("+5"), "5");
  EXPECT_EQ(Reading<TypeParam>("any"), "Any");
  EXPECT_EQ(Reading<TypeParam>(" NIL"), "Nil");
  EXPECT_EQ(Reading<TypeParam>("Max"), "Max");
  EXPECT_EQ(Reading<TypeParam>("+Inf"), "Max");
  EXPECT_EQ(Reading<TypeParam>("Min"), "Min");
  EXPECT_EQ(Reading<TypeParam>("-inf"), "Min");
  EXPECT_EQ(Reading<TypeParam>("-2147483648"), "Min");
}

TYPED_TEST(NumberReading, TellsByTheStateWhatIsNoValue) {
  for (const char* text : {"", " ", "x", "Maximum", "2147483648", "-", "{ 1, 2 }", "true"}) {
    EXPECT_EQ(Reading<TypeParam>(text), kFailed) << text;
  }
}

TEST(TextForm, AnIntervalIsReadFromItsBounds) {
  using Kind = KivOmbIntervalInteger;
  EXPECT_EQ(Reading<Kind>("[1, 3]"), "[1, 3]");
  EXPECT_EQ(Reading<Kind>(" [ -3 ,3 ] tail"), "[-3, 3]");
  EXPECT_EQ(Reading<Kind>("[Min, 3]"), "[Min, 3]");
  EXPECT_EQ(Reading<Kind>("[-Inf, Inf]"), "Any");
  EXPECT_EQ(Reading<Kind>("[2, 2]"), "2");
  EXPECT_EQ(Reading<Kind>("[3, 1]"), "Nil");
}

TEST(TextForm, AWrongIntervalLeavesNilAndAFailure) {
  for (const char* text : {"[1; 3]", "[1, 3", "[1, 3)", "[", "[1", "[1,", "[x, 3]",
                           "[99999999999, 3]", "[[1, 2], 3]"}) {
    SCOPED_TRACE(text);
    KivOmbIntervalInteger domain = Interval(5, 6);
    Kivistrstream in(text);
    domain.InputValue(in);
    EXPECT_EQ(in.State(), kFailure);
    EXPECT_EQ(Text(domain), "Nil");
  }
  // A bound that is missing, too.
  EXPECT_EQ(Reading<KivOmbIntervalInteger>("[, 3]"), kFailed);
  EXPECT_EQ(Reading<KivOmbIntervalInteger>("[1, ]"), kFailed);
}

TEST(TextForm, OneValueIsNotReadFromAnInterval) {
  KivOmbSingleInteger domain(4);
  Kivistrstream in("[4, 4]");
  domain.InputValue(in);
  EXPECT_EQ(in.State(), kFailure);
  EXPECT_EQ(Text(domain), "Nil");
}

TEST(TextForm, ReadingGoesOnBehindAValue) {
  Kivistrstream in("[1, 2][3, 4]5 true");
  KivOmbIntervalInteger first;
  first.InputValue(in);
  KivOmbIntervalInteger second;
  second.InputValue(in);
  KivOmbSingleInteger third;
  third.InputValue(in);
  KivOmbSingleBoolean fourth;
  fourth.InputValue(in);
  EXPECT_EQ(in.State(), 0);
  EXPECT_EQ(Text(first) + Text(second) + Text(third) + Text(fourth), "[1, 2][3, 4]5true");
}

TEST(TextForm, ABooleanIsAWord) {
  using Kind = KivOmbSingleBoolean;
  for (const char* word : {"true", "false", "Any", "Nil"}) {
    EXPECT_EQ(Reading<Kind>(word), word);
    EXPECT_EQ(Reading<Kind>(std::string(" ") + word + " rest"), word);
  }
  for (const char* text : {"", "t", "tru", "trie", "fals", "1", "0", "[true]", "{", "Max"}) {
    SCOPED_TRACE(text);
    Kind domain(true);
    Kivistrstream in(text);
    domain.InputValue(in);
    EXPECT_NE(in.State() & kFailure, 0);
    EXPECT_EQ(Text(domain), "Nil");
  }
}

TEST(TextForm, WhatIsPrintedIsReadBack) {
  for (const auto& domain : {Interval(1, 0), Interval(kMin, kMax), Interval(kMin, -1),
                             Interval(-1, kMax), Interval(-5, 5), Interval(kMax, kMax)}) {
    EXPECT_EQ(Reading<KivOmbIntervalInteger>(Text(domain)), Text(domain));
  }
  for (const std::int32_t value : {0, -1, kMin, kMax, kMin + 1, kMax - 1}) {
    const KivOmbSingleInteger domain(value);
    EXPECT_EQ(Reading<KivOmbSingleInteger>(Text(domain)), Text(domain));
  }
}

// Whatever the text, reading ends with a value that prints and reads back as itself.
template <class Kind>
void ReadAnything(const std::string& text) {
  Kivistrstream in(text);
  Kind domain;
  domain.InputValue(in);
  EXPECT_LE(in.Position(), text.size());
  EXPECT_EQ(Reading<Kind>(Text(domain)), Text(domain));
}

TEST(TextForm, NoTextLeavesAValueThatIsNone) {
  static constexpr const char* kPieces[] = {
      "[",   "]",   ",", "{", "}",    "1",     "-",          "9", "Min", "Max", "Any",
      "Nil", "Inf", " ", "+", "true", "false", "2147483647", "t", "\0",  "x",   "\t"};
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + 3000; ++seed) {
    SCOPED_TRACE(Replay(seed));
    std::mt19937_64 random(seed);
    std::string text;
    for (auto count = random() % 8; count > 0; --count) {
      text += kPieces[random() % std::size(kPieces)];
    }
    SCOPED_TRACE(text);
    ReadAnything<KivOmbSingleInteger>(text);
    ReadAnything<KivOmbIntervalInteger>(text);
    ReadAnything<KivOmbSingleBoolean>(text);
    if (testing::Test::HasFailure()) return;
  }
}

}  // namespace
}  // namespace kiv::test
