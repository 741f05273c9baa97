#pragma once

#include <optional>
#include <typeinfo>

#include "enum_integers/domain/enum_integer.h"

// The frames around the cores of the operators. Every virtual entry of an operator runs its core in
// one of them, which converts the operands, answers for Nil and Any, and writes the result back;
// the core computes. The frames return the core's result code, or their own: 0 when the target
// stays, 1 when it becomes Nil.
namespace kiv {

// An operand as an enumerated domain: itself when it is one, else its conversion.
class EnumeratedOperand {
 public:
  explicit EnumeratedOperand(const KivOmbiAny& x) : domain_(KivOmbEnumInteger::DynamicCast(&x)) {
    if (domain_ == nullptr) {
      conversion_.emplace().Assign(x);
      domain_ = &*conversion_;
    }
  }
  EnumeratedOperand(const EnumeratedOperand&) = delete;
  EnumeratedOperand& operator=(const EnumeratedOperand&) = delete;

  const KivOmbEnumInteger& operator*() const { return *domain_; }
  const KivOmbEnumInteger* operator->() const { return domain_; }

 private:
  std::optional<KivOmbEnumInteger> conversion_;
  const KivOmbEnumInteger* domain_;
};

// An operand of the enumerated kind that holds values, else null. With such a target and such
// operands there is nothing to convert and nothing to answer for: the core is called at once.
inline const KivOmbEnumInteger* AsListed(const KivOmbiAny& x) {
  if (&typeid(x) != &typeid(KivOmbEnumInteger)) return nullptr;
  const auto& domain = static_cast<const KivOmbEnumInteger&>(x);
  return domain.Count() > 0 ? &domain : nullptr;
}

template <class Core>
[[gnu::noinline]] int ConvertingForwardEntry(KivOmbEnumInteger& target, const KivOmbiAny& x,
                                             Core core) {
  if (target.CheckNil()) return 0;
  const EnumeratedOperand operand(x);
  return operand->CheckNil() ? target.Nil() : core(*operand);
}

// target op x. `core(x)` narrows the target.
template <class Core>
int ForwardEntry(KivOmbEnumInteger& target, const KivOmbiAny& x, Core core) {
  const KivOmbEnumInteger* const listed = AsListed(x);
  if (target.Count() > 0 && listed != nullptr) return core(*listed);
  return ConvertingForwardEntry(target, x, core);
}

// target = a op b. `core(a, b)` narrows the target. The operands may be the target itself: a core
// writes to its target only when it has read all that it needs of the others.
template <class Core>
int ForwardEntry(KivOmbEnumInteger& target, const KivOmbiAny& a, const KivOmbiAny& b, Core core) {
  if (target.CheckNil()) return 0;
  const EnumeratedOperand first(a);
  const EnumeratedOperand second(b);
  return first->CheckNil() || second->CheckNil() ? target.Nil() : core(*first, *second);
}

// known op x. `core(x)` narrows x, an enumerated domain or a single integer. An enumerated x meets
// the core also when `known` is Any. An x of another kind is narrowed by what the core leaves of
// its conversion.
template <class Core>
int InverseEntry(const KivOmbEnumInteger& known, KivOmbiAny& x, Core core) {
  if (auto* const domain = KivOmbEnumInteger::DynamicCast(&x)) {
    if (domain->CheckNil()) return 0;
    return known.CheckNil() ? domain->Nil() : core(*domain);
  }
  if (auto* const single = KivOmbSingleInteger::DynamicCast(&x)) {
    if (single->CheckNil()) return 0;
    if (known.CheckNil()) return single->Nil();
    return known.CheckAny() ? 0 : core(*single);
  }
  if (x.IsNil()) return 0;
  if (known.CheckNil()) {
    x.SetNilValue();
    return 1;
  }
  KivOmbEnumInteger narrowed;
  narrowed.Assign(x);
  if (narrowed.CheckNil()) return 0;
  core(narrowed);
  return x.CalcEqualValue(narrowed);
}

// result = x op y, with the target x. `core(x, y)` narrows x, an enumerated domain or a single
// integer; it is not asked when `result` is Any.
template <class Core>
int FirstInverseEntry(const KivOmbEnumInteger& result, KivOmbiAny& x, const KivOmbiAny& y,
                      Core core) {
  const auto narrow = [&](auto& target) {
    if (target.CheckNil()) return 0;
    const EnumeratedOperand operand(y);
    if (operand->CheckNil() || result.CheckNil()) return target.Nil();
    return result.CheckAny() ? 0 : core(target, *operand);
  };
  if (KivOmbEnumInteger::DynamicCast(&y) != nullptr ||
      KivOmbSingleInteger::DynamicCast(&y) != nullptr) {
    if (auto* const domain = KivOmbEnumInteger::DynamicCast(&x)) return narrow(*domain);
    if (auto* const single = KivOmbSingleInteger::DynamicCast(&x)) return narrow(*single);
  }
  if (x.IsNil()) return 0;
  if (y.IsNil() || result.CheckNil()) {
    x.SetNilValue();
    return 1;
  }
  if (result.CheckAny()) return 0;
  KivOmbEnumInteger narrowed;
  narrowed.Assign(x);
  if (narrowed.CheckNil()) return 0;
  const EnumeratedOperand operand(y);
  core(narrowed, *operand);
  return x.CalcEqualValue(narrowed);
}

// result = x op y, with the target y. `core(x, y)` narrows y, an enumerated domain; it is not asked
// when `result` or x is Any. A target of another kind is narrowed by what the core leaves of its
// conversion.
template <class Core>
int SecondInverseEntry(const KivOmbEnumInteger& result, const KivOmbiAny& x, KivOmbiAny& y,
                       Core core) {
  const EnumeratedOperand known(x);
  if (auto* const domain = KivOmbEnumInteger::DynamicCast(&y)) {
    if (domain->CheckNil()) return 0;
    if (known->CheckNil() || result.CheckNil()) return domain->Nil();
    return known->CheckAny() || result.CheckAny() ? 0 : core(*known, *domain);
  }
  KivOmbEnumInteger narrowed;
  narrowed.Assign(y);
  if (auto* const single = KivOmbSingleInteger::DynamicCast(&y)) {
    if (single->CheckNil()) return 0;
    if (known->CheckNil() || result.CheckNil()) return single->Nil();
    if (known->CheckAny() || result.CheckAny()) return 0;
    core(*known, narrowed);
    return narrowed.IntersectInverse(*single);
  }
  if (y.IsNil()) return 0;
  if (x.IsNil() || result.CheckNil()) {
    y.SetNilValue();
    return 1;
  }
  if (x.IsUndefined() || result.CheckAny() || narrowed.CheckNil()) return 0;
  core(*known, narrowed);
  return y.CalcEqualValue(narrowed);
}

}  // namespace kiv
