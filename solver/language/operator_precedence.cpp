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

// Walks the operators once and opens a chain for each level that is tighter than the one around it,
// so that it nests no deeper than there are levels.
class Grouping {
 public:
  Grouping(FlatExpression flat, Diagnostics& diagnostics)
      : flat_(std::move(flat)), diagnostics_(diagnostics) {}

  // The operands and operators from here on that bind at least as tightly as `level`.
  Expression Take(Precedence level) {
    Expression first = std::move(flat_.operands[next_]);
    while (next_ < flat_.operators.size()) {
      const Precedence precedence = GetPrecedence(flat_.operators[next_].text);
      if (precedence < level) break;
      first = TakeChain(std::move(first), precedence);
    }
    return first;
  }

 private:
  // The chain of `precedence` that begins with `first`, the operand just taken, which every
  // operator that binds tighter has taken already.
  Expression TakeChain(Expression first, Precedence precedence) {
    SourceRange range = first.range;
    Chain chain;
    chain.operands.push_back(std::move(first));
    while (next_ < flat_.operators.size() &&
           GetPrecedence(flat_.operators[next_].text) == precedence) {
      if (precedence == Precedence::kBooleanRelation && !chain.operators.empty()) {
        diagnostics_.Add(flat_.operators[next_].range,
                         "relations with a truth value do not chain; write parentheses");
      }
      chain.operators.push_back(std::move(flat_.operators[next_]));
      ++next_;
      chain.operands.push_back(Take(Tighter(precedence)));
      range = Join(range, chain.operands.back().range);
    }
    return {range, std::move(chain)};
  }

  static Precedence Tighter(Precedence level) {
    return static_cast<Precedence>(static_cast<int>(level) + 1);
  }

  FlatExpression flat_;
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

Expression GroupByPrecedence(FlatExpression flat, Diagnostics& diagnostics) {
  return Grouping(std::move(flat), diagnostics).Take(Precedence::kRelation);
}

}  // namespace kiv
