#include "solver/language/parameter_fit.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "solver/language/declared_domain.h"

namespace kiv {
namespace {

using Kind = ParameterType::Kind;

// Walks a value dimension by dimension and collects its elements row by row.
class Fitting {
 public:
  Fitting(const ParameterType& type, const std::string& place)
      : type_(type), place_(place), shape_(type.shape), open_(type.open) {}

  // The part of the value at `path_`; false, with an error, when it does not fit.
  bool Take(const ParameterValue& value) {
    const std::size_t dimension = path_.size();
    if (dimension == shape_.size()) return TakeElement(value);
    const auto* list = std::get_if<ParameterList>(&value);
    if (list == nullptr) return Fail(value, "a list");
    if (open_[dimension]) {
      shape_[dimension] = {1, static_cast<std::int64_t>(list->size())};
      open_[dimension] = false;
    }
    const IndexRange& indices = shape_[dimension];
    if (list->size() != indices.Count()) {
      return Fail(value,
                  std::to_string(indices.Count()) + " elements with indices " + indices.Describe());
    }
    for (std::size_t i = 0; i < list->size(); ++i) {
      path_.push_back(i + 1);
      if (!Take((*list)[i])) return false;
      path_.pop_back();
    }
    return true;
  }

  // The elements of a set.
  bool TakeSet(const ParameterValue& value) {
    const auto* list = std::get_if<ParameterList>(&value);
    if (list == nullptr) return Fail(value, "a list of the elements of a set");
    for (std::size_t i = 0; i < list->size(); ++i) {
      path_.push_back(i + 1);
      if (!TakeElement((*list)[i])) return false;
      path_.pop_back();
    }
    return true;
  }

  const ArrayShape& GetShape() const noexcept { return shape_; }
  std::vector<std::int64_t> TakeValues() { return std::move(values_); }
  const std::string& GetError() const noexcept { return error_; }

 private:
  bool TakeElement(const ParameterValue& value) {
    if (type_.kind == Kind::kTruth) {
      const auto* truth = std::get_if<bool>(&value);
      if (truth == nullptr) return Fail(value, "true or false");
      values_.push_back(*truth ? 1 : 0);
      return true;
    }
    const auto* integer = std::get_if<std::int64_t>(&value);
    if (integer == nullptr) return Fail(value, "an integer");
    if (!IsModelInteger(*integer)) {
      return Fail(value, "an integer of " + DescribeModelIntegers());
    }
    values_.push_back(*integer);
    return true;
  }

  bool Fail(const ParameterValue& value, const std::string& expected) {
    std::string path;
    for (const std::size_t index : path_)
      path += (path.empty() ? "" : ", ") + std::to_string(index);
    error_ = (path.empty() ? "" : "element " + path + " of ") + place_ + " is " + Describe(value) +
             "; expected " + expected;
    return false;
  }

  const ParameterType& type_;
  const std::string& place_;
  ArrayShape shape_;
  std::vector<bool> open_;
  std::vector<std::size_t> path_;  // element numbers from 1, by dimension
  std::vector<std::int64_t> values_;
  std::string error_;
};

}  // namespace

ParameterFit FitParameter(const ParameterValue& value, const ParameterType& type,
                          const std::string& place) {
  Fitting fitting(type, place);
  if (type.kind == Kind::kSet) {
    if (!fitting.TakeSet(value)) return {std::nullopt, fitting.GetError()};
    return {Scope::Set{
                std::make_shared<const IntegerSet>(IntegerSet::FromValues(fitting.TakeValues()))},
            {}};
  }
  if (!fitting.Take(value)) return {std::nullopt, fitting.GetError()};
  const bool is_truth = type.kind == Kind::kTruth;
  std::vector<std::int64_t> values = fitting.TakeValues();
  if (!type.shape.empty()) {
    return {
        Scope::ConstantArray{fitting.GetShape(), is_truth,
                             std::make_shared<const std::vector<std::int64_t>>(std::move(values))},
        {}};
  }
  if (is_truth) return {Scope::Truth{values.front() != 0}, {}};
  return {Scope::Constant{values.front()}, {}};
}

}  // namespace kiv
