// What the virtual entries take from memory when they narrow by operands of the enumerated kind:
// nothing. No operand is copied, and a domain is narrowed where it stands.

#include <gtest/gtest.h>

#include "enum_integers/storage/slot_memory.h"
#include "tests/enum_integers/support/domains.h"
#include "tests/support/counted_memory.h"

namespace {

using namespace kiv::test;

// Narrows the target by one or two known domains.
struct Entry {
  const char* name;
  int (*narrow)(KivOmbiInteger& target, KivOmbiInteger& a, KivOmbiInteger& b);
};

constexpr Entry kEntries[] = {
    {"sum", [](auto& t, auto& a, auto& b) { return t.CalcSumValue(a, b); }},
    {"difference", [](auto& t, auto& a, auto& b) { return a.CalcFirstInverseSumValue(t, b); }},
    {"product", [](auto& t, auto& a, auto& b) { return t.CalcProdValue(a, b); }},
    {"quotient", [](auto& t, auto& a, auto& b) { return a.CalcFirstInverseProdValue(t, b); }},
    {"remainder", [](auto& t, auto& a, auto& b) { return t.CalcModValue(a, b); }},
    {"dividend", [](auto& t, auto& a, auto& b) { return a.CalcFirstInverseModValue(t, b); }},
    {"modulus", [](auto& t, auto& a, auto& b) { return a.CalcSecondInverseModValue(b, t); }},
    {"minimum", [](auto& t, auto& a, auto& b) { return t.CalcMinValue(a, b); }},
    {"maximum", [](auto& t, auto& a, auto& b) { return t.CalcMaxValue(a, b); }},
    {"equal", [](auto& t, auto& a, auto&) { return t.CalcEqualValue(a); }},
    {"inverse equal", [](auto& t, auto& a, auto&) { return a.CalcInverseEqualValue(t); }},
    {"at most", [](auto& t, auto& a, auto&) { return t.CalcLessOrEqualValue(a); }},
    {"at least", [](auto& t, auto& a, auto&) { return t.CalcNotLessValue(a); }},
    {"less", [](auto& t, auto& a, auto&) { return t.CalcLessValue(a); }},
    {"inverse less", [](auto& t, auto& a, auto&) { return a.CalcInverseLessValue(t); }},
    {"successor", [](auto& t, auto& a, auto&) { return t.CalcNextValue(a); }},
    {"negation", [](auto& t, auto& a, auto&) { return t.CalcNegativeValue(a); }},
    {"absolute value", [](auto& t, auto& a, auto&) { return t.CalcAbsoluteValue(a); }},
    {"inverse absolute value",
     [](auto& t, auto& a, auto&) { return a.CalcInverseAbsoluteValue(t); }},
};

// `count` values from `first` on, `step` apart; without every third when `has_holes`.
KivOmbEnumInteger Values(std::int32_t first, std::int32_t count, std::int32_t step,
                         bool has_holes) {
  KivOmbEnumInteger domain = NilSet();
  for (std::int32_t i = 0; i < count; ++i) {
    if (!has_holes || i % 3 != 0) domain.Insert(first + i * step);
  }
  return domain;
}

TEST(VirtualEntries, TakeNoMemoryForOperandsOfTheKind) {
  for (const Entry& entry : kEntries) {
    for (const std::int32_t count : {5, 30, 300}) {
      for (const std::int32_t step : {1, 2, 1009}) {
        for (const bool has_holes : {false, true}) {
          SCOPED_TRACE(testing::Message() << entry.name << ", " << count << " values, step " << step
                                          << (has_holes ? ", with holes" : ""));
          const KivOmbEnumInteger target = Values(1, count, step, false);
          KivOmbEnumInteger a = Values(2 - count / 3, count, step, has_holes);
          KivOmbEnumInteger b = Values(3, count / 2, step, has_holes);
          KivOmbEnumInteger expected = target;
          const int code = entry.narrow(expected, a, b);
          KivOmbEnumInteger narrowed = target;
          const std::size_t before = CountAllocations();
          const int code_without_memory = [&] {
            const kiv::SlotMemoryLimit none(0);
            return entry.narrow(narrowed, a, b);
          }();
          const std::size_t after = CountAllocations();
          EXPECT_EQ(after, before);
          EXPECT_EQ(code_without_memory, code);
          EXPECT_EQ(Text(narrowed), Text(expected));
        }
      }
    }
  }
}

}  // namespace
