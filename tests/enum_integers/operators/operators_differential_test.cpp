// Every operator, in every direction, against its literal version: the cores on domains as they
// are, the virtual entries on operands of every kind.

#include <gtest/gtest.h>

#include <type_traits>

#include "tests/enum_integers/support/operation.h"

namespace {

using namespace kiv::test;
namespace reference = kiv::reference;
using reference::EnumSet;
using reference::kMax;
using reference::kMin;
using reference::Single;

using SetGenerator = EnumSet (*)(Random&);

// What the cores ask of their arguments.
enum class Domain { kAll, kNotNil };

bool IsAdmitted(Domain domain, const EnumSet& set) {
  return domain == Domain::kAll || !set.IsNil();
}

EnumSet RandomSetIn(Domain domain, SetGenerator generate, Random& random) {
  for (;;) {
    EnumSet set = generate(random);
    if (IsAdmitted(domain, set)) return set;
  }
}

EnumSet RandomValues(SetGenerator generate, Random& random) {
  for (;;) {
    EnumSet set = generate(random);
    if (!set.values.empty()) return set;
  }
}

Single RandomSingleNotNil(Random& random) {
  for (;;) {
    const Single single = RandomSingle(random);
    if (single.state != Single::kNil) return single;
  }
}

Operand RandomOperand(SetGenerator generate, bool with_booleans, Random& random) {
  switch (random.Between(0, with_booleans ? 9 : 8)) {
    case 0:
    case 1:
    case 2:
      return RandomSingle(random);
    case 3:
      return RandomInterval(random);
    case 9:
      return static_cast<reference::Boolean>(random.Between(0, 3));
    default:
      return generate(random);
  }
}

KivOmbEnumInteger& Set(KivOmbiAny* object) { return *KivOmbEnumInteger::DynamicCast(object); }
KivOmbSingleInteger& One(KivOmbiAny* object) { return *KivOmbSingleInteger::DynamicCast(object); }
EnumSet& Set(Operand& value) { return std::get<EnumSet>(value); }
Single& One(Operand& value) { return std::get<Single>(value); }

// The operators of two operands take the reference long, so most of their sets are small.
EnumSet RandomOperandSet(Random& random) {
  return random.OneIn(3) ? RandomSet(random) : RandomSmallSet(random);
}

// Integers that are each other's powers and roots, and what is near the ends of the range.
EnumSet RandomPowerSet(Random& random) {
  static constexpr std::int32_t kNotable[] = {
      kMin, kMin + 1, -1000000, -32768, -27,   -8,    -4,         -2,         -1,       0,   1,
      2,    3,        4,        8,      9,     16,    27,         30,         31,       32,  64,
      1024, 1290,     1291,     32768,  46340, 46341, 2147395600, 1073741824, kMax - 1, kMax};
  switch (random.Between(0, 9)) {
    case 0:
      return {{}, 1};
    case 1:
      return {{}, 0};
    case 2:
      return random.OneIn(4) ? RandomSet(random) : RandomSmallSet(random);
    case 3:
    case 4: {
      EnumSet set{{}, 0};
      for (std::int32_t n = random.Between(1, 6); n > 0; --n) {
        reference::Insert(set, kNotable[random.Between(0, std::ssize(kNotable) - 1)]);
      }
      set.flag = random.Between(0, 1);
      return set;
    }
    default: {
      EnumSet set{{}, 0};
      for (std::int32_t n = random.Between(1, 6); n > 0; --n) {
        reference::Insert(set, random.Between(-4, 9));
      }
      set.flag = random.Between(0, 1);
      return set;
    }
  }
}

// How the operations of one operator are tried: which sets are its arguments, and which of these
// its cores admit.
struct Trial {
  SetGenerator generate = RandomOperandSet;
  Domain cores = Domain::kAll;
};

// `call` calls an overload of one operation, whatever the types; Base is what the entry takes.
template <class Base>
class Operator {
 public:
  Operator(std::string name, Trial trial) : name_(std::move(name)), trial_(trial) {}

