#include "solver/language/membership_question.h"

#include <cstdint>
#include <memory>
#include <utility>

#include "solver/language/declared_domain.h"
#include "solver/language/formula.h"
#include "solver/language/truth_posting.h"

namespace kiv {

// A few values are listed. A wide range, or that of a sum, is asked about by its ends.
std::optional<Operand> AskMembership(const Word& symbol, const Operand& operand,
                                     const IntegerSet& values, SourceRange range,
                                     NetworkBuilder& builder) {
  if (operand.constant) return builder.GetTruth(values.Contains(*operand.constant), range);
  if (!builder.IsInteger(operand)) {
    builder.GetDiagnostics().Add(symbol.range, "'in' asks about integers, not '" +
                                                   builder.GetKind(operand).GetName() + '\'');
    return std::nullopt;
  }
  const KivOmbiObjectDescriptor* kind = builder.FindTruthKind(range);
  if (kind == nullptr) return std::nullopt;
  if (values.IsEmpty()) return builder.GetTruth(false, range);
  Operand member;
  member.range = range;
  member.kind = kind;
  constexpr std::uint64_t kMostListed = 1024;
  const bool is_listed = !operand.IsSum() && values.Count() <= kMostListed;
  if (!values.IsRange() || is_listed) {
    Formula::Element element{operand, {}};
    values.ForEach([&](std::int64_t value) {
      if (IsModelInteger(value)) element.values.push_back(static_cast<std::int32_t>(value));
      return true;
    });
    member.formula = std::make_shared<const Formula>(Formula{std::move(element)});
    return member;
  }
  const auto bound = [&](LinearRelation relation, std::int64_t value) {
    Operand question = member;
    question.formula = std::make_shared<const Formula>(Formula{
        Formula::Question{NetworkBuilder::ToSum(operand), relation, LinearExpression(value)}});
    return question;
  };
  return Connect(Junction::kAll,
                 {bound(LinearRelation::kGreaterOrEqual, values.GetFirst()),
                  bound(LinearRelation::kLessOrEqual, values.GetLast())},
                 *member.kind, range, builder);
}

}  // namespace kiv
