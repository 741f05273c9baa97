#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/storage/slot_memory.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

TEST(PrintedForm, OfNilAndAny) {
  EXPECT_EQ(Text(NilSet()), "Nil");
  EXPECT_EQ(Text(KivOmbEnumInteger()), "Any");
}

TEST(PrintedForm, OfOneValueHasNoBraces) {
  EXPECT_EQ(Text(Set({5})), "5");
  EXPECT_EQ(Text(Set({-5})), "-5");
}

TEST(PrintedForm, OfSeveralValuesIsAscendingInBraces) {
  EXPECT_EQ(Text(Set({2, 1})), "{ 1, 2 }");
  EXPECT_EQ(Text(Set({3, -1, 2})), "{ -1, 2, 3 }");
}

TEST(PrintedForm, OfTheInfinitiesKeepsALeadingBlankInEveryPosition) {
  EXPECT_EQ(Text(Set({kMax})), " Max");
  EXPECT_EQ(Text(Set({kMin})), " Min");
  EXPECT_EQ(Text(Set({kMin, 0})), "{  Min, 0 }");
  EXPECT_EQ(Text(Set({0, kMax})), "{ 0,  Max }");
}

TEST(PrintedForm, OfTheGreatestFiniteValuesIsANumber) {
  EXPECT_EQ(Text(Set({kMax - 1})), "2147483646");
  EXPECT_EQ(Text(Set({kMin + 1})), "-2147483646");
}

// What came of reading a text into a domain.
struct Reading {
  std::string text;  // the domain's
  int state;
  std::string rest;  // what was not consumed

  friend bool operator==(const Reading&, const Reading&) = default;
};

void PrintTo(const Reading& reading, std::ostream* out) {
  *out << reading.text << ", state " << reading.state << ", rest '" << reading.rest << "'";
}

Reading ReadInto(KivOmbEnumInteger& domain, const std::string& text) {
  Kivistrstream in(text);
  domain.InputValue(in);
  return {Text(domain), in.State(), text.substr(in.Position())};
}

Reading ReadNew(const std::string& text) {
  KivOmbEnumInteger domain = SetLeftAny({7, 8});
  return ReadInto(domain, text);
}

// "{ 1, 2, ..., count }", or without the closing brace.
std::string Listed(int count, const char* end = " }") {
  std::string text;
  for (int v = 1; v <= count; ++v) text += (v == 1 ? "{ " : ", ") + std::to_string(v);
  return text + end;
}

constexpr int kFailed = Kivpstream::kFailure;

TEST(InputValue, ReplacesWhatWasThereAndTheLeftoverFlag) {
  for (const char* text : {"Nil", "5", "{ 1, 2 }", "[1, 3]", "Min", "Max"}) {
    for (const KivOmbEnumInteger& old :
         {KivOmbEnumInteger(), NilSet(), SetLeftAny({5}), Set({1, 2, 3}), Range(1, 1024)}) {
      KivOmbEnumInteger domain(old);
      KivOmbEnumInteger fresh = NilSet();
      EXPECT_EQ(ReadInto(domain, text), ReadInto(fresh, text));
      EXPECT_EQ(Flag(domain), 0) << text;
    }
  }
}

TEST(InputValue, OfWords) {
  EXPECT_EQ(ReadNew("Any"), (Reading{"Any", 0, ""}));
  EXPECT_EQ(ReadNew(" any;"), (Reading{"Any", 0, ";"}));
  EXPECT_EQ(ReadNew("NIL x"), (Reading{"Nil", 0, " x"}));
}

TEST(InputValue, OfOneValueLeavesWhatFollows) {
  EXPECT_EQ(ReadNew("5"), (Reading{"5", 0, ""}));
  EXPECT_EQ(ReadNew(" -5, 6"), (Reading{"-5", 0, ", 6"}));
  EXPECT_EQ(ReadNew("+7]"), (Reading{"7", 0, "]"}));
}