  template <class Call>
  Operator& Unary(Call call, int (*literal)(EnumSet&, const EnumSet&)) {
    Add(
        "", 0, Sets(2), [call](const Objects& o) { return call(Set(o[0]), Const(Set(o[1]))); },
        [literal](Operands& v) { return literal(Set(v[0]), Set(v[1])); });
    Add(
        " entry", 0, Any(2), [call](const Objects& o) { return call(Set(o[0]), Const(As(o[1]))); },
        [literal](Operands& v) { return reference::ForwardEntry(Set(v[0]), v[1], literal); });
    return *this;
  }

  template <class Call>
  Operator& UnaryInverse(Call call, int (*literal)(const EnumSet&, EnumSet&),
                         int (*literal_single)(const EnumSet&, Single&)) {
    Add(
        " inverse", 1, Sets(2),
        [call](const Objects& o) { return call(Const(Set(o[0])), Set(o[1])); },
        [literal](Operands& v) { return literal(Set(v[0]), Set(v[1])); });
    Add(
        " inverse of a single", 1,
        [trial = trial_](Random& random) {
          return Operands{RandomValues(trial.generate, random), RandomSingleNotNil(random)};
        },
        [call](const Objects& o) { return call(Const(Set(o[0])), One(o[1])); },
        [literal_single](Operands& v) { return literal_single(Set(v[0]), One(v[1])); });
    Add(
        " inverse entry", 1, Any(2),
        [call](const Objects& o) { return call(Const(Set(o[0])), As(o[1])); },
        [literal, literal_single](Operands& v) {
          return reference::InverseEntry(Set(v[0]), v[1], literal, literal_single);
        });
    return *this;
  }

  template <class Call>
  Operator& Binary(Call call, int (*literal)(EnumSet&, const EnumSet&, const EnumSet&)) {
    Add(
        "", 0, Sets(3),
        [call](const Objects& o) { return call(Set(o[0]), Const(Set(o[1])), Const(Set(o[2]))); },
        [literal](Operands& v) { return literal(Set(v[0]), Set(v[1]), Set(v[2])); });
    Add(
        " entry", 0, Any(3),
        [call](const Objects& o) { return call(Set(o[0]), Const(As(o[1])), Const(As(o[2]))); },
        [literal](Operands& v) { return reference::ForwardEntry(Set(v[0]), v[1], v[2], literal); });
    return *this;
  }

  template <class Call>
  Operator& FirstInverse(Call call, int (*literal)(const EnumSet&, EnumSet&, const EnumSet&),
                         int (*literal_single)(const EnumSet&, Single&, const EnumSet&)) {
    Add(
        " first inverse", 1, Sets(3),
        [call](const Objects& o) { return call(Const(Set(o[0])), Set(o[1]), Const(Set(o[2]))); },
        [literal](Operands& v) { return literal(Set(v[0]), Set(v[1]), Set(v[2])); });
    Add(
        " first inverse of a single", 1,
        [trial = trial_](Random& random) {
          return Operands{RandomValues(trial.generate, random), RandomSingleNotNil(random),
                          RandomSetIn(trial.cores, trial.generate, random)};
        },
        [call](const Objects& o) { return call(Const(Set(o[0])), One(o[1]), Const(Set(o[2]))); },
        [literal_single](Operands& v) { return literal_single(Set(v[0]), One(v[1]), Set(v[2])); });
    Add(
        " first inverse entry", 1, Any(3),
        [call](const Objects& o) { return call(Const(Set(o[0])), As(o[1]), Const(As(o[2]))); },
        [literal, literal_single](Operands& v) {
          return reference::FirstInverseEntry(Set(v[0]), v[1], v[2], literal, literal_single);
        });
    return *this;
  }

  template <class Call>
  Operator& SecondInverse(Call call, int (*literal)(const EnumSet&, const EnumSet&, EnumSet&)) {
    Add(
        " second inverse", 2, Sets(3),
        [call](const Objects& o) { return call(Const(Set(o[0])), Const(Set(o[1])), Set(o[2])); },
        [literal](Operands& v) { return literal(Set(v[0]), Set(v[1]), Set(v[2])); });
    Add(
        " second inverse entry", 2, Any(3),
        [call](const Objects& o) { return call(Const(Set(o[0])), Const(As(o[1])), As(o[2])); },
        [literal](Operands& v) {
          return reference::SecondInverseEntry(Set(v[0]), v[1], v[2], literal);
        });
    return *this;
  }

