#pragma once

#include "framework/base/export.h"
#include "framework/intervals/sub_int_base.h"
#include "framework/intervals/subdef_int.h"

// Powers of saturating integers, and the bases and exponents that give them. The ends of SubIntBase
// stand for the infinities; as bases and results they are integers like all others.
namespace kiv {

// What base ^ exponent is. The exponent 0 gives 1, whatever the base. A finite power is clamped,
// keeping its sign. A negative exponent has values for the bases 1 and -1 alone. An infinite
// exponent gives 0 and 1 as usual and plus infinity for a base of 2 or more, or no value when it is
// minus infinity and the base is not 1; of a negative base its power is not known.
struct PowerValue {
  enum State { kNone, kValue, kUnknown };
  State state;
  SubIntBase value;  // 0 unless the state is kValue
};
KIV_EXPORT PowerValue PowerOf(SubIntBase base, SubIntBase exponent);

// The hull of those bases in `bases` whose power for some exponent of `exponents` is in `result` or
// not known; empty when there are none.
KIV_EXPORT SubdefInt BasesOf(const SubdefInt& result, const SubdefInt& bases,
                             const SubdefInt& exponents);

// The hull of those exponents in `exponents` for which some base of `bases` has a power that is in
// `result` or not known; empty when there are none.
KIV_EXPORT SubdefInt ExponentsOf(const SubdefInt& result, const SubdefInt& bases,
                                 const SubdefInt& exponents);

}  // namespace kiv
