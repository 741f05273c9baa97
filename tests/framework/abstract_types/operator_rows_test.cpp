// Every row of every module stands under brute force: over small random domains of every mix of
// kinds that the row admits, the solutions that search finds are those of enumeration by the
// operator's meaning.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <set>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"
#include "tests/support/operator_meaning.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Kind = const KivOmbiObjectDescriptor*;
using Row = const KivOmbiCompoundObjectDescriptor*;
using Type = OperatorMeaning::Type;
using Random = std::mt19937_64;

constexpr int kRounds = 40;

int Pick(Random& random, int lower, int upper) {
  return std::uniform_int_distribution<int>(lower, upper)(random);
}

// One to six values of what the kind can hold exactly: one value, a range, or a set with holes.
Values RandomValues(Random& random, Kind kind) {
  const std::string& name = kind->GetName();
  if (name == "bool") return Pick(random, 0, 2) == 0 ? Values{Pick(random, 0, 1)} : Values{0, 1};
  if (name == "int") return {Pick(random, -6, 8)};
  const int count = Pick(random, 1, 6);
  Values values;
  for (int value = Pick(random, -5, 3); static_cast<int>(values.size()) < count; ++value) {
    if (name != "enum int" || Pick(random, 0, 1) == 0) values.push_back(value);
  }
  return values;
}

// The kinds that an operand of a row may have: all below an abstract one.
std::vector<Kind> ConcreteKinds(Kind wanted) {
  std::vector<Kind> kinds;
  for (const Kind kind : OpenModulesAndForeign().kinds) {
    if (wanted->IsMatched(kind) != 0) kinds.push_back(kind);
  }
  return kinds;
}

std::vector<std::vector<Kind>> OperandMixes(Row row) {
  std::vector<std::vector<Kind>> mixes{{}};
  for (unsigned i = 0; i < row->GetOperandCount(); ++i) {
    std::vector<std::vector<Kind>> longer;
    for (const auto& mix : mixes) {
      for (const Kind kind : ConcreteKinds(row->GetOperand(i))) {
        longer.push_back(mix);
        longer.back().push_back(kind);
      }
    }
    mixes = std::move(longer);
  }
  return mixes;
}

// The result starts unknown where the operands fix it and the class can find it out.
bool CanStartUnknown(Row row, const OperatorMeaning& meaning) {
  return row->GetConstraint()->CanPropagate() && meaning.type != Type::kQuotient && row->GetSymbol() != "^";
}

class Case {
 public:
  Case(Row row, const OperatorMeaning& meaning, std::vector<Declared> operands, Values result)
      : row_(row), meaning_(meaning), declared_(std::move(operands)) {
    declared_.push_back({row->GetResult(), std::move(result)});
  }

  // What is true by enumeration. An unknown result ranges over all that the operands could give.
  std::vector<Assignment> Expected(bool same_operand) const {
    std::vector<Values> domains;
    for (const Declared& variable : declared_) domains.push_back(variable.values);
    if (domains.back().empty()) {
      for (int value = -1000; value <= 1000; ++value) domains.back().push_back(value);
    }
    if (same_operand) domains.erase(domains.begin() + 1);
    return EnumerateSolutions(domains, [&](const Assignment& values) {
      return meaning_.holds(values[0], same_operand ? values[0] : values[values.size() - 2],
                            values.back());
    });
  }

  // Builds the variables and posts the row. With `same_operand` the first operand stands on both
  // sides.
  void Post(KivOmbNetwork& network, bool same_operand) const {
    const auto left = Declare(network, declared_[0]);
    const bool binary = row_->GetOperandCount() == 2;
    const auto right = !binary        ? KivOmbNetwork::kNone
                       : same_operand ? left
                                      : Declare(network, declared_[1]);
    const auto result = Declare(network, declared_.back());
    network.Post(*row_, left, right, result);
  }

  const std::vector<Declared>& declared() const { return declared_; }

 private:
  Row row_;
  const OperatorMeaning& meaning_;
  std::vector<Declared> declared_;
};

std::string Describe(Row row) {
  Kivostrstream out;
  row->PrintOn(out);
  return out.Str();
}

// Calls `test(case, random)` for random cases of every mix of kinds of every row.
void ForEachCase(int rounds, std::uint64_t seed,
                 const std::function<void(Row, const Case&, Random&)>& test) {
  Random random(seed);
  for (const Row row : OpenModulesAndForeign().operators.GetRows()) {
    const OperatorMeaning* meaning = FindMeaning(row->GetSymbol(), row->GetOperandCount());
    ASSERT_NE(meaning, nullptr) << "no test knows what " << Describe(row) << " means";
    for (const auto& mix : OperandMixes(row)) {
      for (int round = 0; round < rounds; ++round) {
        std::vector<Declared> operands;
        for (const Kind kind : mix) operands.push_back({kind, RandomValues(random, kind)});
        const bool unknown = CanStartUnknown(row, *meaning) && Pick(random, 0, 1) == 0;
        const bool truth = meaning->type == Type::kTruth;
        const Case tried(row, *meaning, operands,
                         unknown && !truth ? Values{} : RandomValues(random, row->GetResult()));
        SCOPED_TRACE(Describe(row) + " over " + Print(tried.declared()) + ", " + Replay(seed));
        test(row, tried, random);
        if (testing::Test::HasFailure()) return;
      }
    }
  }
}

