#include <utility>

#include "solver/constraints/clause.h"
#include "solver/constraints/junction.h"
#include "solver/constraints/parity.h"
#include "solver/flatzinc/poster_table.h"

// Connectives. A conjunction, disjunction or exclusive or with a result is itself the reified form
// of one that asserts: its _imp says that a true result implies it.
namespace kiv::flatzinc {
namespace {

using enum TruthForm;
using VariableId = Posting::VariableId;

// The literals of a conjunction or a disjunction, without the constants that do not matter.
class Literals {
 public:
  Literals(const Posting& posting, Junction::Which which) : posting_(posting), which_(which) {}

  void Add(Expression truth, bool positive) {
    if (!Posting::IsConstant(truth)) {
      (positive ? positive_ : negative_).push_back(posting_.GetVariable(truth));
      return;
    }
    const bool value = (truth.GetValue() != 0) == positive;
    const bool decides = value == (which_ == Junction::kAny);
    is_decided_ |= decides;
  }
  void Add(std::span<const Expression> truths, bool positive) {
    for (const Expression truth : truths) Add(truth, positive);
  }

  // Posts the junction, tied to the last argument as `form` says.
  void Post(TruthForm form) {
    if (is_decided_) return posting_.Decide(which_ == Junction::kAny, form);
    if (form == kReified) return PostReified();
    which_ == Junction::kAny ? PostAny(form) : PostAll(form);
  }

 private:
  // A junction looks at all of its literals whenever one becomes known; with more of them, clauses,
  // which look at those that matter, are worth their memory.
  static constexpr std::size_t kMostJoined = 32;

  Expression GetResult() const { return posting_.GetArgument(posting_.CountArguments() - 1); }

  void PostReified() {
    if (positive_.size() + negative_.size() > kMostJoined) return PostImplications();
    std::vector<VariableId> arguments = {posting_.GetVariable(GetResult())};
    arguments.insert(arguments.end(), positive_.begin(), positive_.end());
    arguments.insert(arguments.end(), negative_.begin(), negative_.end());
    posting_.GetNetwork().Emplace<Junction>(arguments, which_,
                                            static_cast<unsigned>(positive_.size()));
  }
  // Clauses for both directions.
  void PostImplications() {
    const VariableId result = posting_.GetVariable(GetResult());
    const bool is_any = which_ == Junction::kAny;
    std::vector<VariableId> positive = is_any ? positive_ : negative_;
    std::vector<VariableId> negative = is_any ? negative_ : positive_;
    (is_any ? negative : positive).push_back(result);
    PostClause(positive, negative);
    for (const VariableId truth : positive_) {
      is_any ? PostClause({result}, {truth}) : PostClause({truth}, {result});
    }
    for (const VariableId truth : negative_) {
      is_any ? PostClause({result, truth}, {}) : PostClause({}, {result, truth});
    }
  }
  // One clause, with the negation of the result that implies it.
  void PostAny(TruthForm form) {
    if (form == kImplied) Add(GetResult(), false);
    if (!is_decided_) PostClause(positive_, negative_);
  }
  // One clause for each literal.
  void PostAll(TruthForm form) {
    std::vector<VariableId> condition;
    if (form == kImplied) condition.push_back(posting_.GetVariable(GetResult()));
    for (const VariableId truth : positive_) PostClause({truth}, condition);
    for (const VariableId truth : negative_) {
      auto negative = condition;
      negative.push_back(truth);
      PostClause({}, negative);
    }
  }
  void PostClause(std::vector<VariableId> positive, const std::vector<VariableId>& negative) {
    const auto count = static_cast<unsigned>(positive.size());
    positive.insert(positive.end(), negative.begin(), negative.end());
    posting_.GetNetwork().Emplace<Clause>(positive, count);
  }

  const Posting& posting_;
  Junction::Which which_;
  std::vector<VariableId> positive_;
  std::vector<VariableId> negative_;
  bool is_decided_ = false;  // by a constant: any is true, or not all are
};

template <TruthForm form>
void PostClause(const Posting& posting) {
  Literals literals(posting, Junction::kAny);
  literals.Add(posting.GetElements(0), true);
  literals.Add(posting.GetElements(1), false);
  literals.Post(form);
}

template <Junction::Which which, TruthForm form>
void JoinElements(const Posting& posting) {
  Literals literals(posting, which);
  literals.Add(posting.GetElements(0), true);
  literals.Post(form);
}

template <Junction::Which which, TruthForm form>
void JoinTwo(const Posting& posting) {
  Literals literals(posting, which);
  literals.Add(posting.GetArgument(0), true);
  literals.Add(posting.GetArgument(1), true);
  literals.Post(form);
}

// All arguments are booleans: the last is the exclusive or of the others; of two, they differ.
void Differ(const Posting& posting) {
  std::vector<VariableId> truths;
  for (std::size_t i = 0; i < posting.CountArguments(); ++i) {
    truths.push_back(posting.GetVariable(i));
  }
  posting.Emplace<Parity>(kPlain, truths, truths.size() == 2 ? Parity::kOdd : Parity::kEven);
}

// The last argument implies that the first two differ.
void DifferIf(const Posting& posting) {
  posting.Relate(posting.GetExpression(0), LinearRelation::kUnequal, posting.GetExpression(1),
                 kImplied);
}

template <TruthForm form>
void DifferElements(const Posting& posting) {
  auto truths = posting.GetVariables(0);
  if (form != kReified) return posting.Emplace<Parity>(form, std::move(truths), Parity::kOdd);
  truths.push_back(posting.GetVariable(1));
  posting.Emplace<Parity>(kPlain, std::move(truths), Parity::kEven);
}

using enum Junction::Which;

constexpr Poster kPosters[] = {
    {"bool_clause", "BB", PostClause<kPlain>},
    {"bool_clause_reif", "BBb", PostClause<kReified>},
    {"bool_clause_imp", "BBb", PostClause<kImplied>},

    {"array_bool_and", "Bb", JoinElements<kAll, kReified>},
    {"array_bool_and_reif", "Bb", JoinElements<kAll, kReified>},
    {"array_bool_and_imp", "Bb", JoinElements<kAll, kImplied>},
    {"array_bool_or", "Bb", JoinElements<kAny, kReified>},
    {"array_bool_or_reif", "Bb", JoinElements<kAny, kReified>},
    {"array_bool_or_imp", "Bb", JoinElements<kAny, kImplied>},
    {"bool_and", "bbb", JoinTwo<kAll, kReified>},
    {"bool_and_reif", "bbb", JoinTwo<kAll, kReified>},
    {"bool_and_imp", "bbb", JoinTwo<kAll, kImplied>},
    {"bool_or", "bbb", JoinTwo<kAny, kReified>},
    {"bool_or_reif", "bbb", JoinTwo<kAny, kReified>},
    {"bool_or_imp", "bbb", JoinTwo<kAny, kImplied>},

    {"bool_xor", "bb|bbb", Differ},
    {"bool_xor_reif", "bbb", Differ},
    {"bool_xor_imp", "bbb", DifferIf},
    {"array_bool_xor", "B", DifferElements<kPlain>},
    {"array_bool_xor_reif", "Bb", DifferElements<kReified>},
    {"array_bool_xor_imp", "Bb", DifferElements<kImplied>},
};

}  // namespace

std::span<const Poster> BooleanPosters() { return kPosters; }

}  // namespace kiv::flatzinc
