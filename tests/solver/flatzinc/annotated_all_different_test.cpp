#include <gtest/gtest.h>

#include "framework/abstract_types/integer.h"
#include "tests/solver/flatzinc/posted_text.h"

namespace kiv::test {
namespace {

// How many values c keeps among `variables`, all of them different.
std::uint32_t CountLeft(const std::string& declarations, const std::string& variables,
                        const std::string& annotation) {
  PostedText posted(declarations + "constraint kiv_all_different(" + variables + ")" + annotation +
                    "; solve satisfy;");
  EXPECT_EQ(posted.network.Propagate(), KivOmbNetwork::Outcome::kFixpoint);
  return posted.network.GetSummary(posted.Find("c")).cardinality;
}

// Two share two values, the greatest of c and one within: bounds do not tell that c loses them.
TEST(AnnotatedAllDifferent, IsWhatTheAnnotationSays) {
  const auto count_left = [](const std::string& annotation) {
    return CountLeft("var {2,9}: a; var {2,9}: b; var 1..9: c; var 20..2000: d;", "[a,b,c,d]",
                     annotation);
  };
  EXPECT_EQ(count_left(""), 9u);
  EXPECT_EQ(count_left(" :: bounds"), 9u);
  EXPECT_EQ(count_left(" :: domain"), 7u);
  EXPECT_EQ(count_left(" :: value_propagation"), 9u);
}

// Two that take two neighbouring values are known by their bounds, not by single values.
TEST(AnnotatedAllDifferent, OfValuesAloneSeesNoIntervals) {
  const auto count_left = [](const std::string& annotation) {
    return CountLeft("var 1..2: a; var 1..2: b; var 1..9: c;", "[a,b,c]", annotation);
  };
  EXPECT_EQ(count_left(""), 7u);
  EXPECT_EQ(count_left(" :: bounds"), 7u);
  EXPECT_EQ(count_left(" :: value_propagation"), 9u);
}

}  // namespace
}  // namespace kiv::test
