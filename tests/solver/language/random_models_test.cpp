#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "tests/solver/language/read_model.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

// Values of the variables of a model.
using Values = std::vector<std::int64_t>;

// A part of a model with what it means, both made from the same dice.
struct Term {
  std::string text;
  int level;  // of its outermost operator: 0 for sums, 1 for products, 2 for what needs no
              // parentheses
  std::function<std::int64_t(const Values&)> value;
};
struct Assertion {
  std::string text;
  std::function<bool(const Values&)> holds;
};
// A part with a truth value; its level is that of its outermost operator.
struct Formula {
  enum Level {
    kImplication,
    kDisjunction,
    kExclusiveOr,
    kConjunction,
    kNegation,
    kQuestion,
    kAtom
  };
  std::string text;
  int level;
  std::function<bool(const Values&)> holds;
};

// An index is no index of an array: no values make that right.
struct OutsideOfArray {};

constexpr std::int64_t kFirstIndex = -2;
constexpr std::int64_t kElements[] = {3, 0, -2, 1, 3, 5};

// A random model over a few variables, small enough to try all their values.
class RandomModel {
 public:
  explicit RandomModel(std::uint64_t seed) : random_(seed) {
    text_ = "param p[-2..3] : int = [3, 0, -2, 1, 3, 5];\n";
    for (const char* name : {"a", "b", "c"}) AddInteger(name);
    text_ += "t : bool;\n";
    names_.push_back("t");
    domains_.push_back({0, 1});
    const int constraints = Roll(1, 3);
    for (int i = 0; i < constraints; ++i) Add(MakeAssertion());
    Add(MakeEquivalence());
    if (Roll(0, 1) == 0) Add(MakeTruth());
    text_ += "solve;\n";
  }

  const std::string& GetText() const { return text_; }

  // By trying all values.
  std::set<std::string> Enumerate() const {
    std::set<std::string> solutions;
    Values values(domains_.size());
    Try(0, values, solutions);
    return solutions;
  }

 private:
  int Roll(int least, int greatest) {
    return std::uniform_int_distribution<int>(least, greatest)(random_);
  }

  // Of a variable of a loop.
  std::string NewName() { return "i" + std::to_string(++loops_); }

  void AddInteger(const std::string& name) {
    std::set<std::int64_t> values;
    const int count = Roll(1, 5);
    while (static_cast<int>(values.size()) < count) values.insert(Roll(-4, 6));
    const int kind = Roll(0, 5);
    if (kind == 0) values = {*values.begin()};
    std::string list;
    for (const std::int64_t value : values)
      list += (list.empty() ? "" : ", ") + std::to_string(value);
    const char* kinds[] = {"int",      "interval int", "interval int",
                           "enum int", "enum int",     "enum int"};
    text_ += name + " : " + kinds[kind] + " = { " + list + " };\n";
    names_.push_back(name);
    domains_.emplace_back(values.begin(), values.end());
  }

  void Add(Assertion assertion) {
    text_ += assertion.text + ";\n";
    assertions_.push_back(std::move(assertion));
  }

  Term MakeVariable() {
    const auto index = static_cast<std::size_t>(Roll(0, 2));
    return {names_[index], 2, [index](const Values& values) { return values[index]; }};
  }

  template <class Part>
  static std::string Wrap(const Part& part, int level) {
    return part.level < level ? '(' + part.text + ')' : part.text;
  }

  Term MakeTerm(int depth) {
    switch (depth == 0 ? 0 : Roll(0, 9)) {
      case 0:
        return MakeVariable();
      case 1: {
        const std::int64_t constant = Roll(0, 9);
        return {std::to_string(constant), 2, [constant](const Values&) { return constant; }};
      }
      case 2: {
        const Term factor = MakeTerm(depth - 1);
        const std::int64_t constant = Roll(0, 3);
        const std::string number = std::to_string(constant);
        const auto value = [factor, constant](const Values& v) {
          return constant * factor.value(v);
        };
        if (Roll(0, 1) == 0) return {number + '*' + Wrap(factor, 2), 1, value};
        return {Wrap(factor, 1) + " * " + number, 1, value};
      }
      case 3: {
        const Term dividend = MakeTerm(depth - 1);
        const std::int64_t divisor = Roll(1, 3);
        return {Wrap(dividend, 1) + " div " + std::to_string(divisor), 1,
                [dividend, divisor](const Values& v) { return dividend.value(v) / divisor; }};
      }
      case 4: {
        const Term left = MakeTerm(depth - 1), right = MakeTerm(depth - 1);
        return {Wrap(left, 0) + " + " + Wrap(right, 1), 0,
                [left, right](const Values& v) { return left.value(v) + right.value(v); }};
      }
      case 6: {
        const Term x = MakeVariable(), y = MakeTerm(depth - 1);
        return {"p[" + x.text + " + " + Wrap(y, 1) + ']', 2, [x, y](const Values& v) {
                  const std::int64_t place = x.value(v) + y.value(v) - kFirstIndex;
                  if (place < 0 || place >= std::ssize(kElements)) throw OutsideOfArray();
                  return kElements[static_cast<std::size_t>(place)];
                }};
      }
      case 7: {
        const Term x = MakeTerm(depth - 1), y = MakeTerm(depth - 1), z = MakeTerm(depth - 1);
        const bool least = Roll(0, 1) == 0;
        return {(least ? "min(" : "max(") + x.text + ", " + y.text + ", " + z.text + ')', 2,
                [x, y, z, least](const Values& v) {
                  const auto values = {x.value(v), y.value(v), z.value(v)};
                  return least ? std::min(values) : std::max(values);
                }};
      }
      case 8: {
        const Formula truth = MakeFormula(depth - 1);
        const bool counts = Roll(0, 1) == 0;
        return {counts ? "count(" + NewName() + " in 1..2)(" + truth.text + ')'
                       : "int((" + truth.text + "))",
                2, [truth, counts](const Values& v) -> std::int64_t {
                  return truth.holds(v) ? (counts ? 2 : 1) : 0;
                }};
      }
      case 9: {
        const Term part = MakeTerm(depth - 1);
        const std::string i = NewName();
        return {"sum(" + i + " in 1..3)(" + Wrap(part, 1) + "*" + i + ")", 2,
                [part](const Values& v) { return 6 * part.value(v); }};
      }
      default: {
        const Term left = MakeTerm(depth - 1), right = MakeTerm(depth - 1);
        return {Wrap(left, 0) + " - " + Wrap(right, 1), 0,
                [left, right](const Values& v) { return left.value(v) - right.value(v); }};
      }
    }
  }

