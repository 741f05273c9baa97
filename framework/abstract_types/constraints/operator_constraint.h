#pragma once

#include "framework/abstract_types/constraint.h"

// A constraint that stands for an operator: it knows the row that it was made for.
class KivOmbiOperatorConstraint : public KivOmbiConstraint {
 protected:
  // `descriptor` is that of the constraint's class.
  KivOmbiOperatorConstraint(const KivOmbiObjectDescriptor* descriptor,
                            const KivOmbiCompoundObjectDescriptor* row)
      : KivOmbiConstraint(static_cast<const KivOmbiConstraintDescriptor*>(descriptor)), row_(row) {}

  // The kind in which to compute.
  const KivOmbiObjectDescriptor& GetCarrier() const { return *row_->GetCarrier(); }
  // The argument at which the operand written on the right arrives.
  unsigned GetWrittenRight() const { return row_->GetOrder().right; }

 private:
  const KivOmbiCompoundObjectDescriptor* row_;
};
