// What levels take back: a variable gets random edits at random levels, and each level taken back
// leaves it as it was when the level was opened. The same edits on a domain without an owner, which
// saves nothing, lead to the same values.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "framework/networks/network.h"
#include "tests/enum_integers/support/random_domains.h"
#include "tests/support/seed.h"

namespace {

using namespace kiv::test;
namespace reference = kiv::reference;

using Edit = std::function<int(KivOmbEnumInteger&)>;

bool IsOdd(const std::int32_t v) { return v % 2 != 0; }
int IsOddValue(const SubIntBase& v, void*) { return IsOdd(v.GetValue()); }

// Half of the sets have many values, of which an edit can take few.
reference::EnumSet RandomStart(Random& random) {
  if (random.OneIn(2)) return RandomSet(random);
  reference::EnumSet set{{}, random.Between(0, 1)};
  const int gap = random.Between(1, 4);
  std::int32_t v = random.Between(-900, 100);
  for (int count = random.Between(10, 1024); count > 0; --count, v += random.Between(1, gap)) {
    set.values.push_back(v);
  }
  return set;
}

// One of the values, or what may be none.
std::int32_t ValueNear(Random& random, const reference::EnumSet& set) {
  if (set.values.empty() || random.OneIn(8)) return random.Between(-1000, 1000);
  const auto last = static_cast<std::int64_t>(set.values.size()) - 1;
  return set.values[static_cast<std::size_t>(random.Between(0, last))];
}

// What is left of `set` when about one in `n` of its values goes.
reference::EnumSet Thinned(Random& random, reference::EnumSet set, int n) {
  std::erase_if(set.values, [&](std::int32_t) { return random.OneIn(n); });
  return set;
}

Edit RandomEdit(Random& random, const reference::EnumSet& set) {
  using Domain = KivOmbEnumInteger;
  const std::int32_t v = ValueNear(random, set);
  const std::int32_t w = ValueNear(random, set);
  const reference::EnumSet part = Thinned(random, set, random.Between(1, 100));
  switch (random.Between(0, 17)) {
    case 0:
      return [=](Domain& d) { return d.Intersect(Made(part)); };
    case 1:
      return [=](Domain& d) { return d.Intersect(Made(part), IsOddValue, nullptr); };
    case 2:
      return [=](Domain& d) { return Domain::sDescriptor->RemoveValues(d, part.values); };
    case 3: {
      reference::EnumSet few = Thinned(random, set, 2);
      few.values.resize(std::min<std::size_t>(few.values.size(), 3));
      return [=](Domain& d) { return Domain::sDescriptor->RemoveValues(d, few.values); };
    }
    case 4:
    case 5:
      return [=](Domain& d) { return Domain::sDescriptor->KeepBetween(d, v, w); };
    case 6:
      return [=](Domain& d) {
        return Domain::sDescriptor->KeepBetween(d, std::min(v, w), std::max(v, w));
      };
    case 7:
      return [=](Domain& d) { return d.Intersect(KivOmbIntervalInteger(SubdefInt(v, w))); };
    case 8:
      // What the plain sum of two sets admits, of which one is large.
      return [=](Domain& d) {
        return d.CalcSumValue(Made(part), Made(reference::EnumSet{{0, 1}, 0}));
      };
    case 9:
      return [=](Domain& d) { return d.CalcLessOrEqualValue(KivOmbSingleInteger(v)); };
    case 10:
      switch (random.Between(0, 5)) {
        case 0:
          return [](Domain& d) { return d.Nil(); };
        case 1:
          return [](Domain& d) {
            d.Any();
            return 1;
          };
        case 2:
          return [](Domain& d) {
            d.Minus();
            return 1;
          };
        case 3:
          return [=](Domain& d) { return d.Intersect(KivOmbSingleInteger(v)); };
        case 4:
          return [=](Domain& d) {
            d.Unite(Made(part));
            d.SetUpperBound(v);
            return 1;
          };
        default:
          return [=](Domain& d) {
            Domain other;
            d.Bisect(other, KivOmbiAny::kUpperHalf);
            return 1;
          };
      }
    case 11:
      return [=](Domain& d) { return d.Insert(v); };
    default:
      return [=](Domain& d) { return d.RemoveExactValue(v); };
  }
}

struct Level {
  reference::EnumSet set;
  unsigned delta;
  KivOmbiDomainSummary summary;
};

void EditAtLevels(Random& random) {
  KivOmbNetwork network;
  const auto variable = network.AddVariable(*KivOmbEnumInteger::sDescriptor);
  const auto& domain = *KivOmbEnumInteger::StaticCast(&network.GetDomain(variable));
  const auto start = RandomStart(random);
  network.Update(variable, [&](KivOmbiAny& any) { any.Assign(Made(start)); });
  ASSERT_EQ(Read(domain), start);

  std::vector<Level> levels;
  const auto pop = [&] {
    network.PopLevel();
    const Level& level = levels.back();
    ASSERT_EQ(Read(domain), level.set);
    ASSERT_EQ(domain.GetDelta(), level.delta);
    ASSERT_EQ(network.GetSummary(variable), level.summary);
    levels.pop_back();
  };
  for (int step = 0; step < 40 && !testing::Test::HasFatalFailure(); ++step) {
    if (levels.empty() || random.OneIn(4)) {
      levels.push_back({Read(domain), domain.GetDelta(), network.GetSummary(variable)});
      network.PushLevel();
    } else if (random.OneIn(4)) {
      pop();
    } else {
      const auto before = Read(domain);
      const Edit edit = RandomEdit(random, before);
      KivOmbEnumInteger free(domain);
      const int expected = edit(free);
      int result = 0;
      network.Update(variable,
                     [&](KivOmbiAny& any) { result = edit(*KivOmbEnumInteger::StaticCast(&any)); });
      ASSERT_EQ(result, expected) << testing::PrintToString(before);
      ASSERT_EQ(Read(domain), Read(free)) << testing::PrintToString(before);
      ASSERT_EQ(network.GetSummary(variable), KivOmbEnumInteger::sDescriptor->Summarize(free));
    }
    // Nothing was restored, so that what was written at this level is what differs from before.
    std::size_t visits = 0;
    network.VisitChanged([&](auto) { ++visits; });
    ASSERT_LE(visits, 1u);
    if (!levels.empty() && Read(domain) != levels.back().set) {
      ASSERT_EQ(visits, 1u);
    }
  }
  while (!levels.empty() && !testing::Test::HasFatalFailure()) pop();
}

TEST(LevelsDifferential, AreTakenBackWhateverWasEdited) {
  KivOmbEnumInteger::MakeDescriptor();
  Random random;
  const std::uint64_t rounds = Times(2000);
  for (std::uint64_t i = 0; i < rounds && !HasFatalFailure(); ++i) EditAtLevels(random);
}

}  // namespace