TEST(InputValue, OfSaturationWordsIsTheInfinity) {
  for (const char* text : {"Min", " Min", "-Inf", "min"}) {
    EXPECT_EQ(ReadNew(text), (Reading{" Min", 0, ""})) << text;
  }
  for (const char* text : {"Max", " Max", "Inf", "+Inf", "MAX"}) {
    EXPECT_EQ(ReadNew(text), (Reading{" Max", 0, ""})) << text;
  }
}

TEST(InputValue, OfTheEndsOfTheRange) {
  EXPECT_EQ(ReadNew("2147483647"), (Reading{" Max", 0, ""}));
  EXPECT_EQ(ReadNew("2147483646"), (Reading{"2147483646", 0, ""}));
  EXPECT_EQ(ReadNew("-2147483647"), (Reading{" Min", 0, ""}));
  EXPECT_EQ(ReadNew("-2147483648"), (Reading{" Min", 0, ""}));
  EXPECT_EQ(ReadNew("2147483648"), (Reading{"0", kFailed, "2147483648"}));
  EXPECT_EQ(ReadNew("-2147483649"), (Reading{"0", kFailed, "-2147483649"}));
}

TEST(InputValue, OfWhatIsNoValueIsZeroAndFails) {
  EXPECT_EQ(ReadNew("x"), (Reading{"0", kFailed, "x"}));
  EXPECT_EQ(ReadNew(""), (Reading{"0", kFailed, ""}));
  EXPECT_EQ(ReadNew("Maximum"), (Reading{"0", kFailed, "Maximum"}));
  EXPECT_EQ(ReadNew("-"), (Reading{"0", kFailed, "-"}));
  EXPECT_EQ(ReadNew("}"), (Reading{"0", kFailed, "}"}));
}

TEST(InputValue, OfAnIntervalIsEachIntegerOfIt) {
  EXPECT_EQ(ReadNew("[1, 3]"), (Reading{"{ 1, 2, 3 }", 0, ""}));
  EXPECT_EQ(ReadNew(" [ -1 ,1 ] x"), (Reading{"{ -1, 0, 1 }", 0, " x"}));
  EXPECT_EQ(ReadNew("[4, 4]"), (Reading{"4", 0, ""}));
}

TEST(InputValue, OfAnIntervalTheWrongWayRoundIsNil) {
  EXPECT_EQ(ReadNew("[3, 1]"), (Reading{"Nil", 0, ""}));
  EXPECT_EQ(ReadNew("[2, 1]"), (Reading{"Nil", 0, ""}));
  EXPECT_EQ(ReadNew("[Max, Min]"), (Reading{"Nil", 0, ""}));
}

TEST(InputValue, OfAnIntervalOfAsManyIntegersAsTheCapIsAny) {
  KivOmbEnumInteger domain;
  EXPECT_EQ(ReadInto(domain, "[1, 1023]"), (Reading{Listed(1023), 0, ""}));
  EXPECT_EQ(domain.Count(), 1023u);
  EXPECT_EQ(ReadNew("[1, 1024]"), (Reading{"Any", 0, ""}));
  EXPECT_EQ(ReadNew("[Min, 0]"), (Reading{"Any", 0, ""}));
  EXPECT_EQ(ReadNew("[Min, Max]"), (Reading{"Any", 0, ""}));
  EXPECT_EQ(ReadNew("[-2147483648, 2147483646]"), (Reading{"Any", 0, ""}));
}

TEST(InputValue, OfTheWidestIntervalIsNilBecauseItsSizeWraps) {
  EXPECT_EQ(ReadNew("[-2147483648, 2147483647]"), (Reading{"Nil", 0, ""}));
  EXPECT_EQ(ReadNew("[-2147483648, Max]"), (Reading{"Nil", 0, ""}));
}

