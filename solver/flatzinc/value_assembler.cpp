#include "solver/flatzinc/value_assembler.h"

#include <algorithm>
#include <functional>
#include <string>
#include <variant>

#include "solver/flatzinc/error.h"
#include "solver/flatzinc/number_token.h"
#include "solver/flatzinc/value_type.h"
#include "solver/language/token_description.h"

namespace kiv::flatzinc {
namespace {

using Kind = Expression::Kind;

template <class Entries>
std::uint32_t SizeOf(const Entries& entries) {
  return static_cast<std::uint32_t>(entries.size());
}

std::string Unescape(std::string_view token) {
  std::string text;
  while (true) {
    const std::size_t escape = token.find('\\');
    text += token.substr(0, escape);
    if (escape == std::string_view::npos) return text;
    switch (const char escaped = token[escape + 1]) {
      case '"':
      case '\\':
        text += escaped;
        break;
      case 'n':
        text += '\n';
        break;
      case 't':
        text += '\t';
        break;
      default:
        text += token.substr(escape, 2);
    }
    token.remove_prefix(escape + 2);
  }
}

// Sorts the elements from `begin` on and removes repeated ones; quick if that is done.
template <class Element>
void MakeAscending(std::vector<Element>& elements, std::size_t begin) {
  const auto first = elements.begin() + static_cast<std::ptrdiff_t>(begin);
  if (std::is_sorted(first, elements.end(), std::less_equal<>())) return;
  std::sort(first, elements.end());
  elements.erase(std::unique(first, elements.end()), elements.end());
}

}  // namespace

void ValueAssembler::Set(Kind kind, std::int64_t value, std::uint32_t offset) noexcept {
  value_ = Expression(kind, value);
  offset_ = offset;
}

template <class Entries>
void ValueAssembler::SetLast(Kind kind, const Entries& entries, std::uint32_t offset) noexcept {
  Set(kind, SizeOf(entries) - 1, offset);
}

void ValueAssembler::ReadTrue(std::uint32_t offset) noexcept { Set(Kind::kBool, 1, offset); }

void ValueAssembler::ReadFalse(std::uint32_t offset) noexcept { Set(Kind::kBool, 0, offset); }

void ValueAssembler::ReadNumber(std::string_view token, std::uint32_t offset) {
  const auto number = ParseNumber(token, offset);
  if (const auto* const integer = std::get_if<std::int64_t>(&number)) {
    Set(Kind::kInt, *integer, offset);
  } else {
    model_.floats.push_back(std::get<double>(number));
    SetLast(Kind::kFloat, model_.floats, offset);
  }
}

void ValueAssembler::ReadName(std::string_view token, std::uint32_t offset) {
  Set(Kind::kName, names_.Find(token), offset);
}

void ValueAssembler::ReadText(std::string_view token, std::uint32_t offset) {
  model_.strings.push_back(Unescape(token));
  SetLast(Kind::kString, model_.strings, offset);
}

void ValueAssembler::BeginRange() noexcept {
  before_ = value_;
  before_offset_ = offset_;
}

void ValueAssembler::EndRange() {
  if (before_.GetKind() != value_.GetKind()) {
    throw Error(before_offset_, "the ends of a range are both integers or both floats");
  }
  if (value_.Is(Kind::kInt)) {
    model_.sets.push_back({before_.GetValue(), value_.GetValue(), {}});
    SetLast(Kind::kSet, model_.sets, before_offset_);
  } else {
    // The numbers were added one after the other.
    model_.float_sets.push_back({{before_.GetPlace(), 2}, true});
    SetLast(Kind::kFloatSet, model_.float_sets, before_offset_);
  }
}

void ValueAssembler::BeginSet(std::uint32_t offset) {
  set_offset_ = offset;
  integers_begin_ = model_.set_values.size();
  floats_begin_ = model_.floats.size();
}

void ValueAssembler::AddToSet() {
  const bool is_integer = value_.Is(Kind::kInt);
  if (is_integer) model_.set_values.push_back(value_.GetValue());
  if (is_integer ? model_.floats.size() > floats_begin_
                 : model_.set_values.size() > integers_begin_) {
    throw Error(offset_, "the elements of a set are all integers or all floats");
  }
}

void ValueAssembler::EndSet() {
  if (model_.floats.size() > floats_begin_) {
    EndFloatSet();
  } else {
    EndIntegerSet();
  }
}

void ValueAssembler::EndIntegerSet() {
  auto& values = model_.set_values;
  MakeAscending(values, integers_begin_);
  IntegerSet set;
  if (values.size() > integers_begin_) {
    set.lower = values[integers_begin_];
    set.upper = values.back();
    const auto count = static_cast<std::uint32_t>(values.size() - integers_begin_);
    if (set.upper - set.lower + 1 == count) {
      values.resize(integers_begin_);
    } else {
      set.values = {static_cast<std::uint32_t>(integers_begin_), count};
    }
  }
  model_.sets.push_back(set);
  SetLast(Kind::kSet, model_.sets, set_offset_);
}

void ValueAssembler::EndFloatSet() {
  MakeAscending(model_.floats, floats_begin_);
  const auto begin = static_cast<std::uint32_t>(floats_begin_);
  model_.float_sets.push_back({{begin, SizeOf(model_.floats) - begin}, false});
  SetLast(Kind::kFloatSet, model_.float_sets, set_offset_);
}

void ValueAssembler::BeginArray(std::uint32_t offset) {
  array_offset_ = offset;
  array_begin_ = model_.pool.size();
}

void ValueAssembler::AddToArray() {
  if (value_.Is(Kind::kArray)) throw Error(offset_, "an array cannot be an element of an array");
  model_.pool.push_back(value_);
}

void ValueAssembler::EndArray() {
  const auto begin = static_cast<std::uint32_t>(array_begin_);
  model_.arrays.push_back({begin, SizeOf(model_.pool) - begin});
  SetLast(Kind::kArray, model_.arrays, array_offset_);
}

void ValueAssembler::BeginSubscript() noexcept {
  before_ = value_;
  before_offset_ = offset_;
}

void ValueAssembler::EndSubscript() {
  const Expression index = value_;
  const std::uint32_t index_offset = offset_;
  const std::string& name = model_.names[before_.GetPlace()];
  value_ = before_;
  offset_ = before_offset_;
  Resolve();
  if (!value_.Is(Kind::kArray)) throw Error(offset_, QuoteWord(name) + " is not an array");
  if (!index.Is(Kind::kInt)) throw Error(index_offset, "an index is an integer, not a float");
  const List elements = model_.arrays[value_.GetPlace()];
  if (index.GetValue() < 1 || index.GetValue() > elements.size) {
    throw Error(index_offset, "the array " + QuoteWord(name) + " has " +
                                  CountElements(elements.size) + ": index " +
                                  std::to_string(index.GetValue()) + " is outside 1.." +
                                  std::to_string(elements.size));
  }
  value_ = model_.Get(elements)[static_cast<std::size_t>(index.GetValue() - 1)];
}

void ValueAssembler::Resolve() {
  ResolveInAnnotation();
  if (value_.Is(Kind::kName)) {
    throw Error(offset_,
                "the name " + QuoteWord(model_.names[value_.GetPlace()]) + " is not declared");
  }
}

void ValueAssembler::ResolveInAnnotation() {
  if (value_.Is(Kind::kName)) value_ = names_.GetMeaning(value_.GetPlace());
}

void ValueAssembler::OpenAnnotation(std::uint32_t offset) {
  if (open_.size() == kDeepestNesting) {
    throw Error(offset, "nested more than " + std::to_string(kDeepestNesting) + " levels deep");
  }
  open_.push_back({offset, stack_.size()});
}

List ValueAssembler::CloseAnnotation() {
  const auto first = stack_.begin() + static_cast<std::ptrdiff_t>(open_.back().begin);
  const List list{SizeOf(model_.pool), static_cast<std::uint32_t>(stack_.end() - first)};
  model_.pool.insert(model_.pool.end(), first, stack_.end());
  stack_.erase(first, stack_.end());
  offset_ = open_.back().offset;
  open_.pop_back();
  return list;
}

void ValueAssembler::BeginCall() {
  stack_.push_back(value_);
  OpenAnnotation(offset_);
}

void ValueAssembler::EndCall() {
  const List arguments = CloseAnnotation();
  const std::uint32_t name = stack_.back().GetPlace();
  stack_.pop_back();
  model_.calls.push_back({name, arguments});
  SetLast(Kind::kCall, model_.calls, offset_);
}

void ValueAssembler::BeginAnnotationArray(std::uint32_t offset) { OpenAnnotation(offset); }

void ValueAssembler::EndAnnotationArray() {
  model_.arrays.push_back(CloseAnnotation());
  SetLast(Kind::kArray, model_.arrays, offset_);
}

}  // namespace kiv::flatzinc
