// What the framework knows of the kind: how to make its objects, to save and restore them while it
// backtracks, and to sum them up.

#include <cassert>
#include <cstring>
#include <numeric>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/kernels/merging.h"
#include "enum_integers/kernels/scratch.h"

namespace {

// Marks the count of values of a state that holds only the first of them, the others being those
// that follow it.
constexpr std::uint32_t kRunBit = std::uint32_t{1} << 31;

// What a saved state begins with; the values follow.
struct StateHead {
  const SubIntBase* slots;  // of the values, in the domain of a variable; otherwise null
  std::uint64_t rewritten;
  std::uint32_t count;
  std::int32_t any_flag;
};

// Fewer values are copied as quickly as they are looked at.
bool IsRun(kiv::kernels::Values values) {
  return values.size() > 32 && kiv::kernels::IsInterval(values);
}

// Whether `values` are those of the state.
[[maybe_unused]] bool IsListedBy(const StateHead& head, const std::byte* listed,
                                 kiv::kernels::Values values) {
  const bool is_run = (head.count & kRunBit) != 0;
  const std::size_t compared = is_run ? sizeof(SubIntBase) : values.size_bytes();
  return values.size() == (head.count & ~kRunBit) &&
         (!is_run || kiv::kernels::IsInterval(values)) &&
         (values.empty() || std::memcmp(values.data(), listed, compared) == 0);
}

const KivOmbEnumInteger& DomainOf(const KivOmbiObject& object) {
  return *KivOmbEnumInteger::StaticCast(&object);
}

}  // namespace

const KivOmbEnumInteger::Descriptor* KivOmbEnumInteger::sDescriptor = nullptr;

const KivOmbEnumInteger::Descriptor* KivOmbEnumInteger::MakeDescriptor() {
  return sDescriptor = new Descriptor;
}

const KivOmbiObjectDescriptor* KivOmbEnumInteger::GetDescriptor() const { return sDescriptor; }

const char KivOmbEnumInteger::Descriptor::CastableIdent[] = "KivOmbEnumInteger_Descriptor";

KivOmbEnumInteger::Descriptor::Descriptor()
    : KivOmbiObjectDescriptor("enum int", KivOmbiInteger::sDescriptor, 0) {}

KivOmbEnumInteger::Descriptor::Descriptor(KivStreamableInit init) : KivOmbiObjectDescriptor(init) {}

KivOmbEnumInteger::Descriptor::~Descriptor() = default;

KivStreamable* KivOmbEnumInteger::Descriptor::Build(KivStreamable* object) {
  return object != nullptr ? object : new Descriptor(kKivStreamableInit);
}

const char* KivOmbEnumInteger::Descriptor::CastableID() const { return CastableIdent; }

// The placement form gives null for null memory, and then nothing is constructed.
KivOmbiObject* KivOmbEnumInteger::Descriptor::ConstructObjectFrom(void* memory,
                                                                  const void* data) const {
  return new (memory) KivOmbEnumInteger(data);
}

KivOmbiObject* KivOmbEnumInteger::Descriptor::ConstructObject(void* memory) const {
  return new (memory) KivOmbEnumInteger;
}

std::int64_t KivOmbEnumInteger::Descriptor::GetObjectSize() const {
  return sizeof(KivOmbEnumInteger);
}

std::size_t KivOmbEnumInteger::Descriptor::SaveState(const KivOmbiObject& object,
                                                     std::span<std::byte> room) const {
  const KivOmbEnumInteger& domain = DomainOf(object);
  const auto values = domain.View();
  const bool is_run = IsRun(values);
  const std::size_t listed = is_run ? sizeof(SubIntBase) : values.size_bytes();
  const std::size_t size = sizeof(StateHead) + listed;
  if (size > room.size()) return size;
  const StateHead head{domain.HasOwner() ? &domain.values[0] : nullptr, domain.rewritten,
                       domain.Count() | (is_run ? kRunBit : 0), domain.anyFlag};
  std::memcpy(room.data(), &head, sizeof(head));
  if (listed > 0) std::memcpy(room.data() + sizeof(head), values.data(), listed);
  return size;
}

