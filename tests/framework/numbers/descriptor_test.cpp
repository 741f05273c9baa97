// What a network knows of the kinds: their descriptors and identities.

#include "framework/calculator/descriptor.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

#include "tests/framework/numbers/domain.h"

namespace kiv::test {
namespace {

TEST(NumberDescriptors, NameTheKindsOfModels) {
  EXPECT_EQ(KivOmbSingleInteger::sDescriptor->GetName(), "int");
  EXPECT_EQ(KivOmbIntervalInteger::sDescriptor->GetName(), "interval int");
  EXPECT_EQ(KivOmbSingleBoolean::sDescriptor->GetName(), "bool");
  EXPECT_EQ(KivOmbSingleInteger::sDescriptor->GetParent(), KivOmbiInteger::sDescriptor);
  EXPECT_EQ(KivOmbIntervalInteger::sDescriptor->GetParent(), KivOmbiInteger::sDescriptor);
  EXPECT_EQ(KivOmbSingleBoolean::sDescriptor->GetParent(), KivOmbiBoolean::sDescriptor);
}

TEST(NumberDescriptors, MatchTheirOwnKindAndThoseAbove) {
  const auto* single = KivOmbSingleInteger::sDescriptor;
  EXPECT_EQ(single->IsMatched(single), 1);
  EXPECT_EQ(KivOmbiInteger::sDescriptor->IsMatched(single), 1);
  EXPECT_EQ(KivOmbIntervalInteger::sDescriptor->IsMatched(single), 0);
  EXPECT_EQ(KivOmbiInteger::sDescriptor->IsMatched(KivOmbSingleBoolean::sDescriptor), 0);
}

template <class Kind>
class NumberDescriptor : public testing::Test {
 protected:
  static const KivOmbiObjectDescriptor& Descriptor() { return *Kind::sDescriptor; }

  static std::vector<std::byte> Saved(const Kind& domain) {
    std::vector<std::byte> state(Descriptor().SaveState(domain, {}));
    EXPECT_EQ(Descriptor().SaveState(domain, state), state.size());
    return state;
  }

