#include "solver/language/truth_count.h"

#include <cstdint>

#include "solver/constraints/boolean_count.h"
#include "solver/language/declared_domain.h"

namespace kiv {

std::optional<Operand> CountTruths(const Word& name, const std::vector<Operand>& truths,
                                   SourceRange range, NetworkBuilder& builder) {
  std::int64_t known = 0;
  bool is_known = true;
  for (const Operand& truth : truths) {
    if (!builder.IsTruth(truth)) {
      builder.GetDiagnostics().Add(truth.range, '\'' + name.text + "' counts truth values, not '" +
                                                    builder.GetKind(truth).GetName() + '\'');
      return std::nullopt;
    }
    const auto constant = builder.GetConstantTruth(truth);
    is_known = is_known && constant.has_value();
    if (constant == true) ++known;
  }
  if (is_known) return Operand{known, KivOmbNetwork::kNone, range};
  auto variables = builder.GetVariables(truths);
  const auto most = static_cast<std::int32_t>(truths.size());
  const auto count = builder.AddInteger(DeclaredDomain::FromInterval(0, most), range);
  if (!variables || !count) return std::nullopt;
  variables->push_back(*count);
  if (!builder.Post<BooleanCount>(*variables, range)) return std::nullopt;
  return Operand{std::nullopt, *count, range};
}

}  // namespace kiv