  struct Relation {
    const char* symbol;
    const char* question;  // with a truth value, where there is one
    bool (*holds)(std::int64_t, std::int64_t);
  };
  static constexpr Relation kRelations[] = {
      {"=", "==", [](std::int64_t l, std::int64_t r) { return l == r; }},
      {"<", "<<", [](std::int64_t l, std::int64_t r) { return l < r; }},
      {"<=", "<==", [](std::int64_t l, std::int64_t r) { return l <= r; }},
      {">", ">>", [](std::int64_t l, std::int64_t r) { return l > r; }},
      {">=", ">==", [](std::int64_t l, std::int64_t r) { return l >= r; }},
      {"<>", nullptr, [](std::int64_t l, std::int64_t r) { return l != r; }},
  };

  Assertion MakeAssertion() {
    if (Roll(0, 4) == 0) return MakeAllDifferent();
    const int length = Roll(2, 3);
    std::vector<Term> terms = {MakeTerm(2)};
    std::vector<const Relation*> relations;
    std::string text = terms[0].text;
    for (int i = 1; i < length; ++i) {
      relations.push_back(&kRelations[Roll(0, 5)]);
      terms.push_back(MakeTerm(2));
      text += ' ' + std::string(relations.back()->symbol) + ' ' + terms.back().text;
    }
    return {text, [terms, relations](const Values& values) {
              for (std::size_t i = 0; i < relations.size(); ++i) {
                if (!relations[i]->holds(terms[i].value(values), terms[i + 1].value(values))) {
                  return false;
                }
              }
              return true;
            }};
  }

  Assertion MakeAllDifferent() {
    const Term x = MakeTerm(1), y = MakeTerm(1), z = MakeTerm(1);
    return {"all_different(" + x.text + ", " + y.text + ", " + z.text + ')',
            [x, y, z](const Values& v) {
              return std::set<std::int64_t>{x.value(v), y.value(v), z.value(v)}.size() == 3;
            }};
  }

  Assertion MakeEquivalence() {
    const Formula formula = MakeFormula(2);
    return {"t = " + formula.text,
            [formula](const Values& v) { return (v[3] != 0) == formula.holds(v); }};
  }

  // A question asserts nothing when it stands alone, also as what a statement repeats.
  Assertion MakeTruth() {
    const Formula formula = MakeFormula(2);
    const bool asks = formula.level == Formula::kQuestion || formula.text.starts_with("forall");
    return {asks ? formula.text + " = true" : formula.text, formula.holds};
  }

  Formula MakeFormula(int depth) {
    switch (depth == 0 ? Roll(0, 2) : Roll(0, 10)) {
      case 0:
        return {"t", Formula::kAtom, [](const Values& v) { return v[3] != 0; }};
      case 1: {
        const bool value = Roll(0, 3) != 0;
        return {value ? "true" : "false", Formula::kAtom, [value](const Values&) { return value; }};
      }
      case 2:
        return MakeQuestion();
      case 3: {
        const Formula operand = MakeFormula(depth - 1);
        return {"not " + Wrap(operand, Formula::kNegation), Formula::kNegation,
                [operand](const Values& v) { return !operand.holds(v); }};
      }
      case 4:
        return MakeMembership();
      case 5:
        return MakeLongConnection(depth);
      default:
        return MakeConnection(depth);
    }
  }

  Formula MakeQuestion() {
    const Relation& relation = kRelations[Roll(0, 4)];
    const Term left = MakeTerm(1), right = MakeTerm(1);
    return {left.text + ' ' + relation.question + ' ' + right.text, Formula::kQuestion,
            [&relation, left, right](const Values& v) {
              return relation.holds(left.value(v), right.value(v));
            }};
  }

