#pragma once

#include <optional>
#include <string>
#include <vector>

#include "framework/base/export.h"
#include "solver/flatzinc/builder.h"
#include "solver/search/restart_policy.h"
#include "solver/search/strategy.h"

namespace kiv::flatzinc {

// What the annotations of a solve item say about the search.
struct AnnotatedSearch {
  // A block for each int_search and bool_search, in order, without the constants among the
  // variables; none when the annotations name no search.
  Strategy strategy;
  std::optional<RestartPolicy> restarts;
  bool restarts_on_solution = false;
  // In the order of the text: annotations from which users expect what they do not get, and others
  // that are ignored.
  std::vector<std::string> warnings;
  std::vector<std::string> remarks;
};

// Understands int_search and bool_search, nested in seq_search to any depth, and the annotations
// restart_*. Annotations never make a text wrong: those that are not understood are told and passed
// over.
KIV_EXPORT AnnotatedSearch ReadSearchAnnotations(const Builder& builder);

}  // namespace kiv::flatzinc
