#include "tests/reference/enum_set.h"

#include <algorithm>

namespace kiv::reference {

namespace {

// upper - lower + 1 in 32 bits.
std::uint32_t SizeOf(std::int32_t lower, std::int32_t upper) {
  return static_cast<std::uint32_t>(std::int64_t{upper} - lower + 1);
}

void InsertAll(EnumSet& d, std::int64_t from, std::int64_t to) {
  MakeNil(d);
  for (std::int64_t v = from; v <= to; ++v) {
    if (d.IsAny()) return;
    Insert(d, static_cast<std::int32_t>(v));
  }
}

}  // namespace

bool EnumSet::Contains(std::int32_t v) const {
  return std::find(values.begin(), values.end(), v) != values.end();
}

void MakeAny(EnumSet& d) { d = {{}, 1}; }

int MakeNil(EnumSet& d) {
  d = {{}, 0};
  return 1;
}

int MakeNil(Single& s) {
  s = {Single::kNil, 0};
  return 1;
}

int Insert(EnumSet& d, std::int32_t v) {
  if (d.IsAny()) return 0;
  if (d.values.size() >= kCap) {
    MakeAny(d);
    return 0;
  }
  v = std::max(v, kMin);
  std::size_t i = 0;
  while (i < d.values.size() && d.values[i] < v) ++i;
  if (i == d.values.size() || d.values[i] != v) {
    d.values.insert(d.values.begin() + static_cast<std::ptrdiff_t>(i), v);
  }
  return 1;
}

void SetExactValue(EnumSet& d, std::int32_t v) {
  MakeNil(d);
  Insert(d, v);
}

int RemoveExactValue(EnumSet& d, std::int32_t v) { return std::erase(d.values, v) != 0 ? 1 : 0; }

void SetLowerBound(EnumSet& d, std::int32_t bound) {
  if (d.IsAny()) return;
  if (d.IsNil()) {
    Insert(d, bound);
    return;
  }
  const std::int32_t upper = d.values.back();
  if (SizeOf(bound, upper) >= kCap) {
    MakeAny(d);
  } else {
    InsertAll(d, bound, std::max(upper, bound));
  }
}

void SetUpperBound(EnumSet& d, std::int32_t bound) {
  if (d.IsAny()) return;
  if (d.IsNil()) {
    Insert(d, bound);
    return;
  }
  const std::int32_t lower = d.values.front();
  if (SizeOf(lower, bound) >= kCap) {
    MakeAny(d);
  } else {
    InsertAll(d, std::min(lower, bound), bound);
  }
}

EnumSet FromSingle(const Single& s) {
  if (s.state == Single::kAny) return {{}, 1};
  if (s.state == Single::kNil) return {{}, 0};
  return {{s.value}, 0};
}

}  // namespace kiv::reference
