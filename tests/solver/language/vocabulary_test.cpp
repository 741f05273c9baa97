#include "solver/language/vocabulary.h"

#include <gtest/gtest.h>

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/operator_factories.h"
#include "tests/solver/language/read_model.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

// A constraint of which only the ground truth is known: y = 2x.
class Doubling final : public KivOmbiConstraint {
 public:
  explicit Doubling(const KivOmbiCompoundObjectDescriptor* row)
      : KivOmbiConstraint(row->GetConstraint()) {}
  bool Holds(std::span<const std::int64_t> values) const override {
    return values[1] == 2 * values[0];
  }
};

// The standard modules and one with an operator "double" that cannot propagate.
const Vocabulary& ExtendedVocabulary() {
  static const Vocabulary vocabulary = [] {
    static const KivOmbiOperatorConstraintDescriptor<Doubling> constraint("DoublingConstraint", 2,
                                                                          0, false);
    static KivOmbiModule module("Doubling");
    const KivOmbiObjectDescriptor* kind = OpenModules().FindKind("enum int");
    static const std::unique_ptr<const KivOmbiCompoundObjectDescriptor> row(
        KivOmbiCreateUnaryOperator("double", kind, kind, &constraint));
    module.AddObjectDescriptor(row.get());
    std::vector<KivOmbiModule*> modules = OpenModules().manager.GetModules();
    modules.push_back(&module);
    return Vocabulary(modules);
  }();
  return vocabulary;
}

TEST(Vocabulary, HoldsTheKindsThatHaveVariables) {
  EXPECT_EQ(StandardVocabulary().GetKindNames(),
            (std::vector<std::string>{"int", "interval int", "bool", "enum int"}));
  EXPECT_NE(StandardVocabulary().FindKind("enum int"), nullptr);
  EXPECT_EQ(StandardVocabulary().FindKind("integer"), nullptr);
  EXPECT_EQ(StandardVocabulary().FindKind("+"), nullptr);
}

TEST(Vocabulary, TellsKindsFromOperatorsAndConstraints) {
  for (const KivOmbiCompoundObjectDescriptor* row : StandardVocabulary().GetOperators().GetRows()) {
    EXPECT_FALSE(IsKind(*row));
    EXPECT_FALSE(IsKind(*row->GetConstraint()));
    EXPECT_TRUE(IsKind(*row->GetResult()));
  }
}

TEST(Vocabulary, RefusesAnOperatorThatCannotPropagateByName) {
  EXPECT_EQ(ErrorsOf("x : enum int = [1, 9];\ndouble(x) = 4;\nsolve;\n", {}, ExtendedVocabulary()),
            "m.kiv:2:1: error: operator 'double' on enum int: its constraint (DoublingConstraint) "
            "cannot propagate yet\n"
            "  double(x) = 4;\n"
            "  ^~~~~~\n");
}

TEST(Vocabulary, NamesTheFunctionsOfFurtherModules) {
  EXPECT_EQ(ErrorsOf("x : enum int = [1, 9];\ndouuble(x) = 4;\nsolve;\n", {}, ExtendedVocabulary()),
            "m.kiv:2:1: error: unknown function 'douuble'; did you mean 'double'?\n"
            "  douuble(x) = 4;\n"
            "  ^~~~~~~\n");
}

TEST(Vocabulary, ModelsNeedTheKindOfConstants) {
  EXPECT_EQ(ErrorsOf("solve;", {}, Vocabulary({})),
            "m.kiv: error: no module that is loaded has the kind 'int', which constants need\n");
}

}  // namespace
}  // namespace kiv::test
