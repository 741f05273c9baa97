#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/base/export.h"
#include "framework/calculator/module_manager.h"
#include "framework/calculator/operator_table.h"

namespace kiv {

// Whether `descriptor` is a kind of value, of objects or abstract: neither an operator nor a class
// of constraints.
KIV_EXPORT bool IsKind(const KivOmbiObjectDescriptor& descriptor);

// What loaded modules let a model say: the kinds of which there are variables and the operators.
class KIV_EXPORT Vocabulary {
 public:
  // Of these modules in this order, such as all that a manager has opened.
  explicit Vocabulary(const std::vector<KivOmbiModule*>& modules);

  // The kind of this display name, or null.
  const KivOmbiObjectDescriptor* FindKind(std::string_view name) const;
  const std::vector<const KivOmbiObjectDescriptor*>& GetKinds() const noexcept { return kinds_; }
  std::vector<std::string> GetKindNames() const;
  const KivOmbiOperatorTable& GetOperators() const noexcept { return operators_; }

 private:
  std::vector<const KivOmbiObjectDescriptor*> kinds_;
  KivOmbiOperatorTable operators_;
};

// An operator's row as messages show it: "enum int, int -> enum int".
KIV_EXPORT std::string DescribeRow(const KivOmbiCompoundObjectDescriptor& row);

}  // namespace kiv
