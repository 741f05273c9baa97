#include <algorithm>
#include <map>
#include <optional>
#include <vector>

#include "solver/constraints/among.h"
#include "solver/constraints/count.h"
#include "solver/constraints/global_cardinality.h"
#include "solver/constraints/linear_posting.h"
#include "solver/constraints/post_all_different.h"
#include "solver/flatzinc/poster_table.h"
#include "solver/language/declared_domain.h"

namespace kiv::flatzinc {
namespace {

using Cover = GlobalCardinality::Cover;
using VariableId = Posting::VariableId;

void Equate(const Posting& posting, VariableId x, VariableId y) {
  const LinearTerm terms[] = {{1, x}, {-1, y}};
  PostLinear(posting.GetNetwork(), terms, LinearRelation::kEqual, 0);
}

// variables, value, count
void PostCount(const Posting& posting) {
  auto arguments = posting.GetVariables(0);
  if (posting.IsConstant(1)) {
    std::vector<std::int32_t> values;
    const std::int64_t value = posting.GetInteger(1);
    if (IsModelInteger(value)) values.push_back(static_cast<std::int32_t>(value));
    arguments.push_back(posting.GetVariable(2));
    posting.GetNetwork().Emplace<Among>(arguments, std::move(values));
    return;
  }
  arguments.push_back(posting.GetVariable(1));
  arguments.push_back(posting.GetVariable(2));
  posting.GetNetwork().Emplace<Count>(arguments);
}

// The values of a set that variables could have.
std::vector<std::int32_t> PossibleValues(const Posting& posting, const Domain& set,
                                         const std::vector<VariableId>& variables) {
  Domain hull = Domain::FromRange(1, 0);
  if (!variables.empty()) {
    std::int64_t lower = kGreatestInteger;
    std::int64_t upper = kLeastInteger;
    for (const VariableId variable : variables) {
      const auto& summary = posting.GetNetwork().GetSummary(variable);
      lower = std::min<std::int64_t>(lower, summary.IsAny() ? kLeastInteger : summary.lower);
      upper = std::max<std::int64_t>(upper, summary.IsAny() ? kGreatestInteger : summary.upper);
    }
    hull = Domain::FromRange(std::max(lower, kLeastInteger), std::min(upper, kGreatestInteger));
  }
  hull.Intersect(set);
  constexpr std::uint64_t kMostValues = std::uint64_t{1} << 20;
  if (hull.Count() > kMostValues) {
    posting.Refuse("takes a set of at most " + std::to_string(kMostValues) + " possible values");
  }
  std::vector<std::int32_t> values;
  if (hull.IsRange()) {
    for (std::int64_t value = hull.GetLower(); value <= hull.GetUpper(); ++value) {
      values.push_back(static_cast<std::int32_t>(value));
    }
  } else {
    values.assign(hull.GetValues().begin(), hull.GetValues().end());
  }
  return values;
}

// count, variables, set
void PostAmong(const Posting& posting) {
  auto arguments = posting.GetVariables(1);
  auto values = PossibleValues(posting, posting.GetSet(2), arguments);
  arguments.push_back(posting.GetVariable(0));
  posting.GetNetwork().Emplace<Among>(arguments, std::move(values));
}

// variables, cover, counts. A value that is given twice has one count, which both counts equal; one
// that no variable can have is not taken.
template <Cover cover>
void PostCardinality(const Posting& posting) {
  auto arguments = posting.GetVariables(0);
  const auto given = posting.GetElements(1);
  const auto counts = posting.GetVariables(2);
  if (given.size() != counts.size()) posting.Refuse("takes a count for each value");
  std::map<std::int32_t, VariableId> count_of;
  for (std::size_t i = 0; i < given.size(); ++i) {
    const std::int64_t value = given[i].GetValue();
    if (!IsModelInteger(value)) {
      Equate(posting, counts[i], posting.GetBuilder().GetConstant(0, posting.GetOffset()));
      continue;
    }
    const auto [first, is_new] = count_of.emplace(static_cast<std::int32_t>(value), counts[i]);
    if (!is_new) Equate(posting, counts[i], first->second);
  }
  std::vector<std::int32_t> values;
  for (const auto& [value, count] : count_of) {
    values.push_back(value);
    arguments.push_back(count);
  }
  posting.GetNetwork().Emplace<GlobalCardinality>(arguments, values, cover);
}

// variables, cover, least counts, greatest counts. The limits of a value that is given twice hold
// together.
template <Cover cover>
void PostLimitedCardinality(const Posting& posting) {
  const auto variables = posting.GetVariables(0);
  const auto given = posting.GetElements(1);
  const auto least = posting.GetElements(2);
  const auto most = posting.GetElements(3);
  if (given.size() != least.size() || given.size() != most.size()) {
    posting.Refuse("takes limits for each value");
  }
  const auto places = static_cast<std::int32_t>(variables.size());
  std::map<std::int32_t, GlobalCardinality::Limits> limits_of;
  for (std::size_t i = 0; i < given.size(); ++i) {
    // Limits beyond what is countable say no more than their clamped values.
    const auto lower = static_cast<std::int32_t>(
        std::clamp<std::int64_t>(least[i].GetValue(), 0, std::int64_t{places} + 1));
    const auto upper =
        static_cast<std::int32_t>(std::clamp<std::int64_t>(most[i].GetValue(), -1, places));
    const std::int64_t value = given[i].GetValue();
    if (!IsModelInteger(value)) {
      if (lower > 0 || upper < 0) posting.PostContradiction();
      continue;
    }
    const auto limits = limits_of.try_emplace(static_cast<std::int32_t>(value), 0, places).first;
    limits->second.least = std::max(limits->second.least, lower);
    limits->second.most = std::min(limits->second.most, upper);
  }
  std::vector<std::int32_t> values;
  std::vector<GlobalCardinality::Limits> limits;
  for (const auto& [value, both] : limits_of) {
    values.push_back(value);
    limits.push_back(both);
  }
  const bool is_injective =
      cover == Cover::kClosed &&
      std::ranges::all_of(limits, [](const auto& both) { return both.most <= 1; });
  if (is_injective) PostAllDifferent(posting.GetNetwork(), variables);
  posting.GetNetwork().Emplace<GlobalCardinality>(variables, values, limits, cover);
}

constexpr Poster kPosters[] = {
    {"kiv_count", "Iii", PostCount},
    {"kiv_among", "iIs", PostAmong},
    {"kiv_global_cardinality", "I=II", PostCardinality<Cover::kOpen>},
    {"kiv_global_cardinality_closed", "I=II", PostCardinality<Cover::kClosed>},
    {"kiv_global_cardinality_low_up", "I=I=I=I", PostLimitedCardinality<Cover::kOpen>},
    {"kiv_global_cardinality_low_up_closed", "I=I=I=I", PostLimitedCardinality<Cover::kClosed>},
};

}  // namespace

std::span<const Poster> CountingPosters() { return kPosters; }

}  // namespace kiv::flatzinc
