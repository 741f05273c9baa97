#include "solver/constraints/linear_posting.h"

#include <gtest/gtest.h>

#include <limits>

#include "framework/base/kiv_string.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

constexpr std::int64_t kLeast64 = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMost64 = std::numeric_limits<std::int64_t>::max();

class Posting : public testing::Test {
 protected:
  VariableId Add(const char* kind, const Values& values) {
    return Declare(network_, {OpenModules().FindKind(kind), values});
  }
  KivOmbNetwork::ConstraintId Post(std::vector<LinearTerm> terms, LinearRelation relation,
                                   std::int64_t constant, std::optional<LinearTruth> truth = {}) {
    return PostLinear(network_, terms, relation, constant, truth);
  }
  // The class of what is posted, with its number of arguments.
  std::string Posted(std::vector<LinearTerm> terms, LinearRelation relation, std::int64_t constant,
                     std::optional<LinearTruth> truth = {}) {
    const auto id = Post(std::move(terms), relation, constant, truth);
    return network_.GetConstraint(id).GetDescriptor()->GetName() + "/" +
           std::to_string(network_.GetArguments(id).size());
  }

  KivOmbNetwork network_;
  VariableId x_ = Add("interval int", {-1000, 1000});
  VariableId y_ = Add("enum int", {-7, 0, 8});
  VariableId truth_ = Add("bool", {0, 1});
};

TEST_F(Posting, ChoosesTheClassByTheRelation) {
  EXPECT_EQ(Posted({{1, x_}, {1, y_}}, LinearRelation::kEqual, 1), "kiv::LinearEquation/2");
  EXPECT_EQ(Posted({{1, x_}, {1, y_}}, LinearRelation::kUnequal, 1), "kiv::LinearDisequality/2");
  for (const LinearRelation relation :
       {LinearRelation::kLess, LinearRelation::kLessOrEqual, LinearRelation::kGreater,
        LinearRelation::kGreaterOrEqual}) {
    EXPECT_EQ(Posted({{1, x_}, {1, y_}}, relation, 1), "kiv::LinearInequality/2");
    EXPECT_EQ(Posted({{1, x_}, {1, y_}}, relation, 1, LinearTruth{truth_}), "kiv::LinearReified/3");
  }
}

TEST_F(Posting, ADisequalityOfADifferenceHasAClassOfItsOwn) {
  EXPECT_EQ(Posted({{1, x_}, {-1, y_}}, LinearRelation::kUnequal, 1), "kiv::UnequalDifference/2");
  EXPECT_EQ(Posted({{-3, x_}, {3, y_}}, LinearRelation::kUnequal, 21), "kiv::UnequalDifference/2");
  Restrict(network_, y_, {-7});
  Restrict(network_, x_, {-14, -7});
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network_, x_), "[-13, -7]");
}

TEST_F(Posting, MergesRepeatedVariablesAndDropsWhatAddsNothing) {
  const auto z = Add("int", {});
  EXPECT_EQ(Posted({{1, y_}, {2, x_}, {0, z}, {3, y_}}, LinearRelation::kEqual, 2),
            "kiv::LinearEquation/2");
  EXPECT_EQ(Posted({{5, x_}, {-2, y_}, {-5, x_}}, LinearRelation::kEqual, 0),
            "kiv::LinearEquation/1");
  EXPECT_EQ(Posted({{5, x_}, {-5, x_}}, LinearRelation::kEqual, 0), "kiv::LinearEquation/0");
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
}

TEST_F(Posting, AVariableThatEqualsItsSuccessorContradictsAtOnce) {
  Post({{1, x_}, {-1, x_}}, LinearRelation::kEqual, 1);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
  EXPECT_EQ(network_.GetStatistics().runs, 1u);
}

TEST_F(Posting, AConstantThatTheDivisorDoesNotDivideDecidesEqualityAlone) {
  EXPECT_EQ(Posted({{6, x_}, {-4, y_}}, LinearRelation::kUnequal, 3), "kiv::LinearDisequality/0");
  EXPECT_EQ(network_.Propagate(), Outcome::kFixpoint);
  Post({{6, x_}, {-6, y_}}, LinearRelation::kLessOrEqual, -41);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network_, x_), "[-1000, 1]");
  EXPECT_EQ(Posted({{6, x_}, {-4, y_}}, LinearRelation::kEqual, 3), "kiv::LinearEquation/0");
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
}

