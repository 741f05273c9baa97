#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "solver/flatzinc/model.h"
#include "solver/flatzinc/name_table.h"

namespace kiv::flatzinc {

// Puts values together from the tokens of a text, in the order in which the grammar meets them.
// What does not fit an Expression goes into the tables of the model.
//
// There is one value at a time, the one that was read last, and where it began. Lists go into their
// tables element by element, but those of annotations, which nest, are kept on a stack until they
// end.
class ValueAssembler {
 public:
  // Lists of annotations within each other.
  static constexpr std::size_t kDeepestNesting = 200;

  // `model` must outlive this.
  explicit ValueAssembler(Model& model) : model_(model), names_(model.names) {}

  NameTable& GetNames() noexcept { return names_; }
  Expression GetValue() const noexcept { return value_; }
  std::uint32_t GetOffset() const noexcept { return offset_; }

  // Tokens. A name is a value by itself until it is resolved.
  void ReadTrue(std::uint32_t offset) noexcept;
  void ReadFalse(std::uint32_t offset) noexcept;
  void ReadNumber(std::string_view token, std::uint32_t offset);
  void ReadName(std::string_view token, std::uint32_t offset);
  // The text between the quotes; an escaped quote or backslash stands for itself, \n and \t for the
  // end of a line and a tab, and any other escape stays as it is.
  void ReadText(std::string_view token, std::uint32_t offset);

  // Two numbers with `..` between them.
  void BeginRange() noexcept;
  void EndRange();

  void BeginSet(std::uint32_t offset);
  void AddToSet();
  void EndSet();

  // An array of values outside annotations.
  void BeginArray(std::uint32_t offset);
  void AddToArray();
  void EndArray();

  // name[index]: the array is the value that was read before.
  void BeginSubscript() noexcept;
  void EndSubscript();
  // A name becomes what it stands for; an undeclared one is an error, or in an annotation stays.
  void Resolve();
  void ResolveInAnnotation();

  // The arguments of an annotation, whose name was read before, and the elements of an array in it.
  void BeginCall();
  void EndCall();
  void BeginAnnotationArray(std::uint32_t offset);
  void EndAnnotationArray();
  void AddToAnnotation() { stack_.push_back(value_); }

 private:
  // An unfinished list of annotations: where it began in the text and on the stack.
  struct OpenList {
    std::uint32_t offset;
    std::size_t begin;
  };

  void Set(Expression::Kind kind, std::int64_t value, std::uint32_t offset) noexcept;
  // The value is the last entry of a table.
  template <class Entries>
  void SetLast(Expression::Kind kind, const Entries& entries, std::uint32_t offset) noexcept;
  void EndIntegerSet();
  void EndFloatSet();
  void OpenAnnotation(std::uint32_t offset);
  List CloseAnnotation();

  Model& model_;
  NameTable names_;

  Expression value_;
  std::uint32_t offset_ = 0;
  Expression before_;  // the lower end of a range, the array of a subscript
  std::uint32_t before_offset_ = 0;

  // The array that is being read, outside annotations, and the set, which may be an element of it.
  std::uint32_t array_offset_ = 0;
  std::size_t array_begin_ = 0;
  std::uint32_t set_offset_ = 0;
  std::size_t integers_begin_ = 0;
  std::size_t floats_begin_ = 0;

  std::vector<Expression> stack_;
  std::vector<OpenList> open_;
};

}  // namespace kiv::flatzinc
