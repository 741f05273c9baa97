#include "solver/language/vocabulary.h"

namespace kiv {

bool IsKind(const KivOmbiObjectDescriptor& descriptor) {
  return descriptor.GetNumberOfArguments() == 0;
}

Vocabulary::Vocabulary(const std::vector<KivOmbiModule*>& modules) {
  for (const KivOmbiModule* module : modules) {
    operators_.Add(*module);
    for (const KivOmbiObjectDescriptor* descriptor : module->GetObjectDescriptors()) {
      if (IsKind(*descriptor) && descriptor->GetObjectSize() > 0) kinds_.push_back(descriptor);
    }
  }
}

const KivOmbiObjectDescriptor* Vocabulary::FindKind(std::string_view name) const {
  for (const KivOmbiObjectDescriptor* kind : kinds_) {
    if (kind->GetName() == name) return kind;
  }
  return nullptr;
}

std::vector<std::string> Vocabulary::GetKindNames() const {
  std::vector<std::string> names;
  for (const KivOmbiObjectDescriptor* kind : kinds_) names.push_back(kind->GetName());
  return names;
}

std::string DescribeRow(const KivOmbiCompoundObjectDescriptor& row) {
  std::string text;
  for (unsigned i = 0; i < row.GetOperandCount(); ++i) {
    if (i > 0) text += ", ";
    text += row.GetOperand(i)->GetName();
  }
  return text + " -> " + row.GetResult()->GetName();
}

}  // namespace kiv