  // An operation without cores.
  template <class Module, class Literal>
  Operator& EntryOnly(const char* suffix, unsigned target, Module module, Literal literal) {
    Add(
        suffix, target, Any(2), [module](const Objects& o) { return module(Set(o[0]), As(o[1])); },
        [literal](Operands& v) { return literal(Set(v[0]), v[1]); });
    return *this;
  }

  const std::vector<Operation>& Operations() const { return operations_; }

 private:
  template <class T>
  static const T& Const(T& object) {
    return object;
  }
  static Base& As(KivOmbiAny* object) { return static_cast<Base&>(*object); }

  using Arguments = std::function<Operands(Random&)>;

  Arguments Sets(unsigned n) const {
    return [n, trial = trial_](Random& random) {
      Operands values;
      while (values.size() < n) {
        values.emplace_back(RandomSetIn(trial.cores, trial.generate, random));
      }
      return values;
    };
  }

  // The receiver is a set; the others are of any kind.
  Arguments Any(unsigned n) const {
    return [n, generate = trial_.generate](Random& random) {
      Operands values{generate(random)};
      while (values.size() < n) {
        values.push_back(RandomOperand(generate, std::is_same_v<Base, KivOmbiAny>, random));
      }
      return values;
    };
  }

  void Add(const char* suffix, unsigned target, Arguments arguments,
           std::function<int(const Objects&)> module, std::function<int(Operands&)> literal) {
    operations_.push_back(
        {name_ + suffix, target, std::move(arguments), std::move(module), std::move(literal)});
  }

