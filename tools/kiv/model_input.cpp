#include "tools/kiv/model_input.h"

#include <iostream>
#include <utility>

#include "solver/language/data_file.h"
#include "solver/language/model_compiler.h"
#include "tools/kiv/output.h"
#include "tools/kiv/text_input.h"

namespace kiv {
namespace {

constexpr const char* kStandardModules[] = {"KivOmbEnumIntegers"};

// Adds the values of definitions "name=value" to `values`, in the place of others of that name.
void ReadDefinitions(const std::vector<std::string>& definitions,
                     std::map<std::string, ParameterValue>& values) {
  for (const std::string& definition : definitions) {
    const std::size_t sign = definition.find('=');
    if (sign == 0 || sign == std::string::npos) {
      throw InputError("-D " + definition + ": expected name=value, as in -D n=12");
    }
    const std::string name = definition.substr(0, sign);
    const SourceText text(definition, definition.substr(sign + 1));
    Diagnostics diagnostics(text);
    auto value = ReadValue(text, name, diagnostics);
    if (!value) {
      throw InputError("-D " + definition + ": " + diagnostics.GetAll().front().text +
                       "; a value is an integer, true, false or a list such as [1, 2]");
    }
    values.insert_or_assign(name, *std::move(value));
  }
}

}  // namespace

void OpenModules(const ModuleOptions& options, KivOmbiModuleManager& manager) {
  const auto open = [&manager](const std::string& name) {
    if (manager.OpenModule(name) == nullptr) throw InputError(manager.GetError());
  };
  for (const char* name : kStandardModules) open(name);
  for (const std::string& name : options.load) open(name);
}

void ModelOptions::AddTo(CLI::App& command) {
  command.add_option("MODEL", file, "The file of the model, or - for standard input")
      ->required()
      ->type_name("FILE");
  command
      .add_option("-D,--define", definitions, "Gives the parameter NAME of the model another value")
      ->type_name("NAME=VALUE")
      ->allow_extra_args(false);
  command.add_option("--data", data, "A JSON file with values of parameters; -D goes before it")
      ->type_name("FILE");
}

LoadedModel LoadModel(const ModelOptions& options, const ModuleOptions& modules) {
  CompileOptions compile_options;
  if (!options.data.empty()) {
    const SourceText text(options.data, ReadText(options.data));
    Diagnostics mistakes(text);
    auto values = ReadData(text, mistakes);
    mistakes.PrintOn(std::cerr);
    if (!values) return {};
    compile_options.parameters = *std::move(values);
  }
  ReadDefinitions(options.definitions, compile_options.parameters);
  KivOmbiModuleManager manager;
  OpenModules(modules, manager);

  LoadedModel loaded;
  loaded.source = std::make_unique<SourceText>(options.file == "-" ? "<stdin>" : options.file,
                                               ReadText(options.file));
  Diagnostics diagnostics(*loaded.source);
  loaded.model =
      ReadModel(*loaded.source, Vocabulary(manager.GetModules()), compile_options, diagnostics);
  diagnostics.PrintOn(std::cerr);
  return loaded;
}

}  // namespace kiv
