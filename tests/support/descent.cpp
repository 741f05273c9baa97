#include "tests/support/descent.h"

#include <algorithm>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "tests/support/strength.h"

namespace kiv::test {

namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

constexpr int kSteps = 10;

std::string Name(Outcome outcome) {
  switch (outcome) {
    case Outcome::kFixpoint:
      return "a fixpoint";
    case Outcome::kContradiction:
      return "a contradiction";
    case Outcome::kOverflow:
      return "an overflow";
    case Outcome::kStopped:
      break;
  }
  return "stopped";
}

// The same variables, none of them under a constraint.
void CopyDomains(const KivOmbNetwork& from, KivOmbNetwork& to) {
  for (VariableId id = 0; id < from.CountVariables(); ++id) {
    to.Update(to.AddVariable(from.GetKind(id)),
              [&](KivOmbiAny& domain) { domain.Assign(from.GetDomain(id)); });
  }
}

class Descent {
 public:
  Descent(const ConstraintCase& constraint, const std::vector<Assignment>& solutions,
          Generator& random)
      : constraint_(constraint), solutions_(solutions), random_(random) {
    for (const Declared& variable : constraint.variables) Declare(network_, variable);
    Post(network_);
  }

  std::optional<std::string> Run() {
    auto failure = RunSteps();
    if (failure) *failure += "\n  after: " + (steps_.empty() ? "no step" : steps_);
    return failure;
  }

 private:
  std::optional<std::string> RunSteps() {
    for (int i = 0; i < kSteps; ++i) {
      Outcome outcome;
      if (auto failure = CheckNode(outcome)) return failure;
      std::vector<VariableId> open = OpenVariables();
      const bool ends = outcome != Outcome::kFixpoint || open.empty();
      if (ends && taken_.empty()) return std::nullopt;
      if (ends || (!taken_.empty() && OneIn(random_, 4))) {
        if (auto failure = TakeBack()) return failure;
        open = OpenVariables();
      }
      taken_.push_back(Text(network_));
      network_.PushLevel();
      Narrow(PickOf(random_, open));
      if (OneIn(random_, 3)) Narrow(PickOf(random_, open));
    }
    return std::nullopt;
  }

  std::optional<std::string> CheckNode(Outcome& outcome) {
    KivOmbNetwork entry;
    CopyDomains(network_, entry);
    const std::string given = Text(entry);
    outcome = network_.Propagate();
    const auto fail = [&](const std::string& what) {
      return what + "\n  domains: " + given + "\n  narrowed to: " + Text(network_);
    };
    if (const auto failure = FindLoss(entry, outcome)) return fail(*failure);
    if (outcome == Outcome::kFixpoint) {
      if (const auto failure = FindWeakness(constraint_, network_)) return fail(*failure);
      KivOmbNetwork second;
      CopyDomains(network_, second);
      if (const auto failure = ComparePosted(second, outcome)) {
        return fail("no fixpoint: a copy posted afterwards " + *failure);
      }
    }
    if (const auto failure = ComparePosted(entry, outcome)) {
      return fail("a newly posted copy " + *failure);
    }
    return std::nullopt;
  }

  // A solution over the domains of `entry` that the network no longer has.
  std::optional<std::string> FindLoss(const KivOmbNetwork& entry, Outcome outcome) const {
    if (outcome == Outcome::kOverflow && !constraint_.determines) return std::nullopt;
    for (const Assignment& solution : solutions_) {
      if (!HasAll(entry, solution)) continue;
      if (outcome == Outcome::kFixpoint && HasAll(network_, solution)) continue;
      std::string text = Name(outcome) + " without the solution";
      for (const std::int64_t value : solution) text += " " + std::to_string(value);
      return text;
    }
    return std::nullopt;
  }

  static bool HasAll(const KivOmbNetwork& network, const Assignment& assignment) {
    for (VariableId id = 0; id < assignment.size(); ++id) {
      if (!IsPossible(network, id, assignment[id])) return false;
    }
    return true;
  }

