#include "tests/solver/language/read_model.h"

#include <sstream>
#include <stdexcept>

#include "solver/search/bisection_search.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

std::string Print(const CompiledModel& model) {
  std::ostringstream out;
  model.PrintOn(out);
  return out.str();
}

std::unique_ptr<CompiledModel> Read(const SourceText& source, const CompileOptions& options,
                                    const Vocabulary& vocabulary) {
  Diagnostics diagnostics(source);
  auto model = ReadModel(source, vocabulary, options, diagnostics);
  if (model == nullptr) {
    std::ostringstream errors;
    diagnostics.PrintOn(errors);
    throw std::runtime_error(errors.str());
  }
  return model;
}

}  // namespace

const Vocabulary& StandardVocabulary() {
  static const Vocabulary vocabulary(OpenModules().manager.GetModules());
  return vocabulary;
}

std::string ErrorsOf(const std::string& text, const CompileOptions& options,
                     const Vocabulary& vocabulary) {
  const SourceText source("m.kiv", text);
  Diagnostics diagnostics(source);
  const bool right = ReadModel(source, vocabulary, options, diagnostics) != nullptr;
  if (right != diagnostics.IsEmpty()) throw std::runtime_error("a model and errors, or neither");
  std::ostringstream errors;
  diagnostics.PrintOn(errors);
  return errors.str();
}

std::vector<std::string> SolutionsOf(const std::string& text, const CompileOptions& options,
                                     const Vocabulary& vocabulary) {
  const SourceText source("m.kiv", text);
  const auto model = Read(source, options, vocabulary);
  std::vector<std::string> solutions;
  bool complete = true;
  TreeSearch search = BisectionSearch(model->GetNetwork(), model->GetDeclared());
  const SearchResult result = search.Run([&](const SearchLeaf& leaf) {
    complete &= leaf.complete;
    solutions.push_back(Print(*model));
    return true;
  });
  if (!complete || result.end != SearchEnd::kExhausted) {
    throw std::runtime_error("not all solutions are known");
  }
  return solutions;
}

std::string PropagationOf(const std::string& text) {
  const SourceText source("m.kiv", text);
  const auto model = Read(source, {}, StandardVocabulary());
  if (model->GetNetwork().Propagate() != KivOmbNetwork::Outcome::kFixpoint) {
    throw std::runtime_error("no fixpoint");
  }
  return Print(*model);
}

}  // namespace kiv::test
