#include "solver/flatzinc/poster_table.h"

// Comparisons of two integers or two booleans. A comparison is a short linear relation: there
// repeated variables and constants of any size are dealt with, and the light classes chosen.
namespace kiv::flatzinc {
namespace {

using enum LinearRelation;
using enum TruthForm;

template <LinearRelation relation, TruthForm form>
void Compare(const Posting& posting) {
  posting.Relate(posting.GetExpression(0), relation, posting.GetExpression(1), form);
}

constexpr Poster kPosters[] = {
    {"int_eq", "ii", Compare<kEqual, kPlain>},
    {"int_ne", "ii", Compare<kUnequal, kPlain>},
    {"int_le", "ii", Compare<kLessOrEqual, kPlain>},
    {"int_lt", "ii", Compare<kLess, kPlain>},
    {"int_eq_reif", "iib", Compare<kEqual, kReified>},
    {"int_ne_reif", "iib", Compare<kUnequal, kReified>},
    {"int_le_reif", "iib", Compare<kLessOrEqual, kReified>},
    {"int_lt_reif", "iib", Compare<kLess, kReified>},
    {"int_eq_imp", "iib", Compare<kEqual, kImplied>},
    {"int_ne_imp", "iib", Compare<kUnequal, kImplied>},
    {"int_le_imp", "iib", Compare<kLessOrEqual, kImplied>},
    {"int_lt_imp", "iib", Compare<kLess, kImplied>},

    {"bool_eq", "bb", Compare<kEqual, kPlain>},
    {"bool_ne", "bb", Compare<kUnequal, kPlain>},
    {"bool_not", "bb", Compare<kUnequal, kPlain>},
    {"bool_le", "bb", Compare<kLessOrEqual, kPlain>},
    {"bool_lt", "bb", Compare<kLess, kPlain>},
    {"bool_eq_reif", "bbb", Compare<kEqual, kReified>},
    {"bool_ne_reif", "bbb", Compare<kUnequal, kReified>},
    {"bool_not_reif", "bbb", Compare<kUnequal, kReified>},
    {"bool_le_reif", "bbb", Compare<kLessOrEqual, kReified>},
    {"bool_lt_reif", "bbb", Compare<kLess, kReified>},
    {"bool_eq_imp", "bbb", Compare<kEqual, kImplied>},
    {"bool_ne_imp", "bbb", Compare<kUnequal, kImplied>},
    {"bool_not_imp", "bbb", Compare<kUnequal, kImplied>},
    {"bool_le_imp", "bbb", Compare<kLessOrEqual, kImplied>},
    {"bool_lt_imp", "bbb", Compare<kLess, kImplied>},

    {"bool2int", "bi", Compare<kEqual, kPlain>},
    {"bool2int_reif", "bib", Compare<kEqual, kReified>},
    {"bool2int_imp", "bib", Compare<kEqual, kImplied>},
};

}  // namespace

std::span<const Poster> ComparisonPosters() { return kPosters; }

}  // namespace kiv::flatzinc
