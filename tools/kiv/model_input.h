#pragma once

#include <CLI/App.hpp>
#include <memory>
#include <string>
#include <vector>

#include "framework/calculator/module_manager.h"
#include "solver/language/compiled_model.h"
#include "solver/language/source_text.h"

namespace kiv {

// What the command line says about modules: those to load beside the ones that every model has.
struct ModuleOptions {
  std::vector<std::string> load;
};

// Opens them all. Throws InputError when one cannot be opened.
void OpenModules(const ModuleOptions& options, KivOmbiModuleManager& manager);

// What the command line says about a model.
struct ModelOptions {
  std::string file;                      // "-" for standard input
  std::vector<std::string> definitions;  // "name=value"
  std::string data;                      // a file with values of parameters, or empty

  // Adds the arguments of a subcommand that works on a model.
  void AddTo(CLI::App& command);
};

// A model that was read, with the text that it speaks of.
struct LoadedModel {
  std::unique_ptr<SourceText> source;
  std::unique_ptr<CompiledModel> model;  // null when the text is wrong, which was reported
};

// Reads, resolves and builds the model. Throws InputError for a file, a definition or a module that
// cannot be used; what is wrong with the model itself goes to standard error.
LoadedModel LoadModel(const ModelOptions& options, const ModuleOptions& modules);

}  // namespace kiv
