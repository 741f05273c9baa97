#pragma once

#include <string>
#include <vector>

#include "solver/language/model_compiler.h"
#include "solver/language/vocabulary.h"

namespace kiv::test {

// What the modules of the build tree let a model say.
const Vocabulary& StandardVocabulary();

// What Kiv prints about the mistakes of a model that is called "m.kiv"; empty when it has none.
std::string ErrorsOf(const std::string& text, const CompileOptions& options = {},
                     const Vocabulary& vocabulary = StandardVocabulary());

// All solutions of a right model, each as the command prints it, in order. Throws
// std::runtime_error when the model is wrong or the search does not come to a proper end.
std::vector<std::string> SolutionsOf(const std::string& text, const CompileOptions& options = {},
                                     const Vocabulary& vocabulary = StandardVocabulary());

// The domains of the declared variables after propagation, as the command prints them.
std::string PropagationOf(const std::string& text);

}  // namespace kiv::test
