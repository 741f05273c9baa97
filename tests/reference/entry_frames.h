#pragma once

#include <functional>
#include <variant>

#include "tests/reference/enum_set.h"

// What the virtual entries of the operators do around the cores, case by case: by the kinds of the
// operands, and which of the domains are Nil or Any.
namespace kiv::reference {

// A truth value; here it matters only as an operand that is no integer.
enum class Boolean { kNil, kAny, kFalse, kTrue };

using Operand = std::variant<EnumSet, Single, Interval, Boolean>;

bool IsNil(const Operand& x);
bool IsAny(const Operand& x);
void SetNil(Operand& x);
// The enumerated domain of an operand; an interval and a boolean have none and become Nil.
EnumSet Converted(const Operand& x);

// z = x and its inverse.
int Equal(EnumSet& z, const Operand& x);
int InverseEqual(const EnumSet& z, Operand& x);

using ForwardCore = std::function<int(EnumSet& z, const EnumSet& x)>;
int ForwardEntry(EnumSet& z, const Operand& x, const ForwardCore& core);

using BinaryCore = std::function<int(EnumSet& z, const EnumSet& x, const EnumSet& y)>;
int ForwardEntry(EnumSet& z, const Operand& x, const Operand& y, const BinaryCore& core);

using InverseCore = std::function<int(const EnumSet& z, EnumSet& x)>;
using SingleInverseCore = std::function<int(const EnumSet& z, Single& x)>;
int InverseEntry(const EnumSet& z, Operand& x, const InverseCore& core,
                 const SingleInverseCore& single_core);

using FirstInverseCore = std::function<int(const EnumSet& z, EnumSet& x, const EnumSet& y)>;
using SingleFirstInverseCore = std::function<int(const EnumSet& z, Single& x, const EnumSet& y)>;
int FirstInverseEntry(const EnumSet& z, Operand& x, const Operand& y, const FirstInverseCore& core,
                      const SingleFirstInverseCore& single_core);

using SecondInverseCore = std::function<int(const EnumSet& z, const EnumSet& x, EnumSet& y)>;
int SecondInverseEntry(const EnumSet& z, const Operand& x, Operand& y,
                       const SecondInverseCore& core);

// s = sign(x): the first narrows s, the second x.
int Signum(const EnumSet& x, Operand& s);
int InverseSignum(EnumSet& x, const Operand& s);

}  // namespace kiv::reference
