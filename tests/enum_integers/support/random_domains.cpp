#include "tests/enum_integers/support/random_domains.h"

#include <algorithm>
#include <iostream>
#include <set>
#include <sstream>

#include "tests/support/seed.h"

namespace kiv::test {

namespace {

using reference::kMax;
using reference::kMin;

}  // namespace

Random::Random() {
  const std::uint64_t seed = Seed(std::random_device()());
  std::cout << "KIV_SEED=" << seed << std::endl;
  engine_.seed(seed);
}

std::int32_t Random::Between(std::int64_t low, std::int64_t high) {
  return static_cast<std::int32_t>(std::uniform_int_distribution<std::int64_t>(low, high)(engine_));
}

namespace {

// `count` distinct values between the bounds, or as many as there are.
reference::EnumSet Chosen(Random& random, std::int64_t count, std::int64_t low, std::int64_t high) {
  std::set<std::int32_t> values;
  count = std::min(count, high - low + 1);
  while (static_cast<std::int64_t>(values.size()) < count) values.insert(random.Between(low, high));
  return {{values.begin(), values.end()}, random.Between(0, 1)};
}

reference::EnumSet Dense(Random& random, std::int64_t count) {
  const std::int64_t low = random.Between(-600, 600);
  return Chosen(random, count, low, low + count - 1);
}

}  // namespace

reference::EnumSet RandomSmallSet(Random& random) {
  switch (random.Between(0, 9)) {
    case 0:
      return {{}, 1};
    case 1:
      return {{}, 0};
    default:
      return Chosen(random, random.Between(1, 8), -10, 10);
  }
}

reference::EnumSet RandomSet(Random& random) {
  switch (random.Between(0, 12)) {
    case 0:
      return Dense(random, random.Between(1, 60));
    case 1:
      return Chosen(random, random.Between(1, 50), -60, 60);  // dense with holes
    case 2:
      return Chosen(random, random.Between(1, 40), kMin, kMax);  // sparse
    case 3: {
      // The infinities and their neighbourhood.
      reference::EnumSet set = Chosen(random, random.Between(1, 4), kMin, kMin + 3);
      const reference::EnumSet upper = Chosen(random, random.Between(0, 4), kMax - 3, kMax);
      set.values.insert(set.values.end(), upper.values.begin(), upper.values.end());
      return set;
    }
    case 4: {
      // A few clusters far from each other.
      reference::EnumSet set{{}, random.Between(0, 1)};
      std::int32_t low = random.Between(-3000, -2000);
      for (std::int32_t n = random.Between(2, 5); n > 0; --n, low += random.Between(100, 1000)) {
        const reference::EnumSet cluster = Chosen(random, random.Between(1, 8), low, low + 9);
        set.values.insert(set.values.end(), cluster.values.begin(), cluster.values.end());
      }
      return set;
    }
    case 5:
      // About the cap; rarely, because the reference is slow.
      return Dense(random, random.OneIn(8) ? random.Between(1022, 1024) : random.Between(60, 150));
    default:
      return RandomSmallSet(random);
  }
}

reference::Single RandomSingle(Random& random) {
  switch (random.Between(0, 7)) {
    case 0:
      return {reference::Single::kAny, 0};
    case 1:
      return {reference::Single::kNil, 0};
    case 2:
      return {reference::Single::kValue, random.OneIn(2) ? kMin : kMax};
    default:
      return {reference::Single::kValue, random.Between(-15, 15)};
  }
}

reference::Interval RandomInterval(Random& random) {
  switch (random.Between(0, 9)) {
    case 0:
      return {};
    case 1:
      return {true, 0, 0};
    case 2:
      return {false, kMin, random.Between(-10, 10)};
    case 3:
      return {false, random.Between(-10, 10), kMax};
    case 4: {
      const std::int32_t lower = random.Between(-10, 10);
      return {false, lower, lower + random.Between(1020, 1026)};
    }
    default: {
      const std::int32_t lower = random.Between(-15, 15);
      return {false, lower, lower + random.Between(0, 15)};
    }
  }
}

KivOmbEnumInteger Made(const reference::EnumSet& set) {
  KivOmbEnumInteger domain;
  if (set.flag == 0) domain.Nil();
  for (const std::int32_t v : set.values) domain.SimpleInsert(v);
  return domain;
}

KivOmbSingleInteger Made(const reference::Single& single) {
  KivOmbSingleInteger made;
  if (single.state == reference::Single::kNil) made.Nil();
  if (single.state == reference::Single::kValue) made.SetExactValue(single.value);
  return made;
}

KivOmbIntervalInteger Made(const reference::Interval& interval) {
  KivOmbIntervalInteger made(SubdefInt(interval.lower, interval.upper));
  if (interval.nil) made.Nil();
  return made;
}

// By way of the stream form, where the leftover flag shows.
reference::EnumSet Read(const KivOmbEnumInteger& domain) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  domain.Write(out);
  Kivipstream in(bytes);
  reference::EnumSet set;
  std::int32_t flag = 0;
  std::uint32_t count = 0;
  in >> flag >> count;
  set.flag = flag;
  set.values.resize(count);
  for (std::int32_t& v : set.values) in >> v;
  return set;
}

reference::Single Read(const KivOmbSingleInteger& single) {
  if (single.CheckNil()) return {reference::Single::kNil, 0};
  if (single.CheckAny()) return {reference::Single::kAny, 0};
  return {reference::Single::kValue, single.GetValue()};
}

reference::Interval Read(const KivOmbIntervalInteger& interval) {
  if (interval.CheckNil()) return {true, 0, 0};
  return {false, interval.GetLowerBound(), interval.GetUpperBound()};
}

}  // namespace kiv::test

namespace kiv::reference {

void PrintTo(const EnumSet& set, std::ostream* out) {
  *out << "flag " << set.flag << " {";
  for (const std::int32_t v : set.values) *out << ' ' << v;
  *out << " }";
}

void PrintTo(const Single& single, std::ostream* out) {
  if (single.state == Single::kValue) {
    *out << single.value;
  } else {
    *out << (single.state == Single::kAny ? "Any" : "Nil");
  }
}

void PrintTo(const Interval& interval, std::ostream* out) {
  if (interval.nil) {
    *out << "Nil";
  } else {
    *out << '[' << interval.lower << ", " << interval.upper << ']';
  }
}

}  // namespace kiv::reference
