#include <algorithm>

#include "tests/reference/enum_set.h"

namespace kiv::reference {

namespace {

bool AcceptAll(std::int32_t) { return true; }

// The end of an intersection of two sets: the kept values replace those of d unless all were kept.
int Replace(EnumSet& d, const std::vector<std::int32_t>& kept) {
  if (kept.size() == d.values.size()) return 0;
  if (kept.empty()) return MakeNil(d);
  d.values = kept;
  return 1;
}

}  // namespace

int Intersect(EnumSet& d, const EnumSet& other) {
  if (d.IsNil()) return 0;
  if (other.IsNil()) return MakeNil(d);
  if (other.IsAny()) return 0;
  if (d.IsAny()) {
    d = other;
    return 1;
  }
  return Intersect(d, other, AcceptAll);
}

int Intersect(EnumSet& d, const Single& s) {
  if (d.IsNil()) return 0;
  if (s.state == Single::kNil) return MakeNil(d);
  if (s.state == Single::kAny) return 0;
  if (d.IsAny()) {
    d = {{s.value}, 0};
    return 1;
  }
  if (!d.Contains(s.value)) return MakeNil(d);
  if (d.values.size() == 1) return 0;
  d.values = {s.value};
  return 1;
}

int Intersect(EnumSet& d, const Interval& i) {
  if (d.IsNil()) return 0;
  if (i.nil) return MakeNil(d);
  if (i.IsAny()) return 0;
  if (d.IsAny()) {
    if (std::int64_t{i.upper} - i.lower + 1 >= std::int64_t{kCap}) return 0;
    MakeNil(d);
    for (std::int64_t v = i.lower; v <= i.upper; ++v) {
      d.values.push_back(static_cast<std::int32_t>(v));
    }
    return 1;
  }
  // The flag stays, and decides when nothing is left.
  return std::erase_if(d.values, [&](std::int32_t v) { return v < i.lower || v > i.upper; }) != 0;
}

int Intersect(EnumSet& d, const EnumSet& other, Filter filter) {
  if (d.IsNil()) return 0;
  if (other.IsNil()) return MakeNil(d);
  if (other.IsAny()) return 0;
  std::vector<std::int32_t> kept;
  if (d.IsAny()) {
    for (const std::int32_t v : other.values) {
      if (filter(v)) kept.push_back(v);
    }
    if (kept.empty()) return 0;
    d = {kept, 0};
    return 1;
  }
  for (const std::int32_t v : d.values) {
    if (other.Contains(v) && filter(v)) kept.push_back(v);
  }
  return Replace(d, kept);
}

int Intersect(EnumSet& d, const EnumSet& a, const EnumSet& b, Filter filter) {
  if (a.IsAny() || b.IsAny()) return 0;
  EnumSet both = a;
  Unite(both, b);
  return Intersect(d, both, filter);
}

int IntersectInverse(const EnumSet& d, Single& s) {
  if (s.state == Single::kNil) return 0;
  if (d.IsAny()) return 0;
  if (d.IsNil()) return MakeNil(s);
  if (s.state == Single::kAny) {
    if (d.values.size() != 1) return 0;
    s = {Single::kValue, d.values[0]};
    return 1;
  }
  return d.Contains(s.value) ? 0 : MakeNil(s);
}

int IntersectInverse(const EnumSet& d, Interval& i) {
  if (i.nil) return 0;
  if (d.IsAny()) return 0;
  if (d.IsNil()) {
    i = {true, 0, 0};
    return 1;
  }
  std::int32_t high = d.values[0];
  std::int32_t low = d.values[0];
  for (const std::int32_t v : d.values) {
    if (v <= i.upper) high = v;
  }
  for (auto v = d.values.rbegin(); v != d.values.rend(); ++v) {
    if (*v >= i.lower) low = *v;
  }
  // The interval's own intersection with [low, high], which may be empty.
  const std::int32_t lower = std::max(i.lower, low);
  const std::int32_t upper = std::min(i.upper, high);
  if (low > high || lower > upper) {
    i = {true, 0, 0};
    return 1;
  }
  if (lower == i.lower && upper == i.upper) return 0;
  i = {false, lower, upper};
  return 1;
}

void Unite(EnumSet& d, const EnumSet& other) {
  if (d.IsAny()) return;
  if (other.IsNil()) return;
  if (other.IsAny()) return MakeAny(d);
  if (d.IsNil()) {
    d = other;
    return;
  }
  std::vector<std::int32_t> both = d.values;
  for (const std::int32_t v : other.values) {
    if (!d.Contains(v)) both.push_back(v);
  }
  std::sort(both.begin(), both.end());
  if (both.size() == d.values.size()) return;
  if (both.size() >= kCap) return MakeAny(d);
  d.values = both;
}

void Unite(EnumSet& d, const Single& s) {
  if (d.IsAny()) return;
  if (s.state == Single::kNil) return;
  if (s.state == Single::kAny) return MakeAny(d);
  Insert(d, s.value);
}

void Minus(EnumSet& d) {
  std::reverse(d.values.begin(), d.values.end());
  for (std::int32_t& v : d.values) v = -v;
}

}  // namespace kiv::reference
