#include "framework/calculator/operator_table.h"

#include <utility>

namespace {

unsigned Depth(const KivOmbiObjectDescriptor* kind) {
  unsigned depth = 0;
  for (; kind != nullptr; kind = kind->GetParent()) ++depth;
  return depth;
}

}  // namespace

void KivOmbiOperatorTable::Add(const KivOmbiModule& module) {
  for (const KivOmbiObjectDescriptor* descriptor : module.GetObjectDescriptors()) {
    if (const auto* row = KivCast<KivOmbiCompoundObjectDescriptor>(descriptor))
      rows_.push_back(row);
  }
}

const KivOmbiCompoundObjectDescriptor* KivOmbiOperatorTable::Resolve(
    std::string_view symbol, const std::vector<const KivOmbiObjectDescriptor*>& operands) const {
  using Rank = std::pair<unsigned, unsigned>;  // operands of exact kind, depth of the kinds
  const KivOmbiCompoundObjectDescriptor* best = nullptr;
  Rank best_rank;
  for (const auto* row : rows_) {
    if (row->GetSymbol() != symbol || row->GetOperandCount() != operands.size()) continue;
    Rank rank{0, 0};
    bool matches = true;
    for (unsigned i = 0; i < operands.size() && matches; ++i) {
      const KivOmbiObjectDescriptor* wanted = row->GetOperand(i);
      matches = wanted->IsMatched(operands[i]) != 0;
      rank.first += wanted == operands[i];
      rank.second += Depth(wanted);
    }
    if (matches && (best == nullptr || rank > best_rank)) {
      best = row;
      best_rank = rank;
    }
  }
  return best;
}

std::vector<const KivOmbiCompoundObjectDescriptor*> KivOmbiOperatorTable::FindRows(
    std::string_view symbol, unsigned operands) const {
  std::vector<const KivOmbiCompoundObjectDescriptor*> found;
  for (const auto* row : rows_) {
    if (row->GetSymbol() == symbol && row->GetOperandCount() == operands) found.push_back(row);
  }
  return found;
}
