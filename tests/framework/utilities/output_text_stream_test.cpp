#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "framework/utilities/text_stream.h"

namespace {

TEST(OutputTextStream, IsEmptyAndGoodAtFirst) {
  const Kivostrstream out;
  EXPECT_EQ(out.Str(), "");
  EXPECT_EQ(out.State(), Kivpstream::kGood);
}

TEST(OutputTextStream, CollectsWhatIsWritten) {
  Kivostrstream out;
  out << "{ " << std::int32_t{1} << std::string(", ") << std::int32_t{-2} << " }";
  EXPECT_EQ(out.Str(), "{ 1, -2 }");
}

TEST(OutputTextStream, WritesEveryIntegerInDecimal) {
  Kivostrstream out;
  out << std::int32_t{0} << " " << std::numeric_limits<std::int32_t>::max() << " "
      << std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(out.Str(), "0 2147483647 -2147483648");
}

TEST(OutputTextStream, KeepsNulCharactersOfAString) {
  Kivostrstream out;
  out << std::string("a\0b", 3);
  EXPECT_EQ(out.Str(), std::string("a\0b", 3));
}

TEST(OutputTextStream, HasAStateThatCanBeSet) {
  Kivostrstream out;
  out.Clear(Kivpstream::kBad);
  EXPECT_EQ(out.State(), 4);
  out << "x";
  EXPECT_EQ(out.State(), 4) << "writing changes no state";
  EXPECT_EQ(out.Str(), "x") << "and no state stops writing";
}

}  // namespace
