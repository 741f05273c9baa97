#pragma once

#include <optional>
#include <string>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/network_builder.h"
#include "solver/language/operand.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

// Applies operators to values. The kinds of the operands select a row of the vocabulary, which must
// exist even where its constraint is not what is posted: constants are computed at once, sums of
// integers collected until a relation or a variable takes them, and truth values kept as formulas.
// Any other application becomes the constraint of its row, with a new variable for its value.
//
// Every operation that returns nothing has reported why.
class KIV_EXPORT OperatorCompiler {
 public:
  // It must outlive this.
  explicit OperatorCompiler(NetworkBuilder& builder) : builder_(builder) {}

  std::optional<Operand> ApplyUnary(const Word& symbol, const Operand& operand, SourceRange range);
  // `left symbol right`. The value of a relation, which is posted, is its right operand.
  std::optional<Operand> ApplyBinary(const Word& symbol, Operand left, const Operand& right);
  // All operands connected by `symbol`, "and", "or" or "=>". Of none, "and" makes true and "or"
  // false.
  std::optional<Operand> ApplyConnective(const Word& symbol, std::vector<Operand> operands,
                                         SourceRange range);
  // The least ("/\") or greatest ("\/") of at least one operand.
  std::optional<Operand> ApplyExtremum(const Word& symbol, const std::vector<Operand>& operands,
                                       SourceRange range);

 private:
  using Row = KivOmbiCompoundObjectDescriptor;

  std::optional<Operand> ApplyRelation(const Word& symbol, const Operand& left,
                                       const Operand& right);
  std::optional<Operand> ApplyQuestion(const Row& row, const Word& symbol, const Operand& left,
                                       const Operand& right);
  // A sum, a difference, or a product one of whose factors is constant.
  std::optional<Operand> ApplyLinear(const Row& row, const Word& symbol, Operand left,
                                     const Operand& right);
  // `xor`, or `==`, over booleans, one of which at least is the constant true or false.
  std::optional<Operand> ApplyToConstantTruth(const Word& symbol, const Operand& left,
                                              const Operand& right);
  // The row for these operands; null, reported, when there is none or it does not propagate.
  const Row* FindRow(const Word& symbol, const std::vector<const Operand*>& operands);
  bool CheckPropagates(const Row& row, const Word& symbol,
                       const std::vector<const Operand*>& operands);
  // Posts the row between its operands and a new variable, which is the result. `right` is null for
  // a unary operator. What may have more values than the kind of the row's result holds is posted
  // by the row for all integers instead.
  std::optional<Operand> Post(const Row& row, const Word& symbol, const Operand& left,
                              const Operand* right, SourceRange range);
  const Row& ChooseRow(const Row& row, const KivOmbiObjectDescriptor& result) const;
  std::optional<Operand> ReportOverflow(SourceRange range);
  std::string DescribeKinds(const std::vector<const Operand*>& operands) const;

  NetworkBuilder& builder_;
};

}  // namespace kiv
