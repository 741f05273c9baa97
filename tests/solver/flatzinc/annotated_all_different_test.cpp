#include <gtest/gtest.h>

#include "framework/abstract_types/integer.h"
#include "tests/solver/flatzinc/posted_text.h"

namespace kiv::test {
namespace {

// What is left for c when a and b share two values, the greatest and one within.
std::uint32_t CountLeft(const std::string& annotation) {
  PostedText posted(
      "var {2,9}: a; var {2,9}: b; var 1..9: c; var 20..2000: d;"
      "constraint kiv_all_different([a,b,c,d])" +
      annotation + "; solve satisfy;");
  EXPECT_EQ(posted.network.Propagate(), KivOmbNetwork::Outcome::kFixpoint);
  return posted.network.GetSummary(posted.Find("c")).cardinality;
}

TEST(AnnotatedAllDifferent, IsWhatTheAnnotationSays) {
  EXPECT_EQ(CountLeft(""), 9u);
  EXPECT_EQ(CountLeft(" :: bounds"), 9u);
  EXPECT_EQ(CountLeft(" :: domain"), 7u);
  EXPECT_EQ(CountLeft(" :: value_propagation"), 9u);
}

// Two that take two neighbouring values are known by their bounds, not by single values.
TEST(AnnotatedAllDifferent, OfValuesAloneSeesNoIntervals) {
  const auto count_left = [](const std::string& annotation) {
    PostedText posted(
        "var 1..2: a; var 1..2: b; var 1..9: c;"
        "constraint kiv_all_different([a,b,c])" +
        annotation + "; solve satisfy;");
    EXPECT_EQ(posted.network.Propagate(), KivOmbNetwork::Outcome::kFixpoint);
    return posted.network.GetSummary(posted.Find("c")).cardinality;
  };
  EXPECT_EQ(count_left(""), 7u);
  EXPECT_EQ(count_left(" :: bounds"), 7u);
  EXPECT_EQ(count_left(" :: value_propagation"), 9u);
}

}  // namespace
}  // namespace kiv::test