  Formula MakeMembership() {
    const Term term = MakeTerm(1);
    const std::int64_t first = Roll(-3, 3);
    if (Roll(0, 1) == 0) {
      const std::int64_t last = first + Roll(-1, 3);
      return {term.text + " in " + std::to_string(first) + ".." + std::to_string(last),
              Formula::kQuestion, [term, first, last](const Values& v) {
                return first <= term.value(v) && term.value(v) <= last;
              }};
    }
    return {
        term.text + " in { 4, " + std::to_string(first) + " }", Formula::kQuestion,
        [term, first](const Values& v) { return term.value(v) == 4 || term.value(v) == first; }};
  }

  // Three operands of one connective, or what a loop makes of one.
  Formula MakeLongConnection(int depth) {
    const Formula x = MakeFormula(depth - 1), y = MakeFormula(depth - 1), z = MakeFormula(0);
    const bool all = Roll(0, 1) == 0;
    const auto holds = [x, y, z, all](const Values& v) {
      const bool truths[] = {x.holds(v), y.holds(v), z.holds(v)};
      return std::ranges::count(truths, true) >= (all ? 3 : 1);
    };
    if (Roll(0, 1) == 0) {
      const int level = all ? Formula::kConjunction : Formula::kDisjunction;
      const std::string symbol = all ? " and " : " or ";
      return {Wrap(x, level + 1) + symbol + Wrap(y, level + 1) + symbol + Wrap(z, level + 1), level,
              holds};
    }
    const std::string i = NewName();
    const std::string open = (all ? "forall(" : "exists(") + i + " in 1..3)(";
    return {open + "if " + i + " = 1 then " + x.text + " else if " + i + " = 2 then " + y.text +
                " else " + z.text + ")",
            Formula::kAtom, holds};
  }

  struct Connective {
    const char* symbol;
    Formula::Level level;
    bool (*holds)(bool, bool);
  };
  static constexpr Connective kConnectives[] = {
      {"=>", Formula::kImplication, [](bool l, bool r) { return !l || r; }},
      {"or", Formula::kDisjunction, [](bool l, bool r) { return l || r; }},
      {"xor", Formula::kExclusiveOr, [](bool l, bool r) { return l != r; }},
      {"and", Formula::kConjunction, [](bool l, bool r) { return l && r; }},
      {"==", Formula::kQuestion, [](bool l, bool r) { return l == r; }},
  };

  // With no more parentheses than precedence asks for.
  Formula MakeConnection(int depth) {
    const Connective& connective = kConnectives[Roll(0, 4)];
    const Formula left = MakeFormula(depth - 1), right = MakeFormula(depth - 1);
    const int level = connective.level;
    const bool left_binds = level != Formula::kImplication && level != Formula::kQuestion;
    const bool right_binds = level == Formula::kImplication;
    return {Wrap(left, left_binds ? level : level + 1) + ' ' + connective.symbol + ' ' +
                Wrap(right, right_binds ? level : level + 1),
            level, [&connective, left, right](const Values& v) {
              return connective.holds(left.holds(v), right.holds(v));
            }};
  }

  bool Holds(const Values& values) const {
    try {
      return std::ranges::all_of(
          assertions_, [&](const Assertion& assertion) { return assertion.holds(values); });
    } catch (const OutsideOfArray&) {
      return false;
    }
  }

  void Try(std::size_t variable, Values& values, std::set<std::string>& solutions) const {
    if (variable == domains_.size()) {
      if (!Holds(values)) return;
      std::string text;
      for (std::size_t i = 0; i + 1 < names_.size(); ++i) {
        text += names_[i] + " = " + std::to_string(values[i]) + '\n';
      }
      solutions.insert(text + "t = " + (values.back() != 0 ? "true" : "false") + '\n');
      return;
    }
    for (const std::int64_t value : domains_[variable]) {
      values[variable] = value;
      Try(variable + 1, values, solutions);
    }
  }

  std::mt19937_64 random_;
  int loops_ = 0;
  std::string text_;
  std::vector<std::string> names_;
  std::vector<Values> domains_;
  std::vector<Assertion> assertions_;
};

TEST(RandomModels, HaveTheSolutionsThatEnumerationFinds) {
  const std::uint64_t first = Seed(1);
  std::size_t solutions = 0;
  for (std::uint64_t seed = first; seed < first + 1000; ++seed) {
    const RandomModel model(seed);
    SCOPED_TRACE(Replay(seed) + '\n' + model.GetText());
    const std::set<std::string> expected = model.Enumerate();
    const std::vector<std::string> found = SolutionsOf(model.GetText());
    EXPECT_EQ(std::set<std::string>(found.begin(), found.end()), expected);
    EXPECT_EQ(found.size(), expected.size()) << "a solution was found twice";
    if (HasFailure()) return;
    solutions += expected.size();
  }
  EXPECT_GT(solutions, 1000u) << "the models are too hard to tell anything";
}

}  // namespace
}  // namespace kiv::test
