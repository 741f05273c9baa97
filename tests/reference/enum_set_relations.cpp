#include "tests/reference/enum_set.h"

namespace kiv::reference {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// The position of the least value that is at least v.
std::size_t LeastFrom(const EnumSet& d, std::int32_t v) {
  for (std::size_t i = 0; i < d.values.size(); ++i) {
    if (d.values[i] >= v) return i;
  }
  return kNone;
}

// The position of the greatest value that is at most v.
std::size_t GreatestTo(const EnumSet& d, std::int32_t v) {
  for (std::size_t i = d.values.size(); i > 0; --i) {
    if (d.values[i - 1] <= v) return i - 1;
  }
  return kNone;
}

void RemoveFrom(EnumSet& d, std::size_t position) {
  while (d.values.size() > position) d.values.pop_back();
}

void RemoveFirst(EnumSet& d, std::size_t n) {
  for (; n > 0; --n) d.values.erase(d.values.begin());
}

}  // namespace

int LessOrEqual(EnumSet& d, const EnumSet& x) {
  if (d.IsAny()) return 0;
  if (x.IsAny()) return 0;
  const std::int32_t bound = x.values.back();
  if (d.values.back() <= bound) return 0;
  const std::size_t p = LeastFrom(d, bound);
  if (p == kNone) return MakeNil(d);
  RemoveFrom(d, d.values[p] == bound ? p + 1 : p);
  return 1;
}

int InverseLessOrEqual(const EnumSet& d, EnumSet& x) {
  if (d.IsAny()) return 0;
  if (x.IsAny()) return 0;
  const std::int32_t bound = d.values.front();
  if (x.values.front() >= bound) return 0;
  const std::size_t p = GreatestTo(x, bound);
  if (p == kNone) return MakeNil(x);
  RemoveFirst(x, x.values[p] == bound ? p : p + 1);
  return 1;
}

int Less(EnumSet& d, const EnumSet& x) {
  if (d.IsAny()) return 0;
  if (x.IsAny()) return 0;
  const std::int32_t bound = x.values.back();
  if (d.values.back() < bound) return 0;
  const std::size_t p = GreatestTo(d, bound);
  if (p == kNone) return MakeNil(d);
  RemoveFrom(d, p);
  return 1;
}

int InverseLess(const EnumSet& d, EnumSet& x) {
  if (d.IsAny()) {
    if (x.IsAny() || x.values.front() != kMin) return 0;
    RemoveFirst(x, 1);
    return 1;
  }
  if (x.IsAny()) return 0;
  const std::int32_t bound = d.values.front();
  if (x.values.front() > bound) return 0;
  const std::size_t p = LeastFrom(x, bound);
  if (p == kNone) return MakeNil(x);
  RemoveFirst(x, p + 1);
  return 1;
}

int NotLess(EnumSet& d, const EnumSet& x) { return InverseLessOrEqual(x, d); }
int InverseNotLess(const EnumSet& d, EnumSet& x) { return LessOrEqual(x, d); }
int NotLessAndUnequal(EnumSet& d, const EnumSet& x) { return InverseLess(x, d); }
int InverseNotLessAndUnequal(const EnumSet& d, EnumSet& x) { return Less(x, d); }

int InverseLessOrEqual(const EnumSet& d, Single& x) {
  if (x.state == Single::kAny) return 0;
  return x.value >= d.values.front() ? 0 : MakeNil(x);
}

int InverseLess(const EnumSet& d, Single& x) {
  if (x.state == Single::kAny) return 0;
  return x.value > d.values.front() ? 0 : MakeNil(x);
}

int InverseNotLess(const EnumSet& d, Single& x) {
  if (x.state == Single::kAny) return 0;
  return x.value <= d.values.back() ? 0 : MakeNil(x);
}

int InverseNotLessAndUnequal(const EnumSet& d, Single& x) {
  if (x.state == Single::kAny) return 0;
  return x.value < d.values.back() ? 0 : MakeNil(x);
}

}  // namespace kiv::reference
