#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "framework/base/export.h"
#include "solver/flatzinc/expression.h"

namespace kiv::flatzinc {

// Some expressions one after the other in Model::pool.
struct List {
  std::uint32_t begin = 0;
  std::uint32_t size = 0;
};

enum class BaseType : std::uint8_t { kBool, kInt, kFloat, kSetOfInt, kSetOfFloat };

// A set of integers: all from `lower` to `upper`, none when lower > upper; or, where `values` has a
// size, those values, ascending, each once, in Model::set_values.
struct IntegerSet {
  std::int64_t lower = 0;
  std::int64_t upper = -1;
  List values;
};

// A set of floats: `values` in Model::floats, ascending, each once; or, of a range, all between its
// two values, which are in the order of the text.
struct FloatSet {
  List values;
  bool is_range = false;
};

// name(arguments), as an annotation.
struct Call {
  std::uint32_t name;  // in Model::names
  List arguments;
};

struct Variable {
  std::uint32_t name;    // in Model::names
  std::uint32_t offset;  // of the name in its declaration
  BaseType type;
  // In Model::sets, of a float in Model::float_sets; none for all values of the type.
  std::optional<std::uint32_t> domain;
  std::optional<Expression> initialiser;  // a constant or another variable
  List annotations;
};

// A declared array of variables, for the annotations that say how it is printed.
struct VariableArray {
  std::uint32_t name;
  std::uint32_t offset;
  BaseType type;
  List elements;
  List annotations;
};

struct Constraint {
  std::uint32_t name;    // in Model::names
  std::uint32_t offset;  // of the name
  std::uint32_t begin;   // of its arguments in Model::pool; its annotations follow them
  std::uint16_t arguments;
  std::uint16_t annotations;
};

struct Solve {
  enum class Goal : std::uint8_t { kSatisfy, kMinimize, kMaximize };
  Goal goal = Goal::kSatisfy;
  Expression objective;  // of an optimisation
  List annotations;
  std::uint32_t offset = 0;  // of the word `solve`
};

// What a FlatZinc text says. Parameters have no place of their own: where one was named stands its
// value.
struct Model {
  std::vector<Expression> pool;  // all elements of lists
  std::vector<List> arrays;
  std::vector<Call> calls;
  std::vector<IntegerSet> sets;
  std::vector<std::int64_t> set_values;
  std::vector<FloatSet> float_sets;
  std::vector<double> floats;
  std::vector<std::string> strings;
  std::vector<std::string> names;  // each once
  std::vector<Variable> variables;
  std::vector<VariableArray> variable_arrays;
  std::vector<Constraint> constraints;
  Solve solve;

  std::span<const Expression> Get(List list) const {
    return std::span(pool).subspan(list.begin, list.size);
  }
  std::span<const Expression> GetArguments(const Constraint& constraint) const {
    return std::span(pool).subspan(constraint.begin, constraint.arguments);
  }
  std::span<const Expression> GetAnnotations(const Constraint& constraint) const {
    return std::span(pool).subspan(std::size_t{constraint.begin} + constraint.arguments,
                                   constraint.annotations);
  }
  std::span<const std::int64_t> GetValues(const IntegerSet& set) const {
    return std::span(set_values).subspan(set.values.begin, set.values.size);
  }
};

}  // namespace kiv::flatzinc
