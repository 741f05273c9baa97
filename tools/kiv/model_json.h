#pragma once

#include "solver/language/compiled_model.h"
#include "tools/kiv/domain_json.h"

namespace kiv {

// What the network of a model holds now: a member for each declared name, an array as a list and
// one of two dimensions as a list of rows. A variable that has one value is that number or truth
// value, any other an object as DescribeDomain makes it.
Json DescribeVariables(const CompiledModel& model);

// Where a constraint comes from: an object with "place" ("file:line:column") and "expression".
Json DescribeOrigin(const CompiledModel& model, KivOmbNetwork::ConstraintId constraint);

}  // namespace kiv
