#include "tests/support/posted_row.h"

namespace kiv::test {

void PostedRow::Post(KivOmbNetwork& network,
                     std::span<const KivOmbNetwork::VariableId> arguments) const {
  const auto variable = [&](std::size_t position) {
    return position == kNone ? KivOmbNetwork::kNone : arguments[position];
  };
  network.Post(*row, variable(left), variable(right), variable(result));
}

// The value of a relation is that of its right operand.
bool PostedRow::Holds(const Assignment& argument_values) const {
  const OperatorMeaning* meaning = MeaningOf(*row);
  const std::int64_t right_value = right == kNone ? 0 : argument_values[right];
  const std::int64_t result_value = result == kNone ? right_value : argument_values[result];
  return meaning != nullptr && meaning->holds(argument_values[left], right_value, result_value);
}

const OperatorMeaning* MeaningOf(const KivOmbiCompoundObjectDescriptor& row) {
  return FindMeaning(row.GetSymbol(), row.GetOperandCount());
}

std::string Print(const PostedRow& posted) {
  const auto name = [](std::size_t position) { return "a" + std::to_string(position); };
  const std::string result = posted.result == PostedRow::kNone ? "" : name(posted.result) + " = ";
  const std::string right = posted.right == PostedRow::kNone ? "" : " " + name(posted.right);
  return result + name(posted.left) + " " + posted.row->GetSymbol() + right + " as " +
         Print(*posted.row);
}

std::string Print(const KivOmbiCompoundObjectDescriptor& row) {
  Kivostrstream out;
  row.PrintOn(out);
  return out.Str();
}

}  // namespace kiv::test
