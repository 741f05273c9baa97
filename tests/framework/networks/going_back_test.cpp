// Going back brings a domain to what it was, in whatever ways it was narrowed since: values that
// were only cut off are still where they stood, others have to be written again.

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/support/enumeration.h"
#include "tests/support/modules.h"
#include "tests/support/random_variables.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

class EditedVariable {
 public:
  EditedVariable(Generator& random, Values values)
      : random_(random),
        values_(std::move(values)),
        x_(Declare(network_, {OpenModules().FindKind("enum int"), values_})) {}

  bool IsRight() const { return ValuesOf(network_, x_) == values_; }
  bool IsGone() const { return values_.empty(); }
  std::size_t CountLevels() const { return levels_.size(); }

  void OpenLevel() {
    levels_.push_back(values_);
    network_.PushLevel();
  }
  void GoBack() {
    network_.PopLevel();
    values_ = levels_.back();
    levels_.pop_back();
  }

  void Narrow() {
    switch (Pick(random_, 0, 5)) {
      case 0:
        return Cut(0, 1);
      case 1:
        return Cut(1, 0);
      case 2:
        return Cut(1, 1);
      case 3:
        return RemoveOne();
      case 4:
        return Intersect();
      default:
        return RemoveSome();
    }
  }

 private:
  std::size_t AnyPosition() {
    return static_cast<std::size_t>(Pick(random_, 0, static_cast<int>(values_.size()) - 1));
  }
  void Update(auto edit) {
    network_.Update(x_, [&](KivOmbiAny& domain) { edit(static_cast<KivOmbiInteger&>(domain)); });
  }
  void Keep(auto is_kept) {
    std::erase_if(values_, [&](std::int32_t value) { return !is_kept(value); });
  }

  // Cuts off a few values at either end, now and then all.
  void Cut(int below, int above) {
    const auto few = [&](int wanted) {
      return wanted * Pick(random_, 0, OneIn(random_, 9) ? 400 : 3);
    };
    const std::int32_t lower = values_.front() + few(below);
    const std::int32_t upper = values_.back() - few(above);
    Update(
        [&](KivOmbiInteger& domain) { domain.GetDescriptor()->KeepBetween(domain, lower, upper); });
    Keep([&](std::int32_t value) { return lower <= value && value <= upper; });
  }
  void RemoveOne() {
    const std::int32_t gone = values_[AnyPosition()];
    Update([&](KivOmbiInteger& domain) { domain.RemoveExactValue(gone); });
    Keep([&](std::int32_t value) { return value != gone; });
  }
  void RemoveSome() {
    Values gone;
    for (const std::int32_t value : values_) {
      if (OneIn(random_, 12)) gone.push_back(value);
    }
    Update([&](KivOmbiInteger& domain) { domain.GetDescriptor()->RemoveValues(domain, gone); });
    Keep([&](std::int32_t value) { return !std::ranges::binary_search(gone, value); });
  }
  void Intersect() {
    KivOmbNetwork other;
    Values some = {values_[AnyPosition()]};
    for (const std::int32_t value : values_) {
      if (value > some.back() && !OneIn(random_, 3)) some.push_back(value);
    }
    const auto y = Declare(other, {OpenModules().FindKind("enum int"), some});
    Update([&](KivOmbiInteger& domain) { domain.CalcEqualValue(other.GetDomain(y)); });
    values_ = some;
  }

  Generator& random_;
  KivOmbNetwork network_;
  Values values_;
  std::vector<Values> levels_;
  KivOmbNetwork::VariableId x_;
};

TEST(GoingBack, BringsEveryDomainBack) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(3000); ++seed) {
    SCOPED_TRACE(Replay(seed));
    Generator random(seed);
    Values values;
    const int spread = Pick(random, 1, 3);
    for (int value = 1, most = Pick(random, 1, 400); value < most; ++value) {
      if (OneIn(random, spread)) values.push_back(value);
    }
    if (values.empty()) values = {1};
    EditedVariable x(random, values);
    for (int step = 0; step < 60; ++step) {
      if (x.CountLevels() > 0 && (x.IsGone() || OneIn(random, 4))) {
        x.GoBack();
      } else if (x.CountLevels() == 0 || OneIn(random, 3)) {
        x.OpenLevel();
      } else {
        x.Narrow();
      }
      ASSERT_TRUE(x.IsRight()) << "at step " << step;
    }
    while (x.CountLevels() > 0) x.GoBack();
    ASSERT_TRUE(x.IsRight());
  }
}

}  // namespace
}  // namespace kiv::test
