// The registration of the module with the framework. The tests run in order: what fails comes
// before what initialises the process.

#include "enum_integers/module/init_module.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "enum_integers/domain/enum_integer.h"
#include "framework/abstract_types/constraints/arithmetic.h"
#include "framework/abstract_types/constraints/boolean_relations.h"
#include "framework/abstract_types/constraints/relations.h"
#include "framework/abstract_types/constraints/unary.h"
#include "framework/calculator/module_manager.h"
#include "framework/numbers/interval_integer.h"
#include "framework/numbers/single_boolean.h"
#include "framework/numbers/single_integer.h"

namespace {

// Opens empty modules, except the one it refuses.
class RefusingManager : public KivOmbiModuleManager {
 public:
  explicit RefusingManager(std::string refused = {}) : refused_(std::move(refused)) {}

  KivOmbiModule* OpenModule(const KivString& name) override {
    asked.push_back(name);
    if (name == refused_) return nullptr;
    return opened_.emplace_back(std::make_unique<KivOmbiModule>(name)).get();
  }

  std::vector<std::string> asked;

 private:
  std::string refused_;
  std::vector<std::unique_ptr<KivOmbiModule>> opened_;
};

// Three libraries of the process have a symbol InitModule; this is the one of the library under
// test.
KivOmbiInitModule ModulesOwnInit() {
  Dl_info library;
  if (dladdr(reinterpret_cast<void*>(&InitEnumIntegers), &library) == 0) return nullptr;
  void* const handle = dlopen(library.dli_fname, RTLD_NOW | RTLD_NOLOAD);
  if (handle == nullptr) return nullptr;
  return reinterpret_cast<KivOmbiInitModule>(dlsym(handle, "InitModule"));
}

std::vector<std::string> NamesOf(const std::vector<KivOmbiModule*>& modules) {
  std::vector<std::string> names;
  for (const KivOmbiModule* const module : modules) names.push_back(module->GetName());
  return names;
}

using Names = std::vector<std::string>;

class InitModuleTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_NE(init_, nullptr); }
  void TearDown() override { Forget(module_); }

  // Ends the descriptors of a module, which live as long as the process otherwise.
  static void Forget(const KivOmbiModule& module) {
    KivOmbEnumInteger::sDescriptor = nullptr;
    for (const KivOmbiObjectDescriptor* const descriptor : module.GetObjectDescriptors()) {
      delete descriptor;
    }
  }

  const KivOmbiInitModule init_ = ModulesOwnInit();
  KivOmbiModule module_{"KivOmbEnumIntegers"};
};

TEST_F(InitModuleTest, RefusesANullModuleOrManager) {
  RefusingManager manager;
  EXPECT_EQ(init_(nullptr, &manager), 0);
  EXPECT_EQ(init_(&module_, nullptr), 0);
  EXPECT_TRUE(manager.asked.empty());
  EXPECT_TRUE(module_.GetLoadedModules().empty());
  EXPECT_TRUE(module_.GetObjectDescriptors().empty());
  EXPECT_EQ(KivOmbEnumInteger::sMAX_CARD, 0u);
}

TEST_F(InitModuleTest, StopsAtAbstractTypesThatCannotBeOpened) {
  RefusingManager manager("KivOmbAbstractTypes");
  EXPECT_EQ(init_(&module_, &manager), 0);
  EXPECT_EQ(manager.asked, Names{"KivOmbAbstractTypes"});
  EXPECT_TRUE(module_.GetLoadedModules().empty());
  EXPECT_TRUE(module_.GetObjectDescriptors().empty());
}

TEST_F(InitModuleTest, StopsAtNumbersThatCannotBeOpenedAndUndoesNothing) {
  RefusingManager manager("KivOmbNumbers");
  EXPECT_EQ(init_(&module_, &manager), 0);
  EXPECT_EQ(NamesOf(module_.GetLoadedModules()), Names{"KivOmbAbstractTypes"});
  EXPECT_TRUE(module_.GetObjectDescriptors().empty());
  EXPECT_EQ(KivOmbEnumInteger::sMAX_CARD, 0u);
  EXPECT_EQ(KivOmbEnumInteger::sDescriptor, nullptr);
}

// A registered operator in one line: symbol, factory, kinds in the factory's order, constraint.
std::string Line(const KivOmbiCompoundObjectDescriptor& row) {
  const std::map<const KivOmbiObjectDescriptor*, std::string> names = {
      {KivOmbEnumInteger::sDescriptor, "enum"},
      {KivOmbSingleInteger::sDescriptor, "single"},
      {KivOmbIntervalInteger::sDescriptor, "interval"},
      {KivOmbiInteger::sDescriptor, "integer"},
      {KivOmbSingleBoolean::sDescriptor, "boolean"},
      {KivOmbiAdditionConstraint::sDescriptor, "Addition"},
      {KivOmbiMultiplicationConstraint::sDescriptor, "Multiplication"},
      {KivOmbiPowerConstraint::sDescriptor, "Power"},
      {KivOmbiRemainderConstraint::sDescriptor, "Remainder"},
      {KivOmbiEqualTernaryConstraint::sDescriptor, "EqualTernary"},
      {KivOmbiUnequalTernaryConstraint::sDescriptor, "UnequalTernary"},
      {KivOmbiLessOrEqualTernaryConstraint::sDescriptor, "LessOrEqualTernary"},
      {KivOmbiLessTernaryConstraint::sDescriptor, "LessTernary"},
      {KivOmbiMinimumConstraint::sDescriptor, "Minimum"},
      {KivOmbiMaximumConstraint::sDescriptor, "Maximum"},
      {KivOmbiNumberNegationConstraint::sDescriptor, "NumberNegation"},
      {KivOmbiSignumConstraint::sDescriptor, "Signum"},
      {KivOmbiAbsoluteConstraint::sDescriptor, "Absolute"},
      {KivOmbiNextConstraint::sDescriptor, "Next"},
      {KivOmbiEqualConstraint::sDescriptor, "Equal"},
      {KivOmbiBooleanEqualConstraint::sDescriptor, "BooleanEqual"},
      {KivOmbiBooleanLessConstraint::sDescriptor, "BooleanLess"},
      {KivOmbiBooleanLessOrEqualConstraint::sDescriptor, "BooleanLessOrEqual"},
  };
  std::string line = row.GetSymbol() + ' ' + row.GetFactory();
  for (const KivOmbiObjectDescriptor* const kind : row.GetKinds()) line += ' ' + names.at(kind);
  return line + ' ' + names.at(row.GetConstraint());
}

