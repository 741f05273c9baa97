#pragma once

#include <string>
#include <vector>

#include "framework/base/export.h"
#include "solver/flatzinc/builder.h"
#include "solver/search/search_options.h"

namespace kiv::flatzinc {

// How a model is to be searched.
struct SearchPlan {
  SearchOptions options;  // without limits
  // On annotations that are not followed, as AnnotatedSearch has them.
  std::vector<std::string> warnings;
  std::vector<std::string> remarks;
};

// What is asked of a search.
struct SearchWishes {
  bool free = false;  // annotations may be followed as far as they seem to help
  bool all = false;   // every solution is wanted
};

// The search that the annotations of the model describe, and behind it the variables that the user
// declared and the annotations do not name. A free search takes the variables block by block as
// they are annotated, and their choices of values, but goes by the weight of constraints and
// restarts. Without such annotations it is the default search, which does not restart where all
// solutions are wanted anyway. What the compiler of the model introduced is only completed, so that
// it does not multiply solutions. To be called after all constraints were posted. Throws Error when
// the objective is no integer.
KIV_EXPORT SearchPlan PlanSearch(Builder& builder, const SearchWishes& wishes);

}  // namespace kiv::flatzinc
