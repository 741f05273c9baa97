#include "framework/numbers/operands.h"

#include "framework/numbers/interval_integer.h"

namespace kiv {

const KivOmbiInteger* AsInteger(const KivOmbiAny& operand) {
  const auto* integer = KivCast<KivOmbiInteger>(&operand);
  return integer != nullptr && integer->IsNil() == 0 ? integer : nullptr;
}

Hull HullOf(const KivOmbiInteger& domain) {
  const std::int32_t lower = domain.GetLowerBound();
  const std::int32_t upper = domain.GetUpperBound();
  return {lower <= SubIntBase::kMin ? -Hull::kUnbounded : lower,
          upper >= SubIntBase::kMax ? Hull::kUnbounded : upper};
}

int MakeNil(KivOmbiAny& target) {
  target.SetNilValue();
  return 1;
}

int NarrowTarget(KivOmbiAny& target, const Hull& possible) {
  if (possible.IsEmpty()) return MakeNil(target);
  const SubdefInt interval(SubIntBase::Clamp(possible.lower), SubIntBase::Clamp(possible.upper));
  return target.CalcEqualValue(KivOmbIntervalInteger(interval));
}

}  // namespace kiv