// The table again, from its patterns: which operand pairs each symbol takes.
class ExpectedTable {
 public:
  ExpectedTable() {
    const Names all = {"single enum", "enum single", "enum enum", "enum integer", "integer enum"};
    const Names three = {"single enum", "enum single", "enum enum"};
    const Names boolean = {"single enum", "enum single", "interval enum", "enum interval",
                           "enum enum"};
    const Names interval = {"interval enum", "enum interval"};
    Add("+", "Binary", all, "enum", "Addition");
    Add("*", "Binary", all, "enum", "Multiplication");
    Add("^", "Binary", three, "enum", "Power");
    Add("=", "Binary", all, "enum", "EqualTernary");
    Add("<>", "Binary", all, "enum", "UnequalTernary");
    Add(">=", "Binary", all, "enum", "LessOrEqualTernary");
    Add("/\\", "Binary", all, "enum", "Minimum");
    Add("\\/", "Binary", all, "enum", "Maximum");
    Add(">", "Binary", all, "enum", "LessTernary");
    Add("=", "Binary", interval, "enum", "EqualTernary");
    Add("<=", "SymmetricBinary", three, "enum", "LessOrEqualTernary");
    Add("<", "SymmetricBinary", three, "enum", "LessTernary");
    Add("-", "FirstInverseBinary", three, "enum enum", "Addition");
    Add("/", "FirstInverseBinary", three, "enum enum", "Multiplication");
    Add("-", "Unary", {"enum"}, "enum", "NumberNegation");
    Add("sign", "InverseUnary", {"enum"}, "enum enum", "Signum");
    Add("abs", "Unary", {"enum"}, "enum", "Absolute");
    Add("next", "Unary", {"enum"}, "enum", "Next");
    Add("(interval int)", "Unary", {"interval"}, "enum", "Equal");
    Add("prev", "InverseUnary", {"enum"}, "enum enum", "Next");
    Add("==", "SecondInverseBinary", boolean, "boolean enum", "BooleanEqual");
    Add(">>", "SecondInverseBinary", boolean, "boolean enum", "BooleanLess");
    Add(">==", "SecondInverseBinary", boolean, "boolean enum", "BooleanLessOrEqual");
    Add("<<", "SecondInverseSymmetricBinary", boolean, "boolean enum", "BooleanLess");
    Add("<==", "SecondInverseSymmetricBinary", boolean, "boolean enum", "BooleanLessOrEqual");
    Add("mod", "Binary", all, "enum", "Remainder");
  }

  const Names& Lines() const { return lines_; }

 private:
  void Add(const std::string& symbol, const std::string& factory, const Names& operands,
           const std::string& rest, const std::string& constraint) {
    for (const std::string& pair : operands) {
      lines_.push_back(symbol + " KivOmbiCreate" + factory + "Operator " + pair + ' ' + rest + ' ' +
                       constraint);
    }
  }

  Names lines_;
};

TEST_F(InitModuleTest, RegistersTheKindAndItsOperatorsInOrder) {
  RefusingManager manager;
  ASSERT_EQ(init_(&module_, &manager), 1);
  EXPECT_EQ(NamesOf(module_.GetLoadedModules()), (Names{"KivOmbAbstractTypes", "KivOmbNumbers"}));
  EXPECT_EQ(KivOmbEnumInteger::sMAX_CARD, 1024u);

  const auto& descriptors = module_.GetObjectDescriptors();
  ASSERT_EQ(descriptors.size(), 94u);
  ASSERT_NE(KivOmbEnumInteger::sDescriptor, nullptr);
  EXPECT_EQ(descriptors[0], KivOmbEnumInteger::sDescriptor);
  EXPECT_EQ(KivOmbEnumInteger().GetDescriptor(), KivOmbEnumInteger::sDescriptor);

  const ExpectedTable expected;
  ASSERT_EQ(expected.Lines().size(), 93u);
  for (std::size_t i = 1; i < descriptors.size(); ++i) {
    const auto* const row = KivCast<KivOmbiCompoundObjectDescriptor>(descriptors[i]);
    ASSERT_NE(row, nullptr) << i;
    EXPECT_EQ(Line(*row), expected.Lines()[i - 1]) << i;
  }
}

TEST_F(InitModuleTest, MakesANewDescriptorWhenItRunsAgain) {
  RefusingManager manager;
  KivOmbiModule first("KivOmbEnumIntegers");
  ASSERT_EQ(init_(&first, &manager), 1);
  ASSERT_EQ(init_(&module_, &manager), 1);
  EXPECT_EQ(module_.GetObjectDescriptors().size(), 94u);
  EXPECT_EQ(module_.GetObjectDescriptors()[0], KivOmbEnumInteger::sDescriptor);
  EXPECT_NE(first.GetObjectDescriptors()[0], KivOmbEnumInteger::sDescriptor);
  Forget(first);
}

}  // namespace