TEST(OperatorRows, EveryRowIsKnownHereAndEveryConstraintClassHasARow) {
  std::set<std::string> served;
  for (const Row row : OpenModulesAndForeign().operators.GetRows()) {
    EXPECT_NE(FindMeaning(row->GetSymbol(), row->GetOperandCount()), nullptr) << Describe(row);
    EXPECT_FALSE(OperandMixes(row).empty()) << Describe(row);
    served.insert(row->GetConstraint()->GetName());
  }
  for (const KivOmbiModule* module : OpenModulesAndForeign().manager.GetModules()) {
    for (const auto* descriptor : module->GetObjectDescriptors()) {
      if (dynamic_cast<const KivOmbiConstraintDescriptor*>(descriptor) == nullptr) continue;
      EXPECT_TRUE(served.contains(descriptor->GetName())) << descriptor->GetName();
    }
  }
  EXPECT_EQ(served.size(), 24u);
}

TEST(OperatorRows, SearchFindsTheSolutionsOfEnumeration) {
  ForEachCase(kRounds, Seed(1), [](Row, const Case& tried, Random&) {
    KivOmbNetwork network;
    tried.Post(network, false);
    EXPECT_EQ(SearchSolutions(network), tried.Expected(false));
  });
}

TEST(OperatorRows, AVariableOnBothSidesKeepsItsSolutions) {
  ForEachCase(kRounds / 4, Seed(2), [](Row row, const Case& tried, Random&) {
    const bool same_kind =
        row->GetOperandCount() == 2 && tried.declared()[0].kind == tried.declared()[1].kind;
    if (!same_kind) return;
    KivOmbNetwork network;
    tried.Post(network, true);
    EXPECT_EQ(SearchSolutions(network), tried.Expected(true));
  });
}

// A relation whose value nobody uses is posted without it.
TEST(OperatorRows, RelationsHoldWithoutAValue) {
  ForEachCase(kRounds / 4, Seed(3), [](Row row, const Case& tried, Random&) {
    const OperatorMeaning* meaning = FindMeaning(row->GetSymbol(), row->GetOperandCount());
    if (meaning->type != Type::kRelation) return;
    KivOmbNetwork network;
    const auto left = Declare(network, tried.declared()[0]);
    const auto right = Declare(network, tried.declared()[1]);
    network.Post(*row, left, right, KivOmbNetwork::kNone);
    const auto expected = EnumerateSolutions(
        {tried.declared()[0].values, tried.declared()[1].values},
        [&](const Assignment& values) { return meaning->holds(values[0], values[1], values[1]); });
    EXPECT_EQ(SearchSolutions(network), expected);
  });
}

// What a constraint narrows does not depend on whether it was posted before or after its arguments
// were narrowed, and a level that is taken back leaves no trace.
TEST(OperatorRows, TheFixpointIsTheOneOfAFreshNetwork) {
  ForEachCase(kRounds / 4, Seed(4), [](Row, const Case& tried, Random& random) {
    KivOmbNetwork network;
    tried.Post(network, false);
    if (network.Propagate() != KivOmbNetwork::Outcome::kFixpoint) return;
    const auto text_of = [](const KivOmbNetwork& of) {
      Kivostrstream out;
      for (KivOmbNetwork::VariableId i = 0; i < of.CountVariables(); ++i) {
        of.GetDomain(i).PrintOn(out);
        out << "; ";
      }
      return out.Str();
    };
    const std::string before = text_of(network);

    const auto pruned = static_cast<KivOmbNetwork::VariableId>(
        Pick(random, 0, static_cast<int>(network.CountVariables()) - 1));
    if (network.GetSummary(pruned).IsAny()) return;
    const Values values = ValuesOf(network, pruned);
    const std::int32_t kept =
        values[static_cast<std::size_t>(Pick(random, 0, static_cast<int>(values.size()) - 1))];
    network.PushLevel();
    network.Update(pruned, [&](KivOmbiAny& domain) {
      if (auto* integer = KivCast<KivOmbiInteger>(&domain)) {
        integer->SetExactValue(kept);
      } else {
        static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(kept != 0);
      }
    });
    const auto outcome = network.Propagate();

    KivOmbNetwork fresh;
    tried.Post(fresh, false);
    fresh.Update(pruned, [&](KivOmbiAny& domain) {
      if (auto* integer = KivCast<KivOmbiInteger>(&domain)) {
        integer->SetExactValue(kept);
      } else {
        static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(kept != 0);
      }
    });
    EXPECT_EQ(outcome, fresh.Propagate());
    if (outcome == KivOmbNetwork::Outcome::kFixpoint) {
      EXPECT_EQ(text_of(network), text_of(fresh));
    }

    network.PopLevel();
    EXPECT_EQ(text_of(network), before);
    EXPECT_EQ(network.Propagate(), KivOmbNetwork::Outcome::kFixpoint);
    EXPECT_EQ(text_of(network), before);
  });
}

}  // namespace
}  // namespace kiv::test
