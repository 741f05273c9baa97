#pragma once

#include <random>
#include <span>
#include <vector>

#include "bench/kernel_goals.h"
#include "bench/literal_domain.h"
#include "bench/set_shapes.h"
#include "enum_integers/domain/enum_integer.h"
#include "tests/reference/enum_set.h"

// The kernels of the enumerated domain and who else computes the same.
namespace kiv::bench {

// A target that a kernel narrows by one or two known sets. Every contender narrows a copy of the
// target, whose room is there from the copy before.
template <class Set>
struct Operands {
  Set target, a, b;
  Set narrowed;
};

// The same operands for contenders of either kind.
struct Instance {
  Operands<LiteralDomain> literal;
  Operands<KivOmbEnumInteger> module;
};

struct Contender {
  const char* name;
  void (*copy)(Instance&);             // makes the copy of the target
  int (*narrow)(std::span<Instance>);  // narrows the copies; gives the sum of the result codes
  reference::EnumSet (*narrowed)(const Instance&);
};

struct Kernel {
  const char* name;
  void (*make)(const Shape&, std::mt19937&, Operands<reference::EnumSet>&);
  std::vector<Contender> contenders;  // the first tells what is right, the second is the module
  Goal (*goal)(const Shape&);
  // So many that no branch predictor learns them by heart.
  int instances = 64;
};

const std::vector<Kernel>& GetKernels();

// The domain of a set.
KivOmbEnumInteger ToDomain(const reference::EnumSet& set);

}  // namespace kiv::bench
