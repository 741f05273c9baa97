#include "solver/language/declared_domain.h"

#include <gtest/gtest.h>

#include "tests/support/modules.h"

namespace kiv {
namespace {

using Fit = DeclaredDomain::Fit;

Fit Judge(const DeclaredDomain& domain, const char* kind) {
  return domain.JudgeKind(*test::OpenModules().FindKind(kind));
}

TEST(DeclaredDomain, CountsAndDescribesItsValues) {
  const DeclaredDomain all = DeclaredDomain::FromInterval(-2147483646, 2147483646);
  EXPECT_EQ(all.Count(), 4294967293u);
  EXPECT_EQ(all.Describe(), "[-2147483646, 2147483646]");
  const DeclaredDomain some = DeclaredDomain::FromValues({5, 1, 5, -2, 1});
  EXPECT_EQ(some.Count(), 3u);
  EXPECT_EQ(some.Describe(), "{ -2, 1, 5 }");
  EXPECT_EQ(some.GetValues(), (std::vector<std::int32_t>{-2, 1, 5}));
  EXPECT_EQ(DeclaredDomain::FromValues({1, 2, 3, 4, 5, 6, 7, 8, 9}).Describe(),
            "{ 1, 2, 3, 4, 5, 6, 7, 8, ... }");
}

TEST(DeclaredDomain, EnumeratedIntegersHold1024Values) {
  EXPECT_EQ(Judge(DeclaredDomain::FromInterval(1, 1024), "enum int"), Fit::kExact);
  EXPECT_EQ(Judge(DeclaredDomain::FromInterval(1, 1025), "enum int"), Fit::kLost);
  EXPECT_EQ(Judge(DeclaredDomain::FromInterval(-2147483646, 2147483646), "enum int"), Fit::kLost);
  EXPECT_EQ(Judge(DeclaredDomain::FromValues({-2147483646, 0, 2147483646}), "enum int"),
            Fit::kExact);
  std::vector<std::int32_t> many;
  for (std::int32_t i = 0; i < 1025; ++i) many.push_back(2 * i);
  EXPECT_EQ(Judge(DeclaredDomain::FromValues(many), "enum int"), Fit::kLost);
  many.pop_back();
  EXPECT_EQ(Judge(DeclaredDomain::FromValues(many), "enum int"), Fit::kExact);
}

TEST(DeclaredDomain, IntervalsHoldTheHullOfValues) {
  EXPECT_EQ(Judge(DeclaredDomain::FromInterval(-2147483646, 2147483646), "interval int"),
            Fit::kExact);
  EXPECT_EQ(Judge(DeclaredDomain::FromInterval(3, 9), "interval int"), Fit::kExact);
  EXPECT_EQ(Judge(DeclaredDomain::FromValues({3, 4, 5}), "interval int"), Fit::kExact);
  EXPECT_EQ(Judge(DeclaredDomain::FromValues({3, 5}), "interval int"), Fit::kWidened);
}

TEST(DeclaredDomain, SingleIntegersHoldOneValue) {
  EXPECT_EQ(Judge(DeclaredDomain::FromValues({3}), "int"), Fit::kExact);
  EXPECT_EQ(Judge(DeclaredDomain::FromInterval(3, 3), "int"), Fit::kExact);
  EXPECT_EQ(Judge(DeclaredDomain::FromValues({3, 5}), "int"), Fit::kLost);
  EXPECT_EQ(Judge(DeclaredDomain::FromInterval(3, 4), "int"), Fit::kLost);
}

}  // namespace
}  // namespace kiv
