#pragma once

#include <cstdint>
#include <vector>

// The enumerated domain and its operations in their plainest form: sorted vectors, nested loops,
// one insertion per candidate. Shares no code with the module and is never optimised: it says what
// the module must compute. Operations return 0 when their target was left as it was, else 1.
namespace kiv::reference {

constexpr std::int32_t kMin = -2147483647;
constexpr std::int32_t kMax = 2147483647;
constexpr std::size_t kCap = 1024;

struct EnumSet {
  std::vector<std::int32_t> values;  // ascending, without duplicates
  int flag = 0;                      // without values: 1 is Any, 0 is Nil; else left over

  bool IsAny() const { return values.empty() && flag == 1; }
  bool IsNil() const { return values.empty() && flag == 0; }
  bool Contains(std::int32_t v) const;

  friend bool operator==(const EnumSet&, const EnumSet&) = default;
};

// One integer, Any or Nil.
struct Single {
  enum State { kNil, kValue, kAny };
  State state = kAny;
  std::int32_t value = 0;

  friend bool operator==(const Single&, const Single&) = default;
};

// A closed interval; [kMin, kMax] is Any, Nil is kept apart.
struct Interval {
  bool nil = false;
  std::int32_t lower = kMin;
  std::int32_t upper = kMax;

  bool IsAny() const { return !nil && lower == kMin && upper == kMax; }

  friend bool operator==(const Interval&, const Interval&) = default;
};

// What does not depend on another domain.
void MakeAny(EnumSet& d);
int MakeNil(EnumSet& d);
int MakeNil(Single& s);
int Insert(EnumSet& d, std::int32_t v);
void SetExactValue(EnumSet& d, std::int32_t v);
int RemoveExactValue(EnumSet& d, std::int32_t v);
void SetLowerBound(EnumSet& d, std::int32_t bound);
void SetUpperBound(EnumSet& d, std::int32_t bound);
EnumSet FromSingle(const Single& s);

// Set algebra.
using Filter = bool (*)(std::int32_t);
int Intersect(EnumSet& d, const EnumSet& other);
int Intersect(EnumSet& d, const Single& s);
int Intersect(EnumSet& d, const Interval& i);
int Intersect(EnumSet& d, const EnumSet& other, Filter filter);
int Intersect(EnumSet& d, const EnumSet& a, const EnumSet& b, Filter filter);
int IntersectInverse(const EnumSet& d, Single& s);
int IntersectInverse(const EnumSet& d, Interval& i);
void Unite(EnumSet& d, const EnumSet& other);
void Unite(EnumSet& d, const Single& s);
void Minus(EnumSet& d);

// The relations d <= x, d < x, d >= x, d > x for domains that are not Nil: the first form narrows
// d, the inverse ones narrow x.
int LessOrEqual(EnumSet& d, const EnumSet& x);
int InverseLessOrEqual(const EnumSet& d, EnumSet& x);
int InverseLessOrEqual(const EnumSet& d, Single& x);
int Less(EnumSet& d, const EnumSet& x);
int InverseLess(const EnumSet& d, EnumSet& x);
int InverseLess(const EnumSet& d, Single& x);
int NotLess(EnumSet& d, const EnumSet& x);
int InverseNotLess(const EnumSet& d, EnumSet& x);
int InverseNotLess(const EnumSet& d, Single& x);
int NotLessAndUnequal(EnumSet& d, const EnumSet& x);
int InverseNotLessAndUnequal(const EnumSet& d, EnumSet& x);
int InverseNotLessAndUnequal(const EnumSet& d, Single& x);

// z = x op y: the first of each narrows z, the first inverse x, the second inverse y. Those of the
// minimum and maximum are for domains that are not Nil.
int Sum(EnumSet& z, const EnumSet& x, const EnumSet& y);
int FirstInverseSum(const EnumSet& z, EnumSet& x, const EnumSet& y);
int FirstInverseSum(const EnumSet& z, Single& x, const EnumSet& y);
int Product(EnumSet& z, const EnumSet& x, const EnumSet& y);
int FirstInverseProduct(const EnumSet& z, EnumSet& x, const EnumSet& y);
int FirstInverseProduct(const EnumSet& z, Single& x, const EnumSet& y);
int Mod(EnumSet& z, const EnumSet& x, const EnumSet& y);
int FirstInverseMod(const EnumSet& z, EnumSet& x, const EnumSet& y);
int FirstInverseMod(const EnumSet& z, Single& x, const EnumSet& y);
int SecondInverseMod(const EnumSet& z, const EnumSet& x, EnumSet& y);
int PowerForward(EnumSet& z, const EnumSet& x, const EnumSet& y);
int FirstInversePower(const EnumSet& z, EnumSet& x, const EnumSet& y);
int FirstInversePower(const EnumSet& z, Single& x, const EnumSet& y);
int SecondInversePower(const EnumSet& z, const EnumSet& x, EnumSet& y);
int Min(EnumSet& z, const EnumSet& a, const EnumSet& b);
int FirstInverseMin(const EnumSet& z, EnumSet& x, const EnumSet& y);
int FirstInverseMin(const EnumSet& z, Single& x, const EnumSet& y);
int Max(EnumSet& z, const EnumSet& a, const EnumSet& b);
int FirstInverseMax(const EnumSet& z, EnumSet& x, const EnumSet& y);
int FirstInverseMax(const EnumSet& z, Single& x, const EnumSet& y);

// The end of a first inverse with a single target: `collected` are its possible values.
int DecideSingle(Single& x, const EnumSet& collected);

// z = f(x): the inverse ones narrow x. Those with a single target are for a z that holds values and
// an x that is not Nil.
int Absolute(EnumSet& z, const EnumSet& x);
int InverseAbsolute(const EnumSet& z, EnumSet& x);
int InverseAbsolute(const EnumSet& z, Single& x);
int Negative(EnumSet& z, const EnumSet& x);
int InverseNegative(const EnumSet& z, EnumSet& x);
int InverseNegative(const EnumSet& z, Single& x);
int Next(EnumSet& z, const EnumSet& a);
int InverseNext(const EnumSet& z, EnumSet& a);
int InverseNext(const EnumSet& z, Single& a);

}  // namespace kiv::reference
