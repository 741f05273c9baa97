#pragma once

#include <cstring>
#include <type_traits>

#include "framework/calculator/descriptor.h"
#include "framework/numbers/bounded_integer.h"

// The descriptor of a kind T of this library, whose whole state is the plain `value_` of type
// T::Value. ConstructObjectFrom takes such a state, as SaveState writes it.
template <class T>
class KivOmbNumberDescriptor final : public KivOmbiObjectDescriptor {
 public:
  using KivOmbiObjectDescriptor::KivOmbiObjectDescriptor;

  KivOmbiObject* ConstructObjectFrom(void* memory, const void* data) const override {
    T* object = new (memory) T;
    if (object != nullptr) RestoreState(*object, data);
    return object;
  }
  KivOmbiObject* ConstructObject(void* memory) const override { return new (memory) T; }
  std::int64_t GetObjectSize() const override { return sizeof(T); }

  std::size_t SaveState(const KivOmbiObject& object, std::span<std::byte> room) const override {
    if (room.size() >= sizeof(Value)) {
      std::memcpy(room.data(), &static_cast<const T&>(object).value_, sizeof(Value));
    }
    return sizeof(Value);
  }
  int RestoreState(KivOmbiObject& object, const void* state) const override {
    std::memcpy(&static_cast<T&>(object).value_, state, sizeof(Value));
    return 1;
  }
  KivOmbiDomainSummary Summarize(const KivOmbiObject& object) const override {
    return static_cast<const T&>(object).Summarize();
  }

  int KeepBetween([[maybe_unused]] KivOmbiObject& object, [[maybe_unused]] std::int32_t lower,
                  [[maybe_unused]] std::int32_t upper) const override {
    if constexpr (std::is_base_of_v<KivOmbBoundedInteger, T>) {
      return static_cast<T&>(object).T::Narrow(lower, upper);
    } else {
      return kNotOffered;
    }
  }

 private:
  using Value = typename T::Value;
  static_assert(std::is_trivially_copyable_v<Value>);
};
