#include <algorithm>

#include "tests/reference/enum_set.h"

namespace kiv::reference {

namespace {

EnumSet Union(const EnumSet& a, const EnumSet& b) {
  EnumSet both = a;
  Unite(both, b);
  return both;
}

// The filtered intersection, with a bound in place of a filter.
template <class Accept>
int IntersectAccepted(EnumSet& z, const EnumSet& both, Accept accept) {
  if (z.IsNil()) return 0;
  if (both.IsNil()) return MakeNil(z);
  if (both.IsAny()) return 0;
  std::vector<std::int32_t> kept;
  for (const std::int32_t v : both.values) {
    if (accept(v) && (z.IsAny() || z.Contains(v))) kept.push_back(v);
  }
  if (z.IsAny()) {
    if (kept.empty()) return 0;
    z = {kept, 0};
    return 1;
  }
  if (kept.size() == z.values.size()) return 0;
  if (kept.empty()) return MakeNil(z);
  z.values = kept;
  return 1;
}

}  // namespace

int Min(EnumSet& z, const EnumSet& a, const EnumSet& b) {
  if (a.IsAny()) return LessOrEqual(z, b);
  if (b.IsAny()) return LessOrEqual(z, a);
  const std::int32_t bound = std::min(a.values.back(), b.values.back());
  return IntersectAccepted(z, Union(a, b), [=](std::int32_t v) { return v <= bound; });
}

int Max(EnumSet& z, const EnumSet& a, const EnumSet& b) {
  if (a.IsAny()) return InverseLessOrEqual(b, z);
  if (b.IsAny()) return InverseLessOrEqual(a, z);
  const std::int32_t bound = std::max(a.values.front(), b.values.front());
  return IntersectAccepted(z, Union(a, b), [=](std::int32_t v) { return v >= bound; });
}

int FirstInverseMin(const EnumSet& z, EnumSet& x, const EnumSet&) {
  return InverseLessOrEqual(z, x);
}

int FirstInverseMin(const EnumSet& z, Single& x, const EnumSet&) {
  if (x.state == Single::kAny) return 0;
  return z.values.front() <= x.value ? 0 : MakeNil(x);
}

int FirstInverseMax(const EnumSet& z, EnumSet& x, const EnumSet&) { return LessOrEqual(x, z); }

int FirstInverseMax(const EnumSet& z, Single& x, const EnumSet&) {
  if (x.state == Single::kAny) return 0;
  return z.values.back() >= x.value ? 0 : MakeNil(x);
}

}  // namespace kiv::reference
