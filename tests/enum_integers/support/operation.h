#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/enum_integers/support/random_domains.h"
#include "tests/reference/entry_frames.h"

// Operations of the enumerated domain beside their literal versions, in one form: functions of a
// few arguments, of which one is the target.
namespace kiv::test {

using reference::Operand;
using Objects = std::vector<KivOmbiAny*>;
using Operands = std::vector<Operand>;

struct Operation {
  std::string name;
  unsigned target = 0;  // the argument that is narrowed; argument 0 is the receiver
  // A random value for every argument; the operation is not defined for others.
  std::function<Operands(Random&)> arguments;
  // Both return the result code. The literal one gets values and narrows that of the target.
  std::function<int(const Objects&)> module;
  std::function<int(Operands&)> literal;
};

// Runs `operation` on `cases` random arguments, of which now and then several are the same object,
// and compares the result code, every argument and the error indicator of the arithmetic with those
// of the literal version.
void Compare(const Operation& operation, Random& random, int cases);

// Runs `operation` on `cases` random arguments with memory for a few arrays only: it still returns
// a result code, leaves the known arguments as they are and adds nothing to its target.
void RunWithoutMemory(const Operation& operation, Random& random, int cases);

// The domain of a value.
std::unique_ptr<KivOmbiAny> Made(const Operand& value);
Operand Read(const KivOmbiAny& domain);

}  // namespace kiv::test

namespace kiv::reference {

void PrintTo(const Operand& operand, std::ostream* out);

}  // namespace kiv::reference
