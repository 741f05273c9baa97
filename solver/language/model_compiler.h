#pragma once

#include <map>
#include <memory>
#include <string>

#include "framework/base/export.h"
#include "solver/language/compiled_model.h"
#include "solver/language/diagnostics.h"
#include "solver/language/expansion_budget.h"
#include "solver/language/parameter_value.h"
#include "solver/language/syntax_tree.h"
#include "solver/language/vocabulary.h"

namespace kiv {

struct CompileOptions {
  // Values of parameters that take the place of those in the model.
  std::map<std::string, ParameterValue> parameters;
  ExpansionLimits limits;
};

// Gives the names and operators of a model their meaning and builds its network, which is not yet
// propagated. Null, and what is wrong in `diagnostics`, when the model is wrong. `source` is the
// text that `tree` was read from; it must outlive the result.
KIV_EXPORT std::unique_ptr<CompiledModel> CompileModel(const SyntaxTree& tree,
                                                       const SourceText& source,
                                                       const Vocabulary& vocabulary,
                                                       const CompileOptions& options,
                                                       Diagnostics& diagnostics);

// Reads and compiles: ParseModel, then CompileModel.
KIV_EXPORT std::unique_ptr<CompiledModel> ReadModel(const SourceText& source,
                                                    const Vocabulary& vocabulary,
                                                    const CompileOptions& options,
                                                    Diagnostics& diagnostics);

}  // namespace kiv
