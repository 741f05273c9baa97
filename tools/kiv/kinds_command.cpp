#include <iostream>

#include "solver/language/vocabulary.h"
#include "tools/kiv/commands.h"

namespace kiv {
namespace {

ExitCode ListKinds(const ModuleOptions& modules) {
  KivOmbiModuleManager manager;
  OpenModules(modules, manager);
  for (const KivOmbiModule* module : manager.GetModules()) {
    for (const KivOmbiObjectDescriptor* kind : module->GetObjectDescriptors()) {
      if (!IsKind(*kind)) continue;
      std::cout << kind->GetName();
      for (auto* parent = kind->GetParent(); parent != nullptr; parent = parent->GetParent()) {
        std::cout << " < " << parent->GetName();
      }
      std::cout << '\n';
    }
  }
  return kSolved;
}

}  // namespace

void AddKindsCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result) {
  CLI::App* command = app.add_subcommand("kinds", "Lists the kinds of variables");
  command->footer(
      "Prints a line for each kind, with the kinds above it: 'enum int < integer < ...'. Kinds\n"
      "that are only parents of others have no variables of their own.\n"
      "Example:\n"
      "  kiv kinds");
  command->callback([&modules, &result] { result = ListKinds(modules); });
}

}  // namespace kiv