  alignas(Kind) std::byte memory_[sizeof(Kind)];
};
using Kinds = testing::Types<KivOmbSingleInteger, KivOmbIntervalInteger, KivOmbSingleBoolean>;
TYPED_TEST_SUITE(NumberDescriptor, Kinds);

// A state that is neither Any nor Nil.
void MakeSpecial(KivOmbSingleInteger& domain) { domain.SetExactValue(-6); }
void MakeSpecial(KivOmbIntervalInteger& domain) { domain = Interval(-6, 8); }
void MakeSpecial(KivOmbSingleBoolean& domain) { domain.CalcTruthValue(false); }

TYPED_TEST(NumberDescriptor, ConstructsAnAnyDomainInGivenMemory) {
  ASSERT_EQ(this->Descriptor().GetObjectSize(), static_cast<std::int64_t>(sizeof(TypeParam)));
  EXPECT_EQ(this->Descriptor().GetNumberOfArguments(), 0u);
  KivOmbiObject* object = this->Descriptor().ConstructObject(this->memory_);
  ASSERT_EQ(static_cast<void*>(object), this->memory_);
  EXPECT_EQ(static_cast<KivOmbiAny*>(object)->IsUndefined(), 1);
  EXPECT_EQ(object->GetDescriptor(), TypeParam::sDescriptor);
  this->Descriptor().DestroyObject(object);
}

TYPED_TEST(NumberDescriptor, ConstructsNothingInNoMemory) {
  EXPECT_EQ(this->Descriptor().ConstructObject(nullptr), nullptr);
  TypeParam domain;
  const auto state = this->Saved(domain);
  EXPECT_EQ(this->Descriptor().ConstructObjectFrom(nullptr, state.data()), nullptr);
}

TYPED_TEST(NumberDescriptor, ConstructsFromASavedState) {
  TypeParam domain;
  MakeSpecial(domain);
  const auto state = this->Saved(domain);
  KivOmbiObject* object = this->Descriptor().ConstructObjectFrom(this->memory_, state.data());
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(Text(static_cast<KivOmbiAny&>(*object)), Text(domain));
  this->Descriptor().DestroyObject(object);
}

TYPED_TEST(NumberDescriptor, RestoresWhatItSavedWithoutAnAnnouncement) {
  TypeParam domain;
  MakeSpecial(domain);
  const std::string before = Text(domain);
  const auto state = this->Saved(domain);
  for (void (TypeParam::*change)() : {&TypeParam::SetNilValue, &TypeParam::SetUndefinedValue}) {
    (domain.*change)();
    ASSERT_NE(Text(domain), before);
    Listener listener(domain);
    EXPECT_EQ(this->Descriptor().RestoreState(domain, state.data()), 1);
    EXPECT_EQ(listener.announcements, 0);
    domain.SetOwner(nullptr, 0);
    EXPECT_EQ(Text(domain), before);
  }
}

TYPED_TEST(NumberDescriptor, CastsByIdentity) {
  TypeParam domain;
  KivOmbiBase* base = &domain;
  const KivOmbiBase* const_base = &domain;
  EXPECT_EQ(TypeParam::DynamicCast(base), &domain);
  EXPECT_EQ(TypeParam::DynamicCast(const_base), &domain);
  EXPECT_EQ(TypeParam::DynamicCast(static_cast<KivOmbiBase*>(nullptr)), nullptr);
  EXPECT_EQ(domain.CastableID(), TypeParam::CastableIdent);
  EXPECT_EQ(domain.IsDerivedFrom(TypeParam::CastableIdent), 1);
  EXPECT_EQ(domain.IsDerivedFrom(KivOmbiAny::CastableIdent), 1);
  // Identity is the address, not the text.
  EXPECT_EQ(domain.IsDerivedFrom(std::string(TypeParam::CastableIdent).c_str()), 0);

  KivOmbSingleInteger single;
  KivOmbIntervalInteger interval;
  KivOmbSingleBoolean boolean;
  for (KivOmbiAny* other : std::initializer_list<KivOmbiAny*>{&single, &interval, &boolean}) {
    const bool same = other->GetDescriptor() == TypeParam::sDescriptor;
    EXPECT_EQ(TypeParam::DynamicCast(static_cast<KivOmbiBase*>(other)) != nullptr, same);
  }
}

TEST(NumberDescriptors, SummarizeADomain) {
  using Summary = KivOmbiDomainSummary;
  const auto summarize = [](const KivOmbiAny& domain) {
    return domain.GetDescriptor()->Summarize(domain);
  };
  constexpr std::uint32_t kUncounted = ~std::uint32_t{0};
  EXPECT_EQ(summarize(KivOmbSingleInteger(-3)), (Summary{-3, -3, 1, Summary::kValues}));
  EXPECT_EQ(summarize(KivOmbSingleInteger()), (Summary{kMin, kMax, kUncounted, Summary::kAny}));
  EXPECT_EQ(summarize(Interval(-3, 4)), (Summary{-3, 4, 8, Summary::kValues}));
  EXPECT_EQ(summarize(Interval(kMin, 4)).state, Summary::kValues);
  EXPECT_EQ(summarize(KivOmbIntervalInteger()), (Summary{kMin, kMax, kUncounted, Summary::kAny}));
  EXPECT_EQ(summarize(Interval(1, 0)), (Summary{kMax, kMin, 0, Summary::kNil}));
  // An open boolean can be split, so that it is no Any to a network.
  EXPECT_EQ(summarize(KivOmbSingleBoolean()), (Summary{0, 1, 2, Summary::kValues}));
  EXPECT_EQ(summarize(KivOmbSingleBoolean(false)), (Summary{0, 0, 1, Summary::kValues}));
  EXPECT_EQ(summarize(KivOmbSingleBoolean(true)), (Summary{1, 1, 1, Summary::kValues}));
  KivOmbSingleInteger nil;
  nil.Nil();
  EXPECT_EQ(summarize(nil).state, Summary::kNil);
  KivOmbSingleBoolean neither;
  neither.Nil();
  EXPECT_EQ(summarize(neither).state, Summary::kNil);
}

}  // namespace
}  // namespace kiv::test