  // Posts the constraint in `fresh`, too, and compares what comes of it.
  std::optional<std::string> ComparePosted(KivOmbNetwork& fresh, Outcome expected) const {
    Post(fresh);
    const Outcome outcome = fresh.Propagate();
    if (outcome != expected) return "comes to " + Name(outcome) + ", not " + Name(expected);
    if (outcome == Outcome::kFixpoint && Text(fresh) != Text(network_)) {
      return "narrows to " + Text(fresh);
    }
    return std::nullopt;
  }

  std::optional<std::string> TakeBack() {
    steps_ += "take back; ";
    network_.PopLevel();
    const std::string before = std::move(taken_.back());
    taken_.pop_back();
    if (Text(network_) != before) return "taken back to " + Text(network_) + ", not to " + before;
    const Outcome outcome = network_.Propagate();
    if (outcome != Outcome::kFixpoint || Text(network_) != before) {
      return "taken back to " + before + ", and propagated to " + Name(outcome) + ", " +
             Text(network_);
    }
    return std::nullopt;
  }

  std::vector<VariableId> OpenVariables() const {
    std::vector<VariableId> open;
    for (VariableId id = 0; id < network_.CountVariables(); ++id) {
      if (!network_.GetSummary(id).IsFixed()) open.push_back(id);
    }
    return open;
  }

  // Through the operations of the variable's own kind.
  void Narrow(VariableId id) {
    const std::int32_t value = ValueToNarrowBy(id);
    const std::string name = "x" + std::to_string(id);
    if (KivCast<KivOmbiBoolean>(&network_.GetDomain(id)) != nullptr) {
      steps_ += name + " = " + std::to_string(value) + "; ";
      network_.Update(id, [&](KivOmbiAny& domain) {
        static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(value != 0);
      });
      return;
    }
    KivOmbNetwork other;
    const VariableId exact = Declare(other, {&network_.GetKind(id), {value}});
    const auto& operand = static_cast<const KivOmbiInteger&>(other.GetDomain(exact));
    static constexpr const char* kSigns[] = {" = ", " <= ", " >= ", " <> "};
    const int move = Pick(random_, 0, 3);
    steps_ += name + kSigns[move] + std::to_string(value) + "; ";
    network_.Update(id, [&](KivOmbiAny& domain) {
      auto& integer = static_cast<KivOmbiInteger&>(domain);
      switch (move) {
        case 0:
          integer.Intersect(operand);
          break;
        case 1:
          integer.CalcLessOrEqualValue(operand);
          break;
        case 2:
          integer.CalcNotLessValue(operand);
          break;
        default:
          integer.RemoveExactValue(value);
      }
    });
  }

  // One of the variable's values; where they cannot be listed, one of a solution, or a small one.
  std::int32_t ValueToNarrowBy(VariableId id) {
    const KivOmbiDomainSummary& summary = network_.GetSummary(id);
    constexpr std::uint32_t kMostListed = 5000;
    if (!summary.IsAny() && summary.cardinality < kMostListed) {
      const Values values = ValuesOf(network_, id);
      return values.empty() ? 0 : PickOf(random_, values);
    }
    if (solutions_.empty() || OneIn(random_, 4)) return Pick(random_, -5, 8);
    return static_cast<std::int32_t>(PickOf(random_, solutions_)[id]);
  }

  void Post(KivOmbNetwork& network) const { constraint_.post(network, constraint_.arguments); }

  const ConstraintCase& constraint_;
  const std::vector<Assignment>& solutions_;
  Generator& random_;
  KivOmbNetwork network_;
  std::vector<std::string> taken_;  // the domains at each open level, before its steps
  std::string steps_;
};

}  // namespace

std::optional<std::string> FindFailureOnDescent(const ConstraintCase& constraint,
                                                const std::vector<Assignment>& solutions,
                                                Generator& random) {
  return Descent(constraint, solutions, random).Run();
}

}  // namespace kiv::test
