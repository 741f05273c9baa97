#include "solver/flatzinc/solution_text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>
#include <utility>

#include "solver/flatzinc/annotations.h"
#include "solver/flatzinc/error.h"

namespace kiv::flatzinc {
namespace {

using Kind = Expression::Kind;

void AppendInteger(std::string& text, std::int64_t value) {
  char digits[std::numeric_limits<std::int64_t>::digits10 + 2];
  text.append(digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr);
}

void AppendBoolean(std::string& text, bool value) { text += value ? "true" : "false"; }

}  // namespace

// Collects what is written, item by item.
class SolutionText::Composer {
 public:
  Composer(SolutionText& solution, const Builder& builder)
      : solution_(solution), builder_(builder), model_(builder.GetModel()) {}

  void Compose() {
    // Variables and arrays are declared among each other; each table has them in order.
    auto array = model_.variable_arrays.begin();
    const auto arrays_end = model_.variable_arrays.end();
    for (std::uint32_t i = 0; i < model_.variables.size(); ++i) {
      const Variable& variable = model_.variables[i];
      for (; array != arrays_end && array->offset < variable.offset; ++array) AddArray(*array);
      if (FindAnnotation(model_, variable.annotations, "output_var") != nullptr) AddVariable(i);
    }
    for (; array != arrays_end; ++array) AddArray(*array);
  }

 private:
  void AddVariable(std::uint32_t place) {
    const Variable& variable = model_.variables[place];
    Add(model_.names[variable.name] + " = ");
    AddValue(Expression(Kind::kVariable, place), variable.offset);
    Add(";\n");
  }

  void AddArray(const VariableArray& array) {
    const Expression* annotation = FindAnnotation(model_, array.annotations, "output_array");
    if (annotation == nullptr) return;
    const auto arguments = ArgumentsOfAnnotation(model_, *annotation);
    if (arguments.size() != 1 || !arguments[0].Is(Kind::kArray)) Refuse(array);
    const auto index_sets = model_.Get(model_.arrays[arguments[0].GetPlace()]);
    if (index_sets.empty()) Refuse(array);
    Add(model_.names[array.name] + " = array" + std::to_string(index_sets.size()) + "d(");
    for (const Expression set : index_sets) {
      if (!set.Is(Kind::kSet)) Refuse(array);
      AddIndexSet(model_.sets[set.GetPlace()]);
      Add(", ");
    }
    Add("[");
    const auto elements = model_.Get(array.elements);
    for (std::size_t i = 0; i < elements.size(); ++i) {
      if (i > 0) Add(", ");
      AddValue(elements[i], array.offset);
    }
    Add("]);\n");
  }

  [[noreturn]] void Refuse(const VariableArray& array) const {
    throw Error(array.offset, "the array '" + model_.names[array.name] +
                                  "' has an annotation output_array that names no index sets");
  }

  void AddIndexSet(const IntegerSet& set) {
    const auto values = model_.GetValues(set);
    Add(std::to_string(values.empty() ? set.lower : values.front()) + ".." +
        std::to_string(values.empty() ? set.upper : values.back()));
  }

  void AddValue(Expression value, std::uint32_t offset) {
    switch (value.GetKind()) {
      case Kind::kVariable: {
        const bool is_boolean = model_.variables[value.GetPlace()].type == BaseType::kBool;
        solution_.slots_.push_back(
            {solution_.literals_.size(), builder_.GetVariable(value.GetPlace()), is_boolean});
        break;
      }
      case Kind::kInt:
        AppendInteger(solution_.literals_, value.GetValue());
        break;
      case Kind::kBool:
        AppendBoolean(solution_.literals_, value.GetValue() != 0);
        break;
      default:
        throw Error(offset, "Kiv prints arrays of booleans and integers only");
    }
  }

  void Add(std::string_view text) { solution_.literals_ += text; }

  SolutionText& solution_;
  const Builder& builder_;
  const Model& model_;
};

SolutionText::SolutionText(const Builder& builder) { Composer(*this, builder).Compose(); }

void SolutionText::AppendTo(std::string& text, const KivOmbNetwork& network) const {
  const std::string_view literals = literals_;
  std::size_t begin = 0;
  for (const Slot& slot : slots_) {
    text += literals.substr(begin, slot.place - begin);
    begin = slot.place;
    const std::int32_t value = network.GetSummary(slot.variable).lower;
    slot.is_boolean ? AppendBoolean(text, value != 0) : AppendInteger(text, value);
  }
  text += literals.substr(begin);
}

}  // namespace kiv::flatzinc
