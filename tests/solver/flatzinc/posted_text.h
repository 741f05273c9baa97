#pragma once

#include <string>
#include <string_view>

#include "framework/networks/network.h"
#include "solver/flatzinc/builder.h"
#include "solver/flatzinc/model.h"

namespace kiv::test {

// A FlatZinc text that was read and posted.
struct PostedText {
  explicit PostedText(std::string_view text);

  // The variable of the network for the variable of this name.
  KivOmbNetwork::VariableId Find(std::string_view name) const;

  flatzinc::Model model;
  KivOmbNetwork network;
  flatzinc::Builder builder;
};

}  // namespace kiv::test
