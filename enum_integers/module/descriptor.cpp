// What the framework knows of the kind: how to make its objects, to save and restore them while it
// backtracks, and to sum them up.

#include <cstring>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/kernels/merging.h"
#include "enum_integers/kernels/scratch.h"

namespace {

constexpr std::size_t kWord = sizeof(std::uint32_t);

// Marks the count of values of a state that holds only the first of them, the others being those
// that follow it.
constexpr std::uint32_t kRunBit = std::uint32_t{1} << 31;

// Fewer values are copied as quickly as they are looked at.
bool IsRun(kiv::kernels::Values values) {
  return values.size() > 32 && kiv::kernels::IsInterval(values);
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
  const std::size_t size = 2 * kWord + (is_run ? kWord : values.size_bytes());
  if (size > room.size()) return size;
  const std::uint32_t count = domain.Count() | (is_run ? kRunBit : 0);
  std::memcpy(room.data(), &domain.anyFlag, kWord);
  std::memcpy(room.data() + kWord, &count, kWord);
  if (!values.empty()) std::memcpy(room.data() + 2 * kWord, values.data(), size - 2 * kWord);
  return size;
}

int KivOmbEnumInteger::Descriptor::RestoreState(KivOmbiObject& object, const void* state) const {
  KivOmbEnumInteger& domain = *StaticCast(&object);
  const auto* const words = static_cast<const unsigned char*>(state);
  std::uint32_t count;
  std::memcpy(&count, words + kWord, kWord);
  const bool is_run = (count & kRunBit) != 0;
  count &= ~kRunBit;
  SubIntBase* const slots = domain.values.Overwrite(count, domain.GetDelta());
  if (slots == nullptr && count > 0) return 0;
  if (is_run) {
    std::int32_t first;
    std::memcpy(&first, words + 2 * kWord, kWord);
    for (std::uint32_t i = 0; i < count; ++i) slots[i] = first + static_cast<std::int32_t>(i);
  } else if (count > 0) {
    std::memcpy(static_cast<void*>(slots), words + 2 * kWord, count * kWord);
  }
  std::memcpy(&domain.anyFlag, words, kWord);
  return 1;
}

int KivOmbEnumInteger::Descriptor::Regain(KivOmbiObject& object,
                                          std::span<const std::int32_t> values) const {
  return StaticCast(&object)->values.Merge(reinterpret_cast<const SubIntBase*>(values.data()),
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
