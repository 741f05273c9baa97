#pragma once

#include <string_view>
#include <vector>

#include "framework/base/export.h"
#include "framework/calculator/descriptor.h"
#include "framework/calculator/module_manager.h"

// The operators of some modules: the vocabulary of a model.
class KIV_EXPORT KivOmbiOperatorTable {
 public:
  // Adds the operators of `module` in their order, behind those added before.
  void Add(const KivOmbiModule& module);

  const std::vector<const KivOmbiCompoundObjectDescriptor*>& GetRows() const noexcept {
    return rows_;
  }

  // The row that the application of `symbol` to operands of these kinds means, or null. Among the
  // rows whose kinds the operands serve, the one with the most operands of exactly its kind; among
  // equals the one that names the more specific kinds, then the earlier.
  const KivOmbiCompoundObjectDescriptor* Resolve(
      std::string_view symbol, const std::vector<const KivOmbiObjectDescriptor*>& operands) const;

  // The rows of `symbol` for this number of operands.
  std::vector<const KivOmbiCompoundObjectDescriptor*> FindRows(std::string_view symbol,
                                                               unsigned operands) const;

 private:
  std::vector<const KivOmbiCompoundObjectDescriptor*> rows_;
};
