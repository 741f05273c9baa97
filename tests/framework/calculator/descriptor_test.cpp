#include "framework/calculator/descriptor.h"

#include <gtest/gtest.h>

#include <array>

#include "framework/abstract_types/constraints/arithmetic.h"
#include "framework/abstract_types/constraints/relations.h"
#include "framework/abstract_types/integer.h"
#include "framework/abstract_types/operator_factories.h"

namespace {

const KivOmbiObjectDescriptor* const kInteger = KivOmbiInteger::sDescriptor;
const KivOmbiObjectDescriptor* const kNumber = KivOmbiNumber::sDescriptor;
const KivOmbiObjectDescriptor* const kSum = KivOmbiAdditionConstraint::sDescriptor;

TEST(Descriptor, AKindServesWhereItOrOneAboveItIsAskedFor) {
  EXPECT_EQ(kNumber->IsMatched(kInteger), 1);
  EXPECT_EQ(kNumber->IsMatched(kNumber), 1);
  EXPECT_EQ(kInteger->IsMatched(kNumber), 0);
  EXPECT_EQ(kInteger->IsMatched(nullptr), 0);
}

TEST(Descriptor, TheAbstractKindsFormAChain) {
  std::string chain;
  for (const auto* kind = kInteger; kind != nullptr; kind = kind->GetParent()) {
    chain += kind->GetName() + " ";
  }
  EXPECT_EQ(chain, "integer number scalar any ");
}

TEST(Descriptor, AnAbstractKindHasNoObjects) {
  alignas(std::max_align_t) std::array<std::byte, 256> memory;
  EXPECT_EQ(kInteger->GetObjectSize(), 0);
  EXPECT_EQ(kInteger->ConstructObject(memory.data()), nullptr);
  EXPECT_EQ(kInteger->ConstructObjectFrom(memory.data(), nullptr), nullptr);
}

// Where the operands as written and the result arrive among the constraint's arguments.
struct Handed {
  unsigned left, right, result;
  friend bool operator==(const Handed&, const Handed&) = default;
};

Handed HandedBy(KivOmbiOperator row) {
  const Handed handed{row->GetOrder().left, row->GetOrder().right, row->GetOrder().result};
  delete row;
  return handed;
}

TEST(OperatorFactories, HandOverTheOperandsInTheirOwnOrder) {
  constexpr unsigned kNone = KivOmbiArgumentOrder::kNone;
  const auto* i = kInteger;
  EXPECT_EQ(HandedBy(KivOmbiCreateUnaryOperator("o", i, i, kSum)), (Handed{0, kNone, 1}));
  EXPECT_EQ(HandedBy(KivOmbiCreateInverseUnaryOperator("o", i, i, i, kSum)), (Handed{1, kNone, 0}));
  EXPECT_EQ(HandedBy(KivOmbiCreateBinaryOperator("o", i, i, i, kSum)), (Handed{0, 1, 2}));
  EXPECT_EQ(HandedBy(KivOmbiCreateSymmetricBinaryOperator("o", i, i, i, kSum)), (Handed{1, 0, 2}));
  EXPECT_EQ(HandedBy(KivOmbiCreateFirstInverseBinaryOperator("o", i, i, i, i, kSum)),
            (Handed{2, 1, 0}));
  EXPECT_EQ(HandedBy(KivOmbiCreateSecondInverseBinaryOperator("o", i, i, i, i, kSum)),
            (Handed{0, 1, 2}));
  EXPECT_EQ(HandedBy(KivOmbiCreateSecondInverseSymmetricBinaryOperator("o", i, i, i, i, kSum)),
            (Handed{1, 0, 2}));
}

TEST(OperatorFactories, TheLastKindIsTheCarrierTheOneBeforeItTheResultWhereItStandsApart) {
  const auto* any = KivOmbiAny::sDescriptor;
  KivOmbiOperator row =
      KivOmbiCreateSecondInverseBinaryOperator("<<", kInteger, kNumber, any, kNumber, kSum);
  EXPECT_EQ(row->GetOperand(0), kInteger);
  EXPECT_EQ(row->GetOperand(1), kNumber);
  EXPECT_EQ(row->GetResult(), any);
  EXPECT_EQ(row->GetCarrier(), kNumber);
  EXPECT_EQ(row->GetOperandCount(), 2u);
  EXPECT_STREQ(row->GetFactory(), "KivOmbiCreateSecondInverseBinaryOperator");
  EXPECT_EQ(row->GetConstraint(), kSum);
  delete row;

  row = KivOmbiCreateInverseUnaryOperator("prev", kInteger, any, kNumber, kSum);
  EXPECT_EQ(row->GetResult(), any);
  EXPECT_EQ(row->GetCarrier(), kNumber);
  delete row;
}

TEST(ConstraintDescriptor, TellsItsArguments) {
  EXPECT_EQ(kSum->GetNumberOfArguments(), 3u);
  EXPECT_EQ(kSum->GetName(), "KivOmbiAdditionConstraint");
  const auto* equal =
      static_cast<const KivOmbiConstraintDescriptor*>(KivOmbiEqualTernaryConstraint::sDescriptor);
  EXPECT_EQ(equal->GetOptionalArguments(), 1u);
  EXPECT_TRUE(equal->CanPropagate());
}

}  // namespace
