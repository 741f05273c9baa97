#include "solver/language/near_name.h"

#include <gtest/gtest.h>

namespace kiv {
namespace {

TEST(NearName, FindsOneMistake) {
  const std::vector<std::string> names = {"width", "length", "all_different", "n"};
  EXPECT_EQ(FindNearName("widht", names), "width");  // a swap
  EXPECT_EQ(FindNearName("lenght", names), "length");
  EXPECT_EQ(FindNearName("widh", names), "width");    // a letter is missing
  EXPECT_EQ(FindNearName("wiidth", names), "width");  // one too many
  EXPECT_EQ(FindNearName("vidth", names), "width");   // a wrong one
  EXPECT_EQ(FindNearName("alldifferent", names), "all_different");
}

TEST(NearName, PrefersTheNearestAndThenTheFirst) {
  EXPECT_EQ(FindNearName("colour", {"colourful", "color", "colours"}), "color");
  EXPECT_EQ(FindNearName("cat", {"bat", "car"}), "bat");
}

TEST(NearName, DoesNotTakeOneWordForAnother) {
  EXPECT_FALSE(FindNearName("x", {"y", "z"}));
  EXPECT_FALSE(FindNearName("length", {"width"}));
  EXPECT_FALSE(FindNearName("", {"a"}));
  EXPECT_FALSE(FindNearName("a", {}));
  EXPECT_FALSE(FindNearName(std::string(100000, 'a'), {std::string(100001, 'a')}));
}

TEST(NearName, SuggestsAndLists) {
  EXPECT_EQ(SuggestNearName("slove", {"solve"}), "; did you mean 'solve'?");
  EXPECT_EQ(SuggestNearName("slove", {"width"}), "");
  EXPECT_EQ(ListNames({"a", "b"}), "'a', 'b'");
  EXPECT_EQ(ListNames({}), "none");
}

}  // namespace
}  // namespace kiv
