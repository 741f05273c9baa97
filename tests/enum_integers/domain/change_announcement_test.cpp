// A domain that a network owns announces its writes, and only its writes.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "enum_integers/domain/enum_integer.h"
#include "framework/calculator/network.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

// Notes the text of the watched domain at the first announcement.
class WatchingNetwork : public KivOmbiNetwork {
 public:
  explicit WatchingNetwork(KivOmbEnumInteger& domain) : domain_(domain) {
    domain.SetOwner(this, kVariable);
  }
  ~WatchingNetwork() override { domain_.SetOwner(nullptr, 0); }

  void WillChange(std::uint32_t variable) override {
    EXPECT_EQ(variable, kVariable);
    if (announcements++ == 0) before = Text(domain_) + '/' + std::to_string(Flag(domain_));
  }
  void Enqueue(std::uint32_t, std::int64_t) override { ADD_FAILURE(); }
  void Refresh(std::uint32_t) override { ADD_FAILURE(); }
  void SaveWord(std::uint64_t&) override { ADD_FAILURE(); }
  KivOmbiObject& Scratch(const KivOmbiObjectDescriptor&, unsigned) override { return domain_; }

  int announcements = 0;
  std::string before;

 private:
  static constexpr std::uint32_t kVariable = 17;
  KivOmbEnumInteger& domain_;
};

using Operation = std::function<void(KivOmbEnumInteger&)>;

struct Case {
  const char* name;
  Operation run;
};

void ReadFrom(const char* text, KivOmbEnumInteger& domain) {
  Kivistrstream in(text);
  domain.InputValue(in);
}

int RejectAll(const SubIntBase&, void*) { return 0; }

// Each changes some of the domains below and leaves others.
const std::vector<Case> kOperations = {
    {"Any", [](auto& d) { d.Any(); }},
    {"Nil", [](auto& d) { d.Nil(); }},
    {"SetNilValue", [](auto& d) { d.SetNilValue(); }},
    {"SetUndefinedValue", [](auto& d) { d.SetUndefinedValue(); }},
    {"Insert", [](auto& d) { d.Insert(5); }},
    {"SimpleInsert", [](auto& d) { d.SimpleInsert(5); }},
    {"SetExactValue", [](auto& d) { d.SetExactValue(5); }},
    {"RemoveExactValue", [](auto& d) { d.RemoveExactValue(5); }},
    {"SetLowerBound", [](auto& d) { d.SetLowerBound(4); }},
    {"SetUpperBound", [](auto& d) { d.SetUpperBound(6); }},
    {"assignment",
     [](auto& d) {
       d = Set({4, 5, 6});
     }},
    {"assignment of a single", [](auto& d) { d = KivOmbSingleInteger(5); }},
    {"Assign", [](auto& d) { d.Assign(SetLeftAny({5})); }},
    {"Assign an interval", [](auto& d) { d.Assign(Interval(4, 6)); }},
    {"Intersect",
     [](auto& d) {
       d.Intersect(Set({4, 5, 6}));
     }},
    {"Intersect a single", [](auto& d) { d.Intersect(KivOmbSingleInteger(5)); }},
    {"Intersect an interval", [](auto& d) { d.Intersect(Interval(4, 6)); }},
    {"Intersect filtered", [](auto& d) { d.Intersect(Set({5}), RejectAll, nullptr); }},
    {"Unite",
     [](auto& d) {
       d.Unite(Set({4, 5}));
     }},
    {"Unite a single", [](auto& d) { d.Unite(KivOmbSingleInteger(5)); }},
    {"Minus", [](auto& d) { d.Minus(); }},
    {"LessOrEqual", [](auto& d) { d.CalcLessOrEqualValue(KivOmbSingleInteger(5)); }},
    {"Less", [](auto& d) { d.CalcLessValue(KivOmbSingleInteger(5)); }},
    {"NotLess", [](auto& d) { d.CalcNotLessValue(KivOmbSingleInteger(5)); }},
    {"NotLessAndUnequal", [](auto& d) { d.CalcNotLessAndUnequalValue(KivOmbSingleInteger(5)); }},
    {"Sum",
     [](auto& d) {
       d.CalcSumValue(Set({2, 3}), Set({2, 3}));
     }},
    {"InputValue of a value", [](auto& d) { ReadFrom("5", d); }},
    {"InputValue of an interval", [](auto& d) { ReadFrom("[4, 6]", d); }},
    {"InputValue of Any", [](auto& d) { ReadFrom("Any", d); }},
    {"InputValue of Nil", [](auto& d) { ReadFrom("Nil", d); }},
    {"Bisect",
     [](auto& d) {
       KivOmbEnumInteger other;
       d.Bisect(other, KivOmbiAny::kLowerHalf);
     }},
    {"being the other of Bisect",
     [](auto& d) {
       KivOmbEnumInteger one = Set({5});
       one.Bisect(d, KivOmbiAny::kUpperHalf);
     }},
};

TEST(ChangeAnnouncement, ComesBeforeTheFirstWriteAndOnlyForAChange) {
  const KivOmbEnumInteger domains[] = {
      KivOmbEnumInteger(), NilSet(),           Set({5}),        SetLeftAny({5}),
      Set({4, 5, 6}),      SetLeftAny({4, 5}), Set({-5, 0, 5}), Set({1, 2}),
      Set({8, 9}),         Range(1, 1024),     Set({4, 6}),     SetLeftAny({1, 2}),
  };
  for (const Case& operation : kOperations) {
    int changed = 0;
    for (const KivOmbEnumInteger& start : domains) {
      SCOPED_TRACE(std::string(operation.name) + " of " + Text(start).substr(0, 40));
      KivOmbEnumInteger domain(start);
      WatchingNetwork network(domain);
      const std::string before = Text(domain) + '/' + std::to_string(Flag(domain));
      operation.run(domain);
      const std::string after = Text(domain) + '/' + std::to_string(Flag(domain));
      EXPECT_EQ(network.announcements > 0, before != after);
      if (before != after) {
        EXPECT_EQ(network.before, before);
        ++changed;
      }
    }
    EXPECT_GT(changed, 0) << operation.name;
  }
}

// A set is built in place, so that reading needs no memory beside the domain's.
TEST(ChangeAnnouncement, OfASetThatIsReadComesBeforeTheDomainIsEmptied) {
  KivOmbEnumInteger domain = Set({1, 5, 9});
  WatchingNetwork network(domain);
  ReadFrom("{ 2, 3 }", domain);
  EXPECT_EQ(network.before, "{ 1, 5, 9 }/0");
}

TEST(ChangeAnnouncement, OfAnInverseIsTheOperands) {
  KivOmbEnumInteger x = Set({1, 5, 9});
  KivOmbEnumInteger known = Set({5});
  WatchingNetwork of_known(known);
  WatchingNetwork of_x(x);
  known.CalcInverseLessOrEqualValue(x);
  EXPECT_EQ(of_known.announcements, 0);
  EXPECT_EQ(of_x.before, "{ 1, 5, 9 }/0");
}

TEST(ChangeAnnouncement, IsNotCopiedWithTheDomain) {
  KivOmbEnumInteger domain = Set({1, 2});
  WatchingNetwork network(domain);
  KivOmbEnumInteger copy(domain);
  KivOmbEnumInteger assigned;
  assigned = domain;
  copy.Nil();
  assigned.Nil();
  EXPECT_EQ(network.announcements, 0);
  domain = copy;
  EXPECT_EQ(network.announcements, 1);
}

}  // namespace
