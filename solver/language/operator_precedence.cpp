#include "solver/language/operator_precedence.h"

#include <array>
#include <cstddef>
#include <utility>

namespace kiv {
namespace {

struct Entry {
  std::string_view symbol;
  Precedence precedence;
};

constexpr std::array kOperators = {
    Entry{"=", Precedence::kRelation},
    Entry{"<>", Precedence::kRelation},
    Entry{"<", Precedence::kRelation},
    Entry{"<=", Precedence::kRelation},
    Entry{">", Precedence::kRelation},
    Entry{">=", Precedence::kRelation},
    Entry{"=>", Precedence::kImplication},
    Entry{"or", Precedence::kDisjunction},
    Entry{"xor", Precedence::kExclusiveOr},
    Entry{"and", Precedence::kConjunction},
    Entry{"==", Precedence::kBooleanRelation},
    Entry{"<<", Precedence::kBooleanRelation},
    Entry{"<==", Precedence::kBooleanRelation},
    Entry{">>", Precedence::kBooleanRelation},
    Entry{">==", Precedence::kBooleanRelation},
    Entry{"in", Precedence::kBooleanRelation},
    Entry{"..", Precedence::kRange},
    Entry{"\\/", Precedence::kMaximum},
    Entry{"/\\", Precedence::kMinimum},
    Entry{"+", Precedence::kSum},
    Entry{"-", Precedence::kSum},
    Entry{"*", Precedence::kProduct},
    Entry{"/", Precedence::kProduct},
    Entry{"mod", Precedence::kProduct},
    Entry{"div", Precedence::kProduct},
    Entry{"^", Precedence::kPower},
};

struct Pair {
  std::string_view assertion;
  std::string_view question;
};

constexpr std::array kCounterparts = {Pair{"=", "=="}, Pair{"<", "<<"}, Pair{"<=", "<=="},
                                      Pair{">", ">>"}, Pair{">=", ">=="}};

ExpressionPointer Pointer(Expression expression) {
  return std::make_unique<Expression>(std::move(expression));
}

// Walks the operators once and opens a chain for each level that is tighter than the one around it,
// so that it nests no deeper than there are levels.
class Grouping {
 public:
  Grouping(FlatExpression flat, Reading reading, Diagnostics& diagnostics)
      : flat_(std::move(flat)), reading_(reading), diagnostics_(diagnostics) {}

  // The operands and operators from here on that bind at least as tightly as `level`.
  Expression Take(Precedence level) {
    Expression first = std::move(flat_.operands[next_]);
    while (next_ < flat_.operators.size()) {
      const Precedence precedence = NextPrecedence();
      if (precedence < level) break;
      first = TakeChain(std::move(first), precedence);
    }
    return first;
  }

 private:
  // Of the operator to take next. A relation that asks binds as those that always do.
  Precedence NextPrecedence() const {
    const Precedence precedence = GetPrecedence(flat_.operators[next_].text);
    const bool asks = reading_ == Reading::kAsking && precedence == Precedence::kRelation;
    return asks ? Precedence::kBooleanRelation : precedence;
  }

  // The chain of `precedence` that begins with `first`, the operand just taken, which every
  // operator that binds tighter has taken already.
  Expression TakeChain(Expression first, Precedence precedence) {
    SourceRange range = first.range;
    Chain chain;
    chain.operands.push_back(std::move(first));
    while (next_ < flat_.operators.size() && NextPrecedence() == precedence) {
      if (!chain.operators.empty()) CheckChains(precedence);
      chain.operators.push_back(std::move(flat_.operators[next_]));
      ++next_;
      chain.operands.push_back(Take(Tighter(precedence)));
      range = Join(range, chain.operands.back().range);
    }
    if (precedence == Precedence::kRange) return MakeRange(std::move(chain), range);
    if (precedence == Precedence::kBooleanRelation) return MakeQuestion(std::move(chain), range);
    return {range, std::move(chain)};
  }

  void CheckChains(Precedence precedence) {
    if (precedence == Precedence::kBooleanRelation) {
      diagnostics_.Add(flat_.operators[next_].range,
                       reading_ == Reading::kAsking
                           ? "relations that ask do not chain; write 'and' between two of them"
                           : "relations with a truth value do not chain; write parentheses");
    } else if (precedence == Precedence::kRange) {
      diagnostics_.Add(flat_.operators[next_].range, "a range has two ends");
    }
  }

  static Expression MakeRange(Chain chain, SourceRange range) {
    return {range, RangeLiteral{Pointer(std::move(chain.operands[0])),
                                Pointer(std::move(chain.operands[1]))}};
  }

  static Expression MakeQuestion(Chain chain, SourceRange range) {
    Word& symbol = chain.operators.front();
    if (symbol.text == "in") {
      return {range, MembershipTest{Pointer(std::move(chain.operands[0])), std::move(symbol),
                                    Pointer(std::move(chain.operands[1]))}};
    }
    if (GetPrecedence(symbol.text) != Precedence::kRelation) return {range, std::move(chain)};
    // "<>" is the one relation without a counterpart.
    const bool negated = symbol.text == "<>";
    symbol.text = negated ? "==" : GetCounterpart(symbol.text);
    const SourceRange place = symbol.range;
    Expression question{range, std::move(chain)};
    if (!negated) return question;
    return {range, UnaryApplication{{"not", place}, Pointer(std::move(question))}};
  }

  static Precedence Tighter(Precedence level) {
    return static_cast<Precedence>(static_cast<int>(level) + 1);
  }

  FlatExpression flat_;
  const Reading reading_;
  Diagnostics& diagnostics_;
  std::size_t next_ = 0;  // the operand to take next; the operator of this number follows it
};

}  // namespace

Precedence GetPrecedence(std::string_view symbol) {
  for (const Entry& entry : kOperators) {
    if (entry.symbol == symbol) return entry.precedence;
  }
  return Precedence::kPower;
}

std::string_view GetCounterpart(std::string_view relation) {
  for (const auto& [assertion, question] : kCounterparts) {
    if (relation == assertion) return question;
    if (relation == question) return assertion;
  }
  return {};
}

const Word* FindOutermost(Precedence precedence, const Expression& expression) {
  const auto* chain = std::get_if<Chain>(&expression.form);
  if (chain == nullptr || GetPrecedence(chain->operators.back().text) != precedence) return nullptr;
  return &chain->operators.back();
}

Expression GroupByPrecedence(FlatExpression flat, Reading reading, Diagnostics& diagnostics) {
  return Grouping(std::move(flat), reading, diagnostics).Take(Precedence::kRelation);
}

}  // namespace kiv
