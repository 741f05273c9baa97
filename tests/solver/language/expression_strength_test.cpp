#include <gtest/gtest.h>

#include <string>

#include "tests/solver/language/read_model.h"

namespace kiv::test {
namespace {

// How many variables and constraints a model becomes.
struct Size {
  std::size_t variables;
  std::size_t constraints;

  friend bool operator==(const Size&, const Size&) = default;
};

Size SizeOf(const std::string& text) {
  const SourceText source("m.kiv", text);
  Diagnostics diagnostics(source);
  const auto model = ReadModel(source, StandardVocabulary(), {}, diagnostics);
  if (model == nullptr) return {0, 0};
  return {model->GetNetwork().CountVariables(), model->GetNetwork().CountConstraints()};
}

KivOmbNetwork::Outcome OutcomeOf(const std::string& text) {
  const SourceText source("m.kiv", text);
  Diagnostics diagnostics(source);
  const auto model = ReadModel(source, StandardVocabulary(), {}, diagnostics);
  return model != nullptr ? model->GetNetwork().Propagate() : KivOmbNetwork::Outcome::kStopped;
}

TEST(LinearExpressions, AreOneConstraintWithoutVariablesOfTheirOwn) {
  const std::string digits = "s, e, n, d, m, o, r, y : enum int = [0, 9]; ";
  EXPECT_EQ(SizeOf(digits + "1000*s + 100*e + 10*n + d + (1000*m + 100*o + 10*r + e) = "
                            "10000*m + 1000*o + 100*n + 10*e + y; solve;"),
            (Size{8, 1}));
  EXPECT_EQ(SizeOf("q[9] : enum int = [0, 9]; sum(i in 1..9)(i*q[i]) <= 2*sum(q) - 3; solve;"),
            (Size{9, 1}));
  EXPECT_EQ(SizeOf("x, y, z : enum int = [0, 9]; x + 1 = y + z <= 2*x - y; solve;"), (Size{3, 2}));
  EXPECT_EQ(SizeOf("x, y : enum int = [0, 9]; t : bool; t = (x + y <== 2*x); solve;"),
            (Size{3, 1}));
  EXPECT_EQ(SizeOf("x, y : enum int = [0, 9]; t : bool; t => x + y << 7; solve;"), (Size{3, 1}));
  EXPECT_EQ(SizeOf("q[5] : enum int = [0, 9]; x : enum int = [1, 4]; q[x + 1] = 3; "
                   "all_different([q[i] - i | i in 1..5]) with values; solve;")
                .variables,
            8u);
}

TEST(LinearExpressions, DecideAtOnceWhatHasNoSolution) {
  const auto contradiction = KivOmbNetwork::Outcome::kContradiction;
  const std::string wide = "x, y : interval int = [0, 2000000000]; ";
  EXPECT_EQ(OutcomeOf(wide + "x = x + 1; solve;"), contradiction);
  EXPECT_EQ(OutcomeOf(wide + "x < x; solve;"), contradiction);
  EXPECT_EQ(OutcomeOf(wide + "2*x + 4*y = 7; solve;"), contradiction);
  EXPECT_EQ(OutcomeOf(wide + "x + y - y > 2000000000; solve;"), contradiction);
}

TEST(LinearExpressions, NarrowAsAWhole) {
  EXPECT_EQ(
      PropagationOf("x : enum int = { 1, 2, 8, 9 }; y : enum int = [0, 9]; y = x - 1; solve;"),
      "x = { 1, 2, 8, 9 }\ny = { 0, 1, 7, 8 }\n");
  EXPECT_EQ(PropagationOf("x, y : interval int = [0, 1000000]; 3000000000*x + y = "
                          "6000000000007; solve;"),
            "x = 2000\ny = 7\n");
}

TEST(TruthValues, AreAssertedWithoutVariablesOfTheirOwn) {
  const std::string variables = "x, y : enum int = [0, 9]; a, b, c : bool; ";
  EXPECT_EQ(SizeOf(variables + "a or not b or c; solve;"), (Size{5, 1}));
  EXPECT_EQ(SizeOf(variables + "x + y == 9 and y - x << 3 and not a; solve;"), (Size{5, 3}));
  EXPECT_EQ(SizeOf(variables + "not (a or x == y); solve;"), (Size{5, 2}));
  EXPECT_EQ(SizeOf(variables + "a => b => c; solve;"), (Size{5, 1}));
  EXPECT_EQ(SizeOf("q[50] : bool; t : bool; t = forall(i in 1..50)(q[i]); solve;"), (Size{51, 1}));
  EXPECT_EQ(SizeOf("q[50] : bool; exists(i in 1..50)(q[i]); solve;"), (Size{50, 1}));
  EXPECT_EQ(SizeOf(variables + "x in 1..4 and y in { 1, 5 }; solve;"), (Size{5, 2}));
  EXPECT_EQ(SizeOf(variables + "a = (x in { 1, 5 }); solve;"), (Size{5, 1}));
  EXPECT_EQ(SizeOf(variables + "a = not (x + y in 3..2000); solve;"), (Size{8, 4}));
}

TEST(TruthValues, OfMembershipsNarrow) {
  EXPECT_EQ(PropagationOf("x : enum int = [0, 9]; not (x in { 3, 4 }); x in 2..6; solve;"),
            "x = { 2, 5, 6 }\n");
}

// A kind that lists values cannot hold the products, but one that keeps bounds can.
TEST(WideValues, KeepTheirBounds) {
  const std::string variables = "x, y, z : enum int = [1, 100]; ";
  EXPECT_EQ(PropagationOf(variables + "x*y*z = 1000000; solve;"), "x = 100\ny = 100\nz = 100\n");
  EXPECT_EQ(PropagationOf(variables + "abs(x*y - 50) <= 40; x >= 90; z = 1; solve;"),
            "x = 90\ny = 1\nz = 1\n");
  EXPECT_EQ(PropagationOf("x : enum int = [1, 100]; t : enum int = [0, 1]; "
                          "q[2] : interval int = [0, 9]; q[t + 1] = x^2 - 81; x >= 9; solve;"),
            "x = 9\nt = { 0, 1 }\nq = [[0, 9], [0, 9]]\n");
}

// The product of two variables that are few is listed, but its width counts in the next one.
TEST(WideValues, GrowStepByStep) {
  EXPECT_EQ(PropagationOf("x, y : enum int = [1, 30]; z : enum int = [1, 100]; "
                          "x*y*z >= 90000 - (z mod 2); solve;"),
            "x = 30\ny = 30\nz = 100\n");
}

TEST(WideValues, StayListedWhereTheyAreFew) {
  EXPECT_EQ(PropagationOf("x : enum int = { 1, 2000 }; y : enum int = { 1, 3 }; "
                          "z : enum int = { 1, 3, 5, 2000, 5999, 6000 }; z = x*y; solve;"),
            "x = { 1, 2000 }\ny = { 1, 3 }\nz = { 1, 3, 2000, 6000 }\n");
}

}  // namespace
}  // namespace kiv::test