TEST_F(Posting, StrictOrderIsThatOfTheNextInteger) {
  Post({{1, x_}}, LinearRelation::kLess, 10);
  Post({{2, x_}}, LinearRelation::kGreater, -7);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network_, x_), "[-3, 9]");
}

TEST_F(Posting, AKnownTruthLeavesAPlainConstraint) {
  const auto yes = Add("bool", {1});
  const auto no = Add("bool", {0});
  const auto posted = [&](VariableId truth, Reification reification) {
    return Posted({{1, x_}, {1, y_}}, LinearRelation::kEqual, 1, LinearTruth{truth, reification});
  };
  EXPECT_EQ(posted(yes, Reification::kEquivalence), "kiv::LinearEquation/2");
  EXPECT_EQ(posted(yes, Reification::kImplication), "kiv::LinearEquation/2");
  EXPECT_EQ(posted(no, Reification::kEquivalence), "kiv::LinearDisequality/2");
  EXPECT_EQ(posted(no, Reification::kImplication), "kiv::LinearEquation/0");
  EXPECT_EQ(network_.Propagate(), Outcome::kFixpoint);
}

TEST_F(Posting, ATruthThatALevelFixedIsNotKnownForGood) {
  network_.PushLevel();
  Restrict(network_, truth_, {1});
  EXPECT_EQ(Posted({{1, x_}, {1, y_}}, LinearRelation::kEqual, 1, LinearTruth{truth_}),
            "kiv::LinearReified/3");
}

TEST_F(Posting, TheEndsOf64BitsAreNumbersLikeOthers) {
  // -x * 2^63 >= -2^63, so x <= 1; and 2^63 - 1 is beyond all sums of x.
  Post({{kLeast64, x_}}, LinearRelation::kGreaterOrEqual, kLeast64);
  Post({{1, x_}}, LinearRelation::kLess, kMost64);
  Post({{-1, x_}}, LinearRelation::kLess, kMost64);
  Post({{1, x_}}, LinearRelation::kGreater, kLeast64);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network_, x_), "[-1000, 1]");
  Post({{1, x_}}, LinearRelation::kLess, kLeast64);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
}

TEST_F(Posting, CoefficientsMayMergeBeyond64BitsIfTheyCanBeReduced) {
  EXPECT_EQ(Posted({{kMost64, x_}, {kMost64, x_}, {kMost64, y_}}, LinearRelation::kEqual, 0),
            "kiv::LinearEquation/2");
  const auto count = network_.CountConstraints();
  EXPECT_THROW(Post({{kMost64, x_}, {kMost64, x_}, {1, y_}}, LinearRelation::kEqual, 0),
               std::overflow_error);
  EXPECT_THROW(Post({{kLeast64, x_}, {1, y_}}, LinearRelation::kEqual, 0), std::overflow_error);
  EXPECT_EQ(network_.CountConstraints(), count);
}

TEST_F(Posting, RefusesVariablesOfOtherTypes) {
  EXPECT_THROW(Post({{1, truth_}}, LinearRelation::kEqual, 0), std::invalid_argument);
  EXPECT_THROW(Post({{1, x_}}, LinearRelation::kEqual, 0, LinearTruth{y_}), std::invalid_argument);
  EXPECT_EQ(network_.CountConstraints(), 0u);
}

TEST_F(Posting, TwoExpressionsAreComparedWhateverTheirConstants) {
  LinearExpression left(LinearTerm{3, x_});
  ASSERT_TRUE(left.Add(LinearExpression(kMost64)));
  LinearExpression right(LinearTerm{1, x_});
  ASSERT_TRUE(right.Add(LinearExpression(kMost64 - 10)));
  PostLinear(network_, left, LinearRelation::kEqual, right);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network_, x_), "-5");
  PostLinear(network_, LinearExpression(kLeast64), LinearRelation::kLess,
             LinearExpression(kMost64));
  EXPECT_EQ(network_.Propagate(), Outcome::kFixpoint);
  PostLinear(network_, LinearExpression(kLeast64), LinearRelation::kGreaterOrEqual,
             LinearExpression(kMost64));
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
}

}  // namespace
}  // namespace kiv::test