TEST(InputValue, OfAnIntervalAtTheEndsOfTheRange) {
  EXPECT_EQ(ReadNew("[2147483646, Inf]"), (Reading{"{ 2147483646,  Max }", 0, ""}));
  EXPECT_EQ(ReadNew("[-Inf, -2147483646]"), (Reading{"{  Min, -2147483646 }", 0, ""}));
  // The least 32-bit integer is minus infinity, too, and a value stands in a domain once.
  EXPECT_EQ(ReadNew("[-2147483648, -2147483646]"), (Reading{"{  Min, -2147483646 }", 0, ""}));
}

TEST(InputValue, OfAnIntervalWithAWrongSeparatorFailsAndIsWhatItsBoundsSay) {
  EXPECT_EQ(ReadNew("[1; 3]"), (Reading{"{ 1, 2, 3 }", kFailed, ""}));
  EXPECT_EQ(ReadNew("[1, 3} x"), (Reading{"{ 1, 2, 3 }", kFailed, " x"}));
  EXPECT_EQ(ReadNew("[1; 3)"), (Reading{"{ 1, 2, 3 }", kFailed, ""}));
  EXPECT_EQ(ReadNew("[3; 1]"), (Reading{"Nil", kFailed, ""}));
  EXPECT_EQ(ReadNew("[1; 5000]"), (Reading{"Any", kFailed, ""}));
}

TEST(InputValue, OfAnIntervalReadsABoundThatIsNoNumberAsZero) {
  EXPECT_EQ(ReadNew("[, 2]"), (Reading{"{ 0, 1, 2 }", kFailed, ""}));
  EXPECT_EQ(ReadNew("[-2,]"), (Reading{"{ -2, -1, 0 }", kFailed, ""}));
  EXPECT_EQ(ReadNew("[Any, 2]"), (Reading{"0", kFailed, "y, 2]"}));
}

TEST(InputValue, OfASetIsItsValuesInOrderAndOnce) {
  EXPECT_EQ(ReadNew("{ 3, 1, 3 }"), (Reading{"{ 1, 3 }", 0, ""}));
  EXPECT_EQ(ReadNew("{4}"), (Reading{"4", 0, ""}));
  EXPECT_EQ(ReadNew("\t{\n5 ,-5,0 }} x"), (Reading{"{ -5, 0, 5 }", 0, "} x"}));
  EXPECT_EQ(ReadNew("{ Max, 0, -inf, -2147483648 }"), (Reading{"{  Min, 0,  Max }", 0, ""}));
}

TEST(InputValue, OfASetAsLargeAsTheCapKeepsItAndOneMoreValueIsAny) {
  KivOmbEnumInteger domain;
  EXPECT_EQ(ReadInto(domain, Listed(1024)), (Reading{Listed(1024), 0, ""}));
  EXPECT_EQ(domain.Count(), 1024u);
  EXPECT_EQ(ReadNew(Listed(1025)), (Reading{"Any", 0, " }"}));
}

TEST(InputValue, OfASetBeyondTheCapLeavesItsRestUnread) {
  EXPECT_EQ(ReadNew(Listed(1024, ", 5, 6; x")), (Reading{"Any", 0, ", 6; x"}));
  // What follows the last comma is read, and lost, even if it is a value already held or none.
  EXPECT_EQ(ReadNew(Listed(1024, ", }")), (Reading{"Any", kFailed, " }"}));
}

TEST(InputValue, OfASetDoesNotCountRepeatedValues) {
  std::string text = "{ 1";
  for (int i = 0; i < 3000; ++i) text += ", " + std::to_string(i % 2);
  EXPECT_EQ(ReadNew(text + " }"), (Reading{"{ 0, 1 }", 0, ""}));
}

TEST(InputValue, OfASetWithAWrongSeparatorFailsAndIsNil) {
  EXPECT_EQ(ReadNew("{ 1; 2 }"), (Reading{"Nil", kFailed, " 2 }"}));
  EXPECT_EQ(ReadNew("{ 1 2 }"), (Reading{"Nil", kFailed, " }"}));
  EXPECT_EQ(ReadNew("{ 1, 2 ]"), (Reading{"Nil", kFailed, ""}));
}

