// A domain that a network owns announces a write before it happens, and nothing that is no change.

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

#include "tests/framework/numbers/domain.h"

namespace kiv::test {
namespace {

template <class Kind>
void ReadText(Kind& domain, const char* text) {
  Kivistrstream in(text);
  domain.InputValue(in);
}

template <class Kind>
void ReadRecordOf(Kind& domain, const Kind& written) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  written.Write(out);
  Kivipstream in(bytes);
  domain.Read(in);
}

// Runs `operation` on a copy of each state: it must announce exactly when it changes something.
template <class Kind>
void ExpectAnnouncedChanges(const std::vector<Kind>& states, const char* name,
                            const std::function<void(Kind&)>& operation) {
  SCOPED_TRACE(name);
  int changes = 0;
  for (const Kind& state : states) {
    SCOPED_TRACE(Text(state));
    Kind domain(state);
    Listener listener(domain);
    operation(domain);
    const bool changed = Text(domain) != Text(state);
    changes += changed;
    if (changed) {
      EXPECT_GE(listener.announcements, 1);
    } else {
      EXPECT_EQ(listener.announcements, 0);
    }
  }
  EXPECT_GT(changes, 0) << "no state that the operation changes";
}

template <class Kind>
std::vector<Kind> IntegerStates();

template <>
std::vector<KivOmbSingleInteger> IntegerStates() {
  std::vector<KivOmbSingleInteger> states{KivOmbSingleInteger(),     KivOmbSingleInteger(0),
                                          KivOmbSingleInteger(1),    KivOmbSingleInteger(7),
                                          KivOmbSingleInteger(kMin), KivOmbSingleInteger(kMax)};
  states.emplace_back().Nil();
  return states;
}

template <>
std::vector<KivOmbIntervalInteger> IntegerStates() {
  return {KivOmbIntervalInteger(), Interval(1, 0),    Interval(7, 7), Interval(-9, 9),
          Interval(kMin, 6),       Interval(6, kMax), Interval(2, 7), Interval(1, 1)};
}

template <class Kind>
class IntegerAnnouncement : public testing::Test {};
using IntegerKinds = testing::Types<KivOmbSingleInteger, KivOmbIntervalInteger>;
TYPED_TEST_SUITE(IntegerAnnouncement, IntegerKinds);

TYPED_TEST(IntegerAnnouncement, ComesWithEveryChangeAndNoOther) {
  using Kind = TypeParam;
  const auto check = [](const char* name, const std::function<void(Kind&)>& operation) {
    ExpectAnnouncedChanges<Kind>(IntegerStates<Kind>(), name, operation);
  };
  const KivOmbSingleInteger seven(7);
  check("Any", [](Kind& d) { d.Any(); });
  check("Nil", [](Kind& d) { d.Nil(); });
  check("SetNilValue", [](Kind& d) { d.SetNilValue(); });
  check("SetUndefinedValue", [](Kind& d) { d.SetUndefinedValue(); });
  check("copy assignment", [](Kind& d) { d = Kind(); });
  check("Assign", [&](Kind& d) { d.Assign(seven); });
  check("Unite", [&](Kind& d) { d.Unite(seven); });
  check("Intersect", [&](Kind& d) { d.Intersect(seven); });
  check("SetExactValue", [](Kind& d) { d.SetExactValue(7); });
  check("SetLowerBound", [](Kind& d) { d.SetLowerBound(7); });
  check("SetUpperBound", [](Kind& d) { d.SetUpperBound(2); });
  check("InsertExactValue", [](Kind& d) { d.InsertExactValue(7); });
  check("RemoveExactValue", [](Kind& d) { d.RemoveExactValue(7); });
  check("Bisect", [](Kind& d) {
    Kind other;
    d.Bisect(other, KivOmbiAny::kUpperHalf);
    d.Bisect(other, KivOmbiAny::kSmallest);
  });
  check("InputValue of a number", [](Kind& d) { ReadText(d, "7"); });
  check("InputValue of a word", [](Kind& d) { ReadText(d, "Any"); });
  check("InputValue of Nil", [](Kind& d) { ReadText(d, "Nil"); });
  check("Read", [](Kind& d) { ReadRecordOf(d, Kind()); });
  check("CalcEqualValue", [&](Kind& d) { d.CalcEqualValue(seven); });
  check("CalcUnequalValue", [&](Kind& d) { d.CalcUnequalValue(seven); });
  check("CalcLessValue", [&](Kind& d) { d.CalcLessValue(seven); });
  check("CalcSumValue", [&](Kind& d) { d.CalcSumValue(seven, KivOmbSingleInteger(0)); });
  check("CalcZeroValue", [](Kind& d) { d.CalcZeroValue(); });
}

TEST(IntervalAnnouncement, ComesWithEveryChangeThatAReadIntervalMakes) {
  using Kind = KivOmbIntervalInteger;
  ExpectAnnouncedChanges<Kind>(IntegerStates<Kind>(), "InputValue",
                               [](Kind& d) { ReadText(d, "[2, 7]"); });
  ExpectAnnouncedChanges<Kind>(IntegerStates<Kind>(), "InputValue that fails",
                               [](Kind& d) { ReadText(d, "[2; 7]"); });
}

TEST(BooleanAnnouncement, ComesWithEveryChangeAndNoOther) {
  using Kind = KivOmbSingleBoolean;
  std::vector<Kind> states{Kind(), Kind(false), Kind(true)};
  states.emplace_back().Nil();
  const auto check = [&](const char* name, const std::function<void(Kind&)>& operation) {
    ExpectAnnouncedChanges<Kind>(states, name, operation);
  };
  check("Any", [](Kind& d) { d.Any(); });
  check("Nil", [](Kind& d) { d.Nil(); });
  check("copy assignment", [](Kind& d) { d = Kind(true); });
  check("Assign", [](Kind& d) { d.Assign(Kind(true)); });
  check("Assign of an integer", [](Kind& d) { d.Assign(KivOmbSingleInteger(1)); });
  check("Unite", [](Kind& d) { d.Unite(Kind(true)); });
  check("CalcEqualValue", [](Kind& d) { d.CalcEqualValue(Kind(true)); });
  check("CalcUnequalValue", [](Kind& d) { d.CalcUnequalValue(Kind(true)); });
  check("CalcTruthValue", [](Kind& d) { d.CalcTruthValue(true); });
  check("InputValue", [](Kind& d) { ReadText(d, "true"); });
  check("InputValue that fails", [](Kind& d) { ReadText(d, "trie"); });
  check("Read", [](Kind& d) { ReadRecordOf(d, Kind(true)); });
  check("Bisect", [](Kind& d) {
    Kind other;
    d.Bisect(other, KivOmbiAny::kUpperHalf);
  });
}

}  // namespace
}  // namespace kiv::test
