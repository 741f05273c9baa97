#include "tests/reference/entry_frames.h"

namespace kiv::reference {

bool IsNil(const Operand& x) {
  if (const auto* d = std::get_if<EnumSet>(&x)) return d->IsNil();
  if (const auto* s = std::get_if<Single>(&x)) return s->state == Single::kNil;
  if (const auto* i = std::get_if<Interval>(&x)) return i->nil;
  return std::get<Boolean>(x) == Boolean::kNil;
}

bool IsAny(const Operand& x) {
  if (const auto* d = std::get_if<EnumSet>(&x)) return d->IsAny();
  if (const auto* s = std::get_if<Single>(&x)) return s->state == Single::kAny;
  if (const auto* i = std::get_if<Interval>(&x)) return i->IsAny();
  return std::get<Boolean>(x) == Boolean::kAny;
}

void SetNil(Operand& x) {
  if (auto* d = std::get_if<EnumSet>(&x)) MakeNil(*d);
  if (auto* s = std::get_if<Single>(&x)) MakeNil(*s);
  if (auto* i = std::get_if<Interval>(&x)) *i = {true, 0, 0};
  if (auto* b = std::get_if<Boolean>(&x)) *b = Boolean::kNil;
}

EnumSet Converted(const Operand& x) {
  if (const auto* d = std::get_if<EnumSet>(&x)) return *d;
  if (const auto* s = std::get_if<Single>(&x)) return FromSingle(*s);
  return {{}, 0};
}

int Equal(EnumSet& z, const Operand& x) {
  if (const auto* d = std::get_if<EnumSet>(&x)) return Intersect(z, *d);
  if (const auto* s = std::get_if<Single>(&x)) return Intersect(z, *s);
  if (const auto* i = std::get_if<Interval>(&x)) return Intersect(z, *i);
  MakeNil(z);
  return 1;
}

int InverseEqual(const EnumSet& z, Operand& x) {
  if (auto* d = std::get_if<EnumSet>(&x)) return Intersect(*d, z);
  if (auto* s = std::get_if<Single>(&x)) return IntersectInverse(z, *s);
  if (auto* i = std::get_if<Interval>(&x)) return IntersectInverse(z, *i);
  SetNil(x);
  return 1;
}

namespace {

// What x's own kind does with x = d.
int WriteBack(Operand& x, const EnumSet& d) {
  if (auto* domain = std::get_if<EnumSet>(&x)) return Intersect(*domain, d);
  if (IsNil(x)) return 0;
  if (d.IsNil()) {
    SetNil(x);
    return 1;
  }
  if (d.IsAny()) return 0;
  if (auto* single = std::get_if<Single>(&x)) {
    if (single->state == Single::kValue) return d.Contains(single->value) ? 0 : MakeNil(*single);
    if (d.values.size() != 1) return 0;
    *single = {Single::kValue, d.values[0]};
    return 1;
  }
  if (auto* interval = std::get_if<Interval>(&x)) return IntersectInverse(d, *interval);
  SetNil(x);
  return 1;
}

int NilOf(Operand& x) {
  SetNil(x);
  return 1;
}

}  // namespace

int ForwardEntry(EnumSet& z, const Operand& x, const ForwardCore& core) {
  if (const auto* d = std::get_if<EnumSet>(&x)) {
    if (z.IsNil()) return 0;
    if (d->IsNil()) return MakeNil(z);
    return core(z, *d);
  }
  if (const auto* s = std::get_if<Single>(&x)) {
    if (z.IsNil()) return 0;
    if (s->state == Single::kNil) return MakeNil(z);
    return core(z, FromSingle(*s));
  }
  const EnumSet converted = Converted(x);
  if (z.IsNil()) return 0;
  if (converted.IsNil()) return MakeNil(z);
  return core(z, converted);
}

int ForwardEntry(EnumSet& z, const Operand& x, const Operand& y, const BinaryCore& core) {
  const EnumSet first = Converted(x);
  const EnumSet second = Converted(y);
  if (z.IsNil()) return 0;
  if (!first.IsNil() && !second.IsNil()) return core(z, first, second);
  return MakeNil(z);
}

int InverseEntry(const EnumSet& z, Operand& x, const InverseCore& core,
                 const SingleInverseCore& single_core) {
  if (auto* d = std::get_if<EnumSet>(&x)) {
    if (d->IsNil()) return 0;
    if (z.IsNil()) return MakeNil(*d);
    return core(z, *d);
  }
  if (auto* s = std::get_if<Single>(&x)) {
    if (s->state == Single::kNil) return 0;
    if (z.IsNil()) return MakeNil(*s);
    if (z.IsAny()) return 0;
    return single_core(z, *s);
  }
  if (IsNil(x)) return 0;
  if (z.IsNil()) return NilOf(x);
  EnumSet converted = Converted(x);
  if (converted.IsNil()) return 0;
  core(z, converted);
  return WriteBack(x, converted);
}

int FirstInverseEntry(const EnumSet& z, Operand& x, const Operand& y, const FirstInverseCore& core,
                      const SingleFirstInverseCore& single_core) {
  auto* x_set = std::get_if<EnumSet>(&x);
  auto* x_single = std::get_if<Single>(&x);
  const auto* y_set = std::get_if<EnumSet>(&y);
  const auto* y_single = std::get_if<Single>(&y);
  if (x_set != nullptr && y_set != nullptr) {
    if (x_set->IsNil()) return 0;
    if (y_set->IsNil()) return MakeNil(*x_set);
    if (z.IsNil()) return MakeNil(*x_set);
    if (z.IsAny()) return 0;
    return core(z, *x_set, *y_set);
  }
  if (x_set != nullptr && y_single != nullptr) {
    if (x_set->IsNil()) return 0;
    if (y_single->state != Single::kNil && !z.IsNil()) {
      if (z.IsAny()) return 0;
      return core(z, *x_set, FromSingle(*y_single));
    }
    return MakeNil(*x_set);
  }
  if (x_single != nullptr && y_set != nullptr) {
    if (x_single->state == Single::kNil) return 0;
    if (y_set->IsNil()) return MakeNil(*x_single);
    if (z.IsNil()) return MakeNil(*x_single);
    if (z.IsAny()) return 0;
    return single_core(z, *x_single, *y_set);
  }
  if (x_single != nullptr && y_single != nullptr) {
    if (x_single->state == Single::kNil) return 0;
    if (y_single->state != Single::kNil && !z.IsNil()) {
      if (z.IsAny()) return 0;
      return single_core(z, *x_single, FromSingle(*y_single));
    }
    return MakeNil(*x_single);
  }
  if (IsNil(x)) return 0;
  if (IsNil(y)) return NilOf(x);
  if (z.IsNil()) return NilOf(x);
  if (z.IsAny()) return 0;
  EnumSet narrowed = Converted(x);
  const EnumSet known = Converted(y);
  if (narrowed.IsNil()) return 0;
  core(z, narrowed, known);
  return WriteBack(x, narrowed);
}

int SecondInverseEntry(const EnumSet& z, const Operand& x, Operand& y,
                       const SecondInverseCore& core) {
  const EnumSet known = Converted(x);
  EnumSet narrowed = Converted(y);
  if (auto* d = std::get_if<EnumSet>(&y)) {
    if (d->IsNil()) return 0;
    if (!known.IsNil() && !z.IsNil()) {
      if (known.IsAny()) return 0;
      if (z.IsAny()) return 0;
      core(z, known, narrowed);
      return Intersect(*d, narrowed);
    }
    return MakeNil(*d);
  }
  if (auto* s = std::get_if<Single>(&y)) {
    if (s->state == Single::kNil) return 0;
    if (!known.IsNil() && !z.IsNil()) {
      if (known.IsAny()) return 0;
      if (z.IsAny()) return 0;
      core(z, known, narrowed);
      return IntersectInverse(narrowed, *s);
    }
    return MakeNil(*s);
  }
  if (IsNil(y)) return 0;
  if (IsNil(x) || z.IsNil()) return NilOf(y);
  if (IsAny(x)) return 0;
  if (z.IsAny()) return 0;
  if (narrowed.IsNil()) return 0;
  core(z, known, narrowed);
  return WriteBack(y, narrowed);
}

int Signum(const EnumSet& x, Operand& s) {
  if (IsNil(s)) return 0;
  if (x.IsNil()) return NilOf(s);
  if (x.IsAny()) return 0;
  EnumSet signs;
  if (x.values.front() < 0) Insert(signs, -1);
  if (x.Contains(0)) Insert(signs, 0);
  if (x.values.back() > 0) Insert(signs, 1);
  if (auto* single = std::get_if<Single>(&s)) {
    if (single->state == Single::kValue) {
      return signs.Contains(single->value) ? 0 : MakeNil(*single);
    }
    if (signs.values.size() != 1) return 0;
    *single = {Single::kValue, signs.values[0]};
    return 1;
  }
  return InverseEqual(signs, s);
}

int InverseSignum(EnumSet& x, const Operand& s) {
  if (x.IsNil()) return 0;
  if (IsNil(s)) return MakeNil(x);
  if (IsAny(s)) return 0;
  const auto may_be = [&s](std::int32_t v) {
    if (const auto* d = std::get_if<EnumSet>(&s)) return d->Contains(v);
    if (const auto* single = std::get_if<Single>(&s)) return single->value == v;
    const auto& interval = std::get<Interval>(s);
    return interval.lower <= v && v <= interval.upper;
  };
  const EnumSet zero{{0}, 0};
  const int mask = (may_be(-1) ? 1 : 0) + (may_be(0) ? 2 : 0) + (may_be(1) ? 4 : 0);
  if (mask == 0) return MakeNil(x);
  if (mask == 1) return Less(x, zero);
  if (mask == 2) return Intersect(x, Single{Single::kValue, 0});
  if (mask == 3) return LessOrEqual(x, zero);
  if (mask == 4) return NotLessAndUnequal(x, zero);
  if (mask == 5) return RemoveExactValue(x, 0);
  if (mask == 6) return NotLess(x, zero);
  return 0;
}

}  // namespace kiv::reference
