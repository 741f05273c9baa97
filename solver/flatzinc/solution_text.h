#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "framework/base/export.h"
#include "solver/flatzinc/builder.h"

namespace kiv::flatzinc {

// How the solutions of a model are written: a line `name = value;` for each variable annotated
// output_var, and `name = arrayNd(index sets, [values]);` for each array annotated output_array, in
// the order of the text.
class KIV_EXPORT SolutionText {
 public:
  // Throws Error for an annotation that cannot be followed.
  explicit SolutionText(const Builder& builder);

  // Writes behind `text` the solution that the network holds: every variable is fixed.
  void AppendTo(std::string& text, const KivOmbNetwork& network) const;

 private:
  class Composer;
  // The place of a value.
  struct Slot {
    std::size_t place;  // in literals_
    KivOmbNetwork::VariableId variable;
    bool is_boolean;
  };

  std::string literals_;  // what all solutions have in common, one line after the other
  std::vector<Slot> slots_;
};

}  // namespace kiv::flatzinc
