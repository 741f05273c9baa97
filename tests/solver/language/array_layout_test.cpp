#include "solver/language/array_layout.h"

#include <gtest/gtest.h>

namespace kiv {
namespace {

TEST(ArrayLayout, ListsOfOneDimensionStandOnOneLine) {
  EXPECT_EQ(LayOutList({{1, 3}}, {"1", "20", "3"}, 4), "[1, 20, 3]");
  EXPECT_EQ(LayOutList({{1, 0}}, {}, 4), "[]");
  EXPECT_EQ(LayOutGrid({{1, 2}}, {"1", "20"}), "[1, 20]");
}

TEST(ArrayLayout, RowsStandBelowEachOther) {
  EXPECT_EQ(LayOutList({{1, 2}, {0, 1}}, {"1", "20", "300", "4"}, 4),
            "[[  1, 20],\n     [300,  4]]");
  EXPECT_EQ(LayOutGrid({{1, 2}, {0, 1}}, {"1", "20", "300", "4"}), "  1 20\n300  4");
}

TEST(ArrayLayout, DimensionsMayBeEmpty) {
  EXPECT_EQ(LayOutList({{1, 0}, {1, 3}}, {}, 4), "[]");
  EXPECT_EQ(LayOutList({{1, 2}, {1, 0}}, {}, 1), "[[],\n  []]");
  EXPECT_EQ(LayOutGrid({{1, 0}, {1, 3}}, {}), "");
}

TEST(ArrayLayout, WidthsAreCountedInCharacters) {
  EXPECT_EQ(LayOutGrid({{1, 2}, {1, 1}}, {"\xC3\xA4", "bc"}), " \xC3\xA4\nbc");
}

TEST(ArrayShape, NumbersElementsRowByRow) {
  const ArrayShape shape = {{1, 2}, {-1, 1}};
  EXPECT_EQ(CountElements(shape), 6u);
  EXPECT_EQ(CountElements({}), 1u);
  EXPECT_EQ(DescribeShape(shape), "1..2, -1..1");
  EXPECT_EQ(DescribeIndices(shape, 0), "[1, -1]");
  EXPECT_EQ(DescribeIndices(shape, 5), "[2, 1]");
  EXPECT_EQ(DescribeIndices({{0, 4}}, 3), "[3]");
  EXPECT_EQ(DescribeIndices({}, 0), "");
}

}  // namespace
}  // namespace kiv
