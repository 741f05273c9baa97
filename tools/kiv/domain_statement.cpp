#include "tools/kiv/domain_statement.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "solver/language/near_name.h"

namespace kiv {
namespace {

constexpr const char* kDefaultKind = "enum int";
constexpr const char* kBooleanKind = "bool";
constexpr const char* kResultName = "result";

// Ends the parsing; the text is wrong at this place.
struct StatementError {
  SourceRange range;
  std::string text;
  std::vector<std::string> notes;
};

bool IsBlank(char c) { return c == ' ' || ('\t' <= c && c <= '\r'); }
bool IsDigit(char c) { return '0' <= c && c <= '9'; }
char ToLower(char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool IsWordCharacter(char c) {
  return IsDigit(c) || ('a' <= ToLower(c) && ToLower(c) <= 'z') || c == '_';
}

// The words that are values wherever an operand may stand.
bool IsValueWord(std::string_view word) {
  std::string lower(word);
  std::ranges::transform(lower, lower.begin(), ToLower);
  constexpr std::string_view kWords[] = {"any", "nil", "min", "max", "inf"};
  return std::ranges::find(kWords, lower) != std::end(kWords);
}

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
      : source_(source), text_(source.GetText()), vocabulary_(vocabulary) {}

  DomainStatement Parse() {
    ParseDeclarations();
    ParseStatement();
    if (!AtEnd()) {
      throw StatementError{RangeOfRest(), "expected the end: one operation at a time", {}};
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

  // Characters and words.
  char Peek(std::size_t ahead = 0) const {
    return position_ + ahead < text_.size() ? text_[position_ + ahead] : '\0';
  }
  void SkipBlanks() {
    while (position_ < text_.size() && IsBlank(text_[position_])) ++position_;
  }
  bool AtEnd() {
    SkipBlanks();
    return position_ == text_.size();
  }
  SourceRange RangeFrom(std::size_t begin) const {
    return {static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(position_)};
  }
  SourceRange RangeOfRest() const {
    return {static_cast<std::uint32_t>(position_), static_cast<std::uint32_t>(text_.size())};
  }
  std::string TextOf(SourceRange range) const {
    return std::string(text_.substr(range.begin, range.end - range.begin));
  }
  [[noreturn]] void Expect(const std::string& what) {
    SkipBlanks();
    throw StatementError{RangeFrom(position_), "expected " + what, {}};
  }
  bool Take(char c) {
    SkipBlanks();
    if (Peek() != c || AtEnd()) return false;
    ++position_;
    return true;
  }
  // The word ahead, which may be empty; nothing is consumed but blanks.
  std::string_view PeekWord() {
    SkipBlanks();
    std::size_t end = position_;
    while (end < text_.size() && IsWordCharacter(text_[end])) ++end;
    return text_.substr(position_, end - position_);
  }
  std::string_view TakeWord() {
    const std::string_view word = PeekWord();
    position_ += word.size();
    return word;
  }
  bool IsNameAhead() {
    const std::string_view word = PeekWord();
    return !word.empty() && !IsDigit(word[0]);
  }

  // The longest symbol ahead of an operator of which `is_meant` holds, or null; consumed if so.
  template <class Predicate>
  const DomainOperator* TakeOperator(Predicate is_meant) {
    SkipBlanks();
    const DomainOperator* longest = nullptr;
    for (const DomainOperator& op : GetDomainOperators()) {
      const bool is_ahead = IsWordCharacter(op.symbol[0])
                                ? PeekWord() == op.symbol
                                : text_.substr(position_).starts_with(op.symbol);
      if (is_ahead && is_meant(op) &&
          (longest == nullptr || op.symbol.size() > longest->symbol.size())) {
        longest = &op;
      }
    }
    if (longest != nullptr) position_ += longest->symbol.size();
    return longest;
  }

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
    SkipBlanks();
    const std::size_t begin = position_;
    std::size_t end = begin;
    std::string name;
    while (!PeekWord().empty() && PeekWord() != "in") {
      name += (name.empty() ? "" : " ") + std::string(TakeWord());
      end = position_;
    }
    if (name.empty()) Expect("a kind");
    return FindKind(name, {static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end)});
  }

  bool IsSignedNumberAhead() const {
    if (Peek() != '-' && Peek() != '+') return false;
    Parser after = *this;
    ++after.position_;
    if (IsBlank(after.Peek())) return false;
    const std::string_view word = after.PeekWord();
    return !word.empty() && (IsDigit(word[0]) || IsValueWord(word));
  }

  // The text of a value: up to the closing bracket, or a word with or without a sign.
  SourceRange TakeLiteral() {
    SkipBlanks();
    const std::size_t begin = position_;
    if (Peek() == '{' || Peek() == '[') {
      const std::size_t end = text_.find(Peek() == '{' ? '}' : ']', begin);
      if (end == std::string_view::npos) {
        ++position_;
        throw StatementError{RangeFrom(begin), "this bracket is never closed", {}};
      }
      position_ = end + 1;
      return RangeFrom(begin);
    }
    if (IsSignedNumberAhead()) ++position_;
    if (TakeWord().empty()) Expect("a value");
    return RangeFrom(begin);
  }

  std::size_t AddLiteral(const KivOmbiObjectDescriptor& kind, std::string name) {
    const SourceRange range = TakeLiteral();
    const bool is_named = !name.empty();
    DomainValue value{is_named ? std::move(name) : source_.Quote(range), TextOf(range), &kind,
                      is_named};
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
    Parser ahead = *this;
    if (!ahead.IsNameAhead()) return false;
    ahead.TakeWord();
    return ahead.PeekWord() == "in" || ahead.Take(':');
  }

  void ParseDeclaration() {
    if (!IsNameAhead()) Expect("a name");
    const std::string name(TakeWord());
    const SourceRange range = RangeFrom(position_ - name.size());
    if (IsReserved(name)) throw StatementError{range, "'" + name + "' cannot be a name", {}};
    if (FindVariable(name)) {
      throw StatementError{range, "'" + name + "' is declared already", {}};
    }
    const KivOmbiObjectDescriptor& kind =
        Take(':') ? ParseKind() : *vocabulary_.FindKind(kDefaultKind);
    if (PeekWord() != "in") Expect("'in' and a value");
    TakeWord();
    AddLiteral(kind, name);
  }

  void ParseDeclarations() {
    if (!IsDeclarationAhead()) return;
    do {
      ParseDeclaration();
    } while (Take(','));
    if (!Take(':')) Expect("',' and a declaration, or ':' and an operation");
  }

  // The statement.
  Operand ParseOperand() {
    SkipBlanks();
    const std::size_t begin = position_;
    if (Take('(')) {
      const KivOmbiObjectDescriptor& kind = ParseKind();
      if (!Take(')')) Expect("')'");
      const std::size_t value = AddLiteral(kind, "");
      return {value, RangeFrom(begin)};
    }
    if (!IsNameAhead() || IsValueWord(PeekWord())) {
      if (Peek() != '{' && Peek() != '[' && PeekWord().empty() && !IsSignedNumberAhead()) {
        Expect("a name or a value");
      }
      const std::size_t value = AddLiteral(*vocabulary_.FindKind(kDefaultKind), "");
      return {value, RangeFrom(begin)};
    }
    const std::string name(TakeWord());
    if (const auto value = FindVariable(name)) return {*value, RangeFrom(begin)};
    throw StatementError{RangeFrom(begin),
                         "unknown name '" + name + "'" + SuggestNearName(name, GetVariableNames()),
                         {"names are declared in front, as in 'x in { 1, 2 }: x < 2'"}};
  }

  Side ParseSide() {
    SkipBlanks();
    const std::size_t begin = position_;
    if (!IsSignedNumberAhead()) {
      if (const auto* op = TakeOperator([](const DomainOperator& o) { return o.IsPrefix(); })) {
        const Operand operand = ParseOperand();
        return {op, {operand}, RangeFrom(begin)};
      }
    }
    const Operand left = ParseOperand();
    // The longest symbol of all decides: "<<" is not "<".
    Parser ahead = *this;
    const auto* op = ahead.TakeOperator([](const DomainOperator& o) { return !o.IsPrefix(); });
    if (op == nullptr || !op->HasResult()) return {nullptr, {left}, left.range};
    position_ = ahead.position_;
    const Operand right = ParseOperand();
    return {op, {left, right}, RangeFrom(begin)};
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
    if (left.op != nullptr && AtEnd()) {
      const char* kind = left.op->form == DomainOperator::kTruth ? kBooleanKind : kDefaultKind;
      statement_.values.push_back({kResultName, "", vocabulary_.FindKind(kind), true});
      return ApplyExpression(left, {statement_.values.size() - 1, left.range});
    }
    SkipBlanks();
    const std::size_t begin = position_;
    const auto* relation = TakeOperator([](const DomainOperator& o) { return !o.IsPrefix(); });
    if (relation == nullptr) {
      if (left.op == nullptr) Expect("an operator");
      return;  // what follows is reported as one operation too many
    }
    const SourceRange symbol = RangeFrom(begin);
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
  std::string_view text_;
  const Vocabulary& vocabulary_;
  std::size_t position_ = 0;
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
