#include "tests/reference/arithmetic.h"
#include "tests/reference/enum_set.h"

namespace kiv::reference {

namespace {

bool AcceptAll(std::int32_t) { return true; }

}  // namespace

int Absolute(EnumSet& z, const EnumSet& x) {
  EnumSet negative = x;
  EnumSet positive = x;
  if (x.IsAny()) {
    if (z.IsAny()) return 0;
    negative = z;
    positive = z;
  }
  std::erase_if(negative.values, [](std::int32_t v) { return v >= 0; });
  std::erase_if(positive.values, [](std::int32_t v) { return v < 0; });
  Minus(negative);
  if (negative.IsAny()) return 0;
  if (positive.IsAny()) return 0;
  EnumSet both = negative;
  Unite(both, positive);
  return Intersect(z, both, AcceptAll);
}

int InverseAbsolute(const EnumSet& z, EnumSet& x) {
  if (z.IsAny()) return 0;
  EnumSet positive = z;
  std::erase_if(positive.values, [](std::int32_t v) { return v < 0; });
  if (positive.values.empty()) return MakeNil(x);
  EnumSet mirrored = positive;
  Minus(mirrored);
  EnumSet both = positive;
  Unite(both, mirrored);
  return Intersect(x, both, AcceptAll);
}

int InverseAbsolute(const EnumSet& z, Single& x) {
  if (x.state == Single::kAny) {
    if (z.values.size() > 1) return 0;
    if (z.values[0] != 0) return 0;
    x = {Single::kValue, 0};
    return 1;
  }
  if (x.value >= 0) return z.Contains(x.value) ? 0 : MakeNil(x);
  return z.Contains(-x.value) ? 0 : MakeNil(x);
}

int Negative(EnumSet& z, const EnumSet& x) {
  if (x.IsAny()) return 0;
  EnumSet mirrored = x;
  Minus(mirrored);
  return Intersect(z, mirrored);
}

int InverseNegative(const EnumSet& z, EnumSet& x) {
  if (z.IsAny()) return 0;
  EnumSet mirrored = z;
  Minus(mirrored);
  return Intersect(x, mirrored);
}

int InverseNegative(const EnumSet& z, Single& x) {
  if (x.state == Single::kAny) {
    if (z.values.size() != 1) return 0;
    x = {Single::kValue, -z.values[0]};
    return 1;
  }
  return z.Contains(-x.value) ? 0 : MakeNil(x);
}

// Two values may have the same successor: it stands twice in the copy then.
int Next(EnumSet& z, const EnumSet& a) {
  if (a.IsAny()) return 0;
  EnumSet successors = a;
  if (successors.values.empty()) return MakeNil(z);
  for (std::int32_t& v : successors.values) v = Plus(v, 1);
  return Intersect(z, successors);
}

int InverseNext(const EnumSet& z, EnumSet& a) {
  if (z.IsAny()) {
    if (a.values.empty() || a.values.back() != kMax) return 0;
    a.values.pop_back();
    return 1;
  }
  EnumSet predecessors = z;
  if (!predecessors.values.empty() && predecessors.values.front() == kMin) {
    predecessors.values.erase(predecessors.values.begin());
  }
  if (predecessors.values.empty()) return MakeNil(a);
  for (std::int32_t& v : predecessors.values) v = Plus(v, -1);
  return Intersect(a, predecessors);
}

int InverseNext(const EnumSet& z, Single& a) {
  if (a.state == Single::kAny) {
    if (z.values.size() >= 2) return 0;
    if (z.values[0] == kMin) return MakeNil(a);
    a = {Single::kValue, z.values[0] - 1};
    return 1;
  }
  for (const std::int32_t v : z.values) {
    if (std::int64_t{a.value} + 1 == v) return 0;
  }
  return MakeNil(a);
}

}  // namespace kiv::reference
