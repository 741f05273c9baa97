#pragma once

#include <cstdint>
#include <new>
#include <span>
#include <type_traits>

#include "framework/abstract_types/environment.h"
#include "framework/calculator/descriptor.h"
#include "framework/calculator/object.h"

// What a run of KivOmbiConstraint::Filter found, as bits.
using KivOmbiFilterResult = std::int64_t;
// Running again at once would change nothing.
inline constexpr KivOmbiFilterResult kKivAtFixpoint = 1;
// Every choice of the values left satisfies the constraint: it never needs to run again.
inline constexpr KivOmbiFilterResult kKivEntailed = 2;
// No choice of the values left satisfies it.
inline constexpr KivOmbiFilterResult kKivContradiction = 4;
// An argument of which nothing is known could only be beyond the range of integers.
inline constexpr KivOmbiFilterResult kKivOverflow = 8;

// A relation between variables of a network, with two arguments or two thousand.
class KIV_EXPORT KivOmbiConstraint : public KivOmbiObject {
 public:
  // The cost of a run, from cheap to dear; a network runs the cheaper constraints first.
  enum Cost : unsigned { kUnary, kBinary, kTernary, kLinear, kQuadratic, kCostly, kCostLevels };

  ~KivOmbiConstraint() override;

  // Identity and name are those of the descriptor.
  const char* CastableID() const final;
  int IsDerivedFrom(const char* ident) const final;
  const KivOmbiObjectDescriptor* GetDescriptor() const final { return descriptor_; }
  void PrintOn(Kivostrstream& out) const override;

  void Activate(KivOmbiNetwork* network) override;
  void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) override;
  // A class that cannot propagate yet tests the relation once all arguments are fixed.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;

  virtual Cost GetCost() const;
  // The KivOmbiEvent bits of argument `index`, one of `arguments`, that can let this constraint
  // narrow anything.
  virtual std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const;
  // The ground truth: whether the relation holds for these values of its arguments (a boolean is 0
  // or 1). Written in 64-bit arithmetic apart from the propagation, which it judges.
  virtual bool Holds(std::span<const std::int64_t> values) const = 0;

  // The constraint's number in its network.
  std::uint32_t GetNumber() const noexcept { return number_; }
  void SetNumber(std::uint32_t number) noexcept { number_ = number; }

 protected:
  explicit KivOmbiConstraint(const KivOmbiConstraintDescriptor* descriptor)
      : descriptor_(descriptor) {}

  // What a run ends with that narrowed all it could: once every argument is fixed, the ground truth
  // decides; before, 0.
  KivOmbiFilterResult Settle(const KivOmbiObjectEnvironment& environment) const;

 private:
  const KivOmbiConstraintDescriptor* descriptor_;
  std::uint32_t number_ = 0;
};

// Whether the class T decides in an ActivateByArgument of its own if it is to run. One that does
// not runs after each event that it asked for.
template <class T>
inline constexpr bool kKivDecidesToRun =
    !std::is_same_v<decltype(&T::ActivateByArgument),
                    decltype(&KivOmbiConstraint::ActivateByArgument)>;

// The descriptor of the constraint class T, whose objects are made from the operator that they
// propagate: `data` of ConstructObjectFrom is a KivOmbiCompoundObjectDescriptor.
// Such a constraint runs after each event that it asked for.
template <class T>
class KivOmbiOperatorConstraintDescriptor final : public KivOmbiConstraintDescriptor {
 public:
  using KivOmbiConstraintDescriptor::KivOmbiConstraintDescriptor;

  KivOmbiObject* ConstructObjectFrom(void* memory, const void* data) const override {
    static_assert(!kKivDecidesToRun<T>);
    return new (memory) T(static_cast<const KivOmbiCompoundObjectDescriptor*>(data));
  }
  std::int64_t GetObjectSize() const override { return sizeof(T); }
};
