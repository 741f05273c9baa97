// The module "KivForeign": a kind of integer, "range int", that no other module knows. It computes
// as an interval does, but does not say that it is one, so that all it has in common with the other
// kinds is what every kind of integer offers.

#include <cstring>

#include "framework/calculator/module_manager.h"
#include "framework/numbers/interval_integer.h"

namespace {

const char identity[] = "KivForeignRange";

class Range final : public KivOmbIntervalInteger {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;

  const char* CastableID() const override { return identity; }
  int IsDerivedFrom(const char* ident) const override {
    return ident == identity ? 1 : KivOmbiInteger::IsDerivedFrom(ident);
  }
  const KivOmbiObjectDescriptor* GetDescriptor() const override { return sDescriptor; }

  void Bisect(KivOmbiObject& other, ValueSelection selection) override {
    KivOmbIntervalInteger mine(*this);
    KivOmbIntervalInteger given;
    mine.Bisect(given, selection);
    static_cast<Range&>(other).Assign(given);
    Assign(mine);
  }
};

class RangeDescriptor final : public KivOmbiObjectDescriptor {
 public:
  RangeDescriptor() : KivOmbiObjectDescriptor("range int", KivOmbiInteger::sDescriptor, 0) {}

  KivOmbiObject* ConstructObject(void* memory) const override { return new (memory) Range; }
  std::int64_t GetObjectSize() const override { return sizeof(Range); }

  std::size_t SaveState(const KivOmbiObject& object, std::span<std::byte> room) const override {
    const auto& range = static_cast<const Range&>(object);
    const State bounds{range.GetLowerBound(), range.GetUpperBound()};
    if (room.size() >= sizeof bounds) std::memcpy(room.data(), &bounds, sizeof bounds);
    return sizeof bounds;
  }
  int RestoreState(KivOmbiObject& object, const void* state) const override {
    State bounds;
    std::memcpy(&bounds, state, sizeof bounds);
    static_cast<Range&>(object).Assign(
        KivOmbIntervalInteger(SubdefInt(bounds.lower, bounds.upper)));
    return 1;
  }
  KivOmbiDomainSummary Summarize(const KivOmbiObject& object) const override {
    return static_cast<const Range&>(object).Summarize();
  }

 private:
  struct State {
    std::int32_t lower;
    std::int32_t upper;
  };
};

const RangeDescriptor descriptor;
const KivOmbiObjectDescriptor* const Range::sDescriptor = &descriptor;

}  // namespace

extern "C" KIV_EXPORT int InitModule(KivOmbiModule* module, KivOmbiModuleManager* manager) {
  if (module == nullptr || manager == nullptr) return 0;
  KivOmbiModule* numbers = manager->OpenModule("KivOmbNumbers");
  if (numbers == nullptr) return 0;
  module->AddLoadedModule(numbers);
  module->AddObjectDescriptor(Range::sDescriptor);
  return 1;
}
