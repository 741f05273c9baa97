#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "framework/abstract_types/integer.h"
#include "framework/calculator/network.h"
#include "framework/numbers/interval_integer.h"
#include "framework/numbers/single_boolean.h"
#include "framework/numbers/single_integer.h"

namespace kiv::test {

inline constexpr std::int32_t kMin = SubIntBase::kMin;
inline constexpr std::int32_t kMax = SubIntBase::kMax;

inline KivOmbIntervalInteger Interval(std::int32_t lower, std::int32_t upper) {
  return KivOmbIntervalInteger(SubdefInt(lower, upper));
}

std::string Text(const KivOmbiAny& domain);

// A domain that was constructed through the descriptor of its kind.
struct DestroyDomain {
  void operator()(KivOmbiAny* domain) const;
};
using DomainPointer = std::unique_ptr<KivOmbiAny, DestroyDomain>;

// An Any domain of the kind of this display name, "enum int" included.
DomainPointer MakeAny(const char* kind);
// The integer domain built from Nil by inserting `values`; none make Nil.
DomainPointer MakeInteger(const char* kind, const std::vector<std::int32_t>& values);

inline KivOmbiInteger& AsInteger(const DomainPointer& domain) {
  return static_cast<KivOmbiInteger&>(*domain);
}

// A network that only listens: counts how often `domain` announces a change.
class Listener final : public KivOmbiNetwork {
 public:
  explicit Listener(KivOmbiAny& domain) { domain.SetOwner(this, kVariable); }

  int announcements = 0;

  void Enqueue(std::uint32_t constraint, std::int64_t events) override;
  void WillChange(std::uint32_t variable) override;
  void Refresh(std::uint32_t variable) override;
  void SaveWord(std::uint64_t& word) override;
  KivOmbiObject& Scratch(const KivOmbiObjectDescriptor& kind, unsigned index) override;

 private:
  static constexpr std::uint32_t kVariable = 7;
};

}  // namespace kiv::test
