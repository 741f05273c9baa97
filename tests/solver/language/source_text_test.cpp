#include "solver/language/source_text.h"

#include <gtest/gtest.h>

namespace kiv {
namespace {

TEST(SourceText, CountsLinesAndColumnsFromOne) {
  const SourceText source("m.kiv", "ab\n\ncd\r\ne");
  EXPECT_EQ(source.DescribePosition(0), "m.kiv:1:1");
  EXPECT_EQ(source.DescribePosition(2), "m.kiv:1:3");  // the end of a line belongs to it
  EXPECT_EQ(source.DescribePosition(3), "m.kiv:2:1");
  EXPECT_EQ(source.DescribePosition(5), "m.kiv:3:2");
  EXPECT_EQ(source.DescribePosition(9), "m.kiv:4:2");
  EXPECT_EQ(source.DescribePosition(1000), "m.kiv:4:2");
  EXPECT_EQ(source.GetLine(1), "ab");
  EXPECT_EQ(source.GetLine(3), "");
  EXPECT_EQ(source.GetLine(4), "cd");
  EXPECT_EQ(source.GetLine(9), "e");
}

TEST(SourceText, HoldsNothing) {
  const SourceText source("m.kiv", "");
  EXPECT_EQ(source.DescribePosition(0), "m.kiv:1:1");
  EXPECT_EQ(source.GetLine(0), "");
}

TEST(SourceText, CountsCharactersNotBytes) {
  const SourceText source("m.kiv", "# \xC3\xA4\xE2\x82\xAC x");
  EXPECT_EQ(source.Locate(8).column, 6u);
  EXPECT_EQ(CountCharacters("\xC3\xA4\xE2\x82\xAC"), 2u);
}

TEST(SourceText, QuotesOnOneLine) {
  const SourceText source("m.kiv", "  x  +\n\t y\x1B = 2;");
  EXPECT_EQ(source.Quote({2, 15}), "x + y? = 2");
  const SourceText sum("m.kiv", std::string(1000, 'x'));
  EXPECT_EQ(sum.Quote({0, 1000}), std::string(120, 'x') + " ...");
}

TEST(SourceText, JoinsRanges) {
  EXPECT_EQ(Join({3, 5}, {1, 4}), (SourceRange{1, 5}));
  EXPECT_EQ(Join({1, 2}, {7, 9}), (SourceRange{1, 9}));
}

}  // namespace
}  // namespace kiv
