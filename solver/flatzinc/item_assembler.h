#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "solver/flatzinc/model.h"
#include "solver/flatzinc/value_assembler.h"

namespace kiv::flatzinc {

// Puts the items of a text together from their parts, in the order in which the grammar meets them,
// and adds them to the model. What an item says contrary to itself or to earlier ones is an Error
// where it stands.
class ItemAssembler {
 public:
  // `model` must outlive this.
  explicit ItemAssembler(Model& model) : model_(model), values_(model) {}

  ValueAssembler& GetValues() noexcept { return values_; }

  // The type of a declaration; a domain is the value that was read last.
  void SetType(BaseType type) noexcept;
  void SetTypeByDomain();
  void SetTypeBySetDomain();
  // The indices of an array, each the value that was read last; whether its elements may vary.
  void ReadFirstIndex() const;
  void ReadLastIndex();
  void LetElementsVary() noexcept { elements_vary_ = true; }

  // The value that was read last is the name that is being declared.
  void ReadName();
  // A value becomes one of the annotations of the item.
  void AddAnnotation();
  // The annotations of a declaration or of the solve item are complete.
  void EndAnnotations();

  void BeginElements(std::uint32_t offset);
  void AddElement();
  void ReadInitialiser();

  void EndParameter();
  void EndVariable();
  void EndArray();

  // The value that was read last is the name of a constraint.
  void BeginConstraint();
  void AddArgument();
  void EndConstraint();

  void BeginSolve(std::uint32_t offset) noexcept;
  void SetGoal(Solve::Goal goal) noexcept;
  void ReadObjective();

 private:
  // That the value that was read last suits the declaration.
  void CheckValue(bool may_vary) const;
  [[noreturn]] void RefuseValue(const std::string& why) const;
  void Declare(Expression meaning);

  Model& model_;
  ValueAssembler values_;

  // Of the declaration that is being read.
  BaseType type_ = BaseType::kBool;
  std::optional<std::uint32_t> domain_;
  std::uint32_t name_ = 0;
  std::uint32_t name_offset_ = 0;
  std::optional<Expression> initialiser_;
  List annotations_;
  // Of that of an array.
  std::int64_t size_ = 0;
  bool elements_vary_ = false;
  std::uint32_t elements_offset_ = 0;
  List elements_;  // none while no array is being read

  // The arguments of a constraint, and the annotations of any item.
  std::vector<Expression> row_;
  std::size_t arguments_ = 0;
};

}  // namespace kiv::flatzinc
