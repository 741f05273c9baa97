#include "tools/kiv/duration.h"

#include <gtest/gtest.h>

namespace kiv::test {
namespace {

using namespace std::chrono_literals;

TEST(Duration, IsReadInItsUnits) {
  EXPECT_EQ(ParseDuration("10"), 10s);
  EXPECT_EQ(ParseDuration("1.5"), 1500ms);
  EXPECT_EQ(ParseDuration("1.5s"), 1500ms);
  EXPECT_EQ(ParseDuration("500ms"), 500ms);
  EXPECT_EQ(ParseDuration("2m"), 2min);
  EXPECT_EQ(ParseDuration("0.5h"), 30min);
  EXPECT_EQ(ParseDuration("0"), 0s);
  EXPECT_EQ(ParseDuration("100000h"), 100000h);
}

TEST(Duration, OfAnyOtherFormIsNone) {
  for (const char* text : {"", "s", "-1", "+1", "1 s", " 1", "1x", "1sm", "1e3", "nan", "inf",
                           "1..5", "100001h", "99999999999999999999999"}) {
    EXPECT_EQ(ParseDuration(text), std::nullopt) << text;
  }
}

TEST(Duration, IsDescribedInShort) {
  EXPECT_EQ(DescribeDuration(90ms), "90 ms");
  EXPECT_EQ(DescribeDuration(999999us), "999 ms");
  EXPECT_EQ(DescribeDuration(1250ms), "1.25 s");
  EXPECT_EQ(DescribeDuration(125s), "2 min 05 s");
}

}  // namespace
}  // namespace kiv::test
