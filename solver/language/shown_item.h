#pragma once

#include <string>
#include <vector>

#include "framework/networks/network.h"
#include "solver/language/array_shape.h"

namespace kiv {

// A part of what a model shows of a solution: values, laid out as an array when they have a shape.
struct ShownItem {
  struct Value {
    KivOmbNetwork::VariableId variable;
    std::string text;  // what is shown when there is no variable
  };
  ArrayShape shape;
  std::vector<Value> values;
};

}  // namespace kiv
