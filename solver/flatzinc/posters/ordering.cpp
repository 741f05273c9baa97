#include "solver/constraints/lexicographic_order.h"
#include "solver/flatzinc/poster_table.h"

namespace kiv::flatzinc {
namespace {

template <LexicographicOrder::Equality equality>
void PostOrder(const Posting& posting) {
  auto arguments = posting.GetVariables(0);
  const auto length = static_cast<unsigned>(arguments.size());
  const auto second = posting.GetVariables(1);
  arguments.insert(arguments.end(), second.begin(), second.end());
  posting.GetNetwork().Emplace<LexicographicOrder>(arguments, length, equality);
}

using enum LexicographicOrder::Equality;

constexpr Poster kPosters[] = {
    {"kiv_lex_less_int", "II", PostOrder<kExcluded>},
    {"kiv_lex_less_bool", "BB", PostOrder<kExcluded>},
    {"kiv_lex_lesseq_int", "II", PostOrder<kAllowed>},
    {"kiv_lex_lesseq_bool", "BB", PostOrder<kAllowed>},
};

}  // namespace

std::span<const Poster> OrderingPosters() { return kPosters; }

}  // namespace kiv::flatzinc
