#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "framework/calculator/module_manager.h"
#include "solver/language/model_compiler.h"

namespace {

const kiv::Vocabulary& StandardVocabulary() {
  static const kiv::Vocabulary vocabulary = [] {
    KivOmbiModuleManager manager;
    if (manager.OpenModule("KivOmbEnumIntegers") == nullptr) std::abort();
    return kiv::Vocabulary(manager.GetModules());
  }();
  return vocabulary;
}

}  // namespace

// Reads any bytes as a model. A model comes out, which prints, or errors do, which
// print; never both.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const kiv::SourceText source(
      "m.kiv", size > 0 ? std::string(reinterpret_cast<const char*>(data), size) : std::string());
  kiv::Diagnostics diagnostics(source);
  kiv::CompileOptions options;
  options.limits = {.steps = 2000, .array_size = 500};
  const auto model = kiv::ReadModel(source, StandardVocabulary(), options, diagnostics);
  if ((model != nullptr) != diagnostics.IsEmpty()) std::abort();

  std::ostringstream out;
  diagnostics.PrintOn(out);
  if (model != nullptr) {
    for (KivOmbNetwork::ConstraintId id = 0; id < model->GetNetwork().CountConstraints(); ++id) {
      out << model->Describe(id);
    }
    model->PrintOn(out);
    model->PrintSolutionOn(out);
  }
  return 0;
}
