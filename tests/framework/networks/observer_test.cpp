#include "framework/networks/observer.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "framework/abstract_types/integer.h"
#include "framework/networks/network.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;

// Notes each step with the sizes of the domains of its variables before and after.
class Notes final : public KivOmbiNetworkObserver {
 public:
  void BeforeStep(const KivOmbNetwork& network, std::optional<std::uint32_t> constraint,
                  std::span<const std::uint32_t> variables) override {
    open_ = (constraint ? "constraint " + std::to_string(*constraint) : "outside") + ':' +
            SizesOf(network, variables);
  }
  void AfterStep(const KivOmbNetwork& network, std::optional<std::uint32_t> constraint,
                 std::span<const std::uint32_t> variables) override {
    const bool fails = constraint && network.GetCulprit() == constraint;
    steps_.push_back(open_ + " ->" + SizesOf(network, variables) + (fails ? " fails" : ""));
  }

  std::vector<std::string> Take() { return std::exchange(steps_, {}); }

 private:
  static std::string SizesOf(const KivOmbNetwork& network,
                             std::span<const std::uint32_t> variables) {
    std::string sizes;
    for (const VariableId variable : variables) {
      sizes += ' ' + std::to_string(network.GetSummary(variable).cardinality);
    }
    return sizes;
  }

  std::string open_;
  std::vector<std::string> steps_;
};

class Observer : public testing::Test {
 protected:
  VariableId Enum(const Values& values) {
    return Declare(network_, {OpenModules().FindKind("enum int"), values});
  }
  void PostLess(VariableId left, VariableId right) {
    const auto* kind = OpenModules().FindKind("enum int");
    network_.Post(*OpenModules().operators.Resolve("<", {kind, kind}), left, right,
                  KivOmbNetwork::kNone);
  }

  KivOmbNetwork network_;
  Notes notes_;
};

using Steps = std::vector<std::string>;

TEST_F(Observer, IsToldOfConstraintsAndOfChangesFromOutside) {
  const auto x = Enum({1, 2, 3, 4});
  const auto y = Enum({1, 2, 3});
  PostLess(x, y);
  network_.SetObserver(&notes_);
  EXPECT_EQ(network_.Propagate(), KivOmbNetwork::Outcome::kFixpoint);
  // The row decides which operand is handed over first.
  const auto arguments = network_.GetArguments(0);
  const bool x_first = arguments[0] == x;
  EXPECT_EQ(notes_.Take(),
            (Steps{x_first ? "constraint 0: 4 3 -> 2 2" : "constraint 0: 3 4 -> 2 2"}));

  network_.PushLevel();
  network_.Update(
      x, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).SetExactValue(2); });
  EXPECT_EQ(notes_.Take(), (Steps{"outside: 2 -> 1"}));
  network_.Propagate();
  EXPECT_EQ(notes_.Take(),
            (Steps{x_first ? "constraint 0: 1 2 -> 1 1" : "constraint 0: 2 1 -> 1 1"}));
}

TEST_F(Observer, SeesWhichConstraintFails) {
  const auto x = Enum({3, 4});
  const auto y = Enum({1, 2});
  PostLess(x, y);
  network_.SetObserver(&notes_);
  EXPECT_EQ(network_.Propagate(), KivOmbNetwork::Outcome::kContradiction);
  const Steps steps = notes_.Take();
  ASSERT_EQ(steps.size(), 1u);
  EXPECT_TRUE(steps[0].ends_with(" fails")) << steps[0];
}

TEST_F(Observer, IsLeftAloneOnceItIsNone) {
  const auto x = Enum({1, 2, 3, 4});
  const auto y = Enum({1, 2, 3});
  PostLess(x, y);
  network_.SetObserver(&notes_);
  network_.SetObserver(nullptr);
  network_.Propagate();
  EXPECT_EQ(notes_.Take(), Steps{});
}

}  // namespace
}  // namespace kiv::test
