#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "framework/abstract_types/integer.h"
#include "framework/networks/network.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {

// A network to try the parts of a search on.
class SearchedNetwork : public testing::Test {
 protected:
  using VariableId = KivOmbNetwork::VariableId;

  VariableId Add(const char* kind, const Values& values) {
    return Declare(network_, {OpenModulesAndForeign().FindKind(kind), values});
  }
  VariableId Enum(const Values& values) { return Add("enum int", values); }
  VariableId Interval(std::int32_t lower, std::int32_t upper) {
    return Add("interval int", {lower, upper});
  }
  VariableId Bool() { return Add("bool", {0, 1}); }
  void PostLess(VariableId small, VariableId large) {
    const auto* row = OpenModulesAndForeign().operators.Resolve(
        "<", {&network_.GetKind(small), &network_.GetKind(large)});
    network_.Post(*row, small, large, KivOmbNetwork::kNone);
  }

  KivOmbNetwork network_;
};

}  // namespace kiv::test
