#pragma once

#include <string_view>
#include <vector>

#include "framework/calculator/module_manager.h"
#include "framework/calculator/operator_table.h"

namespace kiv::test {

// The modules of the build tree, and one with a kind that none of them knows, opened through a
// manager.
struct Modules {
  KivOmbiModuleManager manager;
  KivOmbiOperatorTable operators;
  std::vector<const KivOmbiObjectDescriptor*> kinds;  // that have domains

  // The kind of this display name; null when there is none.
  const KivOmbiObjectDescriptor* FindKind(std::string_view name) const;
};

// All modules, opened at the first call. Throws std::runtime_error when one cannot be opened.
const Modules& OpenModules();

}  // namespace kiv::test