  std::string name_;
  Trial trial_;
  std::vector<Operation> operations_;
};

// Random cases an operation; fewer where checks and sanitizers make each of them dear.
#ifdef NDEBUG
constexpr int kCases = 4000;
#else
constexpr int kCases = 1000;
#endif

template <class Base>
void CompareAll(const Operator<Base>& op) {
  Random random;
  for (const Operation& operation : op.Operations()) {
    Compare(operation, random, kCases);
    RunWithoutMemory(operation, random, kCases / 8);
    std::cout << operation.name << ": " << kCases << " cases\n";
    if (testing::Test::HasFatalFailure()) return;
  }
}

constexpr Trial kRelation{RandomSet, Domain::kNotNil};

TEST(OperatorsDifferential, Equal) {
  CompareAll(
      Operator<KivOmbiAny>("equal", {RandomSet})
          .EntryOnly(
              " entry", 0, [](auto& z, auto& x) { return z.CalcEqualValue(x); }, reference::Equal)
          .EntryOnly(
              " inverse entry", 1, [](auto& z, auto& x) { return z.CalcInverseEqualValue(x); },
              reference::InverseEqual));
}

TEST(OperatorsDifferential, LessOrEqual) {
  CompareAll(
      Operator<KivOmbiAny>("less or equal", kRelation)
          .Unary([](auto& z, auto& x) { return z.CalcLessOrEqualValue(x); }, reference::LessOrEqual)
          .UnaryInverse([](auto& z, auto& x) { return z.CalcInverseLessOrEqualValue(x); },
                        reference::InverseLessOrEqual, reference::InverseLessOrEqual));
}

TEST(OperatorsDifferential, Less) {
  CompareAll(Operator<KivOmbiScalar>("less", kRelation)
                 .Unary([](auto& z, auto& x) { return z.CalcLessValue(x); }, reference::Less)
                 .UnaryInverse([](auto& z, auto& x) { return z.CalcInverseLessValue(x); },
                               reference::InverseLess, reference::InverseLess));
}

TEST(OperatorsDifferential, NotLess) {
  CompareAll(Operator<KivOmbiScalar>("not less", kRelation)
                 .Unary([](auto& z, auto& x) { return z.CalcNotLessValue(x); }, reference::NotLess)
                 .UnaryInverse([](auto& z, auto& x) { return z.CalcInverseNotLessValue(x); },
                               reference::InverseNotLess, reference::InverseNotLess));
}

TEST(OperatorsDifferential, NotLessAndUnequal) {
  CompareAll(
      Operator<KivOmbiAny>("not less and unequal", kRelation)
          .Unary([](auto& z, auto& x) { return z.CalcNotLessAndUnequalValue(x); },
                 reference::NotLessAndUnequal)
          .UnaryInverse([](auto& z, auto& x) { return z.CalcInverseNotLessAndUnequalValue(x); },
                        reference::InverseNotLessAndUnequal, reference::InverseNotLessAndUnequal));
}

TEST(OperatorsDifferential, Sum) {
  CompareAll(
      Operator<KivOmbiNumber>("sum", {})
          .Binary([](auto& z, auto& x, auto& y) { return z.CalcSumValue(x, y); }, reference::Sum)
          .FirstInverse([](auto& z, auto& x, auto& y) { return z.CalcFirstInverseSumValue(x, y); },
                        reference::FirstInverseSum, reference::FirstInverseSum));
}

TEST(OperatorsDifferential, Product) {
  CompareAll(
      Operator<KivOmbiNumber>("product", {})
          .Binary([](auto& z, auto& x, auto& y) { return z.CalcProdValue(x, y); },
                  reference::Product)
          .FirstInverse([](auto& z, auto& x, auto& y) { return z.CalcFirstInverseProdValue(x, y); },
                        reference::FirstInverseProduct, reference::FirstInverseProduct));
}

TEST(OperatorsDifferential, Remainder) {
  CompareAll(
      Operator<KivOmbiNumber>("remainder", {})
          .Binary([](auto& z, auto& x, auto& y) { return z.CalcModValue(x, y); }, reference::Mod)
          .FirstInverse([](auto& z, auto& x, auto& y) { return z.CalcFirstInverseModValue(x, y); },
                        reference::FirstInverseMod, reference::FirstInverseMod)
          .SecondInverse(
              [](auto& z, auto& x, auto& y) { return z.CalcSecondInverseModValue(x, y); },
              reference::SecondInverseMod));
}

TEST(OperatorsDifferential, Power) {
  CompareAll(Operator<KivOmbiNumber>("power", {RandomPowerSet})
                 .Binary([](auto& z, auto& x, auto& y) { return z.CalcPowerValue(x, y); },
                         reference::PowerForward)
                 .FirstInverse(
                     [](auto& z, auto& x, auto& y) { return z.CalcFirstInversePowerValue(x, y); },
                     reference::FirstInversePower, reference::FirstInversePower)
                 .SecondInverse(
                     [](auto& z, auto& x, auto& y) { return z.CalcSecondInversePowerValue(x, y); },
                     reference::SecondInversePower));
}

TEST(OperatorsDifferential, Minimum) {
  CompareAll(
      Operator<KivOmbiAny>("minimum", kRelation)
          .Binary([](auto& z, auto& x, auto& y) { return z.CalcMinValue(x, y); }, reference::Min)
          .FirstInverse([](auto& z, auto& x, auto& y) { return z.CalcFirstInverseMinValue(x, y); },
                        reference::FirstInverseMin, reference::FirstInverseMin));
}

TEST(OperatorsDifferential, Maximum) {
  CompareAll(
      Operator<KivOmbiAny>("maximum", kRelation)
          .Binary([](auto& z, auto& x, auto& y) { return z.CalcMaxValue(x, y); }, reference::Max)
          .FirstInverse([](auto& z, auto& x, auto& y) { return z.CalcFirstInverseMaxValue(x, y); },
                        reference::FirstInverseMax, reference::FirstInverseMax));
}

TEST(OperatorsDifferential, AbsoluteValue) {
  CompareAll(
      Operator<KivOmbiNumber>("absolute value", {RandomSet})
          .Unary([](auto& z, auto& x) { return z.CalcAbsoluteValue(x); }, reference::Absolute)
          .UnaryInverse([](auto& z, auto& x) { return z.CalcInverseAbsoluteValue(x); },
                        reference::InverseAbsolute, reference::InverseAbsolute));
}

TEST(OperatorsDifferential, Negation) {
  CompareAll(
      Operator<KivOmbiNumber>("negation", {RandomSet})
          .Unary([](auto& z, auto& x) { return z.CalcNegativeValue(x); }, reference::Negative)
          .UnaryInverse([](auto& z, auto& x) { return z.CalcInverseNegativeValue(x); },
                        reference::InverseNegative, reference::InverseNegative));
}

TEST(OperatorsDifferential, Successor) {
  CompareAll(Operator<KivOmbiScalar>("successor", {RandomSet})
                 .Unary([](auto& z, auto& x) { return z.CalcNextValue(x); }, reference::Next)
                 .UnaryInverse([](auto& z, auto& x) { return z.CalcInverseNextValue(x); },
                               reference::InverseNext, reference::InverseNext));
}

TEST(OperatorsDifferential, Sign) {
  CompareAll(
      Operator<KivOmbiInteger>("sign", {RandomSet})
          .EntryOnly(
              " entry", 1, [](auto& x, auto& s) { return x.CalcSignumValue(s); }, reference::Signum)
          .EntryOnly(
              " inverse entry", 0, [](auto& x, auto& s) { return x.CalcInverseSignumValue(s); },
              reference::InverseSignum));
}

// `n` integers from 0 or 1 on.
EnumSet FirstIntegers(Random& random, std::int32_t n) {
  EnumSet set;
  const std::int32_t first = random.Between(0, 1);
  for (std::int32_t i = 0; i < n; ++i) set.values.push_back(first + i);
  return set;
}

// Two sets with about as many sums, differences, products or quotients as the cap, with repetitions
// as first, inner and last candidate. The wide one is the first or the second.
Operands SetsAboutTheCap(Random& random) {
  EnumSet wide = FirstIntegers(random, random.Between(1018, 1024));
  EnumSet narrow = FirstIntegers(random, random.Between(1, 4));
  if (random.OneIn(2)) wide.values.push_back(random.Between(1025, 1040));
  while (wide.values.size() > reference::kCap) wide.values.pop_back();
  if (random.OneIn(3)) narrow.values.front() = -1;
  if (random.OneIn(3)) std::swap(wide, narrow);
  return {EnumSet{{}, 1}, wide, narrow};
}

TEST(OperatorsDifferential, CollectionsAboutTheCap) {
  const Operation forward[] = {
      {"sum", 0, SetsAboutTheCap,
       [](const Objects& o) { return Set(o[0]).CalcSumValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::Sum(Set(v[0]), Set(v[1]), Set(v[2])); }},
      {"product", 0, SetsAboutTheCap,
       [](const Objects& o) { return Set(o[0]).CalcProdValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::Product(Set(v[0]), Set(v[1]), Set(v[2])); }},
      {"power", 0, SetsAboutTheCap,
       [](const Objects& o) { return Set(o[0]).CalcPowerValue(Set(o[1]), Set(o[2])); },
       [](Operands& v) { return reference::PowerForward(Set(v[0]), Set(v[1]), Set(v[2])); }},
      {"difference", 0, SetsAboutTheCap,
       [](const Objects& o) { return Set(o[1]).CalcFirstInverseSumValue(Set(o[0]), Set(o[2])); },
       [](Operands& v) { return reference::FirstInverseSum(Set(v[1]), Set(v[0]), Set(v[2])); }},
      {"quotient", 0, SetsAboutTheCap,
       [](const Objects& o) { return Set(o[1]).CalcFirstInverseProdValue(Set(o[0]), Set(o[2])); },
       [](Operands& v) { return reference::FirstInverseProduct(Set(v[1]), Set(v[0]), Set(v[2])); }},
      {"root", 0, SetsAboutTheCap,
       [](const Objects& o) { return Set(o[1]).CalcFirstInversePowerValue(Set(o[0]), Set(o[2])); },
       [](Operands& v) { return reference::FirstInversePower(Set(v[1]), Set(v[0]), Set(v[2])); }},
  };
  Random random;
  for (const Operation& operation : forward) {
    Compare(operation, random, 60);
    if (HasFatalFailure()) return;
  }
}

}  // namespace
