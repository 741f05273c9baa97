#include "tools/kiv/domain_statement.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "solver/language/near_name.h"
#include "tools/kiv/statement_cursor.h"

namespace kiv {
namespace {

constexpr const char* kDefaultKind = "enum int";
constexpr const char* kBooleanKind = "bool";
constexpr const char* kResultName = "result";

bool IsOperatorWord(std::string_view word) {
  return std::ranges::find(GetDomainOperators(), word, &DomainOperator::symbol) !=
         GetDomainOperators().end();
}

bool IsReserved(std::string_view word) {
  return word == "in" || word == kResultName || IsValueWord(word) || IsOperatorWord(word);
}

// Whether the kind reads the whole of `literal`. A set beyond what a kind holds is read as Any, its
// rest unseen: that is a value, too.
bool ReadLiteral(const std::string& literal, KivOmbiAny& object) {
  Kivistrstream in(literal);
  object.InputValue(in);
  in >> ws;
  return in.State() == Kivpstream::kGood &&
         (in.Position() == literal.size() || (literal[0] == '{' && object.IsUndefined() != 0));
}

class Parser {
 public:
  Parser(const SourceText& source, const Vocabulary& vocabulary)
      : source_(source), vocabulary_(vocabulary), cursor_(source.GetText()) {}

  DomainStatement Parse() {
    ParseDeclarations();
    ParseStatement();
    if (!cursor_.AtEnd()) {
      throw StatementError{cursor_.RangeOfRest(), "expected the end: one operation at a time", {}};
    }
    return std::move(statement_);
  }

 private:
  // A use of a value.
  struct Operand {
    std::size_t value;
    SourceRange range;
  };

  // An operand alone, or an expression.
  struct Side {
    const DomainOperator* op;  // null for an operand alone
    std::vector<Operand> operands;
    SourceRange range;
  };

  // Kinds and values.
  const KivOmbiObjectDescriptor& FindKind(const std::string& name, SourceRange range) const {
    if (const auto* kind = vocabulary_.FindKind(name)) return *kind;
    const std::vector<std::string> names = vocabulary_.GetKindNames();
    throw StatementError{range,
                         "unknown kind '" + name + "'" + SuggestNearName(name, names),
                         {"kinds are " + ListNames(names)}};
  }

  // Words up to the word "in", or up to what is no word.
  const KivOmbiObjectDescriptor& ParseKind() {
    cursor_.SkipBlanks();
    const std::size_t begin = cursor_.Position();
    std::size_t end = begin;
    std::string name;
    while (!cursor_.PeekWord().empty() && cursor_.PeekWord() != "in") {
      name += (name.empty() ? "" : " ") + std::string(cursor_.TakeWord());
      end = cursor_.Position();
    }
    if (name.empty()) cursor_.Expect("a kind");
    return FindKind(name, {static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end)});
  }

  std::size_t AddLiteral(const KivOmbiObjectDescriptor& kind, std::string name) {
    const SourceRange range = cursor_.TakeValue();
    const bool is_named = !name.empty();
    DomainValue value{is_named ? std::move(name) : source_.Quote(range),
                      std::string(source_.GetText().substr(range.begin, range.end - range.begin)),
                      &kind, is_named};
    if (!ReadLiteral(value.literal, *DomainObject(kind))) {
      throw StatementError{
          range,
          "this is no value of " + kind.GetName(),
          {"a value is Any, Nil, a number, Min or Max; for kinds that hold several "
           "also [1, 9] or { 1, 2 }"}};
    }
    statement_.values.push_back(std::move(value));
    return statement_.values.size() - 1;
  }

  std::vector<std::string> GetVariableNames() const {
    std::vector<std::string> names;
    for (const DomainValue& value : statement_.values) {
      if (value.is_target) names.push_back(value.name);
    }
    return names;
  }

  std::optional<std::size_t> FindVariable(std::string_view name) const {
    for (std::size_t i = 0; i < statement_.values.size(); ++i) {
      if (statement_.values[i].is_target && statement_.values[i].name == name) return i;
    }
    return std::nullopt;
  }

  // Declarations.
  bool IsDeclarationAhead() {
    StatementCursor ahead = cursor_;
    if (!ahead.IsNameAhead()) return false;
    ahead.TakeWord();
    return ahead.PeekWord() == "in" || ahead.Take(':');
  }

  void ParseDeclaration() {
    if (!cursor_.IsNameAhead()) cursor_.Expect("a name");
    const std::string name(cursor_.TakeWord());
    const SourceRange range = cursor_.RangeFrom(cursor_.Position() - name.size());
    if (IsReserved(name)) throw StatementError{range, "'" + name + "' cannot be a name", {}};
    if (FindVariable(name)) {
      throw StatementError{range, "'" + name + "' is declared already", {}};
    }
    const KivOmbiObjectDescriptor& kind =
        cursor_.Take(':') ? ParseKind() : *vocabulary_.FindKind(kDefaultKind);
    if (cursor_.PeekWord() != "in") cursor_.Expect("'in' and a value");
    cursor_.TakeWord();
    AddLiteral(kind, name);
  }

  void ParseDeclarations() {
    if (!IsDeclarationAhead()) return;
    do {
      ParseDeclaration();
    } while (cursor_.Take(','));
    if (!cursor_.Take(':')) cursor_.Expect("',' and a declaration, or ':' and an operation");
  }

