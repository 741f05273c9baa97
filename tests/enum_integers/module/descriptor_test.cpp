#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/storage/slot_memory.h"
#include "framework/calculator/network.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;
using Descriptor = KivOmbEnumInteger::Descriptor;

TEST(Descriptor, NamesTheKindAndItsParent) {
  const Descriptor descriptor;
  EXPECT_EQ(descriptor.GetName(), "enum int");
  EXPECT_EQ(descriptor.GetParent(), KivOmbiInteger::sDescriptor);
  EXPECT_STREQ(descriptor.CastableID(), "KivOmbEnumInteger_Descriptor");
  EXPECT_EQ(descriptor.GetObjectSize(), static_cast<std::int64_t>(sizeof(KivOmbEnumInteger)));
}

TEST(Descriptor, IsMadeAnewByEveryCall) {
  const std::unique_ptr<const Descriptor> first(KivOmbEnumInteger::MakeDescriptor());
  EXPECT_EQ(KivOmbEnumInteger::sDescriptor, first.get());
  const std::unique_ptr<const Descriptor> second(KivOmbEnumInteger::MakeDescriptor());
  EXPECT_EQ(KivOmbEnumInteger::sDescriptor, second.get());
  EXPECT_EQ(KivOmbEnumInteger().GetDescriptor(), second.get());
  EXPECT_NE(first, second);
  KivOmbEnumInteger::sDescriptor = nullptr;
}

TEST(Descriptor, ConstructsObjectsInGivenMemory) {
  const Descriptor descriptor;
  alignas(KivOmbEnumInteger) unsigned char memory[sizeof(KivOmbEnumInteger)];
  KivOmbiObject* object = descriptor.ConstructObject(memory);
  EXPECT_EQ(static_cast<void*>(object), memory);
  EXPECT_EQ(Text(*object), "Any");
  descriptor.DestroyObject(object);

  const std::int32_t block[] = {3, 7, 2, 7};
  object = descriptor.ConstructObjectFrom(memory, block);
  EXPECT_EQ(static_cast<void*>(object), memory);
  EXPECT_EQ(Text(*object), "{ 2, 7 }");
  descriptor.DestroyObject(object);
}

TEST(Descriptor, ConstructsNothingInNullMemory) {
  const Descriptor descriptor;
  const std::int32_t block[] = {1, 7};
  EXPECT_EQ(descriptor.ConstructObject(nullptr), nullptr);
  EXPECT_EQ(descriptor.ConstructObjectFrom(nullptr, block), nullptr);
}

TEST(Descriptor, BuilderHandsBackWhatItIsGiven) {
  Descriptor descriptor;
  EXPECT_EQ(Descriptor::Build(&descriptor), &descriptor);
  const std::unique_ptr<KivStreamable> built(Descriptor::Build(nullptr));
  ASSERT_NE(built, nullptr);
  EXPECT_EQ(built->CastableID(), Descriptor::CastableIdent);
}

TEST(Descriptor, IsAStreamableClass) {
  const KivStreamableClass* const entry = KivStreamableClass::Find("KivOmbEnumInteger_Descriptor");
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(entry->GetBuilder(), &Descriptor::Build);
  EXPECT_EQ(entry->GetVersion(), 1);
}

std::vector<std::byte> Saved(const Descriptor& descriptor, const KivOmbEnumInteger& domain) {
  std::vector<std::byte> state(descriptor.SaveState(domain, {}));
  EXPECT_EQ(descriptor.SaveState(domain, state), state.size());
  return state;
}

TEST(SavedState, RestoresValuesAndLeftoverFlag) {
  const Descriptor descriptor;
  for (const KivOmbEnumInteger& domain :
       {KivOmbEnumInteger(), NilSet(), Set({1, 5}), SetLeftAny({1, 5}), Set({7}),
        Set({kMax - 1, kMax}), SetLeftAny({1, 2, 3}), Range(1, 1024)}) {
    const auto state = Saved(descriptor, domain);
    // Of many values without a gap only the first is saved.
    EXPECT_EQ(state.size(), 24 + 4 * (domain.Count() == 1024 ? 1 : domain.Count()));
    for (KivOmbEnumInteger target : {KivOmbEnumInteger(), NilSet(), SetLeftAny({7, 8, 9})}) {
      EXPECT_EQ(descriptor.RestoreState(target, state.data()), 1);
      EXPECT_EQ(Text(target), Text(domain));
      EXPECT_EQ(Flag(target), Flag(domain));
    }
  }
}

TEST(SavedState, NeedsNoMemoryWhenTheStorageSuffices) {
  const Descriptor descriptor;
  KivOmbEnumInteger domain = Range(1, 300);
  const auto state = Saved(descriptor, domain);
  domain.Intersect(Interval(4, 5));
  const kiv::SlotMemoryLimit none(0);
  EXPECT_EQ(descriptor.RestoreState(domain, state.data()), 1);
  EXPECT_EQ(domain.Count(), 300u);
  KivOmbEnumInteger small;
  EXPECT_EQ(descriptor.RestoreState(small, state.data()), 0);
}

// A network that nothing should be announced to.
class SilentNetwork : public KivOmbiNetwork {
 public:
  void WillChange(std::uint32_t) override { ADD_FAILURE() << "announced"; }
  void Enqueue(std::uint32_t, std::int64_t) override {}
  void Refresh(std::uint32_t) override {}
  void SaveWord(std::uint64_t&) override {}
  KivOmbiObject& Scratch(const KivOmbiObjectDescriptor&, unsigned) override { return scratch_; }

 private:
  KivOmbEnumInteger scratch_;
};

TEST(SavedState, IsRestoredWithoutAnnouncement) {
  const Descriptor descriptor;
  const auto state = Saved(descriptor, Set({1, 5}));
  SilentNetwork network;
  KivOmbEnumInteger domain;
  domain.SetOwner(&network, 0);
  descriptor.RestoreState(domain, state.data());
  EXPECT_EQ(Text(domain), "{ 1, 5 }");
}

TEST(Summary, TellsBoundsCardinalityAndState) {
  using Summary = KivOmbiDomainSummary;
  const Descriptor descriptor;
  EXPECT_EQ(descriptor.Summarize(Set({3, 7, 12})), (Summary{3, 12, 3, Summary::kValues}));
  EXPECT_EQ(descriptor.Summarize(NilSet()), (Summary{kMax, kMin, 0, Summary::kNil}));
  EXPECT_EQ(descriptor.Summarize(KivOmbEnumInteger()),
            (Summary{kMin, kMax, 0xffffffffu, Summary::kAny}));
}

}  // namespace
