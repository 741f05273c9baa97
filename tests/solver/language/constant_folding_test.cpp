#include "solver/language/constant_folding.h"

#include <gtest/gtest.h>

#include <limits>

namespace kiv {
namespace {

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kGreatest = std::numeric_limits<std::int64_t>::max();

TEST(ConstantFolding, ComputesExactly) {
  EXPECT_EQ(FoldBinary("+", kGreatest, -1).value, kGreatest - 1);
  EXPECT_EQ(FoldBinary("-", 3, 5).value, -2);
  EXPECT_EQ(FoldBinary("*", -4, 6).value, -24);
  EXPECT_EQ(FoldBinary("/", -24, 6).value, -4);
  EXPECT_EQ(FoldBinary("/", kGreatest, -1).value, -kGreatest);
  EXPECT_EQ(FoldBinary("/\\", 3, -2).value, -2);
  EXPECT_EQ(FoldBinary("\\/", 3, -2).value, 3);
  EXPECT_EQ(FoldUnary("-", 7).value, -7);
  EXPECT_EQ(FoldUnary("abs", -7).value, 7);
  EXPECT_EQ(FoldUnary("abs", 7).value, 7);
  EXPECT_EQ(FoldUnary("next", -1).value, 0);
  EXPECT_EQ(FoldUnary("prev", 0).value, -1);
  EXPECT_EQ(FoldUnary("sign", -9).value, -1);
  EXPECT_EQ(FoldUnary("sign", 0).value, 0);
  EXPECT_EQ(FoldUnary("sign", 9).value, 1);
}

TEST(ConstantFolding, RemainderHasTheSignOfTheLeftOperand) {
  EXPECT_EQ(FoldBinary("mod", 7, 3).value, 1);
  EXPECT_EQ(FoldBinary("mod", -7, 3).value, -1);
  EXPECT_EQ(FoldBinary("mod", 7, -3).value, 1);
  EXPECT_EQ(FoldBinary("mod", kLeast, -1).value, 0);
}

TEST(ConstantFolding, TruncatingDivisionGoesTowardZero) {
  EXPECT_EQ(FoldBinary("div", 7, 2).value, 3);
  EXPECT_EQ(FoldBinary("div", -7, 2).value, -3);
  EXPECT_EQ(FoldBinary("div", 7, -2).value, -3);
  EXPECT_EQ(FoldBinary("div", -7, -2).value, 3);
  EXPECT_EQ(FoldBinary("div", 1, 2).value, 0);
  EXPECT_EQ(FoldBinary("div", kLeast, 1).value, kLeast);
}

TEST(ConstantFolding, AnswersQuestions) {
  const struct {
    const char* symbol;
    bool below, same, above;  // of 1 and 2, 2 and 2, 3 and 2
  } answers[] = {{"==", false, true, false},
                 {"<<", true, false, false},
                 {"<==", true, true, false},
                 {">>", false, false, true},
                 {">==", false, true, true}};
  for (const auto& [symbol, below, same, above] : answers) {
    EXPECT_EQ(FoldQuestion(symbol, 1, 2), below) << symbol;
    EXPECT_EQ(FoldQuestion(symbol, 2, 2), same) << symbol;
    EXPECT_EQ(FoldQuestion(symbol, 3, 2), above) << symbol;
  }
  EXPECT_EQ(FoldQuestion("=", 1, 1), std::nullopt);
}

TEST(ConstantFolding, ConnectsTruthValues) {
  const struct {
    const char* symbol;
    bool values[4];  // of false and false, false and true, true and false, true and true
  } tables[] = {{"and", {false, false, false, true}},
                {"or", {false, true, true, true}},
                {"xor", {false, true, true, false}},
                {"=>", {true, true, false, true}},
                {"==", {true, false, false, true}}};
  for (const auto& [symbol, values] : tables) {
    for (const int line : {0, 1, 2, 3}) {
      EXPECT_EQ(FoldConnective(symbol, line >= 2, line % 2 == 1), values[line])
          << symbol << ' ' << line;
    }
  }
  EXPECT_EQ(FoldConnective("<>", true, true), std::nullopt);
}

TEST(ConstantFolding, PowersOfSmallBasesHaveAnyExponent) {
  EXPECT_EQ(FoldBinary("^", 2, 62).value, std::int64_t{1} << 62);
  EXPECT_EQ(FoldBinary("^", -2, 63).value, kLeast);
  EXPECT_EQ(FoldBinary("^", 0, 0).value, 1);
  EXPECT_EQ(FoldBinary("^", 0, kGreatest).value, 0);
  EXPECT_EQ(FoldBinary("^", 1, kLeast).value, 1);
  EXPECT_EQ(FoldBinary("^", -1, kGreatest).value, -1);
  EXPECT_EQ(FoldBinary("^", -1, kLeast).value, 1);
  EXPECT_EQ(FoldBinary("^", -1, -3).value, -1);
}

TEST(ConstantFolding, SaysWhyThereIsNoValue) {
  const std::string overflow = "the constant does not fit 64 bits";
  EXPECT_EQ(FoldBinary("+", kGreatest, 1).error, overflow);
  EXPECT_EQ(FoldBinary("-", kLeast, 1).error, overflow);
  EXPECT_EQ(FoldBinary("*", kGreatest, 2).error, overflow);
  EXPECT_EQ(FoldBinary("/", kLeast, -1).error, overflow);
  EXPECT_EQ(FoldBinary("^", 2, 63).error, overflow);
  EXPECT_EQ(FoldBinary("^", 3, kGreatest).error, overflow);
  EXPECT_EQ(FoldUnary("-", kLeast).error, overflow);
  EXPECT_EQ(FoldUnary("abs", kLeast).error, overflow);
  EXPECT_EQ(FoldUnary("next", kGreatest).error, overflow);
  EXPECT_EQ(FoldBinary("div", kLeast, -1).error, overflow);
  EXPECT_EQ(FoldBinary("/", 1, 0).error, "division by zero");
  EXPECT_EQ(FoldBinary("div", 0, 0).error, "division by zero");
  EXPECT_EQ(FoldBinary("mod", 1, 0).error, "remainder of a division by zero");
  EXPECT_EQ(FoldBinary("/", 7, 2).error, "the division 7 / 2 is not exact");
  EXPECT_EQ(FoldBinary("^", 2, -1).error, "a negative power of 2 is no integer");
  EXPECT_EQ(FoldBinary("^", 0, -1).error, "a negative power of 0 is no integer");
}

TEST(ConstantFolding, LeavesOtherOperatorsAlone) {
  for (const char* symbol : {"=", "==", "<", "gcd"}) {
    EXPECT_FALSE(FoldBinary(symbol, 1, 1).value);
    EXPECT_EQ(FoldBinary(symbol, 1, 1).error, "");
  }
  EXPECT_FALSE(FoldUnary("(interval int)", 1).value);
  EXPECT_EQ(FoldUnary("(interval int)", 1).error, "");
}

}  // namespace
}  // namespace kiv
