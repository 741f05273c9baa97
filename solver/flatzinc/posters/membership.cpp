#include "solver/constraints/membership.h"

#include <algorithm>

#include "solver/constraints/range_truth.h"
#include "solver/flatzinc/poster_table.h"
#include "solver/language/declared_domain.h"

namespace kiv::flatzinc {
namespace {

using enum TruthForm;

bool Contains(const Domain& set, std::int64_t value) {
  return set.GetLower() <= value && value <= set.GetUpper() &&
         (set.IsRange() || std::ranges::binary_search(set.GetValues(), value));
}

// x in lower..upper
void LieBetween(const Posting& posting, const Domain& set, TruthForm form) {
  using enum LinearRelation;
  if (form == kPlain) {
    const LinearExpression x = posting.GetExpression(0);
    posting.Relate(x, kGreaterOrEqual, LinearExpression(set.GetLower()), form);
    posting.Relate(x, kLessOrEqual, LinearExpression(set.GetUpper()), form);
    return;
  }
  const auto truth = posting.GetTruth(form);
  posting.GetNetwork().Emplace<RangeTruth>(std::array{posting.GetVariable(0), truth->variable},
                                           RangeTruth::kInside, set.GetLower(), set.GetUpper(),
                                           truth->reification);
}

template <TruthForm form>
void BeMember(const Posting& posting) {
  Domain set = posting.GetSet(1);
  if (posting.IsConstant(0)) return posting.Decide(Contains(set, posting.GetInteger(0)), form);
  // What no variable holds no variable can be equal to.
  set.Intersect(Domain::FromRange(kLeastInteger, kGreatestInteger));
  if (set.IsEmpty()) return posting.Decide(false, form);
  if (set.IsRange()) return LieBetween(posting, set, form);
  const auto& values = set.GetValues();
  std::vector<std::int32_t> members(values.begin(), values.end());
  const auto x = posting.GetVariable(0);
  if (form == kReified) {
    posting.GetNetwork().Emplace<ReifiedMembership>(std::array{x, posting.GetTruth(form)->variable},
                                                    std::move(members));
  } else {
    posting.Emplace<Membership>(form, {x}, std::move(members));
  }
}

constexpr Poster kPosters[] = {
    {"set_in", "is", BeMember<kPlain>},
    {"set_in_reif", "isb", BeMember<kReified>},
    {"set_in_imp", "isb", BeMember<kImplied>},
};

}  // namespace

std::span<const Poster> MembershipPosters() { return kPosters; }

}  // namespace kiv::flatzinc