int KivOmbEnumInteger::Descriptor::RestoreState(KivOmbiObject& object, const void* state) const {
  KivOmbEnumInteger& domain = *StaticCast(&object);
  StateHead head;
  std::memcpy(&head, state, sizeof(head));
  const auto* const listed = static_cast<const std::byte*>(state) + sizeof(head);
  const std::uint32_t count = head.count & ~kRunBit;
  if (head.slots != nullptr && domain.HasOwner() && head.rewritten == domain.rewritten) {
    domain.values.Uncover(head.slots, count);
    assert(IsListedBy(head, listed, domain.View()));
  } else {
    SubIntBase* const slots = domain.values.Overwrite(count, domain.GetDelta());
    if (slots == nullptr && count > 0) return 0;
    if ((head.count & kRunBit) != 0) {
      std::int32_t first;
      std::memcpy(&first, listed, sizeof(first));
      auto* const integers = reinterpret_cast<std::int32_t*>(slots);
      std::iota(integers, integers + count, first);
    } else if (count > 0) {
      std::memcpy(static_cast<void*>(slots), listed, count * sizeof(SubIntBase));
    }
    ++domain.rewritten;
  }
  domain.anyFlag = head.any_flag;
  return 1;
}

int KivOmbEnumInteger::Descriptor::Regain(KivOmbiObject& object,
                                          std::span<const std::int32_t> values) const {
  KivOmbEnumInteger& domain = *StaticCast(&object);
  ++domain.rewritten;
  return domain.values.Merge(reinterpret_cast<const SubIntBase*>(values.data()),
                             static_cast<unsigned>(values.size()));
}

KivOmbiDomainSummary KivOmbEnumInteger::Descriptor::Summarize(const KivOmbiObject& object) const {
  const KivOmbEnumInteger& domain = DomainOf(object);
  const std::uint32_t count = domain.Count();
  if (count > 0) {
    return {domain.GetFirstL(), domain.GetLastU(), count, KivOmbiDomainSummary::kValues};
  }
  constexpr std::int32_t kMin = KivOmbSingleInteger::sNC_INT_MIN;
  constexpr std::int32_t kMax = KivOmbSingleInteger::sNC_INT_MAX;
  if (domain.CheckNil()) return {kMax, kMin, 0, KivOmbiDomainSummary::kNil};
  return {kMin, kMax, ~std::uint32_t{0}, KivOmbiDomainSummary::kAny};
}

bool KivOmbEnumInteger::Descriptor::HoldsGaps() const { return true; }

std::span<const SubIntBase> KivOmbEnumInteger::Descriptor::GetValues(
    const KivOmbiObject& object) const {
  const KivOmbEnumInteger& domain = DomainOf(object);
  const unsigned count = domain.Count();
  return count > 0 ? std::span(&domain.values[0], count) : std::span<const SubIntBase>();
}

int KivOmbEnumInteger::Descriptor::KeepBetween(KivOmbiObject& object, std::int32_t lower,
                                               std::int32_t upper) const {
  KivOmbEnumInteger& domain = *StaticCast(&object);
  return domain.Count() > 0 ? domain.KeepBetween(lower, upper) : 0;
}

int KivOmbEnumInteger::Descriptor::RemoveValues(KivOmbiObject& object,
                                                std::span<const std::int32_t> values) const {
  KivOmbEnumInteger& domain = *StaticCast(&object);
  const auto mine = domain.View();
  const kiv::kernels::Scratch lost(mine.size() + kiv::kernels::kSlack);
  if (mine.empty() || values.empty()) return 0;
  if (lost.Get() == nullptr) return kNotOffered;
  return domain.Lose({lost.Get(), kiv::kernels::Intersect(mine, values, lost.Get())});
}

int KivOmbEnumInteger::Descriptor::KeepWord(KivOmbiObject& object, std::uint64_t word) const {
  StaticCast(&object)->KeepWord(word);
  return 1;
}
