#include "tools/kiv/domain_operator.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>
#include <utility>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"

namespace kiv {
namespace {

// What can be told of an operation from its type. The target is the receiver, unless the operation
// is const: then it is the one argument that is not.
template <class Method>
struct Signature;

template <class Receiver, class... Arguments>
struct Signature<int (Receiver::*)(Arguments&...)> {
  static constexpr unsigned kTarget = 0;

  template <int (Receiver::*kMethod)(Arguments&...)>
  static int Call(const std::vector<KivOmbiAny*>& objects) {
    return [&]<std::size_t... kIndex>(std::index_sequence<kIndex...>) {
      return (static_cast<Receiver&>(*objects[0]).*
              kMethod)(static_cast<Arguments&>(*objects[kIndex + 1])...);
    }
    (std::index_sequence_for<Arguments...>());
  }
};

template <class Receiver, class... Arguments>
struct Signature<int (Receiver::*)(Arguments&...) const> {
  static constexpr unsigned kTarget = [] {
    const bool is_const[] = {std::is_const_v<Arguments>...};
    unsigned i = 0;
    while (is_const[i]) ++i;
    return i + 1;
  }();

  template <int (Receiver::*kMethod)(Arguments&...) const>
  static int Call(const std::vector<KivOmbiAny*>& objects) {
    return [&]<std::size_t... kIndex>(std::index_sequence<kIndex...>) {
      return (static_cast<const Receiver&>(*objects[0]).*
              kMethod)(static_cast<Arguments&>(*objects[kIndex + 1])...);
    }
    (std::index_sequence_for<Arguments...>());
  }
};

template <auto kMethod>
DomainOperation Operation(const char* name, std::vector<unsigned> roles) {
  using Type = Signature<decltype(kMethod)>;
  const unsigned target = roles[Type::kTarget];
  return {name, std::move(roles), target, &Type::template Call<kMethod>};
}

using Extremum = int (KivOmbiAny::*)(const KivOmbiAny&, const KivOmbiAny&);
constexpr Extremum kMinimum = &KivOmbiAny::CalcMinValue;
constexpr Extremum kMaximum = &KivOmbiAny::CalcMaxValue;

// The operations of z = x op y. Where it is commutative, exchanging x and y makes the first inverse
// the second.
std::vector<DomainOperation> Sum(unsigned z, unsigned x, unsigned y) {
  constexpr auto kInverse = &KivOmbiNumber::CalcFirstInverseSumValue;
  return {Operation<&KivOmbiNumber::CalcSumValue>("CalcSumValue", {z, x, y}),
          Operation<kInverse>("CalcFirstInverseSumValue", {z, x, y}),
          Operation<kInverse>("CalcFirstInverseSumValue", {z, y, x})};
}

std::vector<DomainOperation> Product(unsigned z, unsigned x, unsigned y) {
  constexpr auto kInverse = &KivOmbiNumber::CalcFirstInverseProdValue;
  return {Operation<&KivOmbiNumber::CalcProdValue>("CalcProdValue", {z, x, y}),
          Operation<kInverse>("CalcFirstInverseProdValue", {z, x, y}),
          Operation<kInverse>("CalcFirstInverseProdValue", {z, y, x})};
}

std::vector<DomainOperation> Minimum(unsigned z, unsigned x, unsigned y) {
  constexpr auto kInverse = &KivOmbiAny::CalcFirstInverseMinValue;
  return {Operation<kMinimum>("CalcMinValue", {z, x, y}),
          Operation<kInverse>("CalcFirstInverseMinValue", {z, x, y}),
          Operation<kInverse>("CalcFirstInverseMinValue", {z, y, x})};
}

std::vector<DomainOperation> Maximum(unsigned z, unsigned x, unsigned y) {
  constexpr auto kInverse = &KivOmbiAny::CalcFirstInverseMaxValue;
  return {Operation<kMaximum>("CalcMaxValue", {z, x, y}),
          Operation<kInverse>("CalcFirstInverseMaxValue", {z, x, y}),
          Operation<kInverse>("CalcFirstInverseMaxValue", {z, y, x})};
}

std::vector<DomainOperation> Remainder(unsigned z, unsigned x, unsigned y) {
  constexpr auto kFirst = &KivOmbiNumber::CalcFirstInverseModValue;
  constexpr auto kSecond = &KivOmbiNumber::CalcSecondInverseModValue;
  return {Operation<&KivOmbiNumber::CalcModValue>("CalcModValue", {z, x, y}),
          Operation<kFirst>("CalcFirstInverseModValue", {z, x, y}),
          Operation<kSecond>("CalcSecondInverseModValue", {z, x, y})};
}

std::vector<DomainOperation> Power(unsigned z, unsigned x, unsigned y) {
  constexpr auto kFirst = &KivOmbiNumber::CalcFirstInversePowerValue;
  constexpr auto kSecond = &KivOmbiNumber::CalcSecondInversePowerValue;
  return {Operation<&KivOmbiNumber::CalcPowerValue>("CalcPowerValue", {z, x, y}),
          Operation<kFirst>("CalcFirstInversePowerValue", {z, x, y}),
          Operation<kSecond>("CalcSecondInversePowerValue", {z, x, y})};
}

// z = next x.
std::vector<DomainOperation> Next(unsigned z, unsigned x) {
  return {Operation<&KivOmbiScalar::CalcNextValue>("CalcNextValue", {z, x}),
          Operation<&KivOmbiScalar::CalcInverseNextValue>("CalcInverseNextValue", {z, x})};
}

std::vector<DomainOperator> MakeOperators() {
  using enum DomainOperator::Form;
  using Any = KivOmbiAny;
  using Scalar = KivOmbiScalar;
  using Number = KivOmbiNumber;
  return {
      {"+", kBinary, Sum(0, 1, 2)},
      // z = x - y is x = z + y.
      {"-", kBinary, Sum(1, 0, 2)},
      {"*", kBinary, Product(0, 1, 2)},
      {"/", kBinary, Product(1, 0, 2)},
      {"mod", kBinary, Remainder(0, 1, 2)},
      {"^", kBinary, Power(0, 1, 2)},
      {"/\\", kBinary, Minimum(0, 1, 2)},
      {"\\/", kBinary, Maximum(0, 1, 2)},
      {"-",
       kUnary,
       {Operation<&Number::CalcNegativeValue>("CalcNegativeValue", {0, 1}),
        Operation<&Number::CalcInverseNegativeValue>("CalcInverseNegativeValue", {0, 1})}},
      {"abs",
       kUnary,
       {Operation<&Number::CalcAbsoluteValue>("CalcAbsoluteValue", {0, 1}),
        Operation<&Number::CalcInverseAbsoluteValue>("CalcInverseAbsoluteValue", {0, 1})}},
      {"next", kUnary, Next(0, 1)},
      {"prev", kUnary, Next(1, 0)},
      {"sign",
       kUnary,
       {Operation<&Number::CalcSignumValue>("CalcSignumValue", {1, 0}),
        Operation<&Number::CalcInverseSignumValue>("CalcInverseSignumValue", {1, 0})}},
      {"=",
       kRelation,
       {Operation<&Any::CalcEqualValue>("CalcEqualValue", {0, 1}),
        Operation<&Any::CalcInverseEqualValue>("CalcInverseEqualValue", {0, 1})}},
      {"<>",
       kRelation,
       {Operation<&Any::CalcUnequalValue>("CalcUnequalValue", {0, 1}),
        Operation<&Any::CalcInverseUnequalValue>("CalcInverseUnequalValue", {0, 1})}},
      {"<=",
       kRelation,
       {Operation<&Any::CalcLessOrEqualValue>("CalcLessOrEqualValue", {0, 1}),
        Operation<&Any::CalcInverseLessOrEqualValue>("CalcInverseLessOrEqualValue", {0, 1})}},
      {"<",
       kRelation,
       {Operation<&Scalar::CalcLessValue>("CalcLessValue", {0, 1}),
        Operation<&Scalar::CalcInverseLessValue>("CalcInverseLessValue", {0, 1})}},
      {">=",
       kRelation,
       {Operation<&Scalar::CalcNotLessValue>("CalcNotLessValue", {0, 1}),
        Operation<&Scalar::CalcInverseNotLessValue>("CalcInverseNotLessValue", {0, 1})}},
      {">",
       kRelation,
       {Operation<&Any::CalcNotLessAndUnequalValue>("CalcNotLessAndUnequalValue", {0, 1}),
        Operation<&Any::CalcInverseNotLessAndUnequalValue>("CalcInverseNotLessAndUnequalValue",
                                                           {0, 1})}},
      {"==", kTruth, {Operation<&Any::CalcIsEqual>("CalcIsEqual", {1, 2, 0})}},
      {"<==", kTruth, {Operation<&Any::CalcIsLessOrEqual>("CalcIsLessOrEqual", {1, 2, 0})}},
      {">==", kTruth, {Operation<&Any::CalcIsLessOrEqual>("CalcIsLessOrEqual", {2, 1, 0})}},
      {"<<", kTruth, {Operation<&Scalar::CalcIsLess>("CalcIsLess", {1, 2, 0})}},
      {">>", kTruth, {Operation<&Scalar::CalcIsLess>("CalcIsLess", {2, 1, 0})}},
  };
}

}  // namespace

const std::vector<DomainOperator>& GetDomainOperators() {
  static const std::vector<DomainOperator> operators = [] {
    std::vector<DomainOperator> made = MakeOperators();
    for (DomainOperator& op : made) {
      std::ranges::stable_sort(op.operations, {}, &DomainOperation::target);
    }
    return made;
  }();
  return operators;
}

}  // namespace kiv
