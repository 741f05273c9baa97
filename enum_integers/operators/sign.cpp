// s = sign(x), with x as the receiver of both directions. They know no cores: the sign narrows an
// operand of any kind by a set of at most three values, and x is narrowed by its own relations.

#include "enum_integers/domain/enum_integer.h"

namespace {

// The signs that are possible, a bit each.
enum Signs : unsigned { kNone = 0, kNegative = 1, kZero = 2, kPositive = 4 };

unsigned SignsOf(const KivOmbiInteger& s) {
  const auto signs_if = [&s](std::int32_t sign, Signs signs) {
    return s.IsIntersected(KivOmbSingleInteger(sign)) ? signs : kNone;
  };
  return unsigned{signs_if(-1, kNegative)} | signs_if(0, kZero) | signs_if(1, kPositive);
}

}  // namespace

int KivOmbEnumInteger::CalcSignumValue(KivOmbiInteger& s) const {
  if (s.IsNil()) return 0;
  if (CheckNil()) {
    s.SetNilValue();
    return 1;
  }
  if (CheckAny()) return 0;
  KivOmbEnumInteger signs;
  signs.Nil();
  if (GetFirstL() < 0) signs.Insert(-1);
  if (Contains(0)) signs.Insert(0);
  if (GetLastU() > 0) signs.Insert(1);
  return signs.CalcInverseEqualValue(s);
}

int KivOmbEnumInteger::CalcInverseSignumValue(const KivOmbiInteger& s) {
  if (CheckNil()) return 0;
  if (s.IsNil()) return Nil();
  const KivOmbSingleInteger zero(0);
  switch (SignsOf(s)) {
    case kNone:
      return Nil();
    case kNegative:
      return CalcLessValue(zero);
    case kZero:
      return CalcEqualValue(zero);
    case kNegative | kZero:
      return CalcLessOrEqualValue(zero);
    case kPositive:
      return CalcNotLessAndUnequalValue(zero);
    case kNegative | kPositive:
      return CalcUnequalValue(zero);
    case kZero | kPositive:
      return CalcNotLessValue(zero);
    default:  // every sign is possible, as for an Any s
      return 0;
  }
}