  // The statement.
  Operand ParseOperand() {
    cursor_.SkipBlanks();
    const std::size_t begin = cursor_.Position();
    if (cursor_.Take('(')) {
      const KivOmbiObjectDescriptor& kind = ParseKind();
      if (!cursor_.Take(')')) cursor_.Expect("')'");
      const std::size_t value = AddLiteral(kind, "");
      return {value, cursor_.RangeFrom(begin)};
    }
    if (cursor_.IsValueAhead()) {
      const std::size_t value = AddLiteral(*vocabulary_.FindKind(kDefaultKind), "");
      return {value, cursor_.RangeFrom(begin)};
    }
    if (!cursor_.IsNameAhead()) cursor_.Expect("a name or a value");
    const std::string name(cursor_.TakeWord());
    if (const auto value = FindVariable(name)) return {*value, cursor_.RangeFrom(begin)};
    throw StatementError{cursor_.RangeFrom(begin),
                         "unknown name '" + name + "'" + SuggestNearName(name, GetVariableNames()),
                         {"names are declared in front, as in 'x in { 1, 2 }: x < 2'"}};
  }

  Side ParseSide() {
    cursor_.SkipBlanks();
    const std::size_t begin = cursor_.Position();
    if (!cursor_.IsSignedNumberAhead()) {
      if (const auto* op =
              cursor_.TakeOperator([](const DomainOperator& o) { return o.IsPrefix(); })) {
        const Operand operand = ParseOperand();
        return {op, {operand}, cursor_.RangeFrom(begin)};
      }
    }
    const Operand left = ParseOperand();
    // The longest symbol of all decides: "<<" is not "<".
    StatementCursor ahead = cursor_;
    const auto* op = ahead.TakeOperator([](const DomainOperator& o) { return !o.IsPrefix(); });
    if (op == nullptr || !op->HasResult()) return {nullptr, {left}, left.range};
    cursor_ = ahead;
    const Operand right = ParseOperand();
    return {op, {left, right}, cursor_.RangeFrom(begin)};
  }

  void Apply(const DomainOperator& op, const std::vector<Operand>& operands) {
    for (std::size_t i = 0; i < operands.size(); ++i) {
      const bool is_truth = op.form == DomainOperator::kTruth && i == 0;
      const DomainValue& value = statement_.values[operands[i].value];
      const DomainObject object = value.Make();
      const bool fits = is_truth ? KivCast<KivOmbiBoolean>(&*object) != nullptr
                                 : KivCast<KivOmbiInteger>(&*object) != nullptr;
      if (!fits) {
        throw StatementError{operands[i].range,
                             "this is " + value.kind->GetName() + ", but '" + op.symbol + "' " +
                                 (is_truth ? "gives a truth" : "works on integers"),
                             {}};
      }
      statement_.operands.push_back(operands[i].value);
    }
    statement_.op = &op;
  }

  void ApplyExpression(const Side& side, Operand result) {
    std::vector<Operand> operands = {result};
    operands.insert(operands.end(), side.operands.begin(), side.operands.end());
    Apply(*side.op, operands);
  }

  void ParseStatement() {
    const Side left = ParseSide();
    if (left.op != nullptr && cursor_.AtEnd()) {
      const char* kind = left.op->form == DomainOperator::kTruth ? kBooleanKind : kDefaultKind;
      statement_.values.push_back({kResultName, "", vocabulary_.FindKind(kind), true});
      return ApplyExpression(left, {statement_.values.size() - 1, left.range});
    }
    cursor_.SkipBlanks();
    const std::size_t begin = cursor_.Position();
    const auto* relation =
        cursor_.TakeOperator([](const DomainOperator& o) { return !o.IsPrefix(); });
    if (relation == nullptr) {
      if (left.op == nullptr) cursor_.Expect("an operator");
      return;  // what follows is reported as one operation too many
    }
    const SourceRange symbol = cursor_.RangeFrom(begin);
    const Side right = ParseSide();
    if (left.op == nullptr && right.op == nullptr) {
      Apply(*relation, {left.operands[0], right.operands[0]});
    } else if (relation->symbol == "=" && left.op == nullptr) {
      ApplyExpression(right, left.operands[0]);
    } else if (relation->symbol == "=" && right.op == nullptr) {
      ApplyExpression(left, right.operands[0]);
    } else {
      throw StatementError{
          symbol, "one operation at a time", {"an expression may only be set equal to an operand"}};
    }
    const auto is_target = [this](std::size_t i) { return statement_.values[i].is_target; };
    if (std::ranges::none_of(statement_.operands, is_target)) {
      throw StatementError{Join(left.range, right.range),
                           "there is nothing to narrow",
                           {"declare what is asked for, as in 'x in { 1, 2 }: x < 2'"}};
    }
  }

  const SourceText& source_;
  const Vocabulary& vocabulary_;
  StatementCursor cursor_;
  DomainStatement statement_;
};

}  // namespace

DomainObject DomainValue::Make() const {
  DomainObject object(*kind);
  if (!literal.empty()) ReadLiteral(literal, *object);
  return object;
}

std::optional<DomainStatement> ParseDomainStatement(const SourceText& source,
                                                    const Vocabulary& vocabulary,
                                                    Diagnostics& diagnostics) {
  try {
    return Parser(source, vocabulary).Parse();
  } catch (StatementError& error) {
    diagnostics.Add(error.range, std::move(error.text), std::move(error.notes));
    return std::nullopt;
  }
}

}  // namespace kiv