TEST(InputValue, OfASetReadsAValueThatIsNoNumberAsZeroAndFails) {
  EXPECT_EQ(ReadNew("{}"), (Reading{"0", kFailed, ""}));
  EXPECT_EQ(ReadNew("{ 1,, 2 }"), (Reading{"{ 0, 1, 2 }", kFailed, ""}));
  EXPECT_EQ(ReadNew("{ 1, 99999999999 }"), (Reading{"Nil", kFailed, "9999999999 }"}));
}

TEST(InputValue, OfATextThatEndsTooEarlyFails) {
  for (const std::string whole : {"{ -1, 20, Max }", "[ -1, 20 ]"}) {
    EXPECT_EQ(ReadNew(whole).state, 0);
    for (std::size_t length = 0; length < whole.size(); ++length) {
      const Reading reading = ReadNew(whole.substr(0, length));
      EXPECT_NE(reading.state & kFailed, 0) << whole.substr(0, length);
      if (length > 0 && whole[0] == '{') {
        EXPECT_EQ(reading.text, "Nil") << length;
      }
    }
  }
}

TEST(InputValue, OfOneAfterTheOtherFromOneStream) {
  Kivistrstream in(" Max { 1, 2 } Any[1, 2]3 Nil");
  std::string texts;
  for (int i = 0; i < 6; ++i) {
    KivOmbEnumInteger domain;
    domain.InputValue(in);
    texts += Text(domain) + '|';
  }
  EXPECT_EQ(texts, " Max|{ 1, 2 }|Any|{ 1, 2 }|3|Nil|");
  EXPECT_EQ(in.State(), 0);
}

TEST(InputValue, WithoutMemoryEmptiesTheDomainAndReadsOn) {
  KivOmbEnumInteger domain = NilSet();
  const kiv::SlotMemoryLimit none(0);
  EXPECT_EQ(ReadInto(domain, Listed(21)).text, Listed(21));
  EXPECT_EQ(ReadInto(domain, Listed(22)), (Reading{"Nil", 0, ""}));
  EXPECT_EQ(ReadInto(domain, Listed(24)), (Reading{"{ 23, 24 }", 0, ""}));
  EXPECT_EQ(ReadInto(domain, "[1, 22]"), (Reading{"Nil", 0, ""}));
  EXPECT_EQ(ReadInto(domain, "[1, 24]"), (Reading{"{ 23, 24 }", 0, ""}));
  EXPECT_EQ(ReadInto(domain, "5"), (Reading{"5", 0, ""}));
}

TEST(InputValue, WithoutAnySlotIsNil) {
  const kiv::SlotMemoryLimit none(0);
  for (const char* text : {"5", "Max", "{ 1, 2 }", "[1, 3]"}) {
    KivOmbEnumInteger domain;
    EXPECT_EQ(ReadInto(domain, text), (Reading{"Nil", 0, ""})) << text;
  }
}

TEST(InputValue, ReadsBackWhatPrintOnWrites) {
  for (const KivOmbEnumInteger& domain :
       {KivOmbEnumInteger(), NilSet(), Set({5}), SetLeftAny({-5}), Set({kMin}), Set({kMax}),
        Set({kMin, 0}), Set({0, kMax}), Set({kMin, kMax}), Set({kMin + 1, kMax - 1}), Set({1, 2}),
        SetLeftAny({1, 2}), Range(1, 1024), Range(kMax - 1023, kMax), Range(kMin, kMin + 1023)}) {
    const std::string text = Text(domain);
    EXPECT_EQ(ReadNew(text), (Reading{text, 0, ""}));
  }
}

// More values than the cap come only from SimpleInsert.
TEST(InputValue, ReadsBackASetBeyondTheCapAsAny) {
  EXPECT_EQ(ReadNew(Text(Range(1, 1025))).text, "Any");
}

}  // namespace
