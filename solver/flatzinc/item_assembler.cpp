#include "solver/flatzinc/item_assembler.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "solver/flatzinc/error.h"
#include "solver/flatzinc/value_type.h"
#include "solver/language/token_description.h"

namespace kiv::flatzinc {
namespace {

using Kind = Expression::Kind;

template <class Entries>
std::uint32_t SizeOf(const Entries& entries) {
  return static_cast<std::uint32_t>(entries.size());
}

// Both lists of a constraint have at most this size.
constexpr std::size_t kMostArguments = std::numeric_limits<std::uint16_t>::max();

// Whether all of `set` is in `domain`.
bool IsWithin(const IntegerSet& set, const IntegerSet& domain, const Model& model) {
  if (set.values.size == 0 && set.lower > set.upper) return true;
  if (domain.values.size == 0) return domain.lower <= set.lower && set.upper <= domain.upper;
  const auto allowed = model.GetValues(domain);
  if (set.values.size > 0) return std::ranges::includes(allowed, model.GetValues(set));
  // All of a range is allowed where as many values lie from its one end to the other.
  const auto first = std::ranges::lower_bound(allowed, set.lower);
  const auto last = std::ranges::upper_bound(allowed, set.upper);
  return last - first == set.upper - set.lower + 1;
}

}  // namespace

void ItemAssembler::SetType(BaseType type) noexcept {
  type_ = type;
  domain_.reset();
}

void ItemAssembler::SetTypeByDomain() {
  SetType(values_.GetValue().Is(Kind::kSet) ? BaseType::kInt : BaseType::kFloat);
  domain_ = values_.GetValue().GetPlace();
}

void ItemAssembler::SetTypeBySetDomain() {
  if (!values_.GetValue().Is(Kind::kSet)) {
    throw Error(values_.GetOffset(), "the elements of a set are bounded by integers only");
  }
  SetType(BaseType::kSetOfInt);
  domain_ = values_.GetValue().GetPlace();
}

void ItemAssembler::ReadFirstIndex() const {
  const Expression first = values_.GetValue();
  if (!first.Is(Kind::kInt) || first.GetValue() != 1) {
    throw Error(values_.GetOffset(), "the indices of an array begin with 1");
  }
}

void ItemAssembler::ReadLastIndex() {
  const Expression last = values_.GetValue();
  if (!last.Is(Kind::kInt) || last.GetValue() < 0) {
    throw Error(values_.GetOffset(), "the last index of an array is an integer from 0 on");
  }
  size_ = last.GetValue();
  elements_vary_ = false;
}

void ItemAssembler::ReadName() {
  name_ = values_.GetValue().GetPlace();
  name_offset_ = values_.GetOffset();
  if (values_.GetNames().IsDeclared(name_)) {
    throw Error(name_offset_, "the name " + QuoteWord(model_.names[name_]) + " is declared twice");
  }
}

void ItemAssembler::AddAnnotation() {
  if (row_.size() - arguments_ == kMostArguments) {
    throw Error(values_.GetOffset(),
                "an item has at most " + std::to_string(kMostArguments) + " annotations");
  }
  row_.push_back(values_.GetValue());
}

void ItemAssembler::EndAnnotations() {
  annotations_ = {SizeOf(model_.pool), SizeOf(row_)};
  model_.pool.insert(model_.pool.end(), row_.begin(), row_.end());
  row_.clear();
}

void ItemAssembler::BeginElements(std::uint32_t offset) {
  elements_offset_ = offset;
  elements_ = {SizeOf(model_.pool), 0};
}

void ItemAssembler::AddElement() {
  ++elements_.size;
  CheckValue(elements_vary_);
  model_.pool.push_back(values_.GetValue());
}

void ItemAssembler::ReadInitialiser() {
  CheckValue(true);
  initialiser_ = values_.GetValue();
}

void ItemAssembler::CheckValue(bool may_vary) const {
  const Expression value = values_.GetValue();
  if (!IsOfType(value, type_, model_)) {
    RefuseValue("is " + Describe(value, model_) + ", not " + Describe(type_));
  }
  if (value.Is(Kind::kVariable) && !may_vary) RefuseValue("is a variable, not a constant");
  // A variable that is none of its values makes the model unsatisfiable, not wrong.
  if (domain_ && !may_vary &&
      !IsWithin(model_.sets[value.GetPlace()], model_.sets[*domain_], model_)) {
    RefuseValue("has elements that its type excludes");
  }
}

void ItemAssembler::RefuseValue(const std::string& why) const {
  const std::string name = QuoteWord(model_.names[name_]);
  const std::string what =
      elements_.size == 0 ? "the value of " : "element " + std::to_string(elements_.size) + " of ";
  throw Error(values_.GetOffset(), what + name + ' ' + why);
}

void ItemAssembler::Declare(Expression meaning) { values_.GetNames().Declare(name_, meaning); }

void ItemAssembler::EndParameter() {
  CheckValue(false);
  Declare(values_.GetValue());
}

void ItemAssembler::EndVariable() {
  model_.variables.push_back(
      {name_, name_offset_, type_, domain_, std::exchange(initialiser_, {}), annotations_});
  Declare(Expression(Kind::kVariable, SizeOf(model_.variables) - 1));
}

void ItemAssembler::EndArray() {
  if (elements_.size != size_) {
    throw Error(elements_offset_, "the array " + QuoteWord(model_.names[name_]) + " has " +
                                      CountElements(elements_.size) + ", but 1.." +
                                      std::to_string(size_) + " is declared");
  }
  model_.arrays.push_back(elements_);
  Declare(Expression(Kind::kArray, SizeOf(model_.arrays) - 1));
  if (elements_vary_) {
    model_.variable_arrays.push_back({name_, name_offset_, type_, elements_, annotations_});
  }
  elements_ = {};
}

void ItemAssembler::BeginConstraint() {
  Constraint constraint{};
  constraint.name = values_.GetValue().GetPlace();
  constraint.offset = values_.GetOffset();
  model_.constraints.push_back(constraint);
}

void ItemAssembler::AddArgument() {
  if (arguments_ == kMostArguments) {
    throw Error(values_.GetOffset(),
                "a constraint has at most " + std::to_string(kMostArguments) + " arguments");
  }
  ++arguments_;
  row_.push_back(values_.GetValue());
}

void ItemAssembler::EndConstraint() {
  Constraint& constraint = model_.constraints.back();
  constraint.begin = SizeOf(model_.pool);
  constraint.arguments = static_cast<std::uint16_t>(arguments_);
  constraint.annotations = static_cast<std::uint16_t>(row_.size() - arguments_);
  model_.pool.insert(model_.pool.end(), row_.begin(), row_.end());
  row_.clear();
  arguments_ = 0;
}

void ItemAssembler::BeginSolve(std::uint32_t offset) noexcept { model_.solve.offset = offset; }

void ItemAssembler::SetGoal(Solve::Goal goal) noexcept {
  model_.solve.goal = goal;
  model_.solve.annotations = annotations_;
}

void ItemAssembler::ReadObjective() {
  const Expression value = values_.GetValue();
  if (!IsOfType(value, BaseType::kInt, model_) && !IsOfType(value, BaseType::kFloat, model_)) {
    throw Error(values_.GetOffset(),
                "the objective is " + Describe(value, model_) + ", not a number");
  }
  model_.solve.objective = value;
}

}  // namespace kiv::flatzinc
